#include "ArxBaseFun.h"
#include "GeFunctions.h"
#include "GePolygon.h"
#include "Opened.h"
#include <algorithm>
#include <cmath>

using namespace KxArxBase;

namespace {

const double kPi = 3.14159265358979323846;

bool IsPolyline(const AcDbEntity& entity)
{
    return entity.isKindOf(AcDbPolyline::desc()) || entity.isKindOf(AcDb2dPolyline::desc()) ||
           entity.isKindOf(AcDb3dPolyline::desc());
}

}   // namespace

AcGeMatrix3d CArxBaseFun::MoveMatrix(const AcGePoint3d& from, const AcGePoint3d& to)
{
    return AcGeMatrix3d::translation(to - from);
}

AcGeMatrix3d CArxBaseFun::RotateMatrix(const AcGePoint3d& center, double angle)
{
    return AcGeMatrix3d::rotation(angle, AcGeVector3d::kZAxis, center);
}

AcGeMatrix3d CArxBaseFun::ScaleMatrix(const AcGePoint3d& center, double factor)
{
    return AcGeMatrix3d::scaling(factor, center);
}

AcGeMatrix3d CArxBaseFun::MirrorMatrix(const AcGePoint3d& one, const AcGePoint3d& other)
{
    const AcGeVector3d across = (other - one).crossProduct(AcGeVector3d::kZAxis);
    return across.isZeroLength() ? AcGeMatrix3d::kIdentity : AcGeMatrix3d::mirroring(AcGePlane(one, across));
}

AcGeMatrix3d CArxBaseFun::AlignMatrix(const AcGePoint3d& from1, const AcGePoint3d& from2, const AcGePoint3d& to1,
                                      const AcGePoint3d& to2, int scale)
{
    const double before = from1.distanceTo(from2), after = to1.distanceTo(to2);
    if (before == 0 || after == 0)
        return AcGeMatrix3d::kIdentity;
    const double angle = Ge::GetAngle(to1, to2) - Ge::GetAngle(from1, from2);
    AcGeMatrix3d matrix = RotateMatrix(to1, angle) * MoveMatrix(from1, to1);
    return scale != 0 ? ScaleMatrix(to1, after / before) * matrix : matrix;
}

double CArxBaseFun::ToRadians(double degrees)
{
    return degrees * kPi / 180;
}

double CArxBaseFun::ToDegrees(double radians)
{
    return radians * 180 / kPi;
}

double CArxBaseFun::NormalAngle(double angle)
{
    return Ge::NormalAngle(angle);
}

bool CArxBaseFun::IsAngleBetween(double angle, double from, double to)
{
    const double slack = 1e-12;
    return NormalAngle(angle - from) <= NormalAngle(to - from) + slack || NormalAngle(from - angle) <= slack;
}

int CArxBaseFun::PolygonCrossings(const AcGePoint2dArray& one, const AcGePoint2dArray& other, AcGePoint2dArray& points)
{
    Ge::PolygonCrossings(one, other, points);
    return points.isEmpty() ? 0 : 1;
}

int CArxBaseFun::PolygonIntersection(const AcGePoint2dArray& one, const AcGePoint2dArray& other,
                                     AcArray<AcGePoint2dArray>& shared)
{
    Ge::PolygonIntersection(one, other, shared);
    return shared.isEmpty() ? 0 : 1;
}

bool CArxBaseFun::IsPointInside(const AcGePoint2d& point, const AcGePoint2dArray& polygon)
{
    return Ge::PointInPolygon(point, polygon) != 0;
}

int CArxBaseFun::PickPolyline(const wchar_t* prompt, AcDbObjectId& id, AcGePoint3d& point)
{
    id.setNull();
    ads_name picked;
    ads_point at = {};
    const int answer = acedEntSel(prompt, picked, at);
    if (answer != RTNORM)
        return answer;
    AcDbObjectId found;
    if (acdbGetObjectId(found, picked) != Acad::eOk)
        return RTERROR;
    const Opened<AcDbEntity> entity(found, AcDb::kForRead);
    if (!entity || !IsPolyline(*entity.get()))
        return RTERROR;
    id = found;
    point.set(at[0], at[1], at[2]);
    return RTNORM;
}

Acad::ErrorStatus CArxBaseFun::SegmentAt(AcDbObjectId polyline, const AcGePoint3d& point, int& segment,
                                         AcGePoint3d& onSegment)
{
    const Opened<AcDbCurve> curve(polyline, AcDb::kForRead);
    if (!curve || !IsPolyline(*curve.get()))
        return curve ? Acad::eWrongObjectType : curve.status();
    double parameter = 0, end = 0;
    Acad::ErrorStatus es = curve->getClosestPointTo(point, onSegment);
    if (es == Acad::eOk)
        es = curve->getParamAtPoint(onSegment, parameter);
    if (es != Acad::eOk)
        return es;
    curve->getEndParam(end);
    segment = std::max(0, std::min(int(parameter), int(std::lround(end)) - 1));
    return Acad::eOk;
}

Acad::ErrorStatus CArxBaseFun::PolylinePoints(AcDbObjectId polyline, AcGePoint3dArray& points, double step)
{
    points.setLogicalLength(0);
    const Opened<AcDbCurve> curve(polyline, AcDb::kForRead);
    if (!curve || !IsPolyline(*curve.get()))
        return curve ? Acad::eWrongObjectType : curve.status();
    double end = 0;
    const Acad::ErrorStatus es = curve->getEndParam(end);
    const int segments = int(std::lround(end));
    for (int segment = 0; segment < segments && es == Acad::eOk; ++segment) {
        double from = 0, to = 0;
        AcGePoint3d start, middle, stop;
        curve->getDistAtParam(segment, from);
        curve->getDistAtParam(segment + 1, to);
        curve->getPointAtParam(segment, start);
        curve->getPointAtParam(segment + 0.5, middle);
        curve->getPointAtParam(segment + 1, stop);
        const bool isArc = middle.distanceTo(start + (stop - start) * 0.5) > 1e-9;
        const int parts = isArc && step > 0 ? std::max(1, int(std::ceil((to - from) / step))) : 1;
        for (int part = 0; part < parts; ++part) {
            AcGePoint3d point;
            curve->getPointAtParam(segment + double(part) / parts, point);
            points.append(point);
        }
    }
    AcGePoint3d last;
    if (es == Acad::eOk && !curve->isClosed() && curve->getEndPoint(last) == Acad::eOk)
        points.append(last);
    return es;
}
