// Boundaries of a hatch from curves of the drawing, and how the hatch follows them.
#include "../AcDbCurve.h"
#include "../AcDbHatch.h"
#include "../AcDbPolyline.h"
#include "../core/CurvePieces.h"
#include "../core/HatchLoop.h"
#include "../core/Members.h"
#include "../core/Stub.h"
#include <algorithm>

using namespace KxPlat;

namespace {

constexpr double kJoined = 1e-6;   // how far apart the ends of two edges may lie

// A part of a boundary in the plane of the hatch, walked forwards or backwards.
struct Edge {
    CurvePiece piece;
    bool isBackwards = false;

    AcGePoint3d Start() const { return piece.curve->evalPoint(isBackwards ? piece.to : piece.from); }
    AcGePoint3d End() const { return piece.curve->evalPoint(isBackwards ? piece.from : piece.to); }
    bool IsRing() const { return Start().distanceTo(End()) <= kJoined; }
};

typedef std::vector<Edge> Ring;

// Takes edges off until they close.
bool TakeRing(std::vector<Edge>& edges, Ring& ring)
{
    ring.assign(1, edges.front());
    edges.erase(edges.begin());
    while (ring.back().End().distanceTo(ring.front().Start()) > kJoined) {
        const AcGePoint3d end = ring.back().End();
        auto next = std::find_if(edges.begin(), edges.end(), [&](const Edge& edge) {
            return edge.Start().distanceTo(end) <= kJoined || edge.End().distanceTo(end) <= kJoined;
        });
        if (next == edges.end())
            return false;
        Edge found = *next;
        edges.erase(next);
        found.isBackwards = found.Start().distanceTo(end) > kJoined;
        ring.push_back(found);
    }
    return true;
}

class LoopWriter {
public:
    explicit LoopWriter(GroupList& groups) : m_groups(groups) {}

    void Count(int code, int64_t value) { m_groups.push_back({int16_t(code), 0, false, value}); }
    void Number(int code, double value) { m_groups.push_back({int16_t(code), 0, false, value}); }
    void Id(AcDbObjectId id) { m_groups.push_back({330, 0, false, id}); }
    void Point(int code, const AcGePoint3d& point)
    {
        Number(code, point.x);
        Number(code + 10, point.y);
    }
    void Write(const Edge& edge)
    {
        const AcGeCurve3d* curve = edge.piece.curve.get();
        if (const auto* arc = dynamic_cast<const AcGeEllipArc3d*>(curve))
            WriteArc(edge, *arc);
        else if (const auto* spline = dynamic_cast<const AcGeNurbCurve3d*>(curve))
            WriteSpline(edge, *spline);
        else
            WriteLine(edge);
    }

private:
    void WriteLine(const Edge& edge)
    {
        Count(72, AcDbHatch::kLine);
        Point(10, edge.Start());
        Point(11, edge.End());
    }
    // Right turns are stored as angles of the mirrored arc.
    void WriteArc(const Edge& edge, const AcGeEllipArc3d& arc)
    {
        const bool isCircle = arc.isCircular();
        const AcGeVector3d major = isCircle ? AcGeVector3d::kXAxis : arc.majorAxis();
        const double facing = arc.normal().z < 0 ? -1 : 1;
        const double turned = isCircle ? std::atan2(arc.majorAxis().y, arc.majorAxis().x) * facing : 0;
        double start = edge.piece.from + turned, end = edge.piece.to + turned;
        const bool isLeft = (facing > 0) != edge.isBackwards;
        if (edge.isBackwards) {
            std::swap(start, end);
            start = -start, end = -end;
        }
        Count(72, isCircle ? AcDbHatch::kCirArc : AcDbHatch::kEllArc);
        Point(10, arc.center());
        if (isCircle) {
            Number(40, arc.majorRadius());
        } else {
            Point(11, AcGePoint3d() + major * arc.majorRadius());
            Number(40, arc.minorRadius() / arc.majorRadius());
        }
        Number(50, Degrees(start));
        Number(51, Degrees(end));
        Count(73, isLeft);
    }
    void WriteSpline(const Edge& edge, AcGeNurbCurve3d spline)
    {
        if (edge.isBackwards)
            spline.reverseParam();
        Count(72, AcDbHatch::kSpline);
        Count(94, spline.degree());
        Count(73, spline.isRational());
        Count(74, 0);
        Count(95, spline.numKnots());
        Count(96, spline.numControlPoints());
        for (const double knot : spline.knots())
            Number(40, knot);
        for (int index = 0; index < spline.numControlPoints(); ++index) {
            Point(10, spline.controlPointAt(index));
            if (spline.isRational())
                Number(42, spline.weights()[index]);
        }
    }

    GroupList& m_groups;
};

// The edges of curves in the plane of the hatch; those that leave the plane are refused.
Acad::ErrorStatus EdgesOf(const AcDbObjectIdArray& ids, const AcGeMatrix3d& toPlane, double elevation,
                          std::vector<Edge>& edges)
{
    for (const AcDbObjectId& id : ids) {
        AcDbCurve* curve = nullptr;
        const Acad::ErrorStatus status = acdbOpenObject(curve, id, AcDb::kForRead);
        if (status != Acad::eOk)
            return status;
        CurvePieces pieces;
        curve->addOutline(pieces);
        curve->close();
        pieces.TransformBy(toPlane);
        for (const CurvePiece& piece : pieces) {
            std::vector<AcGePoint3d> places;
            if (piece.IsEndless())
                return Acad::eInvalidInput;
            AddSamples(piece, places);
            for (const AcGePoint3d& place : places)
                if (!(std::fabs(place.z - elevation) <= kJoined))
                    return std::isfinite(place.z) ? Acad::eNonPlanarEntity : Acad::eInvalidInput;
            if (piece.curve->length() > kJoined)
                edges.push_back({piece});
        }
    }
    return edges.empty() ? Acad::eDegenerateGeometry : Acad::eOk;
}

// The bulge of a segment of a polyline, where the ring is made of nothing else.
bool BulgeOf(const Edge& edge, double& bulge)
{
    bulge = 0;
    if (dynamic_cast<const AcGeLinearEnt3d*>(edge.piece.curve.get()) != nullptr)
        return true;
    const auto* arc = dynamic_cast<const AcGeEllipArc3d*>(edge.piece.curve.get());
    if (arc == nullptr || !arc->isCircular() || edge.IsRing())
        return false;
    const bool isLeft = (arc->normal().z > 0) != edge.isBackwards;
    bulge = std::tan((edge.piece.to - edge.piece.from) / 4) * (isLeft ? 1 : -1);
    return true;
}

void WriteRing(const Ring& ring, Adesk::Int32 loopType, bool isPolyline, GroupList& loop)
{
    LoopWriter writer(loop);
    double bulge = 0;
    bool hasBulges = false;
    for (const Edge& edge : ring) {
        isPolyline = isPolyline && BulgeOf(edge, bulge);
        hasBulges = hasBulges || bulge != 0;
    }
    const int kind = loopType & ~AcDbHatch::kPolyline;
    writer.Count(92, isPolyline ? kind | AcDbHatch::kPolyline : kind);
    if (isPolyline) {
        writer.Count(72, hasBulges);
        writer.Count(73, 1);
    }
    writer.Count(93, int64_t(ring.size()));
    for (const Edge& edge : ring) {
        if (!isPolyline) {
            writer.Write(edge);
            continue;
        }
        writer.Point(10, edge.Start());
        BulgeOf(edge, bulge);
        if (hasBulges)
            writer.Number(42, bulge);
    }
}

}   // namespace

Acad::ErrorStatus AcDbHatch::LoopOfCurves(Adesk::Int32 loopType, const AcDbObjectIdArray& ids, GroupList& loop) const
{
    std::vector<Edge> edges;
    const Acad::ErrorStatus status = EdgesOf(ids, AcGeMatrix3d::worldToPlane(m_normal), m_elevation.z, edges);
    if (status != Acad::eOk)
        return status;
    const bool isPolyline = ids.length() == 1 && ids[0].objectClass() == AcDbPolyline::desc();
    while (!edges.empty()) {
        Ring ring;
        if (!TakeRing(edges, ring))
            return Acad::eInvalidInput;
        WriteRing(ring, loopType, isPolyline, loop);
        LoopWriter writer(loop);
        writer.Count(97, m_isAssociative != 0 ? ids.length() : 0);
        for (int index = 0; m_isAssociative != 0 && index < ids.length(); ++index)
            writer.Id(ids[index]);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::appendLoop(Adesk::Int32 loopType, const AcDbObjectIdArray& ids)
{
    GroupList loop;
    Acad::ErrorStatus status = ids.isEmpty() ? Acad::eInvalidInput : LoopOfCurves(loopType, ids, loop);
    if (status == Acad::eOk)
        status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_loops.insert(m_loops.end(), loop.begin(), loop.end());
    return status;
}

Acad::ErrorStatus AcDbHatch::insertLoopAt(int index, Adesk::Int32 loopType, const AcGePoint2dArray& vertices,
                                          const AcGeDoubleArray& bulges)
{
    if (index < 0 || index > numLoops())
        return Acad::eInvalidIndex;
    size_t begin = m_loops.size(), end = 0;
    FindLoop(index, begin, end);
    const std::ptrdiff_t before = std::ptrdiff_t(m_loops.size());
    const Acad::ErrorStatus status = appendLoop(loopType, vertices, bulges);
    if (status == Acad::eOk)
        std::rotate(m_loops.begin() + std::ptrdiff_t(begin), m_loops.begin() + before, m_loops.end());
    return status;
}

Acad::ErrorStatus AcDbHatch::setAssociative(bool isAssociative)
{
    return Assign(*this, m_isAssociative, isAssociative);
}

// The curves tell the hatch when they change.
Acad::ErrorStatus AcDbHatch::subClose()
{
    AcDbObjectIdArray sources;
    if (isNewObject() && m_isAssociative != 0 && database() != nullptr)
        getAssocObjIds(sources);
    for (const AcDbObjectId& id : sources) {
        AcDbObject* source = nullptr;
        if (acdbOpenObject(source, id, AcDb::kForWrite) != Acad::eOk)
            continue;
        source->addPersistentReactor(objectId());
        source->close();
    }
    return AcDbEntity::subClose();
}

// Loops of the changed curve are made anew; where they no longer close the hatch stays as it is and stops following.
void AcDbHatch::modifiedGraphics(const AcDbObject* object)
{
    AcDbObjectIdArray all;
    getAssocObjIds(all);
    if (object == nullptr || m_isAssociative == 0 || !all.contains(object->objectId()) ||
        assertWriteEnabled() != Acad::eOk)
        return;
    GroupList rebuilt;
    bool follows = !object->isErased();
    AcDbObjectIdArray last;
    for (int index = 0; follows && index < numLoops(); ++index) {
        size_t begin = 0, end = 0;
        FindLoop(index, begin, end);
        AcDbObjectIdArray ids;
        for (size_t at = begin; at < end; ++at)
            if (m_loops[at].code == 330)
                ids.append(m_loops[at].id());
        // Several rings of one set of curves were made together.
        if (ids.isEmpty())
            rebuilt.insert(rebuilt.end(), m_loops.begin() + std::ptrdiff_t(begin),
                           m_loops.begin() + std::ptrdiff_t(end));
        else if (!(ids == last))
            follows = LoopOfCurves(Adesk::Int32(m_loops[begin].integer()), ids, rebuilt) == Acad::eOk;
        last = ids;
    }
    if (follows) {
        m_loops = rebuilt;
        return;
    }
    m_isAssociative = 0;
    for (GroupValue& group : m_loops)
        if (group.code == 97)
            group.value = int64_t(0);
    m_loops.erase(std::remove_if(m_loops.begin(), m_loops.end(), [](const GroupValue& g) { return g.code == 330; }),
                  m_loops.end());
}
