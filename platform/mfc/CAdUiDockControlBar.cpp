#include "CAdUiDockControlBar.h"
#include "CFrameWnd.h"

namespace {

constexpr int kUsualWidth = 250, kUsualHeight = 300;   // pixels, of a bar that was given no size

}   // namespace

BEGIN_MESSAGE_MAP(CAdUiDockControlBar, CControlBar)
ON_WM_CREATE()
ON_WM_CLOSE()
ON_WM_DESTROY()
ON_WM_SIZE()
END_MESSAGE_MAP()

CAdUiDockControlBar::CAdUiDockControlBar(int style) : m_style(style)
{
    m_dwDockStyle = CBRS_ALIGN_ANY;
}

CAdUiDockControlBar::~CAdUiDockControlBar() = default;

BOOL CAdUiDockControlBar::Create(CWnd* parent, const wchar_t* title, UINT id, DWORD style, const CRect& rect,
                                 DWORD exStyle)
{
    const CRect size = rect.IsRectEmpty() ? CRect(0, 0, kUsualWidth, kUsualHeight) : rect;
    m_isLeaving = false;
    if (!CreateEx(exStyle, nullptr, title, style | WS_CHILD, size, parent, id))
        return FALSE;
    DockControlBar(AFX_IDW_DOCKBAR_LEFT);
    return TRUE;
}

BOOL CAdUiDockControlBar::Create(const wchar_t*, const wchar_t* title, DWORD style, const RECT& rect, CWnd* parent,
                                 UINT id, void*)
{
    return Create(parent, title, id, style, rect);
}

void CAdUiDockControlBar::DockControlBar(UINT dockBar, LPRECT rect)
{
    GetDockingFrame()->DockControlBar(this, dockBar, rect);
}

void CAdUiDockControlBar::FloatControlBar(const CPoint& place)
{
    GetDockingFrame()->FloatControlBar(this, place);
}

void CAdUiDockControlBar::ShowControlBar(BOOL show)
{
    GetDockingFrame()->ShowControlBar(this, show, FALSE);
}

void CAdUiDockControlBar::GetFloatingMinSize(long* width, long* height)
{
    *width = kUsualWidth / 4;
    *height = kUsualHeight / 4;
}

void CAdUiDockControlBar::SizeChanged(CRect*, int, int) {}

int CAdUiDockControlBar::OnCreate(LPCREATESTRUCT facts)
{
    const int made = CControlBar::OnCreate(facts);
    return made == 0 && !CreateControlBar(facts) ? -1 : made;
}

void CAdUiDockControlBar::OnClose()
{
    if (OnClosing())
        ShowControlBar(FALSE);
}

void CAdUiDockControlBar::OnDestroy()
{
    m_isLeaving = true;
    CControlBar::OnDestroy();
}

void CAdUiDockControlBar::OnSize(UINT type, int width, int height)
{
    CControlBar::OnSize(type, width, height);
    CRect rect;
    GetUsedRect(rect);
    SizeChanged(&rect, IsFloating(), m_style);
}
