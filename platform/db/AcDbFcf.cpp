#include "AcDbFcf.h"
#include "core/Fields.h"
#include "core/Members.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbFcf, AcDbEntity, 0, 0, 0, TOLERANCE, AcDb)

const ClassSchema& AcDbFcf::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "TOLERANCE", "AcDbFcf",
                                    {
                                        Name(3, &AcDbFcf::m_style, TableKind::DimStyle),
                                        Point3(10, &AcDbFcf::m_location).always(),
                                        Text(1, &AcDbFcf::m_text).always(),
                                        Vector3(210, &AcDbFcf::m_normal),
                                        Vector3(11, &AcDbFcf::m_direction, 1, 0, 0),
                                    });
    return schema;
}

ACHAR* AcDbFcf::text() const
{
    return NewString(m_text);
}

Acad::ErrorStatus AcDbFcf::setText(const ACHAR* text)
{
    return text == nullptr ? Acad::eInvalidInput : Assign(*this, m_text, text);
}

Acad::ErrorStatus AcDbFcf::setLocation(const AcGePoint3d& location)
{
    return Assign(*this, m_location, location);
}

Acad::ErrorStatus AcDbFcf::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    return extents.addPoint(m_location);
}

Acad::ErrorStatus AcDbFcf::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_location.transformBy(transform);
    m_direction.transformBy(transform).normalize();
    m_normal.transformBy(transform).normalize();
    return Acad::eOk;
}
