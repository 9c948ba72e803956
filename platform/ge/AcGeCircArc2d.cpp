#include "AcGeCircArc2d.h"
#include "EntityAxes.h"
#include <algorithm>

AcGePoint2d AcGeLineSeg2d::closestPointTo(const AcGePoint2d& point) const
{
    const AcGeVector2d along = m_end - m_start;
    const double square = along.lengthSqrd();
    const double foot = square == 0.0 ? 0.0 : (point - m_start).dotProduct(along) / square;
    return m_start + along * std::clamp(foot, 0.0, 1.0);
}

bool AcGeLineSeg2d::intersectWith(const AcGeLineSeg2d& other, AcGePoint2d& point, const AcGeTol& tol) const
{
    const AcGeVector2d along = m_end - m_start;
    const AcGeVector2d across = (other.m_end - other.m_start).perpVector();
    const double approach = along.dotProduct(across);
    if (along.isParallelTo(other.m_end - other.m_start, tol) || approach == 0.0)
        return false;
    const AcGePoint2d found = m_start + along * ((other.m_start - m_start).dotProduct(across) / approach);
    if (!closestPointTo(found).isEqualTo(found, tol) || !other.closestPointTo(found).isEqualTo(found, tol))
        return false;
    point = found;
    return true;
}

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& center, double radius) : m_center(center), m_radius(radius) {}

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& center, double radius, double startAngle, double endAngle,
                             bool isClockWise)
    : m_center(center), m_radius(radius), m_start(startAngle), m_end(endAngle), m_isClockWise(isClockWise)
{
}

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& start, const AcGePoint2d& end, double bulge)
{
    const AcGeVector2d chord = end - start;
    m_isClockWise = bulge < 0.0;
    if (bulge == 0.0 || chord.isZeroLength()) {
        m_center = start;
        m_radius = m_start = m_end = 0.0;
        return;
    }
    m_center = start + chord * 0.5 + chord.perpVector() * ((1.0 - bulge * bulge) / (4.0 * bulge));
    m_radius = m_center.distanceTo(start);
    m_start = (start - m_center).angle();
    m_end = (end - m_center).angle();
}

AcGePoint2d AcGeCircArc2d::PointAt(double angle) const
{
    return m_center + AcGeVector2d(std::cos(angle), std::sin(angle)) * m_radius;
}

double AcGeCircArc2d::length() const
{
    const double sweep = KxPlat::FullTurn(m_isClockWise ? m_start - m_end : m_end - m_start);
    const bool isWhole = sweep == 0.0 && m_start != m_end;
    return m_radius * (isWhole ? 2.0 * KxPlat::kPi : sweep);
}
