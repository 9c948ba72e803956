// Points, distances and directions. Angles are in radians, measured in the plane.
#include "Families.h"
#include "Interpreter.h"
#include <cmath>

namespace KxPlat::Lisp {

namespace {

constexpr double kFullTurn = 6.28318530717958647693;

Value Distance(Interpreter&, const Arguments& arguments)
{
    const Point a = PointOf(arguments[0]), b = PointOf(arguments[1]);
    const double dz = a.is3d && b.is3d ? b.z - a.z : 0;
    return Value(std::hypot(b.x - a.x, b.y - a.y, dz));
}

Value Angle(Interpreter&, const Arguments& arguments)
{
    const Point a = PointOf(arguments[0]), b = PointOf(arguments[1]);
    const double angle = std::atan2(b.y - a.y, b.x - a.x);
    return Value(angle < 0 ? angle + kFullTurn : angle);
}

Value Polar(Interpreter&, const Arguments& arguments)
{
    Point point = PointOf(arguments[0]);
    const double angle = NumberOf(arguments[1]), distance = NumberOf(arguments[2]);
    point.x += distance * std::cos(angle);
    point.y += distance * std::sin(angle);
    return ValueOf(point);
}

// Where the lines p1-p2 and p3-p4 meet; with a fifth argument of nil also beyond their ends.
Value Intersection(Interpreter&, const Arguments& arguments)
{
    const Point a = PointOf(arguments[0]), b = PointOf(arguments[1]);
    const Point c = PointOf(arguments[2]), d = PointOf(arguments[3]);
    const bool isBounded = arguments.count < 5 || bool(arguments[4]);
    const double abx = b.x - a.x, aby = b.y - a.y, cdx = d.x - c.x, cdy = d.y - c.y;
    const double cross = abx * cdy - aby * cdx;
    if (std::abs(cross) <= 1e-14 * std::hypot(abx, aby) * std::hypot(cdx, cdy))
        return Value();
    const double alongFirst = ((c.x - a.x) * cdy - (c.y - a.y) * cdx) / cross;
    const double alongSecond = ((c.x - a.x) * aby - (c.y - a.y) * abx) / cross;
    constexpr double kSlack = 1e-9;
    const auto isInside = [](double along) { return along >= -kSlack && along <= 1 + kSlack; };
    if (isBounded && !(isInside(alongFirst) && isInside(alongSecond)))
        return Value();
    Point meeting{a.x + alongFirst * abx, a.y + alongFirst * aby, 0, a.is3d && b.is3d && c.is3d && d.is3d};
    if (meeting.is3d)
        meeting.z = a.z + alongFirst * (b.z - a.z);
    return ValueOf(meeting);
}

// There is one coordinate system, the world's: its codes 0, 1 and 2 mean the same here.
Value Transform(Interpreter&, const Arguments& arguments)
{
    Point point = PointOf(arguments[0]);
    for (size_t i : {1, 2})
        if (!arguments[i].IsEntityName() && !arguments[i].IsCons() &&
            (IntegerOf(arguments[i]) < 0 || IntegerOf(arguments[i]) > 3))
            Fail(L"bad argument value");
    point.is3d = true;
    return ValueOf(point);
}

const Builtin kRows[] = {
    {L"DISTANCE", Distance, 2, 2},   {L"ANGLE", Angle, 2, 2},     {L"POLAR", Polar, 3, 3},
    {L"INTERS", Intersection, 4, 5}, {L"TRANS", Transform, 3, 4},
};

}   // namespace

const BuiltinTable kGeometry = TableOf(kRows);

}   // namespace KxPlat::Lisp
