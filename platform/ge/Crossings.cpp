#include "Crossings.h"
#include "AcGeEllipArc3d.h"
#include "AcGeLine3d.h"
#include <algorithm>
#include <limits>

namespace KxPlat {

double MeetingTolerance(const AcGePoint3d& around)
{
    return 1.0e-9 + 1.0e-12 * around.asVector().length();
}

namespace {

AcGeInterval IntervalOf(const AcGeCurve3d& curve)
{
    AcGeInterval interval;
    curve.getInterval(interval);
    return interval;
}

// The pairs found so far, without what was found before or lies outside of a curve.
class Found {
public:
    Found(const AcGeCurve3d& first, const AcGeCurve3d& second)
        : m_first(first), m_second(second), m_within{IntervalOf(first), IntervalOf(second)}
    {
    }

    void Add(double first, double second)
    {
        first = Held(m_first, m_within[0], first);
        second = Held(m_second, m_within[1], second);
        const AcGePoint3d point = m_first.evalPoint(first), other = m_second.evalPoint(second);
        const double tolerance = MeetingTolerance(point);
        if (!(point.distanceTo(other) <= tolerance))
            return;
        for (const Crossing& known : m_all)
            if (known.point.distanceTo(point) <= 10.0 * tolerance)
                return;
        m_all.push_back({point, first, second});
    }
    // The place of both that is nearest to a point of either.
    void AddNear(const AcGePoint3d& point)
    {
        double first = 0.0, second = 0.0;
        m_first.closestPointTo(point, first);
        m_second.closestPointTo(point, second);
        Add(first, second);
    }
    std::vector<Crossing> Sorted()
    {
        std::sort(m_all.begin(), m_all.end(), [](const Crossing& a, const Crossing& b) { return a.first < b.first; });
        return std::move(m_all);
    }

private:
    // A parameter a rounding error beyond an end belongs to the end.
    static double Held(const AcGeCurve3d& curve, const AcGeInterval& within, double parameter)
    {
        return std::clamp(parameter, within.lowerBound(), within.upperBound());
    }

    const AcGeCurve3d& m_first;
    const AcGeCurve3d& m_second;
    AcGeInterval m_within[2];
    std::vector<Crossing> m_all;
};

void AddEnds(const AcGeCurve3d& first, const AcGeCurve3d& second, Found& found)
{
    for (const AcGeCurve3d* curve : {&first, &second}) {
        AcGePoint3d end;
        if (curve->hasStartPoint(end))
            found.AddNear(end);
        if (curve->hasEndPoint(end))
            found.AddNear(end);
    }
}

void MeetLines(const AcGeLinearEnt3d& first, const AcGeLinearEnt3d& second, Found& found)
{
    AddEnds(first, second, found);
    const AcGePoint3d start = first.evalPoint(0.0);
    const AcGeVector3d along = first.evalPoint(1.0) - start;
    const AcGePoint3d otherStart = second.evalPoint(0.0);
    const AcGeVector3d other = second.evalPoint(1.0) - otherStart;
    const AcGeVector3d across = along.crossProduct(other);
    if (across.length() <= 1.0e-12 * along.length() * other.length())
        return;
    const AcGeVector3d between = otherStart - start;
    found.Add(between.crossProduct(other).dotProduct(across) / across.lengthSqrd(),
              between.crossProduct(along).dotProduct(across) / across.lengthSqrd());
}

// The nearest place of a whole circle to one of its plane, held to the arc by Add's test of the distance.
void MeetLineAndCircle(const AcGeLinearEnt3d& line, const AcGeEllipArc3d& circle, bool isLineFirst, Found& found)
{
    const AcGePoint3d start = line.evalPoint(0.0);
    const AcGeVector3d along = line.evalPoint(1.0) - start;
    const AcGeVector3d normal = circle.normal(), off = start - circle.center();
    const double radius = circle.majorRadius();
    const auto add = [&](double t) {
        const AcGePoint3d point = start + along * t;
        const AcGeVector3d arm = point - circle.center();
        const double angle = std::atan2(arm.dotProduct(circle.minorAxis()), arm.dotProduct(circle.majorAxis()));
        const double turned = circle.startAng() + FullTurn(angle - circle.startAng());
        const double whole = turned - circle.startAng() > 2 * kPi - 1.0e-9 ? circle.startAng() : turned;
        for (const double parameter : {turned, whole})
            isLineFirst ? found.Add(t, parameter) : found.Add(parameter, t);
    };
    const double climb = along.dotProduct(normal);
    if (std::fabs(climb) > 1.0e-12 * along.length()) {
        add(-off.dotProduct(normal) / climb);
        return;
    }
    // In the plane, or beside it, which the distance tells afterwards.
    const double foot = -off.dotProduct(along) / along.lengthSqrd();
    const double reach = (off + along * foot).length();
    const double rest = radius * radius - reach * reach;
    const double half = rest > 0.0 ? std::sqrt(rest) / along.length() : 0.0;
    if (rest < -4.0 * radius * MeetingTolerance(start))
        return;
    // A line that touches within the tolerance meets once, in the middle.
    if (half * along.length() < std::sqrt(2.0 * radius * MeetingTolerance(start))) {
        add(foot);
        return;
    }
    add(foot - half);
    add(foot + half);
}

void MeetCircles(const AcGeEllipArc3d& first, const AcGeEllipArc3d& second, Found& found)
{
    const AcGeVector3d between = second.center() - first.center();
    const double distance = between.length(), r = first.majorRadius(), s = second.majorRadius();
    if (distance <= MeetingTolerance(first.center()))
        return;
    const double along = (distance * distance + r * r - s * s) / (2.0 * distance);
    const double rest = r * r - along * along;
    if (rest < -4.0 * r * MeetingTolerance(first.center()))
        return;
    const AcGeVector3d direction = between / distance, across = first.normal().crossProduct(direction);
    const double half = rest > 0.0 ? std::sqrt(rest) : 0.0;
    for (const double side : {-half, half}) {
        const AcGePoint3d point = first.center() + direction * along + across * side;
        double parameters[2];
        const AcGeEllipArc3d* arcs[2] = {&first, &second};
        for (int index = 0; index < 2; ++index) {
            const AcGeEllipArc3d& arc = *arcs[index];
            const AcGeVector3d arm = point - arc.center();
            const double angle = std::atan2(arm.dotProduct(arc.minorAxis()), arm.dotProduct(arc.majorAxis()));
            double turn = FullTurn(angle - arc.startAng());
            if (turn > 2 * kPi - 1.0e-9)
                turn = 0.0;
            parameters[index] = arc.startAng() + turn;
        }
        found.Add(parameters[0], parameters[1]);
    }
}

// --- everything else: chords that come near each other, then steps towards the meeting ---

struct Chord {
    double from, to;
    AcGePoint3d start, end;
    double bulge;   // how far the curve may leave the chord
};

std::vector<Chord> ChordsOf(const AcGeCurve3d& curve, const AcGeInterval& within)
{
    const int count = curve.steps();
    std::vector<Chord> chords;
    const auto at = [&](double share) { return within.lowerBound() + within.length() * share; };
    for (int index = 0; index < count; ++index) {
        Chord chord = {at(double(index) / count), at(double(index + 1) / count), {}, {}, 0.0};
        chord.start = curve.evalPoint(chord.from);
        chord.end = curve.evalPoint(chord.to);
        for (const double share : {0.25, 0.5, 0.75}) {
            const AcGePoint3d inside = curve.evalPoint(chord.from + (chord.to - chord.from) * share);
            chord.bulge = std::max(chord.bulge, AcGeLineSeg3d(chord.start, chord.end).distanceTo(inside));
        }
        chord.bulge = 2.0 * chord.bulge + MeetingTolerance(chord.start);
        chords.push_back(chord);
    }
    return chords;
}

bool AreNear(const Chord& a, const Chord& b)
{
    const double apart = a.bulge + b.bulge;
    for (unsigned axis = 0; axis < 3; ++axis)
        if (std::min(a.start[axis], a.end[axis]) > std::max(b.start[axis], b.end[axis]) + apart ||
            std::min(b.start[axis], b.end[axis]) > std::max(a.start[axis], a.end[axis]) + apart)
            return false;
    return true;
}

// The pair of parameters at which the distance is least, from a guess on.
void Approach(const AcGeCurve3d& first, const AcGeCurve3d& second, double s, double t, Found& found)
{
    const AcGeInterval overFirst = IntervalOf(first), overSecond = IntervalOf(second);
    for (int round = 0; round < 40; ++round) {
        const AcGeVector3d off = first.evalPoint(s) - second.evalPoint(t);
        const AcGeCurve3d::Derivatives a = first.derivativesAt(s), b = second.derivativesAt(t);
        // Least squares of the meeting of both tangents.
        const double aa = a.first.lengthSqrd(), ab = a.first.dotProduct(b.first), bb = b.first.lengthSqrd();
        const double det = aa * bb - ab * ab;
        double ds = 0.0, dt = 0.0;
        if (det > 1.0e-12 * aa * bb) {
            ds = (ab * off.dotProduct(b.first) - bb * off.dotProduct(a.first)) / det;
            dt = (aa * off.dotProduct(b.first) - ab * off.dotProduct(a.first)) / det;
        } else if (bb > 0.0) {
            dt = off.dotProduct(b.first) / bb;
        }
        const double nextS = std::clamp(s + ds, overFirst.lowerBound(), overFirst.upperBound());
        const double nextT = std::clamp(t + dt, overSecond.lowerBound(), overSecond.upperBound());
        const bool isDone = std::fabs(nextS - s) <= 1.0e-15 * (1.0 + std::fabs(s)) &&
                            std::fabs(nextT - t) <= 1.0e-15 * (1.0 + std::fabs(t));
        s = nextS, t = nextT;
        if (isDone)
            break;
    }
    found.Add(s, t);
}

// An endless line is looked at only where the other curve can be.
AcGeInterval Reach(const AcGeCurve3d& curve, const AcGeCurve3d& other)
{
    const AcGeInterval within = IntervalOf(curve);
    if (std::isfinite(within.length()))
        return within;
    AcGePoint3dArray points;
    other.getSamplePoints(other.steps() + 1, points);
    double low = std::numeric_limits<double>::infinity(), high = -low, size = 0.0;
    for (const AcGePoint3d& point : points) {
        double at = 0.0;
        curve.closestPointTo(point, at);
        low = std::min(low, at), high = std::max(high, at);
        size = std::max(size, point.distanceTo(points[0]));
    }
    const double margin = size / std::max(curve.derivativesAt(0.0).first.length(), 1.0e-300) + 1.0;
    return AcGeInterval(std::max(low - margin, within.lowerBound()), std::min(high + margin, within.upperBound()));
}

void MeetBySteps(const AcGeCurve3d& first, const AcGeCurve3d& second, Found& found)
{
    const std::vector<Chord> ours = ChordsOf(first, Reach(first, second));
    const std::vector<Chord> theirs = ChordsOf(second, Reach(second, first));
    for (const Chord& a : ours)
        for (const Chord& b : theirs)
            if (AreNear(a, b))
                Approach(first, second, (a.from + a.to) / 2.0, (b.from + b.to) / 2.0, found);
}

bool IsCircle(const AcGeEllipArc3d* arc)
{
    return arc != nullptr && std::fabs(arc->majorRadius() - arc->minorRadius()) <= 1.0e-12 * arc->majorRadius() &&
           arc->majorAxis().isPerpendicularTo(arc->minorAxis());
}

bool AreCoplanar(const AcGeEllipArc3d& a, const AcGeEllipArc3d& b)
{
    return a.normal().isParallelTo(b.normal()) &&
           std::fabs((b.center() - a.center()).dotProduct(a.normal())) <= MeetingTolerance(a.center());
}

}   // namespace

std::vector<Crossing> Crossings(const AcGeCurve3d& first, const AcGeCurve3d& second)
{
    const auto* line = dynamic_cast<const AcGeLinearEnt3d*>(&first);
    const auto* otherLine = dynamic_cast<const AcGeLinearEnt3d*>(&second);
    const auto* arc = dynamic_cast<const AcGeEllipArc3d*>(&first);
    const auto* otherArc = dynamic_cast<const AcGeEllipArc3d*>(&second);
    Found found(first, second);
    if (line != nullptr && otherLine != nullptr) {
        MeetLines(*line, *otherLine, found);
        return found.Sorted();
    }
    AddEnds(first, second, found);
    if (line != nullptr && IsCircle(otherArc))
        MeetLineAndCircle(*line, *otherArc, true, found);
    else if (otherLine != nullptr && IsCircle(arc))
        MeetLineAndCircle(*otherLine, *arc, false, found);
    else if (IsCircle(arc) && IsCircle(otherArc) && AreCoplanar(*arc, *otherArc))
        MeetCircles(*arc, *otherArc, found);
    else
        MeetBySteps(first, second, found);
    return found.Sorted();
}

}   // namespace KxPlat
