#include "AcDbLeader.h"
#include "../ge/AcGePlane.h"
#include "AcDbBlockReference.h"
#include "AcDbDimStyleTableRecord.h"
#include "AcDbFcf.h"
#include "AcDbMText.h"
#include "core/CurvePieces.h"
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

Acad::ErrorStatus AcDbLeader::detachAnnotation()
{
    const Acad::ErrorStatus status = Assign(*this, m_annotation, AcDbObjectId());
    if (status == Acad::eOk)
        m_annotationType = 3, m_hasHook = 0;
    return status;
}

Acad::ErrorStatus AcDbLeader::setToSplineLeader()
{
    return Assign(*this, m_isSplined, 1);
}

Acad::ErrorStatus AcDbLeader::setToStraightLeader()
{
    return Assign(*this, m_isSplined, 0);
}

Acad::ErrorStatus AcDbLeader::enableArrowHead()
{
    return Assign(*this, m_hasArrow, 1);
}

Acad::ErrorStatus AcDbLeader::disableArrowHead()
{
    return Assign(*this, m_hasArrow, 0);
}

Acad::ErrorStatus AcDbLeader::setDimensionStyle(AcDbObjectId style)
{
    if (style.objectClass() == nullptr || !style.objectClass()->isDerivedFrom(AcDbDimStyleTableRecord::desc()))
        return Acad::eInvalidInput;
    return Assign(*this, m_style, style);
}

Acad::ErrorStatus AcDbLeader::setPlane(const AcGePlane& plane)
{
    AcGePoint3d origin;
    AcGeVector3d u, v;
    plane.getCoordSystem(origin, u, v);
    const Acad::ErrorStatus status = Assign(*this, m_normal, plane.normal());
    if (status == Acad::eOk)
        m_xDirection = u.normal();
    return status;
}

// The hook leads away from the last vertex towards the annotation.
Acad::ErrorStatus AcDbLeader::evaluateLeader()
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    AcDbEntity* annotation = nullptr;
    m_annotationType = 3;
    m_hasHook = 0;
    if (m_vertices.empty() || acdbOpenObject(annotation, m_annotation, AcDb::kForRead) != Acad::eOk)
        return Acad::eOk;
    AcGePoint3d place = m_vertices.back();
    if (const auto* text = AcDbMText::cast(annotation)) {
        m_annotationType = 0;
        m_textHeight = text->actualHeight(), m_textWidth = text->actualWidth();
        place = text->location();
        m_hasHook = 1;
    } else if (const auto* frame = AcDbFcf::cast(annotation)) {
        m_annotationType = 1;
        place = frame->location();
        m_hasHook = 1;
    } else if (const auto* block = AcDbBlockReference::cast(annotation)) {
        m_annotationType = 2;
        m_blockOffset = block->position() - m_vertices.back();
    }
    m_hookDirection = (place - m_vertices.back()).dotProduct(m_xDirection) >= 0 ? 1 : 0;
    m_annotationOffset = m_annotationType == 2 ? AcGeVector3d() : place - m_vertices.back();
    annotation->close();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    CurvePieces pieces;
    addOutline(pieces);
    std::vector<AcGePoint3d> places = m_vertices;
    for (const CurvePiece& piece : pieces)
        AddSamples(piece, places);
    for (const AcGePoint3d& place : places)
        extents.addPoint(place);
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
