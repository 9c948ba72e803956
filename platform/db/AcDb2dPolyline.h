// Polylines of the old kind: their vertices are entities of their own, which they own. Flat ones, ones in space, meshes
// of rows and columns, and meshes of faces.
#pragma once
#include "AcDbCurve.h"
#include "AcDbSequenceEnd.h"
#include "AcDbVertex.h"
#include "core/OwnedParts.h"

namespace KxPlat {

struct Field;

// The vertices of one polyline.
class VertexOwner : public AcDbCurve {
public:
    // The caller deletes the iterator.
    AcDbObjectIterator* vertexIterator() const { return new AcDbObjectIterator(m_parts.stubs()); }

    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    // With copies of the vertices, which join a database with the copy.
    AcRxObject* clone() const override;

    void adoptParts(DbCore& core) override { m_parts.Adopt(*this, core); }
    const std::vector<AcDbStub*>* parts() const override { return &m_parts.stubs(); }
    void attachPart(AcDbStub* part) override { m_parts.Attach(part); }

protected:
    explicit VertexOwner(int16_t flags) : m_flags(flags) {}

    // Behind `after`, or behind all others.
    Acad::ErrorStatus Append(AcDbObjectId& id, AcDbVertex* vertex, AcDbObjectId after = AcDbObjectId());
    Acad::ErrorStatus Open(AcDbVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode, bool erasedToo) const;
    // The places of all live vertices in world axes; faces and the frames of splines are left out.
    virtual void Places(AcArray<AcGePoint3d>& places) const;
    // The live vertices that a curve runs through.
    std::vector<const AcDbVertex*> CurveVertices() const;
    // Maps one vertex, which is in the axes of the owner.
    virtual void MapVertex(AcDbVertex& vertex, const AcGeMatrix3d& transform) const { vertex.transformBy(transform); }

    AcGePoint3d m_base;   // x and y are 0; z is the elevation of a flat polyline
    int16_t m_follow = 1;
    int16_t m_flags;
    OwnedParts m_parts;
};

}   // namespace KxPlat

class AcDbPolyline;

class AcDb2dPolyline : public KxPlat::VertexOwner {
public:
    ACDB_DECLARE_MEMBERS(AcDb2dPolyline);

    AcDb2dPolyline() : VertexOwner(0) {}
    // A curve-fit or spline-fit type adds the vertices of the fitted curve. `bulges` belong to plain and fitted ones.
    AcDb2dPolyline(AcDb::Poly2dType type, const AcGePoint3dArray& vertices, double elevation = 0.0,
                   Adesk::Boolean closed = Adesk::kFalse, double defaultStartWidth = 0.0, double defaultEndWidth = 0.0,
                   const AcGeDoubleArray* bulges = nullptr);

    AcDb::Poly2dType polyType() const;
    bool isClosed() const override { return (m_flags & 1) != 0; }
    Acad::ErrorStatus makeClosed();
    Acad::ErrorStatus makeOpen();
    double elevation() const { return m_base.z; }
    Acad::ErrorStatus setElevation(double elevation);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    double defaultStartWidth() const { return m_startWidth; }
    Acad::ErrorStatus setDefaultStartWidth(double width);
    double defaultEndWidth() const { return m_endWidth; }
    Acad::ErrorStatus setDefaultEndWidth(double width);
    bool isLinetypeGenerationOn() const { return (m_flags & 128) != 0; }

    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDb2dVertex* vertex);
    Acad::ErrorStatus appendVertex(AcDb2dVertex* vertex);
    Acad::ErrorStatus insertVertexAt(AcDbObjectId& id, const AcDbObjectId& after, AcDb2dVertex* vertex);
    Acad::ErrorStatus openVertex(AcDb2dVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErasedOne = false) const;
    // In world axes.
    AcGePoint3d vertexPosition(const AcDb2dVertex& vertex) const;

    bool isPlanar() const override { return true; }
    bool addOutline(KxPlat::CurvePieces& pieces) const override;
    AcDbCurve* PartBetween(double from, double to) const override;
    Acad::ErrorStatus getArea(double& area) const override;
    // The same line as a polyline of the new kind; null where there is none.
    AcDbPolyline* Lightweight() const;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    Acad::ErrorStatus getEcs(AcGeMatrix3d& ecs) const override;
    Acad::ErrorStatus getStartParam(double& parameter) const override;
    Acad::ErrorStatus getEndParam(double& parameter) const override;
    Acad::ErrorStatus getPointAtParam(double parameter, AcGePoint3d& point) const override;

protected:
    Acad::ErrorStatus MakeOffset(double distance, std::vector<AcDbCurve*>& curves) const override;
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    void Places(AcArray<AcGePoint3d>& places) const override;
    void MapVertex(AcDbVertex& vertex, const AcGeMatrix3d& transform) const override;

    AcGeVector3d m_normal{0, 0, 1};
    double m_thickness = 0;
    double m_startWidth = 0;
    double m_endWidth = 0;
    int16_t m_curveType = 0;   // 0, 5 or 6
};

class AcDb3dPolyline : public KxPlat::VertexOwner {
public:
    ACDB_DECLARE_MEMBERS(AcDb3dPolyline);

    AcDb3dPolyline() : VertexOwner(8) {}
    // A spline-fit type adds the vertices of the fitted curve.
    AcDb3dPolyline(AcDb::Poly3dType type, const AcGePoint3dArray& vertices, Adesk::Boolean closed = Adesk::kFalse);

    AcDb::Poly3dType polyType() const;
    bool isClosed() const override { return (m_flags & 1) != 0; }
    Acad::ErrorStatus makeClosed();
    Acad::ErrorStatus makeOpen();
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDb3dPolylineVertex* vertex);
    Acad::ErrorStatus appendVertex(AcDb3dPolylineVertex* vertex);
    Acad::ErrorStatus insertVertexAt(AcDbObjectId& id, const AcDbObjectId& after, AcDb3dPolylineVertex* vertex);
    Acad::ErrorStatus openVertex(AcDb3dPolylineVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErasedOne = false) const;

    Acad::ErrorStatus getStartParam(double& parameter) const override;
    Acad::ErrorStatus getEndParam(double& parameter) const override;
    Acad::ErrorStatus getPointAtParam(double parameter, AcGePoint3d& point) const override;
    bool addOutline(KxPlat::CurvePieces& pieces) const override;
    AcDbCurve* PartBetween(double from, double to) const override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    int16_t m_curveType = 0;
};

class AcDbPolygonMesh : public KxPlat::VertexOwner {
public:
    ACDB_DECLARE_MEMBERS(AcDbPolygonMesh);

    AcDbPolygonMesh() : VertexOwner(16) {}
    // Row by row, `nSize` vertices each. A smooth type counts as a frame only, without a surface over it.
    AcDbPolygonMesh(AcDb::PolyMeshType type, Adesk::Int16 mSize, Adesk::Int16 nSize, const AcGePoint3dArray& vertices,
                    Adesk::Boolean mClosed = Adesk::kTrue, Adesk::Boolean nClosed = Adesk::kTrue);

    AcDb::PolyMeshType polyMeshType() const { return AcDb::PolyMeshType(m_surfaceType); }
    Adesk::Int16 mSize() const { return m_mSize; }
    Adesk::Int16 nSize() const { return m_nSize; }
    Acad::ErrorStatus setMSize(Adesk::Int16 size);
    Acad::ErrorStatus setNSize(Adesk::Int16 size);
    bool isMClosed() const { return (m_flags & 1) != 0; }
    bool isNClosed() const { return (m_flags & 32) != 0; }
    Adesk::Int16 mSurfaceDensity() const { return m_mDensity; }
    Adesk::Int16 nSurfaceDensity() const { return m_nDensity; }
    // 2 to 256 vertices of a smooth surface.
    Acad::ErrorStatus setMSurfaceDensity(Adesk::Int16 density);
    Acad::ErrorStatus setNSurfaceDensity(Adesk::Int16 density);
    bool addOutline(KxPlat::CurvePieces& pieces) const override;
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDbPolygonMeshVertex* vertex);

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    int16_t m_mSize = 0, m_nSize = 0;
    int16_t m_mDensity = 0, m_nDensity = 0;
    int16_t m_surfaceType = 0;
};

class AcDbPolyFaceMesh : public KxPlat::VertexOwner {
public:
    ACDB_DECLARE_MEMBERS(AcDbPolyFaceMesh);

    AcDbPolyFaceMesh() : VertexOwner(64) {}

    Adesk::Int16 numVertices() const { return m_vertexCount; }
    Adesk::Int16 numFaces() const { return m_faceCount; }
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDbPolyFaceMeshVertex* vertex);
    Acad::ErrorStatus appendFaceRecord(AcDbObjectId& id, AcDbFaceRecord* face);
    Acad::ErrorStatus appendVertex(AcDbPolyFaceMeshVertex* vertex);
    Acad::ErrorStatus appendFaceRecord(AcDbFaceRecord* face);
    bool addOutline(KxPlat::CurvePieces& pieces) const override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    int16_t m_vertexCount = 0;
    int16_t m_faceCount = 0;
};
