// A linetype: dashes, gaps and dots, and what is drawn between them (texts and shapes).
#pragma once
#include "../ge/AcGeVector2d.h"
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
    Acad::ErrorStatus setIsScaledToFit(bool scaledToFit);

    // The shape or text that stands at a dash: nothing while neither a number nor a text is set. Angles in radians.
    AcDbObjectId shapeStyleAt(int index) const;
    Acad::ErrorStatus setShapeStyleAt(int index, AcDbObjectId style);
    int shapeNumberAt(int index) const;
    Acad::ErrorStatus setShapeNumberAt(int index, int number);
    AcGeVector2d shapeOffsetAt(int index) const;
    Acad::ErrorStatus setShapeOffsetAt(int index, const AcGeVector2d& offset);
    double shapeScaleAt(int index) const;
    Acad::ErrorStatus setShapeScaleAt(int index, double scale);
    double shapeRotationAt(int index) const;
    Acad::ErrorStatus setShapeRotationAt(int index, double rotation);
    // Against the drawing's axes, not along the line.
    bool shapeIsUcsOrientedAt(int index) const;
    Acad::ErrorStatus setShapeIsUcsOrientedAt(int index, bool isUcsOriented);
    Acad::ErrorStatus textAt(int index, ACHAR*& text) const;   // the caller frees it with acutDelString
    Acad::ErrorStatus setTextAt(int index, const ACHAR* text);

    // Dash lengths (49) each followed by what is drawn there (74, 75, 340, 46, 50, 44, 45, 9), as the file has them.
    KxPlat::GroupList& pattern() { return m_pattern; }
    const KxPlat::GroupList& pattern() const { return m_pattern; }

protected:
    bool isErasable() const override;

private:
    KxPlat::GroupValue* dash(int index);
    const KxPlat::GroupValue* shapeGroup(int index, int code) const;
    Acad::ErrorStatus setShapeGroup(int index, KxPlat::GroupValue group);
    Acad::ErrorStatus setShapeFlag(int index, int flag, bool isOn);

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
