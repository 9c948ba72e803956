// A named view.
#pragma once
#include "../ge/AcGePoint2d.h"
#include "../ge/AcGePoint3d.h"
#include "../ge/AcGeVector3d.h"
#include "AcDbSymbolTable.h"

class AcDbViewTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbViewTableRecord);

    AcGePoint2d centerPoint() const { return m_center; }
    void setCenterPoint(const AcGePoint2d& center);
    double height() const { return m_height; }
    void setHeight(double height);
    double width() const { return m_width; }
    void setWidth(double width);
    AcGePoint3d target() const { return m_target; }
    void setTarget(const AcGePoint3d& target);
    AcGeVector3d viewDirection() const { return m_direction; }
    void setViewDirection(const AcGeVector3d& direction);

private:
    AcGePoint2d m_center;
    AcGePoint3d m_target;
    AcGeVector3d m_direction{0, 0, 1};
    double m_height = 1;
    double m_width = 1;
};

class AcDbViewTableIterator : public KxPlat::TypedIterator<AcDbViewTableRecord> {
    using TypedIterator::TypedIterator;
};

class AcDbViewTable : public KxPlat::TypedTable<AcDbViewTableRecord, AcDbViewTableIterator> {
public:
    ACDB_DECLARE_MEMBERS(AcDbViewTable);
};
