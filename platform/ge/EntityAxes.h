// The axes that a flat entity's normal stands for.
#pragma once
#include "AcGeMatrix3d.h"

namespace KxPlat {

// The arbitrary axis rule: when the normal is within 1/64 of the world's Z axis, the entity's X axis is Y x normal,
// else Z x normal. A normal of no length counts as Z.
void EntityAxes(const AcGeVector3d& normal, AcGeVector3d& xAxis, AcGeVector3d& yAxis);

AcGePoint3d EntityToWorld(const AcGePoint3d& point, const AcGeVector3d& normal);
AcGePoint3d WorldToEntity(const AcGePoint3d& point, const AcGeVector3d& normal);

constexpr double kPi = 3.14159265358979323846;
inline double Radians(double degrees)
{
    return degrees * (kPi / 180.0);
}
inline double Degrees(double radians)
{
    return radians * (180.0 / kPi);
}
// Within 0 to 2 pi, the end left out; 0 for what is not finite.
double FullTurn(double angle);

}   // namespace KxPlat
