// An application that keeps extended data in the drawing.
#pragma once
#include "AcDbSymbolTable.h"

class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbRegAppTableRecord);

protected:
    bool isErasable() const override;
};

class AcDbRegAppTableIterator : public KxPlat::TypedIterator<AcDbRegAppTableRecord> {
    using TypedIterator::TypedIterator;
};

class AcDbRegAppTable : public KxPlat::TypedTable<AcDbRegAppTableRecord, AcDbRegAppTableIterator> {
public:
    ACDB_DECLARE_MEMBERS(AcDbRegAppTable);
};
