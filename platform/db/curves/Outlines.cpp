// The lines by which entities that are no curves are seen.
#include "../../gi/AcGiTextStyle.h"
#include "../AcDbFace.h"
#include "../AcDbHatch.h"
#include "../AcDbMText.h"
#include "../AcDbRasterImage.h"
#include "../AcDbText.h"
#include "../AcDbTrace.h"
#include "../AcDbViewport.h"
#include "../core/CurvePieces.h"
#include "../core/HatchLoop.h"

using namespace KxPlat;

namespace {

// Corners 0 and 1 lie along one side, 2 and 3 along the other in the same direction.
void AddBox(CurvePieces& pieces, const AcGePoint3d corners[4])
{
    pieces.AddPath({corners[0], corners[1], corners[3], corners[2]}, true);
}

}   // namespace

bool AcDbText::addOutline(CurvePieces& pieces) const
{
    AcGePoint3d corners[4];
    getBoundingPoints(corners);
    pieces.AddPath({corners, corners + 4}, true);
    return true;
}

bool AcDbMText::addOutline(CurvePieces& pieces) const
{
    AcGePoint3d corners[4];
    getBoundingPoints(corners);
    AddBox(pieces, corners);
    return true;
}

namespace KxPlat {

// Around, not across: the third and fourth corner stand as in the letter Z.
bool FilledCorners::addOutline(CurvePieces& pieces) const
{
    AcGePoint3d corners[4];
    for (Adesk::UInt16 index = 0; index < 4; ++index)
        getPointAt(index, corners[index]);
    AddBox(pieces, corners);
    return true;
}

}   // namespace KxPlat

bool AcDbFace::addOutline(CurvePieces& pieces) const
{
    for (Adesk::UInt16 index = 0; index < 4; ++index) {
        AcGePoint3d from, to;
        Adesk::Boolean isVisible = Adesk::kTrue;
        getVertexAt(index, from);
        getVertexAt(Adesk::UInt16((index + 1) % 4), to);
        isEdgeVisibleAt(index, isVisible);
        if (isVisible && !from.isEqualTo(to))
            pieces.AddSegment(from, to, index, index + 1);
    }
    return true;
}

bool AcDbViewport::addOutline(CurvePieces& pieces) const
{
    const AcGeVector3d across(m_width / 2, 0, 0), up(0, m_height / 2, 0);
    pieces.AddPath({m_center - across - up, m_center + across - up, m_center + across + up, m_center - across + up},
                   true);
    return true;
}

bool AcDbRasterImage::addOutline(CurvePieces& pieces) const
{
    AcGePoint3dArray vertices;
    getVertices(vertices);
    pieces.AddPath({vertices.begin(), vertices.end()}, true);
    return true;
}

bool AcDbHatch::addOutline(CurvePieces& pieces) const
{
    for (int index = 0; index < numLoops(); ++index) {
        size_t begin = 0, end = 0;
        FindLoop(index, begin, end);
        const std::vector<HatchVertex> vertices = HatchLoop(m_loops, begin, end).vertices();
        const auto at = [&](size_t vertex) {
            const AcGePoint2d& point = vertices[vertex % vertices.size()].point;
            return EntityToWorld(AcGePoint3d(point.x, point.y, m_elevation.z), m_normal);
        };
        for (size_t vertex = 0; vertex < vertices.size(); ++vertex)
            pieces.AddBulged(at(vertex), at(vertex + 1), vertices[vertex].bulge, m_normal, double(vertex),
                             double(vertex + 1));
    }
    return true;
}
