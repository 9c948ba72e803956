// Lines, arcs, ellipses, splines, endless lines, points.
#include "../../gi/AcGiWorldDraw.h"
#include "../AcDbArc.h"
#include "../AcDbCircle.h"
#include "../AcDbDatabase.h"
#include "../AcDbEllipse.h"
#include "../AcDbLine.h"
#include "../AcDbPoint.h"
#include "../AcDbRay.h"
#include "../AcDbSpline.h"
#include "../core/DbCore.h"
#include "Drawing.h"
#include <algorithm>
#include <cmath>
#include <numbers>

using namespace KxPlat;

Adesk::Boolean AcDbLine::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    worldDraw->subEntityTraits().setThickness(thickness());
    const AcGePoint3d ends[] = {startPoint(), endPoint()};
    const AcGeVector3d up = normal();
    worldDraw->geometry().polyline(2, ends, &up);
    return Adesk::kTrue;
}

Adesk::Boolean AcDbCircle::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    worldDraw->subEntityTraits().setThickness(thickness());
    worldDraw->geometry().circle(center(), radius(), normal());
    return Adesk::kTrue;
}

Adesk::Boolean AcDbArc::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    worldDraw->subEntityTraits().setThickness(thickness());
    const AcGeVector3d flat(std::cos(startAngle()), std::sin(startAngle()), 0);
    worldDraw->geometry().circularArc(center(), radius(), normal(), AcGeMatrix3d::planeToWorld(normal()) * flat,
                                      totalAngle());
    return Adesk::kTrue;
}

// The circle around the centre, squeezed along the minor axis.
Adesk::Boolean AcDbEllipse::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    if (majorAxis().isZeroLength() || normal().isZeroLength())
        return Adesk::kTrue;
    AcGeMatrix3d squeezed;
    squeezed.setCoordSystem(center(), majorAxis(), minorAxis(), normal());
    double start = 0, end = 0;
    getStartParam(start);
    getEndParam(end);
    worldDraw->geometry().pushModelTransform(squeezed);
    worldDraw->geometry().circularArc(AcGePoint3d::kOrigin, 1, AcGeVector3d::kZAxis,
                                      AcGeVector3d(std::cos(start), std::sin(start), 0), end - start);
    worldDraw->geometry().popModelTransform();
    return Adesk::kTrue;
}

Adesk::Boolean AcDbSpline::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    constexpr int kStepsOfSpan = 12, kMostSteps = 20000;
    std::vector<AcGePoint3d> points;
    double start = 0, end = 0;
    if (getStartParam(start) == Acad::eOk && getEndParam(end) == Acad::eOk && end > start) {
        const int steps = std::clamp(numControlPoints() * kStepsOfSpan, kStepsOfSpan, kMostSteps);
        for (int step = 0; step <= steps; ++step) {
            AcGePoint3d point;
            if (getPointAtParam(start + (end - start) * step / steps, point) == Acad::eOk)
                points.push_back(point);
        }
    }
    for (int at = 0; points.empty() && at < numFitPoints(); ++at) {
        AcGePoint3d point;
        getFitPointAt(at, point);
        points.push_back(point);
    }
    worldDraw->geometry().polyline(Adesk::UInt32(points.size()), points.data());
    return Adesk::kTrue;
}

Adesk::Boolean AcDbRay::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    worldDraw->geometry().ray(basePoint(), basePoint() + unitDir());
    return Adesk::kTrue;
}

Adesk::Boolean AcDbXline::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    worldDraw->geometry().xline(basePoint(), basePoint() + unitDir());
    return Adesk::kTrue;
}

// PDMODE: 0 a dot, 1 nothing, 2 a plus, 3 a cross, 4 a tick; 32 adds a circle, 64 a square. PDSIZE above 0 is in
// drawing units; otherwise the size would follow the view, and a dot stands for it.
Adesk::Boolean AcDbPoint::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    const AcDbDatabase* drawing = database();
    const int mode = drawing == nullptr ? 0 : int(CoreOf(*drawing).header.Integer("$PDMODE"));
    const double half = drawing == nullptr ? 0 : CoreOf(*drawing).header.Real("$PDSIZE") / 2;
    const AcGiWorldGeometry& geometry = worldDraw->geometry();
    const AcGePoint3d at = position();
    if (mode == 1)
        return Adesk::kTrue;
    if (half <= 0 || mode == 0) {
        geometry.polyline(1, &at);
        return Adesk::kTrue;
    }
    AcGeVector3d x = AcGeVector3d::kXAxis, y = AcGeVector3d::kYAxis;
    AcGePoint3d origin;
    AcGeVector3d z;
    AcGeMatrix3d::planeToWorld(normal()).getCoordSystem(origin, x, y, z);
    const auto line = [&](double x1, double y1, double x2, double y2) {
        const AcGePoint3d ends[] = {at + x * (x1 * half) + y * (y1 * half), at + x * (x2 * half) + y * (y2 * half)};
        geometry.polyline(2, ends);
    };
    switch (mode & 7) {
    case 2:
        line(-2, 0, 2, 0), line(0, -2, 0, 2);
        break;
    case 3:
        line(-2, -2, 2, 2), line(-2, 2, 2, -2);
        break;
    case 4:
        line(0, 0, 0, 1);
        break;
    default:
        geometry.polyline(1, &at);
        break;
    }
    if ((mode & 32) != 0)
        geometry.circle(at, half, normal());
    if ((mode & 64) != 0)
        line(-1, -1, 1, -1), line(1, -1, 1, 1), line(1, 1, -1, 1), line(-1, 1, -1, -1);
    return Adesk::kTrue;
}
