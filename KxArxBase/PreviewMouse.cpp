// The preview control's mouse: the wheel and the four kinds of drags.
#include "KxAcDbPreviewCtrl.h"
#include <algorithm>
#include <cmath>

namespace KxArxBase {

namespace {

const double kForwardZoom = 1.5, kBackwardZoom = 0.5;
const double kBallShare = 0.4;    // radius of the trackball, of the smaller side
const double kLeastZoom = 0.01;   // a zoom drag below the client area stops here
const LONG kLeastWindow = 2;      // pixels; a smaller window is a slip of the hand

// Where a place lies on the trackball, as an angle from its middle; beside the ball at its rim.
double AngleOnBall(double offset, double radius)
{
    return std::asin(std::clamp(offset / radius, -1.0, 1.0));
}

}   // namespace

AcGeVector3d CKxAcDbPreviewCtrl::WayOf(double right, double up) const
{
    AcGeVector3d way(right, up, 0);
    way.transformBy(m_view->viewingMatrix() * m_view->worldToDeviceMatrix().inverse());
    return AcGeVector3d(way.x, way.y, 0);
}

// --- the wheel -----------------------------------------------------------------------------------------------------

// One step, whatever the delta; what lies under the cursor stays there. Moving it by 1 - 1/factor of its way from the
// middle before the zoom does that: a third for 1.5, its whole way backwards for 0.5. A step back right after one
// forward at the same place takes that one back.
BOOL CKxAcDbPreviewCtrl::OnMouseWheel(UINT, short delta, CPoint screen)
{
    if (m_view == nullptr)
        return FALSE;
    CPoint place = screen;
    ScreenToClient(&place);
    const CRect rect = ClientRect();
    const CPoint middle((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);   // a whole pixel
    const double right = place.x - middle.x, up = middle.y - place.y;
    if (place.x != m_wheelPlace.x || place.y != m_wheelPlace.y)
        m_stepsForward = 0;
    m_wheelPlace = place;
    double factor = kForwardZoom;
    if (delta < 0)
        factor = m_stepsForward > 0 ? 1 / kForwardZoom : kBackwardZoom;
    m_stepsForward = std::max(m_stepsForward + (delta < 0 ? -1 : 1), 0);
    const double share = 1 - 1 / factor;
    m_view->dolly(WayOf(share * right, share * up));
    m_view->zoom(factor);
    Invalidate();
    return TRUE;
}

// --- drags ---------------------------------------------------------------------------------------------------------

void CKxAcDbPreviewCtrl::BeginDrag(CPoint place)
{
    SetCapture();
    ::SetCursor(m_cursors[m_isOrbiting != 0 ? 1 : m_isZooming != 0 || m_isWindowZooming != 0 ? 2 : 0]);
    m_start = m_last = place;
    m_stepsForward = 0;
}

void CKxAcDbPreviewCtrl::OnLButtonDown(UINT, CPoint place)
{
    if (m_view == nullptr)
        return;
    SetFocus();
    const bool isLocked = (m_mode & kZoomLock) != 0;
    if ((m_mode & kWindowZoom) != 0 && !isLocked) {
        m_isWindowZooming = 1;
    } else if ((m_mode & kPan) != 0) {
        m_isPanning = 1;
    } else if ((m_mode & kOrbit) != 0) {
        m_isOrbiting = 1;
    } else if ((m_mode & kZoom) != 0 && !isLocked) {
        m_isZooming = 1;
        m_zoomFactor = 1.0f;
    }
    BeginDrag(place);
}

void CKxAcDbPreviewCtrl::OnLButtonUp(UINT, CPoint)
{
    if (m_view == nullptr)
        return;
    ::ReleaseCapture();
    if (m_isWindowZooming != 0 && (m_mode & kZoomLock) == 0) {
        ZoomToWindow();
        m_mode &= ~kWindowZoom;
    }
    m_isPanning = m_isOrbiting = m_isZooming = m_isWindowZooming = 0;
    m_zoomFactor = 1.0f;
    Invalidate();
}

void CKxAcDbPreviewCtrl::OnMButtonDown(UINT, CPoint place)
{
    if (m_view == nullptr)
        return;
    SetFocus();
    m_isPanning = 1;
    BeginDrag(place);
}

// The capture stays with the control, as the focus does; the next left click gives it back.
void CKxAcDbPreviewCtrl::OnMButtonUp(UINT, CPoint place)
{
    if (m_view == nullptr)
        return;
    m_isPanning = 0;
    SetFocus();
    BeginDrag(place);
}

void CKxAcDbPreviewCtrl::OnMouseMove(UINT, CPoint place)
{
    if (m_view == nullptr)
        return;
    if (m_isZooming != 0)
        ZoomTo(place);
    else if (m_isPanning != 0)
        PanTo(place);
    else if (m_isOrbiting != 0)
        OrbitTo(place);
    else if (m_isWindowZooming == 0 || (m_mode & kZoomLock) != 0) {
        SetFocus();
        return;
    }
    m_last = place;
    Invalidate();
}

void CKxAcDbPreviewCtrl::ZoomTo(CPoint place)
{
    const double height = std::max<double>(ClientRect().Height(), 1);
    const double factor = std::max((height - (place.y - m_start.y)) / height, kLeastZoom);
    m_view->zoom(factor / m_zoomFactor);
    m_zoomFactor = float(factor);
}

void CKxAcDbPreviewCtrl::PanTo(CPoint place)
{
    m_view->dolly(-WayOf(place.x - m_last.x, m_last.y - place.y));
}

// The drawing turns as a ball under the mouse, so the camera goes the other way.
void CKxAcDbPreviewCtrl::OrbitTo(CPoint place)
{
    const CRect rect = ClientRect();
    const double radius = std::max(kBallShare * std::min(rect.Width(), rect.Height()), 1.0);
    const CPoint centre = rect.CenterPoint();
    const double toRight = AngleOnBall(place.x - centre.x, radius) - AngleOnBall(m_last.x - centre.x, radius);
    const double down = AngleOnBall(place.y - centre.y, radius) - AngleOnBall(m_last.y - centre.y, radius);
    m_view->orbit(-down, -toRight);
}

// The dragged rectangle's middle comes to that of the window, and all of it is seen.
void CKxAcDbPreviewCtrl::ZoomToWindow()
{
    const CRect rect = ClientRect();
    const LONG width = std::abs(m_last.x - m_start.x), height = std::abs(m_last.y - m_start.y);
    if (width < kLeastWindow || height < kLeastWindow || rect.IsRectEmpty())
        return;
    const double right = (m_start.x + m_last.x) / 2.0 - (rect.left + rect.right) / 2.0;
    const double up = (rect.top + rect.bottom) / 2.0 - (m_start.y + m_last.y) / 2.0;
    m_view->dolly(WayOf(right, up));
    m_view->zoom(std::min(double(rect.Width()) / double(width), double(rect.Height()) / double(height)));
}

}   // namespace KxArxBase
