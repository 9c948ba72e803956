// Drawings that would take forever, or all memory: they are drawn in part, and a line says so.
#include "db/AcDbHatch.h"
#include "db/AcDbMText.h"
#include "db/AcDbText.h"
#include "gi/fonts/Font.h"
#include "gs/DrawingView.h"
#include "Sheet.h"
#include <chrono>
#include <fstream>

using namespace KxPlat;

namespace {

constexpr uint32_t kBlack = 0, kWhite = 0xFFFFFF;

class Bounds : public Sheet {
protected:
    // Far more than any of these takes, far less than an endless one.
    static constexpr double kSeconds = 20;
    void SetUp() override
    {
        Sheet::SetUp();
        m_start = std::chrono::steady_clock::now();
    }
    void TearDown() override
    {
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - m_start;
        EXPECT_LT(seconds.count(), kSeconds);
        Sheet::TearDown();
    }

private:
    std::chrono::steady_clock::time_point m_start;
};

TEST_F(Bounds, AHatchOfMillionsOfLinesIsFilled)
{
    auto* hatch = new AcDbHatch;
    hatch->setPatternScale(1e-6);
    EXPECT_EQ(hatch->setPattern(AcDbHatch::kPreDefined, L"ANSI31"), Acad::eOk);
    AcGePoint2dArray corners;
    for (const auto& [x, y] : {std::pair(10, 10), std::pair(90, 10), std::pair(90, 90), std::pair(10, 90)})
        corners.append(AcGePoint2d(x, y));
    hatch->appendLoop(AcDbHatch::kExternal, corners, AcGeDoubleArray());
    Add(hatch);
    Scene scene(db);
    const Image image = Drawn(scene);
    EXPECT_EQ(At(image, 50, 50), kBlack);
    EXPECT_EQ(At(image, 95, 50), kWhite);
    EXPECT_EQ(scene.LeftOutText(), L"1 dense hatch filled");
}

TEST_F(Bounds, ATextOfAMegabyteIsCut)
{
    auto* text = new AcDbText;
    text->setTextString(std::wstring(1 << 20, L'墙').c_str());
    text->setPosition(AcGePoint3d(10, 50, 0));
    text->setHeight(5);
    Add(text);
    Scene scene(db);
    EXPECT_GT(Inked(Drawn(scene)), 0);
    EXPECT_EQ(scene.LeftOutText(), L"1 overlong text cut");
}

TEST_F(Bounds, BlocksThatHoldEachOtherManyTimes)
{
    // Ten levels of ten: ten thousand million lines at one place.
    AcDbObjectId block = AddBlock(L"B0");
    Add(Line(0, 0, 50, 0), block);
    for (int level = 1; level < 11; ++level) {
        const AcDbObjectId outer = AddBlock((L"B" + std::to_wstring(level)).c_str());
        for (int each = 0; each < 10; ++each)
            Add(new AcDbBlockReference(AcGePoint3d(), block), outer);
        block = outer;
    }
    Add(new AcDbBlockReference(AcGePoint3d(10, 10, 0), block));
    Scene scene(db);
    options.mostNested = 100000;
    EXPECT_EQ(At(Drawn(scene), 40, 10), kBlack);
    EXPECT_EQ(scene.LeftOutText(), L"1 endless block cut");
}

TEST_F(Bounds, AChainOfBlocksThatLeadsTooDeep)
{
    AcDbObjectId block = AddBlock(L"B0");
    Add(Line(0, 0, 50, 0), block);
    for (int level = 1; level < 500; ++level) {
        const AcDbObjectId outer = AddBlock((L"B" + std::to_wstring(level)).c_str());
        Add(new AcDbBlockReference(AcGePoint3d(), block), outer);
        Add(Line(0, level % 50, 5, level % 50), outer);
        block = outer;
    }
    Add(new AcDbBlockReference(AcGePoint3d(10, 10, 0), block));
    Scene scene(db);
    EXPECT_GT(Inked(Drawn(scene)), 0);
    EXPECT_EQ(scene.CountOf(DrawNote::DeepBlocks), 1u);
}

TEST_F(Bounds, AbsurdPlacesAndSizes)
{
    const AcDbObjectId block = AddBlock(L"B");
    Add(Line(0, 0, 1, 0), block);
    for (const double at : {1e300, -1e300, 1e16, double(NAN), double(INFINITY)}) {
        Add(Line(at, 0, 10, 10));
        auto* text = new AcDbText;
        text->setTextString(L"far");
        text->setPosition(AcGePoint3d(at, 0, 0));
        text->setHeight(2.5);
        Add(text);
        auto* insertion = new AcDbBlockReference(AcGePoint3d(0, at, 0), block);
        Add(insertion);
    }
    Add(Line(10, 10, 90, 10));
    DrawingView view(db);
    view.Resize(100, 100);
    view.SetBackground(kWhite);
    EXPECT_GT(Inked(view.Picture()), 50);   // the line alone fills the extents
    EXPECT_EQ(view.scene().CountOf(DrawNote::Damaged), 15u);
    view.SetCamera(Camera::Over(-1e14, -1e14, 1e14, 1e14));
    view.Picture();
    view.ZoomAt(3, 3, 1e20);
    view.Picture();
    view.Pan(1e300, NAN);
    view.Orbit(INFINITY, 0);
    EXPECT_TRUE(std::isfinite(view.camera().target.x));
}

TEST_F(Bounds, DamagedFontFilesAreNoFonts)
{
    const std::string folder = testing::TempDir();
    struct Row {
        const char* what;
        std::string bytes;
    };
    const Row rows[] = {
        {"empty", ""},
        {"noise", std::string(5000, '\x7f')},
        {"only a header", std::string("\0\1\0\0\0\x10\1\0\0\4\0\0", 12)},
        {"a table that lies beyond the end",
         std::string("\0\1\0\0\0\1\0\0\0\0\0\0glyf\0\0\0\0\x7f\xff\xff\xff\x7f\xff\xff\xff", 28)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const std::string path = folder + "/damaged.ttf";
        std::ofstream(path, std::ios::binary) << row.bytes;
        EXPECT_EQ(OpenTrueTypeFont(path.c_str(), 0), nullptr);
    }
    EXPECT_EQ(OpenTrueTypeFont((folder + "/none.ttf").c_str(), 0), nullptr);
}

}   // namespace
