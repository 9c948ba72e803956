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

AcGeNurbCurve3d::Weighted AcGeNurbCurve3d::WeightedAt(int index) const
{
    const double weight = isRational() ? m_weights[index] : 1.0;
    return {m_points[index].asVector() * weight, weight};
}

int AcGeNurbCurve3d::SpanOf(double parameter) const
{
    const double* knots = m_knots.asArrayPtr();
    return int(std::upper_bound(knots + m_degree + 1, knots + m_points.length(), parameter) - knots) - 1;
}

// De Boor's scheme, on the differences of the control points for a derivative.
AcGeNurbCurve3d::Weighted AcGeNurbCurve3d::Derivative(double parameter, int order) const
{
    AcGeInterval interval;
    getInterval(interval);
    const double t = std::clamp(parameter, interval.lowerBound(), interval.upperBound());
    const double* knots = m_knots.asArrayPtr();
    const int first = SpanOf(t) - m_degree;
    if (order > m_degree)
        return {};
    Weighted points[kMostDegree + 1];
    for (int index = 0; index <= m_degree; ++index)
        points[index] = WeightedAt(first + index);
    for (int round = 1; round <= order; ++round)
        for (int index = m_degree; index >= round; --index) {
            const double width = knots[first + index + m_degree + 1 - round] - knots[first + index];
            const double factor = width == 0.0 ? 0.0 : (m_degree + 1 - round) / width;
            points[index] = (points[index] + points[index - 1] * -1.0) * factor;
        }
    for (int round = order + 1; round <= m_degree; ++round)
        for (int index = m_degree; index >= round; --index) {
            const int knot = first + index;
            const double width = knots[knot + m_degree + 1 - round] - knots[knot];
            const double share = width == 0.0 ? 0.0 : (t - knots[knot]) / width;
            points[index] = points[index - 1] * (1.0 - share) + points[index] * share;
        }
    return points[m_degree];
}

AcGePoint3d AcGeNurbCurve3d::evalPoint(double parameter) const
{
    if (m_points.isEmpty())
        return AcGePoint3d();
    const Weighted at = Derivative(parameter, 0);
    return AcGePoint3d() + at.point / (at.weight == 0.0 ? 1.0 : at.weight);
}

AcGeCurve3d::Derivatives AcGeNurbCurve3d::derivativesAt(double parameter) const
{
    if (m_points.isEmpty())
        return {};
    const Weighted at = Derivative(parameter, 0), once = Derivative(parameter, 1), twice = Derivative(parameter, 2);
    const double weight = at.weight == 0.0 ? 1.0 : at.weight;
    const AcGeVector3d place = at.point / weight;
    const AcGeVector3d first = (once.point - place * once.weight) / weight;
    return {first, (twice.point - first * (2.0 * once.weight) - place * twice.weight) / weight};
}

std::vector<double> AcGeNurbCurve3d::breaks() const
{
    std::vector<double> places;
    for (int index = m_degree; index <= m_points.length() && index < m_knots.length(); ++index)
        if (places.empty() || m_knots[index] > places.back())
            places.push_back(m_knots[index]);
    return places;
}

AcGeNurbCurve3d& AcGeNurbCurve3d::transformBy(const AcGeMatrix3d& matrix)
{
    for (AcGePoint3d& point : m_points)
        point.transformBy(matrix);
    return *this;
}

AcGeNurbCurve3d& AcGeNurbCurve3d::addKnot(double knot)
{
    if (m_points.isEmpty())
        return *this;
    const int span = SpanOf(knot);
    AcGePoint3dArray points;
    AcGeDoubleArray weights;
    for (int index = 0; index <= m_points.length(); ++index) {
        Weighted mixed;
        if (index <= span - m_degree) {
            mixed = WeightedAt(index);
        } else if (index > span) {
            mixed = WeightedAt(index - 1);
        } else {
            const double width = m_knots[index + m_degree] - m_knots[index];
            const double share = width == 0.0 ? 0.0 : (knot - m_knots[index]) / width;
            mixed = WeightedAt(index - 1) * (1.0 - share) + WeightedAt(index) * share;
        }
        points.append(AcGePoint3d() + mixed.point / (mixed.weight == 0.0 ? 1.0 : mixed.weight));
        if (isRational())
            weights.append(mixed.weight);
    }
    m_knots.insertAt(span + 1, knot);
    m_points = points;
    m_weights = weights;
    return *this;
}

AcGeNurbCurve3d& AcGeNurbCurve3d::hardTrimByParams(double from, double to)
{
    AcGeInterval interval;
    getInterval(interval);
    if (m_points.isEmpty() || !(from < to))
        return *this;
    from = std::max(from, interval.lowerBound());
    to = std::min(to, interval.upperBound());
    // Each end becomes a knot as often as the degree says, and once more, so that the curve begins and ends there.
    for (const double end : {from, to}) {
        int times = int(std::count(m_knots.begin(), m_knots.end(), end));
        for (; times < m_degree; ++times)
            addKnot(end);
    }
    const double* begin = m_knots.asArrayPtr();
    const double* end = begin + m_knots.length();
    const int firstKnot = int(std::upper_bound(begin, end, from) - begin) - m_degree;
    const int lastKnot = int(std::lower_bound(begin, end, to) - begin) + m_degree - 1;
    AcGeDoubleArray knots, weights;
    AcGePoint3dArray points;
    knots.append(from);
    for (int index = firstKnot; index <= lastKnot; ++index)
        knots.append(m_knots[index]);
    knots.append(to);
    for (int index = firstKnot - 1; index <= lastKnot - m_degree; ++index) {
        points.append(m_points[index]);
        if (isRational())
            weights.append(m_weights[index]);
    }
    m_knots = knots, m_points = points, m_weights = weights;
    return *this;
}

AcGeNurbCurve3d& AcGeNurbCurve3d::reverseParam()
{
    if (m_knots.isEmpty())
        return *this;
    const double sum = m_knots.first() + m_knots.last();
    std::reverse(m_points.begin(), m_points.end());
    std::reverse(m_weights.begin(), m_weights.end());
    std::reverse(m_knots.begin(), m_knots.end());
    for (double& knot : m_knots)
        knot = sum - knot;
    return *this;
}
