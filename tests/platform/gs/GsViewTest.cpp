// The documented graphics classes: devices, views, models.
#include "db/AcDbCircle.h"
#include "db/AcDbFace.h"
#include "gs/AcGsClassFactory.h"
#include "gs/AcGsManager.h"
#include "gs/GsObjects.h"
#include "Sheet.h"
#include <numbers>

using namespace KxPlat;

namespace {

constexpr uint32_t kBlack = 0, kWhite = 0xFFFFFF, kRed = 0xFF0000;

class GsViews : public Sheet {
protected:
    void SetUp() override
    {
        Sheet::SetUp();
        device = acgsGetGsManager()->createAutoCADOffScreenDevice();
        device->onSize(100, 100);
        model = acgsGetGsManager()->createAutoCADModel();
        view = acgsGetGsManager()->getGSClassFactory()->createView();
        device->add(view);
        LookFromAbove();
    }
    void TearDown() override
    {
        AcGsClassFactory* factory = acgsGetGsManager()->getGSClassFactory();
        factory->deleteView(view);
        factory->deleteModel(model);
        factory->deleteDevice(device);
        Sheet::TearDown();
    }
    void LookFromAbove()
    {
        view->setView(AcGePoint3d(50, 50, 100), AcGePoint3d(50, 50, 0), AcGeVector3d::kYAxis, 100, 100);
    }
    void Show(AcDbObjectId id)
    {
        AcDbObject* object = nullptr;
        ASSERT_EQ(acdbOpenObject(object, id, AcDb::kForRead), Acad::eOk);
        EXPECT_TRUE(view->add(object, model));
        object->close();
    }
    const Image& Updated()
    {
        device->update();
        return PictureOf(*device);
    }
    AcDbObjectId AddFace(double x1, double y1, double x2, double y2, double z, Adesk::UInt16 color)
    {
        auto* face = new AcDbFace(AcGePoint3d(x1, y1, z), AcGePoint3d(x2, y1, z), AcGePoint3d(x2, y2, z),
                                  AcGePoint3d(x1, y2, z));
        face->setColorIndex(color);
        return Add(face);
    }

    AcGsDevice* device = nullptr;
    AcGsModel* model = nullptr;
    AcGsView* view = nullptr;
};

TEST_F(GsViews, ShowABlockAndFollowItsChanges)
{
    const AcDbObjectId line = Add(Line(10, 10, 90, 10, AcDbObjectId(), 1));
    Show(Model());
    EXPECT_EQ(At(Updated(), 50, 10), kRed);
    EXPECT_TRUE(device->isValid());
    AcDbEntity* entity = nullptr;
    ASSERT_EQ(acdbOpenAcDbEntity(entity, line, AcDb::kForWrite), Acad::eOk);
    entity->erase();
    entity->close();
    view->invalidate();
    EXPECT_FALSE(device->isValid());
    EXPECT_EQ(At(Updated(), 50, 10), kBlack);
    view->eraseAll();
    EXPECT_EQ(Inked(Updated()), 100 * 100);   // nothing is white: the background is black
    device->setBackgroundColor({255, 255, 255});
    EXPECT_EQ(Inked(Updated()), 0);
}

TEST_F(GsViews, ShowSingleEntitiesAndThoseOfNoDrawing)
{
    const AcDbObjectId line = Add(Line(10, 10, 90, 10, AcDbObjectId(), 1));
    Add(Line(10, 20, 90, 20, AcDbObjectId(), 1));
    Show(line);
    AcDbDatabase* before = acdbHostApplicationServices()->workingDatabase();
    acdbHostApplicationServices()->setWorkingDatabase(&db);
    AcDbLine loose(AcGePoint3d(10.5, 30.5, 0), AcGePoint3d(90.5, 30.5, 0));
    loose.setColorIndex(1);
    EXPECT_TRUE(view->add(&loose, model));
    EXPECT_EQ(At(Updated(), 50, 10), kRed);
    EXPECT_EQ(At(Updated(), 50, 20), kBlack);
    EXPECT_EQ(At(Updated(), 50, 30), kRed);
    EXPECT_TRUE(view->erase(&loose));
    EXPECT_FALSE(view->erase(&loose));
    EXPECT_EQ(At(Updated(), 50, 30), kBlack);
    acdbHostApplicationServices()->setWorkingDatabase(before);
}

TEST_F(GsViews, MatricesLeadToTheDeviceAndBack)
{
    const AcGeMatrix3d toDevice = view->worldToDeviceMatrix();
    EXPECT_TRUE((toDevice * AcGePoint3d(50, 50, 0)).isEqualTo(AcGePoint3d(50, 50, (toDevice * view->target()).z)));
    const AcGePoint3d corner = toDevice * AcGePoint3d(100, 0, 0);
    EXPECT_NEAR(corner.x, 100, 1e-9);
    EXPECT_NEAR(corner.y, 0, 1e-9);   // y counts upwards
    const AcGeVector3d way = toDevice.inverse() * AcGeVector3d(30, -20, 0);
    EXPECT_TRUE(way.isEqualTo(AcGeVector3d(30, -20, 0)));
    EXPECT_TRUE((view->viewingMatrix() * view->position()).isEqualTo(AcGePoint3d()));
    view->setView(AcGePoint3d(0, -10, 0), AcGePoint3d(), AcGeVector3d::kZAxis, 50, 20);
    EXPECT_TRUE((view->viewingMatrix() * AcGePoint3d(1, 2, 3)).isEqualTo(AcGePoint3d(1, 3, -12)));
    EXPECT_NEAR((view->worldToDeviceMatrix() * AcGeVector3d(1, 0, 0)).x, 2, 1e-9);   // the wider side fits
    EXPECT_NEAR((view->worldToDeviceMatrix() * AcGeVector3d(0, 0, 1)).y, 2, 1e-9);
}

TEST_F(GsViews, TheCameraMovesInItsOwnAxes)
{
    view->dolly(10, -20, 5);
    EXPECT_TRUE(view->target().isEqualTo(AcGePoint3d(60, 30, 5)));
    EXPECT_TRUE(view->position().isEqualTo(AcGePoint3d(60, 30, 105)));
    view->zoom(4);
    EXPECT_NEAR(view->fieldWidth(), 25, 1e-12);
    view->zoom(0);   // refused, as are others that are no zooms
    view->zoom(-1);
    EXPECT_NEAR(view->fieldWidth(), 25, 1e-12);
    LookFromAbove();
    view->orbit(std::numbers::pi / 2, 0);
    EXPECT_TRUE(view->position().isEqualTo(AcGePoint3d(50, -50, 0)));   // the right hand turns z to -y about x
    EXPECT_TRUE(view->upVector().isEqualTo(AcGeVector3d::kZAxis));
    LookFromAbove();
    view->orbit(0, std::numbers::pi / 2);
    EXPECT_TRUE(view->position().isEqualTo(AcGePoint3d(150, 50, 0)));
    LookFromAbove();
    view->roll(std::numbers::pi / 2);
    EXPECT_TRUE(view->upVector().isEqualTo(AcGeVector3d(-1, 0, 0)));
    view->setView(AcGePoint3d(1, 1, 1), AcGePoint3d(1, 1, 1), AcGeVector3d::kZAxis, 1, 1);   // no direction
    EXPECT_TRUE(view->target().isEqualTo(AcGePoint3d(50, 50, 0)));
}

TEST_F(GsViews, NearerFacesHideFartherOnes)
{
    AddFace(20, 20, 80, 80, 10, 1);
    AddFace(0, 0, 50, 50, 0, 5);   // below the first
    Show(Model());
    struct Row {
        AcGsView::RenderMode mode;
        uint32_t middle, lower,
            edgeBelow;   // within both, within the lower alone, on the lower one's edge within the upper
        bool hasEdges;
    };
    device->setBackgroundColor({255, 255, 255});
    const uint32_t shadedRed = 0xE70000, shadedBlue = 0x0000E7;   // 0.3 + 0.7 * 0.866 of the colour
    const Row rows[] = {{AcGsView::kWireframe, kWhite, kWhite, 0x0000FF, true},
                        {AcGsView::kHiddenLine, kWhite, kWhite, kWhite, true},
                        {AcGsView::kFlatShaded, shadedRed, shadedBlue, shadedRed, false},
                        {AcGsView::kGouraudShaded, shadedRed, shadedBlue, shadedRed, false},
                        {AcGsView::kFlatShadedWithWireframe, shadedRed, shadedBlue, shadedRed, true},
                        {AcGsView::kGouraudShadedWithWireframe, shadedRed, shadedBlue, shadedRed, true}};
    for (const Row& row : rows) {
        SCOPED_TRACE(int(row.mode));
        view->setMode(row.mode);
        const Image& picture = Updated();
        EXPECT_EQ(At(picture, 40, 40), row.middle);
        EXPECT_EQ(At(picture, 10, 10), row.lower);
        EXPECT_EQ(At(picture, 50, 30), row.edgeBelow);
        EXPECT_EQ(At(picture, 80, 50) == kRed, row.hasEdges);
    }
    // From below the other one is nearer.
    view->setView(AcGePoint3d(50, 50, -100), AcGePoint3d(50, 50, 0), AcGeVector3d::kYAxis, 100, 100);
    view->setMode(AcGsView::kFlatShaded);
    EXPECT_EQ(At(Updated(), 100 - 40, 40), shadedBlue);
}

TEST_F(GsViews, PerspectiveMakesNearThingsLargeAndCutsAtTheEye)
{
    AcDbCircle* circle = new AcDbCircle(AcGePoint3d(50, 50, 50), AcGeVector3d::kZAxis, 10.25);
    circle->setColorIndex(1);
    Add(circle);
    Add(new AcDbLine(AcGePoint3d(50, 50.5, 0), AcGePoint3d(50, 60.5, 1000)));   // through the eye's plane
    Show(Model());
    EXPECT_EQ(At(Updated(), 60, 50), kRed);
    view->setView(view->position(), view->target(), view->upVector(), 100, 100, AcGsView::kPerspective);
    EXPECT_EQ(At(Updated(), 60, 50), kBlack);
    EXPECT_EQ(At(Updated(), 70, 50), kRed);   // half way to the eye: twice as large
    for (int y = 0; y < 40; ++y)
        EXPECT_EQ(At(Updated(), 50, y) == kWhite, false) << y;   // nothing comes from behind the eye
}

TEST_F(GsViews, FrozenLayersAndPartsOfTheDevice)
{
    const AcDbObjectId layer = AddLayer(L"A", 1);
    Add(Line(10, 50, 90, 50, layer));
    Show(Model());
    view->freezeLayer(layer);
    EXPECT_EQ(At(Updated(), 50, 50), kBlack);
    view->clearFrozenLayers();
    view->setViewport(AcGePoint2d(0, 0), AcGePoint2d(0.5, 0.5));   // the lower left quarter
    const Image& picture = Updated();
    EXPECT_EQ(At(picture, 25, 25), kRed);
    EXPECT_EQ(At(picture, 75, 25), kBlack);
    AcGsDCRect rect;
    view->getViewport(rect);
    EXPECT_EQ(rect.m_max, AcGsDCPoint(50, 50));
    view->hide();
    EXPECT_EQ(At(Updated(), 25, 25), kBlack);
}

}   // namespace
