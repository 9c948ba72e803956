// What a save writes after changes, in other versions and forms.
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/AcDbLine.h"
#include "db/AcDbPolyline.h"
#include "db/AcDbViewport.h"
#include "db/core/DbCore.h"
#include "db/core/FileFormats.h"
#include "dxf/DxfNames.h"
#include "dxf/DxfReader.h"
#include "dxf/DxfWriter.h"
#include "TagText.h"
#include "win/CodePage.h"
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <unistd.h>

using namespace KxPlat;
using TagText::Record;

namespace {

constexpr AcDb::AcDbDwgVersion kVersions[] = {AcDb::kDHL_1009, AcDb::kDHL_1012, AcDb::kDHL_1014,
                                              AcDb::kDHL_1015, AcDb::kDHL_1018, AcDb::kDHL_1021,
                                              AcDb::kDHL_1024, AcDb::kDHL_1027, AcDb::kDHL_1032};

class Saving : public testing::Test {
protected:
    ~Saving() override { std::filesystem::remove(m_path); }
    std::wstring Path() const { return FromUtf8(m_path); }
    static std::wstring Data(const char* name) { return FromUtf8(std::string(KX_TEST_DATA) + "/" + name); }
    std::vector<Record> Saved(AcDbDatabase& database)
    {
        EXPECT_EQ(database.dxfOut(Path().c_str()), Acad::eOk);
        return TagText::Load(m_path);
    }
    static std::map<std::string, int> Counts(const DbCore& core)
    {
        std::map<std::string, int> counts;
        for (const AcDbStub* stub : static_cast<AcDbBlockTableRecord*>(core.modelSpace->object)->entities())
            ++counts[DxfNameOf(*stub->object)];
        return counts;
    }

    std::string m_path = std::filesystem::temp_directory_path() / ("kx_save_" + std::to_string(getpid()) + ".dxf");
};

// Each record of `a` that `b` has not in the same form, as "TYPE difference".
std::vector<std::string> Changes(const std::vector<Record>& a, const std::vector<Record>& b)
{
    std::vector<std::string> changes;
    for (const Record& record : a) {
        if (record.handle == 0)
            continue;
        const auto same =
            std::find_if(b.begin(), b.end(), [&](const Record& one) { return one.handle == record.handle; });
        const std::string difference = same == b.end() ? "is gone" : Difference(record, *same);
        if (!difference.empty())
            changes.push_back(record.type + " " + difference);
    }
    return changes;
}

TEST_F(Saving, AChangedLayerChangesItsOwnGroupOnly)
{
    for (const char* name : {"house_r2000_gbk.dxf", "house_r2018.dxf", "house_r12.dxf", "house_r2013_binary.dxf"}) {
        SCOPED_TRACE(name);
        AcDbDatabase database(false, true);
        ASSERT_EQ(database.readDwgFile(Data(name).c_str()), Acad::eOk);
        const std::vector<Record> before = TagText::Load(std::string(KX_TEST_DATA) + "/" + name);
        const auto isOn = [](const Record& record) {
            return record.type == "LAYER" && record.section == "TABLES" && record.handle != 0 &&
                   std::any_of(record.tags.begin(), record.tags.end(),
                               [](const TagText::Tag& tag) { return tag.code == 62 && tag.integer > 0; });
        };
        const auto layer = std::find_if(before.begin(), before.end(), isOn);
        ASSERT_NE(layer, before.end());
        AcDbObjectId id;
        ASSERT_EQ(database.getAcDbObjectId(id, false, AcDbHandle(layer->handle)), Acad::eOk);
        AcDbLayerTableRecord* record = nullptr;
        ASSERT_EQ(acdbOpenObject(record, id, AcDb::kForWrite), Acad::eOk);
        record->setIsOff(true);
        record->close();
        const std::vector<std::string> changes = Changes(before, Saved(database));
        ASSERT_EQ(changes.size(), 1u);
        EXPECT_NE(changes[0].find(": 62="), std::string::npos) << changes[0];
    }
}

TEST_F(Saving, ErasedAndAddedEntitiesAreGoneAndThere)
{
    AcDbDatabase database(false, true);
    ASSERT_EQ(database.readDwgFile(Data("house_r2000_gbk.dxf").c_str()), Acad::eOk);
    DbCore& core = CoreOf(database);
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, AcDbObjectId(core.modelSpace), AcDb::kForWrite), Acad::eOk);
    AcDbLine* line = new AcDbLine(AcGePoint3d(0.1, 0.2, 0.3), AcGePoint3d(4, 5, 6));
    ASSERT_EQ(space->appendAcDbEntity(line), Acad::eOk);
    const uint64_t added = line->objectId().handle();
    line->close();
    // Some lie on a locked layer.
    AcDbEntity* entity = nullptr;
    AcDbStub* first = nullptr;
    for (size_t i = 0; i < space->entities().size() && entity == nullptr; ++i) {
        first = space->entities()[i];
        acdbOpenObject(entity, AcDbObjectId(first), AcDb::kForWrite);
    }
    space->close();
    ASSERT_NE(entity, nullptr);
    EXPECT_EQ(entity->erase(), Acad::eOk);
    entity->close();

    const std::vector<Record> after = Saved(database);
    uint64_t seed = 0;
    bool isFirstThere = false, isAddedThere = false;
    for (const Record& record : after) {
        isFirstThere = isFirstThere || record.handle == first->handle;
        isAddedThere =
            isAddedThere || (record.handle == added && record.type == "LINE" && record.tags.back().real == 6.0);
        if (record.type == "$HANDSEED")
            seed = record.tags[0].handle;
    }
    EXPECT_FALSE(isFirstThere);
    EXPECT_TRUE(isAddedThere);
    EXPECT_GT(seed, added);
}

TEST_F(Saving, ANewDrawingComesBackInEveryVersionAndForm)
{
    AcDbDatabase database(true, true);
    DbCore& core = CoreOf(database);
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, AcDbObjectId(core.modelSpace), AcDb::kForWrite), Acad::eOk);
    AcDbLine* line = new AcDbLine(AcGePoint3d(0.1, 0.2, 0.3), AcGePoint3d(4, 5, 6));
    space->appendAcDbEntity(line);
    line->close();
    space->close();
    for (AcDb::AcDbDwgVersion version : kVersions)
        for (bool isBinary : {false, true}) {
            SCOPED_TRACE(version);
            ASSERT_EQ(WriteDxf(database, m_path, {version, isBinary, 16}), 0);
            AcDbDatabase again(false, true);
            DxfReport report;
            ASSERT_TRUE(ReadDxf(again, m_path, report)) << report.error();
            EXPECT_EQ(report.mendedCount(), 0u) << report.mended()[0];
            EXPECT_EQ(CoreOf(again).form.version, version);
            EXPECT_EQ(CoreOf(again).form.isBinary, isBinary);
            const auto& blocks = CoreOf(again).Table(TableKind::Block);
            const AcDbStub* model = blocks->find(ACDB_MODEL_SPACE);
            ASSERT_NE(model, nullptr);
            const auto& entities = static_cast<AcDbBlockTableRecord*>(model->object)->entities();
            ASSERT_EQ(entities.size(), 1u);
            EXPECT_EQ(AcDbLine::cast(entities[0]->object)->endPoint(), AcGePoint3d(4, 5, 6));
        }
}

TEST_F(Saving, ADrawingKeepsItsEntitiesInEveryNewerVersion)
{
    for (const char* name : {"house_r12.dxf", "house_r2000_gbk.dxf", "house_r2018.dxf"}) {
        AcDbDatabase database(false, true);
        ASSERT_EQ(database.readDwgFile(Data(name).c_str()), Acad::eOk);
        for (AcDb::AcDbDwgVersion version : kVersions) {
            if (version < AcDb::kDHL_1015)
                continue;
            SCOPED_TRACE(std::string(name) + " " + std::to_string(version));
            ASSERT_EQ(WriteDxf(database, m_path, {version, false, 16}), 0);
            AcDbDatabase again(false, true);
            ASSERT_EQ(again.readDwgFile(Path().c_str()), Acad::eOk);
            EXPECT_EQ(LastReadReport().repairs, 0u);
            EXPECT_EQ(Counts(CoreOf(again)), Counts(CoreOf(database)));
        }
    }
}

TEST_F(Saving, AFlatPolylineBecomesOneWithVerticesInTheOldestVersion)
{
    AcDbDatabase database(true, true);
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, AcDbObjectId(CoreOf(database).modelSpace), AcDb::kForWrite), Acad::eOk);
    AcDbPolyline* polyline = new AcDbPolyline(3);
    polyline->addVertexAt(0, AcGePoint2d(0, 0), 0.5);
    polyline->addVertexAt(1, AcGePoint2d(10, 0));
    polyline->addVertexAt(2, AcGePoint2d(10, 20));
    polyline->setClosed(true);
    polyline->setElevation(7);
    space->appendAcDbEntity(polyline);
    polyline->close();
    space->close();
    ASSERT_EQ(WriteDxf(database, m_path, {AcDb::kDHL_1009, false, 16}), 0);
    const auto value = [](const Record& record, int code) {
        for (const TagText::Tag& tag : record.tags)
            if (tag.code == code)
                return tag.kind == 'r' ? tag.real : double(tag.integer);
        return 0.0;
    };
    std::vector<Record> entities;
    for (const Record& record : TagText::Load(m_path))
        if (record.section == "ENTITIES")
            entities.push_back(record);
    ASSERT_EQ(entities.size(), 5u);
    EXPECT_EQ(entities[0].type, "POLYLINE");
    EXPECT_EQ(value(entities[0], 70), 1);
    EXPECT_EQ(value(entities[0], 30), 7);
    const double vertices[3][3] = {{0, 0, 0.5}, {10, 0, 0}, {10, 20, 0}};
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(entities[i + 1].type, "VERTEX");
        EXPECT_EQ(value(entities[i + 1], 10), vertices[i][0]);
        EXPECT_EQ(value(entities[i + 1], 20), vertices[i][1]);
        EXPECT_EQ(value(entities[i + 1], 42), vertices[i][2]);
    }
    EXPECT_EQ(entities[4].type, "SEQEND");
}

TEST_F(Saving, ViewsOfViewportsPassThroughOldVersions)
{
    AcDbDatabase database(false, true);
    ASSERT_EQ(database.readDwgFile(Data("house_r2018.dxf").c_str()), Acad::eOk);
    const auto viewportOf = [](AcDbDatabase& drawing) -> const AcDbViewport* {
        for (const AcDbStub* block : CoreOf(drawing).Table(TableKind::Block)->records())
            for (const AcDbStub* stub : static_cast<const AcDbBlockTableRecord*>(block->object)->entities()) {
                const AcDbViewport* viewport = AcDbViewport::cast(stub->object);
                AcDbObjectIdArray frozen;
                if (viewport != nullptr && viewport->getFrozenLayerList(frozen) == Acad::eOk && frozen.length() > 0)
                    return viewport;
            }
        return nullptr;
    };
    const AcDbViewport* before = viewportOf(database);
    ASSERT_NE(before, nullptr);
    for (AcDb::AcDbDwgVersion version : {AcDb::kDHL_1009, AcDb::kDHL_1012, AcDb::kDHL_1014}) {
        SCOPED_TRACE(version);
        ASSERT_EQ(WriteDxf(database, m_path, {version, false, 16}), 0);
        AcDbDatabase again(false, true);
        ASSERT_EQ(again.readDwgFile(Path().c_str()), Acad::eOk);
        const AcDbViewport* after = viewportOf(again);
        ASSERT_NE(after, nullptr);
        EXPECT_EQ(after->viewHeight(), before->viewHeight());
        EXPECT_EQ(after->viewCenter(), before->viewCenter());
        EXPECT_EQ(after->viewTarget(), before->viewTarget());
        EXPECT_EQ(after->viewDirection(), before->viewDirection());
        AcDbObjectIdArray frozen, frozenBefore;
        after->getFrozenLayerList(frozen);
        before->getFrozenLayerList(frozenBefore);
        EXPECT_EQ(frozen.length(), frozenBefore.length());
    }
}

TEST_F(Saving, DecimalsAreCutWhereAsked)
{
    AcDbDatabase database(true, true);
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, AcDbObjectId(CoreOf(database).modelSpace), AcDb::kForWrite), Acad::eOk);
    AcDbLine* line = new AcDbLine(AcGePoint3d(1.0 / 3, 2, 1e-9), AcGePoint3d(123456789.987654321, -2.0 / 3, 1e300));
    space->appendAcDbEntity(line);
    line->close();
    space->close();
    struct Row {
        int precision;
        double values[6];
    };
    static const Row rows[] = {
        {16, {1.0 / 3, 2, 1e-9, 123456789.987654321, -2.0 / 3, 1e300}},
        {3, {0.333, 2, 0, 123456789.988, -0.667, 1e300}},
        {0, {0, 2, 0, 123456790, -1, 1e300}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.precision);
        ASSERT_EQ(WriteDxf(database, m_path, {AcDb::kDHL_1024, false, row.precision}), 0);
        for (const Record& record : TagText::Load(m_path))
            for (size_t i = 0; i < 6 && record.type == "LINE"; ++i)
                EXPECT_EQ(record.tags[record.tags.size() - 6 + i].real, row.values[i]) << i;
    }
}

TEST_F(Saving, AFolderThatIsNotThereIsAnErrorAndLeavesNothing)
{
    AcDbDatabase database(true, true);
    EXPECT_EQ(database.dxfOut((Path() + L"/no/where.dxf").c_str()), Acad::eFileNotFound);
    EXPECT_FALSE(std::filesystem::exists(m_path));
}

}   // namespace
