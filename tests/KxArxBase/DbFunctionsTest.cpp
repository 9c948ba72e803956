#include "ed/Session.h"
#include "KxArxBase/DbFiles.h"
#include "KxArxBase/DbGeometry.h"
#include "KxArxBase/Env.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/Opened.h"
#include "TestUi.h"
#include "win/Files.h"
#include <filesystem>
#include <gtest/gtest.h>

using namespace KxArxBase;

namespace {

namespace fs = std::filesystem;

// Makes a layer; `userData` counts the calls.
Acad::ErrorStatus AddLayer(AcDbDatabase* db, void* userData)
{
    ++*static_cast<int*>(userData);
    CKxAcDb(db, 0).Layer(L"新层", 1, nullptr, nullptr, 1, 0);
    return Acad::eKeyNotFound;
}

bool HasNewLayer(const std::wstring& file)
{
    AcDbDatabase read(false, true);
    return read.readDwgFile(file.c_str()) == Acad::eOk && CKxAcDb(&read, 0).IsHasLayer(L"新层");
}

class Files : public testing::Test {
protected:
    Files() : folder(testing::TempDir() + "kx-files"), path(folder + "/house.dxf"), file(KxPlat::DrivePath(path))
    {
        fs::create_directories(folder);
        fs::copy_file(KX_TEST_DATA "/house_r2007.dxf", path, fs::copy_options::overwrite_existing);
    }
    ~Files() override { fs::remove_all(folder); }

    TestUi ui;
    KxPlat::Session session;
    // The same drawing as DWG.
    std::wstring Dwg(const char* name) const
    {
        std::wstring drawing = KxPlat::DrivePath(folder + "/" + name);
        AcDbDatabase read(false, true);
        EXPECT_EQ(read.readDwgFile(file.c_str()), Acad::eOk);
        EXPECT_EQ(read.saveAs(drawing.c_str(), false, AcDb::kDHL_1015), Acad::eOk);
        return drawing;
    }
    std::string folder, path;
    std::wstring file;
    int calls = 0;
};

}   // namespace

TEST_F(Files, AreReadChangedAndSavedWithABackup)
{
    EXPECT_FALSE(HasNewLayer(file));
    EXPECT_EQ(Db::OpenAcDbFileDoFun(file.c_str(), &calls, AddLayer, 0, nullptr),
              Acad::eOk);   // fn's answer is not used
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(HasNewLayer(file));
    EXPECT_TRUE(fs::exists(folder + "/house.bak"));
    EXPECT_NE(Db::OpenAcDbFileDoFun(L"Z:\\none.dxf", &calls, AddLayer, 0, nullptr), Acad::eOk);
    EXPECT_EQ(calls, 1);
}

TEST_F(Files, OfTheBinaryKindAreSavedInTheirVersion)
{
    const std::wstring drawing = Dwg("house.dwg");
    EXPECT_EQ(int(Env::GetSaveFormatVersion(drawing.c_str())), 12);
    EXPECT_EQ(Db::OpenAcDbFileDoFun(drawing.c_str(), &calls, AddLayer, 0, nullptr), Acad::eOk);
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(HasNewLayer(drawing));
    EXPECT_EQ(int(Env::GetSaveFormatVersion(drawing.c_str())), 48);   // AC1024
    const std::wstring backup = KxPlat::DrivePath(folder + "/house.bak");
    EXPECT_EQ(int(Env::GetSaveFormatVersion(backup.c_str())), 12);   // as it was
    EXPECT_EQ(Db::OpenAcDbFileDoFun(drawing.c_str(), nullptr, nullptr, 0, nullptr), Acad::eOk);

    const std::wstring made = KxPlat::DrivePath(folder + "/made.dwg");
    EXPECT_EQ(Db::NewAcDbFileDoFun(made.c_str(), &calls, AddLayer, 0, nullptr), Acad::eOk);
    EXPECT_TRUE(HasNewLayer(made));
    EXPECT_EQ(int(Env::GetSaveFormatVersion(made.c_str())), 48);
}

TEST_F(Files, OfTheBinaryKindOpenAsDocuments)
{
    const std::wstring drawing = Dwg("house.dwg");
    EXPECT_EQ(Db::OpenAcDbFileDoFun(drawing.c_str(), &calls, AddLayer, 1, L"(setq sent 7) "), Acad::eKeyNotFound);
    ASSERT_EQ(acDocManager->documentCount(), 1);
    EXPECT_TRUE(CKxAcDb(acDocManager->curDocument()->database(), 0).IsHasLayer(L"新层"));
    EXPECT_FALSE(HasNewLayer(drawing));        // nobody has saved it yet
    session.Run(L"(setq sent (1+ sent))\n");   // what was sent comes first
    resbuf* value = nullptr;
    ASSERT_EQ(acedGetSym(L"SENT", &value), RTNORM);
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->resval.rint, 8);
    acutRelRb(value);
}

TEST_F(Files, AreMadeAnew)
{
    const std::wstring made = KxPlat::DrivePath(folder + "/made.dxf");
    EXPECT_EQ(Db::NewAcDbFileDoFun(made.c_str(), &calls, AddLayer, 0, nullptr), Acad::eOk);
    EXPECT_TRUE(HasNewLayer(made));
}

TEST_F(Files, OpenAsDocumentsInTheEditor)
{
    EXPECT_EQ(Db::OpenAcDbFileDoFun(file.c_str(), &calls, AddLayer, 1, nullptr), Acad::eKeyNotFound);
    ASSERT_EQ(acDocManager->documentCount(), 1);
    AcApDocument* document = acDocManager->curDocument();
    EXPECT_TRUE(CKxAcDb(document->database(), 0).IsHasLayer(L"新层"));
    EXPECT_EQ(document->myLockMode(), AcAp::kNotLocked);
    ui.Taken();
    const Acad::ErrorStatus es = Db::OpenAcDbFileDoFun(L"Z:\\none.dxf", &calls, AddLayer, 1, nullptr);
    EXPECT_NE(es, Acad::eOk);
    EXPECT_EQ(ui.Taken(), L"\nError: " + std::wstring(acadErrorStatusText(es)));
}

TEST(DbExtents, HoldAllEntitiesButTheTextsLeftOut)
{
    AcDbDatabase drawing;
    CKxAcDb db(&drawing, 0);
    AcDbObjectIdArray ids;
    AcDbObjectId id;
    db.AddEntToSpace(new AcDbLine(AcGePoint3d(1, 2, 3), AcGePoint3d(-4, 5, 0)), 1, nullptr, &id);
    ids.append(id);
    db.AddEntToSpace(new AcDbCircle(AcGePoint3d(10, 0, 0), AcGeVector3d::kZAxis, 2), 1, nullptr, &id);
    ids.append(id);
    auto* text = new AcDbText();
    text->setPosition(AcGePoint3d(100, 100, 0));
    text->setHeight(5);
    text->setTextString(L"客厅");
    db.AddEntToSpace(text, 1, nullptr, &id);
    ids.append(id);
    ids.append(AcDbObjectId());

    AcDbExtents extents;
    ASSERT_EQ(Db::GetExtents(extents, ids, 1), Acad::eOk);
    EXPECT_EQ(extents.minPoint(), AcGePoint3d(-4, -2, 0));
    EXPECT_EQ(extents.maxPoint(), AcGePoint3d(12, 5, 3));
    Db::GetExtents(extents, ids, 0);
    EXPECT_GT(extents.maxPoint().y, 100);

    AcArray<AcGePoint3d> points;
    points.append(AcGePoint3d(0, -50, 7));
    Db::AddExtents(extents, points);
    EXPECT_EQ(extents.minPoint(), AcGePoint3d(-4, -50, 0));
    EXPECT_EQ(Db::GetExtents(extents, AcDbObjectIdArray(), 0), Acad::eOk);
    EXPECT_TRUE(extents.isEmpty());
}

TEST(DbPolyline, VerticesAreReplacedWhole)
{
    AcDbDatabase drawing;
    CKxAcDb db(&drawing, 0);
    auto* made = new AcDbPolyline();
    for (unsigned i = 0; i < 5; ++i)
        made->addVertexAt(i, AcGePoint2d(i, i), 0.5, 1, 1);
    AcDbObjectId id;
    db.AddEntToSpace(made, 1, nullptr, &id);
    AcArray<AcGePoint2d> points, read;
    points.append(AcGePoint2d(3, 4));
    points.append(AcGePoint2d(5, 6));
    ASSERT_EQ(Db::SetPLinePt2D(id, points), Acad::eOk);
    ASSERT_EQ(Db::GetPLinePt2D(id, read), Acad::eOk);
    EXPECT_TRUE(read == points);
    const Opened<AcDbPolyline> polyline(id, AcDb::kForRead);
    double bulge = 1;
    polyline->getBulgeAt(0, bulge);
    EXPECT_EQ(bulge, 0);
    EXPECT_NE(Db::GetPLinePt2D(drawing.layerZero(), read), Acad::eOk);
}
