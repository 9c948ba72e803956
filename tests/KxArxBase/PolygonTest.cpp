// What polygons share: properties over many shapes, and pairs handed over by another program that judges the answers.
#include "KxArxBase/GePolygon.h"
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <sstream>

using namespace KxArxBase::Ge;

namespace {

// A star around a middle: simple, mostly not convex.
AcGePoint2dArray Star(std::mt19937& random)
{
    std::uniform_real_distribution<double> place(-20, 20), radius(5, 60);
    const int corners = 3 + int(random() % 12);
    const AcGePoint2d middle(place(random), place(random));
    AcGePoint2dArray star;
    for (int i = 0; i < corners; ++i) {
        const double angle = 2 * 3.14159265358979323846 * i / corners, r = radius(random);
        star.append(AcGePoint2d(middle.x + r * std::cos(angle), middle.y + r * std::sin(angle)));
    }
    return star;
}

double SharedArea(const AcGePoint2dArray& one, const AcGePoint2dArray& other)
{
    AcArray<AcGePoint2dArray> shared;
    PolygonIntersection(one, other, shared);
    double sum = 0;
    for (const AcGePoint2dArray& polygon : shared) {
        EXPECT_GT(PolygonArea(polygon), 0);   // turns left
        sum += PolygonArea(polygon);
    }
    return sum;
}

AcGePoint2dArray Reversed(const AcGePoint2dArray& polygon)
{
    AcGePoint2dArray turned;
    for (int i = polygon.length(); i-- > 0;)
        turned.append(polygon[i]);
    return turned;
}

// "x y x y ..." of one line.
AcGePoint2dArray Corners(const std::string& line)
{
    std::istringstream in(line);
    AcGePoint2dArray polygon;
    for (double x = 0, y = 0; in >> x >> y;)
        polygon.append(AcGePoint2d(x, y));
    return polygon;
}

}   // namespace

TEST(PolygonTest, SharedAreaIsTheSameFromEitherSide)
{
    std::mt19937 random(7);
    for (int i = 0; i < 300; ++i) {
        const AcGePoint2dArray a = Star(random), b = Star(random);
        const double area = SharedArea(a, b);
        EXPECT_NEAR(area, SharedArea(b, a), 1e-9 * (1 + area)) << i;
        EXPECT_NEAR(area, SharedArea(Reversed(a), b), 1e-9 * (1 + area)) << i;
        EXPECT_LE(area, std::min(std::fabs(PolygonArea(a)), std::fabs(PolygonArea(b))) + 1e-9) << i;
        EXPECT_NEAR(SharedArea(a, a), std::fabs(PolygonArea(a)), 1e-9 * std::fabs(PolygonArea(a))) << i;
    }
}

TEST(PolygonTest, AStraightCutPartsThePolygon)
{
    std::mt19937 random(11);
    for (int i = 0; i < 300; ++i) {
        const AcGePoint2dArray star = Star(random);
        const double at = std::uniform_real_distribution<double>(-60, 60)(random);
        AcGePoint2dArray left, right;
        for (const AcGePoint2d& corner :
             {AcGePoint2d(-200, -200), AcGePoint2d(at, -200), AcGePoint2d(at, 200), AcGePoint2d(-200, 200)}) {
            left.append(corner);
            right.append(AcGePoint2d(corner.x == -200 ? 200 : corner.x, corner.y));
        }
        const double whole = std::fabs(PolygonArea(star));
        EXPECT_NEAR(SharedArea(star, left) + SharedArea(star, right), whole, 1e-9 * whole) << i;
    }
}

// Two lines of the file KX_POLYGON_PAIRS for each pair; a line for each shared polygon and an empty one after each pair
// go to KX_POLYGON_SHARED.
TEST(PolygonTest, SharedPolygonsOfAFile)
{
    const char *pairs = std::getenv("KX_POLYGON_PAIRS"), *answers = std::getenv("KX_POLYGON_SHARED");
    if (pairs == nullptr || answers == nullptr)
        GTEST_SKIP() << "KX_POLYGON_PAIRS names no file";
    std::ifstream in(pairs);
    std::ofstream out(answers);
    out.precision(17);
    ASSERT_TRUE(in && out);
    for (std::string one, other; std::getline(in, one) && std::getline(in, other);) {
        AcArray<AcGePoint2dArray> shared;
        PolygonIntersection(Corners(one), Corners(other), shared);
        for (const AcGePoint2dArray& polygon : shared) {
            for (const AcGePoint2d& corner : polygon)
                out << corner.x << ' ' << corner.y << ' ';
            out << '\n';
        }
        out << '\n';
    }
}
