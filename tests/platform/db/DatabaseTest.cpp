// What a database promises about opening, naming, erasing, undoing and purging.
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbDictionary.h"
#include "db/AcDbGroup.h"
#include "db/AcDbIdMapping.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/AcDbLine.h"
#include "db/AcDbLinetypeTableRecord.h"
#include "db/AcDbRegAppTableRecord.h"
#include "db/AcDbXrecord.h"
#include "db/core/DbCore.h"
#include "db/core/Wildcard.h"
#include "rx/ResBufs.h"
#include <gtest/gtest.h>

using namespace KxPlat;

namespace {

class Database : public ::testing::Test {
protected:
    void SetUp() override { m_openBefore = OpenObjectCount(); }
    void TearDown() override { EXPECT_EQ(OpenObjectCount(), m_openBefore); }

    AcDbObjectId AddLayer(const wchar_t* name)
    {
        AcDbLayerTable* table = nullptr;
        EXPECT_EQ(db.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        AcDbLayerTableRecord* layer = new AcDbLayerTableRecord;
        layer->setName(name);
        EXPECT_EQ(table->add(layer), Acad::eOk);
        const AcDbObjectId id = layer->objectId();
        layer->close();
        table->close();
        return id;
    }
    AcDbObjectId AddLine(AcDbObjectId layer = AcDbObjectId())
    {
        AcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(acdbOpenObject(space, db.currentSpaceId(), AcDb::kForWrite), Acad::eOk);
        AcDbLine* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
        if (!layer.isNull())
            line->setLayer(layer);
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, line), Acad::eOk);
        line->close();
        space->close();
        return id;
    }
    // Opens for write, changes, closes; the status of the opening.
    template <class T, class Change>
    Acad::ErrorStatus Edit(AcDbObjectId id, Change&& change)
    {
        T* object = nullptr;
        const Acad::ErrorStatus status = acdbOpenObject(object, id, AcDb::kForWrite);
        if (status == Acad::eOk) {
            change(*object);
            object->close();
        }
        return status;
    }
    bool Undo()
    {
        CString command;
        return CoreOf(db).undo.Undo(CoreOf(db).header, command);
    }
    bool Redo()
    {
        CString command;
        return CoreOf(db).undo.Redo(CoreOf(db).header, command);
    }
    void Step(const wchar_t* name) { CoreOf(db).undo.Begin(name); }

    AcDbDatabase db;
    long m_openBefore = 0;
};

}   // namespace

TEST_F(Database, ManyReadOrOneWrites)
{
    const AcDbObjectId id = AddLine();
    AcDbLine *a = nullptr, *b = nullptr, *c = nullptr;
    ASSERT_EQ(acdbOpenObject(a, id, AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(acdbOpenObject(b, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(acdbOpenObject(c, id, AcDb::kForWrite), Acad::eWasOpenForRead);
    EXPECT_EQ(c, nullptr);
    EXPECT_EQ(a->setThickness(2), Acad::eNotOpenForWrite);
    EXPECT_EQ(a->thickness(), 0);
    EXPECT_EQ(a->upgradeOpen(), Acad::eHadMultipleReaders);
    EXPECT_EQ(b->close(), Acad::eOk);
    EXPECT_EQ(a->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(acdbOpenObject(b, id, AcDb::kForRead), Acad::eWasOpenForWrite);
    EXPECT_EQ(a->setThickness(2), Acad::eOk);
    EXPECT_EQ(a->downgradeOpen(), Acad::eOk);
    EXPECT_EQ(a->close(), Acad::eOk);
    EXPECT_EQ(a->close(), Acad::eNotOpenForRead);

    AcDbLayerTableRecord* layer = nullptr;
    EXPECT_EQ(acdbOpenObject(layer, id, AcDb::kForRead), Acad::eNotThatKindOfClass);
    EXPECT_EQ(acdbOpenObject(layer, AcDbObjectId(), AcDb::kForRead), Acad::eNullObjectId);
}

TEST_F(Database, ErasedObjectsOpenOnlyOnDemand)
{
    const AcDbObjectId id = AddLine();
    Edit<AcDbLine>(id, [](AcDbLine& line) {
        EXPECT_EQ(line.erase(), Acad::eOk);
        EXPECT_EQ(line.erase(), Acad::eWasErased);
    });
    AcDbLine* line = nullptr;
    EXPECT_EQ(acdbOpenObject(line, id, AcDb::kForRead), Acad::eWasErased);
    ASSERT_EQ(acdbOpenObject(line, id, AcDb::kForWrite, true), Acad::eOk);
    EXPECT_EQ(line->erase(false), Acad::eOk);
    line->close();
    EXPECT_FALSE(id.isErased());
}

TEST_F(Database, LayersKeepTheirRules)
{
    const AcDbObjectId wall = AddLayer(L"墙体"), door = AddLayer(L"Door");
    Edit<AcDbLayerTableRecord>(wall, [](AcDbLayerTableRecord& layer) {
        EXPECT_EQ(layer.setName(L"DOOR"), Acad::eDuplicateRecordName);   // case does not count
        EXPECT_EQ(layer.setName(L"a/b"), Acad::eInvalidSymbolTableName);
        EXPECT_EQ(layer.setName(L""), Acad::eInvalidSymbolTableName);
        EXPECT_EQ(layer.setName(L"外墙"), Acad::eOk);
    });
    AcDbLayerTable* table = nullptr;
    ASSERT_EQ(db.getSymbolTable(table), Acad::eOk);
    EXPECT_TRUE(table->has(L"外墙"));
    EXPECT_FALSE(table->has(L"墙体"));
    EXPECT_TRUE(table->has(L"dOOR"));
    table->close();

    ASSERT_EQ(db.setClayer(door), Acad::eOk);
    Edit<AcDbLayerTableRecord>(door, [](AcDbLayerTableRecord& layer) {
        EXPECT_EQ(layer.setIsFrozen(true), Acad::eInvalidLayer);   // the current layer
        EXPECT_EQ(layer.erase(), Acad::eCannotBeErasedByCaller);
        layer.setIsOff(true);
        layer.setIsOff(true);
        EXPECT_TRUE(layer.isOff());
        EXPECT_EQ(layer.colorIndex(), 7);
    });
    Edit<AcDbLayerTableRecord>(wall,
                               [](AcDbLayerTableRecord& layer) { EXPECT_EQ(layer.setIsFrozen(true), Acad::eOk); });
    EXPECT_EQ(db.setClayer(wall), Acad::eInvalidLayer);
}

TEST_F(Database, EntitiesOnLockedLayersAreNotChanged)
{
    const AcDbObjectId layer = AddLayer(L"locked");
    const AcDbObjectId line = AddLine(layer);
    Edit<AcDbLayerTableRecord>(layer, [](AcDbLayerTableRecord& record) { record.setIsLocked(true); });
    EXPECT_EQ(Edit<AcDbLine>(line, [](AcDbLine&) {}), Acad::eOnLockedLayer);
    Edit<AcDbLayerTableRecord>(layer, [](AcDbLayerTableRecord& record) { record.setIsLocked(false); });
    EXPECT_EQ(Edit<AcDbLine>(line, [](AcDbLine&) {}), Acad::eOk);
}

TEST_F(Database, StepsAreUndoneAndRedoneWhole)
{
    Step(L"A");
    const AcDbObjectId layer = AddLayer(L"One");
    const AcDbObjectId line = AddLine();
    Step(L"B");
    Edit<AcDbLayerTableRecord>(layer, [](AcDbLayerTableRecord& record) {
        record.setName(L"Two");
        record.setIsOff(true);
    });
    db.setClayer(layer);
    Step(L"C");
    Edit<AcDbLine>(line, [](AcDbLine& object) { object.erase(); });
    Step(L"nothing");

    auto state = [&] {
        AcDbStub* stub = layer;
        const AcDbLayerTableRecord* record = static_cast<AcDbLayerTableRecord*>(stub->object);
        return std::make_tuple(layer.isErased(), line.isErased(), record->isOff(), db.clayer() == layer,
                               CoreOf(db).Table(TableKind::Layer)->find(L"two") != nullptr);
    };
    const auto done = state();
    EXPECT_EQ(done, std::make_tuple(false, true, true, true, true));
    ASSERT_TRUE(Undo());
    EXPECT_EQ(state(), std::make_tuple(false, false, true, true, true));
    ASSERT_TRUE(Undo());
    EXPECT_EQ(state(), std::make_tuple(false, false, false, false, false));
    ASSERT_TRUE(Undo());
    EXPECT_TRUE(layer.isErased());
    EXPECT_TRUE(line.isErased());
    EXPECT_FALSE(Undo());
    while (Redo()) {
    }
    EXPECT_EQ(state(), done);
}

TEST_F(Database, DictionariesOwnWhatTheyName)
{
    AcDbDictionary* root = nullptr;
    ASSERT_EQ(db.getNamedObjectsDictionary(root, AcDb::kForWrite), Acad::eOk);
    AcDbXrecord* record = new AcDbXrecord;
    AcDbObjectId id;
    ASSERT_EQ(root->setAt(L"KX_DATA", record, id), Acad::eOk);
    const ads_point point = {1, 2, 3};
    resbuf* chain = acutBuildList(90, 7, 1, L"门窗", 10, point, 0);
    EXPECT_EQ(record->setFromRbChain(*chain), Acad::eOk);
    acutRelRb(chain);
    record->close();
    AcDbXrecord* found = nullptr;
    EXPECT_EQ(root->getAt(L"kx_data", found, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(found->ownerId(), root->objectId());
    ASSERT_EQ(found->rbChain(&chain), Acad::eOk);
    EXPECT_EQ(chain->resval.rlong, 7);
    EXPECT_STREQ(chain->rbnext->resval.rstring, L"门窗");
    EXPECT_EQ(chain->rbnext->rbnext->resval.rpoint[2], 3);
    EXPECT_EQ(chain->rbnext->rbnext->rbnext, nullptr);
    acutRelRb(chain);
    found->close();
    EXPECT_EQ(root->erase(), Acad::eCannotBeErasedByCaller);
    EXPECT_EQ(root->remove(L"KX_DATA"), Acad::eOk);
    EXPECT_EQ(root->getAt(L"KX_DATA", id), Acad::eKeyNotFound);
    root->close();
}

TEST_F(Database, ExtendedDataNeedsARegisteredApplication)
{
    const AcDbObjectId line = AddLine();
    Edit<AcDbLine>(line, [](AcDbLine& object) {
        resbuf* chain = acutBuildList(1001, L"KX_NEW", 1070, 5, 0);
        EXPECT_EQ(object.setXData(chain), Acad::eRegappIdNotFound);
        acutRelRb(chain);
        chain = acutBuildList(1001, L"ACAD", 1000, L"a", 1040, 2.5, 0);
        EXPECT_EQ(object.setXData(chain), Acad::eOk);
        acutRelRb(chain);
        chain = object.xData(L"acad");
        EXPECT_EQ(chain->rbnext->rbnext->resval.rreal, 2.5);
        acutRelRb(chain);
        chain = acutBuildList(1001, L"ACAD", 0);
        EXPECT_EQ(object.setXData(chain), Acad::eOk);
        acutRelRb(chain);
        EXPECT_EQ(object.xData(), nullptr);
    });
}

TEST_F(Database, PurgeKeepsWhatIsUsed)
{
    const AcDbObjectId used = AddLayer(L"used"), unused = AddLayer(L"unused"), current = AddLayer(L"current");
    AddLine(used);
    db.setClayer(current);
    AcDbObjectIdArray ids;
    for (AcDbObjectId id : {used, unused, current, db.layerZero(), db.continuousLinetype()})
        ids.append(id);
    ASSERT_EQ(db.purge(ids), Acad::eOk);
    ASSERT_EQ(ids.length(), 1);
    EXPECT_EQ(ids.at(0), unused);
}

TEST_F(Database, PurgeKeepsWhatExtendedDataNames)
{
    const AcDbObjectId layer = AddLayer(L"noted");
    AcDbObjectId apps[2];
    AcDbRegAppTable* table = nullptr;
    ASSERT_EQ(db.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
    for (int i = 0; i < 2; ++i) {
        AcDbRegAppTableRecord* app = new AcDbRegAppTableRecord;
        app->setName(i == 0 ? L"KX_USED" : L"KX_UNUSED");
        ASSERT_EQ(table->add(apps[i], app), Acad::eOk);
        app->close();
    }
    table->close();
    Edit<AcDbLine>(AddLine(), [](AcDbLine& line) {
        resbuf* chain = acutBuildList(1001, L"KX_USED", 1003, L"noted", 0);
        EXPECT_EQ(line.setXData(chain), Acad::eOk);
        acutRelRb(chain);
    });
    AcDbObjectIdArray ids;
    for (AcDbObjectId id : {layer, apps[0], apps[1]})
        ids.append(id);
    ASSERT_EQ(db.purge(ids), Acad::eOk);
    ASSERT_EQ(ids.length(), 1);
    EXPECT_EQ(ids.at(0), apps[1]);
}

TEST_F(Database, ClonesTakeTheirLayersToAnotherDrawing)
{
    AcDbDatabase other;
    const AcDbObjectId layer = AddLayer(L"轴线"), line = AddLine(layer);
    AcDbObjectIdArray ids;
    ids.append(line);
    AcDbObjectId owner = other.currentSpaceId();
    AcDbIdMapping map;
    ASSERT_EQ(db.wblockCloneObjects(ids, owner, map, AcDb::kDrcIgnore), Acad::eOk);
    AcDbLine* clone = nullptr;
    ASSERT_EQ(acdbOpenObject(clone, map.find(line), AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(clone->layerId().database(), &other);
    ACHAR* name = clone->layer();
    EXPECT_STREQ(name, L"轴线");
    acutDelString(name);
    EXPECT_EQ(clone->endPoint().x, 1);
    clone->close();
}

TEST_F(Database, WildcardsFollowTheHost)
{
    struct Row {
        const wchar_t *text, *pattern;
        bool matches;
    };
    static const Row rows[] = {
        {L"Wall-1", L"WALL*", true}, {L"Wall-1", L"wall-#", true}, {L"Wall-x", L"wall-#", false},
        {L"a.b", L"a`.b", true},     {L"axb", L"a`.b", false},     {L"a-b", L"a.b", true},
        {L"墙体", L"墙?", true},     {L"abc", L"~a*", false},      {L"abc", L"x*,*c", true},
        {L"b7", L"[a-c]#", true},    {L"d7", L"[~a-c]#", true},    {L"", L"*", true},
        {L"", L"?", false},          {L"a,b", L"a`,b", true},      {L"aaaaaaaab", L"*a*a*a*a*c", false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(WildcardMatch(row.text, row.pattern), row.matches)
            << testing::PrintToString(row.text) << testing::PrintToString(row.pattern);
    EXPECT_FALSE(WildcardMatchExact(L"abc", L"ABC"));
}
