// Entities that are kept as groups of files, as they come from there: multi-leaders, meshes, masks, pictures.
#include "Sheet.h"
#include <cstring>
#include <fstream>

using namespace KxPlat;

namespace {

constexpr uint32_t kBlack = 0, kWhite = 0xFFFFFF, kRed = 0xFF0000;

// Groups with commas between, "code value" each, as the ENTITIES section of a drawing.
std::string Drawing(std::initializer_list<const char*> entities)
{
    std::string text = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1024\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
    for (const char* entity : entities)
        for (const char* at = entity; *at != 0;) {
            const std::string group(at, std::strcspn(at, ","));
            at += group.size() + (at[group.size()] == ',' ? 1 : 0);
            const size_t blank = group.find(' ');
            text += group.substr(0, blank) + "\n" + (blank == std::string::npos ? "" : group.substr(blank + 1)) + "\n";
        }
    return text + "0\nENDSEC\n0\nEOF\n";
}

class FromGroups : public Sheet {
protected:
    Image Read(std::initializer_list<const char*> entities)
    {
        const std::string path = testing::TempDir() + "/groups.dxf";
        std::ofstream(path) << Drawing(entities);
        EXPECT_EQ(m_read.dxfIn(std::wstring(path.begin(), path.end()).c_str()), Acad::eOk);
        Scene scene(m_read);
        Image image(100, 100, kWhite);
        ImagePainter painter(image);
        AcDbObjectId model;
        EXPECT_EQ(CoreOf(m_read).Table(TableKind::Block)->getAt(ACDB_MODEL_SPACE, model), Acad::eOk);
        DrawScene(scene, model, Projection(Camera::Over(0, 0, 100, 100, 0), 100, 100), options, painter);
        m_leftOut = scene.LeftOutText();
        return image;
    }

    AcDbDatabase m_read{false};
    std::wstring m_leftOut;
};

TEST_F(FromGroups, MultiLeadersShowLinesArrowsAndText)
{
    const Image image =
        Read({"0 MULTILEADER,8 0,100 AcDbEntity,100 AcDbMLeader,270 2,300 CONTEXT_DATA{,40 1,10 70,20 50.5,30 0,"
              "41 10,140 12,145 0,290 1,304 HHHH,11 0,21 0,31 1,12 70,22 55,32 0,13 1,23 0,33 0,42 0,43 0,171 1,"
              "302 LEADER{,290 1,291 1,10 50.5,20 50.5,30 0,11 1,21 0,31 0,90 0,40 15,"
              "304 LEADER_LINE{,10 10.5,20 10.5,30 0,91 0,305 },303 },301 },172 2,291 1"});
    EXPECT_EQ(At(image, 30, 30), kBlack);   // the line
    EXPECT_EQ(At(image, 60, 50), kBlack);   // the landing
    EXPECT_EQ(At(image, 67, 50), kWhite);   // and its end
    EXPECT_EQ(At(image, 18, 17), kBlack);   // within the arrow's head, beside the line
    int inked = 0;
    for (int y = 44; y < 56; ++y)
        for (int x = 70; x < 100; ++x)
            inked += At(image, x, y) != kWhite;
    EXPECT_GT(inked, 30);   // the text, its upper left corner at the place
}

TEST_F(FromGroups, MeshesShowTheirFaces)
{
    const Image image = Read({"0 MESH,8 0,62 1,100 AcDbEntity,100 AcDbSubDMesh,71 2,72 0,91 0,92 5,10 10.5,20 10.5,30 "
                              "0,10 50.5,20 10.5,30 0,"
                              "10 50.5,20 50.5,30 0,10 10.5,20 50.5,30 0,10 90.5,20 30.5,30 0,93 9,90 4,90 0,90 1,90 "
                              "2,90 3,90 3,90 1,90 4,90 2,"
                              "94 2,90 0,90 1,95 0,90 0"});
    EXPECT_EQ(At(image, 30, 10), kRed);
    EXPECT_EQ(At(image, 50, 30), kRed);
    EXPECT_EQ(At(image, 70, 20), kRed);
    EXPECT_EQ(At(image, 30, 30), kWhite);
    EXPECT_EQ(m_leftOut, L"");
}

TEST_F(FromGroups, AMeshWithAFalseListOfFacesIsLeftOut)
{
    const Image image = Read({"0 MESH,8 0,100 AcDbEntity,100 AcDbSubDMesh,71 2,72 0,91 0,92 1,10 10.5,20 10.5,30 0,93 "
                              "2,90 2000000000,90 7"});
    EXPECT_EQ(Inked(image), 0);
    EXPECT_EQ(m_leftOut, L"1 item with damaged coordinates left out");
}

TEST_F(FromGroups, WipeoutsHideWhatIsBelowAndNothingAbove)
{
    const char* line1 = "0 LINE,8 0,62 1,10 0,20 30.5,30 0,11 100,21 30.5,31 0";
    const char* line2 = "0 LINE,8 0,62 1,10 0,20 50.5,30 0,11 100,21 50.5,31 0";
    const Image image = Read({line1,
                              "0 WIPEOUT,8 0,100 AcDbEntity,100 AcDbWipeout,90 0,10 20,20 20,30 0,11 60,21 0,31 0,12 "
                              "0,22 60,32 0,13 1,23 1,340 0,"
                              "70 7,280 1,281 50,282 50,283 0,71 1,91 2,14 -0.5,24 -0.5,14 0.5,24 0.5",
                              line2});
    EXPECT_EQ(At(image, 10, 30), kRed);
    EXPECT_EQ(At(image, 50, 30), kWhite);
    EXPECT_EQ(At(image, 50, 50), kRed);
    EXPECT_EQ(At(image, 20, 40), kBlack);   // its frame
}

TEST_F(FromGroups, SolidsOfTheModellerAreTold)
{
    Read({"0 3DSOLID,8 0,100 AcDbEntity,100 AcDbModelerGeometry,70 1,1 mmm",
          "0 REGION,8 0,100 AcDbEntity,100 AcDbModelerGeometry,70 1"});
    EXPECT_EQ(m_leftOut, L"2 modeller solids not drawn");
}

}   // namespace
