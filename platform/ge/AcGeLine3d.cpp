#include "AcGeLine3d.h"
#include <algorithm>
#include <limits>

namespace {
constexpr double kEndless = std::numeric_limits<double>::infinity();
}

bool AcGeLinearEnt3d::isColinearTo(const AcGeLinearEnt3d& other, const AcGeTol& tol) const
{
    return isParallelTo(other, tol) && (other.m_start - m_start).crossProduct(direction()).length() <= tol.equalPoint();
}

bool AcGeLinearEnt3d::intersectWith(const AcGeLinearEnt3d& other, AcGePoint3d& point, const AcGeTol& tol) const
{
    const AcGeVector3d across = m_vector.crossProduct(other.m_vector);
    if (isParallelTo(other, tol) || across.lengthSqrd() == 0.0)
        return false;
    const AcGeVector3d between = other.m_start - m_start;
    const double parameter = between.crossProduct(other.m_vector).dotProduct(across) / across.lengthSqrd();
    const AcGePoint3d found = evalPoint(parameter);
    if (!isOn(found, tol) || !other.isOn(found, tol))
        return false;
    point = found;
    return true;
}

AcGePoint3d AcGeLinearEnt3d::closestPointTo(const AcGePoint3d& point, double& parameter) const
{
    AcGeInterval interval;
    getInterval(interval);
    const double square = m_vector.lengthSqrd();
    const double foot = square == 0.0 ? 0.0 : (point - m_start).dotProduct(m_vector) / square;
    parameter = std::clamp(foot, interval.lowerBound(), interval.upperBound());
    return evalPoint(parameter);
}

double AcGeLinearEnt3d::length() const
{
    AcGeInterval interval;
    getInterval(interval);
    return m_vector.length() * interval.length();
}

AcGeLinearEnt3d& AcGeLinearEnt3d::transformBy(const AcGeMatrix3d& matrix)
{
    m_start = matrix * m_start;
    m_vector = matrix * m_vector;
    return *this;
}

void AcGeLine3d::getInterval(AcGeInterval& interval) const
{
    interval = AcGeInterval(-kEndless, kEndless);
}

void AcGeRay3d::getInterval(AcGeInterval& interval) const
{
    interval = AcGeInterval(0.0, kEndless);
}
