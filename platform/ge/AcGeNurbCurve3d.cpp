#include "AcGeNurbCurve3d.h"
#include <algorithm>

namespace {
constexpr int kMostDegree = 25;
}

AcGeNurbCurve3d::AcGeNurbCurve3d(int degree, const AcGeDoubleArray& knots, const AcGePoint3dArray& controlPoints,
                                 const AcGeDoubleArray& weights)
{
    const int count = controlPoints.length();
    const bool fits = degree >= 1 && degree <= kMostDegree && count > degree && knots.length() == count + degree + 1 &&
                      (weights.isEmpty() || weights.length() == count) && std::is_sorted(knots.begin(), knots.end());
    if (!fits)
        return;
    m_degree = degree;
    m_knots = knots;
    m_points = controlPoints;
    m_weights = weights;
}

void AcGeNurbCurve3d::getInterval(AcGeInterval& interval) const
{
    interval =
        m_points.isEmpty() ? AcGeInterval(0.0, 0.0) : AcGeInterval(m_knots[m_degree], m_knots[m_points.length()]);
}

// De Boor's scheme on points that carry their weight as a fourth coordinate.
AcGePoint3d AcGeNurbCurve3d::evalPoint(double parameter) const
{
    if (m_points.isEmpty())
        return AcGePoint3d();
    AcGeInterval interval;
    getInterval(interval);
    const double t = std::clamp(parameter, interval.lowerBound(), interval.upperBound());
    const double* knots = m_knots.asArrayPtr();
    const double* above = std::upper_bound(knots + m_degree + 1, knots + m_points.length(), t);
    const int span = int(above - knots) - 1;

    AcGeVector3d points[kMostDegree + 1];
    double weights[kMostDegree + 1];
    for (int index = 0; index <= m_degree; ++index) {
        weights[index] = isRational() ? m_weights[span - m_degree + index] : 1.0;
        points[index] = m_points[span - m_degree + index].asVector() * weights[index];
    }
    for (int round = 1; round <= m_degree; ++round) {
        for (int index = m_degree; index >= round; --index) {
            const int knot = span - m_degree + index;
            const double width = knots[knot + m_degree + 1 - round] - knots[knot];
            const double share = width == 0.0 ? 0.0 : (t - knots[knot]) / width;
            points[index] = points[index - 1] * (1.0 - share) + points[index] * share;
            weights[index] = weights[index - 1] * (1.0 - share) + weights[index] * share;
        }
    }
    const double weight = weights[m_degree];
    return AcGePoint3d() + points[m_degree] / (weight == 0.0 ? 1.0 : weight);
}

AcGeNurbCurve3d& AcGeNurbCurve3d::transformBy(const AcGeMatrix3d& matrix)
{
    for (AcGePoint3d& point : m_points)
        point.transformBy(matrix);
    return *this;
}
