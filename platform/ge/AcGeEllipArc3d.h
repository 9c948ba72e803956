// Arcs of ellipses and circles. Angles are in radians from the major axis (of an ellipse: in the parameter that makes
// the point cos(t) * major + sin(t) * minor), turning left around the normal. A whole turn is the interval 0 to 2 pi.
#pragma once
#include "AcGeCurve3d.h"
#include "EntityAxes.h"

class AcGePlane;

class AcGeEllipArc3d : public AcGeCurve3d {
public:
    AcGeEllipArc3d() = default;   // the unit circle in the XY plane
    AcGeEllipArc3d(const AcGePoint3d& center, const AcGeVector3d& majorAxis, const AcGeVector3d& minorAxis,
                   double majorRadius, double minorRadius, double startAngle = 0.0, double endAngle = 2.0 * KxPlat::kPi)
    {
        set(center, majorAxis, minorAxis, majorRadius, minorRadius, startAngle, endAngle);
    }
    AcGeEllipArc3d& set(const AcGePoint3d& center, const AcGeVector3d& majorAxis, const AcGeVector3d& minorAxis,
                        double majorRadius, double minorRadius, double startAngle, double endAngle);

    AcGePoint3d center() const { return m_center; }
    AcGeVector3d majorAxis() const { return m_major.normal(); }
    AcGeVector3d minorAxis() const { return m_minor.normal(); }
    AcGeVector3d normal() const { return m_major.crossProduct(m_minor).normal(); }
    double majorRadius() const { return m_major.length(); }
    double minorRadius() const { return m_minor.length(); }
    double startAng() const { return m_start; }
    double endAng() const { return m_end; }
    AcGePoint3d startPoint() const { return evalPoint(m_start); }
    AcGePoint3d endPoint() const { return evalPoint(m_end); }
    bool isCircular(const AcGeTol& tol = AcGeContext::gTol) const;

    void getInterval(AcGeInterval& interval) const override { interval = AcGeInterval(m_start, m_end); }
    AcGePoint3d evalPoint(double angle) const override
    {
        return m_center + m_major * std::cos(angle) + m_minor * std::sin(angle);
    }
    using AcGeCurve3d::evalPoint;
    Derivatives derivativesAt(double angle) const override;
    AcGeEllipArc3d& transformBy(const AcGeMatrix3d& matrix) override;

protected:
    AcGePoint3d m_center;
    AcGeVector3d m_major = AcGeVector3d(1, 0, 0);   // with the radius as length
    AcGeVector3d m_minor = AcGeVector3d(0, 1, 0);
    double m_start = 0.0;
    double m_end = 2.0 * KxPlat::kPi;   // above m_start, by no more than a whole turn
};

class AcGeCircArc3d : public AcGeEllipArc3d {
public:
    AcGeCircArc3d() = default;
    AcGeCircArc3d(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);
    AcGeCircArc3d(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& reference, double radius,
                  double startAngle, double endAngle);
    // From the first to the last point through the second; a straight row of points makes a circle of no size.
    AcGeCircArc3d(const AcGePoint3d& start, const AcGePoint3d& through, const AcGePoint3d& end);

    double radius() const { return m_major.length(); }
    AcGeVector3d refVec() const { return m_major.normal(); }
    double length() const override { return radius() * (m_end - m_start); }
    double length(double from, double to) const override { return radius() * std::fabs(to - from); }
    double paramAtLength(double datum, double length) const override
    {
        return radius() > 0 ? datum + length / radius() : datum;
    }
    using AcGeCurve3d::closestPointTo;
    AcGePoint3d closestPointTo(const AcGePoint3d& point, double& parameter) const override;
};
