#include "FlatMap.h"

namespace KxPlat {

FlatMap::FlatMap(const AcGeMatrix3d& transform, const AcGeVector3d& normal)
{
    const AcGeMatrix3d before = AcGeMatrix3d::planeToWorld(normal);
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    (transform * before).getCoordSystem(origin, x, y, z);
    const AcGeVector3d across = x.crossProduct(y);
    m_isMirrored = across.dotProduct(z) < 0.0;
    m_normal = across.isZeroLength() ? normal : across.normal() * (m_isMirrored ? -1.0 : 1.0);
    m_scale = x.length();
    m_depth = z.dotProduct(m_normal);
    m_map = AcGeMatrix3d::worldToPlane(m_normal) * transform * before;
}

double FlatMap::Degrees(double degrees) const
{
    const double angle = Radians(degrees);
    const AcGeVector3d direction = m_map * AcGeVector3d(std::cos(angle), std::sin(angle), 0.0);
    return KxPlat::Degrees(FullTurn(std::atan2(direction.y, direction.x)));
}

void AddArc(AcDbExtents& extents, const AcGeEllipArc3d& arc)
{
    extents.addPoint(arc.startPoint());
    extents.addPoint(arc.endPoint());
    const AcGeVector3d major = arc.majorAxis() * arc.majorRadius();
    const AcGeVector3d minor = arc.minorAxis() * arc.minorRadius();
    for (unsigned axis = 0; axis < 3; ++axis) {
        const double turning = std::atan2(minor[axis], major[axis]);
        for (const double angle : {turning, turning + kPi}) {
            const double parameter = arc.startAng() + FullTurn(angle - arc.startAng());
            if (parameter <= arc.endAng())
                extents.addPoint(arc.evalPoint(parameter));
        }
    }
}

void AddFlatPoint(AcDbExtents& extents, const AcGePoint3d& point, const AcGeVector3d& normal, double thickness)
{
    const AcGePoint3d world = EntityToWorld(point, normal);
    extents.addPoint(world);
    if (thickness != 0.0)
        extents.addPoint(world + normal * thickness);
}

}   // namespace KxPlat
