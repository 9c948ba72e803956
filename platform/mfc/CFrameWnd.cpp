#include "CFrameWnd.h"
#include "../ui/WindowBackend.h"
#include "../ui/WindowTable.h"

namespace {

struct Side {
    UINT dockBar;
    DWORD align;
};
const Side kSides[] = {
    {AFX_IDW_DOCKBAR_LEFT, CBRS_ALIGN_LEFT},
    {AFX_IDW_DOCKBAR_RIGHT, CBRS_ALIGN_RIGHT},
    {AFX_IDW_DOCKBAR_TOP, CBRS_ALIGN_TOP},
    {AFX_IDW_DOCKBAR_BOTTOM, CBRS_ALIGN_BOTTOM},
};

// The first wanted side that is allowed; null when there is none.
const Side* AllowedSide(UINT dockBar, DWORD allowed)
{
    for (const Side& side : kSides) {
        if ((dockBar == 0 || side.dockBar == dockBar) && (side.align & allowed) != 0)
            return &side;
    }
    return nullptr;
}

// Along the whole edge, as wide or high as the bar is.
RECT AlongEdge(UINT dockBar, const CRect& frame, const CRect& bar)
{
    switch (dockBar) {
    case AFX_IDW_DOCKBAR_LEFT:
        return {0, 0, bar.Width(), frame.Height()};
    case AFX_IDW_DOCKBAR_RIGHT:
        return {frame.Width() - bar.Width(), 0, frame.Width(), frame.Height()};
    case AFX_IDW_DOCKBAR_TOP:
        return {0, 0, frame.Width(), bar.Height()};
    default:
        return {0, frame.Height() - bar.Height(), frame.Width(), frame.Height()};
    }
}

}   // namespace

CFrameWnd* CControlBar::GetDockingFrame() const
{
    return AfxGetMainFrame();
}

// The user drags bars: the backend tells where to.
LRESULT CControlBar::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, BOOL& isHandled)
{
    if (message == KxPlat::kBarDockedMessage) {
        m_isFloating = wParam == WPARAM(KxPlat::DockSide::Floating);
        if (!m_isFloating)
            m_dockBar = UINT(wParam);
        isHandled = TRUE;
        return 0;
    }
    return CWnd::OnWndMsg(message, wParam, lParam, isHandled);
}

void CFrameWnd::DockControlBar(CControlBar* bar, UINT dockBar, LPCRECT)
{
    const Side* side = bar == nullptr ? nullptr : AllowedSide(dockBar, bar->m_dwDockStyle & m_sides);
    if (side == nullptr || bar->m_hWnd == nullptr)
        return;
    CRect rect;
    bar->GetWindowRect(rect);
    bar->m_isFloating = FALSE;
    bar->m_dockBar = side->dockBar;
    Place(*bar, rect);
}

void CFrameWnd::FloatControlBar(CControlBar* bar, CPoint place, DWORD)
{
    if (bar == nullptr || bar->m_hWnd == nullptr)
        return;
    CRect rect;
    bar->GetWindowRect(rect);
    bar->m_isFloating = TRUE;
    Place(*bar, CRect(place, rect.Size()));
}

void CFrameWnd::ShowControlBar(CControlBar* bar, BOOL show, BOOL)
{
    if (bar == nullptr || bar->m_hWnd == nullptr)
        return;
    bar->ShowWindow(show ? SW_SHOW : SW_HIDE);
    CRect rect;
    bar->GetWindowRect(rect);
    Place(*bar, rect);
}

void CFrameWnd::Place(CControlBar& bar, const RECT& floating)
{
    KxPlat::DockRequest request;
    request.bar = bar.m_hWnd;
    request.side = bar.m_isFloating ? KxPlat::DockSide::Floating : KxPlat::DockSide(bar.m_dockBar);
    request.floating = floating;
    request.isVisible = (bar.GetStyle() & WS_VISIBLE) != 0;
    request.allowed = bar.m_dwDockStyle & m_sides;
    if (KxPlat::Windows().Dock(request))
        return;
    CRect frame;
    GetClientRect(frame);
    KxPlat::PlaceWindow(bar.m_hWnd, bar.m_isFloating ? floating : AlongEdge(bar.m_dockBar, frame, floating));
}

CMDIFrameWnd* AfxGetMainFrame()
{
    static CMDIFrameWnd frame;
    if (frame.m_hWnd != nullptr)
        return &frame;
    WNDCLASSW kind = {};
    kind.lpfnWndProc = ::DefWindowProcW;
    kind.lpszClassName = KxPlat::kFrameClass;
    ::RegisterClassW(&kind);
    // Without a screen it is as large as a common one.
    frame.CreateEx(0, KxPlat::kFrameClass, L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 1600, 1000), nullptr, 0);
    return &frame;
}

CWnd* AfxGetMainWnd()
{
    return AfxGetMainFrame();
}
