// Entities that lie in a plane keep their points in the axes of that plane. A map of the world becomes a map between
// the plane's axes before and after.
#pragma once
#include "../../ge/AcGeEllipArc3d.h"
#include "../AcDbExtents.h"

namespace KxPlat {

class FlatMap {
public:
    FlatMap(const AcGeMatrix3d& transform, const AcGeVector3d& normal);

    AcGeVector3d normal() const { return m_normal; }
    AcGePoint3d Point(const AcGePoint3d& point) const { return m_map * point; }
    AcGeVector3d Vector(const AcGeVector3d& vector) const { return m_map * vector; }
    double Degrees(double degrees) const;      // of a direction in the plane
    double Scale() const { return m_scale; }   // along the plane's X axis
    double Thickness(double thickness) const { return thickness * m_depth; }
    // Left turns become right turns.
    bool isMirrored() const { return m_isMirrored; }

private:
    AcGeMatrix3d m_map;
    AcGeVector3d m_normal;
    double m_scale;
    double m_depth;
    bool m_isMirrored;
};

// The box around an arc, exact.
void AddArc(AcDbExtents& extents, const AcGeEllipArc3d& arc);
// A point given in the axes of a plane with this normal, and the same lifted by a thickness.
void AddFlatPoint(AcDbExtents& extents, const AcGePoint3d& point, const AcGeVector3d& normal, double thickness = 0.0);

}   // namespace KxPlat
