// A text style: its font, height, width and slant. A style with flag 1 names a shape file instead.
#pragma once
#include "AcDbSymbolTable.h"

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbTextStyleTableRecord);

    double textSize() const { return m_height; }   // 0: asked for with each text
    Acad::ErrorStatus setTextSize(double size);
    double xScale() const { return m_width; }
    // Refuses a factor that is not positive.
    Acad::ErrorStatus setXScale(double scale);
    double obliquingAngle() const;   // radians
    Acad::ErrorStatus setObliquingAngle(double angle);
    double priorSize() const { return m_lastHeight; }
    Acad::ErrorStatus setPriorSize(double size);
    Adesk::UInt8 flagBits() const { return Adesk::UInt8(m_generation); }
    Acad::ErrorStatus setFlagBits(Adesk::UInt8 bits);
    bool isVertical() const { return (m_flags & 4) != 0; }
    Acad::ErrorStatus setIsVertical(bool vertical);
    bool isShapeFile() const { return (m_flags & 1) != 0; }
    Acad::ErrorStatus setIsShapeFile(bool shapeFile);

    // New strings that the caller frees with acutDelString.
    Acad::ErrorStatus getFileName(const ACHAR*& name) const;
    Acad::ErrorStatus fileName(ACHAR*& name) const;
    Acad::ErrorStatus setFileName(const ACHAR* name);
    Acad::ErrorStatus getBigFontFileName(const ACHAR*& name) const;
    Acad::ErrorStatus bigFontFileName(ACHAR*& name) const;
    Acad::ErrorStatus setBigFontFileName(const ACHAR* name);

    // A TrueType style is kept in the extended data "ACAD": typeface, and flags that pack the rest.
    Acad::ErrorStatus font(ACHAR*& typeface, bool& bold, bool& italic, int& charset, int& pitchAndFamily) const;
    Acad::ErrorStatus setFont(const ACHAR* typeface, bool bold, bool italic, int charset, int pitchAndFamily,
                              bool skipRefcount = false);

protected:
    bool isErasable() const override;

private:
    CString m_fileName;
    CString m_bigFontFileName;
    double m_height = 0;
    double m_width = 1;
    double m_oblique = 0;   // degrees
    double m_lastHeight = 0.2;
    int16_t m_generation = 0;
};

class AcDbTextStyleTableIterator : public KxPlat::TypedIterator<AcDbTextStyleTableRecord> {
    using TypedIterator::TypedIterator;
};

class AcDbTextStyleTable : public KxPlat::TypedTable<AcDbTextStyleTableRecord, AcDbTextStyleTableIterator> {
public:
    ACDB_DECLARE_MEMBERS(AcDbTextStyleTable);
};
