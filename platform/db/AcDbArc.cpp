#include "AcDbArc.h"
#include "core/Fields.h"
#include "core/FlatMap.h"
#include "core/Members.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbArc, AcDbCurve, 0, 0, 0, ARC, AcDb)

const ClassSchema& AcDbArc::fieldSchema()
{
    static const ClassSchema circle(&AcDbCurve::fieldSchema(), "ARC", "AcDbCircle",
                                    {
                                        Real(39, &AcDbArc::m_thickness),
                                        Point3(10, &AcDbArc::m_center).always(),
                                        Real(40, &AcDbArc::m_radius).always(),
                                        Vector3(210, &AcDbArc::m_normal),
                                    });
    static const ClassSchema schema(&circle, "ARC", "AcDbArc",
                                    {
                                        Real(50, &AcDbArc::m_start).always(),
                                        Real(51, &AcDbArc::m_end).always(),
                                    });
    return schema;
}

AcDbArc::AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle)
    : AcDbArc(center, AcGeVector3d::kZAxis, radius, startAngle, endAngle)
{
}

AcDbArc::AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle,
                 double endAngle)
    : m_center(WorldToEntity(center, normal)),
      m_normal(normal.normal()),
      m_radius(radius),
      m_start(Degrees(startAngle)),
      m_end(Degrees(endAngle))
{
}

AcGePoint3d AcDbArc::center() const
{
    return EntityToWorld(m_center, m_normal);
}

Acad::ErrorStatus AcDbArc::setCenter(const AcGePoint3d& center)
{
    return Assign(*this, m_center, WorldToEntity(center, m_normal));
}

Acad::ErrorStatus AcDbArc::setRadius(double radius)
{
    return radius >= 0 ? Assign(*this, m_radius, radius) : Acad::eInvalidInput;
}

double AcDbArc::startAngle() const
{
    return Radians(m_start);
}

Acad::ErrorStatus AcDbArc::setStartAngle(double angle)
{
    return Assign(*this, m_start, Degrees(FullTurn(angle)));
}

double AcDbArc::endAngle() const
{
    return Radians(m_end);
}

Acad::ErrorStatus AcDbArc::setEndAngle(double angle)
{
    return Assign(*this, m_end, Degrees(FullTurn(angle)));
}

double AcDbArc::totalAngle() const
{
    const double angle = FullTurn(endAngle() - startAngle());
    return angle == 0 ? 2 * kPi : angle;
}

Acad::ErrorStatus AcDbArc::setThickness(double thickness)
{
    return Assign(*this, m_thickness, thickness);
}

Acad::ErrorStatus AcDbArc::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    const AcGePoint3d kept = center();
    const Acad::ErrorStatus status = Assign(*this, m_normal, normal.normal());
    return status == Acad::eOk ? setCenter(kept) : status;
}

Acad::ErrorStatus AcDbArc::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    AcGeCircArc3d arc(center(), m_normal, m_normal.perpVector(), m_radius, startAngle(), endAngle());
    AddArc(extents, arc);
    if (m_thickness != 0) {
        arc.transformBy(AcGeMatrix3d::translation(m_normal * m_thickness));
        AddArc(extents, arc);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const FlatMap map(transform, m_normal);
    m_center = map.Point(m_center);
    m_radius *= map.Scale();
    m_thickness = map.Thickness(m_thickness);
    m_start = map.Degrees(m_start);
    m_end = map.Degrees(m_end);
    if (map.isMirrored())
        std::swap(m_start, m_end);
    m_normal = map.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::getEcs(AcGeMatrix3d& ecs) const
{
    ecs = AcGeMatrix3d::planeToWorld(m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::getStartParam(double& parameter) const
{
    parameter = startAngle();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::getEndParam(double& parameter) const
{
    parameter = startAngle() + totalAngle();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::getPointAtParam(double parameter, AcGePoint3d& point) const
{
    const AcGeVector3d arm(std::cos(parameter) * m_radius, std::sin(parameter) * m_radius, 0);
    point = EntityToWorld(m_center + arm, m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::getArea(double& area) const
{
    const double angle = totalAngle();
    area = m_radius * m_radius * std::fabs(angle - std::sin(angle)) / 2;
    return Acad::eOk;
}
