#include "AcDbLine.h"
#include "core/Fields.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbLine, AcDbCurve, 0, 0, 0, LINE, AcDb)

const ClassSchema& AcDbLine::fieldSchema()
{
    static const ClassSchema schema(&AcDbCurve::fieldSchema(), "LINE", "AcDbLine",
                                    {
                                        Real(39, &AcDbLine::m_thickness),
                                        Point3(10, &AcDbLine::m_start).always(),
                                        Point3(11, &AcDbLine::m_end).always(),
                                        Vector3(210, &AcDbLine::m_normal),
                                    });
    return schema;
}

Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& point)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_start = point;
    return status;
}

Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& point)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_end = point;
    return status;
}

Acad::ErrorStatus AcDbLine::setThickness(double thickness)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_thickness = thickness;
    return status;
}

Acad::ErrorStatus AcDbLine::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_normal = normal.normal();
    return status;
}

Acad::ErrorStatus AcDbLine::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    extents.addPoint(m_start);
    extents.addPoint(m_end);
    if (m_thickness != 0) {
        extents.addPoint(m_start + m_normal * m_thickness);
        extents.addPoint(m_end + m_normal * m_thickness);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_start.transformBy(transform);
    m_end.transformBy(transform);
    AcGeVector3d extrusion = m_normal;
    extrusion.transformBy(transform);
    m_thickness *= extrusion.length();
    if (!extrusion.isZeroLength())
        m_normal = extrusion.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getStartParam(double& parameter) const
{
    parameter = 0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getEndParam(double& parameter) const
{
    parameter = m_start.distanceTo(m_end);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getPointAtParam(double parameter, AcGePoint3d& point) const
{
    const double length = m_start.distanceTo(m_end);
    if (parameter < -1e-10 || parameter > length + 1e-10)
        return Acad::eInvalidInput;
    point = length == 0 ? m_start : m_start + (m_end - m_start) * (parameter / length);
    return Acad::eOk;
}
