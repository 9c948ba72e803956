#include "AcDbLeader.h"
#include "core/Fields.h"
#include "core/Members.h"
#include "core/VectorList.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbLeader, AcDbCurve, 0, 0, 0, LEADER, AcDb)

const ClassSchema& AcDbLeader::fieldSchema()
{
    using Leader = AcDbLeader;
    static const PointList<Leader, AcGePoint3d> vertices(10, &Leader::m_vertices);
    static const ClassSchema schema(
        &AcDbCurve::fieldSchema(), "LEADER", "AcDbLeader",
        {
            Name(3, &Leader::m_style, TableKind::DimStyle),
            Int16(71, &Leader::m_hasArrow, 1),
            Int16(72, &Leader::m_isSplined),
            Int16(73, &Leader::m_annotationType, 3),
            Int16(74, &Leader::m_hookDirection),
            Int16(75, &Leader::m_hasHook),
            Real(40, &Leader::m_textHeight),
            Real(41, &Leader::m_textWidth),
            Count(76, [](const AcDbObject& o) { return static_cast<const Leader&>(o).numVertices(); }),
            List(&vertices),
            Int16(77, &Leader::m_color),
            Id(340, &Leader::m_annotation),
            Vector3(211, &Leader::m_xDirection, 1, 0, 0),
            Vector3(210, &Leader::m_normal),
            Vector3(212, &Leader::m_blockOffset, 0, 0, 0),
            Vector3(213, &Leader::m_annotationOffset, 0, 0, 0),
        });
    return schema;
}

AcGePoint3d AcDbLeader::vertexAt(int index) const
{
    return index >= 0 && index < numVertices() ? m_vertices[size_t(index)] : AcGePoint3d();
}

Acad::ErrorStatus AcDbLeader::setVertexAt(int index, const AcGePoint3d& point)
{
    if (index < 0 || index >= numVertices())
        return Acad::eInvalidIndex;
    return Assign(*this, m_vertices[size_t(index)], point);
}

bool AcDbLeader::appendVertex(const AcGePoint3d& point)
{
    if (assertWriteEnabled() != Acad::eOk)
        return false;
    m_vertices.push_back(point);
    return true;
}

void AcDbLeader::removeLastVertex()
{
    if (!m_vertices.empty() && assertWriteEnabled() == Acad::eOk)
        m_vertices.pop_back();
}

Acad::ErrorStatus AcDbLeader::attachAnnotation(AcDbObjectId annotation)
{
    return Assign(*this, m_annotation, annotation);
}

Acad::ErrorStatus AcDbLeader::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    for (const AcGePoint3d& vertex : m_vertices)
        extents.addPoint(vertex);
    return m_vertices.empty() ? Acad::eInvalidExtents : Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    for (AcGePoint3d& vertex : m_vertices)
        vertex.transformBy(transform);
    m_xDirection.transformBy(transform).normalize();
    m_normal.transformBy(transform).normalize();
    m_annotationOffset.transformBy(transform);
    m_blockOffset.transformBy(transform);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::getStartParam(double& parameter) const
{
    parameter = 0;
    return m_vertices.empty() ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::getEndParam(double& parameter) const
{
    parameter = m_vertices.empty() ? 0 : double(m_vertices.size() - 1);
    return m_vertices.empty() ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::getPointAtParam(double parameter, AcGePoint3d& point) const
{
    if (m_vertices.empty() || !(parameter >= 0 && parameter <= double(m_vertices.size() - 1)))
        return Acad::eInvalidInput;
    const size_t index = size_t(parameter);
    const AcGePoint3d& start = m_vertices[index];
    point =
        index + 1 == m_vertices.size() ? start : start + (m_vertices[index + 1] - start) * (parameter - double(index));
    return Acad::eOk;
}
