// Windows calls for painting, the mouse, the keys, timers and messages.
#include "../win/WinAnswer.h"
#include "WindowQueue.h"
#include "WindowTable.h"
#include "WinUser.h"

namespace {

using namespace KxPlat;

bool IsThere(HWND window)
{
    if (FindWindowOf(window) == nullptr)
        FailWith(ERROR_INVALID_WINDOW_HANDLE);
    return FindWindowOf(window) != nullptr;
}

WORD ShapeOf(HCURSOR cursor)
{
    return WORD(reinterpret_cast<uintptr_t>(cursor));
}

HCURSOR CursorOf(WORD shape)
{
    return reinterpret_cast<HCURSOR>(uintptr_t(shape));
}

}   // namespace

BOOL InvalidateRect(HWND window, LPCRECT, BOOL erase)
{
    InvalidateWindow(window, erase != FALSE);
    return IsThere(window);
}

BOOL ValidateRect(HWND window, LPCRECT)
{
    ValidateWindow(window);
    return IsThere(window);
}

BOOL UpdateWindow(HWND window)
{
    PaintNow(window);
    return IsThere(window);
}

HWND SetFocus(HWND window)
{
    return window != nullptr && !IsThere(window) ? nullptr : FocusOn(window);
}

HWND GetFocus()
{
    return FocusWindow();
}

HWND SetCapture(HWND window)
{
    return CaptureOn(window);
}

HWND GetCapture()
{
    return CaptureWindow();
}

BOOL ReleaseCapture()
{
    CaptureOn(nullptr);
    return TRUE;
}

HCURSOR LoadCursorW(HINSTANCE, LPCWSTR name)
{
    return IS_INTRESOURCE(name) ? CursorOf(WORD(reinterpret_cast<uintptr_t>(name))) : nullptr;
}

HCURSOR SetCursor(HCURSOR cursor)
{
    return CursorOf(ChangeCursor(ShapeOf(cursor)));
}

HCURSOR GetCursor()
{
    return CursorOf(CursorShape());
}

BOOL GetCursorPos(LPPOINT point)
{
    if (point == nullptr)
        return FALSE;
    *point = CursorPlace();
    return TRUE;
}

BOOL SetCursorPos(int x, int y)
{
    SetCursorPlace({x, y});
    return TRUE;
}

// --- messages ---------------------------------------------------------------------------------------------------

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure)
{
    return StartTimer(window, id, milliseconds, procedure);
}

BOOL KillTimer(HWND window, UINT_PTR id)
{
    return StopTimer(window, id);
}

BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (window != nullptr && !IsThere(window))
        return FALSE;
    PostNative(window, message, wParam, lParam);
    return TRUE;
}

// Of all windows in the order of their coming: a program that asks for one window only or for a range is rare, and
// is not told of others.
BOOL PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove)
{
    MSG next;
    if (message == nullptr || !TakeMessage(next, false))
        return FALSE;
    const bool isWanted = (window == nullptr || next.hwnd == window) &&
                          ((first == 0 && last == 0) || (next.message >= first && next.message <= last));
    if (!isWanted)
        return FALSE;
    TakeMessage(*message, (remove & PM_REMOVE) != 0);
    return TRUE;
}

BOOL TranslateMessage(const MSG*)
{
    return FALSE;   // backends send WM_CHAR themselves
}

LRESULT DispatchMessageW(const MSG* message)
{
    return message == nullptr ? 0 : DispatchNative(*message);
}
