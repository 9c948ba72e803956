#include "WinUser.h"
#include "../win/CharTables.h"
#include "../win/TopWindows.h"
#include "../win/WinAnswer.h"
#include "WindowClasses.h"
#include "WindowQueue.h"
#include "WindowTable.h"
#include <algorithm>
#include <map>

namespace {

using namespace KxPlat;

struct WindowClass {
    WNDPROC procedure = nullptr;
    HCURSOR cursor = nullptr;
    HBRUSH background = nullptr;
};

// By name in capitals. Dialogs' own controls are made by their templates, not here.
std::map<std::wstring, WindowClass>& Classes()
{
    static std::map<std::wstring, WindowClass> classes;
    return classes;
}

std::wstring ClassKey(LPCWSTR name)
{
    if (name == nullptr || IS_INTRESOURCE(name))
        return L"";
    std::wstring key = name;
    for (wchar_t& letter : key)
        letter = Upper(letter);
    return key;
}

NativeWindow* Found(HWND handle)
{
    NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr)
        FailWith(ERROR_INVALID_WINDOW_HANDLE);
    return window;
}

// The colours of the system; other brushes are the window's own matter.
void SetBackground(NativeWindow& window, HBRUSH brush)
{
    const auto number = reinterpret_cast<uintptr_t>(brush);
    window.hasBackground = number == COLOR_WINDOW + 1 || number == COLOR_BTNFACE + 1;
    if (number == COLOR_BTNFACE + 1)
        window.background = RGB(240, 240, 240);
}

bool TellCreated(HWND handle, CREATESTRUCTW& facts)
{
    if (CallNativeWindow(handle, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&facts)) == FALSE)
        return false;
    return CallNativeWindow(handle, WM_CREATE, 0, reinterpret_cast<LPARAM>(&facts)) != -1;
}

}   // namespace

// --- classes and windows ----------------------------------------------------------------------------------------

ATOM RegisterClassW(const WNDCLASSW* kind)
{
    const std::wstring key = kind == nullptr ? L"" : ClassKey(kind->lpszClassName);
    if (key.empty() || kind->lpfnWndProc == nullptr || Classes().count(key) != 0)
        return ATOM(FailWith(ERROR_INVALID_PARAMETER));
    Classes()[key] = {kind->lpfnWndProc, kind->hCursor, kind->hbrBackground};
    return ATOM(0xC000 + Classes().size());
}

BOOL UnregisterClassW(LPCWSTR name, HINSTANCE)
{
    return Classes().erase(ClassKey(name)) != 0;
}

HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR text, DWORD style, int x, int y, int width, int height,
                     HWND parent, HMENU idOrMenu, HINSTANCE module, LPVOID parameter)
{
    const CREATESTRUCTW facts = {parameter, module, idOrMenu,    parent, height,    width,
                                 y,         x,      LONG(style), text,   className, exStyle};
    return MakeWindow(facts, nullptr, nullptr);
}

HWND KxPlat::MakeWindow(const CREATESTRUCTW& facts, WindowMade made, void* object)
{
    const auto kind = Classes().find(ClassKey(facts.lpszClass));
    const bool isChild = (facts.style & LONG(WS_CHILD)) != 0;
    if (kind == Classes().end() || (isChild && FindWindowOf(facts.hwndParent) == nullptr)) {
        FailWith(kind == Classes().end() ? ERROR_CANNOT_FIND_WND_CLASS : ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    const auto place = [](int value) { return value == CW_USEDEFAULT ? 0 : value; };
    const LONG width = std::max(place(facts.cx), 0), height = std::max(place(facts.cy), 0);
    const LONG left = place(facts.x), top = place(facts.y);
    WindowPlan plan;
    plan.parent = facts.hwndParent;
    plan.className = facts.lpszClass;
    plan.text = facts.lpszName == nullptr ? L"" : facts.lpszName;
    plan.style = uint32_t(facts.style) & ~WS_VISIBLE;
    plan.exStyle = facts.dwExStyle;
    plan.rect = {left, top, left + width, top + height};
    plan.id = isChild ? UINT(reinterpret_cast<uintptr_t>(facts.hMenu)) : 0;
    plan.procedure = kind->second.procedure;
    plan.isDrawn = true;
    NativeWindow& window = AddWindow(plan);
    window.cursor = kind->second.cursor;
    window.isInvalid = window.mustErase = true;
    SetBackground(window, kind->second.background);
    const HWND handle = window.handle;
    if (made != nullptr)
        made(window, object);
    CREATESTRUCTW told = facts;
    if (!TellCreated(handle, told)) {
        RemoveWindow(handle);
        return nullptr;
    }
    CallNativeWindow(handle, WM_SIZE, SIZE_RESTORED, MAKELPARAM(WORD(width), WORD(height)));
    CallNativeWindow(handle, WM_MOVE, 0, MAKELPARAM(WORD(left), WORD(top)));
    if ((uint32_t(facts.style) & WS_VISIBLE) != 0)
        ShowNativeWindow(handle, true);
    return FindWindowOf(handle) == nullptr ? nullptr : handle;
}

BOOL DestroyWindow(HWND window)
{
    return Found(window) != nullptr && RemoveWindow(window);
}

LRESULT DefWindowProcW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr)
        return 0;
    switch (message) {
    case WM_NCCREATE:
        return TRUE;
    case WM_NCHITTEST:
        return HTCLIENT;
    case WM_CLOSE:
        RemoveWindow(handle);
        return 0;
    case WM_PAINT:
        ValidateWindow(handle);
        return 0;
    case WM_SETTEXT:
        SetNativeText(handle, lParam == 0 ? L"" : reinterpret_cast<LPCWSTR>(lParam));
        return TRUE;
    case WM_GETTEXTLENGTH:
        return LRESULT(window->Text().size());
    case WM_GETTEXT:
        return GetWindowTextW(handle, reinterpret_cast<LPWSTR>(lParam), int(wParam));
    case WM_SETCURSOR:
        // A parent may set another one.
        if (window->IsChild() && CallNativeWindow(window->parent, message, wParam, lParam) != 0)
            return TRUE;
        if (window->cursor != nullptr && LOWORD(lParam) == HTCLIENT && handle == reinterpret_cast<HWND>(wParam))
            SetCursor(window->cursor);
        return FALSE;
    case WM_RBUTTONUP: {
        POINT place = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
        ClientToScreen(handle, &place);
        return CallNativeWindow(handle, WM_CONTEXTMENU, WPARAM(handle), MAKELPARAM(WORD(place.x), WORD(place.y)));
    }
    case WM_CONTEXTMENU:
    case WM_MOUSEWHEEL:
        return window->IsChild() ? CallNativeWindow(window->parent, message, wParam, lParam) : 0;
    default:
        return 0;
    }
}

LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return procedure == nullptr ? 0 : procedure(window, message, wParam, lParam);
}

// --- place and state --------------------------------------------------------------------------------------------

BOOL MoveWindow(HWND handle, int x, int y, int width, int height, BOOL repaint)
{
    if (Found(handle) == nullptr)
        return FALSE;
    PlaceWindow(handle, {x, y, x + width, y + height});
    if (repaint)
        InvalidateWindow(handle);
    return TRUE;
}

BOOL SetWindowPos(HWND handle, HWND, int x, int y, int width, int height, UINT flags)
{
    const NativeWindow* window = Found(handle);
    if (window == nullptr)
        return FALSE;
    const LONG left = (flags & SWP_NOMOVE) != 0 ? window->rect.left : x;
    const LONG top = (flags & SWP_NOMOVE) != 0 ? window->rect.top : y;
    const LONG wide = (flags & SWP_NOSIZE) != 0 ? window->Width() : width;
    const LONG high = (flags & SWP_NOSIZE) != 0 ? window->Height() : height;
    PlaceWindow(handle, {left, top, left + wide, top + high});
    if ((flags & SWP_SHOWWINDOW) != 0)
        ShowNativeWindow(handle, true);
    if ((flags & SWP_HIDEWINDOW) != 0)
        ShowNativeWindow(handle, false);
    return TRUE;
}

BOOL ShowWindow(HWND handle, int command)
{
    const NativeWindow* window = Found(handle);
    if (window == nullptr)
        return FALSE;
    const bool wasVisible = window->IsVisible();
    ShowNativeWindow(handle, command != SW_HIDE);
    return wasVisible;
}

BOOL EnableWindow(HWND handle, BOOL enable)
{
    const NativeWindow* window = Found(handle);
    if (window == nullptr)
        return FALSE;
    const bool wasDisabled = !window->IsEnabled();
    EnableNativeWindow(handle, enable != FALSE);
    return wasDisabled;
}

BOOL IsWindowVisible(HWND window)
{
    return Found(window) != nullptr && IsShown(window);
}

BOOL IsWindowEnabled(HWND handle)
{
    const NativeWindow* window = Found(handle);
    return window != nullptr && window->IsEnabled();
}

BOOL IsChild(HWND parent, HWND handle)
{
    for (const NativeWindow* window = FindWindowOf(handle); window != nullptr && window->IsChild();) {
        if (window->parent == parent)
            return TRUE;
        window = FindWindowOf(window->parent);
    }
    return FALSE;
}

BOOL SetWindowTextW(HWND handle, LPCWSTR text)
{
    if (Found(handle) == nullptr)
        return FALSE;
    CallNativeWindow(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
    return TRUE;
}

HWND SetParent(HWND handle, HWND parent)
{
    const NativeWindow* window = Found(handle);
    if (window == nullptr || (parent != nullptr && Found(parent) == nullptr))
        return nullptr;
    const HWND before = window->parent;
    SetNativeParent(handle, parent);
    return before;
}

HWND GetDlgItem(HWND dialog, int id)
{
    for (HWND child : ChildrenOf(dialog)) {
        if (FindWindowOf(child)->id == UINT(id))
            return child;
    }
    FailWith(ERROR_INVALID_WINDOW_HANDLE);
    return nullptr;
}

int GetDlgCtrlID(HWND handle)
{
    const NativeWindow* window = Found(handle);
    return window == nullptr ? 0 : int(window->id);
}

LONG SetWindowLongW(HWND window, int index, LONG value)
{
    return LONG(SetWindowLongPtrW(window, index, index == GWL_STYLE || index == GWL_EXSTYLE ? DWORD(value) : value));
}

LONG_PTR SetWindowLongPtrW(HWND handle, int index, LONG_PTR value)
{
    NativeWindow* window = Found(handle);
    if (window == nullptr)
        return 0;
    const LONG_PTR before = GetWindowLongPtrW(handle, index);
    switch (index) {
    case GWL_STYLE:
        SetNativeStyle(handle, uint32_t(value));
        break;
    case GWL_EXSTYLE:
        SetNativeExStyle(handle, uint32_t(value));
        break;
    case GWLP_WNDPROC:
        window->procedure = reinterpret_cast<WNDPROC>(value);
        break;
    case GWLP_HWNDPARENT:
        SetNativeParent(handle, reinterpret_cast<HWND>(value));
        break;
    case GWLP_ID:
        window->id = UINT(value);
        break;
    case GWLP_USERDATA:
        window->userData = value;
        break;
    default:
        FailWith(ERROR_INVALID_INDEX_VALUE);
    }
    return before;
}

LONG_PTR GetWindowLongPtrW(HWND handle, int index)
{
    const NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr)
        return GetWindowLongW(handle, index);   // of another process, perhaps
    switch (index) {
    case GWL_STYLE:
        return window->Style();
    case GWL_EXSTYLE:
        return window->ExStyle();
    case GWLP_WNDPROC:
        return reinterpret_cast<LONG_PTR>(window->procedure);
    case GWLP_HWNDPARENT:
        return reinterpret_cast<LONG_PTR>(window->parent);
    case GWLP_ID:
        return window->id;
    case GWLP_USERDATA:
        return window->userData;
    default:
        return FailWith(ERROR_INVALID_INDEX_VALUE);
    }
}

BOOL GetClientRect(HWND handle, LPRECT rect)
{
    const NativeWindow* window = Found(handle);
    if (window == nullptr || rect == nullptr)
        return FALSE;
    *rect = {0, 0, window->Width(), window->Height()};
    return TRUE;
}

BOOL GetWindowRect(HWND handle, LPRECT rect)
{
    const NativeWindow* window = Found(handle);
    if (window == nullptr || rect == nullptr)
        return FALSE;
    const POINT origin = ClientOrigin(handle);
    *rect = {origin.x, origin.y, origin.x + window->Width(), origin.y + window->Height()};
    return TRUE;
}

BOOL ClientToScreen(HWND handle, LPPOINT point)
{
    if (Found(handle) == nullptr || point == nullptr)
        return FALSE;
    const POINT origin = ClientOrigin(handle);
    *point = {point->x + origin.x, point->y + origin.y};
    return TRUE;
}

BOOL ScreenToClient(HWND handle, LPPOINT point)
{
    if (Found(handle) == nullptr || point == nullptr)
        return FALSE;
    const POINT origin = ClientOrigin(handle);
    *point = {point->x - origin.x, point->y - origin.y};
    return TRUE;
}
