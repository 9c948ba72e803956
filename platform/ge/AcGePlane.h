// A plane with an origin and two axes of its own.
#pragma once
#include "AcGePoint3d.h"

class AcGeLinearEnt3d;

class AcGePlanarEnt {
public:
    AcGePoint3d pointOnPlane() const { return m_origin; }
    AcGeVector3d normal() const { return m_uAxis.crossProduct(m_vAxis).normal(); }
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& uAxis, AcGeVector3d& vAxis) const
    {
        origin = m_origin, uAxis = m_uAxis, vAxis = m_vAxis;
    }
    // a x + b y + c z + d = 0
    void getCoefficients(double& a, double& b, double& c, double& d) const;
    bool isParallelTo(const AcGePlanarEnt& other, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return normal().isParallelTo(other.normal(), tol);
    }
    bool isPerpendicularTo(const AcGePlanarEnt& other, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return normal().isPerpendicularTo(other.normal(), tol);
    }
    bool isCoplanarTo(const AcGePlanarEnt& other, const AcGeTol& tol = AcGeContext::gTol) const;
    // False when the line runs along the plane, or ends before it.
    bool intersectWith(const AcGeLinearEnt3d& line, AcGePoint3d& point, const AcGeTol& tol = AcGeContext::gTol) const;

protected:
    AcGePoint3d m_origin;
    AcGeVector3d m_uAxis = AcGeVector3d::kXAxis;
    AcGeVector3d m_vAxis = AcGeVector3d::kYAxis;
};

class AcGePlane : public AcGePlanarEnt {
public:
    AcGePlane() = default;   // the XY plane
    AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& normal) { set(origin, normal); }
    AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis)
    {
        set(origin, uAxis, vAxis);
    }
    AcGePlane(const AcGePoint3d& point, const AcGePoint3d& origin, const AcGePoint3d& other)
    {
        set(origin, point - origin, other - origin);
    }

    static const AcGePlane kXYPlane;
    static const AcGePlane kYZPlane;
    static const AcGePlane kZXPlane;

    AcGePlane& set(const AcGePoint3d& origin, const AcGeVector3d& normal);
    AcGePlane& set(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis);
    double signedDistanceTo(const AcGePoint3d& point) const { return (point - m_origin).dotProduct(normal()); }
    double distanceTo(const AcGePoint3d& point) const { return std::fabs(signedDistanceTo(point)); }
    bool isOn(const AcGePoint3d& point, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(point) <= tol.equalPoint();
    }
    AcGePlane& transformBy(const AcGeMatrix3d& matrix);
    AcGePlane& reverseNormal();
};
