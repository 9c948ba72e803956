#include "ed/Session.h"
#include "KxArxBase/DocumentLock.h"
#include "KxArxBase/Env.h"
#include "KxArxBase/GiPick.h"
#include "KxArxBase/KxAcDb.h"
#include "TestUi.h"
#include "win/Files.h"
#include <algorithm>
#include <cstdio>
#include <gtest/gtest.h>
#include <memory>

using namespace KxArxBase;

namespace {

struct LockCounter : AcApDocManagerReactor {
    LockCounter() { acDocManager->addReactor(this); }
    ~LockCounter() override { acDocManager->removeReactor(this); }
    void documentLockModeChanged(AcApDocument*, AcAp::DocLockMode, AcAp::DocLockMode, AcAp::DocLockMode,
                                 const ACHAR*) override
    {
        ++changes;
    }
    int changes = 0;
};

std::wstring Data(const char* name)
{
    return KxPlat::DrivePath(std::string(KX_TEST_DATA "/") + name);
}

class Documents : public testing::Test {
protected:
    Documents()
    {
        std::wstring why;
        KxPlat::OpenDrawing(Data("house_r2007.dxf"), document, why);
    }

    TestUi ui;
    KxPlat::Session session;
    AcApDocument* document = nullptr;
};

}   // namespace

TEST_F(Documents, AreLockedOnceAndUnlocked)
{
    ASSERT_NE(document, nullptr);
    CKxAcDb db(document->database(), 0);
    LockCounter counter;
    AcAp::DocLockMode previous = AcAp::kXWrite;
    ASSERT_EQ(db.LockAcDbDoc(AcAp::kWrite, &previous), Acad::eOk);
    EXPECT_EQ(previous, AcAp::kNotLocked);
    EXPECT_EQ(document->myLockMode(), AcAp::kWrite);
    EXPECT_EQ(counter.changes, 1);
    {
        const DocumentLock inner(db);   // the mode is held already
        EXPECT_EQ(inner.status(), Acad::eOk);
    }
    EXPECT_EQ(counter.changes, 1);
    ASSERT_EQ(db.LockAcDbDoc(previous), Acad::eOk);
    EXPECT_EQ(document->myLockMode(), AcAp::kNotLocked);
    {
        const DocumentLock lock(db);
        EXPECT_EQ(document->myLockMode(), AcAp::kWrite);
    }
    EXPECT_EQ(document->myLockMode(), AcAp::kNotLocked);
}

TEST_F(Documents, ADatabaseWithoutOneCannotBeLocked)
{
    AcDbDatabase loose;
    CKxAcDb db(&loose, 0);
    EXPECT_EQ(db.LockAcDbDoc(AcAp::kWrite), Acad::eNoDocument);
    EXPECT_EQ(ui.Taken(), L"\nError: eNoDocument");
}

TEST_F(Documents, AreFoundByTheirFile)
{
    EXPECT_EQ(Gi::GetAcApDocument(Data("house_r2007.dxf").c_str()), document);
    EXPECT_EQ(Gi::GetAcApDocument(Data("HOUSE_R2007.DXF").c_str()), document);
    std::wstring slashes = Data("house_r2007.dxf");
    std::replace(slashes.begin(), slashes.end(), L'\\', L'/');
    EXPECT_EQ(Gi::GetAcApDocument(slashes.c_str()), document);
    EXPECT_EQ(Gi::GetAcApDocument(Data("house_r2010.dxf").c_str()), nullptr);
    EXPECT_EQ(Gi::GetAcApDocument(nullptr), nullptr);
    CKxAcDb db;
    CString folder, name, extension;
    ASSERT_EQ(db.GetAcDbFileName(&folder, &name, &extension), Acad::eOk);
    EXPECT_EQ(folder + name + extension, CString(Data("house_r2007.dxf").c_str()));
    EXPECT_STREQ(name, L"house_r2007");
    EXPECT_STREQ(extension, L".dxf");
}

TEST_F(Documents, AFileIsReadByItsExtension)
{
    CKxAcDb db;
    AcDbDatabase* read = nullptr;
    ASSERT_EQ(db.ReadFileToNewDb(Data("house_r2000_gbk.dxf").c_str(), read), Acad::eOk);
    const std::unique_ptr<AcDbDatabase> owner(read);
    CStringArray names, expected;
    CKxAcDb(read, 0).GetRecsName(AcDbLayerTable::desc(), names);
    EXPECT_GT(names.GetSize(), 1);

    const std::string path = testing::TempDir() + "kx-saved.DXF";
    const std::wstring drive = KxPlat::DrivePath(path);
    ASSERT_EQ(CKxAcDb(read, 0).SaveAcDbToFile(drive.c_str(), AcApDocument::k2010_dxf, 0), Acad::eOk);
    AcDbDatabase* again = nullptr;
    ASSERT_EQ(db.ReadFileToNewDb(drive.c_str(), again), Acad::eOk);
    const std::unique_ptr<AcDbDatabase> againOwner(again);
    EXPECT_EQ(again->originalFileVersion(), AcDb::kDHL_1024);
    CKxAcDb(again, 0).GetRecsName(AcDbLayerTable::desc(), expected);
    EXPECT_EQ(names.GetSize(), expected.GetSize());
    std::remove(path.c_str());

    AcDbDatabase* none = read;
    EXPECT_NE(db.ReadFileToNewDb(drive.c_str(), none), Acad::eOk);
    EXPECT_EQ(none, nullptr);
}

TEST_F(Documents, BinaryFilesComeBackInTheirVersion)
{
    struct Row {
        int format;   // as a file's header tells it
        AcDb::AcDbDwgVersion version;
    };
    static const Row rows[] = {{12, AcDb::kDHL_1015}, {48, AcDb::kDHL_1024}};
    CKxAcDb db;
    CStringArray names;
    ASSERT_EQ(db.GetRecsName(AcDbLayerTable::desc(), names), Acad::eOk);
    const std::string path = testing::TempDir() + "kx-saved.dwg";
    const std::wstring drive = KxPlat::DrivePath(path);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.format);
        ASSERT_EQ(db.SaveAcDbToFile(drive.c_str(), AcApDocument::SaveFormat(row.format), 0), Acad::eOk);
        EXPECT_EQ(int(Env::GetSaveFormatVersion(drive.c_str())), row.format);
        AcDbDatabase* read = nullptr;
        ASSERT_EQ(db.ReadFileToNewDb(drive.c_str(), read), Acad::eOk);
        const std::unique_ptr<AcDbDatabase> owner(read);
        EXPECT_EQ(read->originalFileVersion(), row.version);
        CStringArray again;
        CKxAcDb(read, 0).GetRecsName(AcDbLayerTable::desc(), again);
        ASSERT_EQ(again.GetSize(), names.GetSize());
        for (INT_PTR i = 0; i < names.GetSize(); ++i)
            EXPECT_STREQ(again.GetAt(i), names.GetAt(i));
    }
    std::remove(path.c_str());
}

TEST_F(Documents, ABlockOfAFileComesInUnderANewName)
{
    CKxAcDb db;
    AcDbDatabase* read = nullptr;
    db.ReadFileToNewDb(Data("house_r2007.dxf").c_str(), read);
    const std::unique_ptr<AcDbDatabase> owner(read);
    CStringArray blocks;
    CKxAcDb source(read, 0);
    source.GetRecsName(AcDbBlockTable::desc(), blocks);
    CString block;
    AcDbObjectIdArray entities, clones;
    for (INT_PTR i = 0; i < blocks.GetSize() && entities.isEmpty(); ++i) {
        block = blocks.GetAt(i);
        if (block.GetAt(0) != L'*')
            source.BlockTableGetEntityIds(entities, block);
    }
    ASSERT_FALSE(entities.isEmpty());

    ASSERT_EQ(db.InsertBlockFromFile(Data("house_r2007.dxf").c_str(), block, L"新块"), Acad::eOk);
    ASSERT_EQ(db.BlockTableGetEntityIds(clones, L"新块"), Acad::eOk);
    EXPECT_EQ(clones.length(), entities.length());
    EXPECT_EQ(db.InsertBlockFromFile(Data("house_r2007.dxf").c_str(), L"没有", nullptr), Acad::eKeyNotFound);

    const std::string path = testing::TempDir() + "kx-block.dwg";
    const std::wstring drive = KxPlat::DrivePath(path);
    ASSERT_EQ(source.SaveAcDbToFile(drive.c_str(), AcApDocument::SaveFormat(48), 0), Acad::eOk);
    ASSERT_EQ(db.InsertBlockFromFile(drive.c_str(), block, L"自DWG"), Acad::eOk);
    clones.setLogicalLength(0);
    ASSERT_EQ(db.BlockTableGetEntityIds(clones, L"自DWG"), Acad::eOk);
    EXPECT_EQ(clones.length(), entities.length());
    std::remove(path.c_str());
    EXPECT_NE(db.InsertBlockFromFile(L"Z:\\没有\\没有.dxf", L"没有", nullptr), Acad::eOk);
}
