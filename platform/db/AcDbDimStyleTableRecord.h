// A dimension style. Its variables are groups kept as the file has them.
#pragma once
#include "AcDbSymbolTable.h"
#include "core/GroupValue.h"

class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbDimStyleTableRecord);

    // A variable by its group code (40 DIMSCALE, 41 DIMASZ, 140 DIMTXT, ...), or `byDefault` where the style has none.
    double real(int code, double byDefault) const;
    Acad::ErrorStatus setReal(int code, double value);
    // Another style's variables; the name stays, and with it whether the style came with an xref.
    Acad::ErrorStatus copyFrom(const AcRxObject* other) override;

    AcDbObjectId dimtxsty() const { return idAt(340); }
    Acad::ErrorStatus setDimtxsty(AcDbObjectId style) { return setIdAt(340, style); }
    AcDbObjectId dimldrblk() const { return idAt(341); }
    Acad::ErrorStatus setDimldrblk(AcDbObjectId block) { return setIdAt(341, block); }
    AcDbObjectId dimblk() const { return idAt(342); }
    Acad::ErrorStatus setDimblk(AcDbObjectId block) { return setIdAt(342, block); }
    AcDbObjectId dimblk1() const { return idAt(343); }
    Acad::ErrorStatus setDimblk1(AcDbObjectId block) { return setIdAt(343, block); }
    AcDbObjectId dimblk2() const { return idAt(344); }
    Acad::ErrorStatus setDimblk2(AcDbObjectId block) { return setIdAt(344, block); }
    AcDbObjectId dimltype() const { return idAt(345); }
    Acad::ErrorStatus setDimltype(AcDbObjectId linetype) { return setIdAt(345, linetype); }
    AcDbObjectId dimltex1() const { return idAt(346); }
    Acad::ErrorStatus setDimltex1(AcDbObjectId linetype) { return setIdAt(346, linetype); }
    AcDbObjectId dimltex2() const { return idAt(347); }
    Acad::ErrorStatus setDimltex2(AcDbObjectId linetype) { return setIdAt(347, linetype); }

protected:
    bool isErasable() const override;

private:
    // Null where the style has no such group.
    AcDbObjectId idAt(int code) const;
    // A null id changes a group that is there, and makes none.
    Acad::ErrorStatus setIdAt(int code, AcDbObjectId id);
    Acad::ErrorStatus setGroup(KxPlat::GroupValue group);
};

class AcDbDimStyleTableIterator : public KxPlat::TypedIterator<AcDbDimStyleTableRecord> {
    using TypedIterator::TypedIterator;
};

class AcDbDimStyleTable : public KxPlat::TypedTable<AcDbDimStyleTableRecord, AcDbDimStyleTableIterator> {
public:
    ACDB_DECLARE_MEMBERS(AcDbDimStyleTable);
};
