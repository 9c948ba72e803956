// Curves of the drawing: lengths, cuts, parallels and meetings. A curve that is cut and joined again is the same curve.
#include "db/AcDb2dPolyline.h"
#include "db/AcDbArc.h"
#include "db/AcDbCircle.h"
#include "db/AcDbEllipse.h"
#include "db/AcDbLine.h"
#include "db/AcDbPolyline.h"
#include "db/AcDbRay.h"
#include "db/AcDbSpline.h"
#include "db/AcDbXline.h"
#include "ge/EntityAxes.h"
#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <random>

using namespace KxPlat;

namespace {

struct Vertex {
    double x, y, bulge;
};

std::unique_ptr<AcDbPolyline> Polyline(std::initializer_list<Vertex> vertices, bool isClosed)
{
    auto polyline = std::make_unique<AcDbPolyline>();
    for (const Vertex& vertex : vertices)
        polyline->addVertexAt(polyline->numVerts(), AcGePoint2d(vertex.x, vertex.y), vertex.bulge);
    polyline->setClosed(isClosed);
    return polyline;
}

AcGePoint3dArray FitPoints()
{
    AcGePoint3dArray points;
    for (const AcGePoint3d& point : {AcGePoint3d(0, 0, 0), AcGePoint3d(2, 3, 0), AcGePoint3d(5, -1, 0),
                                     AcGePoint3d(6, 4, 0), AcGePoint3d(9, 0, 0)})
        points.append(point);
    return points;
}

// One of each kind, in planes of their own.
std::vector<std::pair<const char*, std::unique_ptr<AcDbCurve>>> Curves()
{
    std::vector<std::pair<const char*, std::unique_ptr<AcDbCurve>>> curves;
    const AcGeVector3d tilted(1, 2, 3);
    curves.emplace_back("line", new AcDbLine(AcGePoint3d(1, 2, 3), AcGePoint3d(4, 6, 15)));
    curves.emplace_back("arc", new AcDbArc(AcGePoint3d(5, 5, 1), tilted, 2, 5, 1));
    curves.emplace_back("circle", new AcDbCircle(AcGePoint3d(1, 1, 1), tilted, 3));
    curves.emplace_back("ellipse",
                        new AcDbEllipse(AcGePoint3d(1, 0, 0), AcGeVector3d(0, 0, 1), AcGeVector3d(3, 4, 0), 0.4));
    curves.emplace_back("part of an ellipse", new AcDbEllipse(AcGePoint3d(1, 0, 0), AcGeVector3d(0, 0, 1),
                                                              AcGeVector3d(3, 4, 0), 0.4, 5.0, 8.0));
    auto open = Polyline({{0, 0, 0.5}, {4, 0, 0}, {4, 3, -1.2}, {1, 5, 0}}, false);
    open->setNormal(tilted);
    open->setElevation(2);
    curves.emplace_back("polyline", open.release());
    curves.emplace_back("closed polyline", Polyline({{0, 0, 1}, {4, 0, 0}, {4, 3, -0.3}}, true).release());
    curves.emplace_back("spline", new AcDbSpline(FitPoints()));
    auto* old = new AcDb2dPolyline(AcDb::k2dSimplePoly, FitPoints(), 1.5);
    curves.emplace_back("old polyline", old);
    curves.emplace_back("polyline in space", new AcDb3dPolyline(AcDb::k3dSimplePoly, FitPoints(), Adesk::kTrue));
    return curves;
}

double LengthOf(const AcDbCurve& curve)
{
    double end = 0, length = 0;
    curve.getEndParam(end);
    EXPECT_EQ(curve.getDistAtParam(end, length), Acad::eOk);
    return length;
}

class Freed {
public:
    ~Freed()
    {
        for (void* curve : array)
            delete static_cast<AcDbCurve*>(curve);
    }
    AcDbVoidPtrArray array;
    AcDbCurve& operator[](int index) { return *static_cast<AcDbCurve*>(array[index]); }
};

}   // namespace

TEST(Curves, ParametersPointsAndDistancesAgree)
{
    for (const auto& [name, curve] : Curves()) {
        SCOPED_TRACE(name);
        double start = 0, end = 0, atStart = 1;
        ASSERT_EQ(curve->getStartParam(start), Acad::eOk);
        ASSERT_EQ(curve->getEndParam(end), Acad::eOk);
        EXPECT_EQ(curve->getDistAtParam(start, atStart), Acad::eOk);
        EXPECT_NEAR(atStart, 0, 1e-12);
        const double whole = LengthOf(*curve);
        double last = 0;
        for (const double share : {0.13, 0.37, 0.53, 0.77, 0.99}) {
            const double parameter = start + (end - start) * share;
            double distance = 0, back = 0;
            AcGePoint3d point, again, nearest;
            ASSERT_EQ(curve->getPointAtParam(parameter, point), Acad::eOk);
            ASSERT_EQ(curve->getDistAtParam(parameter, distance), Acad::eOk);
            EXPECT_GT(distance, last);
            EXPECT_LT(distance, whole);
            last = distance;
            ASSERT_EQ(curve->getParamAtDist(distance, back), Acad::eOk);
            EXPECT_NEAR(back, parameter, 1e-9);
            ASSERT_EQ(curve->getPointAtDist(distance, again), Acad::eOk);
            EXPECT_LT(again.distanceTo(point), 1e-9);
            ASSERT_EQ(curve->getParamAtPoint(point, back), Acad::eOk);
            EXPECT_NEAR(back, parameter, 1e-7);
            AcGeVector3d slope;
            ASSERT_EQ(curve->getFirstDeriv(parameter, slope), Acad::eOk);
            AcGePoint3d before, after;
            curve->getPointAtParam(parameter - 1e-6, before);
            curve->getPointAtParam(parameter + 1e-6, after);
            EXPECT_LT(((after - before) / 2e-6 - slope).length(), 1e-5 * (1 + slope.length()));
            // From a place off the curve along its normal back to the same place.
            const AcGePoint3d beside = point + slope.perpVector() * 1e-3;
            ASSERT_EQ(curve->getClosestPointTo(beside, nearest), Acad::eOk);
            EXPECT_LT(nearest.distanceTo(point), 1e-5);
        }
        double parameter = 77;
        EXPECT_EQ(curve->getParamAtPoint(AcGePoint3d(500, 500, 500), parameter), Acad::eInvalidInput);
        EXPECT_EQ(parameter, 77);
        EXPECT_EQ(curve->getParamAtDist(whole + 1, parameter), Acad::eInvalidInput);
        EXPECT_EQ(curve->getParamAtDist(-1, parameter), Acad::eInvalidInput);
        EXPECT_EQ(curve->getParamAtDist(std::nan(""), parameter), Acad::eInvalidInput);
    }
}

TEST(Curves, KnownLengths)
{
    EXPECT_DOUBLE_EQ(LengthOf(AcDbLine(AcGePoint3d(1, 2, 3), AcGePoint3d(4, 6, 15))), 13);
    EXPECT_NEAR(LengthOf(AcDbCircle(AcGePoint3d(), AcGeVector3d(0, 0, 1), 2)), 4 * kPi, 1e-12);
    // A half circle of diameter 4 and two sides.
    EXPECT_NEAR(LengthOf(*Polyline({{0, 0, 1}, {4, 0, 0}, {4, 3, 0}}, true)), 2 * kPi + 3 + 5, 1e-12);
}

TEST(CurveCuts, JoinedAgainAreTheSameCurve)
{
    std::mt19937 random(11);
    for (const auto& [name, curve] : Curves()) {
        SCOPED_TRACE(name);
        double start = 0, end = 0;
        curve->getStartParam(start);
        curve->getEndParam(end);
        AcGeDoubleArray cuts;
        for (int cut = 0; cut < 4; ++cut)
            cuts.append(start + (end - start) * (cut + std::uniform_real_distribution<>(0.1, 0.9)(random)) / 4);
        Freed parts;
        ASSERT_EQ(curve->getSplitCurves(cuts, parts.array), Acad::eOk);
        ASSERT_EQ(parts.array.length(), curve->isPeriodic() ? 4 : 5);
        double sum = 0;
        for (int index = 0; index < parts.array.length(); ++index) {
            const AcDbCurve& part = parts[index];
            sum += LengthOf(part);
            AcGePoint3d partEnd, nextStart, place, onCurve;
            ASSERT_EQ(part.getEndPoint(partEnd), Acad::eOk);
            if (index + 1 < parts.array.length() || curve->isPeriodic()) {
                parts[(index + 1) % parts.array.length()].getStartPoint(nextStart);
                EXPECT_LT(partEnd.distanceTo(nextStart), 1e-9);
            }
            const double half = LengthOf(part) * 0.4;
            part.getPointAtDist(half, place);
            ASSERT_EQ(curve->getClosestPointTo(place, onCurve), Acad::eOk);
            EXPECT_LT(onCurve.distanceTo(place), 1e-8);
        }
        EXPECT_NEAR(sum, LengthOf(*curve), 1e-8);
    }
}

TEST(CurveCuts, RefuseWhatLiesOffTheCurve)
{
    const AcDbLine line(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
    const struct {
        std::vector<double> parameters;
    } rows[] = {{{}}, {{0}}, {{10}}, {{11}}, {{-1}}, {{5, 3}}, {{std::nan("")}}};
    for (const auto& row : rows) {
        AcGeDoubleArray cuts;
        for (const double parameter : row.parameters)
            cuts.append(parameter);
        Freed parts;
        EXPECT_EQ(line.getSplitCurves(cuts, parts.array), Acad::eInvalidInput);
        EXPECT_EQ(parts.array.length(), 0);
    }
    AcGeDoubleArray one;
    one.append(1.0);
    Freed parts;
    EXPECT_EQ(AcDbCircle(AcGePoint3d(), AcGeVector3d(0, 0, 1), 1).getSplitCurves(one, parts.array),
              Acad::eInvalidInput);
    const AcDbXline endless;
    ASSERT_EQ(endless.getSplitCurves(one, parts.array), Acad::eOk);
    ASSERT_EQ(parts.array.length(), 2);
    EXPECT_NE(AcDbRay::cast(&parts[0]), nullptr);
    EXPECT_NE(AcDbRay::cast(&parts[1]), nullptr);
}

TEST(CurveOffsets, LieAtTheDistance)
{
    for (const auto& [name, curve] : Curves()) {
        for (const double distance : {0.3, -0.3}) {
            SCOPED_TRACE(testing::Message() << name << " " << distance);
            Freed parallels;
            const Acad::ErrorStatus status = curve->getOffsetCurves(distance, parallels.array);
            if (!curve->isPlanar()) {
                EXPECT_EQ(status, Acad::eNotApplicable);
                continue;
            }
            ASSERT_EQ(status, Acad::eOk);
            for (int index = 0; index < parallels.array.length(); ++index)
                for (const double share : {0.05, 0.31, 0.52, 0.83}) {
                    AcGePoint3d place, nearest;
                    parallels[index].getPointAtDist(LengthOf(parallels[index]) * share, place);
                    curve->getClosestPointTo(place, nearest);
                    // Mitres stand further away.
                    EXPECT_GT(nearest.distanceTo(place), 0.3 - 1e-4);
                    EXPECT_LT(nearest.distanceTo(place), 0.3 * 1.6);
                }
        }
    }
}

TEST(CurveOffsets, GrowAndShrinkClosedShapes)
{
    const auto square = Polyline({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}}, true);
    const struct {
        double distance, area, length;
        int count;
    } rows[] = {{1, 144, 48, 1}, {-1, 64, 32, 1}, {-4.5, 1, 4, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.distance);
        Freed parallels;
        ASSERT_EQ(square->getOffsetCurves(row.distance, parallels.array), Acad::eOk);
        ASSERT_EQ(parallels.array.length(), row.count);
        double area = 0;
        EXPECT_TRUE(parallels[0].isClosed());
        parallels[0].getArea(area);
        EXPECT_NEAR(area, row.area, 1e-9);
        EXPECT_NEAR(LengthOf(parallels[0]), row.length, 1e-9);
        EXPECT_EQ(static_cast<AcDbPolyline&>(parallels[0]).numVerts(), 4u);
    }
    Freed none;
    EXPECT_EQ(square->getOffsetCurves(-6, none.array), Acad::eInvalidInput);
    EXPECT_EQ(AcDbCircle(AcGePoint3d(), AcGeVector3d(0, 0, 1), 2).getOffsetCurves(-3, none.array), Acad::eInvalidInput);
    EXPECT_EQ(square->getOffsetCurves(std::nan(""), none.array), Acad::eInvalidInput);
    // A waist narrower than the distance parts the inside in two.
    const auto bone = Polyline({{0, 0, 0},
                                {4, 0, 0},
                                {4, 1.5, 0},
                                {6, 1.5, 0},
                                {6, 0, 0},
                                {10, 0, 0},
                                {10, 4, 0},
                                {6, 4, 0},
                                {6, 2.5, 0},
                                {4, 2.5, 0},
                                {4, 4, 0},
                                {0, 4, 0}},
                               true);
    Freed halves;
    ASSERT_EQ(bone->getOffsetCurves(-1, halves.array), Acad::eOk);
    EXPECT_EQ(halves.array.length(), 2);
}

TEST(CurveMeetings, WithAndWithoutTheirExtensions)
{
    const AcDbLine flat(AcGePoint3d(0, 0, 0), AcGePoint3d(4, 0, 0)),
        upright(AcGePoint3d(6, 1, 0), AcGePoint3d(6, 5, 0));
    const AcDbArc half(AcGePoint3d(0, 0, 0), 1, 0, kPi);
    const AcDbLine below(AcGePoint3d(-3, -0.6, 0), AcGePoint3d(3, -0.6, 0));
    const auto box = Polyline({{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}}, true);
    const AcDbLine above(AcGePoint3d(1, -1, 5), AcGePoint3d(1, 1, 5));
    const struct {
        const char* what;
        const AcDbEntity *first, *second;
        AcDb::Intersect type;
        std::vector<AcGePoint3d> expected;
    } rows[] = {
        {"lines that do not reach", &flat, &upright, AcDb::kOnBothOperands, {}},
        {"one made longer", &flat, &upright, AcDb::kExtendThis, {}},
        {"both made longer", &flat, &upright, AcDb::kExtendBoth, {{6, 0, 0}}},
        {"below half a circle", &below, &half, AcDb::kOnBothOperands, {}},
        {"the circle whole", &below, &half, AcDb::kExtendArg, {{-0.8, -0.6, 0}, {0.8, -0.6, 0}}},
        {"through a box", &below, box.get(), AcDb::kOnBothOperands, {{1, -0.6, 0}, {-1, -0.6, 0}}},
        {"passing above", &flat, &above, AcDb::kOnBothOperands, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        AcGePoint3dArray points;
        EXPECT_EQ(row.first->intersectWith(row.second, row.type, points), Acad::eOk);
        ASSERT_EQ(size_t(points.length()), row.expected.size());
        for (const AcGePoint3d& expected : row.expected) {
            double least = 1;
            for (const AcGePoint3d& point : points)
                least = std::min(least, point.distanceTo(expected));
            EXPECT_LT(least, 1e-9);
        }
    }
    AcGePoint3dArray seen;
    EXPECT_EQ(flat.intersectWith(&above, AcDb::kOnBothOperands, AcGePlane(), seen), Acad::eOk);
    ASSERT_EQ(seen.length(), 1);
    EXPECT_TRUE(seen[0].isEqualTo(AcGePoint3d(1, 0, 0)));
    EXPECT_EQ(flat.intersectWith(nullptr, AcDb::kOnBothOperands, seen), Acad::eNullEntityPointer);
}

TEST(Curves, BecomeSplinesOfTheSameShape)
{
    for (const auto& [name, curve] : Curves()) {
        SCOPED_TRACE(name);
        AcDbSpline* opened = nullptr;
        ASSERT_EQ(curve->getSpline(opened), Acad::eOk);
        const std::unique_ptr<AcDbSpline> spline(opened);
        EXPECT_NEAR(LengthOf(*spline), LengthOf(*curve), 1e-7);
        double start = 0, end = 0;
        curve->getStartParam(start);
        curve->getEndParam(end);
        for (const double share : {0.0, 0.21, 0.5, 0.93, 1.0}) {
            AcGePoint3d point, nearest;
            curve->getPointAtParam(start + (end - start) * share, point);
            spline->getClosestPointTo(point, nearest);
            EXPECT_LT(nearest.distanceTo(point), 1e-9);
        }
    }
}

TEST(Curves, TurnAndGrow)
{
    AcDbLine line(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
    EXPECT_EQ(line.extend(true, AcGePoint3d(-5, 3, 0)), Acad::eOk);
    EXPECT_TRUE(line.startPoint().isEqualTo(AcGePoint3d(-5, 0, 0)));
    EXPECT_EQ(line.extend(false, AcGePoint3d(2, 0, 0)), Acad::eInvalidInput);
    EXPECT_EQ(line.reverseCurve(), Acad::eOk);
    EXPECT_TRUE(line.endPoint().isEqualTo(AcGePoint3d(-5, 0, 0)));
    AcDbArc arc(AcGePoint3d(), 2, 0, kPi / 2);
    EXPECT_EQ(arc.extend(false, AcGePoint3d(-9, 0, 0)), Acad::eOk);
    EXPECT_NEAR(arc.endAngle(), kPi, 1e-12);
    EXPECT_EQ(arc.extend(true, AcGePoint3d(0, -9, 0)), Acad::eOk);
    EXPECT_NEAR(FullTurn(arc.startAngle()), 3 * kPi / 2, 1e-12);
    const auto polyline = Polyline({{0, 0, 0.5}, {4, 0, 0}, {4, 3, 0}}, false);
    AcGePoint3d before, after;
    polyline->getPointAtDist(1.3, before);
    const double length = LengthOf(*polyline);
    EXPECT_EQ(polyline->reverseCurve(), Acad::eOk);
    polyline->getPointAtDist(length - 1.3, after);
    EXPECT_LT(after.distanceTo(before), 1e-9);
}
