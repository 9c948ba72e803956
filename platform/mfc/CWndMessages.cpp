// How messages reach the members of a window's class.
#include "../ui/WindowQueue.h"
#include "../ui/WindowTable.h"
#include "CDC.h"
#include "CMenu.h"
#include "CWnd.h"
#include "WindowObjects.h"

using KxPlat::FindWindowOf;
using KxPlat::NativeWindow;

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return KxPlat::CallNativeWindow(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::PostMessageW(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PreTranslateMessage(MSG*)
{
    return FALSE;
}

LRESULT CWnd::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND window = m_hWnd;
    const auto before = m_current;
    m_current = {message, wParam, lParam};
    const LRESULT result = WindowProc(message, wParam, lParam);
    // A handler may have deleted the object together with its window.
    if (FromHandlePermanent(window) != this)
        return result;
    m_current = before;
    if (message == WM_NCDESTROY) {
        Forget();
        PostNcDestroy();
    }
    return result;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    BOOL isHandled = FALSE;
    const LRESULT result = OnWndMsg(message, wParam, lParam, isHandled);
    return isHandled ? result : DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, BOOL& isHandled)
{
    LRESULT result = 0;
    if (message == WM_COMMAND) {
        isHandled = OnCommand(wParam, lParam);
        return isHandled ? 1 : 0;
    }
    if (message == WM_NOTIFY)
        isHandled = OnNotify(wParam, lParam, &result);
    else if (const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(message, 0, 0))
        isHandled = RunHandler(entry->handler, wParam, lParam, result);
    return result;
}

LRESULT CWnd::Default()
{
    return DefWindowProc(m_current.message, m_current.wParam, m_current.lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const bool isDialog = m_windows != nullptr && m_control == nullptr;
    if (message == WM_CLOSE && isDialog) {
        OnCommand(IDCANCEL, 0);   // as the box in a dialog's caption
        return 0;
    }
    if (m_before != nullptr && m_before != KxPlat::WindowObjects::Procedure)
        return m_before(m_hWnd, message, wParam, lParam);
    return ::DefWindowProcW(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::RunHandler(const AFX_MSGHANDLER& handler, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    const int low = GET_X_LPARAM(lParam), high = GET_Y_LPARAM(lParam);
    const CPoint place(low, high);
    CWnd* const other = FromHandle(reinterpret_cast<HWND>(wParam));
    typedef AFX_MSGHANDLER H;
    switch (handler.kind) {
    case H::Plain:
        (this->*handler.plain)();
        return TRUE;
    case H::Message:
        result = (this->*handler.message)(wParam, lParam);
        return TRUE;
    case H::Timer:
        (this->*handler.timer)(wParam);
        return TRUE;
    case H::Size:
        (this->*handler.size)(UINT(wParam), low, high);
        return TRUE;
    case H::Move:
        (this->*handler.move)(low, high);
        return TRUE;
    case H::Mouse:
        (this->*handler.mouse)(UINT(wParam), place);
        return TRUE;
    case H::Wheel:   // one that says no leaves it to the window's default
        result = (this->*handler.wheel)(LOWORD(wParam), GET_WHEEL_DELTA_WPARAM(wParam), place);
        return result != 0;
    case H::Key:
        (this->*handler.key)(UINT(wParam), LOWORD(lParam), HIWORD(lParam));
        return TRUE;
    case H::Window:
        (this->*handler.window)(m_current.message == WM_CAPTURECHANGED ? FromHandle(reinterpret_cast<HWND>(lParam))
                                                                       : other);
        return TRUE;
    case H::HitTest:
        result = (this->*handler.hitTest)(place);
        return TRUE;
    case H::Erase:
        result = (this->*handler.erase)(CDC::FromHandle(reinterpret_cast<HDC>(wParam)));
        return TRUE;
    case H::Cursor:
        result = (this->*handler.cursor)(other, UINT(low), HIWORD(lParam));
        return result != 0;
    case H::Create:
        result = (this->*handler.create)(reinterpret_cast<LPCREATESTRUCT>(lParam));
        return TRUE;
    case H::Context:
        (this->*handler.context)(other, place);
        return TRUE;
    case H::Show:
        (this->*handler.show)(BOOL(wParam), UINT(lParam));
        return TRUE;
    case H::InitMenu:
        (this->*handler.initMenu)(CMenu::FromHandle(reinterpret_cast<HMENU>(wParam)), LOWORD(lParam), HIWORD(lParam));
        return TRUE;
    default:
        return FALSE;
    }
}
