// Arcs and segments of the plane.
#pragma once
#include "AcGePoint2d.h"

class AcGeLineSeg2d {
public:
    AcGeLineSeg2d() = default;
    AcGeLineSeg2d(const AcGePoint2d& start, const AcGePoint2d& end) : m_start(start), m_end(end) {}
    AcGePoint2d startPoint() const { return m_start; }
    AcGePoint2d endPoint() const { return m_end; }
    AcGePoint2d midPoint() const { return m_start + (m_end - m_start) * 0.5; }
    double length() const { return m_start.distanceTo(m_end); }
    AcGePoint2d closestPointTo(const AcGePoint2d& point) const;
    // The one place where both meet; false when they are parallel or do not reach each other.
    bool intersectWith(const AcGeLineSeg2d& other, AcGePoint2d& point, const AcGeTol& tol = AcGeContext::gTol) const;

private:
    AcGePoint2d m_start;
    AcGePoint2d m_end;
};

class AcGeCircArc2d {
public:
    AcGeCircArc2d() = default;
    AcGeCircArc2d(const AcGePoint2d& center, double radius);
    AcGeCircArc2d(const AcGePoint2d& center, double radius, double startAngle, double endAngle,
                  bool isClockWise = false);
    // The arc between two polyline vertices: the bulge is the tangent of a quarter of its angle, positive to the left.
    AcGeCircArc2d(const AcGePoint2d& start, const AcGePoint2d& end, double bulge);

    AcGePoint2d center() const { return m_center; }
    double radius() const { return m_radius; }
    double startAng() const { return m_start; }
    double endAng() const { return m_end; }
    bool isClockWise() const { return m_isClockWise; }
    AcGePoint2d startPoint() const { return PointAt(m_start); }
    AcGePoint2d endPoint() const { return PointAt(m_end); }
    double length() const;

private:
    AcGePoint2d PointAt(double angle) const;

    AcGePoint2d m_center;
    double m_radius = 1.0;
    double m_start = 0.0;   // radians from the X axis; walked from start to end, clockwise or not
    double m_end = 6.28318530717958647692;
    bool m_isClockWise = false;
};
