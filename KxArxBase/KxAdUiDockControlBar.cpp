#include "KxAdUiDockControlBar.h"

namespace KxArxBase {

namespace {

const int kBarStyle = 1;
const LONG kGapAbove = 2;   // pixels
const DWORD kShowStyle = WS_CHILD | WS_VISIBLE | DS_SETFONT | DS_3DLOOK;

// While the bar is laid out the host's resources come first.
class HostResources {
public:
    HostResources() { acDocManager->pushAcadResourceHandle(); }
    ~HostResources() { acDocManager->popResourceHandle(); }
    HostResources(const HostResources&) = delete;
    HostResources& operator=(const HostResources&) = delete;
};

}   // namespace

BEGIN_MESSAGE_MAP(CKxAdUiDockControlBar, CAdUiDockControlBar)
ON_WM_SIZE()
END_MESSAGE_MAP()

CKxAdUiDockControlBar::CKxAdUiDockControlBar() : CAdUiDockControlBar(kBarStyle) {}

CKxAdUiDockControlBar::~CKxAdUiDockControlBar() = default;

void CKxAdUiDockControlBar::SetShowWnd(CWnd* window)
{
    m_showWnd = window;
    TakeIn();
}

void CKxAdUiDockControlBar::TakeIn()
{
    if (m_showWnd == nullptr || m_showWnd->GetSafeHwnd() == nullptr)
        return;
    ::SetParent(m_showWnd->GetSafeHwnd(), GetSafeHwnd());
    m_showWnd->ModifyStyle(0xFFFFFFFF, kShowStyle);
    m_showWnd->ModifyStyleEx(0xFFFFFFFF, 0);
}

void CKxAdUiDockControlBar::SizeChanged(CRect* rect, int, int)
{
    CRect below = *rect;
    below.top += kGapAbove;
    ResizeShowWnd(below);
}

void CKxAdUiDockControlBar::ResizeShowWnd(CRect& rect)
{
    if (!IsLaidOut() || m_showWnd == nullptr || m_showWnd->GetSafeHwnd() == nullptr)
        return;
    {
        const HostResources resources;
        TakeIn();
    }
    m_showWnd->ShowWindow(SW_SHOW);
    m_showWnd->MoveWindow(rect.left, rect.top, rect.Width(), rect.Height(), TRUE);
}

void CKxAdUiDockControlBar::OnSize(UINT type, int width, int height)
{
    CAdUiDockControlBar::OnSize(type, width, height);
}

}   // namespace KxArxBase
