// Shifts what is drawn to the place of a viewport, and keeps it within.
#pragma once
#include "Painter.h"

namespace KxPlat {

class WindowPainter : public Painter {
public:
    WindowPainter(Painter& page, double left, double top, double width, double height)
        : m_page(page), m_left(left), m_top(top), m_width(width), m_height(height)
    {
    }

    void Strip(const DevicePoint* points, size_t count, const Pen& pen) override
    {
        m_points.clear();
        for (size_t at = 0; at < count; ++at) {
            const bool isInside = IsInside(points[at]);
            if (at > 0 && (!isInside || m_points.empty())) {
                DevicePoint from = points[at - 1], to = points[at];
                if (Cut(from, to)) {
                    if (m_points.empty())
                        m_points.push_back(Moved(from));
                    m_points.push_back(Moved(to));
                }
                Flush(pen);
            }
            if (isInside)
                m_points.push_back(Moved(points[at]));
        }
        Flush(pen);
    }
    void Fill(const std::vector<DevicePoint>& points, const std::vector<uint32_t>& ends, uint32_t rgb) override
    {
        // Cut against each side in turn, contour by contour.
        std::vector<DevicePoint> cut;
        std::vector<uint32_t> cutEnds;
        uint32_t begin = 0;
        for (const uint32_t end : ends) {
            std::vector<DevicePoint> contour(points.begin() + begin, points.begin() + end);
            for (int side = 0; side < 4; ++side)
                contour = CutAtSide(contour, side);
            for (const DevicePoint& point : contour)
                cut.push_back(Moved(point));
            if (!contour.empty())
                cutEnds.push_back(uint32_t(cut.size()));
            begin = end;
        }
        if (!cutEnds.empty())
            m_page.Fill(cut, cutEnds, rgb);
    }
    bool DrawsFaces() const override { return m_page.DrawsFaces(); }
    // A face that is cut is lit alike all over.
    void Face(const DevicePoint* points, const float* shades, size_t count, uint32_t rgb) override
    {
        std::vector<DevicePoint> corners(points, points + count);
        std::vector<float> light(shades, shades + count);
        for (int side = 0; side < 4; ++side)
            corners = CutAtSide(corners, side);
        if (corners.size() < 3)
            return;
        if (corners.size() != count)
            light.assign(corners.size(), shades[0]);
        for (DevicePoint& corner : corners)
            corner = Moved(corner);
        m_page.Face(corners.data(), light.data(), corners.size(), rgb);
    }
    bool Text(const TextItem& text, const DevicePoint& origin, const DevicePoint& x, const DevicePoint& y,
              uint32_t rgb) override
    {
        return IsInside(origin) && m_page.Text(text, Moved(origin), x, y, rgb);
    }

private:
    DevicePoint Moved(const DevicePoint& point) const { return {point.x + m_left, point.y + m_top, point.depth}; }
    // How far a point lies within each side; below 0 outside.
    double Room(const DevicePoint& point, int side) const
    {
        const double rooms[] = {point.x, m_width - point.x, point.y, m_height - point.y};
        return rooms[side];
    }
    bool IsInside(const DevicePoint& point) const
    {
        return Room(point, 0) >= 0 && Room(point, 1) >= 0 && Room(point, 2) >= 0 && Room(point, 3) >= 0;
    }
    static DevicePoint Between(const DevicePoint& a, const DevicePoint& b, double share)
    {
        return {a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share, a.depth + (b.depth - a.depth) * share};
    }
    bool Cut(DevicePoint& from, DevicePoint& to) const
    {
        for (int side = 0; side < 4; ++side) {
            const double first = Room(from, side), second = Room(to, side);
            if (first < 0 && second < 0)
                return false;
            if (first < 0)
                from = Between(from, to, first / (first - second));
            else if (second < 0)
                to = Between(from, to, first / (first - second));
        }
        return true;
    }
    std::vector<DevicePoint> CutAtSide(const std::vector<DevicePoint>& contour, int side) const
    {
        std::vector<DevicePoint> cut;
        for (size_t at = 0; at < contour.size(); ++at) {
            const DevicePoint &from = contour[(at + contour.size() - 1) % contour.size()], &to = contour[at];
            const double first = Room(from, side), second = Room(to, side);
            if ((first < 0) != (second < 0))
                cut.push_back(Between(from, to, first / (first - second)));
            if (second >= 0)
                cut.push_back(to);
        }
        return cut;
    }
    void Flush(const Pen& pen)
    {
        if (!m_points.empty())
            m_page.Strip(m_points.data(), m_points.size(), pen);
        m_points.clear();
    }

    Painter& m_page;
    double m_left, m_top, m_width, m_height;
    std::vector<DevicePoint> m_points;
};

}   // namespace KxPlat
