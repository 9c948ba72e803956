#include "AcDbRay.h"
#include "core/Fields.h"
#include "core/Members.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbRay, AcDbCurve, 0, 0, 0, RAY, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbXline, AcDbCurve, 0, 0, 0, XLINE, AcDb)

namespace KxPlat {

std::vector<Field> EndlessLine::FieldList()
{
    return {
        Point3(10, &EndlessLine::m_base).always(),
        Vector3(11, &EndlessLine::m_direction, 0, 0, 0).always(),
    };
}

Acad::ErrorStatus EndlessLine::setBasePoint(const AcGePoint3d& point)
{
    return Assign(*this, m_base, point);
}

Acad::ErrorStatus EndlessLine::setUnitDir(const AcGeVector3d& direction)
{
    return direction.isZeroLength() ? Acad::eInvalidInput : Assign(*this, m_direction, direction.normal());
}

Acad::ErrorStatus EndlessLine::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    if ((transform * m_direction).isZeroLength())
        return Acad::eDegenerateGeometry;
    m_base.transformBy(transform);
    m_direction.transformBy(transform).normalize();
    return Acad::eOk;
}

Acad::ErrorStatus EndlessLine::getPointAtParam(double parameter, AcGePoint3d& point) const
{
    double start = parameter;
    if (getStartParam(start) == Acad::eOk && parameter < start)
        return Acad::eInvalidInput;
    point = m_base + m_direction * parameter;
    return Acad::eOk;
}

}   // namespace KxPlat

const ClassSchema& AcDbRay::fieldSchema()
{
    static const ClassSchema schema(&AcDbCurve::fieldSchema(), "RAY", "AcDbRay", FieldList());
    return schema;
}

Acad::ErrorStatus AcDbRay::getStartParam(double& parameter) const
{
    parameter = 0;
    return Acad::eOk;
}

const ClassSchema& AcDbXline::fieldSchema()
{
    static const ClassSchema schema(&AcDbCurve::fieldSchema(), "XLINE", "AcDbXline", FieldList());
    return schema;
}
