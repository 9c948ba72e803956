#include "HitTest.h"
#include <algorithm>
#include <cmath>
#include <limits>

namespace KxPlat {

namespace {

double Cross(const AcGePoint2d& origin, const AcGePoint2d& a, const AcGePoint2d& b)
{
    return (a.x - origin.x) * (b.y - origin.y) - (a.y - origin.y) * (b.x - origin.x);
}

// For a point known to be in line with the segment.
bool LiesBetween(const AcGePoint2d& point, const AcGePoint2d& a, const AcGePoint2d& b)
{
    return point.x >= std::min(a.x, b.x) && point.x <= std::max(a.x, b.x) && point.y >= std::min(a.y, b.y) &&
           point.y <= std::max(a.y, b.y);
}

bool Meet(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c, const AcGePoint2d& d)
{
    const double c1 = Cross(a, b, c), c2 = Cross(a, b, d), c3 = Cross(c, d, a), c4 = Cross(c, d, b);
    if (((c1 > 0 && c2 < 0) || (c1 < 0 && c2 > 0)) && ((c3 > 0 && c4 < 0) || (c3 < 0 && c4 > 0)))
        return true;
    return (c1 == 0 && LiesBetween(c, a, b)) || (c2 == 0 && LiesBetween(d, a, b)) ||
           (c3 == 0 && LiesBetween(a, c, d)) || (c4 == 0 && LiesBetween(b, c, d));
}

}   // namespace

HitShape HitShape::Polygon(std::vector<AcGePoint2d> corners)
{
    HitShape shape;
    shape.m_points = std::move(corners);
    if (shape.m_points.empty())
        shape.m_points.emplace_back();
    shape.m_low = shape.m_high = shape.m_points[0];
    for (const AcGePoint2d& point : shape.m_points) {
        shape.m_low = AcGePoint2d(std::min(shape.m_low.x, point.x), std::min(shape.m_low.y, point.y));
        shape.m_high = AcGePoint2d(std::max(shape.m_high.x, point.x), std::max(shape.m_high.y, point.y));
    }
    return shape;
}

HitShape HitShape::Rectangle(const AcGePoint2d& a, const AcGePoint2d& b)
{
    HitShape shape = Polygon({a, AcGePoint2d(b.x, a.y), b, AcGePoint2d(a.x, b.y)});
    shape.m_isRectangle = true;
    return shape;
}

HitShape HitShape::Fence(std::vector<AcGePoint2d> points)
{
    HitShape shape = Polygon(std::move(points));
    shape.m_isOpen = true;
    return shape;
}

// By the number of edges to the right of the point; its outline counts as inside.
bool HitShape::Contains(const AcGePoint2d& point) const
{
    if (m_isRectangle)
        return point.x >= m_low.x && point.x <= m_high.x && point.y >= m_low.y && point.y <= m_high.y;
    bool isInside = false;
    for (size_t i = 0, last = m_points.size() - 1; i < m_points.size(); last = i++) {
        const AcGePoint2d &a = m_points[last], &b = m_points[i];
        if (Cross(a, b, point) == 0 && LiesBetween(point, a, b))
            return true;
        if ((a.y > point.y) != (b.y > point.y) && point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x)
            isInside = !isInside;
    }
    return isInside;
}

bool HitShape::CrossesOutline(const Segment& segment) const
{
    for (size_t i = 1; i < m_points.size(); ++i)
        if (Meet(segment.from, segment.to, m_points[i - 1], m_points[i]))
            return true;
    return !m_isOpen && Meet(segment.from, segment.to, m_points.back(), m_points.front());
}

bool HitShape::Hits(const AcDbEntity& entity, HitMode mode) const
{
    AcDbExtents box;
    const bool hasBox = entity.getGeomExtents(box) == Acad::eOk;
    if (hasBox) {
        const AcGePoint3d low = box.minPoint(), high = box.maxPoint();
        if (low.x > m_high.x || high.x < m_low.x || low.y > m_high.y || high.y < m_low.y)
            return false;
        const bool isWithin = low.x >= m_low.x && high.x <= m_high.x && low.y >= m_low.y && high.y <= m_high.y;
        if (m_isRectangle && (isWithin || mode == HitMode::Inside))
            return isWithin;
        if (mode == HitMode::Inside && !isWithin)
            return false;
    }
    const std::vector<Segment> segments = SegmentsOf(entity);
    if (segments.empty())
        return false;
    if (mode == HitMode::Inside)
        return !m_isOpen && std::all_of(segments.begin(), segments.end(), [this](const Segment& segment) {
            const AcGePoint2d middle((segment.from.x + segment.to.x) / 2, (segment.from.y + segment.to.y) / 2);
            return Contains(segment.from) && Contains(segment.to) && Contains(middle);
        });
    return std::any_of(segments.begin(), segments.end(), [this](const Segment& segment) {
        return (!m_isOpen && Contains(segment.from)) || CrossesOutline(segment);
    });
}

double DistanceTo(const std::vector<Segment>& segments, const AcGePoint2d& point)
{
    double nearest = std::numeric_limits<double>::infinity();
    for (const Segment& segment : segments) {
        const double dx = segment.to.x - segment.from.x, dy = segment.to.y - segment.from.y;
        const double length = dx * dx + dy * dy;
        double along = length == 0 ? 0 : ((point.x - segment.from.x) * dx + (point.y - segment.from.y) * dy) / length;
        along = std::clamp(along, 0.0, 1.0);
        nearest =
            std::min(nearest, std::hypot(point.x - segment.from.x - along * dx, point.y - segment.from.y - along * dy));
    }
    return nearest;
}

double DistanceTo(const AcDbEntity& entity, const AcGePoint2d& point, double most)
{
    const double tooFar = most * 2 + 1;
    AcDbExtents box;
    if (entity.getGeomExtents(box) == Acad::eOk) {
        const AcGePoint3d low = box.minPoint(), high = box.maxPoint();
        if (point.x < low.x - most || point.x > high.x + most || point.y < low.y - most || point.y > high.y + most)
            return tooFar;
    }
    return std::min(tooFar, DistanceTo(SegmentsOf(entity), point));
}

}   // namespace KxPlat
