// A curve in space by a parameter.
#pragma once
#include "AcGeMatrix3d.h"
#include "AcGePoint3dArray.h"

class AcGeInterval {
public:
    AcGeInterval() = default;
    AcGeInterval(double lower, double upper) : m_lower(lower), m_upper(upper) {}
    double lowerBound() const { return m_lower; }
    double upperBound() const { return m_upper; }
    double length() const { return m_upper - m_lower; }
    bool contains(double value) const { return value >= m_lower && value <= m_upper; }
    void getBounds(double& lower, double& upper) const { lower = m_lower, upper = m_upper; }

private:
    double m_lower = 0.0;
    double m_upper = 1.0;
};

class AcGeCurve3d {
public:
    virtual ~AcGeCurve3d() = default;

    virtual void getInterval(AcGeInterval& interval) const = 0;
    virtual AcGePoint3d evalPoint(double parameter) const = 0;
    // The place on the curve that is nearest to `point`.
    virtual AcGePoint3d closestPointTo(const AcGePoint3d& point, double& parameter) const;
    AcGePoint3d closestPointTo(const AcGePoint3d& point) const;
    virtual double length() const;
    virtual AcGeCurve3d& transformBy(const AcGeMatrix3d& matrix) = 0;

    double distanceTo(const AcGePoint3d& point) const { return closestPointTo(point).distanceTo(point); }
    bool isOn(const AcGePoint3d& point, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(point) <= tol.equalPoint();
    }
    bool hasStartPoint(AcGePoint3d& point) const;
    bool hasEndPoint(AcGePoint3d& point) const;
    bool isClosed(const AcGeTol& tol = AcGeContext::gTol) const;
    // `count` points at even parameters, both ends among them.
    void getSamplePoints(int count, AcGePoint3dArray& points) const;

protected:
    AcGeCurve3d() = default;
    AcGeCurve3d(const AcGeCurve3d&) = default;
    AcGeCurve3d& operator=(const AcGeCurve3d&) = default;
};
