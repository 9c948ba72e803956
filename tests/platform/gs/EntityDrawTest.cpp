// How each kind of entity looks: pixels that must and must not be inked.
#include "db/AcDbArc.h"
#include "db/AcDbCircle.h"
#include "db/AcDbEllipse.h"
#include "db/AcDbHatch.h"
#include "db/AcDbMText.h"
#include "db/AcDbPolyline.h"
#include "db/AcDbRay.h"
#include "db/AcDbSolid.h"
#include "db/AcDbText.h"
#include "db/draw/MTextLayout.h"
#include "Sheet.h"
#include <numbers>

using namespace KxPlat;

namespace {

struct Pixel {
    int x, y;
};

struct LookRow {
    const char* what;
    AcDbEntity* (*make)();
    std::vector<Pixel> inked, blank;
};

AcDbPolyline* Polyline(std::initializer_list<AcGePoint2d> points, bool isClosed)
{
    auto* polyline = new AcDbPolyline;
    for (const AcGePoint2d& point : points)
        polyline->addVertexAt(polyline->numVerts(), point);
    polyline->setClosed(isClosed);
    return polyline;
}

AcDbHatch* SquareHatch(double inner)
{
    auto* hatch = new AcDbHatch;
    hatch->setPattern(AcDbHatch::kPreDefined, L"SOLID");
    AcGePoint2dArray outer, hole;
    for (const auto& [x, y] : {std::pair(-1, -1), std::pair(1, -1), std::pair(1, 1), std::pair(-1, 1)}) {
        outer.append(AcGePoint2d(50 + 40 * x, 50 + 40 * y));
        hole.append(AcGePoint2d(50 + inner * x, 50 + inner * y));
    }
    hatch->appendLoop(AcDbHatch::kExternal, outer, AcGeDoubleArray());
    hatch->appendLoop(AcDbHatch::kDefault, hole, AcGeDoubleArray());
    return hatch;
}

const LookRow kLooks[] = {
    {"circle",
     [] { return static_cast<AcDbEntity*>(new AcDbCircle(AcGePoint3d(50.5, 50.5, 0), AcGeVector3d::kZAxis, 40)); },
     {{90, 50}, {50, 90}, {10, 50}, {78, 78}},
     {{50, 50}, {85, 85}}},
    {"quarter arc",
     [] { return static_cast<AcDbEntity*>(new AcDbArc(AcGePoint3d(10.5, 10.5, 0), 60, 0, std::numbers::pi / 2)); },
     {{70, 11}, {52, 52}, {11, 70}},
     {{10, 10}, {40, 40}}},
    {"arc seen from below",
     [] {
         return static_cast<AcDbEntity*>(
             new AcDbArc(AcGePoint3d(50.5, 50.5, 0), -AcGeVector3d::kZAxis, 40, 0, std::numbers::pi / 2));
     },
     {{22, 78}, {10, 51}},
     {{78, 78}, {78, 22}, {22, 22}}},
    {"ellipse",
     [] {
         return static_cast<AcDbEntity*>(
             new AcDbEllipse(AcGePoint3d(50.5, 50.5, 0), AcGeVector3d::kZAxis, AcGeVector3d(40, 0, 0), 0.5));
     },
     {{90, 50}, {50, 70}, {50, 30}},
     {{50, 90}, {50, 50}}},
    {"ray",
     [] {
         auto* ray = new AcDbRay;
         ray->setBasePoint(AcGePoint3d(50.5, 50.5, 0));
         ray->setUnitDir(AcGeVector3d(0, 1, 0));
         return static_cast<AcDbEntity*>(ray);
     },
     {{50, 51}, {50, 99}},
     {{50, 40}}},
    {"closed polyline",
     [] {
         return static_cast<AcDbEntity*>(Polyline({{10.5, 10.5}, {80.5, 10.5}, {80.5, 60.5}}, true));
     },
     {{40, 10}, {80, 40}, {45, 35}},
     {{10, 60}}},
    {"bulged polyline",
     [] {
         auto* p = Polyline({{20.5, 50.5}, {80.5, 50.5}}, false);
         p->setBulgeAt(0, 1);
         return static_cast<AcDbEntity*>(p);
     },
     {{50, 20}, {20, 50}},
     {{50, 50}, {50, 80}}},
    {"wide polyline",
     [] {
         auto* p = Polyline({{10, 50}, {60, 50}, {60, 90}}, false);
         p->setConstantWidth(10);
         return static_cast<AcDbEntity*>(p);
     },
     {{20, 46}, {20, 53}, {64, 46}, {56, 80}, {63, 80}},
     {{20, 57}, {20, 43}, {53, 80}}},
    {"solid, drawn crosswise",
     [] {
         return static_cast<AcDbEntity*>(new AcDbSolid(AcGePoint3d(10, 10, 0), AcGePoint3d(90, 10, 0),
                                                       AcGePoint3d(10, 90, 0), AcGePoint3d(90, 90, 0)));
     },
     {{50, 50}, {12, 50}, {88, 50}, {50, 88}},
     {{5, 50}}},
    {"filled hatch with an island",
     [] { return static_cast<AcDbEntity*>(SquareHatch(20)); },
     {{15, 50}, {50, 85}},
     {{50, 50}, {5, 50}}},
};

class Looks : public Sheet, public ::testing::WithParamInterface<LookRow> {};

TEST_P(Looks, IsDrawnWhereItLies)
{
    const LookRow& row = GetParam();
    Add(row.make());
    const Image image = Drawn();
    // Lines may be a pixel beside the true curve.
    for (const Pixel& pixel : row.inked) {
        bool isInked = false;
        for (int x = pixel.x - 1; x <= pixel.x + 1; ++x)
            for (int y = pixel.y - 1; y <= pixel.y + 1; ++y)
                isInked = isInked || (x >= 0 && y >= 0 && x < 100 && y < 100 && At(image, x, y) != options.background);
        EXPECT_TRUE(isInked) << row.what << " at " << pixel.x << ',' << pixel.y;
    }
    for (const Pixel& pixel : row.blank)
        EXPECT_EQ(At(image, pixel.x, pixel.y), options.background) << row.what << " at " << pixel.x << ',' << pixel.y;
}

INSTANTIATE_TEST_SUITE_P(Entities, Looks, ::testing::ValuesIn(kLooks));

// A letter I is one stroke at its place, whatever the justification that led there.
TEST_F(Sheet, TextsStandAtTheirJustifiedPlace)
{
    auto* plain = new AcDbText(AcGePoint3d(10.5, 10, 0), L"I", AcDbObjectId(), 20);
    Add(plain);
    auto* right = new AcDbText(AcGePoint3d(0, 0, 0), L"I", AcDbObjectId(), 20);
    right->setHorizontalMode(AcDb::kTextRight);
    right->setAlignmentPoint(AcGePoint3d(60.5, 40, 0));
    Add(right);
    auto* turned = new AcDbText(AcGePoint3d(60, 80.5, 0), L"I", AcDbObjectId(), 20, std::numbers::pi / 2);
    Add(turned);
    const Image image = Drawn();
    EXPECT_NE(At(image, 10, 15), options.background);
    EXPECT_NE(At(image, 10, 28), options.background);
    EXPECT_EQ(At(image, 10, 35), options.background);
    // The advance of I is a third of the height, at whose left the stroke stands.
    EXPECT_NE(At(image, 53, 50), options.background);
    EXPECT_NE(At(image, 45, 80), options.background);
    EXPECT_EQ(At(image, 65, 80), options.background);
}

struct LayoutRow {
    const wchar_t* contents;
    double width;
    std::vector<const wchar_t*> lines;
};

TEST(MTextLayout, BreaksLinesAndReadsCodes)
{
    const LayoutRow rows[] = {
        {L"one\\Ptwo", 0, {L"one", L"two"}},
        {L"{\\fArial|b0|i0;one} \\H2x;two", 0, {L"one two"}},
        {L"aaa bbb ccc", 6, {L"aaa bbb ", L"ccc"}},
        {L"图层图层", 2, {L"图层", L"图层"}},
        {L"longword x", 2, {L"longword ", L"x"}},
        {L"50%%d \\U+00B1\\~1\\\\", 0, {L"50\u00B0 \u00B1\u00A01\\"}},
        {L"a\\S1/2;b", 0, {L"a12b"}},
        {L"\\A1;\\C1;red\\", 0, {L"red\\"}},
    };
    for (const LayoutRow& row : rows) {
        const MTextBlock block = LayOutMText(row.contents, AcGiTextStyle(), row.width, 1);
        ASSERT_EQ(block.lines.size(), row.lines.size()) << CString(row.contents).GetString();
        for (size_t at = 0; at < row.lines.size(); ++at) {
            CString line;
            for (const MTextPiece& piece : block.lines[at].pieces)
                line += piece.text;
            EXPECT_STREQ(line.GetString(), row.lines[at]);
        }
    }
}

TEST(MTextLayout, LinesAreFiveThirdsOfTheirHeightApart)
{
    const MTextBlock block = LayOutMText(L"I\\P\\H2;I\\P{\\H1;I}", AcGiTextStyle(), 0, 1);
    ASSERT_EQ(block.lines.size(), 3u);
    EXPECT_DOUBLE_EQ(block.lines[0].baseLine, 1);
    EXPECT_DOUBLE_EQ(block.lines[1].baseLine, 1 + 10.0 / 3);
    EXPECT_DOUBLE_EQ(block.lines[2].baseLine, 1 + 10.0 / 3 + 5.0 / 3);
    EXPECT_DOUBLE_EQ(block.height, block.lines[2].baseLine);
    EXPECT_DOUBLE_EQ(block.lines[1].pieces[0].style.textSize(), 2);
}

}   // namespace
