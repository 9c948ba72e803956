#include "../../ge/AcGeMatrix3d.h"
#include "Drawing.h"
#include <cmath>
#include <numbers>

namespace KxPlat {

namespace {

constexpr double kStep = std::numbers::pi / 32;   // of a curved segment

struct Edge {
    AcGePoint2d from, to;
    double fromWidth, toWidth;
};

AcGePoint3d InWorld(const AcGePoint2d& point, const AcGeMatrix3d& toWorld)
{
    return toWorld * AcGePoint3d(point.x, point.y, 0);
}

AcGeVector2d SideOf(const Edge& edge)
{
    const AcGeVector2d along = edge.to - edge.from;
    const double length = along.length();
    return length == 0 ? AcGeVector2d(0, 0) : AcGeVector2d(-along.y / length, along.x / length);
}

// Where the sides of two edges meet, as a way from their common point; the plain side at ends and at sharp corners.
AcGeVector2d Mitre(const AcGeVector2d& side, const AcGeVector2d& other)
{
    const AcGeVector2d middle((side.x + other.x) / 2, (side.y + other.y) / 2);
    const double square = middle.x * middle.x + middle.y * middle.y;
    if (square < 0.1)   // sharper than about 37 degrees: cut off
        return side;
    return {middle.x / square, middle.y / square};
}

void DrawFilled(AcGiWorldDraw& draw, const std::vector<Edge>& edges, bool isClosed, const AcGeMatrix3d& toWorld)
{
    const FillSwitch filled(draw, kAcGiFillAlways);
    const size_t count = edges.size();
    for (size_t at = 0; at < count; ++at) {
        const Edge& edge = edges[at];
        if (edge.fromWidth == 0 && edge.toWidth == 0)
            continue;
        const AcGeVector2d side = SideOf(edge);
        const bool hasBefore = at > 0 || isClosed, hasAfter = at + 1 < count || isClosed;
        const AcGeVector2d first = hasBefore ? Mitre(side, SideOf(edges[(at + count - 1) % count])) : side;
        const AcGeVector2d last = hasAfter ? Mitre(side, SideOf(edges[(at + 1) % count])) : side;
        const AcGePoint3d corners[] = {InWorld(edge.from + first * (edge.fromWidth / 2), toWorld),
                                       InWorld(edge.to + last * (edge.toWidth / 2), toWorld),
                                       InWorld(edge.to - last * (edge.toWidth / 2), toWorld),
                                       InWorld(edge.from - first * (edge.fromWidth / 2), toWorld)};
        draw.geometry().polygon(4, corners);
    }
}

}   // namespace

void AddBulge(std::vector<AcGePoint2d>& points, const AcGePoint2d& from, const AcGePoint2d& to, double bulge)
{
    const double sweep = 4 * std::atan(bulge);
    const AcGeVector2d chord = to - from;
    if (std::abs(bulge) > 1e-9 && std::isfinite(bulge) && chord.length() > 0) {
        // The centre lies on the middle line of the chord.
        const double away = (1 / bulge - bulge) / 4;
        const AcGePoint2d center(from.x + chord.x / 2 - chord.y * away, from.y + chord.y / 2 + chord.x * away);
        const AcGeVector2d start = from - center;
        const int steps = int(std::ceil(std::abs(sweep) / kStep));
        for (int step = 1; step < steps; ++step) {
            const double angle = sweep * step / steps, c = std::cos(angle), s = std::sin(angle);
            points.emplace_back(center.x + c * start.x - s * start.y, center.y + s * start.x + c * start.y);
        }
    }
    points.push_back(to);
}

void DrawWidePolyline(AcGiWorldDraw& draw, const std::vector<WideVertex>& vertices, bool isClosed,
                      const AcGeMatrix3d& toWorld, const AcGeVector3d& normal)
{
    if (vertices.empty())
        return;
    const size_t segments = isClosed ? vertices.size() : vertices.size() - 1;
    std::vector<Edge> edges;
    std::vector<AcGePoint3d> line{InWorld(vertices[0].point, toWorld)};
    std::vector<AcGePoint2d> steps;
    bool isWide = false;
    for (size_t at = 0; at < segments; ++at) {
        const WideVertex& from = vertices[at];
        const AcGePoint2d to = vertices[(at + 1) % vertices.size()].point;
        steps.clear();
        AddBulge(steps, from.point, to, from.bulge);
        isWide = isWide || from.startWidth != 0 || from.endWidth != 0;
        AcGePoint2d last = from.point;
        for (size_t step = 0; step < steps.size(); ++step) {
            const double begin = double(step) / double(steps.size()), end = double(step + 1) / double(steps.size());
            const double growth = from.endWidth - from.startWidth;
            edges.push_back({last, steps[step], from.startWidth + growth * begin, from.startWidth + growth * end});
            line.push_back(InWorld(steps[step], toWorld));
            last = steps[step];
        }
    }
    if (isWide)
        DrawFilled(draw, edges, isClosed, toWorld);
    else
        draw.geometry().polyline(Adesk::UInt32(line.size()), line.data(), &normal);
}

}   // namespace KxPlat
