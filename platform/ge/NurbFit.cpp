// Splines through given points.
#include "AcGeNurbCurve3d.h"
#include <vector>

namespace {

AcGePoint3dArray WithoutRepeats(const AcGePoint3dArray& points)
{
    AcGePoint3dArray kept;
    for (const AcGePoint3d& point : points)
        if (kept.isEmpty() || !kept.last().isEqualTo(point))
            kept.append(point);
    return kept;
}

std::vector<double> ChordLengths(const AcGePoint3dArray& points)
{
    std::vector<double> places(1, 0.0);
    for (int index = 1; index < points.length(); ++index)
        places.push_back(places.back() + points[index].distanceTo(points[index - 1]));
    return places;
}

// Rows of a few numbers each, with points on the right-hand side, solved by elimination with pivots. Small: a row for
// each point.
class System {
public:
    explicit System(size_t size) : m_size(size), m_rows(size * size), m_right(size) {}
    double& at(size_t row, size_t column) { return m_rows[row * m_size + column]; }
    AcGeVector3d& right(size_t row) { return m_right[row]; }

    std::vector<AcGeVector3d> Solve()
    {
        for (size_t pivot = 0; pivot < m_size; ++pivot) {
            BringUp(pivot);
            for (size_t row = pivot + 1; row < m_size; ++row)
                Eliminate(pivot, row);
        }
        for (size_t row = m_size; row-- > 0;) {
            for (size_t column = row + 1; column < m_size; ++column)
                m_right[row] -= m_right[column] * at(row, column);
            m_right[row] /= at(row, row);
        }
        return m_right;
    }

private:
    void BringUp(size_t pivot)
    {
        size_t best = pivot;
        for (size_t row = pivot + 1; row < m_size; ++row)
            if (std::fabs(at(row, pivot)) > std::fabs(at(best, pivot)))
                best = row;
        for (size_t column = 0; best != pivot && column < m_size; ++column)
            std::swap(at(best, column), at(pivot, column));
        std::swap(m_right[best], m_right[pivot]);
    }
    void Eliminate(size_t pivot, size_t row)
    {
        const double factor = at(row, pivot) / at(pivot, pivot);
        if (factor == 0.0)
            return;
        for (size_t column = pivot; column < m_size; ++column)
            at(row, column) -= factor * at(pivot, column);
        m_right[row] -= m_right[pivot] * factor;
    }

    size_t m_size;
    std::vector<double> m_rows;
    std::vector<AcGeVector3d> m_right;
};

struct Tangent {
    AcGeVector3d direction;
    bool isGiven;
};

// A chain of rows that each touch their neighbours only.
std::vector<AcGeVector3d> SolveChain(std::vector<double> below, std::vector<double> on, std::vector<double> above,
                                     std::vector<AcGeVector3d> right)
{
    const size_t count = on.size();
    for (size_t row = 1; row < count; ++row) {
        const double factor = below[row] / on[row - 1];
        on[row] -= factor * above[row - 1];
        right[row] -= right[row - 1] * factor;
    }
    for (size_t row = count; row-- > 0;) {
        if (row + 1 < count)
            right[row] -= right[row + 1] * above[row];
        right[row] /= on[row];
    }
    return right;
}

// The slopes at the points of the cubic whose curvature is steady.
std::vector<AcGeVector3d> OpenSlopes(const AcGePoint3dArray& points, const std::vector<double>& places,
                                     const Tangent& start, const Tangent& end)
{
    const size_t count = places.size();
    std::vector<double> below(count), on(count), above(count);
    std::vector<AcGeVector3d> right(count);
    const auto width = [&](size_t index) { return places[index + 1] - places[index]; };
    const auto chord = [&](size_t index) { return (points[int(index) + 1] - points[int(index)]) / width(index); };
    on[0] = 2.0, above[0] = 1.0, right[0] = chord(0) * 3.0;
    on[count - 1] = 2.0, below[count - 1] = 1.0, right[count - 1] = chord(count - 2) * 3.0;
    for (size_t row = 1; row + 1 < count; ++row) {
        below[row] = width(row), above[row] = width(row - 1), on[row] = 2.0 * (width(row - 1) + width(row));
        right[row] = (chord(row - 1) * width(row) + chord(row) * width(row - 1)) * 3.0;
    }
    if (start.isGiven)
        on[0] = 1.0, above[0] = 0.0, right[0] = start.direction.normal();
    if (end.isGiven)
        on[count - 1] = 1.0, below[count - 1] = 0.0, right[count - 1] = end.direction.normal();
    return SolveChain(below, on, above, right);
}

// The same around a closed row of points, whose last one is the first again.
std::vector<AcGeVector3d> ClosedSlopes(const AcGePoint3dArray& points, const std::vector<double>& places)
{
    const size_t count = places.size() - 1;
    const auto width = [&](size_t index) { return places[index % count + 1] - places[index % count]; };
    const auto chord = [&](size_t index) {
        return (points[int(index % count) + 1] - points[int(index % count)]) / width(index);
    };
    System system(count);
    for (size_t row = 0; row < count; ++row) {
        const size_t before = (row + count - 1) % count, after = (row + 1) % count;
        system.at(row, before) += width(row);
        system.at(row, row) += 2.0 * (width(before) + width(row));
        system.at(row, after) += width(before);
        system.right(row) = (chord(before) * width(row) + chord(row) * width(before)) * 3.0;
    }
    std::vector<AcGeVector3d> slopes = system.Solve();
    slopes.push_back(slopes.front());
    return slopes;
}

// How far along a spline of this degree each of its basis functions reaches at a parameter.
std::vector<double> BasisAt(int degree, const AcGeDoubleArray& knots, int count, int span, double t)
{
    std::vector<double> values(size_t(count), 0.0), basis(size_t(degree) + 1, 0.0);
    basis[0] = 1.0;
    for (int round = 1; round <= degree; ++round) {
        double saved = 0.0;
        for (int index = 0; index < round; ++index) {
            const double right = knots[span + index + 1] - t, left = t - knots[span + 1 - round + index];
            const double share = right + left == 0.0 ? 0.0 : basis[size_t(index)] / (right + left);
            basis[size_t(index)] = saved + right * share;
            saved = left * share;
        }
        basis[size_t(round)] = saved;
    }
    for (int index = 0; index <= degree; ++index)
        values[size_t(span - degree + index)] = basis[size_t(index)];
    return values;
}

constexpr int kMostClosedPoints = 400;   // the closed system is solved whole

}   // namespace

AcGeNurbCurve3d::AcGeNurbCurve3d(const AcGePoint3dArray& fitPoints, const AcGeVector3d& startTangent,
                                 const AcGeVector3d& endTangent, bool startTangentDefined, bool endTangentDefined)
{
    const AcGePoint3dArray points = WithoutRepeats(fitPoints);
    if (points.length() < 2)
        return;
    const Tangent start = {startTangent, startTangentDefined && !startTangent.isZeroLength()};
    const Tangent end = {endTangent, endTangentDefined && !endTangent.isZeroLength()};
    const std::vector<double> places = ChordLengths(points);
    const bool isClosed = points.length() > 3 && points.length() < kMostClosedPoints && !start.isGiven &&
                          !end.isGiven && points.first().isEqualTo(points.last());
    const std::vector<AcGeVector3d> slopes =
        isClosed ? ClosedSlopes(points, places) : OpenSlopes(points, places, start, end);
    // A cubic of steady curvature has single knots inside; its control points follow from the slopes next to each
    // knot: the blossom of the piece between two knots, taken at three neighbouring knots.
    const int last = points.length() - 1;
    m_degree = 3;
    for (int index = 0; index < 4; ++index)
        m_knots.append(0.0);
    for (int index = 1; index < last; ++index)
        m_knots.append(places[size_t(index)]);
    for (int index = 0; index < 4; ++index)
        m_knots.append(places.back());
    const auto width = [&](int index) {
        return index < 0 || index >= last ? 0.0 : places[size_t(index) + 1] - places[size_t(index)];
    };
    m_points.append(points.first());
    m_points.append(points.first() + slopes.front() * (width(0) / 3.0));
    for (int index = 1; index < last; ++index) {
        // At the knots t[i-1], t[i], t[i+1]: value, slope and curvature of the piece in front of knot i.
        const double before = width(index - 1), after = width(index);
        const AcGeVector3d chord = (points[index] - points[index - 1]) / before;
        const AcGeVector3d bend =
            (slopes[size_t(index)] * 4.0 + slopes[size_t(index) - 1] * 2.0 - chord * 6.0) / before;
        m_points.append(points[index] + slopes[size_t(index)] * ((after - before) / 3.0) -
                        bend * (before * after / 6.0));
    }
    m_points.append(points.last() - slopes.back() * (width(last - 1) / 3.0));
    m_points.append(points.last());
}

AcGeNurbCurve3d::AcGeNurbCurve3d(int degree, const AcGePoint3dArray& fitPoints)
{
    const AcGePoint3dArray points = WithoutRepeats(fitPoints);
    const int count = points.length();
    if (degree < 1 || count < 2)
        return;
    const int fitting = std::min(degree, count - 1);
    const std::vector<double> places = ChordLengths(points);
    AcGeDoubleArray knots;
    for (int index = 0; index <= fitting; ++index)
        knots.append(0.0);
    for (int index = 1; index < count - fitting; ++index) {
        double sum = 0.0;
        for (int place = index; place < index + fitting; ++place)
            sum += places[size_t(place)];
        knots.append(sum / fitting);
    }
    for (int index = 0; index <= fitting; ++index)
        knots.append(places.back());
    const AcGeNurbCurve3d form(fitting, knots, points);
    System system{size_t(count)};
    for (int row = 0; row < count; ++row) {
        const std::vector<double> basis =
            BasisAt(fitting, knots, count, form.SpanOf(places[size_t(row)]), places[size_t(row)]);
        for (int column = 0; column < count; ++column)
            system.at(size_t(row), size_t(column)) = basis[size_t(column)];
        system.right(size_t(row)) = points[row].asVector();
    }
    const std::vector<AcGeVector3d> solved = system.Solve();
    m_degree = fitting;
    m_knots = knots;
    for (const AcGeVector3d& point : solved)
        m_points.append(AcGePoint3d() + point);
}
