// Straight curves: a line without ends, a ray, and a segment.
#pragma once
#include "AcGeCurve3d.h"

class AcGeLinearEnt3d : public AcGeCurve3d {
public:
    AcGePoint3d pointOnLine() const { return m_start; }
    AcGeVector3d direction() const { return m_vector.normal(); }
    bool isParallelTo(const AcGeLinearEnt3d& other, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return m_vector.isParallelTo(other.m_vector, tol);
    }
    bool isPerpendicularTo(const AcGeLinearEnt3d& other, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return m_vector.isPerpendicularTo(other.m_vector, tol);
    }
    bool isColinearTo(const AcGeLinearEnt3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    // The one place where both meet; false for parallel lines and for those that pass each other.
    bool intersectWith(const AcGeLinearEnt3d& other, AcGePoint3d& point, const AcGeTol& tol = AcGeContext::gTol) const;

    using AcGeCurve3d::closestPointTo;
    AcGePoint3d evalPoint(double parameter) const override { return m_start + m_vector * parameter; }
    AcGePoint3d closestPointTo(const AcGePoint3d& point, double& parameter) const override;
    using AcGeCurve3d::evalPoint;
    Derivatives derivativesAt(double parameter) const override { return {m_vector, {}}; }
    int steps() const override { return 1; }
    double length() const override;
    double length(double from, double to) const override { return m_vector.length() * std::fabs(to - from); }
    double paramAtLength(double datum, double length) const override
    {
        return m_vector.lengthSqrd() > 0 ? datum + length / m_vector.length() : datum;
    }
    AcGeLinearEnt3d& transformBy(const AcGeMatrix3d& matrix) override;

protected:
    AcGeLinearEnt3d(const AcGePoint3d& start, const AcGeVector3d& vector) : m_start(start), m_vector(vector) {}

    AcGePoint3d m_start;
    AcGeVector3d m_vector;   // one unit of the parameter
};

class AcGeLine3d : public AcGeLinearEnt3d {
public:
    AcGeLine3d() : AcGeLinearEnt3d(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis) {}
    AcGeLine3d(const AcGePoint3d& point, const AcGeVector3d& vector) : AcGeLinearEnt3d(point, vector) {}
    AcGeLine3d(const AcGePoint3d& first, const AcGePoint3d& second) : AcGeLinearEnt3d(first, second - first) {}
    void getInterval(AcGeInterval& interval) const override;
};

class AcGeRay3d : public AcGeLinearEnt3d {
public:
    AcGeRay3d(const AcGePoint3d& start, const AcGeVector3d& vector) : AcGeLinearEnt3d(start, vector) {}
    void getInterval(AcGeInterval& interval) const override;
};

class AcGeLineSeg3d : public AcGeLinearEnt3d {
public:
    AcGeLineSeg3d() : AcGeLinearEnt3d(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis) {}
    AcGeLineSeg3d(const AcGePoint3d& start, const AcGeVector3d& vector) : AcGeLinearEnt3d(start, vector) {}
    AcGeLineSeg3d(const AcGePoint3d& start, const AcGePoint3d& end) : AcGeLinearEnt3d(start, end - start) {}

    AcGePoint3d startPoint() const { return m_start; }
    AcGePoint3d midPoint() const { return m_start + m_vector * 0.5; }
    AcGePoint3d endPoint() const { return m_start + m_vector; }
    AcGeLineSeg3d& set(const AcGePoint3d& start, const AcGePoint3d& end)
    {
        m_start = start, m_vector = end - start;
        return *this;
    }
    void getInterval(AcGeInterval& interval) const override { interval = AcGeInterval(0.0, 1.0); }
};
