#include "AcDbPoint.h"
#include "core/Fields.h"
#include "core/FlatMap.h"
#include "core/Members.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbPoint, AcDbEntity, 0, 0, 0, POINT, AcDb)

const ClassSchema& AcDbPoint::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "POINT", "AcDbPoint",
                                    {
                                        Point3(10, &AcDbPoint::m_position).always(),
                                        Real(39, &AcDbPoint::m_thickness),
                                        Vector3(210, &AcDbPoint::m_normal),
                                        Real(50, &AcDbPoint::m_rotation),
                                    });
    return schema;
}

Acad::ErrorStatus AcDbPoint::setPosition(const AcGePoint3d& position)
{
    return Assign(*this, m_position, position);
}

Acad::ErrorStatus AcDbPoint::setThickness(double thickness)
{
    return Assign(*this, m_thickness, thickness);
}

Acad::ErrorStatus AcDbPoint::setNormal(const AcGeVector3d& normal)
{
    return normal.isZeroLength() ? Acad::eInvalidInput : Assign(*this, m_normal, normal.normal());
}

double AcDbPoint::ecsRotation() const
{
    return Radians(m_rotation);
}

Acad::ErrorStatus AcDbPoint::setEcsRotation(double angle)
{
    return Assign(*this, m_rotation, Degrees(angle));
}

Acad::ErrorStatus AcDbPoint::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    extents.addPoint(m_position);
    if (m_thickness != 0)
        extents.addPoint(m_position + m_normal * m_thickness);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const FlatMap map(transform, m_normal);
    m_position.transformBy(transform);
    m_rotation = m_rotation == 0 && map.normal() == m_normal ? 0 : map.Degrees(m_rotation);
    m_thickness = map.Thickness(m_thickness);
    m_normal = map.normal();
    return Acad::eOk;
}
