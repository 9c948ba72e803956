// A box parallel to the axes that holds everything added to it. Empty until something was.
#pragma once
#include "../ge/AcGeMatrix3d.h"
#include "../ge/AcGePoint3d.h"
#include "../rx/acadstrc.h"

class AcDbExtents {
public:
    AcDbExtents();
    AcDbExtents(const AcGePoint3d& min, const AcGePoint3d& max) : m_min(min), m_max(max) {}

    AcGePoint3d minPoint() const { return m_min; }
    AcGePoint3d maxPoint() const { return m_max; }
    Acad::ErrorStatus set(const AcGePoint3d& min, const AcGePoint3d& max);
    Acad::ErrorStatus addPoint(const AcGePoint3d& point);
    Acad::ErrorStatus addExt(const AcDbExtents& extents);
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform);
    // Not part of the documented class; true while nothing was added.
    bool isEmpty() const { return m_max.x < m_min.x; }

private:
    AcGePoint3d m_min, m_max;
};
