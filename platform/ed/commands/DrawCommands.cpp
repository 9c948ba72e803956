// LINE, POINT, CIRCLE, ARC, RECTANG and TEXT: commands that draw one kind of entity.
#include "../../db/AcDbArc.h"
#include "../../db/AcDbCircle.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbLine.h"
#include "../../db/AcDbPoint.h"
#include "../../db/AcDbPolyline.h"
#include "../Prompt.h"
#include "../Session.h"
#include "EntityTools.h"
#include "HostCommands.h"
#include "Questions.h"
#include <cmath>

namespace KxPlat {

namespace {

void Erase(AcDbObjectId id)
{
    AcDbEntity* entity = nullptr;
    if (acdbOpenObject(entity, id, AcDb::kForWrite) != Acad::eOk)
        return;
    entity->erase();
    entity->close();
}

AcDbObjectId AddLine(const AcGePoint3d& from, const AcGePoint3d& to)
{
    auto line = std::make_unique<AcDbLine>(from, to);
    line->setThickness(RealVar(L"THICKNESS"));
    return AddToSpace(std::move(line));
}

AcGePoint3d LastEntered()
{
    ads_point point;
    LastPoint(point);
    return AcGePoint3d(point[X], point[Y], point[Z]);
}

// The centre of the circle through three points in the plane; false for points in a line.
bool CenterOf(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c, AcGePoint3d& center)
{
    const double bx = b.x - a.x, by = b.y - a.y, cx = c.x - a.x, cy = c.y - a.y;
    const double twiceArea = 2 * (bx * cy - by * cx);
    if (std::abs(twiceArea) < 1e-12)
        return false;
    const double bb = bx * bx + by * by, cc = cx * cx + cy * cy;
    center = AcGePoint3d(a.x + (cy * bb - by * cc) / twiceArea, a.y + (bx * cc - cx * bb) / twiceArea, a.z);
    return true;
}

double AngleTo(const AcGePoint3d& from, const AcGePoint3d& to)
{
    return std::atan2(to.y - from.y, to.x - from.x);
}

bool AskPoints(std::initializer_list<const wchar_t*> prompts, AcGePoint3d* points)
{
    for (const wchar_t* prompt : prompts) {
        const PointAnswer answer = AskPoint(prompt);
        if (!answer.isPoint())
            return false;
        *points++ = answer.point;
    }
    return true;
}

void AddCircle(const AcGePoint3d& center, double radius)
{
    auto circle = std::make_unique<AcDbCircle>(center, AcGeVector3d::kZAxis, radius);
    circle->setThickness(RealVar(L"THICKNESS"));
    AddToSpace(std::move(circle));
}

void AddArc(const AcGePoint3d& center, double radius, double start, double end)
{
    auto arc = std::make_unique<AcDbArc>(center, radius, start, end);
    arc->setThickness(RealVar(L"THICKNESS"));
    AddToSpace(std::move(arc));
}

void CircleThroughThree()
{
    AcGePoint3d p[3], center;
    if (!AskPoints({L"\nSpecify first point on circle: ", L"\nSpecify second point on circle: ",
                    L"\nSpecify third point on circle: "},
                   p))
        return;
    if (!CenterOf(p[0], p[1], p[2], center))
        return FailCommand(L"Circle does not exist.");
    AddCircle(center, center.distanceTo(p[0]));
}

void CircleOnDiameter()
{
    AcGePoint3d p[2];
    if (AskPoints(
            {L"\nSpecify first end point of circle's diameter: ", L"\nSpecify second end point of circle's diameter: "},
            p))
        AddCircle(p[0] + (p[1] - p[0]) / 2, p[0].distanceTo(p[1]) / 2);
}

// False when the user cancelled.
bool AskRadius(const AcGePoint3d& center, double& radius)
{
    acedInitGet(RSG_NONEG | RSG_NOZERO, L"Diameter");
    ads_real read = 0;
    const int answer = acedGetDist(&center.x, L"\nSpecify radius of circle or [Diameter]: ", &read);
    radius = read;
    if (answer != RTKWORD)
        return answer == RTNORM;
    double diameter = 0;
    if (!AskDistance(L"\nSpecify diameter of circle: ", center, diameter) || diameter <= 0)
        return false;
    radius = diameter / 2;
    return true;
}

// From the start point on around the centre, to where the user says.
void FinishArc(const AcGePoint3d& center, const AcGePoint3d& start)
{
    const double from = AngleTo(center, start);
    const PointAnswer end = AskPoint(L"\nSpecify end point of arc or [Angle]: ", &center, L"Angle");
    if (end.isPoint())
        return AddArc(center, center.distanceTo(start), from, AngleTo(center, end.point));
    double included = 0;
    if (!end.is(L"Angle") || !AskAngle(L"\nSpecify included angle: ", center, included) || included == 0)
        return;
    AddArc(center, center.distanceTo(start), included > 0 ? from : from + included,
           included > 0 ? from + included : from);
}

// Whether going from a over b to c turns to the left.
bool IsLeftTurn(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x) > 0;
}

}   // namespace

void LineCommand()
{
    PointAnswer answer = AskPoint(L"\nSpecify first point: ");
    if (answer.isEnter())
        answer = {RTNORM, LastEntered(), {}};
    if (!answer.isPoint())
        return;
    std::vector<AcGePoint3d> points = {answer.point};
    std::vector<AcDbObjectId> lines;
    for (;;) {
        const bool canClose = lines.size() >= 2;
        answer = AskPoint(canClose ? L"\nSpecify next point or [Close/Undo]: " : L"\nSpecify next point or [Undo]: ",
                          &points.back(), canClose ? L"Close Undo" : L"Undo");
        if (answer.is(L"Undo")) {
            if (lines.empty())
                continue;
            Erase(lines.back());
            lines.pop_back();
            points.pop_back();
            SetLastPoint(&points.back().x);
            continue;
        }
        const bool closes = answer.is(L"Close");
        if (!answer.isPoint() && !closes)
            return;
        lines.push_back(AddLine(points.back(), closes ? points.front() : answer.point));
        if (closes)
            return;
        points.push_back(answer.point);
    }
}

void PointCommand()
{
    const PointAnswer answer = AskPoint(L"\nSpecify a point: ");
    if (answer.isPoint())
        AddToSpace(std::make_unique<AcDbPoint>(answer.point));
}

void CircleCommand()
{
    const PointAnswer answer = AskPoint(L"\nSpecify center point for circle or [3P/2P]: ", nullptr, L"3P 2P");
    double radius = 0;
    if (answer.is(L"3P"))
        CircleThroughThree();
    else if (answer.is(L"2P"))
        CircleOnDiameter();
    else if (answer.isPoint() && AskRadius(answer.point, radius))
        AddCircle(answer.point, radius);
}

void ArcCommand()
{
    PointAnswer start = AskPoint(L"\nSpecify start point of arc or [Center]: ", nullptr, L"Center");
    if (start.is(L"Center")) {
        AcGePoint3d p[2];
        if (AskPoints({L"\nSpecify center point of arc: ", L"\nSpecify start point of arc: "}, p))
            FinishArc(p[0], p[1]);
        return;
    }
    if (!start.isPoint())
        return;
    const PointAnswer second = AskPoint(L"\nSpecify second point of arc or [Center]: ", &start.point, L"Center");
    AcGePoint3d p[1], center;
    if (second.is(L"Center")) {
        if (AskPoints({L"\nSpecify center point of arc: "}, p))
            FinishArc(p[0], start.point);
        return;
    }
    if (!second.isPoint() || !AskPoints({L"\nSpecify end point of arc: "}, p))
        return;
    if (!CenterOf(start.point, second.point, p[0], center))
        return FailCommand(L"Arc does not exist.");
    const bool isLeft = IsLeftTurn(start.point, second.point, p[0]);
    AddArc(center, center.distanceTo(start.point), AngleTo(center, isLeft ? start.point : p[0]),
           AngleTo(center, isLeft ? p[0] : start.point));
}

void RectangCommand()
{
    const PointAnswer first = AskPoint(L"\nSpecify first corner point: ");
    if (!first.isPoint())
        return;
    const PointAnswer other = AskPoint(L"\nSpecify other corner point: ", &first.point);
    if (!other.isPoint())
        return;
    const AcGePoint3d a = first.point, b = other.point;
    auto outline = std::make_unique<AcDbPolyline>(4);
    unsigned at = 0;
    for (const AcGePoint2d& corner :
         {AcGePoint2d(a.x, a.y), AcGePoint2d(b.x, a.y), AcGePoint2d(b.x, b.y), AcGePoint2d(a.x, b.y)})
        outline->addVertexAt(at++, corner);
    outline->setClosed(true);
    outline->setElevation(a.z);
    outline->setConstantWidth(RealVar(L"PLINEWID"));
    AddToSpace(std::move(outline));
}

}   // namespace KxPlat
