// Points, sizes and rectangles of the screen, in pixels. A rectangle ends before its right and bottom edge.
#pragma once
#include "../win/KxWinTypes.h"

class CSize : public tagSIZE {
public:
    CSize(LONG width = 0, LONG height = 0) : tagSIZE{width, height} {}
    CSize(const SIZE& size) : tagSIZE(size) {}
    bool operator==(const SIZE& other) const { return cx == other.cx && cy == other.cy; }
};

class CPoint : public tagPOINT {
public:
    CPoint(LONG x = 0, LONG y = 0) : tagPOINT{x, y} {}
    CPoint(const POINT& point) : tagPOINT(point) {}
    void Offset(LONG dx, LONG dy)
    {
        x += dx;
        y += dy;
    }
    bool operator==(const POINT& other) const { return x == other.x && y == other.y; }
    CPoint operator+(const SIZE& size) const { return {x + size.cx, y + size.cy}; }
    CSize operator-(const POINT& other) const { return {x - other.x, y - other.y}; }
};

class CRect : public tagRECT {
public:
    CRect(LONG l = 0, LONG t = 0, LONG r = 0, LONG b = 0) : tagRECT{l, t, r, b} {}
    CRect(const RECT& rect) : tagRECT(rect) {}
    CRect(const POINT& topLeft, const SIZE& size)
        : CRect(topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy)
    {
    }
    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }
    LONG Width() const { return right - left; }
    LONG Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    CPoint TopLeft() const { return {left, top}; }
    CPoint BottomRight() const { return {right, bottom}; }
    CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }
    BOOL IsRectEmpty() const { return Width() <= 0 || Height() <= 0; }
    BOOL PtInRect(const POINT& point) const
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    void SetRect(LONG l, LONG t, LONG r, LONG b) { *this = CRect(l, t, r, b); }
    void SetRectEmpty() { *this = CRect(); }
    void OffsetRect(LONG dx, LONG dy) { *this = CRect(left + dx, top + dy, right + dx, bottom + dy); }
    void InflateRect(LONG dx, LONG dy) { *this = CRect(left - dx, top - dy, right + dx, bottom + dy); }
    void DeflateRect(LONG dx, LONG dy) { InflateRect(-dx, -dy); }
    // The upper left corner is left of and above the other afterwards.
    void NormalizeRect()
    {
        if (left > right)
            *this = CRect(right, top, left, bottom);
        if (top > bottom)
            *this = CRect(left, bottom, right, top);
    }
    bool operator==(const RECT& other) const
    {
        return left == other.left && top == other.top && right == other.right && bottom == other.bottom;
    }
};
