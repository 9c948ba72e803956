#include "AcDbVertex.h"
#include "../ge/EntityAxes.h"
#include "core/Fields.h"
#include "core/Members.h"
#include <cstdlib>

using namespace KxPlat;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbVertex, AcDbEntity)
ACRX_DXF_DEFINE_MEMBERS(AcDb2dVertex, AcDbVertex, 0, 0, 0, VERTEX, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDb3dPolylineVertex, AcDbVertex, 0, 0, 0, VERTEX, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbPolygonMeshVertex, AcDbVertex, 0, 0, 0, VERTEX, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbPolyFaceMeshVertex, AcDbVertex, 0, 0, 0, VERTEX, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbFaceRecord, AcDbVertex, 0, 0, 0, VERTEX, AcDb)

const ClassSchema& AcDbVertex::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "VERTEX", "AcDbVertex", {});
    return schema;
}

const ClassSchema& AcDb2dVertex::fieldSchema()
{
    static const ClassSchema schema(&AcDbVertex::fieldSchema(), "VERTEX", "AcDb2dVertex",
                                    {
                                        Point3(10, &AcDb2dVertex::m_position).always(),
                                        Real(40, &AcDb2dVertex::m_startWidth),
                                        Real(41, &AcDb2dVertex::m_endWidth),
                                        Real(42, &AcDb2dVertex::m_bulge),
                                        Int32(91, &AcDb2dVertex::m_id).since(AcDb::kDHL_1024),
                                        Int16(70, &AcDb2dVertex::m_flags),
                                        Real(50, &AcDb2dVertex::m_tangent),
                                    });
    return schema;
}

namespace {

std::vector<Field> PlaceAndFlags(AcGePoint3d AcDbVertex::*position, int16_t AcDbVertex::*flags)
{
    return {Point3(10, position).always(), Int16(70, flags).always()};
}

}   // namespace

const ClassSchema& AcDb3dPolylineVertex::fieldSchema()
{
    static const ClassSchema schema(&AcDbVertex::fieldSchema(), "VERTEX", "AcDb3dPolylineVertex",
                                    PlaceAndFlags(&AcDb3dPolylineVertex::m_position, &AcDb3dPolylineVertex::m_flags));
    return schema;
}

const ClassSchema& AcDbPolygonMeshVertex::fieldSchema()
{
    static const ClassSchema schema(&AcDbVertex::fieldSchema(), "VERTEX", "AcDbPolygonMeshVertex",
                                    PlaceAndFlags(&AcDbPolygonMeshVertex::m_position, &AcDbPolygonMeshVertex::m_flags));
    return schema;
}

const ClassSchema& AcDbPolyFaceMeshVertex::fieldSchema()
{
    static const ClassSchema schema(
        &AcDbVertex::fieldSchema(), "VERTEX", "AcDbPolyFaceMeshVertex",
        PlaceAndFlags(&AcDbPolyFaceMeshVertex::m_position, &AcDbPolyFaceMeshVertex::m_flags));
    return schema;
}

// A face has no section of a vertex before its own.
const ClassSchema& AcDbFaceRecord::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "VERTEX", "AcDbFaceRecord",
                                    {
                                        Point3(10, &AcDbFaceRecord::m_position).always(),
                                        Int16(70, &AcDbFaceRecord::m_flags).always(),
                                        Int16(71, &AcDbFaceRecord::m_v0),
                                        Int16(72, &AcDbFaceRecord::m_v1),
                                        Int16(73, &AcDbFaceRecord::m_v2),
                                        Int16(74, &AcDbFaceRecord::m_v3),
                                    });
    return schema;
}

Acad::ErrorStatus AcDbVertex::setPosition(const AcGePoint3d& position)
{
    return Assign(*this, m_position, position);
}

Acad::ErrorStatus AcDbVertex::transformBy(const AcGeMatrix3d& transform)
{
    return Assign(*this, m_position, transform * m_position);
}

AcDb2dVertex::AcDb2dVertex(const AcGePoint3d& position, double bulge, double startWidth, double endWidth,
                           double tangent)
    : AcDbVertex(position, 0),
      m_startWidth(startWidth),
      m_endWidth(endWidth),
      m_bulge(bulge),
      m_tangent(Degrees(tangent))
{
}

AcDb::Vertex2dType AcDb2dVertex::vertexType() const
{
    if ((m_flags & 16) != 0)
        return AcDb::k2dSplineCtlVertex;
    if ((m_flags & 8) != 0)
        return AcDb::k2dSplineFitVertex;
    return (m_flags & 1) != 0 ? AcDb::k2dCurveFitVertex : AcDb::k2dVertex;
}

Acad::ErrorStatus AcDb2dVertex::setStartWidth(double width)
{
    return Assign(*this, m_startWidth, width);
}

Acad::ErrorStatus AcDb2dVertex::setEndWidth(double width)
{
    return Assign(*this, m_endWidth, width);
}

Acad::ErrorStatus AcDb2dVertex::setBulge(double bulge)
{
    return Assign(*this, m_bulge, bulge);
}

Acad::ErrorStatus AcDb2dVertex::setTangent(double angle)
{
    const Acad::ErrorStatus status = Assign(*this, m_tangent, Degrees(angle));
    if (status == Acad::eOk)
        Mark(2);
    return status;
}

double AcDb2dVertex::tangent() const
{
    return Radians(m_tangent);
}

AcDb::Vertex3dType AcDb3dPolylineVertex::vertexType() const
{
    if ((m_flags & 16) != 0)
        return AcDb::k3dControlVertex;
    return (m_flags & 8) != 0 ? AcDb::k3dFitVertex : AcDb::k3dSimpleVertex;
}

int16_t AcDbFaceRecord::*const AcDbFaceRecord::kCorners[4] = {&AcDbFaceRecord::m_v0, &AcDbFaceRecord::m_v1,
                                                              &AcDbFaceRecord::m_v2, &AcDbFaceRecord::m_v3};

AcDbFaceRecord::AcDbFaceRecord(Adesk::Int16 v0, Adesk::Int16 v1, Adesk::Int16 v2, Adesk::Int16 v3)
    : AcDbVertex(128), m_v0(v0), m_v1(v1), m_v2(v2), m_v3(v3)
{
}

Acad::ErrorStatus AcDbFaceRecord::getVertexAt(Adesk::UInt16 index, Adesk::Int16& vertex) const
{
    if (index > 3)
        return Acad::eInvalidIndex;
    vertex = this->*kCorners[index];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFaceRecord::setVertexAt(Adesk::UInt16 index, Adesk::Int16 vertex)
{
    return index > 3 ? Acad::eInvalidIndex : Assign(*this, this->*kCorners[index], vertex);
}

Acad::ErrorStatus AcDbFaceRecord::isEdgeVisibleAt(Adesk::UInt16 index, Adesk::Boolean& visible) const
{
    if (index > 3)
        return Acad::eInvalidIndex;
    visible = this->*kCorners[index] > 0;
    return Acad::eOk;
}
