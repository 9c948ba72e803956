// Lengths, nearest places, splines and meetings of curves.
#include "ge/AcGeCircArc3d.h"
#include "ge/AcGeLineSeg3d.h"
#include "ge/AcGeNurbCurve3d.h"
#include "ge/Crossings.h"
#include <cmath>
#include <gtest/gtest.h>

using namespace KxPlat;

namespace {

AcGePoint3dArray Points(std::initializer_list<AcGePoint3d> points)
{
    AcGePoint3dArray array;
    for (const AcGePoint3d& point : points)
        array.append(point);
    return array;
}

AcGeDoubleArray Numbers(std::initializer_list<double> numbers)
{
    AcGeDoubleArray array;
    for (const double number : numbers)
        array.append(number);
    return array;
}

AcGeCircArc3d Arc(double x, double y, double radius, double start = 0, double end = 2 * kPi)
{
    return AcGeCircArc3d(AcGePoint3d(x, y, 0), AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, radius, start, end);
}

AcGeEllipArc3d Ellipse(double major, double minor)
{
    return AcGeEllipArc3d(AcGePoint3d(), AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, major, minor);
}

AcGeLineSeg3d Segment(double x1, double y1, double x2, double y2)
{
    return AcGeLineSeg3d(AcGePoint3d(x1, y1, 0), AcGePoint3d(x2, y2, 0));
}

// A quarter of the unit circle, exactly.
AcGeNurbCurve3d RationalQuarter()
{
    return AcGeNurbCurve3d(2, Numbers({0, 0, 0, 1, 1, 1}), Points({{1, 0, 0}, {1, 1, 0}, {0, 1, 0}}),
                           Numbers({1, std::sqrt(0.5), 1}));
}

AcGeNurbCurve3d Wave()
{
    return AcGeNurbCurve3d(Points({{0, 0, 0}, {2, 3, 1}, {5, -1, 0}, {6, 4, -2}, {9, 0, 0}}), AcGeVector3d(),
                           AcGeVector3d());
}

}   // namespace

TEST(CurveLengths, AreThoseOfKnownCurves)
{
    const AcGeEllipArc3d ellipse = Ellipse(2, 1);
    EXPECT_NEAR(ellipse.length(), 9.688448220547676, 1e-12);   // 4 a E(e)
    EXPECT_NEAR(ellipse.length(0, kPi / 2), 9.688448220547676 / 4, 1e-12);
    EXPECT_NEAR(Ellipse(1000, 0.001).length(), 4000, 1e-4);
    EXPECT_NEAR(RationalQuarter().length(), kPi / 2, 1e-12);
    EXPECT_NEAR(Arc(3, 4, 5, 1, 3).length(), 10, 1e-12);
    EXPECT_DOUBLE_EQ(Segment(0, 0, 3, 4).length(0.5, 1), 2.5);
}

TEST(CurveLengths, LeadBackToTheirParameters)
{
    const AcGeEllipArc3d ellipse = Ellipse(3, 1);
    const AcGeNurbCurve3d wave = Wave();
    for (const AcGeCurve3d* curve : std::initializer_list<const AcGeCurve3d*>{&ellipse, &wave}) {
        const double from = 0.3, whole = curve->length(from, 6.0);
        EXPECT_NEAR(curve->paramAtLength(from, whole), 6.0, 1e-10);
        EXPECT_NEAR(curve->paramAtLength(6.0, -whole), from, 1e-10);
        EXPECT_NEAR(curve->length(from, curve->paramAtLength(from, 2.0)), 2.0, 1e-10);
    }
}

TEST(CurveDerivatives, FollowTheCurve)
{
    const AcGeNurbCurve3d quarter = RationalQuarter(), wave = Wave();
    const AcGeEllipArc3d ellipse = Ellipse(3, 1);
    for (const AcGeCurve3d* curve : std::initializer_list<const AcGeCurve3d*>{&quarter, &wave, &ellipse})
        for (const double t : {0.2, 0.55, 0.9}) {
            const double h = 1e-5;
            AcGeVector3dArray exact;
            const AcGePoint3d at = curve->evalPoint(t, 2, exact);
            const AcGePoint3d before = curve->evalPoint(t - h), after = curve->evalPoint(t + h);
            EXPECT_LT((exact[0] - (after - before) / (2 * h)).length(), 1e-7);
            EXPECT_LT((exact[1] - ((after - at) - (at - before)) / (h * h)).length(), 2e-4);
        }
}

TEST(NearestPlaces, AreExact)
{
    double t = 0;
    const AcGeEllipArc3d ellipse = Ellipse(5, 3);
    EXPECT_TRUE(ellipse.closestPointTo(AcGePoint3d(0, 7, 0), t).isEqualTo(AcGePoint3d(0, 3, 0)));
    EXPECT_NEAR(t, kPi / 2, 1e-12);
    // From a place on the normal of the ellipse back to its foot.
    for (const double at : {0.3, 1.9, 4.4}) {
        const AcGeVector3d along = ellipse.derivativesAt(at).first;
        const AcGeVector3d out = along.crossProduct(AcGeVector3d::kZAxis).normal();
        ellipse.closestPointTo(ellipse.evalPoint(at) + out * 4, t);
        EXPECT_NEAR(t, at, 1e-11);
    }
    const AcGeNurbCurve3d wave = Wave();
    wave.closestPointTo(wave.evalPoint(7.25), t);
    EXPECT_NEAR(t, 7.25, 1e-11);
}

TEST(SplinesThroughPoints, PassEachPointWithSteadyCurvature)
{
    const AcGePoint3dArray points = Points({{0, 0, 0}, {2, 3, 1}, {5, -1, 0}, {6, 4, -2}, {9, 0, 0}});
    const AcGeNurbCurve3d curve = Wave();
    double place = 0;
    for (int index = 0; index < points.length(); ++index) {
        place += index == 0 ? 0 : points[index].distanceTo(points[index - 1]);
        EXPECT_LT(curve.evalPoint(place).distanceTo(points[index]), 1e-12) << index;
        if (index == 0 || index + 1 == points.length())
            continue;
        const AcGeVector3d before = curve.derivativesAt(place - 1e-9).second;
        EXPECT_LT((before - curve.derivativesAt(place + 1e-9).second).length(), 1e-6) << index;
    }
    EXPECT_LT(curve.derivativesAt(0).second.length(), 1e-12);
    EXPECT_LT(curve.derivativesAt(place).second.length(), 1e-12);
}

// The natural cubic over 0, 1, 2 with the heights 0, 1, 0 is (3x - x^3) / 2 at first.
TEST(SplinesThroughPoints, AreTheKnownCubicOverEvenSteps)
{
    const double step = std::sqrt(2.0);   // the length of each chord
    const AcGeNurbCurve3d curve(Points({{0, 0, 0}, {1, 1, 0}, {2, 0, 0}}), AcGeVector3d(), AcGeVector3d());
    for (const double x : {0.1, 0.5, 0.75}) {
        const AcGePoint3d at = curve.evalPoint(x * step);
        EXPECT_NEAR(at.x, x, 1e-14);
        EXPECT_NEAR(at.y, (3 * x - x * x * x) / 2, 1e-14);
    }
}

TEST(SplinesThroughPoints, KeepTangentsAndCloseSmoothly)
{
    const AcGePoint3dArray points = Points({{0, 0, 0}, {4, 1, 0}, {5, 5, 0}, {1, 6, 0}, {0, 0, 0}});
    const AcGeNurbCurve3d led(points, AcGeVector3d(0, -2, 0), AcGeVector3d(1, 0, 0));
    AcGeInterval interval;
    led.getInterval(interval);
    EXPECT_TRUE(led.derivativesAt(0).first.isEqualTo(AcGeVector3d(0, -1, 0)));
    EXPECT_TRUE(led.derivativesAt(interval.upperBound()).first.isEqualTo(AcGeVector3d(1, 0, 0)));
    const AcGeNurbCurve3d closed(points, AcGeVector3d(), AcGeVector3d());
    const AcGeCurve3d::Derivatives first = closed.derivativesAt(0), last = closed.derivativesAt(interval.upperBound());
    EXPECT_LT((first.first - last.first).length(), 1e-12);
    EXPECT_LT((first.second - last.second).length(), 1e-12);
    EXPECT_EQ(AcGeNurbCurve3d(Points({{1, 1, 0}, {1, 1, 0}}), AcGeVector3d(), AcGeVector3d()).numControlPoints(), 0);
}

TEST(SplinesThroughPoints, TakeAnyDegree)
{
    const AcGePoint3dArray points = Points({{0, 0, 0}, {2, 3, 1}, {5, -1, 0}, {6, 4, -2}, {9, 0, 0}, {9, 5, 5}});
    for (const int degree : {1, 2, 3, 4, 5, 9}) {
        const AcGeNurbCurve3d curve(degree, points);
        EXPECT_EQ(curve.degree(), std::min(degree, 5));
        double place = 0;
        for (int index = 0; index < points.length(); ++index) {
            place += index == 0 ? 0 : points[index].distanceTo(points[index - 1]);
            EXPECT_LT(curve.evalPoint(place).distanceTo(points[index]), 1e-10) << degree << " " << index;
        }
    }
}

TEST(SplineParts, AreTheSameCurve)
{
    const struct {
        AcGeNurbCurve3d curve;
        double from, to;
    } rows[] = {{RationalQuarter(), 0, 1}, {RationalQuarter(), 0.2, 0.7}, {Wave(), 0, 6.5}, {Wave(), 2.5, 13}};
    for (const auto& row : rows) {
        AcGeNurbCurve3d part = row.curve;
        part.hardTrimByParams(row.from, row.to);
        AcGeInterval interval;
        part.getInterval(interval);
        EXPECT_DOUBLE_EQ(interval.lowerBound(), row.from);
        EXPECT_DOUBLE_EQ(interval.upperBound(), row.to);
        EXPECT_EQ(part.numKnots(), part.numControlPoints() + part.degree() + 1);
        for (int step = 0; step <= 10; ++step) {
            const double t = row.from + (row.to - row.from) * step / 10;
            EXPECT_LT(part.evalPoint(t).distanceTo(row.curve.evalPoint(t)), 1e-12);
        }
        AcGeNurbCurve3d back = part;
        back.reverseParam();
        EXPECT_LT(back.evalPoint(row.from).distanceTo(part.evalPoint(row.to)), 1e-12);
        EXPECT_LT(back.evalPoint(row.to).distanceTo(part.evalPoint(row.from)), 1e-12);
    }
}

TEST(Meetings, OfLinesAndCircles)
{
    const AcGeLine3d axis(AcGePoint3d(0, 0, 0), AcGeVector3d(1, 0, 0));
    const AcGeRay3d up(AcGePoint3d(3, -1, 0), AcGeVector3d(0, 1, 0));
    const AcGeLineSeg3d short1 = Segment(0, 0, 1, 1), apart = Segment(5, 5, 6, 5), on = Segment(0.5, 0.5, 2, 2);
    const AcGeLineSeg3d above(AcGePoint3d(0, -1, 2), AcGePoint3d(0, 1, 2));
    const AcGeCircArc3d unit = Arc(0, 0, 1), half = Arc(0, 0, 1, 0, kPi), right = Arc(2, 0, 1), near1 = Arc(1, 0, 1),
                        inside = Arc(0.2, 0, 0.5);
    const AcGeLineSeg3d touching = Segment(-3, 1, 3, 1), through = Segment(-3, 0.6, 3, 0.6);
    const AcGeLineSeg3d piercing(AcGePoint3d(0.6, 0.8, -1), AcGePoint3d(0.6, 0.8, 3));
    const struct {
        const char* what;
        const AcGeCurve3d *first, *second;
        std::vector<AcGePoint3d> expected;
    } rows[] = {
        {"axis and ray", &axis, &up, {{3, 0, 0}}},
        {"a segment that does not reach", &short1, &up, {}},
        {"segments apart", &short1, &apart, {}},
        {"segments that share a stretch", &short1, &on, {{0.5, 0.5, 0}, {1, 1, 0}}},
        {"lines that pass each other", &axis, &above, {}},
        {"axis and circle", &axis, &unit, {{-1, 0, 0}, {1, 0, 0}}},
        {"a circle first", &unit, &through, {{0.8, 0.6, 0}, {-0.8, 0.6, 0}}},
        {"a tangent", &touching, &unit, {{0, 1, 0}}},
        {"half a circle", &half, &axis, {{1, 0, 0}, {-1, 0, 0}}},
        {"a line through the plane", &piercing, &unit, {{0.6, 0.8, 0}}},
        {"circles that touch", &unit, &right, {{1, 0, 0}}},
        {"circles that cross", &unit, &near1, {{0.5, std::sqrt(0.75), 0}, {0.5, -std::sqrt(0.75), 0}}},
        {"a circle in a circle", &unit, &inside, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const std::vector<Crossing> found = Crossings(*row.first, *row.second);
        ASSERT_EQ(found.size(), row.expected.size());
        for (size_t index = 0; index < found.size(); ++index) {
            EXPECT_LT(found[index].point.distanceTo(row.expected[index]), 1e-9);
            EXPECT_LT(row.second->evalPoint(found[index].second).distanceTo(row.expected[index]), 1e-9);
        }
    }
}

TEST(Meetings, OfEllipsesAndSplines)
{
    // x^2/4 + y^2 = 1 and the circle of radius 1.5: x^2 = 5/3, y^2 = 7/12.
    const AcGeEllipArc3d ellipse = Ellipse(2, 1);
    const AcGeCircArc3d circle = Arc(0, 0, 1.5);
    const std::vector<Crossing> four = Crossings(ellipse, circle);
    ASSERT_EQ(four.size(), 4u);
    for (const Crossing& each : four) {
        EXPECT_NEAR(std::fabs(each.point.x), std::sqrt(5.0 / 3), 1e-10);
        EXPECT_NEAR(std::fabs(each.point.y), std::sqrt(7.0 / 12), 1e-10);
    }
    // The quarter circle as a spline, against the diagonal and an endless line.
    const AcGeNurbCurve3d quarter = RationalQuarter();
    const std::vector<Crossing> one = Crossings(quarter, Segment(0, 0, 2, 2));
    ASSERT_EQ(one.size(), 1u);
    EXPECT_NEAR(one[0].point.x, std::sqrt(0.5), 1e-12);
    const AcGeLine3d level(AcGePoint3d(-100, 0.28, 0), AcGeVector3d(1, 0, 0));
    const std::vector<Crossing> flat = Crossings(level, quarter);
    ASSERT_EQ(flat.size(), 1u);
    EXPECT_NEAR(flat[0].point.x, 0.96, 1e-12);
    EXPECT_EQ(Crossings(Wave(), Segment(0, 50, 9, 50)).size(), 0u);
}
