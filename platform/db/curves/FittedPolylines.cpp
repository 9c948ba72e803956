// Polylines of the old kind made from points, with the vertices of the smooth curve where one is wanted; meshes.
#include "../../ge/AcGeNurbCurve3d.h"
#include "../AcDb2dPolyline.h"
#include "../core/Members.h"
#include <algorithm>

using namespace KxPlat;

namespace {

constexpr int kSegmentsOfSpan = 8;

// Even points on the spline of a frame. Of a closed frame the last point does not repeat the first.
std::vector<AcGePoint3d> FittedSpline(const AcGePoint3dArray& frame, bool isClosed, int degree)
{
    std::vector<AcGePoint3d> fitted;
    const int count = frame.length();
    AcGePoint3dArray points = frame;
    AcGeDoubleArray knots;
    degree = std::min(degree, count - 1);
    if (degree < 1)
        return fitted;
    if (isClosed) {
        for (int index = 0; index < degree; ++index)
            points.append(frame[index]);
        for (int index = 0; index <= count + 2 * degree; ++index)
            knots.append(index);
    } else {
        for (int index = 0; index <= count + degree; ++index)
            knots.append(std::clamp(index - degree, 0, count - degree));
    }
    const AcGeNurbCurve3d curve(degree, knots, points);
    AcGeInterval interval;
    curve.getInterval(interval);
    const int steps = kSegmentsOfSpan * (isClosed ? count : count - 1);
    for (int step = 0; step < steps + (isClosed ? 0 : 1); ++step)
        fitted.push_back(curve.evalPoint(interval.lowerBound() + interval.length() * step / steps));
    return fitted;
}

// The direction at the middle one of three points of the circle through them.
AcGeVector3d CircleDirection(const AcGePoint3d& before, const AcGePoint3d& at, const AcGePoint3d& after)
{
    const AcGeVector3d in = at - before, out = after - at;
    const double a = in.length(), b = out.length();
    return (in * (b / std::max(a, 1e-300)) + out * (a / std::max(b, 1e-300))).normal();
}

// Twice the angle between a direction at a place and the way to another is the turn of the arc between them.
double BulgeTo(const AcGePoint3d& from, const AcGeVector3d& direction, const AcGePoint3d& to)
{
    const AcGeVector3d way = to - from;
    const double across = direction.x * way.y - direction.y * way.x;
    return std::tan(std::atan2(across, direction.x * way.x + direction.y * way.y) / 2);
}

// Where two arcs meet that leave both ends in their directions.
AcGePoint3d BiarcJoint(const AcGePoint3d& start, const AcGeVector3d& leaving, const AcGePoint3d& end,
                       const AcGeVector3d& arriving)
{
    const AcGeVector3d way = end - start;
    const double a = 2 * (1 - leaving.dotProduct(arriving)), b = 2 * way.dotProduct(leaving + arriving);
    const double c = -way.lengthSqrd();
    const double reach = a > 1e-9 ? (-b + std::sqrt(b * b - 4 * a * c)) / (2 * a) : std::fabs(b) > 1e-12 ? -c / b : 0;
    return start + (way + (leaving - arriving) * reach) * 0.5;
}

std::vector<AcGeVector3d> CurveDirections(const AcGePoint3dArray& points, bool isClosed)
{
    const int count = points.length();
    std::vector<AcGeVector3d> directions;
    for (int index = 0; index < count; ++index) {
        const bool isEnd = !isClosed && (index == 0 || index == count - 1);
        directions.push_back(
            isEnd ? AcGeVector3d()
                  : CircleDirection(points[(index + count - 1) % count], points[index], points[(index + 1) % count]));
    }
    if (isClosed || count < 3)
        return directions;
    // At the ends an arc that arrives in the neighbour's direction: mirrored in the chord.
    const auto mirrored = [](const AcGeVector3d& direction, const AcGeVector3d& chord) {
        const AcGeVector3d along = chord.normal();
        return along * (2 * direction.dotProduct(along)) - direction;
    };
    directions.front() = mirrored(directions[1], points[1] - points[0]);
    directions.back() = mirrored(directions[size_t(count) - 2], points[count - 1] - points[count - 2]);
    return directions;
}

}   // namespace

AcDb2dPolyline::AcDb2dPolyline(AcDb::Poly2dType type, const AcGePoint3dArray& vertices, double elevation,
                               Adesk::Boolean closed, double defaultStartWidth, double defaultEndWidth,
                               const AcGeDoubleArray* bulges)
    : VertexOwner(closed ? 1 : 0)
{
    m_base.z = elevation;
    m_startWidth = defaultStartWidth, m_endWidth = defaultEndWidth;
    const bool isSpline = type == AcDb::k2dQuadSplinePoly || type == AcDb::k2dCubicSplinePoly;
    const bool isFit = type == AcDb::k2dFitCurvePoly && vertices.length() > 2;
    const auto add = [&](const AcGePoint3d& point, double bulge, int bits) {
        auto* vertex =
            new AcDb2dVertex(AcGePoint3d(point.x, point.y, elevation), bulge, defaultStartWidth, defaultEndWidth);
        vertex->Mark(bits);
        appendVertex(vertex);
    };
    AcGePoint3dArray flat;
    for (const AcGePoint3d& point : vertices)
        flat.append(AcGePoint3d(point.x, point.y, 0));
    const std::vector<AcGeVector3d> directions = CurveDirections(flat, closed);
    for (int index = 0; index < flat.length(); ++index) {
        const int next = (index + 1) % flat.length();
        if (!isFit || (next == 0 && !closed)) {
            add(flat[index], bulges != nullptr && index < bulges->length() ? (*bulges)[index] : 0, isSpline ? 16 : 0);
            continue;
        }
        const AcGePoint3d joint =
            BiarcJoint(flat[index], directions[size_t(index)], flat[next], directions[size_t(next)]);
        add(flat[index], BulgeTo(flat[index], directions[size_t(index)], joint), 0);
        add(joint, -BulgeTo(flat[next], -directions[size_t(next)], joint), 1);
    }
    if (isFit)
        m_flags |= 2;
    if (!isSpline)
        return;
    m_flags |= 4;
    m_curveType = type == AcDb::k2dQuadSplinePoly ? 5 : 6;
    for (const AcGePoint3d& point : FittedSpline(flat, closed, type == AcDb::k2dQuadSplinePoly ? 2 : 3))
        add(point, 0, 8);
}

AcDb3dPolyline::AcDb3dPolyline(AcDb::Poly3dType type, const AcGePoint3dArray& vertices, Adesk::Boolean closed)
    : VertexOwner(int16_t(8 | (closed ? 1 : 0)))
{
    const bool isSpline = type != AcDb::k3dSimplePoly;
    const auto add = [&](const AcGePoint3d& point, int bits) {
        auto* vertex = new AcDb3dPolylineVertex(point);
        vertex->Mark(bits);
        appendVertex(vertex);
    };
    for (const AcGePoint3d& point : vertices)
        add(point, isSpline ? 16 : 0);
    if (!isSpline)
        return;
    m_flags |= 4;
    m_curveType = type == AcDb::k3dQuadSplinePoly ? 5 : 6;
    for (const AcGePoint3d& point : FittedSpline(vertices, closed, type == AcDb::k3dQuadSplinePoly ? 2 : 3))
        add(point, 8);
}

AcDbPolygonMesh::AcDbPolygonMesh(AcDb::PolyMeshType type, Adesk::Int16 mSize, Adesk::Int16 nSize,
                                 const AcGePoint3dArray& vertices, Adesk::Boolean mClosed, Adesk::Boolean nClosed)
    : VertexOwner(int16_t(16 | (mClosed ? 1 : 0) | (nClosed ? 32 : 0))), m_mSize(mSize), m_nSize(nSize)
{
    m_surfaceType = int16_t(type);
    AcDbObjectId id;
    for (const AcGePoint3d& point : vertices)
        appendVertex(id, new AcDbPolygonMeshVertex(point));
}

Acad::ErrorStatus AcDbPolygonMesh::setMSurfaceDensity(Adesk::Int16 density)
{
    return density >= 2 && density <= 256 ? Assign(*this, m_mDensity, density) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbPolygonMesh::setNSurfaceDensity(Adesk::Int16 density)
{
    return density >= 2 && density <= 256 ? Assign(*this, m_nDensity, density) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbPolyFaceMesh::appendVertex(AcDbPolyFaceMeshVertex* vertex)
{
    AcDbObjectId id;
    return appendVertex(id, vertex);
}

Acad::ErrorStatus AcDbPolyFaceMesh::appendFaceRecord(AcDbFaceRecord* face)
{
    AcDbObjectId id;
    return appendFaceRecord(id, face);
}
