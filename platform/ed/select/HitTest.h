// Which entities a point, a rectangle, a polygon or a fence meets, seen from above.
#pragma once
#include "EntityLines.h"

namespace KxPlat {

enum class HitMode {
    Inside,    // wholly within the shape
    Touching   // within it, or crossing its outline
};

// A closed outline, or with `isOpen` a line that has no inside.
class HitShape {
public:
    static HitShape Rectangle(const AcGePoint2d& a, const AcGePoint2d& b);
    static HitShape Polygon(std::vector<AcGePoint2d> corners);
    static HitShape Fence(std::vector<AcGePoint2d> points);

    bool Hits(const AcDbEntity& entity, HitMode mode) const;

private:
    bool Contains(const AcGePoint2d& point) const;
    bool CrossesOutline(const Segment& segment) const;

    std::vector<AcGePoint2d> m_points;
    AcGePoint2d m_low, m_high;
    bool m_isOpen = false;
    bool m_isRectangle = false;
};

// Of the entity nearest to a point: how far its nearest line is; larger than `most` when it is farther.
double DistanceTo(const std::vector<Segment>& segments, const AcGePoint2d& point);   // infinite without any
double DistanceTo(const AcDbEntity& entity, const AcGePoint2d& point, double most);

}   // namespace KxPlat
