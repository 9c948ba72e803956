// A window's view of a drawing: cameras, picking, and pictures that follow what happens to the drawing.
#include "gs/DrawingView.h"
#include "db/AcDbCircle.h"
#include "db/AcDbViewportTableRecord.h"
#include "Sheet.h"
#include <numbers>

using namespace KxPlat;

namespace {

constexpr uint32_t kWhite = 0xFFFFFF, kBlack = 0x000000, kRed = 0xFF0000;

// 100 by 100 pixels, one for each unit, on white.
class ViewOfSheet : public Sheet {
protected:
    void SetUp() override
    {
        Sheet::SetUp();
        view.Resize(100, 100);
        view.SetBackground(kWhite);
        view.SetCamera(Camera::Over(0, 0, 100, 100, 0));
    }
    void ExpectAlike(const Image& picture, const Image& other)
    {
        ASSERT_EQ(picture.width(), other.width());
        int differing = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                differing += picture.At(x, y) != other.At(x, y);
        EXPECT_EQ(differing, 0);
    }
    // What a view that has just been made shows.
    Image Fresh()
    {
        DrawingView other(db);
        other.Resize(view.width(), view.height());
        other.SetBackground(view.background());
        other.SetCamera(view.camera());
        return other.Picture();
    }
    template <class Change>
    void Edit(AcDbObjectId id, Change change)
    {
        AcDbEntity* entity = nullptr;
        ASSERT_EQ(acdbOpenAcDbEntity(entity, id, AcDb::kForWrite), Acad::eOk);
        change(*entity);
        entity->close();
    }

    DrawingView view{db};
};

TEST_F(ViewOfSheet, PointsGoThereAndBack)
{
    const DevicePoint at = view.ToDevice(AcGePoint3d(25, 75, 0));
    EXPECT_NEAR(at.x, 25, 1e-9);
    EXPECT_NEAR(at.y, 25, 1e-9);
    EXPECT_TRUE(view.ToWorld(25, 25).isEqualTo(AcGePoint3d(25, 75, 0)));
    EXPECT_NEAR(view.PixelSize(), 1, 1e-12);
    view.Orbit(0.5, 0.3);
    for (const bool isPerspective : {false, true}) {
        view.SetPerspective(isPerspective);
        const AcGePoint3d ground(40, 60, 0);
        const DevicePoint seen = view.ToDevice(ground);
        EXPECT_LT(view.ToWorld(seen.x, seen.y).distanceTo(ground), 1e-6);
    }
}

TEST_F(ViewOfSheet, ZoomKeepsWhatIsUnderTheCursor)
{
    const AcGePoint3d under = view.ToWorld(80, 10);
    view.ZoomAt(80, 10, 4);
    EXPECT_TRUE(view.ToWorld(80, 10).isEqualTo(under));
    EXPECT_NEAR(view.camera().fieldWidth, 25, 1e-9);
    view.ZoomAt(80, 10, 0.25);
    EXPECT_TRUE(view.camera().target.isEqualTo(AcGePoint3d(50, 50, 0)));
    view.ZoomWindow(20, 20, 40, 30);   // the wider side decides
    EXPECT_TRUE(view.camera().target.isEqualTo(AcGePoint3d(30, 75, 0)));
    EXPECT_NEAR(view.camera().fieldWidth, 20, 1e-9);
    view.ZoomAt(50, 50, 1e30);   // nearer than numbers go: refused
    EXPECT_NEAR(view.camera().fieldWidth, 20, 1e-9);
}

TEST_F(ViewOfSheet, ExtentsFitTheVisible)
{
    Add(Line(10, 20, 30, 40));
    const AcDbObjectId off = AddLayer(L"OFF", 1);
    Add(Line(-1000, 0, 1000, 0, off));
    AcDbLayerTableRecord* layer = nullptr;
    ASSERT_EQ(acdbOpenObject(layer, off, AcDb::kForWrite), Acad::eOk);
    layer->setIsOff(true);
    layer->close();
    view.Changed();
    view.ZoomExtents();
    EXPECT_NEAR(view.camera().target.x, 20.5, 0.01);
    EXPECT_NEAR(view.camera().target.y, 30.5, 0.01);
    EXPECT_NEAR(view.camera().fieldWidth, 21, 0.1);
}

TEST_F(ViewOfSheet, ExtentsPassOverWhatDimensionsMeasure)
{
    const AcDbObjectId marks = AddLayer(L"DEFPOINTS", 7), block = AddBlock(L"D");
    Add(Line(10, 10, 30, 10), block);
    Add(Line(-5000, 0, -5000, 0, marks), block);
    Add(new AcDbBlockReference(AcGePoint3d(), block));
    view.Changed();
    view.ZoomExtents();
    EXPECT_NEAR(view.camera().fieldWidth, 21, 0.1);
}

TEST_F(ViewOfSheet, ViewsThatFilesHoldAreFound)
{
    AcDbViewportTable* table = nullptr;
    ASSERT_EQ(db.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
    AcDbViewportTableRecord* record = nullptr;
    if (table->getAt(L"*Active", record, AcDb::kForWrite) != Acad::eOk) {
        record = new AcDbViewportTableRecord;
        record->setName(L"*Active");
        ASSERT_EQ(table->add(record), Acad::eOk);
    }
    table->close();
    record->setCenterPoint(AcGePoint2d(300, 200));
    record->setHeight(40);
    record->setTarget(AcGePoint3d(1000, 0, 0));
    record->setViewDirection(AcGeVector3d(0, 0, 5));
    record->close();
    EXPECT_TRUE(view.ZoomSaved());
    EXPECT_TRUE(view.camera().target.isEqualTo(AcGePoint3d(1300, 200, 0)));
    EXPECT_NEAR(view.camera().fieldHeight, 40, 1e-9);
    EXPECT_NEAR(view.camera().fieldWidth, 40, 1e-9);
}

TEST_F(ViewOfSheet, OrbitTurnsWhatIsSeen)
{
    view.SetCamera(Camera());
    view.Orbit(std::numbers::pi / 2, 0);   // to the right: the left side comes to the front
    EXPECT_TRUE(view.camera().direction.isEqualTo(AcGeVector3d(-1, 0, 0)));
    EXPECT_TRUE(view.camera().up.isEqualTo(AcGeVector3d(0, 1, 0)));
    view.SetCamera(Camera());
    view.Orbit(0, std::numbers::pi / 2);   // down: the upper side comes to the front
    EXPECT_TRUE(view.camera().direction.isEqualTo(AcGeVector3d(0, 1, 0)));
    EXPECT_TRUE(view.camera().up.isEqualTo(AcGeVector3d(0, 0, -1)));
}

TEST_F(ViewOfSheet, PanShowsWhatAFullDrawingShows)
{
    for (int line = 0; line < 40; ++line)
        Add(Line(line * 7 - 80, -50, 180 - line * 3, 170, AcDbObjectId(), Adesk::UInt16(1 + line % 6)));
    view.Changed();
    view.Picture();
    const struct {
        double dx, dy;
    } ways[] = {{10, 0}, {-7, 0}, {0, 12}, {0, -5}, {13, -9}, {-20, 4}, {60, 0}, {0.5, 0.25}};
    for (const auto& way : ways) {
        SCOPED_TRACE(testing::Message() << way.dx << ", " << way.dy);
        const AcGePoint3d before = view.ToWorld(50, 50);
        view.Pan(way.dx, way.dy);
        EXPECT_LT(view.ToWorld(50 + way.dx, 50 + way.dy).distanceTo(before), 1e-6);
        ExpectAlike(view.Picture(), Fresh());
    }
}

TEST_F(ViewOfSheet, PicksWhatIsNearAndVisible)
{
    const AcDbObjectId line = Add(Line(10, 10, 90, 10));
    const AcDbObjectId circle = Add(new AcDbCircle(AcGePoint3d(50, 50, 0), AcGeVector3d::kZAxis, 20));
    const AcDbObjectId upper = Add(Line(10, 10, 90, 10));
    const AcDbObjectId block = AddBlock(L"B");
    Add(Line(0, 0, 10, 0), block);
    const AcDbObjectId insertion = Add(new AcDbBlockReference(AcGePoint3d(80, 80, 0), block));
    view.Changed();
    EXPECT_EQ(view.EntityAt(50, 88, 3), upper);
    EXPECT_EQ(view.EntityAt(50, 50, 3), AcDbObjectId());   // within the circle lies nothing
    EXPECT_EQ(view.EntityAt(70, 51, 3), circle);
    EXPECT_EQ(view.EntityAt(85, 19, 3), insertion);
    Edit(upper, [](AcDbEntity& entity) { entity.setVisibility(AcDb::kInvisible); });
    view.Changed();
    EXPECT_EQ(view.EntityAt(50, 88, 3), line);
}

TEST_F(ViewOfSheet, RectanglesTakeTheWholeOrWhatTheyCross)
{
    const AcDbObjectId line = Add(Line(10, 10, 90, 10));
    const AcDbObjectId circle = Add(new AcDbCircle(AcGePoint3d(50, 50, 0), AcGeVector3d::kZAxis, 20));
    const AcDbObjectId block = AddBlock(L"B");
    Add(Line(0, 0, 5, 0), block);
    Add(Line(900, 0, 910, 0), block);   // far off the picture
    const AcDbObjectId insertion = Add(new AcDbBlockReference(AcGePoint3d(40, 50, 0), block));
    view.Changed();
    using Ids = std::vector<AcDbObjectId>;
    EXPECT_EQ(view.EntitiesIn(25, 25, 75, 75, false), Ids({circle}));
    EXPECT_EQ(view.EntitiesIn(75, 75, 25, 25, true), Ids({circle, insertion}));
    EXPECT_EQ(view.EntitiesIn(0, 60, 60, 99, true), Ids({line, circle}));
    EXPECT_EQ(view.EntitiesIn(0, 80, 99, 99, false), Ids({line}));
    EXPECT_EQ(view.EntitiesIn(47, 45, 55, 55, true), Ids());   // wholly within the circle
}

TEST_F(ViewOfSheet, ChangesComeWithoutDrawingTheRestAnew)
{
    const AcDbObjectId line = Add(Line(10, 10, 90, 10)), other = Add(Line(10, 30, 90, 30));
    for (int at = 0; at < 20; ++at)
        Add(Line(5, at, 6, at));
    view.Changed();
    view.Picture();
    const uint64_t before = view.scene().drawnCount();
    Edit(line, [](AcDbEntity& entity) { entity.setColorIndex(1); });
    Edit(other, [](AcDbEntity& entity) { entity.erase(); });
    const AcDbObjectId added = Add(Line(10, 50, 90, 50));
    view.Changed();
    EXPECT_EQ(view.scene().drawnCount(), before + 2);
    const Image& picture = view.Picture();
    EXPECT_EQ(At(picture, 50, 10), kRed);
    EXPECT_EQ(At(picture, 50, 30), kWhite);
    EXPECT_EQ(At(picture, 50, 50), kBlack);
    EXPECT_EQ(view.EntityAt(50, 49, 3), added);
    ExpectAlike(picture, Fresh());
}

TEST_F(ViewOfSheet, UndoIsSeenToo)
{
    const AcDbObjectId line = Add(Line(10, 10, 90, 10));
    view.Changed();
    view.Picture();
    UndoLog& undo = CoreOf(db).undo;
    undo.Begin(L"CHANGE");
    Edit(line, [](AcDbEntity& entity) { entity.setColorIndex(1); });
    undo.Begin(L"ERASE");
    Edit(line, [](AcDbEntity& entity) { entity.erase(); });
    view.Changed();
    EXPECT_EQ(At(view.Picture(), 50, 10), kWhite);
    CString command;
    ASSERT_TRUE(undo.Undo(CoreOf(db).header, command));
    view.Changed();
    EXPECT_EQ(At(view.Picture(), 50, 10), kRed);
    ASSERT_TRUE(undo.Undo(CoreOf(db).header, command));
    view.Changed();
    EXPECT_EQ(At(view.Picture(), 50, 10), kBlack);
    ASSERT_TRUE(undo.Redo(CoreOf(db).header, command));
    view.Changed();
    EXPECT_EQ(At(view.Picture(), 50, 10), kRed);
}

TEST_F(ViewOfSheet, LayersNeedNoNewLists)
{
    const AcDbObjectId layer = AddLayer(L"WALLS", 1);
    Add(Line(10, 10, 90, 10, layer));
    view.Changed();
    EXPECT_EQ(At(view.Picture(), 50, 10), kRed);
    const uint64_t before = view.scene().drawnCount();
    AcDbLayerTableRecord* record = nullptr;
    ASSERT_EQ(acdbOpenObject(record, layer, AcDb::kForWrite), Acad::eOk);
    record->setIsOff(true);
    record->close();
    view.Changed();
    EXPECT_EQ(At(view.Picture(), 50, 10), kWhite);
    EXPECT_EQ(view.scene().drawnCount(), before);
}

TEST_F(ViewOfSheet, WhatIsInABlockChangesInAllItsInsertions)
{
    const AcDbObjectId inner = AddBlock(L"INNER"), outer = AddBlock(L"OUTER");
    const AcDbObjectId line = Add(Line(0, 0, 20, 0), inner);
    Add(new AcDbBlockReference(AcGePoint3d(), inner), outer);
    Add(new AcDbBlockReference(AcGePoint3d(10, 10, 0), outer));
    Add(new AcDbBlockReference(AcGePoint3d(10, 30, 0), outer));
    view.Changed();
    view.Picture();
    Edit(line, [](AcDbEntity& entity) { static_cast<AcDbLine&>(entity).setEndPoint(AcGePoint3d(70, 0.5, 0)); });
    view.Changed();
    const Image& picture = view.Picture();
    EXPECT_EQ(At(picture, 75, 10), kBlack);   // beyond the box of before
    EXPECT_EQ(At(picture, 75, 30), kBlack);
    ExpectAlike(picture, Fresh());
}

TEST_F(ViewOfSheet, HighlightsStandOutAndGoAgain)
{
    const AcDbObjectId line = Add(Line(10, 10, 90, 10));
    view.Changed();
    const Image plain = view.Picture();
    view.Highlight({line});
    const Image marked = view.Picture();
    EXPECT_NE(At(marked, 10, 10), kBlack);   // a grip at the end
    EXPECT_NE(At(marked, 10, 13), kWhite);
    int dashes = 0, gaps = 0;
    for (int x = 20; x < 45; ++x)
        (At(marked, x, 10) == kWhite ? gaps : dashes) += 1;
    EXPECT_GT(dashes, 10);
    EXPECT_GT(gaps, 5);
    view.Highlight({});
    ExpectAlike(view.Picture(), plain);
}

TEST_F(ViewOfSheet, PicturesAreDrawnInSteps)
{
    for (int line = 0; line < 3000; ++line)
        Add(Line(line % 97, line % 89, line % 83, line % 79, AcDbObjectId(), Adesk::UInt16(1 + line % 6)));
    view.Changed();
    int steps = 0;
    while (!view.Advance(0) && steps < 1000)
        ++steps;
    EXPECT_GT(steps, 5);
    EXPECT_TRUE(view.IsWhole());
    ExpectAlike(view.Picture(), Fresh());
    const uint64_t number = view.pictureNumber();
    EXPECT_TRUE(view.Advance(0));
    EXPECT_EQ(view.pictureNumber(), number);   // nothing to do
}

}   // namespace
