#include "CDC.h"
#include "../ui/WindowBackend.h"
#include "../ui/WindowQueue.h"
#include "../ui/WindowTable.h"
#include "CWnd.h"
#include "TextView.h"
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

using KxPlat::FindWindowOf;
using KxPlat::NativeWindow;

namespace {

constexpr int kTextHeight = 15;   // pixels

uint32_t PixelOf(COLORREF color)
{
    return uint32_t(GetRValue(color)) << 16 | uint32_t(GetGValue(color)) << 8 | uint32_t(GetBValue(color));
}

COLORREF ColorOf(uint32_t pixel)
{
    return RGB(pixel >> 16, pixel >> 8, pixel);
}

// The number of a mode less one is its truth table: bit 2 * pen + there.
uint32_t Mixed(uint32_t pen, uint32_t there, int rop)
{
    const unsigned table = unsigned(rop - 1);
    uint32_t mixed = 0;
    if ((table & 1) != 0)
        mixed |= ~pen & ~there;
    if ((table & 2) != 0)
        mixed |= ~pen & there;
    if ((table & 4) != 0)
        mixed |= pen & ~there;
    if ((table & 8) != 0)
        mixed |= pen & there;
    return mixed & 0xFFFFFF;
}

// How many pixels are drawn and left out in turn.
int DashOf(int style)
{
    return style == PS_DASH ? 6 : style == PS_DOT ? 2 : 0;
}

}   // namespace

// --- what is drawn with -----------------------------------------------------------------------------------------

BOOL CGdiObject::DeleteObject()
{
    return std::exchange(m_isMade, false);
}

BOOL CPen::CreatePen(int style, int width, COLORREF color)
{
    m_style = style;
    m_width = std::max(width, 1);
    m_color = color;
    return m_isMade = true;
}

BOOL CBrush::CreateSolidBrush(COLORREF color)
{
    m_color = color;
    return m_isMade = true;
}

BOOL CBitmap::CreateCompatibleBitmap(CDC*, int width, int height)
{
    if (width <= 0 || height <= 0)
        return FALSE;
    m_width = width;
    m_height = height;
    m_pixels.assign(size_t(width) * size_t(height), 0);
    return m_isMade = true;
}

BOOL CBitmap::DeleteObject()
{
    m_width = m_height = 0;
    m_pixels.clear();
    return CGdiObject::DeleteObject();
}

// --- selecting --------------------------------------------------------------------------------------------------

CDC::~CDC() = default;

BOOL CDC::CreateCompatibleDC(CDC*)
{
    if (m_hDC != nullptr)
        return FALSE;
    m_hDC = reinterpret_cast<HDC>(this);
    return TRUE;
}

BOOL CDC::DeleteDC()
{
    m_bitmap = nullptr;
    return std::exchange(m_hDC, nullptr) != nullptr;
}

CPen* CDC::SelectObject(CPen* pen)
{
    return std::exchange(m_pen, pen);
}

CBrush* CDC::SelectObject(CBrush* brush)
{
    return std::exchange(m_brush, brush);
}

CBitmap* CDC::SelectObject(CBitmap* bitmap)
{
    return m_window != nullptr ? nullptr : std::exchange(m_bitmap, bitmap);
}

CGdiObject* CDC::SelectStockObject(int number)
{
    static CPen black(PS_SOLID, 1, RGB(0, 0, 0)), white(PS_SOLID, 1, RGB(255, 255, 255)), none(PS_NULL, 1, 0);
    static CBrush whiteArea(RGB(255, 255, 255)), blackArea(RGB(0, 0, 0)), hollow;
    hollow.m_isHollow = true;
    switch (number) {
    case BLACK_PEN:
        return SelectObject(&black);
    case WHITE_PEN:
        return SelectObject(&white);
    case NULL_PEN:
        return SelectObject(&none);
    case WHITE_BRUSH:
        return SelectObject(&whiteArea);
    case BLACK_BRUSH:
        return SelectObject(&blackArea);
    case NULL_BRUSH:
        return SelectObject(&hollow);
    default:
        return nullptr;
    }
}

int CDC::SetROP2(int mode)
{
    return mode < R2_BLACK || mode > R2_WHITE ? 0 : std::exchange(m_rop, mode);
}

COLORREF CDC::SetTextColor(COLORREF color)
{
    return std::exchange(m_textColor, color);
}

COLORREF CDC::SetBkColor(COLORREF color)
{
    return std::exchange(m_backColor, color);
}

int CDC::SetBkMode(int mode)
{
    return std::exchange(m_backMode, mode);
}

// --- drawing ----------------------------------------------------------------------------------------------------

uint32_t* CDC::Pixels(int& width, int& height) const
{
    if (NativeWindow* window = FindWindowOf(m_window)) {
        width = window->Width();
        height = window->Height();
        return window->Pixels().data();
    }
    if (m_bitmap == nullptr)
        return nullptr;
    width = m_bitmap->m_width;
    height = m_bitmap->m_height;
    return m_bitmap->m_pixels.data();
}

void CDC::Mix(int x, int y, COLORREF color, int rop)
{
    Span(x, x + 1, y, color, rop);
}

void CDC::Span(int left, int right, int y, COLORREF color, int rop)
{
    int width = 0, height = 0;
    uint32_t* pixels = Pixels(width, height);
    if (pixels == nullptr || y < 0 || y >= height)
        return;
    const uint32_t pen = PixelOf(color);
    uint32_t* row = pixels + size_t(y) * size_t(width);
    for (int x = std::max(left, 0); x < std::min(right, width); ++x)
        row[x] = Mixed(pen, row[x], rop);
}

// The pixel of the end belongs to the next line.
void CDC::Segment(POINT from, POINT to)
{
    static CPen black(PS_SOLID, 1, RGB(0, 0, 0));
    const CPen& pen = m_pen == nullptr ? black : *m_pen;
    int width = 0, height = 0;
    if (pen.m_style == PS_NULL || Pixels(width, height) == nullptr)
        return;
    const int64_t dx = int64_t(to.x) - from.x, dy = int64_t(to.y) - from.y;
    const int64_t steps = std::max(std::abs(dx), std::abs(dy));
    const int dash = DashOf(pen.m_style);
    // A line may reach far out: only the steps that can meet the surface count.
    const double reach = double(std::max(width, height)) + pen.m_width;
    int64_t first = 0, last = steps;
    const auto limit = [&](double start, double way, double end) {
        if (way == 0)
            return;
        const double a = (-reach - start) / way * double(steps), b = (end + reach - start) / way * double(steps);
        first = std::max(first, int64_t(std::clamp(std::min(a, b), -1.0, double(steps))));
        last = std::min(last, int64_t(std::clamp(std::max(a, b) + 1, -1.0, double(steps))));
    };
    limit(from.x, double(dx), width);
    limit(from.y, double(dy), height);
    const int before = (pen.m_width - 1) / 2, after = pen.m_width / 2;
    for (int64_t i = first; i < last; ++i) {
        if (dash != 0 && i / dash % 2 != 0)
            continue;
        const int x = int(from.x + std::lround(double(dx) * double(i) / double(steps)));
        const int y = int(from.y + std::lround(double(dy) * double(i) / double(steps)));
        const bool isFlat = std::abs(dx) >= std::abs(dy);
        for (int side = -before; side <= after; ++side)
            Mix(isFlat ? x : x + side, isFlat ? y + side : y, pen.m_color, m_rop);
    }
}

CPoint CDC::MoveTo(int x, int y)
{
    return std::exchange(m_place, CPoint(x, y));
}

BOOL CDC::LineTo(int x, int y)
{
    Segment(m_place, {x, y});
    m_place = {x, y};
    return m_hDC != nullptr;
}

BOOL CDC::Polyline(const POINT* points, int count)
{
    for (int i = 1; i < count; ++i)
        Segment(points[i - 1], points[i]);
    return count >= 2;
}

BOOL CDC::Rectangle(int left, int top, int right, int bottom)
{
    if (right - left < 1 || bottom - top < 1)
        return m_hDC != nullptr;
    if (m_brush == nullptr || !m_brush->m_isHollow) {
        for (int y = top + 1; y < bottom - 1; ++y)
            Span(left + 1, right - 1, y, m_brush == nullptr ? 0xFFFFFF : m_brush->m_color, m_rop);
    }
    const POINT corners[] = {{left, top}, {right - 1, top}, {right - 1, bottom - 1}, {left, bottom - 1}, {left, top}};
    return Polyline(corners, 5);
}

void CDC::FillRect(LPCRECT rect, CBrush* brush)
{
    if (brush == nullptr || brush->m_isHollow)
        return;
    FillSolidRect(rect, brush->m_color);
}

void CDC::FillSolidRect(LPCRECT rect, COLORREF color)
{
    int width = 0, height = 0;
    Pixels(width, height);
    for (int y = std::max(int(rect->top), 0); y < std::min(int(rect->bottom), height); ++y)
        Span(rect->left, rect->right, y, color, R2_COPYPEN);
}

void CDC::FrameRect(LPCRECT rect, CBrush* brush)
{
    const RECT sides[] = {{rect->left, rect->top, rect->right, rect->top + 1},
                          {rect->left, rect->bottom - 1, rect->right, rect->bottom},
                          {rect->left, rect->top, rect->left + 1, rect->bottom},
                          {rect->right - 1, rect->top, rect->right, rect->bottom}};
    for (const RECT& side : sides)
        FillRect(&side, brush);
}

COLORREF CDC::SetPixel(int x, int y, COLORREF color)
{
    Mix(x, y, color, R2_COPYPEN);
    return GetPixel(x, y);
}

COLORREF CDC::GetPixel(int x, int y) const
{
    int width = 0, height = 0;
    const uint32_t* pixels = Pixels(width, height);
    if (pixels == nullptr || x < 0 || y < 0 || x >= width || y >= height)
        return 0xFFFFFFFF;
    return ColorOf(pixels[size_t(y) * size_t(width) + size_t(x)]);
}

BOOL CDC::BitBlt(int x, int y, int width, int height, CDC* source, int fromX, int fromY, DWORD rop)
{
    if (source == nullptr || rop != SRCCOPY)
        return FALSE;
    int wide = 0, high = 0;
    if (source->Pixels(wide, high) == nullptr || Pixels(wide, high) == nullptr)
        return FALSE;
    // A picture may be moved onto itself, so it is taken whole first.
    std::vector<COLORREF> taken;
    width = std::clamp(width, 0, wide);
    height = std::clamp(height, 0, high);
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column)
            taken.push_back(source->GetPixel(fromX + column, fromY + row));
    }
    for (size_t i = 0; i < taken.size(); ++i) {
        if (taken[i] != 0xFFFFFFFF)
            Mix(x + int(i % size_t(width)), y + int(i / size_t(width)), taken[i], R2_COPYPEN);
    }
    return TRUE;
}

BOOL CDC::TextOut(int x, int y, const CString& text)
{
    const KxPlat::TextMask mask = KxPlat::Windows().DrawnText(KxPlat::TextView(text), kTextHeight);
    if (m_backMode == OPAQUE && mask.width > 0) {
        const RECT behind = {x, y, x + mask.width, y + mask.height};
        FillSolidRect(&behind, m_backColor);
    }
    for (int row = 0; row < mask.height; ++row) {
        for (int column = 0; column < mask.width; ++column) {
            const int cover = mask.coverage[size_t(row) * size_t(mask.width) + size_t(column)];
            const COLORREF there = cover == 0 ? 0 : GetPixel(x + column, y + row);
            if (cover == 0 || there == 0xFFFFFFFF)
                continue;
            const auto mix = [cover](int ink, int paper) { return (ink * cover + paper * (255 - cover)) / 255; };
            Mix(x + column, y + row,
                RGB(mix(GetRValue(m_textColor), GetRValue(there)), mix(GetGValue(m_textColor), GetGValue(there)),
                    mix(GetBValue(m_textColor), GetBValue(there))),
                R2_COPYPEN);
        }
    }
    return m_hDC != nullptr;
}

BOOL CDC::TextOut(int x, int y, const wchar_t* text, int count)
{
    return TextOut(x, y, CString(text, count));
}

CSize CDC::GetTextExtent(const CString& text) const
{
    const KxPlat::TextMask mask = KxPlat::Windows().DrawnText(KxPlat::TextView(text), kTextHeight);
    return {mask.width, mask.height};
}

// --- of windows -------------------------------------------------------------------------------------------------

CClientDC::CClientDC(CWnd* window) : CDC(window == nullptr ? nullptr : window->m_hWnd) {}

CClientDC::~CClientDC()
{
    KxPlat::TellPixels(Window());
}

CPaintDC::CPaintDC(CWnd* window) : CDC(window->m_hWnd)
{
    KxPlat::BeginPainting(Window());
    NativeWindow* painted = FindWindowOf(Window());
    if (painted == nullptr)
        return;
    KxPlat::ValidateWindow(Window());
    if (!std::exchange(painted->mustErase, false))
        return;
    const LRESULT erased = KxPlat::CallNativeWindow(Window(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(m_hDC), 0);
    const RECT all = {0, 0, painted->Width(), painted->Height()};
    if (erased == 0 && painted->hasBackground)
        FillSolidRect(&all, painted->background);
}

CPaintDC::~CPaintDC()
{
    KxPlat::EndPainting(Window());
}
