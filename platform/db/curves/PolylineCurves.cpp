// Polylines of all kinds, and leaders, as curves.
#include "../../ge/AcGeCircArc2d.h"
#include "../AcDb2dPolyline.h"
#include "../AcDbLeader.h"
#include "../AcDbPolyline.h"
#include "../AcDbSpline.h"
#include "../core/CurvePieces.h"
#include <algorithm>

using namespace KxPlat;

bool AcDbPolyline::addOutline(CurvePieces& pieces) const
{
    for (size_t index = 0; index < SegmentCount(); ++index)
        pieces.AddBulged(World(m_points[index]), World(m_points[(index + 1) % m_points.size()]), ExtraAt(index).bulge,
                         m_normal, double(index), double(index + 1));
    return true;
}

AcDbCurve* AcDbPolyline::PartBetween(double from, double to) const
{
    auto* part = new AcDbPolyline;
    part->m_normal = m_normal, part->m_elevation = m_elevation, part->m_thickness = m_thickness;
    part->m_constantWidth = m_constantWidth, part->m_flags = int16_t(m_flags & ~1);
    const AcGeMatrix3d toFlat = AcGeMatrix3d::worldToPlane(m_normal);
    for (double at = from; at < to;) {
        const size_t index = std::min(size_t(at), SegmentCount() - 1);
        const double next = std::min(double(index + 1), to), first = at - double(index), last = next - double(index);
        AcGePoint3d point;
        double startWidth = -1, endWidth = -1;
        getPointAtParam(at, point);
        point.transformBy(toFlat);
        if ((ExtraAt(index).present & 3) != 0) {
            getWidthsAt(unsigned(index), startWidth, endWidth);
            const double change = endWidth - startWidth;
            endWidth = startWidth + change * last;
            startWidth += change * first;
        }
        const double bulge = std::tan(std::atan(ExtraAt(index).bulge) * (last - first));
        part->addVertexAt(part->numVerts(), AcGePoint2d(point.x, point.y), bulge, startWidth, endWidth);
        at = next;
    }
    AcGePoint3d end;
    getPointAtParam(to, end);
    end.transformBy(toFlat);
    part->addVertexAt(part->numVerts(), AcGePoint2d(end.x, end.y));
    return part;
}

// Each segment then has the bulge and widths of the one before it, turned around.
Acad::ErrorStatus AcDbPolyline::reverseCurve()
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    std::reverse(m_points.begin(), m_points.end());
    if (m_extras == nullptr)
        return Acad::eOk;
    std::vector<Extra>& extras = *m_extras;
    std::reverse(extras.begin(), extras.end());
    if (extras.size() > 1)
        std::rotate(extras.begin(), extras.begin() + 1, extras.end());
    for (Extra& extra : extras) {
        extra.bulge = -extra.bulge;
        std::swap(extra.startWidth, extra.endWidth);
        const int widths = extra.present & 3;
        extra.present = uint8_t((extra.present & ~3) | (widths == 1 ? 2 : widths == 2 ? 1 : widths));
    }
    return Acad::eOk;
}

// --- with vertices of their own ---

bool AcDb2dPolyline::addOutline(CurvePieces& pieces) const
{
    const std::vector<const AcDbVertex*> vertices = CurveVertices();
    AcArray<AcGePoint3d> places;
    Places(places);
    const int count = std::min(int(vertices.size()), places.length());
    for (int index = 0; index + (isClosed() ? 0 : 1) < count && count > 1; ++index) {
        const auto* vertex = AcDb2dVertex::cast(vertices[size_t(index)]);
        pieces.AddBulged(places[index], places[(index + 1) % count], vertex == nullptr ? 0 : vertex->bulge(), m_normal,
                         index, index + 1);
    }
    return true;
}

AcDbPolyline* AcDb2dPolyline::Lightweight() const
{
    const std::vector<const AcDbVertex*> vertices = CurveVertices();
    if (vertices.empty())
        return nullptr;
    auto* polyline = new AcDbPolyline;
    for (const AcDbVertex* each : vertices) {
        const auto* vertex = AcDb2dVertex::cast(each);
        const AcGePoint3d at = each->position();
        if (vertex != nullptr)
            polyline->addVertexAt(polyline->numVerts(), AcGePoint2d(at.x, at.y), vertex->bulge(), vertex->startWidth(),
                                  vertex->endWidth());
    }
    polyline->setNormal(m_normal);
    polyline->setElevation(m_base.z);
    polyline->setThickness(m_thickness);
    polyline->setClosed(isClosed());
    return polyline;
}

AcDbCurve* AcDb2dPolyline::PartBetween(double from, double to) const
{
    const std::unique_ptr<AcDbPolyline> whole(Lightweight());
    return whole == nullptr ? nullptr : whole->PartBetween(from, to);
}

Acad::ErrorStatus AcDb2dPolyline::getArea(double& area) const
{
    const std::unique_ptr<AcDbPolyline> whole(Lightweight());
    return whole == nullptr ? Acad::eDegenerateGeometry : whole->getArea(area);
}

Acad::ErrorStatus AcDb2dPolyline::MakeOffset(double distance, std::vector<AcDbCurve*>& curves) const
{
    const std::unique_ptr<AcDbPolyline> whole(Lightweight());
    AcDbVoidPtrArray made;
    const Acad::ErrorStatus status =
        whole == nullptr ? Acad::eDegenerateGeometry : whole->getOffsetCurves(distance, made);
    for (void* curve : made)
        curves.push_back(static_cast<AcDbCurve*>(curve));
    return status;
}

bool AcDb3dPolyline::addOutline(CurvePieces& pieces) const
{
    AcArray<AcGePoint3d> places;
    Places(places);
    pieces.AddPath({places.begin(), places.end()}, isClosed());
    return true;
}

AcDbCurve* AcDb3dPolyline::PartBetween(double from, double to) const
{
    auto* part = new AcDb3dPolyline;
    const auto add = [&](double at) {
        AcGePoint3d point;
        if (getPointAtParam(at, point) == Acad::eOk)
            part->appendVertex(new AcDb3dPolylineVertex(point));
    };
    add(from);
    for (double at = std::floor(from) + 1; at < to; ++at)
        add(at);
    add(to);
    return part;
}

bool AcDbPolygonMesh::addOutline(CurvePieces& pieces) const
{
    AcArray<AcGePoint3d> places;
    Places(places);
    const int rows = m_mSize, columns = m_nSize;
    if (rows < 1 || columns < 1 || places.length() < rows * columns)
        return true;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            const AcGePoint3d& here = places[row * columns + column];
            if (column + 1 < columns || isNClosed())
                pieces.AddSegment(here, places[row * columns + (column + 1) % columns], 0, 1);
            if (row + 1 < rows || isMClosed())
                pieces.AddSegment(here, places[(row + 1) % rows * columns + column], 0, 1);
        }
    return true;
}

// Each edge of each face that is not hidden.
bool AcDbPolyFaceMesh::addOutline(CurvePieces& pieces) const
{
    AcArray<AcGePoint3d> places;
    Places(places);
    const auto placeOf = [&](int corner) { return places[std::abs(corner) - 1]; };
    m_parts.ForEach([&](const AcDbEntity& part) {
        const auto* face = AcDbFaceRecord::cast(&part);
        if (face == nullptr)
            return;
        std::vector<int> corners;
        for (Adesk::UInt16 index = 0; index < 4; ++index) {
            Adesk::Int16 corner = 0;
            face->getVertexAt(index, corner);
            if (corner != 0 && std::abs(corner) <= places.length())
                corners.push_back(corner);
        }
        for (size_t index = 0; corners.size() > 1 && index < corners.size(); ++index)
            if (corners[index] > 0)
                pieces.AddSegment(placeOf(corners[index]), placeOf(corners[(index + 1) % corners.size()]), 0, 1);
    });
    return true;
}

// --- leaders ---

bool AcDbLeader::addOutline(CurvePieces& pieces) const
{
    AcGePoint3dArray points;
    for (const AcGePoint3d& vertex : m_vertices)
        points.append(vertex);
    const AcGeNurbCurve3d smooth =
        isSplined() ? AcGeNurbCurve3d(points, AcGeVector3d(), AcGeVector3d()) : AcGeNurbCurve3d();
    if (smooth.numControlPoints() > 0)
        pieces.Add(smooth, 0, double(m_vertices.size()) - 1);
    else
        pieces.AddPath(m_vertices, false);
    return true;
}

// --- splines ---

bool AcDbSpline::addOutline(CurvePieces& pieces) const
{
    const AcGeNurbCurve3d nurbs = curve();
    AcGeInterval interval;
    nurbs.getInterval(interval);
    if (nurbs.numControlPoints() > 0)
        pieces.Add(nurbs, interval.lowerBound(), interval.upperBound());
    return true;
}

AcDbCurve* AcDbSpline::PartBetween(double from, double to) const
{
    AcGeNurbCurve3d part = curve();
    return part.numControlPoints() == 0 ? nullptr : new AcDbSpline(part.hardTrimByParams(from, to));
}

Acad::ErrorStatus AcDbSpline::reverseCurve()
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    AcGeNurbCurve3d turned = curve();
    if (turned.numControlPoints() > 0)
        TakeCurve(turned.reverseParam());
    std::reverse(m_fitPoints.begin(), m_fitPoints.end());
    std::swap(m_startTangent, m_endTangent);
    m_startTangent.negate();
    m_endTangent.negate();
    return Acad::eOk;
}

void AcDbSpline::TakeCurve(const AcGeNurbCurve3d& curve)
{
    m_degree = int16_t(curve.degree());
    m_knots.assign(curve.knots().begin(), curve.knots().end());
    m_points.assign(curve.controlPoints().begin(), curve.controlPoints().end());
    m_weights.assign(curve.weights().begin(), curve.weights().end());
    m_areWeightsApart = m_areWeightsFirst = false;
    m_flags = int16_t((m_flags & ~(2 | 4)) | (curve.isRational() ? 4 : 0));
    // Whatever lies in one plane says so, with the plane's normal.
    AcGeVector3d across;
    bool isFlat = true;
    for (const AcGePoint3d& point : m_points)
        for (const AcGePoint3d& other : {m_points.front(), m_points.back()}) {
            const AcGeVector3d turn = (point - m_points.front()).crossProduct(m_points[1] - other);
            if (turn.length() > across.length())
                across = turn;
        }
    for (const AcGePoint3d& point : m_points)
        isFlat = isFlat && std::fabs((point - m_points.front()).dotProduct(across.normal())) <= 1e-9;
    m_flags = int16_t(isFlat ? m_flags | 8 : m_flags & ~8);
    m_normal = isFlat && !across.isZeroLength() ? across.normal() : AcGeVector3d::kZAxis;
    if (m_normal.z < 0)
        m_normal.negate();
}

AcDbSpline::AcDbSpline(const AcGeNurbCurve3d& curve)
{
    if (curve.numControlPoints() > 0)
        TakeCurve(curve);
}

AcDbSpline::AcDbSpline(const AcGePoint3dArray& fitPoints, int order, double fitTolerance)
    : AcDbSpline(fitPoints, AcGeVector3d(), AcGeVector3d(), order, fitTolerance)
{
}

AcDbSpline::AcDbSpline(const AcGePoint3dArray& fitPoints, const AcGeVector3d& startTangent,
                       const AcGeVector3d& endTangent, int order, double fitTolerance)
    : m_fitPoints(fitPoints.begin(), fitPoints.end()), m_startTangent(startTangent), m_endTangent(endTangent)
{
    m_fitTolerance = fitTolerance;
    const AcGeNurbCurve3d curve =
        order == 4 ? AcGeNurbCurve3d(fitPoints, startTangent, endTangent) : AcGeNurbCurve3d(order - 1, fitPoints);
    if (curve.numControlPoints() == 0)
        return;
    TakeCurve(curve);
    if (m_points.size() > 2 && m_points.front().isEqualTo(m_points.back()))
        m_flags |= 1;
}
