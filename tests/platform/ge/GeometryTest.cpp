// Vectors, matrices and curves against figures worked out by hand.
#include "ge/AcGeCircArc2d.h"
#include "ge/AcGeEllipArc3d.h"
#include "ge/AcGeLine3d.h"
#include "ge/AcGeMatrix2d.h"
#include "ge/AcGeNurbCurve3d.h"
#include "ge/AcGePlane.h"
#include "ge/EntityAxes.h"
#include <gtest/gtest.h>
#include <limits>

using KxPlat::kPi;

namespace {

testing::AssertionResult IsNear(const AcGePoint3d& got, const AcGePoint3d& wanted, double within = 1e-9)
{
    if (got.distanceTo(wanted) <= within)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "(" << got.x << ", " << got.y << ", " << got.z << ") is not (" << wanted.x
                                       << ", " << wanted.y << ", " << wanted.z << ")";
}

testing::AssertionResult IsNear(const AcGeVector3d& got, const AcGeVector3d& wanted)
{
    return IsNear(AcGePoint3d() + got, AcGePoint3d() + wanted);
}

}   // namespace

TEST(Vector, AnglesRunTheWayTheyAreAskedFor)
{
    const AcGeVector3d x(1, 0, 0), y(0, 2, 0), z(0, 0, 1);
    EXPECT_NEAR(x.angleTo(y), kPi / 2, 1e-12);
    EXPECT_NEAR(x.angleTo(y, z), kPi / 2, 1e-12);
    EXPECT_NEAR(x.angleTo(y, -z), 3 * kPi / 2, 1e-12);
    EXPECT_NEAR(x.angleTo(-x), kPi, 1e-12);
    EXPECT_NEAR(AcGeVector2d(0, -1).angle(), 3 * kPi / 2, 1e-12);
    EXPECT_NEAR(AcGeVector2d(1, 0).angleTo(AcGeVector2d(-1, -1)), 3 * kPi / 4, 1e-12);
    EXPECT_EQ(AcGeVector3d().normal(), AcGeVector3d::kIdentity) << "no length, no direction";
    EXPECT_TRUE(x.isParallelTo(-x));
    EXPECT_FALSE(x.isCodirectionalTo(-x));
    EXPECT_TRUE(x.isPerpendicularTo(y));
}

// The X axis of an entity changes its rule where the normal comes within 1/64 of Z.
TEST(EntityAxes, FollowTheArbitraryAxisRule)
{
    struct Row {
        AcGeVector3d normal, xAxis, yAxis;
    };
    const double s = std::sqrt(0.5);
    const Row rows[] = {
        {{0, 0, 1}, {1, 0, 0}, {0, 1, 0}},  {{0, 0, -1}, {-1, 0, 0}, {0, 1, 0}}, {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
        {{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}, {{-1, 0, 0}, {0, -1, 0}, {0, 0, 1}}, {{s, 0, s}, {0, 1, 0}, {-s, 0, s}},
        {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
    };
    for (const Row& row : rows) {
        AcGeVector3d x, y;
        KxPlat::EntityAxes(row.normal, x, y);
        EXPECT_TRUE(IsNear(x, row.xAxis));
        EXPECT_TRUE(IsNear(y, row.yAxis));
    }
    AcGeVector3d x, y;
    KxPlat::EntityAxes(AcGeVector3d(0.015, 0, 1).normal(), x, y);
    EXPECT_NEAR(x.x, std::cos(0.015), 1e-4) << "near Z: Y x normal";
    KxPlat::EntityAxes(AcGeVector3d(0.016, 0, 1).normal(), x, y);
    EXPECT_NEAR(x.y, 1, 1e-4) << "farther away: Z x normal";
}

TEST(EntityAxes, GoThereAndBack)
{
    for (const AcGeVector3d& normal : {AcGeVector3d(0, 0, -1), AcGeVector3d(1, 2, 3).normal(), AcGeVector3d(0, 0, 1)}) {
        const AcGePoint3d point(3, -4, 5);
        EXPECT_TRUE(IsNear(KxPlat::WorldToEntity(KxPlat::EntityToWorld(point, normal), normal), point));
    }
    EXPECT_TRUE(IsNear(KxPlat::EntityToWorld(AcGePoint3d(1, 2, 3), AcGeVector3d(0, 0, -1)), AcGePoint3d(-1, 2, -3)));
}

TEST(Angles, StayWithinOneTurn)
{
    struct Row {
        double angle, wanted;
    };
    static const Row rows[] = {{0, 0}, {-kPi / 2, 3 * kPi / 2}, {2 * kPi, 0}, {7 * kPi, kPi}, {-1e-20, 0}};
    for (const Row& row : rows)
        EXPECT_NEAR(KxPlat::FullTurn(row.angle), row.wanted, 1e-12) << row.angle;
    EXPECT_EQ(KxPlat::FullTurn(std::numeric_limits<double>::infinity()), 0);
    EXPECT_EQ(KxPlat::FullTurn(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(Matrix, MapsPoints)
{
    const AcGePoint3d p(1, 2, 3);
    struct Row {
        const char* what;
        AcGeMatrix3d matrix;
        AcGePoint3d wanted;
    };
    const Row rows[] = {
        {"translation", AcGeMatrix3d::translation(AcGeVector3d(10, 20, 30)), {11, 22, 33}},
        {"rotation", AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis), {-2, 1, 3}},
        {"about a point", AcGeMatrix3d::rotation(kPi, AcGeVector3d(0, 0, 5), AcGePoint3d(2, 2, 0)), {3, 2, 3}},
        {"scaling", AcGeMatrix3d::scaling(2, AcGePoint3d(1, 1, 1)), {1, 3, 5}},
        {"mirroring", AcGeMatrix3d::mirroring(AcGePlane(AcGePoint3d(5, 0, 0), AcGeVector3d(1, 0, 0))), {9, 2, 3}},
        {"through a point", AcGeMatrix3d::mirroring(AcGePoint3d(0, 0, 1)), {-1, -2, -1}},
        {"projection", AcGeMatrix3d::projection(AcGePlane(), AcGeVector3d(1, 0, -1)), {4, 2, 0}},
        {"alignment",
         AcGeMatrix3d::alignCoordSys(AcGePoint3d(1, 0, 0), AcGeVector3d(0, 1, 0), AcGeVector3d(-1, 0, 0),
                                     AcGeVector3d(0, 0, 1), AcGePoint3d(0, 0, 7), AcGeVector3d(2, 0, 0),
                                     AcGeVector3d(0, 2, 0), AcGeVector3d(0, 0, 2)),
         {4, 0, 13}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_TRUE(IsNear(row.matrix * p, row.wanted));
    }
}

TEST(Matrix, InversesAndProducts)
{
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(0.7, AcGeVector3d(1, 2, 3), AcGePoint3d(4, 5, 6));
    const AcGeMatrix3d scale = AcGeMatrix3d::scaling(3, AcGePoint3d(1, 0, 0));
    EXPECT_TRUE((turn * scale * (turn * scale).inverse()).isEqualTo(AcGeMatrix3d::kIdentity));
    EXPECT_TRUE(IsNear((turn * scale) * AcGePoint3d(1, 2, 3), turn * (scale * AcGePoint3d(1, 2, 3))));
    EXPECT_TRUE(AcGeMatrix3d(scale).preMultBy(turn).isEqualTo(turn * scale));
    EXPECT_NEAR((turn * scale).det(), 27, 1e-9);
    EXPECT_TRUE((turn * scale).isUniScaledOrtho());
    AcGeMatrix3d flat;
    flat.entry[2][2] = 0;
    EXPECT_TRUE(flat.isSingular());
    flat.entry[2][2] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(flat.isSingular());
    EXPECT_FALSE(turn.isSingular());

    const AcGeMatrix2d flatTurn = AcGeMatrix2d::rotation(kPi / 2, AcGePoint2d(1, 1)) * AcGeMatrix2d::scaling(2);
    EXPECT_TRUE((flatTurn * AcGePoint2d(1, 0)).isEqualTo(AcGePoint2d(2, 2)));
    EXPECT_TRUE((flatTurn.inverse() * AcGePoint2d(2, 2)).isEqualTo(AcGePoint2d(1, 0)));
}

TEST(Plane, ProjectsAndMeasures)
{
    const AcGePlane plane(AcGePoint3d(0, 0, 2), AcGeVector3d(0, 0, 4));
    EXPECT_NEAR(plane.signedDistanceTo(AcGePoint3d(9, 9, -1)), -3, 1e-12);
    EXPECT_TRUE(IsNear(AcGePoint3d(3, 4, 5).orthoProject(plane), AcGePoint3d(3, 4, 2)));
    EXPECT_TRUE(IsNear(AcGePoint3d(3, 4, 5).project(plane, AcGeVector3d(1, 0, 1)), AcGePoint3d(0, 4, 2)));
    EXPECT_TRUE(IsNear(AcGePoint3d(3, 4, 5).project(plane, AcGeVector3d(1, 0, 0)), AcGePoint3d(3, 4, 5)));
    AcGePoint3d met;
    EXPECT_TRUE(plane.intersectWith(AcGeLineSeg3d(AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 4)), met));
    EXPECT_TRUE(IsNear(met, AcGePoint3d(1, 0, 2)));
    EXPECT_FALSE(plane.intersectWith(AcGeLineSeg3d(AcGePoint3d(0, 0, 0), AcGePoint3d(0, 0, 1)), met)) << "too short";
    EXPECT_FALSE(plane.intersectWith(AcGeLine3d(AcGePoint3d(0, 0, 2), AcGeVector3d(1, 0, 0)), met)) << "within it";
    const AcGePoint2d flat =
        AcGePoint3d(3, 4, 5).convert2d(AcGePlane(AcGePoint3d(1, 1, 1), AcGeVector3d(0, 1, 0), AcGeVector3d(0, 0, 1)));
    EXPECT_TRUE(flat.isEqualTo(AcGePoint2d(3, 4)));
}

TEST(Line, MeetsOthersAndFindsTheNearest)
{
    const AcGeLineSeg3d segment(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
    EXPECT_TRUE(IsNear(segment.closestPointTo(AcGePoint3d(4, 5, 0)), AcGePoint3d(4, 0, 0)));
    EXPECT_TRUE(IsNear(segment.closestPointTo(AcGePoint3d(-4, 5, 0)), AcGePoint3d(0, 0, 0)));
    EXPECT_EQ(segment.length(), 10);
    AcGePoint3d met;
    EXPECT_TRUE(segment.intersectWith(AcGeLine3d(AcGePoint3d(3, 5, 0), AcGeVector3d(0, 1, 0)), met));
    EXPECT_TRUE(IsNear(met, AcGePoint3d(3, 0, 0)));
    EXPECT_FALSE(segment.intersectWith(AcGeLine3d(AcGePoint3d(3, 0, 1), AcGeVector3d(0, 1, 0)), met)) << "passes above";
    EXPECT_FALSE(segment.intersectWith(AcGeLine3d(AcGePoint3d(0, 1, 0), AcGeVector3d(1, 0, 0)), met)) << "parallel";
    EXPECT_FALSE(segment.intersectWith(AcGeLineSeg3d(AcGePoint3d(11, 1, 0), AcGePoint3d(11, -1, 0)), met)) << "beyond";
}

TEST(Arc, ThroughThreePoints)
{
    const AcGeCircArc3d arc(AcGePoint3d(5, 0, 0), AcGePoint3d(0, 5, 0), AcGePoint3d(-5, 0, 0));
    EXPECT_TRUE(IsNear(arc.center(), AcGePoint3d(0, 0, 0)));
    EXPECT_NEAR(arc.radius(), 5, 1e-9);
    EXPECT_NEAR(arc.length(), 5 * kPi, 1e-9);
    EXPECT_TRUE(IsNear(arc.endPoint(), AcGePoint3d(-5, 0, 0)));
    EXPECT_TRUE(IsNear(arc.closestPointTo(AcGePoint3d(0, 9, 3)), AcGePoint3d(0, 5, 0)));
    EXPECT_TRUE(IsNear(arc.closestPointTo(AcGePoint3d(-1, -9, 0)), AcGePoint3d(-5, 0, 0))) << "off the arc: its end";
    EXPECT_EQ(AcGeCircArc3d(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0), AcGePoint3d(2, 0, 0)).radius(), 0);
}

TEST(Arc, OfABulge)
{
    struct Row {
        double bulge, x, y, radius, length;
    };
    // Between (0, 0) and (2, 0): a half circle to the right of the chord, one to the left, a quarter.
    static const Row rows[] = {
        {1, 1, 0, 1, kPi}, {-1, 1, 0, 1, kPi}, {std::tan(kPi / 8), 1, 1, std::sqrt(2.0), std::sqrt(2.0) * kPi / 2}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.bulge);
        const AcGeCircArc2d arc(AcGePoint2d(0, 0), AcGePoint2d(2, 0), row.bulge);
        EXPECT_NEAR(arc.center().x, row.x, 1e-9);
        EXPECT_NEAR(arc.center().y, row.y, 1e-9);
        EXPECT_NEAR(arc.radius(), row.radius, 1e-9);
        EXPECT_NEAR(arc.length(), row.length, 1e-9);
        EXPECT_EQ(arc.isClockWise(), row.bulge < 0);
        EXPECT_TRUE(arc.startPoint().isEqualTo(AcGePoint2d(0, 0)));
        EXPECT_TRUE(arc.endPoint().isEqualTo(AcGePoint2d(2, 0)));
    }
}

TEST(Ellipse, LengthAndNearestPlace)
{
    const AcGeEllipArc3d ellipse(AcGePoint3d(1, 0, 0), AcGeVector3d(1, 0, 0), AcGeVector3d(0, 1, 0), 2, 1);
    EXPECT_NEAR(ellipse.length(), 9.68844822, 1e-4);
    EXPECT_TRUE(IsNear(ellipse.closestPointTo(AcGePoint3d(1, 7, 0)), AcGePoint3d(1, 1, 0), 1e-6));
    EXPECT_TRUE(ellipse.isClosed());
    EXPECT_FALSE(ellipse.isCircular());
}

TEST(Nurbs, AWeightedQuadraticIsAQuarterCircle)
{
    AcGeDoubleArray knots, weights;
    for (const double knot : {0.0, 0.0, 0.0, 1.0, 1.0, 1.0})
        knots.append(knot);
    for (const double weight : {1.0, std::sqrt(0.5), 1.0})
        weights.append(weight);
    AcGePoint3dArray points;
    points.append(AcGePoint3d(1, 0, 0));
    points.append(AcGePoint3d(1, 1, 0));
    points.append(AcGePoint3d(0, 1, 0));
    const AcGeNurbCurve3d curve(2, knots, points, weights);
    for (const double t : {0.0, 0.1, 0.5, 0.9, 1.0})
        EXPECT_NEAR(curve.evalPoint(t).asVector().length(), 1, 1e-12) << t;
    EXPECT_TRUE(IsNear(curve.evalPoint(1), AcGePoint3d(0, 1, 0)));
    EXPECT_NEAR(curve.length(), kPi / 2, 1e-5);
    knots.removeLast();
    EXPECT_EQ(AcGeNurbCurve3d(2, knots, points, weights).numControlPoints(), 0) << "too few knots";
}
