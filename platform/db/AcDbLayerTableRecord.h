// A layer and its states. The current layer is never frozen.
#pragma once
#include "AcCmColor.h"
#include "AcDbSymbolTable.h"

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbLayerTableRecord);

    AcDbLayerTableRecord();

    bool isOff() const { return m_color < 0; }
    void setIsOff(bool off);
    bool isFrozen() const { return (m_flags & 1) != 0; }
    // eInvalidLayer for the current layer.
    Acad::ErrorStatus setIsFrozen(bool frozen);
    bool isLocked() const { return (m_flags & 4) != 0; }
    void setIsLocked(bool locked);
    bool VPDFLT() const { return (m_flags & 2) != 0; }   // frozen in new viewports
    void setVPDFLT(bool frozen);
    bool isPlottable() const { return m_isPlottable != 0; }
    Acad::ErrorStatus setIsPlottable(bool plot);
    bool isInUse() const { return (m_flags & 64) != 0; }

    AcCmColor color() const;
    void setColor(const AcCmColor& color);
    Adesk::Int16 colorIndex() const { return Adesk::Int16(color().colorIndex()); }
    AcDbObjectId linetypeObjectId() const { return m_linetype; }
    Acad::ErrorStatus setLinetypeObjectId(AcDbObjectId linetype);
    AcDb::LineWeight lineWeight() const { return AcDb::LineWeight(m_lineWeight); }
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight);
    AcDbObjectId plotStyleNameId() const { return m_plotStyle; }
    Acad::ErrorStatus setPlotStyleName(AcDbObjectId plotStyle);
    ACHAR* description() const;
    Acad::ErrorStatus setDescription(const ACHAR* description);

protected:
    bool isErasable() const override;

private:
    AcDbObjectId m_linetype;
    AcDbObjectId m_plotStyle;
    AcDbObjectId m_material;
    int32_t m_trueColor;
    int16_t m_color = 7;   // negative: off
    int16_t m_lineWeight = -3;
    int16_t m_isPlottable = 1;
};

class AcDbLayerTableIterator : public KxPlat::TypedIterator<AcDbLayerTableRecord> {
    using TypedIterator::TypedIterator;
};

class AcDbLayerTable : public KxPlat::TypedTable<AcDbLayerTableRecord, AcDbLayerTableIterator> {
public:
    ACDB_DECLARE_MEMBERS(AcDbLayerTable);
};
