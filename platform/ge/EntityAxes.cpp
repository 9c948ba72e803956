#include "EntityAxes.h"

namespace KxPlat {

void EntityAxes(const AcGeVector3d& normal, AcGeVector3d& xAxis, AcGeVector3d& yAxis)
{
    if (normal.x == 0.0 && normal.y == 0.0) {
        xAxis = normal.z < 0.0 ? -AcGeVector3d::kXAxis : AcGeVector3d::kXAxis;
        yAxis = AcGeVector3d::kYAxis;
        return;
    }
    constexpr double kNearZ = 1.0 / 64.0;
    const AcGeVector3d n = normal.normal();
    const bool isNearZ = std::fabs(n.x) < kNearZ && std::fabs(n.y) < kNearZ;
    xAxis = (isNearZ ? AcGeVector3d::kYAxis : AcGeVector3d::kZAxis).crossProduct(n).normal();
    yAxis = n.crossProduct(xAxis).normal();
}

AcGePoint3d EntityToWorld(const AcGePoint3d& point, const AcGeVector3d& normal)
{
    if (normal.x == 0.0 && normal.y == 0.0 && normal.z >= 0.0)
        return point;
    return AcGeMatrix3d::planeToWorld(normal) * point;
}

AcGePoint3d WorldToEntity(const AcGePoint3d& point, const AcGeVector3d& normal)
{
    if (normal.x == 0.0 && normal.y == 0.0 && normal.z >= 0.0)
        return point;
    return AcGeMatrix3d::worldToPlane(normal) * point;
}

double FullTurn(double angle)
{
    if (!std::isfinite(angle))
        return 0.0;
    const double rest = std::fmod(angle, 2.0 * kPi);
    const double turned = rest < 0.0 ? rest + 2.0 * kPi : rest;
    return turned >= 2.0 * kPi ? 0.0 : turned;
}

}   // namespace KxPlat
