// The vertices of polylines and meshes. They belong to their polyline.
#pragma once
#include "AcDbEntity.h"

class AcDbVertex : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbVertex);

    AcGePoint3d position() const { return m_position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;

protected:
    AcDbVertex() = default;
    explicit AcDbVertex(int16_t flags) : m_flags(flags) {}
    AcDbVertex(const AcGePoint3d& position, int16_t flags) : m_position(position), m_flags(flags) {}

    AcGePoint3d m_position;
    int16_t m_flags = 0;
};

// Positions are in the axes of the polyline's normal, as far as the elevation of the polyline.
class AcDb2dVertex : public AcDbVertex {
public:
    ACDB_DECLARE_MEMBERS(AcDb2dVertex);

    AcDb2dVertex() = default;
    explicit AcDb2dVertex(const AcGePoint3d& position, double bulge = 0, double startWidth = 0, double endWidth = 0,
                          double tangent = 0);
    // Of a curve-fit vertex, radians.
    Acad::ErrorStatus setTangent(double angle);

    AcDb::Vertex2dType vertexType() const;
    double startWidth() const { return m_startWidth; }
    Acad::ErrorStatus setStartWidth(double width);
    double endWidth() const { return m_endWidth; }
    Acad::ErrorStatus setEndWidth(double width);
    double bulge() const { return m_bulge; }
    Acad::ErrorStatus setBulge(double bulge);
    bool isTangentUsed() const { return (m_flags & 2) != 0; }
    double tangent() const;   // radians

private:
    friend class AcDb2dPolyline;
    void Mark(int bits) { m_flags = int16_t(m_flags | bits); }
    double m_startWidth = 0;
    double m_endWidth = 0;
    double m_bulge = 0;
    double m_tangent = 0;   // degrees
    int32_t m_id = 0;
};

class AcDb3dPolylineVertex : public AcDbVertex {
public:
    ACDB_DECLARE_MEMBERS(AcDb3dPolylineVertex);
    AcDb3dPolylineVertex() : AcDbVertex(32) {}
    explicit AcDb3dPolylineVertex(const AcGePoint3d& position) : AcDbVertex(position, 32) {}
    AcDb::Vertex3dType vertexType() const;

private:
    friend class AcDb3dPolyline;
    void Mark(int bits) { m_flags = int16_t(m_flags | bits); }
};

class AcDbPolygonMeshVertex : public AcDbVertex {
public:
    ACDB_DECLARE_MEMBERS(AcDbPolygonMeshVertex);
    AcDbPolygonMeshVertex() : AcDbVertex(64) {}
    explicit AcDbPolygonMeshVertex(const AcGePoint3d& position) : AcDbVertex(position, 64) {}
};

class AcDbPolyFaceMeshVertex : public AcDbVertex {
public:
    ACDB_DECLARE_MEMBERS(AcDbPolyFaceMeshVertex);
    AcDbPolyFaceMeshVertex() : AcDbVertex(192) {}
    explicit AcDbPolyFaceMeshVertex(const AcGePoint3d& position) : AcDbVertex(position, 192) {}
};

// A face of a polyface mesh: numbers of its corners, counted from 1; a negative one hides the edge behind it.
class AcDbFaceRecord : public AcDbVertex {
public:
    ACDB_DECLARE_MEMBERS(AcDbFaceRecord);
    AcDbFaceRecord() : AcDbVertex(128) {}
    AcDbFaceRecord(Adesk::Int16 v0, Adesk::Int16 v1, Adesk::Int16 v2, Adesk::Int16 v3);

    Acad::ErrorStatus getVertexAt(Adesk::UInt16 index, Adesk::Int16& vertex) const;
    Acad::ErrorStatus setVertexAt(Adesk::UInt16 index, Adesk::Int16 vertex);
    Acad::ErrorStatus isEdgeVisibleAt(Adesk::UInt16 index, Adesk::Boolean& visible) const;

private:
    static int16_t AcDbFaceRecord::*const kCorners[4];
    int16_t m_v0 = 0, m_v1 = 0, m_v2 = 0, m_v3 = 0;
};
