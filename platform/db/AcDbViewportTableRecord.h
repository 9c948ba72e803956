// A viewport of the model space; all of one configuration bear its name.
#pragma once
#include "../ge/AcGePoint2d.h"
#include "../ge/AcGePoint3d.h"
#include "../ge/AcGeVector3d.h"
#include "AcDbSymbolTable.h"

class AcDbViewportTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbViewportTableRecord);

    AcGePoint2d centerPoint() const { return m_center; }
    void setCenterPoint(const AcGePoint2d& center);
    double height() const { return m_height; }
    void setHeight(double height);
    double aspectRatio() const { return m_aspect; }
    void setAspectRatio(double ratio);
    double width() const { return m_height * m_aspect; }
    double viewTwist() const;   // radians
    void setViewTwist(double angle);
    AcGePoint3d target() const { return m_target; }
    void setTarget(const AcGePoint3d& target);
    AcGeVector3d viewDirection() const { return m_direction; }
    void setViewDirection(const AcGeVector3d& direction);

private:
    AcGePoint2d m_lowerLeft{0, 0};
    AcGePoint2d m_upperRight{1, 1};
    AcGePoint2d m_center;
    AcGePoint3d m_target;
    AcGeVector3d m_direction{0, 0, 1};
    double m_height = 1;
    double m_aspect = 1;
    double m_twist = 0;   // degrees
};

class AcDbViewportTableIterator : public KxPlat::TypedIterator<AcDbViewportTableRecord> {
    using TypedIterator::TypedIterator;
};

class AcDbViewportTable : public KxPlat::TypedTable<AcDbViewportTableRecord, AcDbViewportTableIterator> {
public:
    ACDB_DECLARE_MEMBERS(AcDbViewportTable);
};
