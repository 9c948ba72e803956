#include "AcGePoint3d.h"
#include "AcGeMatrix3d.h"
#include "AcGePlane.h"

const AcGePoint3d AcGePoint3d::kOrigin;

AcGePoint3d::AcGePoint3d(const AcGePlanarEnt& plane, const AcGePoint2d& point)
{
    *this = plane.pointOnPlane() + AcGeVector3d(plane, point.asVector());
}

AcGePoint2d AcGePoint3d::convert2d(const AcGePlanarEnt& plane) const
{
    return AcGePoint2d() + (*this - plane.pointOnPlane()).convert2d(plane);
}

AcGePoint3d& AcGePoint3d::rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& about)
{
    return *this = about + (*this - about).rotateBy(angle, axis);
}

AcGePoint3d& AcGePoint3d::scaleBy(double factor, const AcGePoint3d& about)
{
    return *this = about + (*this - about) * factor;
}

AcGePoint3d& AcGePoint3d::mirror(const AcGePlane& plane)
{
    return *this -= plane.normal() * (2.0 * plane.signedDistanceTo(*this));
}

AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& matrix)
{
    return *this = matrix * *this;
}

AcGePoint3d AcGePoint3d::orthoProject(const AcGePlane& plane) const
{
    return *this - plane.normal() * plane.signedDistanceTo(*this);
}

AcGePoint3d AcGePoint3d::project(const AcGePlane& plane, const AcGeVector3d& vector) const
{
    const double approach = vector.dotProduct(plane.normal());
    if (std::fabs(approach) <= AcGeContext::gTol.equalVector() * vector.length())
        return *this;   // the line never meets the plane
    return *this - vector * (plane.signedDistanceTo(*this) / approach);
}

AcGePoint3d operator*(const AcGeMatrix3d& matrix, const AcGePoint3d& point)
{
    return AcGePoint3d() + (matrix * point.asVector() + matrix.translation());
}
