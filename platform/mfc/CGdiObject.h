// What a device context draws with. A handle is the object itself, so it lives as long as the object.
#pragma once
#include "CObject.h"
#include "CRect.h"
#include <cstdint>
#include <vector>

// clang-format off
#define PS_SOLID 0
#define PS_DASH 1
#define PS_DOT 2
#define PS_NULL 5
#define R2_BLACK 1
#define R2_NOT 6
#define R2_XORPEN 7
#define R2_NOP 11
#define R2_COPYPEN 13
#define R2_WHITE 16
#define WHITE_BRUSH 0
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define WHITE_PEN 6
#define BLACK_PEN 7
#define NULL_PEN 8
#define TRANSPARENT 1
#define OPAQUE 2
#define SRCCOPY 0x00CC0020U
// clang-format on

class CDC;

class CGdiObject : public CObject {
public:
    HGDIOBJ GetSafeHandle() const { return m_isMade ? const_cast<CGdiObject*>(this) : nullptr; }
    virtual BOOL DeleteObject();

protected:
    bool m_isMade = false;
};

class CPen : public CGdiObject {
public:
    CPen() = default;
    CPen(int style, int width, COLORREF color) { CreatePen(style, width, color); }
    BOOL CreatePen(int style, int width, COLORREF color);
    operator HPEN() const { return static_cast<HPEN>(GetSafeHandle()); }

private:
    friend class CDC;
    int m_style = PS_SOLID;
    int m_width = 1;   // pixels; 0 as 1
    COLORREF m_color = 0;
};

class CBrush : public CGdiObject {
public:
    CBrush() = default;
    explicit CBrush(COLORREF color) { CreateSolidBrush(color); }
    BOOL CreateSolidBrush(COLORREF color);
    operator HBRUSH() const { return static_cast<HBRUSH>(GetSafeHandle()); }

private:
    friend class CDC;
    COLORREF m_color = 0;
    bool m_isHollow = false;
};

class CBitmap : public CGdiObject {
public:
    BOOL CreateCompatibleBitmap(CDC* dc, int width, int height);
    CSize GetBitmapDimension() const { return {m_width, m_height}; }
    BOOL DeleteObject() override;

private:
    friend class CDC;
    int m_width = 0, m_height = 0;
    std::vector<uint32_t> m_pixels;   // 0xRRGGBB
};
