#include "AcDbCircle.h"
#include "core/Fields.h"
#include "core/FlatMap.h"
#include "core/Members.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbCircle, AcDbCurve, 0, 0, 0, CIRCLE, AcDb)

const ClassSchema& AcDbCircle::fieldSchema()
{
    static const ClassSchema schema(&AcDbCurve::fieldSchema(), "CIRCLE", "AcDbCircle",
                                    {
                                        Real(39, &AcDbCircle::m_thickness),
                                        Point3(10, &AcDbCircle::m_center).always(),
                                        Real(40, &AcDbCircle::m_radius).always(),
                                        Vector3(210, &AcDbCircle::m_normal),
                                    });
    return schema;
}

AcDbCircle::AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius)
    : m_center(WorldToEntity(center, normal)), m_normal(normal.normal()), m_radius(radius)
{
}

AcGePoint3d AcDbCircle::center() const
{
    return EntityToWorld(m_center, m_normal);
}

Acad::ErrorStatus AcDbCircle::setCenter(const AcGePoint3d& center)
{
    return Assign(*this, m_center, WorldToEntity(center, m_normal));
}

Acad::ErrorStatus AcDbCircle::setRadius(double radius)
{
    return radius >= 0 ? Assign(*this, m_radius, radius) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbCircle::setThickness(double thickness)
{
    return Assign(*this, m_thickness, thickness);
}

Acad::ErrorStatus AcDbCircle::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    const AcGePoint3d kept = center();
    const Acad::ErrorStatus status = Assign(*this, m_normal, normal.normal());
    return status == Acad::eOk ? setCenter(kept) : status;
}

double AcDbCircle::circumference() const
{
    return 2 * kPi * m_radius;
}

Acad::ErrorStatus AcDbCircle::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    AcGeCircArc3d circle(center(), m_normal, m_radius);
    AddArc(extents, circle);
    if (m_thickness != 0) {
        circle.transformBy(AcGeMatrix3d::translation(m_normal * m_thickness));
        AddArc(extents, circle);
    }
    return Acad::eOk;
}

// A circle stays one: of an uneven scale it takes the factor along its X axis.
Acad::ErrorStatus AcDbCircle::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const FlatMap map(transform, m_normal);
    m_center = map.Point(m_center);
    m_radius *= map.Scale();
    m_thickness = map.Thickness(m_thickness);
    m_normal = map.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getEcs(AcGeMatrix3d& ecs) const
{
    ecs = AcGeMatrix3d::planeToWorld(m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getStartParam(double& parameter) const
{
    parameter = 0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getEndParam(double& parameter) const
{
    parameter = 2 * kPi;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getPointAtParam(double parameter, AcGePoint3d& point) const
{
    const AcGeVector3d arm(std::cos(parameter) * m_radius, std::sin(parameter) * m_radius, 0);
    point = EntityToWorld(m_center + arm, m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getArea(double& area) const
{
    area = kPi * m_radius * m_radius;
    return Acad::eOk;
}
