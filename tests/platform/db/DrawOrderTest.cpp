// The draw order of a block's entities.
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbDictionary.h"
#include "db/AcDbLine.h"
#include "db/AcDbSortentsTable.h"
#include "db/core/DbCore.h"
#include "Groups.h"
#include <cctype>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

using namespace KxPlat;

namespace {

// Five lines, named A to E in the order in which they were drawn.
class DrawOrder : public ::testing::Test {
protected:
    DrawOrder()
    {
        AcDbBlockTableRecord* space = OpenSpace(AcDb::kForWrite);
        for (int i = 0; i < 5; ++i) {
            AcDbLine* line = new AcDbLine(AcGePoint3d(i, 0, 0), AcGePoint3d(i, 1, 0));
            AcDbObjectId id;
            space->appendAcDbEntity(id, line);
            line->close();
            lines.push_back(id);
        }
        space->close();
    }
    AcDbBlockTableRecord* OpenSpace(AcDb::OpenMode mode)
    {
        AcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(acdbOpenObject(space, db.currentSpaceId(), mode), Acad::eOk);
        return space;
    }
    template <class Use>
    void WithTable(Use&& use)
    {
        AcDbBlockTableRecord* space = OpenSpace(AcDb::kForWrite);
        AcDbSortentsTable* table = nullptr;
        ASSERT_EQ(space->getSortentsTable(table, AcDb::kForWrite, true), Acad::eOk);
        use(*table);
        table->close();
        space->close();
    }
    AcDbObjectIdArray Ids(const std::string& names) const
    {
        AcDbObjectIdArray ids;
        for (char name : names)
            ids.append(lines[size_t(name - 'A')]);
        return ids;
    }
    std::string Order()
    {
        std::string names;
        WithTable([&](AcDbSortentsTable& table) {
            AcDbObjectIdArray ids;
            EXPECT_EQ(table.getFullDrawOrder(ids), Acad::eOk);
            for (const AcDbObjectId& id : ids)
                for (size_t i = 0; i < lines.size(); ++i)
                    if (lines[i] == id)
                        names += char('A' + i);
        });
        return names;
    }

    AcDbDatabase db;
    std::vector<AcDbObjectId> lines;
};

std::string Upper(std::string text)
{
    for (char& letter : text)
        letter = char(std::toupper(letter));
    return text;
}

}   // namespace

TEST_F(DrawOrder, MovedEntitiesKeepTheirOrderAmongThemselves)
{
    struct Row {
        const char* moved;
        bool toTop;
        const char* order;
    };
    // One after the other, on the order that the row before left.
    static const Row rows[] = {{"", true, "ABCDE"},   {"B", true, "ACDEB"},  {"CA", true, "DEBAC"},
                               {"E", false, "EDBAC"}, {"C", false, "CEDBA"}, {"ABCDE", true, "CEDBA"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.moved) + (row.toTop ? " to the top" : " to the bottom"));
        AcDbObjectIdArray ids = Ids(row.moved);
        WithTable([&](AcDbSortentsTable& table) {
            EXPECT_EQ(row.toTop ? table.moveToTop(ids) : table.moveToBottom(ids), Acad::eOk);
        });
        EXPECT_EQ(Order(), row.order);
    }
}

TEST_F(DrawOrder, SortHandlesAreThoseOfTheEntities)
{
    AcDbObjectIdArray first = Ids("A");
    WithTable([&](AcDbSortentsTable& table) {
        table.moveToTop(first);
        // B to E take the place before them, A the last one.
        const char* taken = "EABCD";
        for (size_t i = 0; i < lines.size(); ++i) {
            AcDbHandle handle;
            EXPECT_EQ(table.getSortHandle(lines[i], handle), Acad::eOk);
            EXPECT_EQ(handle, lines[size_t(taken[i] - 'A')].handle()) << i;
        }
    });
}

TEST_F(DrawOrder, AnEntityOfAnotherBlockIsRefused)
{
    AcDbObjectIdArray ids = Ids("AB");
    ids.append(db.layerZero());
    WithTable([&](AcDbSortentsTable& table) { EXPECT_EQ(table.moveToTop(ids), Acad::eInvalidInput); });
    EXPECT_EQ(Order(), "ABCDE");
}

TEST_F(DrawOrder, GroupsComeInAndGoOutAsTheyWere)
{
    const auto hex = [](AcDbObjectId id) {
        std::ostringstream out;
        out << std::hex << std::uppercase << uint64_t(id.handle());
        return out.str();
    };
    const auto pair = [&](int entity, const std::string& handle) {
        return "|331 " + hex(lines[size_t(entity)]) + "|5 " + handle;
    };
    const std::string groups = "100 AcDbSortentsTable|330 " + hex(db.currentSpaceId()) + pair(0, hex(lines[4])) +
                               pair(4, hex(lines[0])) + pair(1, "FFFF1");
    WithTable([&](AcDbSortentsTable& table) {
        Groups::Put(table, CoreOf(db), groups);
        EXPECT_EQ(Upper(Groups::Canonical(table, AcDb::kDHL_1032)), Upper(groups));
    });
    EXPECT_EQ(Order(), "ECDAB");
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, lines[0], AcDb::kForWrite), Acad::eOk);
    line->erase();
    line->close();
    EXPECT_EQ(Order(), "ECDB");
    WithTable([&](AcDbSortentsTable& table) {
        EXPECT_EQ(Groups::Canonical(table, AcDb::kDHL_1032).find("331 " + hex(lines[0])), std::string::npos);
    });
}
