// Messages to windows of this process: the queue, timers, paintings, and the way of the user's mouse and keys.
#pragma once
#include "../win/KxWinTypes.h"

namespace KxPlat {

// Calls the window's procedure; 0 for a window that is not there.
LRESULT CallNativeWindow(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

// Sees each message that is taken from the queue before its window does; true swallows it. A function that is
// there already counts once. They run newest first.
typedef bool (*MessageFilter)(MSG& message);
void AddMessageFilter(MessageFilter filter);
void RemoveMessageFilter(MessageFilter filter);

void PostNative(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// Hands one message on at once: filters first, then its window. What backends call for keys and the like; the window
// may be the host's own main window, which only filters know.
LRESULT DeliverMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// The mouse over `window` at a place of its client area. It goes where the capture is, else where WM_NCHITTEST
// leads. `keys` are MK_ flags, of WM_MOUSEWHEEL with the delta in the high word. Places may lie outside of the window.
LRESULT DeliverMouse(HWND window, UINT message, WPARAM keys, POINT place);

// Deals with what waits: messages, timers that are due, paintings. Answers how many messages it handed on. At most
// as many as waited at the call, so a window that posts to itself does not hold it.
int PumpWindows();
bool HasWaitingMessages();
// Takes the first message that waits (paintings and timers last) without handing it on; false when there is none.
bool TakeMessage(MSG& message, bool remove);
LRESULT DispatchNative(const MSG& message);
// Calls the filters; true when one of them swallowed the message.
bool FilterMessage(MSG& message);

void InvalidateWindow(HWND window, bool erase = true);
void ValidateWindow(HWND window);
void PaintNow(HWND window);   // WM_PAINT at once when something is invalid

HWND FocusWindow();
HWND FocusOn(HWND window);   // the one that had it
HWND CaptureWindow();
HWND CaptureOn(HWND window);
POINT CursorPlace();   // of the screen; where the mouse was last
void SetCursorPlace(POINT place);
WORD CursorShape();   // IDC_ number
WORD ChangeCursor(WORD shape);

// The procedure is called in place of the window.
typedef void (*TimerProcedure)(HWND window, UINT message, UINT_PTR id, DWORD time);
UINT_PTR StartTimer(HWND window, UINT_PTR id, UINT milliseconds, TimerProcedure procedure = nullptr);
bool StopTimer(HWND window, UINT_PTR id);

// Called when a window leaves the table.
void ForgetWindow(HWND window);

}   // namespace KxPlat
