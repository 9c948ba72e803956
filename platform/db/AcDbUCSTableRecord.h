// A named user coordinate system.
#pragma once
#include "../ge/AcGePoint3d.h"
#include "../ge/AcGeVector3d.h"
#include "AcDbSymbolTable.h"

class AcDbUCSTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbUCSTableRecord);

    AcGePoint3d origin() const { return m_origin; }
    void setOrigin(const AcGePoint3d& origin);
    AcGeVector3d xAxis() const { return m_xAxis; }
    void setXAxis(const AcGeVector3d& axis);
    AcGeVector3d yAxis() const { return m_yAxis; }
    void setYAxis(const AcGeVector3d& axis);

private:
    AcGePoint3d m_origin;
    AcGeVector3d m_xAxis{1, 0, 0};
    AcGeVector3d m_yAxis{0, 1, 0};
};

class AcDbUCSTableIterator : public KxPlat::TypedIterator<AcDbUCSTableRecord> {
    using TypedIterator::TypedIterator;
};

class AcDbUCSTable : public KxPlat::TypedTable<AcDbUCSTableRecord, AcDbUCSTableIterator> {
public:
    ACDB_DECLARE_MEMBERS(AcDbUCSTable);
};
