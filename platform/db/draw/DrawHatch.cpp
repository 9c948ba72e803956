// Hatches: filled areas, and families of parallel lines cut at the boundary. Pattern lines are stored turned and
// scaled.
#include "../../gi/AcGiWorldDraw.h"
#include "../../gi/DrawNotes.h"
#include "../AcDbHatch.h"
#include "../core/HatchLoop.h"
#include "Drawing.h"
#include <algorithm>
#include <cmath>
#include <numbers>

using namespace KxPlat;

namespace {

// Denser than this a pattern cannot be told from a filled area.
constexpr int64_t kMostLines = 20000;
constexpr size_t kMostDashes = 300000;
constexpr size_t kMostCuts = 200000000;

using Outline = std::vector<AcGePoint2d>;

struct LineFamily {
    double angle = 0;   // radians
    AcGePoint2d base;
    AcGeVector2d step;
    std::vector<double> dashes;   // positive drawn, negative left out, 0 a dot
};

std::vector<LineFamily> FamiliesOf(const GroupList& pattern)
{
    std::vector<LineFamily> families;
    for (const GroupValue& group : pattern) {
        if (group.code == 53)
            families.emplace_back().angle = group.real() * std::numbers::pi / 180;
        if (families.empty())
            continue;
        LineFamily& family = families.back();
        switch (group.code) {
        case 43:
            family.base.x = group.real();
            break;
        case 44:
            family.base.y = group.real();
            break;
        case 45:
            family.step.x = group.real();
            break;
        case 46:
            family.step.y = group.real();
            break;
        case 49:
            family.dashes.push_back(group.real());
            break;
        default:
            break;
        }
    }
    return families;
}

bool IsInside(const Outline& outline, const AcGePoint2d& point)
{
    bool isInside = false;
    for (size_t at = 0, before = outline.size() - 1; at < outline.size(); before = at++) {
        const AcGePoint2d &a = outline[at], &b = outline[before];
        if ((a.y > point.y) != (b.y > point.y) && point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x)
            isInside = !isInside;
    }
    return isInside;
}

// What the style lets count: all boundaries, the two outermost levels, or only the outermost.
std::vector<Outline> Counting(std::vector<Outline> all, AcDbHatch::HatchStyle style)
{
    if (style == AcDbHatch::kNormal || all.size() < 2 || all.size() > 2000)
        return all;
    const int deepest = style == AcDbHatch::kOuter ? 1 : 0;
    std::vector<Outline> counting;
    for (const Outline& outline : all) {
        const auto depth = std::count_if(all.begin(), all.end(), [&](const Outline& other) {
            return &other != &outline && IsInside(other, outline.front());
        });
        if (depth <= deepest)
            counting.push_back(outline);
    }
    return counting;
}

class PatternLines {
public:
    PatternLines(AcGiWorldDraw& draw, const std::vector<Outline>& outlines, const AcGeMatrix3d& toWorld)
        : m_draw(draw), m_outlines(outlines), m_toWorld(toWorld)
    {
    }

    // False when there would be too many.
    bool Draw(const LineFamily& family)
    {
        const AcGeVector2d along(std::cos(family.angle), std::sin(family.angle)), across(-along.y, along.x);
        const double distance = family.step.x * across.x + family.step.y * across.y;
        double lowest = INFINITY, highest = -INFINITY;
        for (const Outline& outline : m_outlines)
            for (const AcGePoint2d& point : outline) {
                const double at = (point.x - family.base.x) * across.x + (point.y - family.base.y) * across.y;
                lowest = std::min(lowest, at);
                highest = std::max(highest, at);
            }
        if (!(std::abs(distance) > 0) || !std::isfinite(highest - lowest) ||
            (highest - lowest) / std::abs(distance) > double(kMostLines))
            return false;
        // Every line is cut with every edge of the boundary.
        const double first = std::ceil(std::min(lowest / distance, highest / distance));
        const double last = std::max(lowest / distance, highest / distance);
        if ((last - first) * double(EdgeCount()) > double(kMostCuts))
            return false;
        for (double line = first; line <= last; ++line) {
            const AcGePoint2d base(family.base.x + family.step.x * line, family.base.y + family.step.y * line);
            if (!Cut(base, along, across, family.dashes))
                return false;
        }
        return true;
    }

private:
    size_t EdgeCount() const
    {
        size_t count = 0;
        for (const Outline& outline : m_outlines)
            count += outline.size();
        return count;
    }
    // The parts of one line within the boundaries.
    bool Cut(const AcGePoint2d& base, const AcGeVector2d& along, const AcGeVector2d& across,
             const std::vector<double>& dashes)
    {
        m_cuts.clear();
        for (const Outline& outline : m_outlines)
            for (size_t at = 0, before = outline.size() - 1; at < outline.size(); before = at++) {
                const AcGeVector2d a = outline[before] - base, b = outline[at] - base;
                const double sideA = a.x * across.x + a.y * across.y, sideB = b.x * across.x + b.y * across.y;
                if ((sideA > 0) == (sideB > 0))
                    continue;
                const double share = sideA / (sideA - sideB);
                const double alongA = a.x * along.x + a.y * along.y, alongB = b.x * along.x + b.y * along.y;
                m_cuts.push_back(alongA + (alongB - alongA) * share);
            }
        std::sort(m_cuts.begin(), m_cuts.end());
        for (size_t at = 0; at + 1 < m_cuts.size(); at += 2)
            if (!Dash(base, along, m_cuts[at], m_cuts[at + 1], dashes))
                return false;
        return true;
    }

    bool Dash(const AcGePoint2d& base, const AcGeVector2d& along, double from, double to,
              const std::vector<double>& dashes)
    {
        double period = 0;
        for (const double dash : dashes)
            period += std::abs(dash);
        if (!(period > 0))
            return Line(base, along, from, to);
        m_count += size_t(std::min((to - from) / period * double(dashes.size()), double(kMostDashes)));
        if (m_count > kMostDashes || !(std::max(std::abs(from), std::abs(to)) / period < 1e9))
            return false;
        double at = std::floor(from / period) * period;
        while (at < to)
            for (const double dash : dashes) {
                const double end = at + std::abs(dash);
                if (dash >= 0 && end >= from && at <= to && !Line(base, along, std::max(at, from), std::min(end, to)))
                    return false;
                at = end;
            }
        return true;
    }

    bool Line(const AcGePoint2d& base, const AcGeVector2d& along, double from, double to)
    {
        if (++m_count > 2 * kMostDashes)
            return false;
        const AcGePoint3d ends[] = {m_toWorld * AcGePoint3d(base.x + along.x * from, base.y + along.y * from, 0),
                                    m_toWorld * AcGePoint3d(base.x + along.x * to, base.y + along.y * to, 0)};
        m_draw.geometry().polyline(from == to ? 1 : 2, ends);
        return true;
    }

    AcGiWorldDraw& m_draw;
    const std::vector<Outline>& m_outlines;
    const AcGeMatrix3d& m_toWorld;
    std::vector<double> m_cuts;
    size_t m_count = 0;
};

void Fill(AcGiWorldDraw& draw, const std::vector<Outline>& outlines, const AcGeMatrix3d& toWorld)
{
    std::vector<AcGePoint3d> points;
    std::vector<Adesk::Int32> faces;
    for (const Outline& outline : outlines) {
        faces.push_back(Adesk::Int32(outline.size()) * (faces.empty() ? 1 : -1));
        for (const AcGePoint2d& point : outline) {
            faces.push_back(Adesk::Int32(points.size()));
            points.push_back(toWorld * AcGePoint3d(point.x, point.y, 0));
        }
    }
    const FillSwitch filled(draw, kAcGiFillAlways);
    draw.geometry().shell(Adesk::UInt32(points.size()), points.data(), Adesk::UInt32(faces.size()), faces.data());
}

}   // namespace

Adesk::Boolean AcDbHatch::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    std::vector<Outline> outlines;
    for (int index = 0; index < numLoops(); ++index) {
        size_t begin = 0, end = 0;
        FindLoop(index, begin, end);
        Outline outline = HatchLoop(m_loops, begin, end).Outline();
        const bool isBounded = std::all_of(outline.begin(), outline.end(), [](const AcGePoint2d& point) {
            return std::isfinite(point.x) && std::isfinite(point.y);
        });
        if (outline.size() >= 3 && isBounded && (loopTypeAt(index) & kTextbox) == 0)
            outlines.push_back(std::move(outline));
    }
    outlines = Counting(std::move(outlines), hatchStyle());
    if (outlines.empty())
        return Adesk::kTrue;
    const AcGeMatrix3d toWorld =
        AcGeMatrix3d::planeToWorld(m_normal) * AcGeMatrix3d::translation(AcGeVector3d(0, 0, m_elevation.z));
    if (m_isSolid == 0 && m_isGradient == 0) {
        PatternLines lines(*worldDraw, outlines, toWorld);
        bool areAllDrawn = true;
        for (const LineFamily& family : FamiliesOf(m_pattern))
            areAllDrawn = areAllDrawn && lines.Draw(family);
        if (areAllDrawn)
            return Adesk::kTrue;
        NoteTo(*worldDraw, DrawNote::DenseHatch);
    }
    Fill(*worldDraw, outlines, toWorld);
    return Adesk::kTrue;
}
