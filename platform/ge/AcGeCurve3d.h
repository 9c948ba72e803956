// A curve in space by a parameter.
#pragma once
#include "AcGeMatrix3d.h"
#include "AcGePoint3dArray.h"
#include <vector>

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
    // With the first one or two derivatives by the parameter.
    AcGePoint3d evalPoint(double parameter, int count, AcGeVector3dArray& derivatives) const;
    // The place on the curve that is nearest to `point`.
    virtual AcGePoint3d closestPointTo(const AcGePoint3d& point, double& parameter) const;
    AcGePoint3d closestPointTo(const AcGePoint3d& point) const;
    virtual double length() const;
    virtual double length(double from, double to) const;   // along the curve, between two parameters
    // The parameter so far along the curve from `datum`, backwards for a negative length. Not held within the interval
    // where the curve knows no end there.
    virtual double paramAtLength(double datum, double length) const;
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

    // The same two by value.
    struct Derivatives {
        AcGeVector3d first, second;
    };
    virtual Derivatives derivativesAt(double parameter) const;
    // How many even parts of the interval a curve needs for each part to turn by no more than a small angle.
    virtual int steps() const { return 64; }
    // Parameters between which the curve is smooth, both ends of the interval among them.
    virtual std::vector<double> breaks() const;

protected:
    AcGeCurve3d() = default;
    AcGeCurve3d(const AcGeCurve3d&) = default;
    AcGeCurve3d& operator=(const AcGeCurve3d&) = default;
};
