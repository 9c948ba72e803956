// Polylines of all kinds, and the meshes that are kept as polylines.
#include "../../gi/AcGiWorldDraw.h"
#include "../AcDb2dPolyline.h"
#include "../AcDb2dVertex.h"
#include "../AcDb3dPolyline.h"
#include "../AcDb3dPolylineVertex.h"
#include "../AcDbFaceRecord.h"
#include "../AcDbPolyFaceMesh.h"
#include "../AcDbPolyFaceMeshVertex.h"
#include "../AcDbPolygonMesh.h"
#include "../AcDbPolygonMeshVertex.h"
#include "../AcDbPolyline.h"
#include "Drawing.h"
#include <cstdlib>

using namespace KxPlat;

Adesk::Boolean AcDbPolyline::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    worldDraw->subEntityTraits().setThickness(m_thickness);
    std::vector<WideVertex> vertices(m_points.size());
    for (size_t at = 0; at < vertices.size(); ++at) {
        vertices[at].point = m_points[at];
        vertices[at].startWidth = vertices[at].endWidth = m_constantWidth;
        if (m_extras == nullptr)
            continue;
        const Extra& extra = (*m_extras)[at];
        vertices[at].bulge = extra.bulge;
        if ((extra.present & 1) != 0)
            vertices[at].startWidth = extra.startWidth;
        if ((extra.present & 2) != 0)
            vertices[at].endWidth = extra.endWidth;
    }
    const AcGeMatrix3d toWorld =
        AcGeMatrix3d::planeToWorld(m_normal) * AcGeMatrix3d::translation(AcGeVector3d(0, 0, m_elevation));
    DrawWidePolyline(*worldDraw, vertices, isClosed(), toWorld, m_normal);
    return Adesk::kTrue;
}

Adesk::Boolean AcDb2dPolyline::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    worldDraw->subEntityTraits().setThickness(m_thickness);
    std::vector<WideVertex> vertices;
    for (const AcDbVertex* each : CurveVertices()) {
        const auto* vertex = static_cast<const AcDb2dVertex*>(each);
        // A vertex without widths has those of the polyline.
        const bool hasWidths = vertex->startWidth() != 0 || vertex->endWidth() != 0;
        vertices.push_back({AcGePoint2d(vertex->position().x, vertex->position().y), vertex->bulge(),
                            hasWidths ? vertex->startWidth() : m_startWidth,
                            hasWidths ? vertex->endWidth() : m_endWidth});
    }
    const AcGeMatrix3d toWorld =
        AcGeMatrix3d::planeToWorld(m_normal) * AcGeMatrix3d::translation(AcGeVector3d(0, 0, m_base.z));
    DrawWidePolyline(*worldDraw, vertices, isClosed(), toWorld, m_normal);
    return Adesk::kTrue;
}

Adesk::Boolean AcDb3dPolyline::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    std::vector<AcGePoint3d> points;
    for (const AcDbVertex* vertex : CurveVertices())
        points.push_back(vertex->position());
    if (isClosed() && !points.empty())
        points.push_back(points.front());
    worldDraw->geometry().polyline(Adesk::UInt32(points.size()), points.data());
    return Adesk::kTrue;
}

// A closed direction repeats its first row or column at the end.
Adesk::Boolean AcDbPolygonMesh::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    AcArray<AcGePoint3d> places;
    Places(places);
    const size_t rows = size_t(mSize()), columns = size_t(nSize());
    if (rows * columns == 0 || size_t(places.length()) < rows * columns)
        return Adesk::kTrue;
    const size_t drawnRows = rows + (isMClosed() ? 1 : 0), drawnColumns = columns + (isNClosed() ? 1 : 0);
    std::vector<AcGePoint3d> points;
    points.reserve(drawnRows * drawnColumns);
    for (size_t row = 0; row < drawnRows; ++row)
        for (size_t column = 0; column < drawnColumns; ++column)
            points.push_back(places[int((row % rows) * columns + column % columns)]);
    worldDraw->geometry().mesh(Adesk::UInt32(drawnRows), Adesk::UInt32(drawnColumns), points.data());
    return Adesk::kTrue;
}

Adesk::Boolean AcDbPolyFaceMesh::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    AcArray<AcGePoint3d> places;
    Places(places);
    m_parts.ForEach([&](const AcDbEntity& part) {
        if (const AcDbFaceRecord* face = AcDbFaceRecord::cast(&part)) {
            std::vector<AcGePoint3d> corners;
            for (Adesk::UInt16 corner = 0; corner < 4; ++corner) {
                Adesk::Int16 number = 0;
                face->getVertexAt(corner, number);
                const int index = std::abs(int(number)) - 1;
                if (index >= 0 && index < places.length())
                    corners.push_back(places[index]);
            }
            worldDraw->geometry().polygon(Adesk::UInt32(corners.size()), corners.data());
        }
    });
    return Adesk::kTrue;
}
