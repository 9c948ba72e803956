// The preview control's camera: extents, preset views, projection, shading.
#include "KxAcDbPreviewCtrl.h"
#include "Opened.h"
#include "resources/resource.h"
#include <algorithm>
#include <cmath>
#include <iterator>

namespace KxArxBase {

namespace {

const double kMargin = 1.05;          // of the extents
const double kEyeDistance = 100000;   // of preset views, drawing units
const double kNearEye = 1.5;          // of a view that becomes perspective, in sizes of its field
const unsigned int kFirstMode = 2;    // of the view, for the first shading of the menu

struct Preset {
    unsigned int id;
    AcGeVector3d toEye, up;
};
const Preset kPresets[] = {
    {ID_PREVIEW_TOP, {0, 0, 1}, {0, 1, 0}},          {ID_PREVIEW_BOTTOM, {0, 0, -1}, {0, 1, 0}},
    {ID_PREVIEW_FRONT, {0, -1, 0}, {0, 0, 1}},       {ID_PREVIEW_BACK, {0, 1, 0}, {0, 0, 1}},
    {ID_PREVIEW_LEFT, {-1, 0, 0}, {0, 0, 1}},        {ID_PREVIEW_RIGHT, {1, 0, 0}, {0, 0, 1}},
    {ID_PREVIEW_SOUTH_WEST, {-1, -1, 1}, {0, 0, 1}}, {ID_PREVIEW_SOUTH_EAST, {1, -1, 1}, {0, 0, 1}},
    {ID_PREVIEW_NORTH_EAST, {1, 1, 1}, {0, 0, 1}},   {ID_PREVIEW_NORTH_WEST, {-1, 1, 1}, {0, 0, 1}},
};

AcGsView::Projection ProjectionOf(const AcGsView& view)
{
    return view.isPerspective() ? AcGsView::kPerspective : AcGsView::kParallel;
}

bool IsEmpty(const AcDbExtents& extents)
{
    return extents.minPoint().x > extents.maxPoint().x;
}

AcGePoint3d CentreOf(const AcDbExtents& extents)
{
    const AcGePoint3d min = extents.minPoint(), max = extents.maxPoint();
    return min + (max - min) * 0.5;
}

// A field of one line has still a height.
void Widen(double& width, double& height)
{
    if (width <= 0 && height <= 0)
        width = height = 1;
    if (width <= 0)
        width = height;
    if (height <= 0)
        height = width;
}

// What the drawing's box takes up across a direction of view.
double SizeAlong(const AcDbExtents& extents, const AcGeVector3d& axis)
{
    const AcGeVector3d size = extents.maxPoint() - extents.minPoint();
    return std::abs(size.x * axis.x) + std::abs(size.y * axis.y) + std::abs(size.z * axis.z);
}

// Plan views have Y upwards, all others Z.
AcGeVector3d UpFor(const AcGeVector3d& toEye)
{
    const bool isPlan = std::abs(toEye.x) < 1e-9 && std::abs(toEye.y) < 1e-9;
    return isPlan ? AcGeVector3d(0, 1, 0) : AcGeVector3d(0, 0, 1);
}

}   // namespace

bool CKxAcDbPreviewCtrl::GetActiveViewPortInfo(double& height, double& width, AcGePoint3d& target,
                                               AcGeVector3d& viewDir, double& twist, int useCenter)
{
    AcDbViewportTable* table = nullptr;
    if (m_db == nullptr || m_db->getSymbolTable(table, AcDb::kForRead) != Acad::eOk)
        return false;
    AcDbViewportTableRecord* record = nullptr;
    Acad::ErrorStatus es = table->getAt(L"*Active", record, AcDb::kForRead);
    table->close();
    const Opened<AcDbViewportTableRecord> active(record, es);
    if (!active)
        return false;
    height = active->height();
    width = active->width();
    target = active->target();
    viewDir = active->viewDirection();
    twist = active->viewTwist();
    if (useCenter == 0 || viewDir.isZeroLength())
        return true;
    // The centre lies in the plane of the view. Of the drawing at work the host may know it better; one without a
    // screen leaves its variable at the origin.
    AcGePoint2d center = active->centerPoint();
    resbuf seen = {};
    const bool isAtWork = acdbHostApplicationServices()->workingDatabase() == m_db;
    if (isAtWork && acedGetVar(L"VIEWCTR", &seen) == RTNORM && seen.restype == RT3DPOINT &&
        (seen.resval.rpoint[X] != 0 || seen.resval.rpoint[Y] != 0))
        center = AcGePoint2d(seen.resval.rpoint[X], seen.resval.rpoint[Y]);
    const AcGeVector3d toEye = viewDir.normal();
    AcGeVector3d right = UpFor(toEye).crossProduct(toEye).normal();
    AcGeVector3d up = toEye.crossProduct(right);
    right.rotateBy(-twist, toEye);
    up.rotateBy(-twist, toEye);
    target = target + right * center.x + up * center.y;
    return true;
}

void CKxAcDbPreviewCtrl::ShowActiveView()
{
    double height = 0, width = 0, twist = 0;
    AcGePoint3d target;
    AcGeVector3d toEye;
    const bool isKnown = GetActiveViewPortInfo(height, width, target, toEye, twist, 1);
    const AcGeVector3d plan(0, 0, 1);
    const AcGeVector3d direction = isKnown && !toEye.isZeroLength() ? toEye.normal() : plan;
    AcGeVector3d up = UpFor(direction);
    up.rotateBy(-twist, direction);
    Widen(width, height);
    m_view->setView(target + direction * kEyeDistance, target, up, width, height);
    if (!isKnown)
        ZoomExtent();
}

void CKxAcDbPreviewCtrl::ZoomExtent()
{
    if (m_view == nullptr || IsEmpty(m_extents))
        return;
    const AcGeVector3d toEye = m_view->position() - m_view->target();
    const AcGeVector3d right = m_view->upVector().crossProduct(toEye).normal();
    const AcGeVector3d up = toEye.crossProduct(right).normal();
    double width = kMargin * SizeAlong(m_extents, right), height = kMargin * SizeAlong(m_extents, up);
    Widen(width, height);
    const AcGePoint3d target = CentreOf(m_extents);
    m_view->setView(target + toEye, target, up, width, height, ProjectionOf(*m_view));
    m_stepsForward = 0;
    Invalidate();
}

// The field keeps the drawing's width and height from above in all views.
void CKxAcDbPreviewCtrl::SetViewMode(unsigned int menuId)
{
    const Preset* preset = std::find_if(std::begin(kPresets), std::end(kPresets),
                                        [menuId](const Preset& candidate) { return candidate.id == menuId; });
    if (m_view == nullptr || preset == std::end(kPresets))
        return;
    double width = 0, height = 0;
    AcGePoint3d target;
    if (!IsEmpty(m_extents)) {
        width = kMargin * (m_extents.maxPoint().x - m_extents.minPoint().x);
        height = kMargin * (m_extents.maxPoint().y - m_extents.minPoint().y);
        target = CentreOf(m_extents);
    }
    Widen(width, height);
    const AcGePoint3d eye = target + preset->toEye.normal() * kEyeDistance;
    m_view->setView(eye, target, preset->up, width, height, ProjectionOf(*m_view));
    m_stepsForward = 0;
    Invalidate();
}

void CKxAcDbPreviewCtrl::SetRenderMode(unsigned int menuId)
{
    if (m_view == nullptr || menuId < ID_PREVIEW_WIREFRAME || menuId > ID_PREVIEW_GOURAUD_EDGES)
        return;
    for (unsigned int id = ID_PREVIEW_WIREFRAME; id <= ID_PREVIEW_GOURAUD_EDGES; ++id)
        SetChecked(id, kUncheck);
    SetChecked(menuId, kCheck);
    m_view->setMode(AcGsView::RenderMode(kFirstMode + menuId - ID_PREVIEW_WIREFRAME));
    Invalidate();
}

// The field stays. An eye that was far away comes near enough for the perspective to be seen.
void CKxAcDbPreviewCtrl::SetProjection(bool isPerspective)
{
    if (m_view == nullptr)
        return;
    SetChecked(ID_PREVIEW_PARALLEL, isPerspective ? kUncheck : kCheck);
    SetChecked(ID_PREVIEW_PERSPECTIVE, isPerspective ? kCheck : kUncheck);
    const double width = m_view->fieldWidth(), height = m_view->fieldHeight();
    const AcGeVector3d toEye = (m_view->position() - m_view->target()).normal();
    const double distance = isPerspective ? kNearEye * std::max(width, height) : kEyeDistance;
    m_view->setView(m_view->target() + toEye * distance, m_view->target(), m_view->upVector(), width, height,
                    isPerspective ? AcGsView::kPerspective : AcGsView::kParallel);
    Invalidate();
}

// --- the menu's items ----------------------------------------------------------------------------------------------

void CKxAcDbPreviewCtrl::OnParallel()
{
    SetProjection(false);
}

void CKxAcDbPreviewCtrl::OnPerspective()
{
    SetProjection(true);
}

void CKxAcDbPreviewCtrl::OnWireFrame()
{
    SetRenderMode(ID_PREVIEW_WIREFRAME);
}

void CKxAcDbPreviewCtrl::OnHideLine()
{
    SetRenderMode(ID_PREVIEW_HIDDEN);
}

void CKxAcDbPreviewCtrl::OnFlatShareded()
{
    SetRenderMode(ID_PREVIEW_FLAT);
}

void CKxAcDbPreviewCtrl::OnGouraudSharded()
{
    SetRenderMode(ID_PREVIEW_GOURAUD);
}

void CKxAcDbPreviewCtrl::OnFlatShardedWireFrame()
{
    SetRenderMode(ID_PREVIEW_FLAT_EDGES);
}

void CKxAcDbPreviewCtrl::OnGouraudShardedWireFrame()
{
    SetRenderMode(ID_PREVIEW_GOURAUD_EDGES);
}

void CKxAcDbPreviewCtrl::OnTopView()
{
    SetViewMode(ID_PREVIEW_TOP);
}

void CKxAcDbPreviewCtrl::OnBottomView()
{
    SetViewMode(ID_PREVIEW_BOTTOM);
}

void CKxAcDbPreviewCtrl::OnFrontView()
{
    SetViewMode(ID_PREVIEW_FRONT);
}

void CKxAcDbPreviewCtrl::OnBackView()
{
    SetViewMode(ID_PREVIEW_BACK);
}

void CKxAcDbPreviewCtrl::OnLeftView()
{
    SetViewMode(ID_PREVIEW_LEFT);
}

void CKxAcDbPreviewCtrl::OnRightView()
{
    SetViewMode(ID_PREVIEW_RIGHT);
}

void CKxAcDbPreviewCtrl::OnSWView()
{
    SetViewMode(ID_PREVIEW_SOUTH_WEST);
}

void CKxAcDbPreviewCtrl::OnSEView()
{
    SetViewMode(ID_PREVIEW_SOUTH_EAST);
}

void CKxAcDbPreviewCtrl::OnNEView()
{
    SetViewMode(ID_PREVIEW_NORTH_EAST);
}

void CKxAcDbPreviewCtrl::OnNWView()
{
    SetViewMode(ID_PREVIEW_NORTH_WEST);
}

}   // namespace KxArxBase
