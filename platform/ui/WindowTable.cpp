#include "WindowTable.h"
#include "../win/LocalWindows.h"
#include "WindowBackend.h"
#include "WindowQueue.h"
#include <algorithm>
#include <map>
#include <memory>

namespace KxPlat {

// What only this file changes.
struct WindowChanges {
    static void Begin(NativeWindow& window, const WindowPlan& plan)
    {
        window.m_style = plan.style;
        window.m_exStyle = plan.exStyle;
        window.m_text = plan.text;
    }
    static uint32_t& Style(NativeWindow& window)
    {
        if (window.control != nullptr)
            return window.control->style;
        return window.dialog != nullptr ? window.dialog->style : window.m_style;
    }
    static uint32_t& ExStyle(NativeWindow& window)
    {
        if (window.control != nullptr)
            return window.control->exStyle;
        return window.dialog != nullptr ? window.dialog->exStyle : window.m_exStyle;
    }
    static std::wstring& Text(NativeWindow& window)
    {
        if (window.control != nullptr)
            return window.control->text;
        return window.dialog != nullptr ? window.dialog->caption : window.m_text;
    }
};

namespace {

class WindowTable : public LocalWindows {
public:
    WindowTable() { SetLocalWindows(this); }

    std::map<HWND, std::unique_ptr<NativeWindow>> windows;
    uintptr_t lastNumber = 0;
    int painting = 0;
    std::vector<HWND> painted;

    // Above the handles of windows that other processes see, which hold a process number.
    HWND NextHandle() { return reinterpret_cast<HWND>((uintptr_t(1) << 40) + 2 * ++lastNumber); }

    std::optional<WindowFacts> FactsOf(HWND handle) override
    {
        const auto found = windows.find(handle);
        if (found == windows.end())
            return {};
        const NativeWindow& window = *found->second;
        WindowFacts facts;
        facts.title = window.Text();
        facts.className = window.className;
        facts.style = window.Style();
        facts.extendedStyle = window.ExStyle();
        facts.owner = window.parent;
        return facts;
    }
    LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return CallNativeWindow(window, message, wParam, lParam);
    }
};

WindowTable& Table()
{
    // Kept to the end of the process: objects of modules may outlive any order of leaving.
    static WindowTable& table = *new WindowTable;
    return table;
}

LPARAM PackedSize(const NativeWindow& window)
{
    return MAKELPARAM(WORD(window.Width()), WORD(window.Height()));
}

void SetBit(uint32_t& bits, uint32_t bit, bool on)
{
    bits = on ? bits | bit : bits & ~bit;
}

}   // namespace

// --- one window -------------------------------------------------------------------------------------------------

uint32_t NativeWindow::Style() const
{
    return WindowChanges::Style(const_cast<NativeWindow&>(*this));
}

uint32_t NativeWindow::ExStyle() const
{
    return WindowChanges::ExStyle(const_cast<NativeWindow&>(*this));
}

const std::wstring& NativeWindow::Text() const
{
    return WindowChanges::Text(const_cast<NativeWindow&>(*this));
}

bool NativeWindow::IsVisible() const
{
    if (control != nullptr)
        return control->visible;
    return (Style() & WS_VISIBLE) != 0;
}

bool NativeWindow::IsEnabled() const
{
    if (control != nullptr)
        return control->enabled;
    return (Style() & WS_DISABLED) == 0;
}

std::vector<uint32_t>& NativeWindow::Pixels()
{
    const size_t width = size_t(std::max(Width(), 0)), height = size_t(std::max(Height(), 0));
    if (m_pixels.size() != width * height || m_pixelWidth != int(width)) {
        const uint32_t rgb = uint32_t(GetRValue(background)) << 16 | uint32_t(GetGValue(background)) << 8 |
                             uint32_t(GetBValue(background));
        m_pixels.assign(width * height, rgb);
        m_pixelWidth = int(width);
    }
    return m_pixels;
}

// --- the table --------------------------------------------------------------------------------------------------

NativeWindow* FindWindowOf(HWND handle)
{
    const auto found = Table().windows.find(handle);
    return found == Table().windows.end() ? nullptr : found->second.get();
}

std::vector<HWND> AllNativeWindows()
{
    std::vector<HWND> all;
    for (const auto& [handle, window] : Table().windows)
        all.push_back(handle);
    return all;
}

std::vector<HWND> ChildrenOf(HWND parent)
{
    std::vector<HWND> children;
    for (const auto& [handle, window] : Table().windows) {
        if (window->parent == parent && parent != nullptr)
            children.push_back(handle);
    }
    return children;
}

NativeWindow& AddWindow(const WindowPlan& plan)
{
    const HWND handle = Table().NextHandle();
    std::unique_ptr<NativeWindow>& place = Table().windows[handle];
    place = std::make_unique<NativeWindow>();
    NativeWindow& window = *place;
    window.handle = handle;
    window.parent = plan.parent;
    window.className = plan.className;
    window.rect = plan.rect;
    window.id = plan.id;
    window.procedure = plan.procedure;
    window.isDrawn = plan.isDrawn;
    window.dialog = plan.dialog;
    window.control = plan.control;
    WindowChanges::Begin(window, plan);
    Windows().Created(handle);
    return window;
}

bool RemoveWindow(HWND handle)
{
    if (FindWindowOf(handle) == nullptr)
        return false;
    CallNativeWindow(handle, WM_DESTROY);
    for (HWND child : ChildrenOf(handle))
        RemoveWindow(child);
    CallNativeWindow(handle, WM_NCDESTROY);
    if (FindWindowOf(handle) == nullptr)
        return true;
    Windows().Destroyed(handle);
    ForgetWindow(handle);
    Table().windows.erase(handle);
    return true;
}

// --- changes ----------------------------------------------------------------------------------------------------

void PlaceWindow(HWND handle, const RECT& rect)
{
    NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr)
        return;
    const RECT before = window->rect;
    const int width = window->Width(), height = window->Height();
    window->rect = {rect.left, rect.top, std::max(rect.left, rect.right), std::max(rect.top, rect.bottom)};
    const bool moved = before.left != rect.left || before.top != rect.top;
    const bool resized = window->Width() != width || window->Height() != height;
    if (!moved && !resized)
        return;
    Windows().Placed(handle);
    if (moved)
        CallNativeWindow(handle, WM_MOVE, 0, MAKELPARAM(WORD(rect.left), WORD(rect.top)));
    if (resized && FindWindowOf(handle) != nullptr) {
        CallNativeWindow(handle, WM_SIZE, 0, PackedSize(*window));
        InvalidateWindow(handle);
    }
}

void ShowNativeWindow(HWND handle, bool visible)
{
    NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr || window->IsVisible() == visible)
        return;
    SetBit(WindowChanges::Style(*window), WS_VISIBLE, visible);
    if (window->control != nullptr)
        window->control->visible = visible;
    Windows().Shown(handle);
    CallNativeWindow(handle, WM_SHOWWINDOW, visible, 0);
    if (visible)
        InvalidateWindow(handle);
}

void EnableNativeWindow(HWND handle, bool enabled)
{
    NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr || window->IsEnabled() == enabled)
        return;
    SetBit(WindowChanges::Style(*window), WS_DISABLED, !enabled);
    if (window->control != nullptr)
        window->control->enabled = enabled;
    Windows().Styled(handle);
    CallNativeWindow(handle, WM_ENABLE, enabled, 0);
}

void SetNativeText(HWND handle, const std::wstring& text)
{
    NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr)
        return;
    WindowChanges::Text(*window) = text;
    Windows().TextChanged(handle);
}

void SetNativeStyle(HWND handle, uint32_t style)
{
    NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr)
        return;
    const bool wasVisible = window->IsVisible();
    WindowChanges::Style(*window) = style;
    Windows().Styled(handle);
    if (window->IsVisible() != wasVisible)
        Windows().Shown(handle);
}

void SetNativeExStyle(HWND handle, uint32_t exStyle)
{
    NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr)
        return;
    WindowChanges::ExStyle(*window) = exStyle;
    Windows().Styled(handle);
}

void SetNativeParent(HWND handle, HWND parent)
{
    NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr || window->parent == parent)
        return;
    // A window does not hold itself.
    for (HWND above = parent; above != nullptr;) {
        if (above == handle)
            return;
        const NativeWindow* next = FindWindowOf(above);
        above = next == nullptr ? nullptr : next->parent;
    }
    window->parent = parent;
    Windows().Reparented(handle);
}

// --- places -----------------------------------------------------------------------------------------------------

POINT ClientOrigin(HWND handle)
{
    POINT origin = {0, 0};
    for (const NativeWindow* window = FindWindowOf(handle); window != nullptr;) {
        origin.x += window->rect.left;
        origin.y += window->rect.top;
        window = window->IsChild() ? FindWindowOf(window->parent) : nullptr;
    }
    return origin;
}

bool IsShown(HWND handle)
{
    const NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr || !window->IsVisible())
        return false;
    return !window->IsChild() || FindWindowOf(window->parent) == nullptr || IsShown(window->parent);
}

HWND WindowAt(HWND top, POINT place)
{
    // Later windows lie above earlier ones.
    const std::vector<HWND> children = ChildrenOf(top);
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
        const NativeWindow* window = FindWindowOf(*child);
        const RECT& rect = window->rect;
        const bool isInside =
            place.x >= rect.left && place.x < rect.right && place.y >= rect.top && place.y < rect.bottom;
        if (isInside && window->IsChild() && window->IsVisible())
            return WindowAt(*child, {place.x - rect.left, place.y - rect.top});
    }
    return top;
}

RECT PixelsOf(const DialogRect& rect, int fontSize)
{
    // Letters of a font of 8 points are 6 pixels wide on the average and 13 high.
    const double across = 6.0 * fontSize / 8 / 4, down = 13.0 * fontSize / 8 / 8;
    const LONG left = LONG(rect.x * across + 0.5), top = LONG(rect.y * down + 0.5);
    return {left, top, left + LONG(rect.width * across + 0.5), top + LONG(rect.height * down + 0.5)};
}

// --- pixels -----------------------------------------------------------------------------------------------------

bool PutPixels(HWND handle, const uint32_t* rgb, int width, int height)
{
    NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr || rgb == nullptr || width <= 0 || height <= 0)
        return false;
    std::vector<uint32_t>& pixels = window->Pixels();
    const int columns = std::min(width, window->Width()), rows = std::min(height, window->Height());
    for (int y = 0; y < rows; ++y)
        std::copy_n(rgb + size_t(y) * size_t(width), columns, pixels.data() + size_t(y) * size_t(window->Width()));
    TellPixels(handle);
    return true;
}

void TellPixels(HWND handle)
{
    std::vector<HWND>& painted = Table().painted;
    if (Table().painting == 0)
        Windows().PixelsChanged(handle);
    else if (std::find(painted.begin(), painted.end(), handle) == painted.end())
        painted.push_back(handle);
}

void BeginPainting(HWND)
{
    ++Table().painting;
}

void EndPainting(HWND handle)
{
    TellPixels(handle);
    if (--Table().painting > 0)
        return;
    const std::vector<HWND> painted = std::move(Table().painted);
    Table().painted.clear();
    for (HWND window : painted)
        Windows().PixelsChanged(window);
}

}   // namespace KxPlat
