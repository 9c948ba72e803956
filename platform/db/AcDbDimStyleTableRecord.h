// A dimension style. Its variables are groups kept as the file has them.
#pragma once
#include "AcDbSymbolTable.h"

class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbDimStyleTableRecord);

    // A variable by its group code (40 DIMSCALE, 41 DIMASZ, 140 DIMTXT, ...), or `byDefault` where the style has none.
    double real(int code, double byDefault) const;
    Acad::ErrorStatus setReal(int code, double value);

protected:
    bool isErasable() const override;
};

class AcDbDimStyleTableIterator : public KxPlat::TypedIterator<AcDbDimStyleTableRecord> {
    using TypedIterator::TypedIterator;
};

class AcDbDimStyleTable : public KxPlat::TypedTable<AcDbDimStyleTableRecord, AcDbDimStyleTableIterator> {
public:
    ACDB_DECLARE_MEMBERS(AcDbDimStyleTable);
};
