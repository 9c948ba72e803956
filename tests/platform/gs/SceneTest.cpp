// What is seen of layers, blocks, colours and linetypes.
#include "db/AcDbLinetypeTableRecord.h"
#include "Sheet.h"

using namespace KxPlat;

namespace {

constexpr uint32_t kWhite = 0xFFFFFF, kBlack = 0x000000, kRed = 0xFF0000, kGreen = 0x00FF00, kBlue = 0x0000FF;

TEST_F(Sheet, ColoursComeFromEntityOrLayer)
{
    const AcDbObjectId red = AddLayer(L"RED", 1);
    Add(Line(10, 10, 90, 10, red));
    Add(Line(10, 20, 90, 20, red, 5));
    AcDbLine* trueColor = Line(10, 30, 90, 30, red);
    AcCmColor color;
    color.setRGB(1, 2, 3);
    trueColor->setColor(color);
    Add(trueColor);
    Add(Line(10, 40, 90, 40, AcDbObjectId(), 7));
    Image image = Drawn();
    EXPECT_EQ(At(image, 50, 10), kRed);
    EXPECT_EQ(At(image, 50, 20), kBlue);
    EXPECT_EQ(At(image, 50, 30), 0x010203u);
    EXPECT_EQ(At(image, 50, 40), kBlack);   // colour 7 stands out from the background
    EXPECT_EQ(At(image, 50, 50), kWhite);
    options.background = kBlack;
    image = Drawn();
    EXPECT_EQ(At(image, 50, 40), kWhite);
}

// One insertion on layer OUTER of a block with lines on OUTER, INNER and "0".
struct VisibilityRow {
    const char* what;
    bool isOuterOff, isOuterFrozen, isInnerOff, isInnerFrozen;
    bool seesOuter, seesInner, seesZero;
};

class LayerStates : public Sheet, public ::testing::WithParamInterface<VisibilityRow> {};

TEST_P(LayerStates, ReachIntoBlocks)
{
    const AcDbObjectId outer = AddLayer(L"OUTER", 1), inner = AddLayer(L"INNER", 3);
    const AcDbObjectId block = AddBlock(L"B");
    Add(Line(10, 10, 90, 10, outer), block);
    Add(Line(10, 20, 90, 20, inner), block);
    Add(Line(10, 30, 90, 30), block);
    auto* insert = new AcDbBlockReference(AcGePoint3d(), block);
    insert->setLayer(outer);
    Add(insert);
    const VisibilityRow& row = GetParam();
    Scene scene(db);
    Drawn(scene);   // the lists stay when layers change
    for (const auto& [id, isOff, isFrozen] :
         {std::tuple(outer, row.isOuterOff, row.isOuterFrozen), std::tuple(inner, row.isInnerOff, row.isInnerFrozen)}) {
        AcDbLayerTableRecord* layer = nullptr;
        ASSERT_EQ(acdbOpenObject(layer, id, AcDb::kForWrite), Acad::eOk);
        layer->setIsOff(isOff);
        layer->setIsFrozen(isFrozen);
        layer->close();
    }
    scene.ReadTables();
    const Image image = Drawn(scene);
    EXPECT_EQ(At(image, 50, 10) == kRed, row.seesOuter) << row.what;
    EXPECT_EQ(At(image, 50, 20) == kGreen, row.seesInner) << row.what;
    EXPECT_EQ(At(image, 50, 30) == kRed, row.seesZero) << row.what;   // "0" takes the colour of the insertion's layer
    options.showsAllLayers = true;
    EXPECT_EQ(Inked(Drawn(scene)), 3 * 81) << row.what;
}

INSTANTIATE_TEST_SUITE_P(
    TruthTable, LayerStates,
    ::testing::Values(VisibilityRow{"all on", false, false, false, false, true, true, true},
                      VisibilityRow{"insertion's layer off", true, false, false, false, false, true, false},
                      VisibilityRow{"insertion's layer frozen", false, true, false, false, false, false, false},
                      VisibilityRow{"inner layer off", false, false, true, false, true, false, true},
                      VisibilityRow{"inner layer frozen", false, false, false, true, true, false, true},
                      VisibilityRow{"both off", true, false, true, false, false, false, false}));

TEST_F(Sheet, ByBlockTakesTheColourOfTheInsertion)
{
    const AcDbObjectId inner = AddBlock(L"INNER"), outer = AddBlock(L"OUTER");
    Add(Line(0, 0, 50, 0, AcDbObjectId(), 0), inner);
    auto* nested = new AcDbBlockReference(AcGePoint3d(), inner);
    nested->setColorIndex(0);
    Add(nested, outer);
    auto* green = new AcDbBlockReference(AcGePoint3d(10, 10, 0), outer);
    green->setColorIndex(3);
    Add(green);
    auto* blue = new AcDbBlockReference(AcGePoint3d(10, 20, 0), outer);
    blue->setColorIndex(5);
    blue->setScaleFactors(AcGeScale3d(0.5, 1, 1));
    Add(blue);
    const Image image = Drawn();
    EXPECT_EQ(At(image, 50, 10), kGreen);
    EXPECT_EQ(At(image, 30, 20), kBlue);
    EXPECT_EQ(At(image, 50, 20), kWhite);   // half as long
}

TEST_F(Sheet, ABlockWithinItselfEnds)
{
    // Damaged files hold such blocks; made by hand, they come about only afterwards.
    const AcDbObjectId block = AddBlock(L"LOOP"), other = AddBlock(L"OTHER");
    Add(Line(0, 0, 50, 0), block);
    const AcDbObjectId inner = Add(new AcDbBlockReference(AcGePoint3d(0, 10, 0), other), block);
    AcDbBlockReference* reference = nullptr;
    ASSERT_EQ(acdbOpenObject(reference, inner, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(reference->setBlockTableRecord(block), Acad::eOk);
    reference->close();
    Add(new AcDbBlockReference(AcGePoint3d(10, 10, 0), block));
    EXPECT_EQ(Inked(Drawn()), 51);
}

TEST_F(Sheet, DashesFollowTheLinetypeAndItsScales)
{
    AcDbLinetypeTable* table = nullptr;
    db.getSymbolTable(table, AcDb::kForWrite);
    auto* dashed = new AcDbLinetypeTableRecord;
    dashed->setName(L"DASHED");
    dashed->setNumDashes(2);
    dashed->setDashLengthAt(0, 5);
    dashed->setDashLengthAt(1, -5);
    dashed->setPatternLength(10);
    table->add(dashed);
    const AcDbObjectId id = dashed->objectId();
    dashed->close();
    table->close();
    AcDbLine* plain = Line(0.5, 10, 80.5, 10);
    plain->setLinetype(id);
    Add(plain);
    AcDbLine* wide = Line(0.5, 20, 80.5, 20);
    wide->setLinetype(id);
    wide->setLinetypeScale(2);
    Add(wide);
    AcDbLine* shortLine = Line(0.5, 30, 8.5, 30);   // shorter than one pattern: drawn whole
    shortLine->setLinetype(id);
    Add(shortLine);
    const Image image = Drawn();
    EXPECT_EQ(At(image, 3, 10), kBlack);
    EXPECT_EQ(At(image, 8, 10), kWhite);
    EXPECT_EQ(At(image, 13, 10), kBlack);
    EXPECT_EQ(At(image, 8, 20), kBlack);
    EXPECT_EQ(At(image, 15, 20), kWhite);
    EXPECT_EQ(At(image, 7, 30), kBlack);
}

TEST_F(Sheet, HiddenEntitiesAndDamagedOnesStayAway)
{
    AcDbLine* hidden = Line(10, 10, 90, 10);
    hidden->setVisibility(AcDb::kInvisible);
    Add(hidden);
    Add(Line(10, NAN, 90, 20));
    Add(Line(10, 30, INFINITY, 30));
    Add(Line(-1e12, 40, 1e12, 40));
    Scene scene(db);
    const Image image = Drawn(scene);
    EXPECT_EQ(Inked(image), 100);
    EXPECT_EQ(At(image, 0, 40), kBlack);
    EXPECT_EQ(scene.CountOf(DrawNote::Damaged), 2u);
    EXPECT_EQ(scene.LeftOutText(), L"2 items with damaged coordinates left out");
}

}   // namespace
