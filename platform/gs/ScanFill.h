// The pixels whose middles lie within polygons, by the even-odd rule.
#pragma once
#include "Painter.h"
#include <algorithm>
#include <cmath>

namespace KxPlat {

class ScanFill {
public:
    // Contours behind one another, `ends` telling where each ends. Calls span(y, from, to) for rows of pixels, `to` not
    // among them.
    template <class Span>
    void Run(const DevicePoint* points, const uint32_t* ends, size_t contours, int width, int height, Span&& span)
    {
        Collect(points, ends, contours, height);
        m_active.clear();
        size_t next = 0;
        for (int y = m_edges.empty() ? 0 : m_edges.front().first; y < height; ++y) {
            for (; next < m_edges.size() && m_edges[next].first <= y; ++next)
                m_active.push_back(next);
            std::erase_if(m_active, [&](size_t edge) { return m_edges[edge].last < y; });
            if (m_active.empty() && next == m_edges.size())
                return;
            m_crossings.clear();
            for (const size_t at : m_active)
                m_crossings.push_back(m_edges[at].x + m_edges[at].slope * (y - m_edges[at].first));
            std::sort(m_crossings.begin(), m_crossings.end());
            for (size_t at = 0; at + 1 < m_crossings.size(); at += 2) {
                const int from = int(std::clamp(std::ceil(m_crossings[at] - 0.5), 0.0, double(width)));
                const int to = int(std::clamp(std::ceil(m_crossings[at + 1] - 0.5), 0.0, double(width)));
                if (from < to)
                    span(y, from, to);
            }
        }
    }

private:
    // An edge crosses the middles of the rows from `first` to `last`; `x` is where it crosses the first.
    struct Edge {
        int first, last;
        double x, slope;
    };

    void Collect(const DevicePoint* points, const uint32_t* ends, size_t contours, int height)
    {
        m_edges.clear();
        uint32_t begin = 0;
        for (size_t contour = 0; contour < contours; ++contour) {
            for (uint32_t at = begin, before = ends[contour] - 1; at < ends[contour]; before = at++)
                AddEdge(points[before], points[at], height);
            begin = ends[contour];
        }
        std::sort(m_edges.begin(), m_edges.end(), [](const Edge& a, const Edge& b) { return a.first < b.first; });
    }
    void AddEdge(const DevicePoint& a, const DevicePoint& b, int height)
    {
        const DevicePoint &high = a.y < b.y ? a : b, &low = a.y < b.y ? b : a;
        const double first = std::max(std::ceil(high.y - 0.5), 0.0);
        const double last = std::min(std::ceil(low.y - 0.5) - 1, double(height - 1));
        if (!(first <= last) || !std::isfinite(a.x) || !std::isfinite(b.x))
            return;
        const double slope = (low.x - high.x) / (low.y - high.y);
        m_edges.push_back({int(first), int(last), high.x + (first + 0.5 - high.y) * slope, slope});
    }

    std::vector<Edge> m_edges;
    std::vector<size_t> m_active;
    std::vector<double> m_crossings;
};

}   // namespace KxPlat
