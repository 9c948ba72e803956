#include "GeFunctions.h"
#include <cmath>

namespace KxArxBase::Ge {

namespace {

const double kTurn = 6.28318530717958647692;

AcGeVector3d Flat(const AcGeVector3d& vector)
{
    return AcGeVector3d(vector.x, vector.y, 0);
}

}   // namespace

double NormalAngle(double angle)
{
    const double turned = std::fmod(angle, kTurn);
    const double positive = turned < 0 ? turned + kTurn : turned;
    return positive >= kTurn ? 0 : positive;
}

double GetAngle(const AcGePoint3d& from, const AcGePoint3d& to)
{
    return NormalAngle(std::atan2(to.y - from.y, to.x - from.x));
}

double GetAngle(const AcGePoint3d& from, const AcGePoint3d& middle, const AcGePoint3d& to)
{
    return NormalAngle(GetAngle(middle, to) - GetAngle(middle, from));
}

double TextAngle(double angle)
{
    const double turned = NormalAngle(angle), slack = 1e-9;
    if (turned > kTurn / 4 + slack && turned <= kTurn * 3 / 4 + slack)
        return turned - kTurn / 2;
    return turned > kTurn / 2 ? turned - kTurn : turned;
}

AcGePoint3d MidPoint(const AcGePoint3d& one, const AcGePoint3d& other)
{
    return one + (other - one) * 0.5;
}

AcGePoint3d PolarPoint(const AcGePoint3d& from, double angle, double distance)
{
    return from + AcGeVector3d(std::cos(angle), std::sin(angle), 0) * distance;
}

AcGePoint3d NearestOnSegment(const AcGePoint3d& point, const AcGePoint3d& start, const AcGePoint3d& end)
{
    return AcGeLineSeg3d(start, end).closestPointTo(point);
}

AcGePoint3d NearestOnLine(const AcGePoint3d& point, const AcGePoint3d& start, const AcGePoint3d& end)
{
    return start.isEqualTo(end) ? start : AcGeLine3d(start, end).closestPointTo(point);
}

bool LinesCross(const AcGePoint3d& a1, const AcGePoint3d& a2, const AcGePoint3d& b1, const AcGePoint3d& b2,
                AcGePoint3d& at)
{
    const AcGeVector3d u = Flat(a2 - a1), v = Flat(b2 - b1), between = b1 - a1;
    const double across = u.x * v.y - u.y * v.x;
    if (std::fabs(across) <= 1e-12 * u.length() * v.length())
        return false;
    at = a1 + (a2 - a1) * ((between.x * v.y - between.y * v.x) / across);
    return true;
}

int SideOf(const AcGePoint3d& point, const AcGePoint3d& start, const AcGePoint3d& end)
{
    const AcGeVector3d way = Flat(end - start), off = Flat(point - start);
    const double across = way.x * off.y - way.y * off.x;
    if (std::fabs(across) <= 1e-10 * way.length() * (1 + off.length()))
        return 0;
    return across > 0 ? 1 : -1;
}

bool CircleThrough(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3, AcGePoint3d& center,
                   double& radius)
{
    const AcGeCircArc3d circle(p1, p2, p3);
    if (!(circle.radius() > 0))
        return false;
    center = circle.center();
    radius = circle.radius();
    return true;
}

double BulgeOfArc(const AcGePoint2d& start, const AcGePoint2d& over, const AcGePoint2d& end)
{
    const AcGeVector2d in = over - start, out = end - over;
    // The turn at the point is half the angle of the arc.
    return std::tan(std::atan2(in.x * out.y - in.y * out.x, in.dotProduct(out)) / 2);
}

AcGePoint2d MiddleOfBulge(const AcGePoint2d& start, const AcGePoint2d& end, double bulge)
{
    const AcGeVector2d chord = end - start;
    return start + chord * 0.5 - chord.perpVector() * (bulge / 2);
}

}   // namespace KxArxBase::Ge
