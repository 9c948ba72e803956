#include "AcGeEllipArc3d.h"

AcGeEllipArc3d& AcGeEllipArc3d::set(const AcGePoint3d& center, const AcGeVector3d& majorAxis,
                                    const AcGeVector3d& minorAxis, double majorRadius, double minorRadius,
                                    double startAngle, double endAngle)
{
    m_center = center;
    m_major = majorAxis.normal() * majorRadius;
    m_minor = minorAxis.normal() * minorRadius;
    m_start = std::isfinite(startAngle) ? startAngle : 0.0;
    const double sweep = KxPlat::FullTurn(endAngle - m_start);
    m_end = m_start + (sweep == 0.0 ? 2.0 * KxPlat::kPi : sweep);
    return *this;
}

bool AcGeEllipArc3d::isCircular(const AcGeTol& tol) const
{
    return std::fabs(majorRadius() - minorRadius()) <= tol.equalPoint();
}

AcGeCurve3d::Derivatives AcGeEllipArc3d::derivativesAt(double angle) const
{
    return {m_minor * std::cos(angle) - m_major * std::sin(angle), m_center - evalPoint(angle)};
}

AcGeEllipArc3d& AcGeEllipArc3d::transformBy(const AcGeMatrix3d& matrix)
{
    m_center = matrix * m_center;
    m_major = matrix * m_major;
    m_minor = matrix * m_minor;
    return *this;
}

AcGeCircArc3d::AcGeCircArc3d(const AcGePoint3d& center, const AcGeVector3d& normal, double radius)
    : AcGeCircArc3d(center, normal, normal.perpVector(), radius, 0.0, 2.0 * KxPlat::kPi)
{
}

AcGeCircArc3d::AcGeCircArc3d(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& reference,
                             double radius, double startAngle, double endAngle)
{
    set(center, reference, normal.crossProduct(reference), radius, radius, startAngle, endAngle);
}

AcGeCircArc3d::AcGeCircArc3d(const AcGePoint3d& start, const AcGePoint3d& through, const AcGePoint3d& end)
{
    const AcGeVector3d first = through - start;
    const AcGeVector3d last = end - start;
    const AcGeVector3d across = first.crossProduct(last);
    if (across.isZeroLength()) {
        set(start, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, 0.0, 0.0, 0.0, 0.0);
        return;
    }
    const AcGeVector3d toCenter =
        (across.crossProduct(first) * last.lengthSqrd() + last.crossProduct(across) * first.lengthSqrd()) /
        (2.0 * across.lengthSqrd());
    const AcGePoint3d center = start + toCenter;
    const AcGeVector3d reference = start - center;
    const double sweep = reference.angleTo(end - center, across);
    set(center, reference, across.crossProduct(reference), toCenter.length(), toCenter.length(), 0.0, sweep);
}

AcGePoint3d AcGeCircArc3d::closestPointTo(const AcGePoint3d& point, double& parameter) const
{
    const AcGeVector3d flat = point - m_center;
    const double angle = std::atan2(flat.dotProduct(m_minor), flat.dotProduct(m_major));
    parameter = m_start + KxPlat::FullTurn(angle - m_start);
    if (parameter > m_end)
        parameter = startPoint().distanceTo(point) <= endPoint().distanceTo(point) ? m_start : m_end;
    return evalPoint(parameter);
}
