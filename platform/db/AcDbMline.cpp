#include "AcDbMline.h"
#include "core/Fields.h"
#include "core/GroupListField.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbMline, AcDbEntity, 0, 0, 0, MLINE, AcDb)

const ClassSchema& AcDbMline::fieldSchema()
{
    static const GroupListField<AcDbMline> segments(&AcDbMline::m_segments,
                                                    {11, 21, 31, 12, 22, 32, 13, 23, 33, 74, 41, 75, 42});
    static const ClassSchema schema(
        &AcDbEntity::fieldSchema(), "MLINE", "AcDbMline",
        {
            Text(2, &AcDbMline::m_styleName).always(),
            Id(340, &AcDbMline::m_style),
            Real(40, &AcDbMline::m_scale, 1).always(),
            Int16(70, &AcDbMline::m_justification).always(),
            Int16(71, &AcDbMline::m_flags, 1).always(),
            Count(72, [](const AcDbObject& o) { return static_cast<const AcDbMline&>(o).numVertices(); }),
            Int16(73, &AcDbMline::m_elementCount).always(),
            Point3(10, &AcDbMline::m_start).always(),
            Vector3(210, &AcDbMline::m_normal).always(),
            List(&segments),
        });
    return schema;
}

int AcDbMline::numVertices() const
{
    int count = 0;
    for (const GroupValue& group : m_segments)
        count += group.code == 11;
    return count;
}

AcGePoint3d AcDbMline::vertexAt(int index) const
{
    AcGePoint3d vertex;
    int at = -1;
    for (const GroupValue& group : m_segments) {
        at += group.code == 11;
        const int axis = (group.code - 11) / 10;
        if (at == index && (group.code == 11 || group.code == 21 || group.code == 31))
            vertex[unsigned(axis)] = group.real();
    }
    return vertex;
}

Acad::ErrorStatus AcDbMline::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    for (const AcGePoint3d& vertex : Vertices())
        extents.addPoint(vertex);
    for (int element = 0; element < m_elementCount; ++element)
        for (const AcGePoint3d& place : ElementAt(element))
            extents.addPoint(place);
    return extents.isEmpty() ? Acad::eInvalidExtents : Acad::eOk;
}

Acad::ErrorStatus AcDbMline::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const double scale = (transform * AcGeVector3d::kXAxis).length();
    for (size_t i = 0; i < m_segments.size(); ++i) {
        const int code = m_segments[i].code;
        if (code == 41 || code == 42)
            m_segments[i].value = m_segments[i].real() * scale;
        const bool isTriple = (code == 11 || code == 12 || code == 13) && i + 2 < m_segments.size() &&
                              m_segments[i + 1].code == code + 10 && m_segments[i + 2].code == code + 20;
        if (!isTriple)
            continue;
        const AcGeVector3d before(m_segments[i].real(), m_segments[i + 1].real(), m_segments[i + 2].real());
        const AcGeVector3d after =
            code == 11 ? (transform * (AcGePoint3d() + before)).asVector() : (transform * before).normal();
        for (unsigned axis = 0; axis < 3; ++axis)
            m_segments[i + axis].value = after[axis];
    }
    m_start.transformBy(transform);
    m_normal.transformBy(transform).normalize();
    m_scale *= scale;
    return Acad::eOk;
}
