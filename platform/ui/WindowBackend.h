// The seam by which native windows of this process are shown: windows that draw themselves, and their menus, cursors
// and docks. The table of windows (WindowTable.h) holds what there is; a backend shows it and hands the user's doings
// to the queue (WindowQueue.h). Every function has a harmless default, and with all of them a window lives in memory
// only: its messages and pixels are the same.
#pragma once
#include "../win/KxWinTypes.h"
#include "MenuModel.h"
#include <cstdint>
#include <string_view>
#include <vector>

namespace KxPlat {

// Where a bar is docked (AFX_IDW_DOCKBAR_ numbers), or that it floats.
enum class DockSide { Floating = 0, Top = 0xE81B, Left = 0xE81C, Right = 0xE81D, Bottom = 0xE81E };

// The bar's window and what its dock needs to know.
struct DockRequest {
    HWND bar = nullptr;
    DockSide side = DockSide::Left;
    RECT floating = {0, 0, 0, 0};   // screen; where and how large it floats, and its size before it was docked
    bool isVisible = true;
    uint32_t allowed = 0xF000;   // sides, as CBRS_ALIGN_ flags: left 0x1000, top 0x2000, right 0x4000, bottom 0x8000
};

// What a backend sends to a bar's window when the user has docked it elsewhere: wParam is a DockSide. Its cross is
// WM_CLOSE.
constexpr UINT kBarDockedMessage = 0xBFF0;

// The class of the main window in the table. A backend shows its own window for it and gives it that one's size; bars
// are its children.
constexpr wchar_t kFrameClass[] = L"KxMainFrame";

// A text as grey values, 0 to 255, row by row.
struct TextMask {
    int width = 0, height = 0;
    std::vector<uint8_t> coverage;
};

class WindowBackend {
public:
    virtual ~WindowBackend() = default;

    // The table knows the window already; its procedure has not yet heard of WM_CREATE.
    virtual void Created(HWND window) {}
    // The table still knows the window, its children are gone.
    virtual void Destroyed(HWND window) {}
    virtual void Placed(HWND window) {}   // rectangle
    virtual void Reparented(HWND window) {}
    virtual void Styled(HWND window) {}   // style, extended style, enabled
    virtual void Shown(HWND window) {}    // shown or hidden
    virtual void TextChanged(HWND window) {}
    virtual void PixelsChanged(HWND window) {}
    virtual void FocusChanged(HWND window) {}     // null: no window has it
    virtual void CaptureChanged(HWND window) {}   // null: no window has it
    // An IDC_ number; 0 hides the cursor.
    virtual void CursorChanged(WORD shape) {}

    // Shows a menu at a place of the screen until an item is chosen; 0 when none was.
    virtual UINT TrackMenu(HWND owner, const MenuModel& menu, POINT at) { return 0; }
    // A bar is to be docked, undocked, shown or hidden. True when the backend does it; it gives the bar its size with
    // PlaceWindow then and later.
    virtual bool Dock(const DockRequest& request) { return false; }
    // A text in a font of this height in pixels; an empty mask where there is no font.
    virtual TextMask DrawnText(std::wstring_view text, int height) { return {}; }

    // Messages, timers or paintings wait: PumpWindows() is to be called soon, in `milliseconds` at the latest.
    virtual void WorkPending(DWORD milliseconds) {}
};

// The backend of this process; never null. Setting null puts the one in memory back.
WindowBackend& Windows();
void SetWindowBackend(WindowBackend* backend);

}   // namespace KxPlat
