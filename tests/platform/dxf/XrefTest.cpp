// Drawings that stand in other drawings: attached, nested, missing, reloaded, detached, bound, saved.
#include "db/AcDbBlockReference.h"
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/AcDbLine.h"
#include "db/AcDbLinetypeTableRecord.h"
#include "db/AcDbText.h"
#include "db/AcDbTextStyleTableRecord.h"
#include "db/AcDbXref.h"
#include "db/core/Audit.h"
#include "db/core/DbCore.h"
#include "db/core/XrefLoader.h"
#include "support/TempFolder.h"
#include <gtest/gtest.h>
#include <memory>
#include <set>

using namespace KxPlat;

namespace {

AcDbObject* At(AcDbObjectId id)
{
    const AcDbStub* stub = id;
    return stub == nullptr ? nullptr : stub->object;
}

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

AcDbStub* Record(AcDbDatabase& db, TableKind kind, const wchar_t* name)
{
    return CoreOf(db).Table(kind)->find(name);
}

size_t LiveEntities(AcDbDatabase& db, const wchar_t* block)
{
    AcDbStub* stub = Record(db, TableKind::Block, block);
    size_t count = 0;
    if (stub != nullptr)
        for (const AcDbStub* entity : static_cast<AcDbBlockTableRecord*>(stub->object)->entities())
            count += !entity->erased;
    return count;
}

AcDb::XrefStatus StatusOf(AcDbDatabase& db, const wchar_t* block)
{
    AcDbStub* stub = Record(db, TableKind::Block, block);
    return stub == nullptr ? AcDb::kXrfNotAnXref : static_cast<AcDbBlockTableRecord*>(stub->object)->xrefStatus();
}

std::vector<std::wstring> Complaints(AcDbDatabase& db)
{
    Audit audit(CoreOf(db), false);
    audit.All();
    std::vector<std::wstring> all;
    for (const AuditFinding& finding : audit.Findings())
        all.push_back(finding.object + L": " + finding.what);
    return all;
}

class Xrefs : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(OpenObjectCount(), m_open); }

    // A drawing with a wall on its own layer and a block in it, and insertions of other drawings.
    void Make(const wchar_t* file, std::initializer_list<const wchar_t*> attached = {}, bool isOverlay = false)
    {
        AcDbDatabase db;
        auto* layer = new AcDbLayerTableRecord;
        const AcDbObjectId wall = Add<AcDbLayerTable>(db, L"墙", layer);
        auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
        line->setLayer(wall);
        Append(ModelSpace(db), line);
        Append(ModelSpace(db), new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(0, 5, 0)));   // on layer 0
        const AcDbObjectId door = Add<AcDbBlockTable>(db, L"门", new AcDbBlockTableRecord);
        Append(door, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0)));
        Append(ModelSpace(db), new AcDbBlockReference(AcGePoint3d(2, 0, 0), door));
        for (const wchar_t* other : attached) {
            AcDbObjectId id;
            const std::wstring name(other, std::wcslen(other) - 4);
            const std::wstring path = folder.DrivePath(other);
            ASSERT_EQ(isOverlay ? acdbOverlayXref(&db, path.c_str(), name.c_str(), id)
                                : acdbAttachXref(&db, path.c_str(), name.c_str(), id),
                      Acad::eOk);
            Append(ModelSpace(db), new AcDbBlockReference(AcGePoint3d(100, 0, 0), id));
        }
        ASSERT_EQ(db.saveAs(folder.DrivePath(file).c_str()), Acad::eOk);
    }
    std::unique_ptr<AcDbDatabase> Opened(const wchar_t* file, std::vector<XrefNews>* news = nullptr)
    {
        auto db = std::make_unique<AcDbDatabase>(false, true);
        EXPECT_EQ(db->readDwgFile(folder.DrivePath(file).c_str()), Acad::eOk);
        XrefLoader loader(*db);
        loader.ResolveAll(false);
        if (news != nullptr)
            *news = loader.News();
        return db;
    }

    KxTest::TempFolder folder;

private:
    long m_open = OpenObjectCount();
};

}   // namespace

TEST_F(Xrefs, BringTheirDrawingUnderDependentNames)
{
    Make(L"a.dxf");
    Make(L"host.dxf", {L"a.dxf"});
    const auto db = Opened(L"host.dxf");
    EXPECT_EQ(StatusOf(*db, L"a"), AcDb::kXrfResolved);
    ASSERT_EQ(LiveEntities(*db, L"a"), 3u);
    const auto& entities = static_cast<AcDbBlockTableRecord*>(Record(*db, TableKind::Block, L"a")->object)->entities();
    EXPECT_EQ(static_cast<AcDbEntity*>(entities[0]->object)->layerId(),
              AcDbObjectId(Record(*db, TableKind::Layer, L"a|墙")));
    EXPECT_EQ(static_cast<AcDbEntity*>(entities[1]->object)->layerId(), db->layerZero());
    const auto* insert = static_cast<AcDbBlockReference*>(entities[2]->object);
    EXPECT_EQ(insert->blockTableRecord(), AcDbObjectId(Record(*db, TableKind::Block, L"a|门")));
    const auto* layer = static_cast<AcDbLayerTableRecord*>(Record(*db, TableKind::Layer, L"a|墙")->object);
    EXPECT_TRUE(layer->isDependent());
    EXPECT_TRUE(layer->isResolved());
    EXPECT_NE(Record(*db, TableKind::TextStyle, L"a|Standard"), nullptr);
    EXPECT_EQ(Record(*db, TableKind::Layer, L"a|0"), nullptr);
    EXPECT_EQ(Complaints(*db), std::vector<std::wstring>());
}

TEST_F(Xrefs, AreNotSavedWithTheHost)
{
    Make(L"a.dxf");
    Make(L"host.dxf", {L"a.dxf"});
    const auto db = Opened(L"host.dxf");
    const std::string before = folder.Read("host.dxf");
    ASSERT_EQ(db->saveAs(folder.DrivePath(L"again.dxf").c_str()), Acad::eOk);
    AcDbDatabase plain(false, true);
    ASSERT_EQ(plain.readDwgFile(folder.DrivePath(L"again.dxf").c_str()), Acad::eOk);
    EXPECT_EQ(LiveEntities(plain, L"a"), 0u);
    EXPECT_EQ(LiveEntities(plain, L"a|门"), 0u);
    EXPECT_NE(Record(plain, TableKind::Layer, L"a|墙"), nullptr);
    EXPECT_TRUE(static_cast<AcDbBlockTableRecord*>(Record(plain, TableKind::Block, L"a|门")->object)->isDependent());
    EXPECT_EQ(Complaints(plain), std::vector<std::wstring>());
    // No handle of what was not saved is counted.
    EXPECT_LT(uint64_t(plain.handseed()), uint64_t(db->handseed()));
}

TEST_F(Xrefs, AWholeCopyOfTheHostKeepsThemApart)
{
    Make(L"a.dxf");
    Make(L"host.dxf", {L"a.dxf"});
    const auto db = Opened(L"host.dxf");
    AcDbDatabase* made = nullptr;
    ASSERT_EQ(db->wblock(made), Acad::eOk);
    const std::unique_ptr<AcDbDatabase> copy(made);
    EXPECT_EQ(LiveEntities(*copy, L"a"), 3u);
    EXPECT_TRUE(
        static_cast<AcDbBlockTableRecord*>(Record(*copy, TableKind::Block, L"a")->object)->isFromExternalReference());
    EXPECT_EQ(Complaints(*copy), std::vector<std::wstring>());
    ASSERT_EQ(copy->saveAs(folder.DrivePath(L"copy.dxf").c_str()), Acad::eOk);
    AcDbDatabase plain(false, true);
    ASSERT_EQ(plain.readDwgFile(folder.DrivePath(L"copy.dxf").c_str()), Acad::eOk);
    EXPECT_EQ(LiveEntities(plain, L"a"), 0u);
    EXPECT_EQ(LiveEntities(plain, ACDB_MODEL_SPACE), LiveEntities(*db, ACDB_MODEL_SPACE));
    XrefLoader(plain).ResolveAll(false);
    EXPECT_EQ(LiveEntities(plain, L"a"), 3u);
}

TEST_F(Xrefs, LayersKeepTheStateOfTheHost)
{
    Make(L"a.dxf");
    Make(L"host.dxf", {L"a.dxf"});
    {
        const auto db = Opened(L"host.dxf");
        AcDbLayerTableRecord* layer = nullptr;
        ASSERT_EQ(acdbOpenObject(layer, AcDbObjectId(Record(*db, TableKind::Layer, L"a|墙")), AcDb::kForWrite),
                  Acad::eOk);
        layer->setIsOff(true);
        layer->close();
        ASSERT_EQ(db->saveAs(folder.DrivePath(L"host.dxf").c_str()), Acad::eOk);
    }
    const auto db = Opened(L"host.dxf");
    EXPECT_TRUE(static_cast<AcDbLayerTableRecord*>(Record(*db, TableKind::Layer, L"a|墙")->object)->isOff());
    CoreOf(*db).header.SetInteger("$VISRETAIN", 70, 0);
    XrefLoader(*db).ResolveAll(false);
    EXPECT_FALSE(static_cast<AcDbLayerTableRecord*>(Record(*db, TableKind::Layer, L"a|墙")->object)->isOff());
}

TEST_F(Xrefs, NestedOnesComeUnderTheirOwnNames)
{
    Make(L"c.dxf");
    Make(L"b.dxf", {L"c.dxf"});
    Make(L"host.dxf", {L"b.dxf"});
    std::vector<XrefNews> news;
    const auto db = Opened(L"host.dxf", &news);
    EXPECT_EQ(news.size(), 2u);
    EXPECT_EQ(StatusOf(*db, L"b"), AcDb::kXrfResolved);
    EXPECT_EQ(StatusOf(*db, L"c"), AcDb::kXrfResolved);
    EXPECT_EQ(LiveEntities(*db, L"b"), 4u);
    EXPECT_EQ(LiveEntities(*db, L"c"), 3u);
    EXPECT_NE(Record(*db, TableKind::Layer, L"c|墙"), nullptr);
    EXPECT_EQ(Record(*db, TableKind::Layer, L"b|c|墙"), nullptr);
    EXPECT_EQ(XrefBlocksOf(CoreOf(*db), true).size(), 1u);

    // Saved and read again it is the same: the nested one still comes with the one around it.
    ASSERT_EQ(db->saveAs(folder.DrivePath(L"host.dxf").c_str()), Acad::eOk);
    const auto again = Opened(L"host.dxf");
    EXPECT_EQ(LiveEntities(*again, L"c"), 3u);
    EXPECT_EQ(LiveEntities(*again, L"c|门"), 1u);
    EXPECT_EQ(XrefBlocksOf(CoreOf(*again), true).size(), 1u);
    EXPECT_EQ(Complaints(*again), std::vector<std::wstring>());
}

TEST_F(Xrefs, OverlaysAreNotSeenFromFurtherUp)
{
    Make(L"c.dxf");
    Make(L"b.dxf", {L"c.dxf"}, true);
    Make(L"host.dxf", {L"b.dxf"});
    EXPECT_EQ(LiveEntities(*Opened(L"b.dxf"), L"c"), 3u);
    const auto db = Opened(L"host.dxf");
    EXPECT_EQ(LiveEntities(*db, L"b"), 3u);
    EXPECT_EQ(Record(*db, TableKind::Block, L"c"), nullptr);
}

TEST_F(Xrefs, AMissingFileIsToldAndKept)
{
    Make(L"a.dxf");
    Make(L"host.dxf", {L"a.dxf"});
    std::filesystem::remove(folder.Path("a.dxf"));
    std::vector<XrefNews> news;
    const auto db = Opened(L"host.dxf", &news);
    ASSERT_EQ(news.size(), 1u);
    EXPECT_EQ(news[0].block, L"a");
    EXPECT_EQ(news[0].why, L"no such file");
    EXPECT_EQ(StatusOf(*db, L"a"), AcDb::kXrfFileNotFound);
    ASSERT_EQ(db->saveAs(folder.DrivePath(L"host.dxf").c_str()), Acad::eOk);
    Make(L"a.dxf");   // it is there again
    const auto again = Opened(L"host.dxf");
    EXPECT_EQ(StatusOf(*again, L"a"), AcDb::kXrfResolved);
    EXPECT_EQ(LiveEntities(*again, L"a"), 3u);
}

TEST_F(Xrefs, AreFoundBesideTheHost)
{
    Make(L"a.dxf");
    Make(L"host.dxf", {L"a.dxf"});
    // The whole folder is moved: the stored path is wrong now.
    KxTest::TempFolder moved;
    for (const char* name : {"a.dxf", "host.dxf"}) {
        moved.Write(name, folder.Read(name));
        std::filesystem::remove(folder.Path(name));
    }
    AcDbDatabase db(false, true);
    ASSERT_EQ(db.readDwgFile(moved.DrivePath(L"host.dxf").c_str()), Acad::eOk);
    XrefLoader(db).ResolveAll(false);
    EXPECT_EQ(LiveEntities(db, L"a"), 3u);
}

TEST_F(Xrefs, RingsAreRefused)
{
    Make(L"a.dxf");
    Make(L"b.dxf", {L"a.dxf"});
    Make(L"a.dxf", {L"b.dxf"});   // a shows b, whose a is the ring
    std::vector<XrefNews> news;
    const auto db = Opened(L"a.dxf", &news);
    EXPECT_EQ(StatusOf(*db, L"b"), AcDb::kXrfResolved);
    ASSERT_EQ(news.size(), 2u);
    EXPECT_EQ(news[0].why, L"it contains this drawing");
    AcDbObjectId id;
    EXPECT_EQ(acdbAttachXref(db.get(), folder.DrivePath(L"a.dxf").c_str(), L"self", id), Acad::eXRefDependent);
    EXPECT_EQ(Record(*db, TableKind::Block, L"self"), nullptr);
}

TEST_F(Xrefs, ReloadShowsTheFileOfNow)
{
    Make(L"a.dxf");
    Make(L"host.dxf", {L"a.dxf"});
    const auto db = Opened(L"host.dxf");
    Make(L"b.dxf");
    Make(L"a.dxf", {L"b.dxf"});
    AcDbObjectIdArray ids;
    ids.append(Record(*db, TableKind::Block, L"a"));
    ASSERT_EQ(acdbReloadXrefs(db.get(), ids), Acad::eOk);
    EXPECT_EQ(LiveEntities(*db, L"a"), 4u);
    EXPECT_EQ(LiveEntities(*db, L"a|门"), 1u);
    EXPECT_EQ(LiveEntities(*db, L"b"), 3u);
    ASSERT_EQ(acdbUnloadXrefs(db.get(), ids), Acad::eOk);
    EXPECT_EQ(LiveEntities(*db, L"a"), 0u);
    EXPECT_EQ(LiveEntities(*db, L"b"), 0u);
    EXPECT_EQ(StatusOf(*db, L"a"), AcDb::kXrfUnloaded);
}

TEST_F(Xrefs, DetachingLeavesNothingBehind)
{
    Make(L"c.dxf");
    Make(L"b.dxf", {L"c.dxf"});
    Make(L"host.dxf", {L"b.dxf"});
    const auto db = Opened(L"host.dxf");
    ASSERT_EQ(acdbDetachXref(db.get(), AcDbObjectId(Record(*db, TableKind::Block, L"c"))), Acad::eXRefDependent);
    ASSERT_EQ(acdbDetachXref(db.get(), AcDbObjectId(Record(*db, TableKind::Block, L"b"))), Acad::eOk);
    for (size_t kind = 0; kind < kTableCount; ++kind)
        for (const AcDbStub* stub : CoreOf(*db).Table(TableKind(kind))->records())
            EXPECT_TRUE(stub->erased || static_cast<AcDbSymbolTableRecord*>(stub->object)->nameText().Find(L'|') < 0);
    EXPECT_EQ(Record(*db, TableKind::Block, L"b"), nullptr);
    EXPECT_EQ(Record(*db, TableKind::Block, L"c"), nullptr);
    EXPECT_EQ(LiveEntities(*db, ACDB_MODEL_SPACE), 3u);
    EXPECT_EQ(Complaints(*db), std::vector<std::wstring>());
    EXPECT_EQ(acdbDetachXref(db.get(), AcDbObjectId()), Acad::eInvalidInput);
}

TEST_F(Xrefs, BindingMakesThemPartOfTheHost)
{
    struct Row {
        bool inserts;
        const wchar_t* layer;
        const wchar_t* door;
    };
    static const Row rows[] = {{false, L"b$0$墙", L"b$0$门"}, {true, L"墙", L"门"}};
    Make(L"c.dxf");
    Make(L"b.dxf", {L"c.dxf"});
    Make(L"host.dxf", {L"b.dxf"});
    for (const Row& row : rows) {
        SCOPED_TRACE(row.inserts);
        const auto db = Opened(L"host.dxf");
        AcDbObjectIdArray ids;
        ids.append(Record(*db, TableKind::Block, L"b"));
        ASSERT_EQ(acdbBindXrefs(db.get(), ids, row.inserts), Acad::eOk);
        ASSERT_EQ(db->saveAs(folder.DrivePath(L"bound.dxf").c_str()), Acad::eOk);
        AcDbDatabase bound(false, true);
        ASSERT_EQ(bound.readDwgFile(folder.DrivePath(L"bound.dxf").c_str()), Acad::eOk);
        EXPECT_EQ(StatusOf(bound, L"b"), AcDb::kXrfNotAnXref);
        EXPECT_EQ(LiveEntities(bound, L"b"), 4u);
        EXPECT_EQ(LiveEntities(bound, L"c"), 3u);
        EXPECT_EQ(LiveEntities(bound, row.door), 1u);
        const auto* block = static_cast<AcDbBlockTableRecord*>(Record(bound, TableKind::Block, L"b")->object);
        EXPECT_EQ(static_cast<AcDbEntity*>(block->entities()[0]->object)->layerId(),
                  AcDbObjectId(Record(bound, TableKind::Layer, row.layer)));
        EXPECT_EQ(Record(bound, TableKind::Layer, L"b|墙"), nullptr);
        EXPECT_EQ(Complaints(bound), std::vector<std::wstring>());
    }
}

TEST_F(Xrefs, ABlockOfTheNameIsInTheWay)
{
    Make(L"a.dxf");
    AcDbDatabase db;
    Add<AcDbBlockTable>(db, L"a", new AcDbBlockTableRecord);
    AcDbObjectId id;
    EXPECT_EQ(acdbAttachXref(&db, folder.DrivePath(L"a.dxf").c_str(), L"A", id), Acad::eDuplicateRecordName);
    EXPECT_EQ(acdbAttachXref(&db, folder.DrivePath(L"none.dxf").c_str(), L"none", id), Acad::eFileNotFound);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(Record(db, TableKind::Block, L"none"), nullptr);
}

// Many entities keep their number, their order, their places and their styles.
TEST_F(Xrefs, AHundredThousandEntitiesComeWhole)
{
    const int count = 100000;
    {
        AcDbDatabase db;
        AcDbObjectId layers[10], styles[3];
        for (int i = 0; i < 10; ++i)
            layers[i] = Add<AcDbLayerTable>(db, std::to_wstring(i + 100).c_str(), new AcDbLayerTableRecord);
        for (int i = 0; i < 3; ++i)
            styles[i] = Add<AcDbTextStyleTable>(db, std::to_wstring(i).c_str(), new AcDbTextStyleTableRecord);
        for (int i = 0; i < count; ++i) {
            auto* text = new AcDbText(AcGePoint3d(i, -i, 0), L"x", styles[i % 3], 1 + i % 7, 0);
            text->setLayer(layers[i % 10]);
            Append(ModelSpace(db), text);
        }
        ASSERT_EQ(db.saveAs(folder.DrivePath(L"many.dxf").c_str()), Acad::eOk);
    }
    AcDbDatabase host;
    AcDbObjectId id;
    ASSERT_EQ(acdbAttachXref(&host, folder.DrivePath(L"many.dxf").c_str(), L"many", id), Acad::eOk);
    const auto& entities = static_cast<AcDbBlockTableRecord*>(At(id))->entities();
    ASSERT_EQ(entities.size(), size_t(count));
    for (int i = 0; i < count; ++i) {
        const auto* text = static_cast<AcDbText*>(entities[size_t(i)]->object);
        ASSERT_EQ(text->position().x, i);
        ASSERT_EQ(text->height(), 1 + i % 7);
        ASSERT_EQ(static_cast<AcDbSymbolTableRecord*>(At(text->textStyle()))->nameText(),
                  (L"many|" + std::to_wstring(i % 3)).c_str());
        ASSERT_EQ(static_cast<AcDbSymbolTableRecord*>(At(text->layerId()))->nameText(),
                  (L"many|" + std::to_wstring(i % 10 + 100)).c_str());
    }
    EXPECT_EQ(Complaints(host), std::vector<std::wstring>());
}
