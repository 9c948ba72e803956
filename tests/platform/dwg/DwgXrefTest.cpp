// Xrefs in DWG files: the host keeps their paths and dependent names, and reads their drawings again.
#include "db/AcDbBlockReference.h"
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/AcDbLine.h"
#include "db/AcDbXref.h"
#include "db/core/Audit.h"
#include "db/core/DbCore.h"
#include "db/core/XrefLoader.h"
#include "support/TempFolder.h"
#include <gtest/gtest.h>

using namespace KxPlat;

namespace {

AcDbStub* Record(AcDbDatabase& db, TableKind kind, const wchar_t* name)
{
    return CoreOf(db).Table(kind)->find(name);
}

AcDbBlockTableRecord* Block(AcDbDatabase& db, const wchar_t* name)
{
    AcDbStub* stub = Record(db, TableKind::Block, name);
    return stub == nullptr ? nullptr : static_cast<AcDbBlockTableRecord*>(stub->object);
}

size_t LiveEntities(AcDbDatabase& db, const wchar_t* block)
{
    size_t count = 0;
    if (const AcDbBlockTableRecord* record = Block(db, block))
        for (const AcDbStub* entity : record->entities())
            count += !entity->erased;
    return count;
}

void Append(AcDbDatabase& db, AcDbEntity* entity)
{
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, AcDbObjectId(CoreOf(db).modelSpace), AcDb::kForWrite), Acad::eOk);
    ASSERT_EQ(space->appendAcDbEntity(entity), Acad::eOk);
    entity->close();
    space->close();
}

CString PathOf(const AcDbBlockTableRecord& block)
{
    ACHAR* path = nullptr;
    EXPECT_EQ(block.pathName(path), Acad::eOk);
    const CString text(path);
    acutDelString(path);
    return text;
}

size_t Faults(AcDbDatabase& db)
{
    Audit audit(CoreOf(db), false);
    audit.All();
    return audit.Findings().size();
}

class DwgXrefs : public testing::TestWithParam<AcDb::AcDbDwgVersion> {
protected:
    // A wall on its own layer, and insertions of other drawings.
    void Make(const wchar_t* file, const wchar_t* attached = nullptr, const wchar_t* overlaid = nullptr)
    {
        AcDbDatabase db;
        auto* layer = new AcDbLayerTableRecord;
        AcDbLayerTable* layers = nullptr;
        layer->setName(L"墙");
        ASSERT_EQ(db.getSymbolTable(layers, AcDb::kForWrite), Acad::eOk);
        ASSERT_EQ(layers->add(layer), Acad::eOk);
        layer->close();
        layers->close();
        auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
        Append(db, line);
        AcDbEntity* opened = nullptr;
        ASSERT_EQ(acdbOpenObject(opened, line->objectId(), AcDb::kForWrite), Acad::eOk);
        ASSERT_EQ(opened->setLayer(L"墙"), Acad::eOk);
        opened->close();
        for (const wchar_t* other : {attached, overlaid}) {
            if (other == nullptr)
                continue;
            AcDbObjectId id;
            const std::wstring name(other, std::wcslen(other) - 4);
            const std::wstring path = folder.DrivePath(other);
            ASSERT_EQ(other == overlaid ? acdbOverlayXref(&db, path.c_str(), name.c_str(), id)
                                        : acdbAttachXref(&db, path.c_str(), name.c_str(), id),
                      Acad::eOk);
            Append(db, new AcDbBlockReference(AcGePoint3d(100, 0, 0), id));
        }
        ASSERT_EQ(db.saveAs(folder.DrivePath(file).c_str(), false, GetParam()), Acad::eOk);
    }

    KxTest::TempFolder folder;
};

}   // namespace

TEST_P(DwgXrefs, ComeBackFromASavedHost)
{
    Make(L"attached.dwg");
    Make(L"seen.dwg");
    Make(L"host.dwg", L"attached.dwg", L"seen.dwg");
    AcDbDatabase db(false, true);
    ASSERT_EQ(db.readDwgFile(folder.DrivePath(L"host.dwg").c_str()), Acad::eOk);

    // The file holds none of their contents.
    ASSERT_NE(Block(db, L"attached"), nullptr);
    ASSERT_NE(Block(db, L"seen"), nullptr);
    EXPECT_EQ(LiveEntities(db, L"attached"), 0u);
    EXPECT_EQ(LiveEntities(db, L"seen"), 0u);
    EXPECT_TRUE(Block(db, L"attached")->isFromExternalReference());
    EXPECT_FALSE(Block(db, L"attached")->isFromOverlayReference());
    EXPECT_TRUE(Block(db, L"seen")->isFromOverlayReference());
    EXPECT_EQ(PathOf(*Block(db, L"attached")), CString(folder.DrivePath(L"attached.dwg").c_str()));
    AcDbStub* dependent = Record(db, TableKind::Layer, L"attached|墙");
    ASSERT_NE(dependent, nullptr);
    EXPECT_TRUE(static_cast<AcDbLayerTableRecord*>(dependent->object)->isDependent());
    EXPECT_EQ(Faults(db), 0u);

    XrefLoader loader(db);
    loader.ResolveAll(false);
    EXPECT_EQ(loader.News().size(), 2u);
    for (const XrefNews& news : loader.News())
        EXPECT_EQ(news.status, AcDb::kXrfResolved) << news.why.c_str();
    EXPECT_EQ(LiveEntities(db, L"attached"), 1u);
    EXPECT_EQ(LiveEntities(db, L"seen"), 1u);
    EXPECT_EQ(LiveEntities(db, ACDB_MODEL_SPACE), 3u);
    EXPECT_EQ(Record(db, TableKind::Layer, L"attached|墙"), dependent);
    EXPECT_EQ(Faults(db), 0u);
}

TEST_P(DwgXrefs, NestedOnesComeWithTheirHost)
{
    Make(L"inner.dwg");
    Make(L"middle.dwg", L"inner.dwg");
    Make(L"host.dwg", L"middle.dwg");
    AcDbDatabase db(false, true);
    ASSERT_EQ(db.readDwgFile(folder.DrivePath(L"host.dwg").c_str()), Acad::eOk);
    XrefLoader(db).ResolveAll(false);
    EXPECT_EQ(LiveEntities(db, L"middle"), 2u);
    EXPECT_EQ(LiveEntities(db, L"inner"), 1u);
    EXPECT_EQ(XrefBlocksOf(CoreOf(db), true).size(), 1u);

    // Saved once more with all of it in memory, the file is as small as before.
    ASSERT_EQ(db.saveAs(folder.DrivePath(L"again.dwg").c_str(), false, GetParam()), Acad::eOk);
    AcDbDatabase plain(false, true);
    ASSERT_EQ(plain.readDwgFile(folder.DrivePath(L"again.dwg").c_str()), Acad::eOk);
    EXPECT_EQ(LiveEntities(plain, L"middle"), 0u);
    EXPECT_EQ(LiveEntities(plain, L"inner"), 0u);
    EXPECT_EQ(LiveEntities(plain, ACDB_MODEL_SPACE), 2u);
    EXPECT_EQ(Faults(plain), 0u);
}

TEST_P(DwgXrefs, AMissingFileIsToldAndKept)
{
    Make(L"a.dwg");
    Make(L"host.dwg", L"a.dwg");
    std::filesystem::remove(folder.Path("a.dwg"));
    AcDbDatabase db(false, true);
    ASSERT_EQ(db.readDwgFile(folder.DrivePath(L"host.dwg").c_str()), Acad::eOk);
    XrefLoader loader(db);
    loader.ResolveAll(false);
    ASSERT_EQ(loader.News().size(), 1u);
    EXPECT_EQ(loader.News()[0].status, AcDb::kXrfFileNotFound);
    ASSERT_EQ(db.saveAs(folder.DrivePath(L"host.dwg").c_str(), false, GetParam()), Acad::eOk);
    Make(L"a.dwg");   // it is there again
    AcDbDatabase again(false, true);
    ASSERT_EQ(again.readDwgFile(folder.DrivePath(L"host.dwg").c_str()), Acad::eOk);
    XrefLoader(again).ResolveAll(false);
    EXPECT_EQ(LiveEntities(again, L"a"), 1u);
}

INSTANTIATE_TEST_SUITE_P(Versions, DwgXrefs, testing::Values(AcDb::kDHL_1015, AcDb::kDHL_1024),
                         [](const auto& info) { return info.param == AcDb::kDHL_1015 ? "R2000" : "R2010"; });
