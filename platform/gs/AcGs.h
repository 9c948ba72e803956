// Small types of the graphics system. Device coordinates are pixels from the lower left corner, y upwards.
#pragma once
#include "../win/KxWinTypes.h"

struct AcGsColor {
    BYTE m_red = 0;
    BYTE m_green = 0;
    BYTE m_blue = 0;
};

class AcGsDCPoint {
public:
    AcGsDCPoint() = default;
    AcGsDCPoint(long xin, long yin) : x(xin), y(yin) {}
    bool operator==(const AcGsDCPoint& other) const { return x == other.x && y == other.y; }
    bool operator!=(const AcGsDCPoint& other) const { return !(*this == other); }

    long x = 0;
    long y = 0;
};

class AcGsDCRect {
public:
    AcGsDCRect() = default;
    AcGsDCRect(const AcGsDCPoint& min, const AcGsDCPoint& max) : m_min(min), m_max(max) {}
    AcGsDCRect(long xmin, long xmax, long ymin, long ymax) : m_min(xmin, ymin), m_max(xmax, ymax) {}
    bool is_null() const { return m_min.x > m_max.x || m_min.y > m_max.y; }

    AcGsDCPoint m_min;
    AcGsDCPoint m_max;
};
