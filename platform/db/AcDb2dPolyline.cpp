#include "AcDb2dPolyline.h"
#include "core/Fields.h"
#include "core/FlatMap.h"
#include "core/Members.h"
#include "core/Stub.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDb2dPolyline, AcDbCurve, 0, 0, 0, POLYLINE, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDb3dPolyline, AcDbCurve, 0, 0, 0, POLYLINE, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbPolygonMesh, AcDbEntity, 0, 0, 0, POLYLINE, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbPolyFaceMesh, AcDbEntity, 0, 0, 0, POLYLINE, AcDb)

const ClassSchema& AcDb2dPolyline::fieldSchema()
{
    using Polyline = AcDb2dPolyline;
    static const ClassSchema schema(&AcDbCurve::fieldSchema(), "POLYLINE", "AcDb2dPolyline",
                                    {
                                        Int16(66, &Polyline::m_follow).always(),
                                        Point3(10, &Polyline::m_base).always(),
                                        Real(39, &Polyline::m_thickness),
                                        Int16(70, &Polyline::m_flags),
                                        Real(40, &Polyline::m_startWidth),
                                        Real(41, &Polyline::m_endWidth),
                                        Int16(75, &Polyline::m_curveType),
                                        Vector3(210, &Polyline::m_normal),
                                    });
    return schema;
}

const ClassSchema& AcDb3dPolyline::fieldSchema()
{
    using Polyline = AcDb3dPolyline;
    static const ClassSchema schema(&AcDbCurve::fieldSchema(), "POLYLINE", "AcDb3dPolyline",
                                    {
                                        Int16(66, &Polyline::m_follow).always(),
                                        Point3(10, &Polyline::m_base).always(),
                                        Int16(70, &Polyline::m_flags).always(),
                                        Int16(75, &Polyline::m_curveType),
                                    });
    return schema;
}

const ClassSchema& AcDbPolygonMesh::fieldSchema()
{
    using Mesh = AcDbPolygonMesh;
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "POLYLINE", "AcDbPolygonMesh",
                                    {
                                        Int16(66, &Mesh::m_follow).always(),
                                        Point3(10, &Mesh::m_base).always(),
                                        Int16(70, &Mesh::m_flags).always(),
                                        Int16(71, &Mesh::m_mSize).always(),
                                        Int16(72, &Mesh::m_nSize).always(),
                                        Int16(73, &Mesh::m_mDensity),
                                        Int16(74, &Mesh::m_nDensity),
                                        Int16(75, &Mesh::m_surfaceType),
                                    });
    return schema;
}

const ClassSchema& AcDbPolyFaceMesh::fieldSchema()
{
    using Mesh = AcDbPolyFaceMesh;
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "POLYLINE", "AcDbPolyFaceMesh",
                                    {
                                        Int16(66, &Mesh::m_follow).always(),
                                        Point3(10, &Mesh::m_base).always(),
                                        Int16(70, &Mesh::m_flags).always(),
                                        Int16(71, &Mesh::m_vertexCount).always(),
                                        Int16(72, &Mesh::m_faceCount).always(),
                                    });
    return schema;
}

// --- vertices ---

Acad::ErrorStatus VertexOwner::Append(AcDbObjectId& id, AcDbVertex* vertex, AcDbObjectId after)
{
    return m_parts.Insert(*this, vertex, after, id);
}

Acad::ErrorStatus VertexOwner::Open(AcDbVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode, bool erasedToo) const
{
    const Acad::ErrorStatus status = acdbOpenObject(vertex, id, mode, erasedToo);
    if (status != Acad::eOk || vertex->ownerId() == objectId())
        return status;
    vertex->close();
    vertex = nullptr;
    return Acad::eInvalidInput;
}

std::vector<const AcDbVertex*> VertexOwner::CurveVertices() const
{
    std::vector<const AcDbVertex*> vertices;
    m_parts.ForEach([&](const AcDbEntity& part) {
        const AcDbVertex* vertex = AcDbVertex::cast(&part);
        const auto* flat = AcDb2dVertex::cast(vertex);
        const auto* inSpace = AcDb3dPolylineVertex::cast(vertex);
        const bool isFrame = (flat != nullptr && flat->vertexType() == AcDb::k2dSplineCtlVertex) ||
                             (inSpace != nullptr && inSpace->vertexType() == AcDb::k3dControlVertex);
        if (vertex != nullptr && !isFrame && !vertex->isKindOf(AcDbFaceRecord::desc()))
            vertices.push_back(vertex);
    });
    return vertices;
}

void VertexOwner::Places(AcArray<AcGePoint3d>& places) const
{
    for (const AcDbVertex* vertex : CurveVertices())
        places.append(vertex->position());
}

Acad::ErrorStatus VertexOwner::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    AcArray<AcGePoint3d> places;
    Places(places);
    for (const AcGePoint3d& place : places)
        extents.addPoint(place);
    return places.isEmpty() ? Acad::eInvalidExtents : Acad::eOk;
}

Acad::ErrorStatus VertexOwner::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    for (AcDbStub* stub : m_parts.stubs()) {
        AcDbVertex* vertex = nullptr;
        if (stub->erased || acdbOpenObject(vertex, AcDbObjectId(stub), AcDb::kForWrite) != Acad::eOk)
            continue;
        MapVertex(*vertex, transform);
        vertex->close();
    }
    for (AcDbEntity* vertex : m_parts.waiting())
        MapVertex(static_cast<AcDbVertex&>(*vertex), transform);
    return Acad::eOk;
}

AcRxObject* VertexOwner::clone() const
{
    auto* copy = static_cast<VertexOwner*>(AcDbCurve::clone());
    if (copy != nullptr)
        copy->m_parts.CopyOf(m_parts);
    return copy;
}

namespace {

// The place at a parameter along straight pieces between places.
Acad::ErrorStatus PointAlong(const AcArray<AcGePoint3d>& places, bool isClosed, double parameter, AcGePoint3d& point)
{
    const int count = places.length() - (isClosed ? 0 : 1);
    if (places.isEmpty() || !(parameter >= 0 && parameter <= count))
        return Acad::eInvalidInput;
    const int index = std::min(int(parameter), places.length() - 1);
    const AcGePoint3d& start = places[index];
    const AcGePoint3d& end = places[(index + 1) % places.length()];
    point = start + (end - start) * (parameter - index);
    return Acad::eOk;
}

}   // namespace

// --- flat ---

AcDb::Poly2dType AcDb2dPolyline::polyType() const
{
    if ((m_flags & 4) != 0)
        return m_curveType == 5 ? AcDb::k2dQuadSplinePoly : AcDb::k2dCubicSplinePoly;
    return (m_flags & 2) != 0 ? AcDb::k2dFitCurvePoly : AcDb::k2dSimplePoly;
}

Acad::ErrorStatus AcDb2dPolyline::makeClosed()
{
    return AssignBits(*this, m_flags, 1, true);
}

Acad::ErrorStatus AcDb2dPolyline::makeOpen()
{
    return AssignBits(*this, m_flags, 1, false);
}

Acad::ErrorStatus AcDb2dPolyline::setElevation(double elevation)
{
    return Assign(*this, m_base.z, elevation);
}

Acad::ErrorStatus AcDb2dPolyline::setThickness(double thickness)
{
    return Assign(*this, m_thickness, thickness);
}

Acad::ErrorStatus AcDb2dPolyline::setNormal(const AcGeVector3d& normal)
{
    return normal.isZeroLength() ? Acad::eInvalidInput : Assign(*this, m_normal, normal.normal());
}

Acad::ErrorStatus AcDb2dPolyline::setDefaultStartWidth(double width)
{
    return Assign(*this, m_startWidth, width);
}

Acad::ErrorStatus AcDb2dPolyline::setDefaultEndWidth(double width)
{
    return Assign(*this, m_endWidth, width);
}

Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDbObjectId& id, AcDb2dVertex* vertex)
{
    return Append(id, vertex);
}

Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDb2dVertex* vertex)
{
    AcDbObjectId id;
    return Append(id, vertex);
}

Acad::ErrorStatus AcDb2dPolyline::insertVertexAt(AcDbObjectId& id, const AcDbObjectId& after, AcDb2dVertex* vertex)
{
    return Append(id, vertex, after);
}

Acad::ErrorStatus AcDb2dPolyline::openVertex(AcDb2dVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                             bool openErasedOne) const
{
    AcDbVertex* opened = nullptr;
    const Acad::ErrorStatus status = Open(opened, id, mode, openErasedOne);
    vertex = AcDb2dVertex::cast(opened);
    return status;
}

AcGePoint3d AcDb2dPolyline::vertexPosition(const AcDb2dVertex& vertex) const
{
    return EntityToWorld(AcGePoint3d(vertex.position().x, vertex.position().y, m_base.z), m_normal);
}

void AcDb2dPolyline::Places(AcArray<AcGePoint3d>& places) const
{
    for (const AcDbVertex* vertex : CurveVertices())
        if (const auto* flat = AcDb2dVertex::cast(vertex))
            places.append(vertexPosition(*flat));
}

void AcDb2dPolyline::MapVertex(AcDbVertex& vertex, const AcGeMatrix3d& transform) const
{
    AcDb2dVertex* flat = AcDb2dVertex::cast(&vertex);
    if (flat == nullptr || flat->assertWriteEnabled() != Acad::eOk)
        return;
    const FlatMap map(transform, m_normal);
    flat->m_position = map.Point(AcGePoint3d(flat->m_position.x, flat->m_position.y, m_base.z));
    flat->m_startWidth *= map.Scale();
    flat->m_endWidth *= map.Scale();
    flat->m_bulge *= map.isMirrored() ? -1 : 1;
    flat->m_tangent = flat->m_tangent == 0 ? 0 : map.Degrees(flat->m_tangent);
}

Acad::ErrorStatus AcDb2dPolyline::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = VertexOwner::transformBy(transform);
    if (status != Acad::eOk)
        return status;
    const FlatMap map(transform, m_normal);
    m_base.z = map.Point(m_base).z;
    m_startWidth *= map.Scale();
    m_endWidth *= map.Scale();
    m_thickness = map.Thickness(m_thickness);
    m_normal = map.normal();
    return Acad::eOk;
}

// With the arcs of bulged segments.
Acad::ErrorStatus AcDb2dPolyline::getGeomExtents(AcDbExtents& extents) const
{
    const Acad::ErrorStatus status = VertexOwner::getGeomExtents(extents);
    if (status != Acad::eOk)
        return status;
    AcArray<AcGePoint3d> places;
    Places(places);
    const std::vector<const AcDbVertex*> vertices = CurveVertices();
    const size_t count = size_t(places.length());
    for (size_t index = 0; index + (isClosed() ? 0 : 1) < count; ++index) {
        const auto* vertex = AcDb2dVertex::cast(vertices[index]);
        const AcGePoint3d& start = places[int(index)];
        const AcGePoint3d& end = places[int((index + 1) % count)];
        if (vertex == nullptr || vertex->bulge() == 0 || start.isEqualTo(end))
            continue;
        const AcGeVector3d chord = end - start;
        const AcGePoint3d top = start + chord * 0.5 - m_normal.crossProduct(chord) * (vertex->bulge() / 2);
        AddArc(extents, AcGeCircArc3d(start, top, end));
    }
    if (m_thickness != 0) {
        AcDbExtents lifted = extents;
        lifted.transformBy(AcGeMatrix3d::translation(m_normal * m_thickness));
        extents.addExt(lifted);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::getEcs(AcGeMatrix3d& ecs) const
{
    ecs = AcGeMatrix3d::planeToWorld(m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::getStartParam(double& parameter) const
{
    parameter = 0;
    return CurveVertices().empty() ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::getEndParam(double& parameter) const
{
    const size_t count = CurveVertices().size();
    parameter = count == 0 ? 0 : double(isClosed() ? count : count - 1);
    return count == 0 ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::getPointAtParam(double parameter, AcGePoint3d& point) const
{
    AcArray<AcGePoint3d> places;
    Places(places);
    const Acad::ErrorStatus status = PointAlong(places, isClosed(), parameter, point);
    const int index = int(parameter);
    if (status != Acad::eOk || parameter == index)
        return status;
    const auto* vertex = AcDb2dVertex::cast(CurveVertices()[size_t(index)]);
    if (vertex == nullptr || vertex->bulge() == 0)
        return status;
    const AcGePoint3d start = places[index], end = places[(index + 1) % places.length()];
    const double bulge = vertex->bulge();
    const AcGeVector3d chord = end - start;
    const AcGePoint3d center = start + chord * 0.5 + m_normal.crossProduct(chord) * ((1 - bulge * bulge) / (4 * bulge));
    point = AcGePoint3d(start).rotateBy(4 * std::atan(bulge) * (parameter - index), m_normal, center);
    return Acad::eOk;
}

// --- in space ---

AcDb::Poly3dType AcDb3dPolyline::polyType() const
{
    if ((m_flags & 4) == 0)
        return AcDb::k3dSimplePoly;
    return m_curveType == 5 ? AcDb::k3dQuadSplinePoly : AcDb::k3dCubicSplinePoly;
}

Acad::ErrorStatus AcDb3dPolyline::makeClosed()
{
    return AssignBits(*this, m_flags, 1, true);
}

Acad::ErrorStatus AcDb3dPolyline::makeOpen()
{
    return AssignBits(*this, m_flags, 1, false);
}

Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDbObjectId& id, AcDb3dPolylineVertex* vertex)
{
    return Append(id, vertex);
}

Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDb3dPolylineVertex* vertex)
{
    AcDbObjectId id;
    return Append(id, vertex);
}

Acad::ErrorStatus AcDb3dPolyline::insertVertexAt(AcDbObjectId& id, const AcDbObjectId& after,
                                                 AcDb3dPolylineVertex* vertex)
{
    return Append(id, vertex, after);
}

Acad::ErrorStatus AcDb3dPolyline::openVertex(AcDb3dPolylineVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                             bool openErasedOne) const
{
    AcDbVertex* opened = nullptr;
    const Acad::ErrorStatus status = Open(opened, id, mode, openErasedOne);
    vertex = AcDb3dPolylineVertex::cast(opened);
    return status;
}

Acad::ErrorStatus AcDb3dPolyline::getStartParam(double& parameter) const
{
    parameter = 0;
    return CurveVertices().empty() ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::getEndParam(double& parameter) const
{
    const size_t count = CurveVertices().size();
    parameter = count == 0 ? 0 : double(isClosed() ? count : count - 1);
    return count == 0 ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::getPointAtParam(double parameter, AcGePoint3d& point) const
{
    AcArray<AcGePoint3d> places;
    Places(places);
    return PointAlong(places, isClosed(), parameter, point);
}

// --- meshes ---

Acad::ErrorStatus AcDbPolygonMesh::setMSize(Adesk::Int16 size)
{
    return Assign(*this, m_mSize, size);
}

Acad::ErrorStatus AcDbPolygonMesh::setNSize(Adesk::Int16 size)
{
    return Assign(*this, m_nSize, size);
}

Acad::ErrorStatus AcDbPolygonMesh::appendVertex(AcDbObjectId& id, AcDbPolygonMeshVertex* vertex)
{
    return Append(id, vertex);
}

Acad::ErrorStatus AcDbPolyFaceMesh::appendVertex(AcDbObjectId& id, AcDbPolyFaceMeshVertex* vertex)
{
    const Acad::ErrorStatus status = Append(id, vertex);
    if (status == Acad::eOk)
        ++m_vertexCount;
    return status;
}

Acad::ErrorStatus AcDbPolyFaceMesh::appendFaceRecord(AcDbObjectId& id, AcDbFaceRecord* face)
{
    const Acad::ErrorStatus status = Append(id, face);
    if (status == Acad::eOk)
        ++m_faceCount;
    return status;
}
