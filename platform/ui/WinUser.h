// Windows of this process: the calls to make, place, show and address them, with their documented names and values.
#pragma once
#include "../win/KxWinTypes.h"

// clang-format off
#define ERROR_CANNOT_FIND_WND_CLASS 1407U
#define WM_CAPTURECHANGED 0x0215
#define WM_NCCREATE 0x0081
#define WM_NCHITTEST 0x0084
#define WM_CONTEXTMENU 0x007B
#define WM_WINDOWPOSCHANGED 0x0047
#define WHEEL_DELTA 120
#define GET_WHEEL_DELTA_WPARAM(w) (static_cast<short>(HIWORD(w)))
#define GET_KEYSTATE_WPARAM(w) (LOWORD(w))
#define GET_X_LPARAM(l) (static_cast<int>(static_cast<short>(LOWORD(l))))
#define GET_Y_LPARAM(l) (static_cast<int>(static_cast<short>(HIWORD(l))))
#define MK_LBUTTON 0x0001
#define MK_RBUTTON 0x0002
#define MK_SHIFT 0x0004
#define MK_CONTROL 0x0008
#define MK_MBUTTON 0x0010
#define HTTRANSPARENT (-1)
#define HTNOWHERE 0
#define HTCLIENT 1
#define SIZE_RESTORED 0
#define SIZE_MINIMIZED 1
#define SIZE_MAXIMIZED 2
#define CS_VREDRAW 0x0001
#define CS_HREDRAW 0x0002
#define CS_DBLCLKS 0x0008
#define CW_USEDEFAULT (static_cast<int>(0x80000000))
#define WS_EX_CLIENTEDGE 0x00000200U
#define WS_EX_TOOLWINDOW 0x00000080U
#define WS_EX_TOPMOST 0x00000008U
#define WS_EX_CONTROLPARENT 0x00010000U
#define GWLP_WNDPROC (-4)
#define GWLP_HWNDPARENT (-8)
#define GWLP_ID (-12)
#define GWLP_USERDATA (-21)
#define SWP_NOSIZE 0x0001
#define SWP_NOMOVE 0x0002
#define SWP_NOZORDER 0x0004
#define SWP_NOREDRAW 0x0008
#define SWP_NOACTIVATE 0x0010
#define SWP_FRAMECHANGED 0x0020
#define SWP_SHOWWINDOW 0x0040
#define SWP_HIDEWINDOW 0x0080
#define PM_NOREMOVE 0x0000
#define PM_REMOVE 0x0001
#define GW_CHILD 5
#define GW_HWNDNEXT 2
#define IDC_ARROW MAKEINTRESOURCE(32512)
#define IDC_IBEAM MAKEINTRESOURCE(32513)
#define IDC_WAIT MAKEINTRESOURCE(32514)
#define IDC_CROSS MAKEINTRESOURCE(32515)
#define IDC_SIZEALL MAKEINTRESOURCE(32646)
#define IDC_HAND MAKEINTRESOURCE(32649)
#define TPM_LEFTALIGN 0x0000U
#define TPM_RIGHTBUTTON 0x0002U
#define TPM_NONOTIFY 0x0080U
#define TPM_RETURNCMD 0x0100U
#define COLOR_WINDOW 5
#define COLOR_BTNFACE 15
// clang-format on

struct tagWNDCLASSW {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra, cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName, lpszClassName;
};
typedef tagWNDCLASSW WNDCLASSW, WNDCLASS, *LPWNDCLASS;

typedef void(CALLBACK* TIMERPROC)(HWND, UINT, UINT_PTR, DWORD);

struct tagCREATESTRUCTW {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy, cx, y, x;
    LONG style;
    LPCWSTR lpszName, lpszClass;
    DWORD dwExStyle;
};
typedef tagCREATESTRUCTW CREATESTRUCTW, CREATESTRUCT, *LPCREATESTRUCT;

extern "C" {
// 0 when the name is taken. Names are those of this process, without regard to case.
ATOM RegisterClassW(const WNDCLASSW* kind);
BOOL UnregisterClassW(LPCWSTR name, HINSTANCE module);
// WM_NCCREATE and WM_CREATE come before it returns; a WM_CREATE that answers -1 undoes it. CW_USEDEFAULT stands for 0.
HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR text, DWORD style, int x, int y, int width, int height,
                     HWND parent, HMENU idOrMenu, HINSTANCE module, LPVOID parameter);
BOOL DestroyWindow(HWND window);
LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
BOOL ShowWindow(HWND window, int command);
BOOL EnableWindow(HWND window, BOOL enable);
BOOL IsWindowVisible(HWND window);
BOOL IsWindowEnabled(HWND window);
BOOL IsChild(HWND parent, HWND window);
BOOL SetWindowTextW(HWND window, LPCWSTR text);
HWND SetParent(HWND window, HWND parent);
HWND GetDlgItem(HWND dialog, int id);
int GetDlgCtrlID(HWND window);
LONG SetWindowLongW(HWND window, int index, LONG value);
LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
LONG_PTR GetWindowLongPtrW(HWND window, int index);

BOOL GetClientRect(HWND window, LPRECT rect);
BOOL GetWindowRect(HWND window, LPRECT rect);
BOOL ClientToScreen(HWND window, LPPOINT point);
BOOL ScreenToClient(HWND window, LPPOINT point);

BOOL InvalidateRect(HWND window, LPCRECT rect, BOOL erase);
BOOL ValidateRect(HWND window, LPCRECT rect);
BOOL UpdateWindow(HWND window);
HWND SetFocus(HWND window);
HWND GetFocus();
HWND SetCapture(HWND window);
HWND GetCapture();
BOOL ReleaseCapture();
// The system's cursors only, by their IDC_ numbers.
HCURSOR LoadCursorW(HINSTANCE module, LPCWSTR name);
HCURSOR SetCursor(HCURSOR cursor);
HCURSOR GetCursor();
BOOL GetCursorPos(LPPOINT point);
BOOL SetCursorPos(int x, int y);

// A null procedure: the window gets WM_TIMER. A null window: the answer is the number of a new timer.
UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
BOOL KillTimer(HWND window, UINT_PTR id);
BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove);
BOOL TranslateMessage(const MSG* message);
LRESULT DispatchMessageW(const MSG* message);
}
