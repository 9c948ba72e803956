#include "AcDbEllipse.h"
#include "core/Fields.h"
#include "core/FlatMap.h"
#include "core/Members.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbEllipse, AcDbCurve, 0, 0, 0, ELLIPSE, AcDb)

const ClassSchema& AcDbEllipse::fieldSchema()
{
    static const ClassSchema schema(&AcDbCurve::fieldSchema(), "ELLIPSE", "AcDbEllipse",
                                    {
                                        Point3(10, &AcDbEllipse::m_center).always(),
                                        Vector3(11, &AcDbEllipse::m_majorAxis, 0, 0, 0).always(),
                                        Vector3(210, &AcDbEllipse::m_normal).always(),
                                        Real(40, &AcDbEllipse::m_ratio).always(),
                                        Real(41, &AcDbEllipse::m_start).always(),
                                        Real(42, &AcDbEllipse::m_end).always(),
                                    });
    return schema;
}

AcDbEllipse::AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                         double radiusRatio, double startAngle, double endAngle)
{
    set(center, normal, majorAxis, radiusRatio, startAngle, endAngle);
}

// The angle of a point of the ellipse as seen from its centre.
double AcDbEllipse::AngleOf(double parameter) const
{
    const double turns = std::floor(parameter / (2 * kPi));
    const double rest = parameter - turns * 2 * kPi;
    return turns * 2 * kPi + FullTurn(std::atan2(m_ratio * std::sin(rest), std::cos(rest)));
}

Acad::ErrorStatus AcDbEllipse::get(AcGePoint3d& center, AcGeVector3d& normal, AcGeVector3d& majorAxis,
                                   double& radiusRatio, double& startAngle, double& endAngle) const
{
    center = m_center, normal = m_normal, majorAxis = m_majorAxis, radiusRatio = m_ratio;
    startAngle = this->startAngle(), endAngle = this->endAngle();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::set(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                                   double radiusRatio, double startAngle, double endAngle)
{
    if (normal.isZeroLength() || majorAxis.isZeroLength() || !(radiusRatio >= 1e-6 && radiusRatio <= 1))
        return Acad::eDegenerateGeometry;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_center = center, m_normal = normal.normal(), m_majorAxis = majorAxis, m_ratio = radiusRatio;
    const auto parameterOf = [this](double angle) {
        const double turns = std::floor(angle / (2 * kPi));
        const double rest = angle - turns * 2 * kPi;
        return turns * 2 * kPi + FullTurn(std::atan2(std::sin(rest) / m_ratio, std::cos(rest)));
    };
    m_start = parameterOf(startAngle);
    m_end = parameterOf(endAngle);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::setCenter(const AcGePoint3d& center)
{
    return Assign(*this, m_center, center);
}

AcGeVector3d AcDbEllipse::minorAxis() const
{
    return m_normal.crossProduct(m_majorAxis) * m_ratio;
}

Acad::ErrorStatus AcDbEllipse::setRadiusRatio(double ratio)
{
    return ratio >= 1e-6 && ratio <= 1 ? Assign(*this, m_ratio, ratio) : Acad::eInvalidInput;
}

bool AcDbEllipse::isClosed() const
{
    return std::fabs(std::fabs(m_end - m_start) - 2 * kPi) < 1e-9;
}

Acad::ErrorStatus AcDbEllipse::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    AddArc(extents, AcGeEllipArc3d(m_center, m_majorAxis, minorAxis(), majorRadius(), minorRadius(), m_start, m_end));
    return Acad::eOk;
}

// The images of the axes are conjugate radii; the ellipse's own axes are where their turn is extreme.
Acad::ErrorStatus AcDbEllipse::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const AcGeVector3d a = transform * m_majorAxis;
    const AcGeVector3d b = transform * minorAxis();
    const double shift = std::atan2(2 * a.dotProduct(b), a.lengthSqrd() - b.lengthSqrd()) / 2;
    AcGeVector3d major = a * std::cos(shift) + b * std::sin(shift);
    AcGeVector3d minor = b * std::cos(shift) - a * std::sin(shift);
    double turned = shift;
    if (minor.length() > major.length()) {
        std::swap(major, minor);
        minor.negate();
        turned += kPi / 2;
    }
    if (minor.isZeroLength())
        return Acad::eDegenerateGeometry;
    m_center.transformBy(transform);
    m_ratio = minor.length() / major.length();
    m_majorAxis = major;
    if (!major.crossProduct(minor).isZeroLength())
        m_normal = major.crossProduct(minor).normal();
    if (!isClosed()) {
        m_start -= turned;
        m_end -= turned;
        const double back = std::floor(m_start / (2 * kPi)) * 2 * kPi;
        m_start -= back;
        m_end -= back;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getStartParam(double& parameter) const
{
    parameter = m_start;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getEndParam(double& parameter) const
{
    parameter = m_end;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getPointAtParam(double parameter, AcGePoint3d& point) const
{
    point = m_center + m_majorAxis * std::cos(parameter) + minorAxis() * std::sin(parameter);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getArea(double& area) const
{
    const double sweep = isClosed() ? 2 * kPi : FullTurn(m_end - m_start);
    area = majorRadius() * minorRadius() * std::fabs(sweep - std::sin(sweep)) / 2;
    return Acad::eOk;
}
