// A linetype: dashes, gaps and dots, and what is drawn between them (texts and shapes).
#pragma once
#include "AcDbSymbolTable.h"
#include "core/GroupValue.h"

class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbLinetypeTableRecord);

    ACHAR* comments() const;   // the caller frees it with acutDelString
    Acad::ErrorStatus comments(ACHAR*& text) const;
    Acad::ErrorStatus setComments(const ACHAR* text);
    double patternLength() const { return m_length; }
    Acad::ErrorStatus setPatternLength(double length);
    int numDashes() const;
    Acad::ErrorStatus setNumDashes(int count);
    double dashLengthAt(int index) const;   // negative: a gap; 0: a dot
    Acad::ErrorStatus setDashLengthAt(int index, double length);
    bool isScaledToFit() const { return m_alignment == 83; }

    // Dash lengths (49) each followed by what is drawn there (74, 75, 340, 46, 50, 44, 45, 9), as the file has them.
    KxPlat::GroupList& pattern() { return m_pattern; }
    const KxPlat::GroupList& pattern() const { return m_pattern; }

protected:
    bool isErasable() const override;

private:
    KxPlat::GroupValue* dash(int index);

    CString m_comments;
    double m_length = 0;
    int16_t m_alignment = 65;
    KxPlat::GroupList m_pattern;
};

class AcDbLinetypeTableIterator : public KxPlat::TypedIterator<AcDbLinetypeTableRecord> {
    using TypedIterator::TypedIterator;
};

class AcDbLinetypeTable : public KxPlat::TypedTable<AcDbLinetypeTableRecord, AcDbLinetypeTableIterator> {
public:
    ACDB_DECLARE_MEMBERS(AcDbLinetypeTable);
};
