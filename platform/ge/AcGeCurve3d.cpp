#include "AcGeCurve3d.h"
#include <limits>

namespace {

constexpr int kSamples = 256;

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

}   // namespace

AcGePoint3d AcGeCurve3d::closestPointTo(const AcGePoint3d& point, double& parameter) const
{
    AcGeInterval interval;
    getInterval(interval);
    const double step = interval.length() / kSamples;
    int best = 0;
    double least = std::numeric_limits<double>::infinity();
    for (int sample = 0; sample <= kSamples; ++sample) {
        const double distance = evalPoint(interval.lowerBound() + step * sample).distanceTo(point);
        if (distance < least)
            least = distance, best = sample;
    }
    const double lower = interval.lowerBound() + step * std::max(best - 1, 0);
    const double upper = interval.lowerBound() + step * std::min(best + 1, kSamples);
    parameter = Narrowed(*this, point, lower, upper);
    return evalPoint(parameter);
}

AcGePoint3d AcGeCurve3d::closestPointTo(const AcGePoint3d& point) const
{
    double parameter = 0.0;
    return closestPointTo(point, parameter);
}

double AcGeCurve3d::length() const
{
    AcGePoint3dArray points;
    getSamplePoints(16 * kSamples + 1, points);
    double sum = 0.0;
    for (int index = 1; index < points.length(); ++index)
        sum += points[index].distanceTo(points[index - 1]);
    return sum;
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
