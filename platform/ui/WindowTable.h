// The native windows of this process. A top-level window's rectangle is in screen coordinates, a child's in its
// parent's client coordinates. All of a window is its client area; frames are the backend's.
#pragma once
#include "../win/KxWinTypes.h"
#include "DialogModel.h"
#include <cstdint>
#include <string>
#include <vector>

namespace KxPlat {

class NativeWindow {
public:
    HWND handle = nullptr;
    HWND parent = nullptr;   // of a top-level window its owner
    std::wstring className;
    UINT id = 0;
    RECT rect = {0, 0, 0, 0};
    WNDPROC procedure = nullptr;
    LONG_PTR userData = 0;
    void* object = nullptr;     // of the class library
    HCURSOR cursor = nullptr;   // of its class
    COLORREF background = RGB(255, 255, 255);
    bool hasBackground = false;
    bool isInvalid = false;
    bool mustErase = false;   // before the next painting
    bool isDrawn = false;     // paints its pixels itself; a control that does not is shown by its model
    // What the window shows where it is a dialog or the control of one; their texts and states stand there.
    DialogModel* dialog = nullptr;
    DialogControl* control = nullptr;

    int Width() const { return int(rect.right - rect.left); }
    int Height() const { return int(rect.bottom - rect.top); }
    bool IsChild() const { return (Style() & WS_CHILD) != 0 && parent != nullptr; }
    bool IsVisible() const;   // itself; a parent may hide it
    bool IsEnabled() const;
    uint32_t Style() const;
    uint32_t ExStyle() const;
    const std::wstring& Text() const;
    // 0xRRGGBB, row by row, Width() times Height(); made on the first call and after each change of the size.
    std::vector<uint32_t>& Pixels();
    bool HasPixels() const { return !m_pixels.empty(); }

private:
    friend struct WindowChanges;
    uint32_t m_style = 0, m_exStyle = 0;
    std::wstring m_text;
    std::vector<uint32_t> m_pixels;
    int m_pixelWidth = 0;
};

struct WindowPlan {
    HWND parent = nullptr;
    std::wstring className;
    std::wstring text;
    uint32_t style = 0, exStyle = 0;
    RECT rect = {0, 0, 0, 0};
    UINT id = 0;
    WNDPROC procedure = nullptr;
    bool isDrawn = false;
    DialogModel* dialog = nullptr;
    DialogControl* control = nullptr;
};

// Null for a handle that names no window of this table.
NativeWindow* FindWindowOf(HWND handle);
std::vector<HWND> AllNativeWindows();   // in the order of their creation
std::vector<HWND> ChildrenOf(HWND parent);
// Enters a window without a message to it.
NativeWindow& AddWindow(const WindowPlan& plan);
// Takes a window and those below it out: WM_DESTROY from the top down, WM_NCDESTROY from the bottom up.
bool RemoveWindow(HWND handle);

// Each tells the backend, and the window what Windows tells it.
void PlaceWindow(HWND handle, const RECT& rect);
void ShowNativeWindow(HWND handle, bool visible);
void EnableNativeWindow(HWND handle, bool enabled);
void SetNativeText(HWND handle, const std::wstring& text);
void SetNativeStyle(HWND handle, uint32_t style);
void SetNativeExStyle(HWND handle, uint32_t exStyle);
void SetNativeParent(HWND handle, HWND parent);

// Screen coordinates of the upper left corner of the client area.
POINT ClientOrigin(HWND handle);
// Visible with all of its parents.
bool IsShown(HWND handle);
// The innermost visible window at a place of `top`'s client area.
HWND WindowAt(HWND top, POINT place);

// Dialog units of a font of so many points in pixels, as much as four letters' width and one letter's height.
RECT PixelsOf(const DialogRect& rect, int fontSize);

// For graphics: a whole picture for the client area, cut or filled with the background where the sizes differ.
bool PutPixels(HWND handle, const uint32_t* rgb, int width, int height);
// Pixels were changed in place; the backend is told at the end of a painting, or at once outside of one.
void TellPixels(HWND handle);
void BeginPainting(HWND handle);
void EndPainting(HWND handle);

}   // namespace KxPlat
