// vlax-curve-...: what a curve of the drawing answers. A parameter or point off the curve, and an object that is no
// curve, answer nil.
#include "../../db/AcDbCurve.h"
#include "../../db/core/Stub.h"
#include "Families.h"
#include "HostValues.h"
#include "Interpreter.h"
#include "VlaObjects.h"

namespace KxPlat::Lisp {

namespace {

// The curve stays open for as long as the question is answered.
class Curve {
public:
    explicit Curve(const Value& value)
    {
        const AcDbObjectId id = value.IsEntityName() ? value.id() : VlaObjectOf(value).id();
        AcDbObject* object = nullptr;
        if (acdbOpenObject(object, id, AcDb::kForRead) != Acad::eOk)
            return;
        m_curve = AcDbCurve::cast(object);
        if (m_curve == nullptr)
            object->close();
    }
    ~Curve()
    {
        if (m_curve != nullptr)
            m_curve->close();
    }
    Curve(const Curve&) = delete;
    explicit operator bool() const { return m_curve != nullptr; }
    const AcDbCurve* operator->() const { return m_curve; }

private:
    AcDbCurve* m_curve = nullptr;
};

AcGePoint3d PointIn(const Value& value)
{
    const Point point = PointOf(value);
    return AcGePoint3d(point.x, point.y, point.z);
}

Value ValueOf(double number)
{
    return Value(number);
}

template <class Triple>
Value ValueOf(const Triple& triple)
{
    return ListOf(double(triple.x), double(triple.y), double(triple.z));
}

// One number or point from one of the curve's functions.
template <class Result, class Ask>
Value Asked(const Value& object, Ask&& ask)
{
    const Curve curve(object);
    Result result{};
    return curve && ask(*curve.operator->(), result) == Acad::eOk ? ValueOf(result) : Value();
}

template <class Result, Acad::ErrorStatus (AcDbCurve::*Get)(Result&) const>
Value Plain(Interpreter&, const Arguments& arguments)
{
    return Asked<Result>(arguments[0], [](const AcDbCurve& curve, Result& result) { return (curve.*Get)(result); });
}

template <class Result, Acad::ErrorStatus (AcDbCurve::*Get)(double, Result&) const>
Value AtNumber(Interpreter&, const Arguments& arguments)
{
    const double number = NumberOf(arguments[1]);
    return Asked<Result>(arguments[0],
                         [&](const AcDbCurve& curve, Result& result) { return (curve.*Get)(number, result); });
}

template <Acad::ErrorStatus (AcDbCurve::*Get)(const AcGePoint3d&, double&) const>
Value AtPoint(Interpreter&, const Arguments& arguments)
{
    const AcGePoint3d point = PointIn(arguments[1]);
    return Asked<double>(arguments[0],
                         [&](const AcDbCurve& curve, double& result) { return (curve.*Get)(point, result); });
}

Value IsClosed(Interpreter& lisp, const Arguments& arguments)
{
    const Curve curve(arguments[0]);
    return lisp.Truth(curve && curve->isClosed());
}

Value IsPeriodic(Interpreter& lisp, const Arguments& arguments)
{
    const Curve curve(arguments[0]);
    return lisp.Truth(curve && curve->isPeriodic());
}

// (vlax-curve-getclosestpointto curve point [extend])
Value ClosestPoint(Interpreter&, const Arguments& arguments)
{
    const AcGePoint3d given = PointIn(arguments[1]);
    return Asked<AcGePoint3d>(arguments[0], [&](const AcDbCurve& curve, AcGePoint3d& result) {
        return curve.getClosestPointTo(given, result, bool(arguments.Get(2)));
    });
}

// (vlax-curve-getclosestpointtoprojection curve point direction [extend])
Value ClosestAlong(Interpreter&, const Arguments& arguments)
{
    const AcGePoint3d given = PointIn(arguments[1]);
    const AcGeVector3d direction = PointIn(arguments[2]) - AcGePoint3d();
    return Asked<AcGePoint3d>(arguments[0], [&](const AcDbCurve& curve, AcGePoint3d& result) {
        return curve.getClosestPointTo(given, direction, result, bool(arguments.Get(3)));
    });
}

using C = AcDbCurve;

const Builtin kRows[] = {
    {L"VLAX-CURVE-GETSTARTPARAM", Plain<double, &C::getStartParam>, 1, 1},
    {L"VLAX-CURVE-GETENDPARAM", Plain<double, &C::getEndParam>, 1, 1},
    {L"VLAX-CURVE-GETSTARTPOINT", Plain<AcGePoint3d, &C::getStartPoint>, 1, 1},
    {L"VLAX-CURVE-GETENDPOINT", Plain<AcGePoint3d, &C::getEndPoint>, 1, 1},
    {L"VLAX-CURVE-GETAREA", Plain<double, &C::getArea>, 1, 1},
    {L"VLAX-CURVE-GETPOINTATPARAM", AtNumber<AcGePoint3d, &C::getPointAtParam>, 2, 2},
    {L"VLAX-CURVE-GETPOINTATDIST", AtNumber<AcGePoint3d, &C::getPointAtDist>, 2, 2},
    {L"VLAX-CURVE-GETDISTATPARAM", AtNumber<double, &C::getDistAtParam>, 2, 2},
    {L"VLAX-CURVE-GETPARAMATDIST", AtNumber<double, &C::getParamAtDist>, 2, 2},
    {L"VLAX-CURVE-GETFIRSTDERIV", AtNumber<AcGeVector3d, &C::getFirstDeriv>, 2, 2},
    {L"VLAX-CURVE-GETSECONDDERIV", AtNumber<AcGeVector3d, &C::getSecondDeriv>, 2, 2},
    {L"VLAX-CURVE-GETDISTATPOINT", AtPoint<&C::getDistAtPoint>, 2, 2},
    {L"VLAX-CURVE-GETPARAMATPOINT", AtPoint<&C::getParamAtPoint>, 2, 2},
    {L"VLAX-CURVE-GETCLOSESTPOINTTO", ClosestPoint, 2, 3},
    {L"VLAX-CURVE-GETCLOSESTPOINTTOPROJECTION", ClosestAlong, 3, 4},
    {L"VLAX-CURVE-ISCLOSED", IsClosed, 1, 1},
    {L"VLAX-CURVE-ISPERIODIC", IsPeriodic, 1, 1},
};

}   // namespace

const BuiltinTable kCurves = TableOf(kRows);

}   // namespace KxPlat::Lisp
