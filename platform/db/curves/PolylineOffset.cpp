// Parallels of flat polylines. Each segment is shifted; neighbours are joined by a mitre or around their vertex; what
// comes nearer to the polyline than the distance is cut away, and the rest is chained again.
#include "../../ge/AcGeCircArc2d.h"
#include "../../ge/Crossings.h"
#include "../AcDbPolyline.h"
#include "../core/CurvePieces.h"
#include <algorithm>

using namespace KxPlat;

namespace {

struct Segment {
    AcGePoint2d start, end;
    double bulge = 0;
};

AcGePoint2d RotatedAbout(const AcGePoint2d& point, double angle, const AcGePoint2d& center)
{
    return AcGePoint2d(point).rotateBy(angle, center);
}

// The part of a segment between two shares of its length.
Segment Cut(const Segment& segment, double from, double to)
{
    if (segment.bulge == 0)
        return {segment.start + (segment.end - segment.start) * from,
                segment.start + (segment.end - segment.start) * to, 0};
    const AcGePoint2d center = AcGeCircArc2d(segment.start, segment.end, segment.bulge).center();
    const double angle = 4 * std::atan(segment.bulge);
    return {RotatedAbout(segment.start, angle * from, center), RotatedAbout(segment.start, angle * to, center),
            std::tan(angle * (to - from) / 4)};
}

AcGePoint3d Lifted(const AcGePoint2d& point)
{
    return {point.x, point.y, 0};
}

CurvePiece PieceOf(const Segment& segment)
{
    CurvePieces pieces;
    pieces.AddBulged(Lifted(segment.start), Lifted(segment.end), segment.bulge, AcGeVector3d::kZAxis, 0, 1);
    return pieces.front();
}

// The segment shifted to the right; false for an arc that the distance swallows.
bool Shift(const Segment& segment, double distance, Segment& shifted)
{
    shifted = segment;
    if (segment.bulge == 0) {
        const AcGeVector2d right = -(segment.end - segment.start).normal().perpVector() * distance;
        shifted.start += right;
        shifted.end += right;
        return true;
    }
    const AcGeCircArc2d arc(segment.start, segment.end, segment.bulge);
    const double radius = arc.radius() + (segment.bulge > 0 ? distance : -distance);
    if (radius <= 1e-9)
        return false;
    shifted.start = arc.center() + (segment.start - arc.center()) * (radius / arc.radius());
    shifted.end = arc.center() + (segment.end - arc.center()) * (radius / arc.radius());
    return true;
}

AcGeVector2d EndDirection(const Segment& segment)
{
    const AcGeVector2d chord = segment.end - segment.start;
    return AcGeVector2d(chord).rotateBy(2 * std::atan(segment.bulge)).normal();
}

AcGeVector2d StartDirection(const Segment& segment)
{
    const AcGeVector2d chord = segment.end - segment.start;
    return AcGeVector2d(chord).rotateBy(-2 * std::atan(segment.bulge)).normal();
}

constexpr double kSharpest = 0.02;   // of the half angle's sine: a mitre beyond it would run away

// Joins the end of one shifted segment to the start of the next one around the vertex between them.
void Join(Segment& before, Segment& after, const AcGePoint2d& vertex, double distance, std::vector<Segment>& joints)
{
    if (before.end.distanceTo(after.start) <= 1e-9)
        return;
    const AcGeVector2d in = EndDirection(before), out = StartDirection(after);
    const double turn = in.x * out.y - in.y * out.x;
    const bool isOutside = turn * distance > 0;   // a left turn leaves a gap on the right
    const double cosine = in.dotProduct(out);
    if (isOutside && before.bulge == 0 && after.bulge == 0 && 1 + cosine > kSharpest) {
        const AcGePoint2d corner = vertex + ((before.end - vertex) + (after.start - vertex)) / (1 + cosine);
        before.end = after.start = corner;
        return;
    }
    double angle = std::atan2(turn, cosine);
    if (isOutside && angle * distance < 0)
        angle += distance > 0 ? 2 * kPi : -2 * kPi;
    joints.push_back({before.end, after.start, std::tan(angle / 4)});
}

// The shifted segments in order, with their joints.
std::vector<Segment> RawParallel(const std::vector<Segment>& segments, bool isClosed, double distance)
{
    struct Shifted {
        Segment segment;
        AcGePoint2d startVertex;
    };
    std::vector<Shifted> shifted;
    for (const Segment& segment : segments) {
        Segment moved;
        if (segment.start.distanceTo(segment.end) > 1e-12 && Shift(segment, distance, moved))
            shifted.push_back({moved, segment.start});
    }
    std::vector<std::vector<Segment>> joints(shifted.size());
    for (size_t index = 0; index + (isClosed ? 0 : 1) < shifted.size(); ++index) {
        Shifted& next = shifted[(index + 1) % shifted.size()];
        Join(shifted[index].segment, next.segment, next.startVertex, distance, joints[index]);
    }
    std::vector<Segment> raw;
    for (size_t index = 0; index < shifted.size(); ++index) {
        raw.push_back(shifted[index].segment);
        raw.insert(raw.end(), joints[index].begin(), joints[index].end());
    }
    return raw;
}

struct Box {
    double low[2], high[2];

    static Box Of(const Segment& segment)
    {
        const double reach = segment.start.distanceTo(segment.end) * std::max(1.0, std::fabs(segment.bulge));
        Box box;
        for (int axis = 0; axis < 2; ++axis) {
            box.low[axis] = std::min(segment.start[unsigned(axis)], segment.end[unsigned(axis)]);
            box.high[axis] = std::max(segment.start[unsigned(axis)], segment.end[unsigned(axis)]);
            if (segment.bulge != 0)
                box.low[axis] -= reach, box.high[axis] += reach;
        }
        return box;
    }
    bool Meets(const Box& other) const
    {
        for (int axis = 0; axis < 2; ++axis)
            if (low[axis] > other.high[axis] + 1e-9 || other.low[axis] > high[axis] + 1e-9)
                return false;
        return true;
    }
};

// Cuts all segments where they meet each other.
std::vector<Segment> Shattered(const std::vector<Segment>& segments)
{
    std::vector<CurvePiece> pieces;
    std::vector<Box> boxes;
    for (const Segment& segment : segments) {
        pieces.push_back(PieceOf(segment));
        boxes.push_back(Box::Of(segment));
    }
    std::vector<std::vector<double>> cuts(segments.size());
    for (size_t one = 0; one < segments.size(); ++one)
        for (size_t other = one + 1; other < segments.size(); ++other) {
            if (!boxes[one].Meets(boxes[other]))
                continue;
            for (const Crossing& crossing : Crossings(*pieces[one].curve, *pieces[other].curve)) {
                cuts[one].push_back(pieces[one].Global(crossing.first));
                cuts[other].push_back(pieces[other].Global(crossing.second));
            }
        }
    std::vector<Segment> parts;
    for (size_t index = 0; index < segments.size(); ++index) {
        std::vector<double>& at = cuts[index];
        at.push_back(0);
        at.push_back(1);
        std::sort(at.begin(), at.end());
        for (size_t cut = 0; cut + 1 < at.size(); ++cut)
            if (at[cut + 1] - at[cut] > 1e-9)
                parts.push_back(Cut(segments[index], at[cut], at[cut + 1]));
    }
    return parts;
}

bool IsFarEnough(const Segment& part, const std::vector<CurvePiece>& original, double distance)
{
    const Segment half = Cut(part, 0, 0.5);
    const AcGePoint3d middle = Lifted(half.end);
    const double least = std::fabs(distance) * (1 - 1e-7) - 1e-9;
    for (const CurvePiece& piece : original)
        if (piece.curve->distanceTo(middle) < least)
            return false;
    return true;
}

AcGeTol AngleTolerance()
{
    AcGeTol tolerance;
    tolerance.setEqualVector(1e-9);
    return tolerance;
}

// Two ways over the same place count once; there and back they count for nothing.
void AddOnce(std::vector<Segment>& parts, const Segment& part)
{
    const auto areOne = [](const AcGePoint2d& a, const AcGePoint2d& b) { return a.distanceTo(b) <= 1e-7; };
    for (size_t index = 0; index < parts.size(); ++index) {
        const Segment& other = parts[index];
        if (areOne(other.start, part.start) && areOne(other.end, part.end) &&
            std::fabs(other.bulge - part.bulge) < 1e-6)
            return;
        if (areOne(other.start, part.end) && areOne(other.end, part.start) &&
            std::fabs(other.bulge + part.bulge) < 1e-6) {
            parts.erase(parts.begin() + std::ptrdiff_t(index));
            return;
        }
    }
    parts.push_back(part);
}

bool MayContinue(const Segment& one, const Segment& next)
{
    return one.bulge == 0 && next.bulge == 0 &&
           (one.end - one.start).isCodirectionalTo(next.end - next.start, AngleTolerance());
}

// A straight way that was cut is one segment again.
void Append(std::vector<Segment>& chain, bool atEnd, const Segment& part)
{
    if (MayContinue(atEnd ? chain.back() : chain.front(), part))
        (atEnd ? chain.back().end : chain.front().start) = atEnd ? part.end : part.start;
    else
        chain.insert(atEnd ? chain.end() : chain.begin(), part);
}

// Parts that follow each other become one polyline.
std::vector<std::vector<Segment>> Chained(std::vector<Segment> parts)
{
    std::vector<std::vector<Segment>> chains;
    const double tolerance = 1e-7;
    while (!parts.empty()) {
        std::vector<Segment> chain(1, parts.front());
        parts.erase(parts.begin());
        for (bool grows = true; grows;) {
            grows = false;
            for (size_t index = 0; index < parts.size(); ++index) {
                const bool isBehind = parts[index].start.distanceTo(chain.back().end) <= tolerance;
                if (!isBehind && parts[index].end.distanceTo(chain.front().start) > tolerance)
                    continue;
                Append(chain, isBehind, parts[index]);
                parts.erase(parts.begin() + std::ptrdiff_t(index));
                grows = true;
                break;
            }
        }
        chains.push_back(chain);
    }
    return chains;
}

}   // namespace

Acad::ErrorStatus AcDbPolyline::MakeOffset(double distance, std::vector<AcDbCurve*>& curves) const
{
    if (SegmentCount() == 0)
        return Acad::eDegenerateGeometry;
    std::vector<Segment> segments;
    std::vector<CurvePiece> original;
    for (size_t index = 0; index < SegmentCount(); ++index) {
        segments.push_back({m_points[index], m_points[(index + 1) % m_points.size()], ExtraAt(index).bulge});
        original.push_back(PieceOf(segments.back()));
    }
    std::vector<Segment> parts;
    for (const Segment& part : Shattered(RawParallel(segments, isClosed(), distance)))
        if (IsFarEnough(part, original, distance))
            AddOnce(parts, part);
    for (std::vector<Segment>& chain : Chained(parts)) {
        const bool closes = isClosed() && chain.size() > 1 && chain.front().start.distanceTo(chain.back().end) <= 1e-7;
        if (closes && MayContinue(chain.back(), chain.front())) {
            chain.front().start = chain.back().start;
            chain.pop_back();
        }
        auto* parallel = new AcDbPolyline(unsigned(chain.size()) + 1);
        for (const Segment& segment : chain) {
            parallel->addVertexAt(parallel->numVerts(), segment.start, segment.bulge);
        }
        if (!closes)
            parallel->addVertexAt(parallel->numVerts(), chain.back().end);
        parallel->setClosed(closes);
        parallel->m_normal = m_normal, parallel->m_elevation = m_elevation, parallel->m_thickness = m_thickness;
        parallel->m_constantWidth = m_constantWidth;
        curves.push_back(parallel);
    }
    return Acad::eOk;
}
