#include "HatchLoop.h"
#include "../../ge/AcGeCircArc2d.h"
#include "../../ge/AcGeNurbCurve3d.h"
#include <algorithm>

namespace KxPlat {

namespace {

enum EdgeType { kLineEdge = 1, kArcEdge = 2, kEllipseEdge = 3, kSplineEdge = 4 };

constexpr int kEdgeSteps = 32;

// The groups of one edge by code; a code that comes twice keeps all its values.
class EdgeGroups {
public:
    EdgeGroups(const GroupList& groups, size_t begin, size_t end) : m_groups(groups), m_begin(begin), m_end(end) {}

    double Real(int code, double byDefault = 0) const
    {
        for (size_t i = m_begin; i < m_end; ++i)
            if (m_groups[i].code == code)
                return m_groups[i].real();
        return byDefault;
    }
    AcGePoint2d Point(int code) const { return {Real(code), Real(code + 10)}; }
    AcGeDoubleArray Reals(int code) const
    {
        AcGeDoubleArray values;
        for (size_t i = m_begin; i < m_end; ++i)
            if (m_groups[i].code == code)
                values.append(m_groups[i].real());
        return values;
    }

private:
    const GroupList& m_groups;
    size_t m_begin;
    size_t m_end;
};

void AddArcEdge(const EdgeGroups& edge, std::vector<HatchVertex>& vertices)
{
    const AcGePoint2d center = edge.Point(10);
    const bool isLeft = edge.Real(73, 1) != 0;
    double start = Radians(edge.Real(50)), end = Radians(edge.Real(51));
    double sweep = FullTurn(end - start);
    if (sweep == 0)
        sweep = 2 * kPi;
    // Right turns are stored as angles of the mirrored arc.
    if (!isLeft)
        start = -start, sweep = -sweep;
    const auto at = [&](double angle) {
        return center + AcGeVector2d(std::cos(angle), std::sin(angle)) * edge.Real(40);
    };
    // Two halves, since a bulge cannot hold a whole turn.
    const double bulge = std::tan(sweep / 8);
    vertices.push_back({at(start), bulge});
    vertices.push_back({at(start + sweep / 2), bulge});
}

void AddEllipseEdge(const EdgeGroups& edge, std::vector<HatchVertex>& vertices)
{
    const AcGePoint2d center = edge.Point(10);
    const AcGeVector2d major = edge.Point(11).asVector();
    const bool isLeft = edge.Real(73, 1) != 0;
    const AcGeVector2d minor = major.perpVector() * (edge.Real(40, 1) * (isLeft ? 1 : -1));
    const double start = Radians(edge.Real(50));
    double sweep = FullTurn(Radians(edge.Real(51)) - start);
    if (sweep == 0)
        sweep = 2 * kPi;
    for (int step = 0; step < kEdgeSteps; ++step) {
        const double t = start + sweep * step / kEdgeSteps;
        vertices.push_back({center + major * std::cos(t) + minor * std::sin(t), 0});
    }
}

void AddSplineEdge(const EdgeGroups& edge, std::vector<HatchVertex>& vertices)
{
    const AcGeDoubleArray xs = edge.Reals(10), ys = edge.Reals(20);
    AcGePoint3dArray points;
    for (int index = 0; index < std::min(xs.length(), ys.length()); ++index)
        points.append(AcGePoint3d(xs[index], ys[index], 0));
    const AcGeNurbCurve3d curve(int(edge.Real(94, 3)), edge.Reals(40), points, edge.Reals(42));
    if (curve.numControlPoints() == 0) {
        for (const AcGePoint3d& point : points)
            vertices.push_back({AcGePoint2d(point.x, point.y), 0});
        return;
    }
    AcGePoint3dArray places;
    curve.getSamplePoints(kEdgeSteps + 1, places);
    for (int index = 0; index < kEdgeSteps; ++index)
        vertices.push_back({AcGePoint2d(places[index].x, places[index].y), 0});
}

bool IsPolyline(const GroupValue& group)
{
    return (group.integer() & 2) != 0;
}

}   // namespace

HatchLoop::HatchLoop(const GroupList& groups, size_t begin, size_t end)
{
    if (begin < end && IsPolyline(groups[begin]))
        ReadPolyline(groups, begin, end);
    else
        ReadEdges(groups, begin, end);
}

void HatchLoop::ReadPolyline(const GroupList& groups, size_t begin, size_t end)
{
    for (size_t i = begin; i < end; ++i) {
        if (groups[i].code == 10)
            m_vertices.push_back({AcGePoint2d(groups[i].real(), 0), 0});
        else if (!m_vertices.empty() && groups[i].code == 20)
            m_vertices.back().point.y = groups[i].real();
        else if (!m_vertices.empty() && groups[i].code == 42)
            m_vertices.back().bulge = groups[i].real();
    }
}

// Group 72 begins an edge; 97, the count of source objects, ends the last one.
void HatchLoop::ReadEdges(const GroupList& groups, size_t begin, size_t end)
{
    size_t at = begin;
    while (at < end && groups[at].code != 72)
        ++at;
    while (at < end && groups[at].code == 72) {
        size_t next = at + 1;
        while (next < end && groups[next].code != 72 &&
               !(groups[next].code == 97 && groups[at].integer() != kSplineEdge))
            ++next;
        const EdgeGroups edge(groups, at + 1, next);
        switch (groups[at].integer()) {
        case kLineEdge:
            m_vertices.push_back({edge.Point(10), 0});
            break;
        case kArcEdge:
            AddArcEdge(edge, m_vertices);
            break;
        case kEllipseEdge:
            AddEllipseEdge(edge, m_vertices);
            break;
        case kSplineEdge:
            AddSplineEdge(edge, m_vertices);
            break;
        default:
            break;
        }
        at = next;
    }
}

std::vector<AcGePoint2d> HatchLoop::Outline() const
{
    std::vector<AcGePoint2d> points;
    for (size_t index = 0; index < m_vertices.size(); ++index) {
        const HatchVertex& from = m_vertices[index];
        const AcGePoint2d& to = m_vertices[(index + 1) % m_vertices.size()].point;
        points.push_back(from.point);
        if (from.bulge == 0 || from.point.isEqualTo(to))
            continue;
        const AcGePoint2d center = AcGeCircArc2d(from.point, to, from.bulge).center();
        for (int step = 1; step < kEdgeSteps; ++step)
            points.push_back(AcGePoint2d(from.point).rotateBy(4 * std::atan(from.bulge) * step / kEdgeSteps, center));
    }
    return points;
}

double HatchLoop::Area() const
{
    double sum = 0;
    for (size_t index = 0; index < m_vertices.size(); ++index) {
        const HatchVertex& from = m_vertices[index];
        const AcGePoint2d& to = m_vertices[(index + 1) % m_vertices.size()].point;
        const AcGeVector2d a = from.point - m_vertices[0].point, b = to - m_vertices[0].point;
        sum += (a.x * b.y - a.y * b.x) / 2;
        if (from.bulge == 0 || from.point.isEqualTo(to))
            continue;
        const double angle = 4 * std::atan(from.bulge);
        const double radius = AcGeCircArc2d(from.point, to, from.bulge).radius();
        sum += radius * radius * (angle - std::sin(angle)) / 2;
    }
    return std::fabs(sum);
}

// The first vertex of the other decides: boundaries of a hatch do not cross.
bool HatchLoop::Surrounds(const HatchLoop& other) const
{
    if (other.m_vertices.empty())
        return false;
    const AcGePoint2d point = other.m_vertices[0].point;
    const std::vector<AcGePoint2d> outline = Outline();
    bool isInside = false;
    for (size_t i = 0, j = outline.size() - 1; i < outline.size(); j = i++) {
        const AcGePoint2d &a = outline[i], &b = outline[j];
        if ((a.y > point.y) != (b.y > point.y) && point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x)
            isInside = !isInside;
    }
    return isInside;
}

void MapHatchLoops(GroupList& groups, const FlatMap& map, double elevation)
{
    int64_t edge = 0;
    bool isPolyline = false;
    for (size_t i = 0; i < groups.size(); ++i) {
        GroupValue& group = groups[i];
        const int code = group.code;
        if (code == 92) {
            isPolyline = IsPolyline(group);
            edge = 0;
        } else if (code == 72 && !isPolyline) {
            edge = group.integer();
        } else if ((code == 10 || code == 11 || code == 12 || code == 13) && i + 1 < groups.size() &&
                   groups[i + 1].code == code + 10) {
            const AcGePoint3d before(group.real(), groups[i + 1].real(), elevation);
            const bool isVector = code == 12 || code == 13 || (code == 11 && edge == kEllipseEdge);
            const AcGeVector3d vector = map.Vector(AcGeVector3d(before.x, before.y, 0));
            const AcGePoint3d after = isVector ? AcGePoint3d() + vector : map.Point(before);
            group.value = after.x;
            groups[i + 1].value = after.y;
        } else if (code == 40 && edge == kArcEdge) {
            group.value = group.real() * map.Scale();
        } else if (code == 42 && isPolyline && map.isMirrored()) {
            group.value = -group.real();
        } else if (code == 73 && (edge == kArcEdge || edge == kEllipseEdge) && map.isMirrored()) {
            group.value = int64_t(group.integer() == 0);
        } else if ((code == 50 || code == 51) && edge == kArcEdge) {
            // The way around decides how the angles are read; it stands behind them.
            size_t way = i;
            while (way < groups.size() && groups[way].code != 73 && groups[way].code != 72)
                ++way;
            const bool isLeft = way >= groups.size() || groups[way].code != 73 || groups[way].integer() != 0;
            const double turned = map.Degrees(isLeft ? group.real() : -group.real());
            group.value = isLeft != map.isMirrored() ? turned : -turned;
        }
    }
}

void MapHatchPattern(GroupList& groups, const FlatMap& map)
{
    for (size_t i = 0; i < groups.size(); ++i) {
        GroupValue& group = groups[i];
        if (group.code == 52 || group.code == 53) {
            group.value = map.Degrees(group.real());
        } else if ((group.code == 43 || group.code == 45) && i + 1 < groups.size() &&
                   groups[i + 1].code == group.code + 1) {
            const AcGePoint3d at(group.real(), groups[i + 1].real(), 0);
            const AcGePoint3d moved = group.code == 43 ? map.Point(at) : AcGePoint3d() + map.Vector(at.asVector());
            group.value = moved.x;
            groups[i + 1].value = moved.y;
        } else if (group.code == 49 || group.code == 41) {
            group.value = group.real() * map.Scale();
        }
    }
}

}   // namespace KxPlat
