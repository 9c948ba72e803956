// Copies of objects within a drawing and between drawings: what comes along, and what the copies refer to.
#include "db/AcDbBlockReference.h"
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbDictionary.h"
#include "db/AcDbGroup.h"
#include "db/AcDbIdMapping.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/AcDbLeader.h"
#include "db/AcDbLine.h"
#include "db/AcDbLinetypeTableRecord.h"
#include "db/AcDbMText.h"
#include "db/AcDbRegAppTableRecord.h"
#include "db/AcDbSortentsTable.h"
#include "db/AcDbTextStyleTableRecord.h"
#include "db/AcDbXrecord.h"
#include "db/core/Audit.h"
#include "db/core/DbCore.h"
#include "db/core/ObjectAccess.h"
#include <gtest/gtest.h>
#include <memory>

using namespace KxPlat;

namespace {

template <class Table, class Record>
AcDbObjectId Add(AcDbDatabase& db, const wchar_t* name, Record* record)
{
    Table* table = nullptr;
    AcDbObjectId id;
    db.getSymbolTable(table, AcDb::kForWrite);
    record->setName(name);
    EXPECT_EQ(table->add(id, record), Acad::eOk);
    record->close();
    table->close();
    return id;
}

AcDbObjectId AddLayer(AcDbDatabase& db, const wchar_t* name, int color)
{
    auto* layer = new AcDbLayerTableRecord;
    AcCmColor shade;
    shade.setColorIndex(Adesk::UInt16(color));
    layer->setColor(shade);
    return Add<AcDbLayerTable>(db, name, layer);
}

int ColorOf(AcDbObjectId layer)
{
    return static_cast<AcDbLayerTableRecord*>(static_cast<AcDbStub*>(layer)->object)->color().colorIndex();
}

AcDbObjectId Append(AcDbObjectId block, AcDbEntity* entity)
{
    AcDbBlockTableRecord* record = nullptr;
    EXPECT_EQ(acdbOpenObject(record, block, AcDb::kForWrite), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(record->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    record->close();
    return id;
}

AcDbObjectId ModelSpace(AcDbDatabase& db)
{
    return CoreOf(db).modelSpace;
}

AcDbObjectId AddLine(AcDbDatabase& db, double x, AcDbObjectId layer = {})
{
    auto* line = new AcDbLine(AcGePoint3d(x, 0, 0), AcGePoint3d(x, 1, 0));
    if (!layer.isNull())
        line->setLayer(layer);
    return Append(ModelSpace(db), line);
}

AcDbObject* At(AcDbObjectId id)
{
    const AcDbStub* stub = id;
    return stub == nullptr ? nullptr : stub->object;
}

AcDbObjectIdArray Ids(std::initializer_list<AcDbObjectId> all)
{
    AcDbObjectIdArray ids;
    for (AcDbObjectId id : all)
        ids.append(id);
    return ids;
}

// References that lead out of the drawing, or to nothing.
int StrayReferences(AcDbDatabase& db)
{
    int stray = 0;
    CoreOf(db).handles.ForEach([&](AcDbStub& stub) {
        if (stub.object == nullptr || stub.erased)
            return;
        VisitReferences(*stub.object, [&](AcDbObjectId& id, Reference) {
            stray += !id.isNull() && (id.database() != &db || At(id) == nullptr);
        });
    });
    return stray;
}

class Clones : public testing::Test {
protected:
    void TearDown() override
    {
        EXPECT_EQ(OpenObjectCount(), m_open);
        EXPECT_EQ(StrayReferences(from), 0);
        EXPECT_EQ(StrayReferences(to), 0);
        Audit audit(CoreOf(to), false);
        audit.All();
        for (const AuditFinding& finding : audit.Findings())
            ADD_FAILURE() << CString(finding.object.c_str()).GetString() << ": " << finding.what.c_str();
    }
    AcDbObjectId Cloned(AcDbObjectIdArray ids, AcDb::DuplicateRecordCloning mode = AcDb::kDrcIgnore)
    {
        AcDbObjectId owner = ModelSpace(to);
        map = AcDbIdMapping();
        EXPECT_EQ(from.wblockCloneObjects(ids, owner, map, mode), Acad::eOk);
        return map.find(ids.at(0));
    }

    long m_open = OpenObjectCount();
    AcDbDatabase from, to;
    AcDbIdMapping map;
};

AcDbObjectId LayerOf(AcDbObjectId entity)
{
    return static_cast<AcDbEntity*>(At(entity))->layerId();
}

CString NameOf(AcDbObjectId record)
{
    return static_cast<AcDbSymbolTableRecord*>(At(record))->nameText();
}

}   // namespace

TEST_F(Clones, RecordsOfOneNameAreIgnoredReplacedOrRenamed)
{
    struct Row {
        AcDb::DuplicateRecordCloning mode;
        const wchar_t* name;
        int color;        // of the layer that the clone is on
        int theirColor;   // of the layer that was there before
    };
    static const Row rows[] = {{AcDb::kDrcIgnore, L"墙", 1, 1},
                               {AcDb::kDrcMangleName, L"$0$墙", 5, 1},
                               {AcDb::kDrcReplace, L"墙", 5, 5},
                               {AcDb::kDrcMangleName, L"$1$墙", 5, 5}};
    const AcDbObjectId theirs = AddLayer(to, L"墙", 1);
    const AcDbObjectId line = AddLine(from, 0, AddLayer(from, L"墙", 5));
    for (const Row& row : rows) {
        SCOPED_TRACE(int(row.mode));
        const AcDbObjectId clone = Cloned(Ids({line}), row.mode);
        EXPECT_EQ(NameOf(LayerOf(clone)), row.name);
        EXPECT_EQ(ColorOf(LayerOf(clone)), row.color);
        EXPECT_EQ(ColorOf(theirs), row.theirColor);
    }
}

TEST_F(Clones, BlocksAreReplacedWithTheirContents)
{
    const AcDbObjectId mine = Add<AcDbBlockTable>(from, L"门", new AcDbBlockTableRecord);
    Append(mine, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(9, 0, 0)));
    Append(mine, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(0, 9, 0)));
    const AcDbObjectId theirs = Add<AcDbBlockTable>(to, L"门", new AcDbBlockTableRecord);
    Append(theirs, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)));
    const AcDbObjectId insert = Append(ModelSpace(from), new AcDbBlockReference(AcGePoint3d(), mine));
    const auto live = [&] {
        int count = 0;
        for (const AcDbStub* entity : static_cast<AcDbBlockTableRecord*>(At(theirs))->entities())
            count += !entity->erased;
        return count;
    };
    EXPECT_EQ(static_cast<AcDbBlockReference*>(At(Cloned(Ids({insert}))))->blockTableRecord(), theirs);
    EXPECT_EQ(live(), 1);
    EXPECT_EQ(static_cast<AcDbBlockReference*>(At(Cloned(Ids({insert}), AcDb::kDrcReplace)))->blockTableRecord(),
              theirs);
    EXPECT_EQ(live(), 2);
}

TEST_F(Clones, AnonymousBlocksGetANewNumber)
{
    Add<AcDbBlockTable>(to, L"*U1", new AcDbBlockTableRecord);
    const AcDbObjectId mine = Add<AcDbBlockTable>(from, L"*U1", new AcDbBlockTableRecord);
    const AcDbObjectId insert = Append(ModelSpace(from), new AcDbBlockReference(AcGePoint3d(), mine));
    const auto* clone = static_cast<AcDbBlockReference*>(At(Cloned(Ids({insert}))));
    EXPECT_EQ(NameOf(clone->blockTableRecord()), L"*U2");
}

TEST_F(Clones, ExtensionDictionariesComeWithTheirRecords)
{
    const AcDbObjectId line = AddLine(from, 0), other = AddLine(from, 1);
    AcDbLine* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, line, AcDb::kForWrite), Acad::eOk);
    opened->createExtensionDictionary();
    AcDbDictionary* dictionary = nullptr;
    ASSERT_EQ(acdbOpenObject(dictionary, opened->extensionDictionary(), AcDb::kForWrite), Acad::eOk);
    auto* record = new AcDbXrecord;
    AcDbObjectId recordId;
    dictionary->setAt(L"关联", record, recordId);
    ads_name toOther, toSelf;
    toOther[0] = other.asOldId(), toOther[1] = 0, toSelf[0] = line.asOldId(), toSelf[1] = 0;
    resbuf* chain = acutBuildList(330, toSelf, 330, toOther, 1, L"甲", 0);
    EXPECT_EQ(record->setFromRbChain(*chain), Acad::eOk);
    acutRelRb(chain);
    record->close();
    dictionary->close();
    opened->close();

    const AcDbObjectId clone = Cloned(Ids({line}));
    AcDbObjectId copied;
    const auto* copy = static_cast<AcDbDictionary*>(At(static_cast<AcDbLine*>(At(clone))->extensionDictionary()));
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->ownerId(), clone);
    ASSERT_EQ(copy->getAt(L"关联", copied), Acad::eOk);
    const GroupList& groups = static_cast<AcDbXrecord*>(At(copied))->groups();
    ASSERT_EQ(groups.size(), 3u);
    EXPECT_EQ(groups[0].id(), clone);
    EXPECT_TRUE(groups[1].id().isNull());   // the other line stayed behind
    EXPECT_EQ(groups[2].text(), L"甲");
}

TEST_F(Clones, NamesInExtendedDataComeAlong)
{
    AddLayer(to, L"标注", 1);
    AddLayer(from, L"标注", 5);
    Add<AcDbRegAppTable>(from, L"KX_ROOM", new AcDbRegAppTableRecord);
    const AcDbObjectId line = AddLine(from, 0);
    AcDbObject* opened = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(opened, line, AcDb::kForWrite), Acad::eOk);
    resbuf* data = acutBuildList(1001, L"KX_ROOM", 1003, L"标注", 1071, 5, 0);
    EXPECT_EQ(opened->setXData(data), Acad::eOk);
    acutRelRb(data);
    opened->close();
    const AcDbObjectId clone = Cloned(Ids({line}), AcDb::kDrcMangleName);
    EXPECT_NE(CoreOf(to).Table(TableKind::RegApp)->find(L"KX_ROOM"), nullptr);
    resbuf* copied = At(clone)->xData(L"KX_ROOM");
    ASSERT_NE(copied, nullptr);
    EXPECT_EQ(std::wstring(copied->rbnext->resval.rstring), L"$0$标注");
    acutRelRb(copied);
}

TEST_F(Clones, GroupsGoOnWithTheMembersThatCameAlong)
{
    const AcDbObjectId a = AddLine(from, 0), b = AddLine(from, 1), c = AddLine(from, 2);
    AcDbDictionary* groups = nullptr;
    ASSERT_EQ(from.getGroupDictionary(groups, AcDb::kForWrite), Acad::eOk);
    auto* group = new AcDbGroup(L"三条线");
    AcDbObjectId groupId;
    groups->setAt(L"线", group, groupId);
    group->append(Ids({a, b, c}));
    group->close();
    groups->close();

    Cloned(Ids({c, a}));
    const auto* copy = static_cast<AcDbGroup*>(At(map.find(groupId)));
    ASSERT_NE(copy, nullptr);
    ACHAR* name = copy->name();
    EXPECT_EQ(std::wstring(name), L"线");
    acutDelString(name);
    EXPECT_STREQ(CString(copy->description()).GetString(), L"三条线");
    EXPECT_EQ(copy->members(), (std::vector<AcDbObjectId>{map.find(a), map.find(c)}));
    EXPECT_TRUE(At(map.find(a))->hasPersistentReactor(map.find(groupId)));
    Cloned(Ids({a, b, c}));   // once more: the name is taken
    name = static_cast<AcDbGroup*>(At(map.find(groupId)))->name();
    EXPECT_EQ(std::wstring(name), L"$0$线");
    acutDelString(name);

    // Within the drawing a group is copied only with all its members, and gets no name.
    AcDbObjectId space = ModelSpace(from);
    AcDbIdMapping part, whole;
    AcDbObjectIdArray some = Ids({a, b}), all = Ids({a, b, c});
    ASSERT_EQ(from.deepCloneObjects(some, space, part), Acad::eOk);
    EXPECT_TRUE(part.find(groupId).isNull());
    EXPECT_FALSE(At(part.find(a))->hasPersistentReactor(groupId));
    ASSERT_EQ(from.deepCloneObjects(all, space, whole), Acad::eOk);
    ASSERT_FALSE(whole.find(groupId).isNull());
    EXPECT_TRUE(static_cast<AcDbGroup*>(At(whole.find(groupId)))->isAnonymous());
    EXPECT_EQ(static_cast<AcDbGroup*>(At(groupId))->members().size(), 3u);
}

TEST_F(Clones, TheDrawOrderComesAlong)
{
    const AcDbObjectId a = AddLine(from, 0), b = AddLine(from, 1), c = AddLine(from, 2);
    AcDbBlockTableRecord* space = nullptr;
    AcDbSortentsTable* table = nullptr;
    ASSERT_EQ(acdbOpenObject(space, ModelSpace(from), AcDb::kForWrite), Acad::eOk);
    ASSERT_EQ(space->getSortentsTable(table, AcDb::kForWrite, true), Acad::eOk);
    AcDbObjectIdArray top = Ids({a});
    EXPECT_EQ(table->moveToTop(top), Acad::eOk);
    table->close();
    space->close();

    Cloned(Ids({a, b, c}));
    ASSERT_EQ(acdbOpenObject(space, ModelSpace(to), AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(space->getSortentsTable(table, AcDb::kForRead, false), Acad::eOk);
    AcDbObjectIdArray order;
    table->getFullDrawOrder(order);
    table->close();
    space->close();
    ASSERT_EQ(order.length(), 3);
    EXPECT_EQ(order.at(0), map.find(b));
    EXPECT_EQ(order.at(1), map.find(c));
    EXPECT_EQ(order.at(2), map.find(a));
}

TEST_F(Clones, WhatAnEntityPointsToComesIntoItsBlock)
{
    auto* text = new AcDbMText;
    text->setContents(L"注释");
    const AcDbObjectId note = Append(ModelSpace(from), text);
    auto* leader = new AcDbLeader;
    leader->appendVertex(AcGePoint3d(0, 0, 0));
    leader->appendVertex(AcGePoint3d(5, 5, 0));
    const AcDbObjectId arrow = Append(ModelSpace(from), leader);
    AcDbLeader* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, arrow, AcDb::kForWrite), Acad::eOk);
    opened->attachAnnotation(note);
    opened->close();

    const auto* clone = static_cast<AcDbLeader*>(At(Cloned(Ids({arrow}))));
    const AcDbObjectId copied = clone->annotationObjId();
    ASSERT_EQ(copied, map.find(note));
    EXPECT_EQ(At(copied)->ownerId(), ModelSpace(to));
    EXPECT_EQ(static_cast<AcDbBlockTableRecord*>(At(ModelSpace(to)))->entities().size(), 2u);
}

TEST_F(Clones, NestedBlocksKeepTheirNesting)
{
    const AcDbObjectId inner = Add<AcDbBlockTable>(from, L"把手", new AcDbBlockTableRecord);
    Append(inner, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0)));
    const AcDbObjectId outer = Add<AcDbBlockTable>(from, L"门", new AcDbBlockTableRecord);
    Append(outer, new AcDbBlockReference(AcGePoint3d(2, 0, 0), inner));
    const AcDbObjectId insert = Append(ModelSpace(from), new AcDbBlockReference(AcGePoint3d(3, 0, 0), outer));
    const auto* clone = static_cast<AcDbBlockReference*>(At(Cloned(Ids({insert}))));
    const auto* door = static_cast<AcDbBlockTableRecord*>(At(clone->blockTableRecord()));
    ASSERT_EQ(door->entities().size(), 1u);
    const auto* handle = static_cast<AcDbBlockReference*>(door->entities()[0]->object);
    EXPECT_EQ(NameOf(handle->blockTableRecord()), L"把手");
    EXPECT_EQ(handle->ownerId(), clone->blockTableRecord());
}

TEST_F(Clones, BadInputChangesNothing)
{
    AcDbObjectId owner = ModelSpace(to), none, line = AddLine(from, 0), gone = AddLine(from, 1);
    AcDbObject* opened = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(opened, gone, AcDb::kForWrite), Acad::eOk);
    opened->erase();
    opened->close();
    AcDbObjectIdArray bad = Ids({line, gone}), null = Ids({none}), good = Ids({line});
    EXPECT_EQ(from.wblockCloneObjects(bad, owner, map, AcDb::kDrcIgnore), Acad::eInvalidInput);
    EXPECT_EQ(from.wblockCloneObjects(null, owner, map, AcDb::kDrcIgnore), Acad::eInvalidInput);
    EXPECT_EQ(from.wblockCloneObjects(good, none, map, AcDb::kDrcIgnore), Acad::eInvalidInput);
    EXPECT_EQ(from.deepCloneObjects(good, owner, map), Acad::eInvalidInput);
    EXPECT_TRUE(static_cast<AcDbBlockTableRecord*>(At(owner))->entities().empty());
}
