// ID, DIST and AREA: what points and objects measure.
#include "../../db/AcDbArc.h"
#include "../../db/AcDbCircle.h"
#include "../../db/AcDbCurve.h"
#include "../../db/AcDbPolyline.h"
#include "../lisp/NumberTexts.h"
#include "../Session.h"
#include "EntityTools.h"
#include "HostCommands.h"
#include "Questions.h"
#include <cmath>

namespace KxPlat {

namespace {

void Keep(const wchar_t* name, double value)
{
    VarValue kept;
    kept.type = VarType::Real;
    kept.real[0] = value;
    SetHostVar(name, kept);
}

std::wstring InUnits(double radians)
{
    return AngleText(radians, AngleMode(IntegerVar(L"AUNITS")), IntegerVar(L"AUPREC"));
}

void ShowArea(double area, double length, const wchar_t* lengthName)
{
    Keep(L"AREA", area);
    Keep(L"PERIMETER", length);
    Ui().Print(L"\nArea = " + LengthText(area) + L", " + lengthName + L" = " + LengthText(length));
}

// Chords of an arc are short enough for the digits that are shown.
double LengthOf(const AcDbCurve& curve)
{
    if (const AcDbCircle* circle = AcDbCircle::cast(&curve))
        return circle->circumference();
    if (const AcDbArc* arc = AcDbArc::cast(&curve))
        return arc->length();
    double from = 0, to = 0, length = 0;
    AcGePoint3d last, next;
    if (curve.getStartParam(from) != Acad::eOk || curve.getEndParam(to) != Acad::eOk ||
        curve.getPointAtParam(from, last) != Acad::eOk)
        return 0;
    constexpr int kSteps = 20000;
    for (int i = 1; i <= kSteps; ++i, last = next) {
        if (curve.getPointAtParam(from + (to - from) * i / kSteps, next) == Acad::eOk)
            length += last.distanceTo(next);
    }
    return length;
}

void AreaOfObject()
{
    ads_name name;
    ads_point point;
    if (acedEntSel(L"\nSelect objects: ", name, point) != RTNORM)
        return;
    AcDbObjectId id;
    AcDbCurve* curve = nullptr;
    double area = 0;
    acdbGetObjectId(id, name);
    if (acdbOpenObject(curve, id, AcDb::kForRead) != Acad::eOk)
        return FailCommand(L"Selected object does not have an area.");
    const bool isMeasured = curve->getArea(area) == Acad::eOk;
    const double length = isMeasured ? LengthOf(*curve) : 0;
    const bool isClosed = curve->isClosed();
    curve->close();
    if (isMeasured)
        ShowArea(area, length, isClosed ? L"Perimeter" : L"Length");
    else
        FailCommand(L"Selected object does not have an area.");
}

}   // namespace

void IdCommand()
{
    const PointAnswer answer = AskPoint(L"\nSpecify point: ");
    if (answer.isPoint())
        Ui().Print(L"\n" + PointText(answer.point));
}

void DistCommand()
{
    const PointAnswer first = AskPoint(L"\nSpecify first point: ");
    if (!first.isPoint())
        return;
    const PointAnswer second = AskPoint(L"\nSpecify second point: ", &first.point);
    if (!second.isPoint())
        return;
    const AcGeVector3d span = second.point - first.point;
    double angle = std::atan2(span.y, span.x);
    angle += angle < 0 ? 2 * M_PI : 0;
    Keep(L"DISTANCE", span.length());
    Ui().Print(L"\nDistance = " + LengthText(span.length()) + L",  Angle in XY Plane = " + InUnits(angle) +
               L",  Angle from XY Plane = " + InUnits(std::atan2(span.z, std::hypot(span.x, span.y))));
    Ui().Print(L"\nDelta X = " + LengthText(span.x) + L",  Delta Y = " + LengthText(span.y) + L",   Delta Z = " +
               LengthText(span.z));
}

void AreaCommand()
{
    PointAnswer answer = AskPoint(L"\nSpecify first corner point or [Object] <Object>: ", nullptr, L"Object");
    if (answer.is(L"Object") || answer.isEnter())
        return AreaOfObject();
    std::vector<AcGePoint3d> corners;
    for (; answer.isPoint();
         answer = AskPoint(L"\nSpecify next corner point or press ENTER for total: ", &corners.back()))
        corners.push_back(answer.point);
    if (!answer.isEnter() || corners.size() < 3)
        return;
    double twice = 0, length = 0;
    for (size_t i = 0; i < corners.size(); ++i) {
        const AcGePoint3d& a = corners[i];
        const AcGePoint3d& b = corners[(i + 1) % corners.size()];
        twice += a.x * b.y - a.y * b.x;
        length += a.distanceTo(b);
    }
    ShowArea(std::abs(twice) / 2, length, L"Perimeter");
}

}   // namespace KxPlat
