// Circles, arcs and ellipses as curves.
#include "../AcDbArc.h"
#include "../AcDbCircle.h"
#include "../AcDbEllipse.h"
#include "../core/CurvePieces.h"
#include "../core/Members.h"

using namespace KxPlat;

bool AcDbCircle::addOutline(CurvePieces& pieces) const
{
    pieces.Add(AcGeCircArc3d(center(), m_normal, m_radius), 0, 2 * kPi);
    return true;
}

AcDbCurve* AcDbCircle::PartBetween(double from, double to) const
{
    auto* part = new AcDbArc(center(), m_normal, m_radius, from, to > 2 * kPi ? to - 2 * kPi : to);
    part->setThickness(m_thickness);
    return part;
}

Acad::ErrorStatus AcDbCircle::MakeOffset(double distance, std::vector<AcDbCurve*>& curves) const
{
    if (!(m_radius + distance > 0))
        return Acad::eInvalidInput;
    auto* parallel = new AcDbCircle(center(), m_normal, m_radius + distance);
    parallel->setThickness(m_thickness);
    curves.push_back(parallel);
    return Acad::eOk;
}

bool AcDbArc::addOutline(CurvePieces& pieces) const
{
    pieces.Add(
        AcGeCircArc3d(center(), m_normal, m_normal.perpVector(), m_radius, startAngle(), startAngle() + totalAngle()),
        startAngle(), startAngle() + totalAngle());
    return true;
}

AcDbCurve* AcDbArc::PartBetween(double from, double to) const
{
    auto* part = new AcDbArc(center(), m_normal, m_radius, from, to);
    part->setThickness(m_thickness);
    return part;
}

Acad::ErrorStatus AcDbArc::MakeOffset(double distance, std::vector<AcDbCurve*>& curves) const
{
    if (!(m_radius + distance > 0))
        return Acad::eInvalidInput;
    auto* parallel = new AcDbArc(center(), m_normal, m_radius + distance, startAngle(), endAngle());
    parallel->setThickness(m_thickness);
    curves.push_back(parallel);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::extend(double newParameter)
{
    const double start = startAngle(), end = start + totalAngle();
    if (newParameter > end && newParameter < start + 2 * kPi)
        return setEndAngle(newParameter);
    if (newParameter < start && newParameter > end - 2 * kPi)
        return setStartAngle(newParameter);
    return Acad::eInvalidInput;
}

bool AcDbEllipse::addOutline(CurvePieces& pieces) const
{
    AcGeEllipArc3d curve(m_center, m_majorAxis, minorAxis(), majorRadius(), minorRadius(), m_start, m_end);
    pieces.Add(curve, m_start, m_start + (curve.endAng() - curve.startAng()));
    return true;
}

AcDbCurve* AcDbEllipse::PartBetween(double from, double to) const
{
    auto* part = new AcDbEllipse(m_center, m_normal, m_majorAxis, m_ratio);
    part->m_start = from;
    part->m_end = to;
    return part;
}
