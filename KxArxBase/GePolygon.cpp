#include "GePolygon.h"
#include <algorithm>
#include <cmath>
#include <vector>

namespace KxArxBase::Ge {

namespace {

double Cross(const AcGeVector2d& a, const AcGeVector2d& b)
{
    return a.x * b.y - a.y * b.x;
}

// How far apart two places may lie and still be one, for polygons of this size.
double SameWithin(const AcGePoint2dArray& polygon)
{
    double size = 0;
    for (const AcGePoint2d& point : polygon)
        size = std::max({size, std::fabs(point.x), std::fabs(point.y)});
    return 1e-9 + 1e-12 * size;
}

double DistanceToEdge(const AcGePoint2d& point, const AcGePoint2d& from, const AcGePoint2d& to)
{
    return AcGeLineSeg2d(from, to).closestPointTo(point).distanceTo(point);
}

}   // namespace

double PolygonArea(const AcGePoint2dArray& polygon)
{
    double sum = 0;
    for (int i = 1; i + 1 < polygon.length(); ++i)
        sum += Cross(polygon[i] - polygon[0], polygon[i + 1] - polygon[0]);
    return sum / 2;
}

AcGePoint2d PolygonCentroid(const AcGePoint2dArray& polygon)
{
    const double area = PolygonArea(polygon);
    AcGeVector2d sum;
    if (area == 0) {
        for (const AcGePoint2d& point : polygon)
            sum += point - AcGePoint2d();
        return AcGePoint2d() + sum / std::max(1, polygon.length());
    }
    for (int i = 1; i + 1 < polygon.length(); ++i) {
        const AcGeVector2d a = polygon[i] - polygon[0], b = polygon[i + 1] - polygon[0];
        sum += (a + b) * (Cross(a, b) / 6);
    }
    return polygon[0] + sum / area;
}

int PointInPolygon(const AcGePoint2d& point, const AcGePoint2dArray& polygon, double tolerance)
{
    bool isInside = false;
    for (int i = 0, j = polygon.length() - 1; i < polygon.length(); j = i++) {
        const AcGePoint2d &a = polygon[i], &b = polygon[j];
        if (DistanceToEdge(point, a, b) <= tolerance)
            return -1;
        if ((a.y > point.y) != (b.y > point.y) && point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x)
            isInside = !isInside;
    }
    return isInside ? 1 : 0;
}

bool SegmentsMeet(const AcGePoint2d& a1, const AcGePoint2d& a2, const AcGePoint2d& b1, const AcGePoint2d& b2,
                  AcGePoint2d& at)
{
    return AcGeLineSeg2d(a1, a2).intersectWith(AcGeLineSeg2d(b1, b2), at);
}

void PolygonCrossings(const AcGePoint2dArray& one, const AcGePoint2dArray& other, AcGePoint2dArray& points)
{
    points.setLogicalLength(0);
    const double same = SameWithin(one);
    for (int i = 0; i < one.length(); ++i)
        for (int k = 0; k < other.length(); ++k) {
            AcGePoint2d at;
            if (!SegmentsMeet(one[i], one[(i + 1) % one.length()], other[k], other[(k + 1) % other.length()], at))
                continue;
            const bool isKnown = std::any_of(points.begin(), points.end(),
                                             [&](const AcGePoint2d& known) { return known.distanceTo(at) <= same; });
            if (!isKnown)
                points.append(at);
        }
}

namespace {

struct Edge {
    AcGePoint2d from, to;
};

AcGePoint2dArray TurnedLeft(const AcGePoint2dArray& polygon)
{
    AcGePoint2dArray turned = polygon;
    if (PolygonArea(polygon) < 0)
        std::reverse(turned.begin(), turned.end());
    return turned;
}

// The edges of a polygon in parts: cut wherever an edge or a corner of the other one lies on them.
std::vector<Edge> PartsOf(const AcGePoint2dArray& polygon, const AcGePoint2dArray& other, double same)
{
    std::vector<Edge> parts;
    for (int i = 0; i < polygon.length(); ++i) {
        const AcGePoint2d &from = polygon[i], &to = polygon[(i + 1) % polygon.length()];
        const double length = from.distanceTo(to);
        if (length <= same)
            continue;
        std::vector<AcGePoint2d> cuts = {from, to};
        for (int k = 0; k < other.length(); ++k) {
            AcGePoint2d at;
            if (SegmentsMeet(from, to, other[k], other[(k + 1) % other.length()], at))
                cuts.push_back(at);
            if (DistanceToEdge(other[k], from, to) <= same)
                cuts.push_back(other[k]);
        }
        std::sort(cuts.begin(), cuts.end(), [&](const AcGePoint2d& a, const AcGePoint2d& b) {
            return (a - from).dotProduct(to - from) < (b - from).dotProduct(to - from);
        });
        AcGePoint2d last = cuts.front();
        for (const AcGePoint2d& cut : cuts)
            if (cut.distanceTo(last) > same) {
                parts.push_back({last, cut});
                last = cut;
            }
    }
    return parts;
}

// Whether an edge of the other polygon runs over this part in the same direction.
bool RunsAlong(const Edge& part, const AcGePoint2dArray& other, double same)
{
    for (int k = 0; k < other.length(); ++k) {
        const AcGePoint2d &from = other[k], &to = other[(k + 1) % other.length()];
        if (DistanceToEdge(part.from, from, to) <= same && DistanceToEdge(part.to, from, to) <= same &&
            (part.to - part.from).dotProduct(to - from) > 0)
            return true;
    }
    return false;
}

// Parts that bound what is shared: inside the other polygon, or on its edge in the same direction; those on an edge are
// taken from one of the polygons only.
void Keep(const std::vector<Edge>& parts, const AcGePoint2dArray& other, bool withShared, double same,
          std::vector<Edge>& kept)
{
    for (const Edge& part : parts) {
        const int where = PointInPolygon(part.from + (part.to - part.from) * 0.5, other, same);
        if (where == 1 || (where == -1 && withShared && RunsAlong(part, other, same)))
            kept.push_back(part);
    }
}

// Of the edges that leave a place the one that turns most to the left keeps rings apart that only touch there.
size_t NextEdge(const std::vector<Edge>& edges, const Edge& last, double same)
{
    size_t best = edges.size();
    double most = 0;
    for (size_t i = 0; i < edges.size(); ++i) {
        if (edges[i].from.distanceTo(last.to) > 4 * same)
            continue;
        const AcGeVector2d in = last.to - last.from, out = edges[i].to - edges[i].from;
        const double turn = std::atan2(Cross(in, out), in.dotProduct(out));
        if (best == edges.size() || turn > most)
            best = i, most = turn;
    }
    return best;
}

// Corners where the way goes straight on are none.
AcGePoint2dArray Simplified(const std::vector<Edge>& ring, double same)
{
    AcGePoint2dArray polygon;
    for (size_t i = 0; i < ring.size(); ++i) {
        const Edge &before = ring[(i + ring.size() - 1) % ring.size()], &here = ring[i];
        if (DistanceToEdge(here.from, before.from, here.to) > same)
            polygon.append(here.from);
    }
    return polygon;
}

}   // namespace

void PolygonIntersection(const AcGePoint2dArray& one, const AcGePoint2dArray& other, AcArray<AcGePoint2dArray>& shared)
{
    shared.setLogicalLength(0);
    const AcGePoint2dArray a = TurnedLeft(one), b = TurnedLeft(other);
    const double same = std::max(SameWithin(a), SameWithin(b));
    std::vector<Edge> edges;
    Keep(PartsOf(a, b, same), b, true, same, edges);
    Keep(PartsOf(b, a, same), a, false, same, edges);
    while (!edges.empty()) {
        std::vector<Edge> ring(1, edges.back());
        edges.pop_back();
        while (ring.back().to.distanceTo(ring.front().from) > 4 * same) {
            const size_t next = NextEdge(edges, ring.back(), same);
            if (next == edges.size())
                break;
            ring.push_back(edges[next]);
            edges.erase(edges.begin() + std::ptrdiff_t(next));
        }
        const AcGePoint2dArray polygon = Simplified(ring, same);
        if (polygon.length() > 2 && PolygonArea(polygon) > same * same)
            shared.append(polygon);
    }
}

void ConvexHull(const AcGePoint2dArray& points, AcGePoint2dArray& hull)
{
    std::vector<AcGePoint2d> sorted(points.begin(), points.end());
    std::sort(sorted.begin(), sorted.end(),
              [](const AcGePoint2d& a, const AcGePoint2d& b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
    hull.setLogicalLength(0);
    // The lower chain from left to right, then the upper one back.
    for (int side = 0; side < 2; ++side) {
        const int first = hull.length();
        for (const AcGePoint2d& point : sorted) {
            while (hull.length() - first >= 2 &&
                   Cross(hull.last() - hull[hull.length() - 2], point - hull[hull.length() - 2]) <= 0)
                hull.removeLast();
            hull.append(point);
        }
        if (hull.length() > first + 1)
            hull.removeLast();
        std::reverse(sorted.begin(), sorted.end());
    }
}

}   // namespace KxArxBase::Ge
