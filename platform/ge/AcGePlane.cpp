#include "AcGePlane.h"
#include "AcGeLine3d.h"
#include "AcGeMatrix3d.h"
#include "EntityAxes.h"

const AcGePlane AcGePlane::kXYPlane(AcGePoint3d(), AcGeVector3d(1, 0, 0), AcGeVector3d(0, 1, 0));
const AcGePlane AcGePlane::kYZPlane(AcGePoint3d(), AcGeVector3d(0, 1, 0), AcGeVector3d(0, 0, 1));
const AcGePlane AcGePlane::kZXPlane(AcGePoint3d(), AcGeVector3d(0, 0, 1), AcGeVector3d(1, 0, 0));

void AcGePlanarEnt::getCoefficients(double& a, double& b, double& c, double& d) const
{
    const AcGeVector3d n = normal();
    a = n.x, b = n.y, c = n.z;
    d = -n.dotProduct(m_origin.asVector());
}

bool AcGePlanarEnt::isCoplanarTo(const AcGePlanarEnt& other, const AcGeTol& tol) const
{
    return isParallelTo(other, tol) && std::fabs((other.m_origin - m_origin).dotProduct(normal())) <= tol.equalPoint();
}

bool AcGePlanarEnt::intersectWith(const AcGeLinearEnt3d& line, AcGePoint3d& point, const AcGeTol& tol) const
{
    const AcGeVector3d n = normal();
    const AcGeVector3d direction = line.direction();
    const double approach = direction.dotProduct(n);
    if (std::fabs(approach) <= tol.equalVector())
        return false;
    const AcGePoint3d start = line.pointOnLine();
    point = start + direction * ((m_origin - start).dotProduct(n) / approach);
    return line.isOn(point, tol);
}

AcGePlane& AcGePlane::set(const AcGePoint3d& origin, const AcGeVector3d& normal)
{
    m_origin = origin;
    KxPlat::EntityAxes(normal, m_uAxis, m_vAxis);
    return *this;
}

AcGePlane& AcGePlane::set(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis)
{
    m_origin = origin;
    m_uAxis = uAxis;
    m_vAxis = vAxis;
    return *this;
}

AcGePlane& AcGePlane::transformBy(const AcGeMatrix3d& matrix)
{
    return set(matrix * m_origin, matrix * m_uAxis, matrix * m_vAxis);
}

AcGePlane& AcGePlane::reverseNormal()
{
    std::swap(m_uAxis, m_vAxis);
    return *this;
}
