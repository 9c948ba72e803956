#include "AcDbExtents.h"
#include <algorithm>
#include <limits>

AcDbExtents::AcDbExtents()
{
    const double big = std::numeric_limits<double>::max();
    m_min = AcGePoint3d(big, big, big);
    m_max = AcGePoint3d(-big, -big, -big);
}

Acad::ErrorStatus AcDbExtents::set(const AcGePoint3d& min, const AcGePoint3d& max)
{
    if (max.x < min.x || max.y < min.y || max.z < min.z)
        return Acad::eInvalidInput;
    m_min = min;
    m_max = max;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbExtents::addPoint(const AcGePoint3d& point)
{
    m_min = AcGePoint3d(std::min(m_min.x, point.x), std::min(m_min.y, point.y), std::min(m_min.z, point.z));
    m_max = AcGePoint3d(std::max(m_max.x, point.x), std::max(m_max.y, point.y), std::max(m_max.z, point.z));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbExtents::addExt(const AcDbExtents& extents)
{
    if (extents.isEmpty())
        return Acad::eInvalidExtents;
    addPoint(extents.m_min);
    return addPoint(extents.m_max);
}

Acad::ErrorStatus AcDbExtents::transformBy(const AcGeMatrix3d& transform)
{
    if (isEmpty())
        return Acad::eInvalidExtents;
    const AcDbExtents old = *this;
    *this = AcDbExtents();
    for (int corner = 0; corner < 8; ++corner) {
        AcGePoint3d point((corner & 1) != 0 ? old.m_max.x : old.m_min.x, (corner & 2) != 0 ? old.m_max.y : old.m_min.y,
                          (corner & 4) != 0 ? old.m_max.z : old.m_min.z);
        addPoint(point.transformBy(transform));
    }
    return Acad::eOk;
}
