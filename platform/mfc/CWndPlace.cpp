// Where windows lie, what is painted when, and who has the mouse and the keys.
#include "../ui/WindowQueue.h"
#include "CDC.h"
#include "CWnd.h"

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint)
{
    ::MoveWindow(m_hWnd, x, y, width, height, repaint);
}

void CWnd::MoveWindow(LPCRECT rect, BOOL repaint)
{
    MoveWindow(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, repaint);
}

BOOL CWnd::SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags)
{
    return ::SetWindowPos(m_hWnd, after == nullptr ? nullptr : after->m_hWnd, x, y, width, height, flags);
}

CWnd* CWnd::SetParent(CWnd* parent)
{
    return FromHandle(::SetParent(m_hWnd, parent == nullptr ? nullptr : parent->m_hWnd));
}

BOOL CWnd::IsChild(const CWnd* window) const
{
    return window != nullptr && ::IsChild(m_hWnd, window->m_hWnd);
}

void CWnd::GetClientRect(LPRECT rect) const
{
    if (!::GetClientRect(m_hWnd, rect))
        *rect = {0, 0, 0, 0};
}

void CWnd::GetWindowRect(LPRECT rect) const
{
    if (!::GetWindowRect(m_hWnd, rect))
        *rect = {0, 0, 0, 0};
}

void CWnd::ClientToScreen(LPPOINT point) const
{
    ::ClientToScreen(m_hWnd, point);
}

void CWnd::ScreenToClient(LPPOINT point) const
{
    ::ScreenToClient(m_hWnd, point);
}

void CWnd::ClientToScreen(LPRECT rect) const
{
    POINT corners[] = {{rect->left, rect->top}, {rect->right, rect->bottom}};
    for (POINT& corner : corners)
        ClientToScreen(&corner);
    *rect = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

void CWnd::ScreenToClient(LPRECT rect) const
{
    POINT corners[] = {{rect->left, rect->top}, {rect->right, rect->bottom}};
    for (POINT& corner : corners)
        ScreenToClient(&corner);
    *rect = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

CWnd* CWnd::GetFocus()
{
    return FromHandle(::GetFocus());
}

CWnd* CWnd::SetCapture()
{
    return FromHandle(::SetCapture(m_hWnd));
}

CWnd* CWnd::GetCapture()
{
    return FromHandle(::GetCapture());
}

void CWnd::Invalidate(BOOL erase)
{
    KxPlat::InvalidateWindow(m_hWnd, erase != FALSE);
}

void CWnd::InvalidateRect(LPCRECT, BOOL erase)
{
    Invalidate(erase);
}

void CWnd::UpdateWindow()
{
    KxPlat::PaintNow(m_hWnd);
}

BOOL CWnd::RedrawWindow(LPCRECT, void*, UINT)
{
    Invalidate();
    UpdateWindow();
    return m_hWnd != nullptr;
}

UINT_PTR CWnd::SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure)
{
    return m_hWnd == nullptr ? 0 : ::SetTimer(m_hWnd, id, milliseconds, procedure);
}

BOOL CWnd::KillTimer(UINT_PTR id)
{
    return ::KillTimer(m_hWnd, id);
}

CDC* CWnd::GetDC()
{
    return m_hWnd == nullptr ? nullptr : new CClientDC(this);
}

int CWnd::ReleaseDC(CDC* dc)
{
    delete dc;
    return dc != nullptr;
}
