#include "AcGeCurve3d.h"
#include <algorithm>
#include <limits>

namespace {

constexpr int kFewestSamples = 256;

// Twice the places that the turning of the curve asks for, so that each bend has some of its own.
int SamplesOf(const AcGeCurve3d& curve)
{
    return std::max(kFewestSamples, 2 * curve.steps());
}

// Narrows the parameter of the nearest place by thirds within an interval that holds one minimum.
double Narrowed(const AcGeCurve3d& curve, const AcGePoint3d& point, double lower, double upper)
{
    for (int round = 0; round < 100 && upper - lower > 1.0e-15 * (1.0 + std::fabs(lower)); ++round) {
        const double left = lower + (upper - lower) / 3.0;
        const double right = upper - (upper - lower) / 3.0;
        if (curve.evalPoint(left).distanceTo(point) < curve.evalPoint(right).distanceTo(point))
            upper = right;
        else
            lower = left;
    }
    return (lower + upper) / 2.0;
}

// Thirds stop where distances no longer differ; the slope tells the rest of the way.
double Polished(const AcGeCurve3d& curve, const AcGePoint3d& point, double parameter, double lower, double upper)
{
    for (int round = 0; round < 20; ++round) {
        const AcGeCurve3d::Derivatives along = curve.derivativesAt(parameter);
        const AcGeVector3d off = curve.evalPoint(parameter) - point;
        const double bend = along.first.lengthSqrd() + off.dotProduct(along.second);
        if (bend <= 0.0)
            break;
        const double next = std::clamp(parameter - off.dotProduct(along.first) / bend, lower, upper);
        if (std::fabs(next - parameter) <= 1.0e-16 * (1.0 + std::fabs(parameter)))
            return next;
        parameter = next;
    }
    return parameter;
}

// Five places and weights of Gauss, for an integral over -1 to 1.
constexpr double kGauss[5][2] = {{0.0, 0.568888888888888888889},
                                 {-0.538469310105683091036, 0.478628670499366468041},
                                 {0.538469310105683091036, 0.478628670499366468041},
                                 {-0.906179845938663992798, 0.236926885056189087514},
                                 {0.906179845938663992798, 0.236926885056189087514}};

double GaussLength(const AcGeCurve3d& curve, double from, double to)
{
    double sum = 0.0;
    for (const auto& [place, weight] : kGauss)
        sum += weight * curve.derivativesAt((from + to) / 2.0 + (to - from) / 2.0 * place).first.length();
    return sum * (to - from) / 2.0;
}

// Halved until both halves agree with the whole.
double RefinedLength(const AcGeCurve3d& curve, double from, double to, double whole, int depth)
{
    const double middle = (from + to) / 2.0;
    const double left = GaussLength(curve, from, middle);
    const double right = GaussLength(curve, middle, to);
    if (depth == 0 || std::fabs(left + right - whole) <= 1.0e-13 * std::fabs(whole))
        return left + right;
    return RefinedLength(curve, from, middle, left, depth - 1) + RefinedLength(curve, middle, to, right, depth - 1);
}

constexpr int kLengthDepth = 12;

}   // namespace

AcGeCurve3d::Derivatives AcGeCurve3d::derivativesAt(double parameter) const
{
    AcGeInterval interval;
    getInterval(interval);
    const double width = std::isfinite(interval.length()) ? interval.length() : 1.0;
    const double step = 1.0e-4 * width;
    const double lower = std::max(parameter - step, interval.lowerBound());
    const double upper = std::min(parameter + step, interval.upperBound());
    const double half = (upper - lower) / 2.0;
    if (half <= 0.0)
        return {};
    const AcGePoint3d before = evalPoint(lower), at = evalPoint((lower + upper) / 2.0), after = evalPoint(upper);
    return {(after - before) / (2.0 * half), ((after - at) - (at - before)) / (half * half)};
}

AcGePoint3d AcGeCurve3d::evalPoint(double parameter, int count, AcGeVector3dArray& derivatives) const
{
    const Derivatives along = derivativesAt(parameter);
    derivatives.setLogicalLength(0);
    if (count >= 1)
        derivatives.append(along.first);
    if (count >= 2)
        derivatives.append(along.second);
    return evalPoint(parameter);
}

std::vector<double> AcGeCurve3d::breaks() const
{
    AcGeInterval interval;
    getInterval(interval);
    constexpr int kParts = 4;
    std::vector<double> places;
    for (int part = 0; part <= kParts; ++part)
        places.push_back(interval.lowerBound() + interval.length() * part / kParts);
    return places;
}

double AcGeCurve3d::length(double from, double to) const
{
    const double lower = std::min(from, to), upper = std::max(from, to);
    const std::vector<double> places = breaks();
    double sum = 0.0;
    for (size_t part = 0; part + 1 < places.size(); ++part) {
        const double start = std::max(lower, places[part]), end = std::min(upper, places[part + 1]);
        if (start < end)
            sum += RefinedLength(*this, start, end, GaussLength(*this, start, end), kLengthDepth);
    }
    return sum;
}

double AcGeCurve3d::paramAtLength(double datum, double wanted) const
{
    // Smooth parts that the length passes over whole, then steps within the one where it ends.
    std::vector<double> places = breaks();
    const double sign = wanted < 0.0 ? -1.0 : 1.0;
    if (sign < 0.0)
        std::reverse(places.begin(), places.end());
    double rest = std::fabs(wanted), from = datum, to = datum;
    for (const double place : places) {
        if ((place - from) * sign <= 0.0)
            continue;
        to = place;
        const double part = length(from, to);
        if (part >= rest)
            break;
        rest -= part;
        from = to;
    }
    double lower = std::min(from, to), upper = std::max(from, to), parameter = (lower + upper) / 2.0;
    for (int round = 0; round < 100 && from != to; ++round) {
        const double off = (length(from, parameter) - rest) * sign;
        (off > 0.0 ? upper : lower) = parameter;
        const double speed = derivativesAt(parameter).first.length();
        double next = speed > 0.0 ? parameter - off / speed : parameter;
        if (!(next >= lower && next <= upper))
            next = (lower + upper) / 2.0;
        if (std::fabs(next - parameter) <= 1.0e-15 * (1.0 + std::fabs(parameter)))
            return next;
        parameter = next;
    }
    return parameter;
}

AcGePoint3d AcGeCurve3d::closestPointTo(const AcGePoint3d& point, double& parameter) const
{
    AcGeInterval interval;
    getInterval(interval);
    const int samples = SamplesOf(*this);
    const double step = interval.length() / samples;
    int best = 0;
    double least = std::numeric_limits<double>::infinity();
    for (int sample = 0; sample <= samples; ++sample) {
        const double distance = evalPoint(interval.lowerBound() + step * sample).distanceTo(point);
        if (distance < least)
            least = distance, best = sample;
    }
    const double lower = interval.lowerBound() + step * std::max(best - 1, 0);
    const double upper = interval.lowerBound() + step * std::min(best + 1, samples);
    parameter = Polished(*this, point, Narrowed(*this, point, lower, upper), lower, upper);
    return evalPoint(parameter);
}

AcGePoint3d AcGeCurve3d::closestPointTo(const AcGePoint3d& point) const
{
    double parameter = 0.0;
    return closestPointTo(point, parameter);
}

double AcGeCurve3d::length() const
{
    AcGeInterval interval;
    getInterval(interval);
    return length(interval.lowerBound(), interval.upperBound());
}

bool AcGeCurve3d::hasStartPoint(AcGePoint3d& point) const
{
    AcGeInterval interval;
    getInterval(interval);
    if (!std::isfinite(interval.lowerBound()))
        return false;
    point = evalPoint(interval.lowerBound());
    return true;
}

bool AcGeCurve3d::hasEndPoint(AcGePoint3d& point) const
{
    AcGeInterval interval;
    getInterval(interval);
    if (!std::isfinite(interval.upperBound()))
        return false;
    point = evalPoint(interval.upperBound());
    return true;
}

bool AcGeCurve3d::isClosed(const AcGeTol& tol) const
{
    AcGePoint3d start, end;
    return hasStartPoint(start) && hasEndPoint(end) && start.isEqualTo(end, tol);
}

void AcGeCurve3d::getSamplePoints(int count, AcGePoint3dArray& points) const
{
    AcGeInterval interval;
    getInterval(interval);
    points.setLogicalLength(0);
    for (int index = 0; index < count; ++index) {
        const double share = count == 1 ? 0.0 : double(index) / (count - 1);
        points.append(evalPoint(interval.lowerBound() + interval.length() * share));
    }
}
