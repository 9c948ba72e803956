#include "AcGeVector3d.h"
#include "AcGeMatrix3d.h"
#include "AcGePlane.h"
#include "EntityAxes.h"

const AcGeVector3d AcGeVector3d::kIdentity;
const AcGeVector3d AcGeVector3d::kXAxis(1.0, 0.0, 0.0);
const AcGeVector3d AcGeVector3d::kYAxis(0.0, 1.0, 0.0);
const AcGeVector3d AcGeVector3d::kZAxis(0.0, 0.0, 1.0);

AcGeVector3d::AcGeVector3d(const AcGePlanarEnt& plane, const AcGeVector2d& vector)
{
    AcGePoint3d origin;
    AcGeVector3d uAxis, vAxis;
    plane.getCoordSystem(origin, uAxis, vAxis);
    *this = uAxis * vector.x + vAxis * vector.y;
}

AcGeVector2d AcGeVector3d::convert2d(const AcGePlanarEnt& plane) const
{
    AcGePoint3d origin;
    AcGeVector3d uAxis, vAxis;
    plane.getCoordSystem(origin, uAxis, vAxis);
    return {dotProduct(uAxis) / uAxis.lengthSqrd(), dotProduct(vAxis) / vAxis.lengthSqrd()};
}

AcGeVector3d& AcGeVector3d::normalize(const AcGeTol& tol)
{
    const double size = length();
    return size <= tol.equalVector() ? *this : *this /= size;
}

AcGeVector3d AcGeVector3d::perpVector() const
{
    AcGeVector3d xAxis, yAxis;
    KxPlat::EntityAxes(*this, xAxis, yAxis);
    return xAxis;
}

double AcGeVector3d::angleTo(const AcGeVector3d& other) const
{
    return std::atan2(crossProduct(other).length(), dotProduct(other));
}

double AcGeVector3d::angleTo(const AcGeVector3d& other, const AcGeVector3d& reference) const
{
    const double angle = angleTo(other);
    const bool isBehind = crossProduct(other).dotProduct(reference) < 0.0;
    return isBehind && angle > 0.0 ? 2.0 * KxPlat::kPi - angle : angle;
}

double AcGeVector3d::angleOnPlane(const AcGePlanarEnt& plane) const
{
    return convert2d(plane).angle();
}

AcGeVector3d& AcGeVector3d::rotateBy(double angle, const AcGeVector3d& axis)
{
    return *this = AcGeMatrix3d::rotation(angle, axis) * *this;
}

AcGeVector3d& AcGeVector3d::mirror(const AcGeVector3d& normalToPlane)
{
    const AcGeVector3d n = normalToPlane.normal();
    return *this -= n * (2.0 * dotProduct(n));
}

AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& matrix)
{
    return *this = matrix * *this;
}

bool AcGeVector3d::isParallelTo(const AcGeVector3d& other, const AcGeTol& tol) const
{
    return isCodirectionalTo(other, tol) || isCodirectionalTo(-other, tol);
}

bool AcGeVector3d::isCodirectionalTo(const AcGeVector3d& other, const AcGeTol& tol) const
{
    return normal(tol).isEqualTo(other.normal(tol), tol);
}

bool AcGeVector3d::isPerpendicularTo(const AcGeVector3d& other, const AcGeTol& tol) const
{
    return std::fabs(normal(tol).dotProduct(other.normal(tol))) <= tol.equalVector();
}

AcGeVector3d operator*(const AcGeMatrix3d& matrix, const AcGeVector3d& v)
{
    const auto& e = matrix.entry;
    return {e[0][0] * v.x + e[0][1] * v.y + e[0][2] * v.z, e[1][0] * v.x + e[1][1] * v.y + e[1][2] * v.z,
            e[2][0] * v.x + e[2][1] * v.y + e[2][2] * v.z};
}
