// A line of text. Position and alignment point are stored in the axes of the normal; the callers see world axes.
#pragma once
#include "AcDbEntity.h"

class AcDbText : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbText);

    AcDbText() = default;
    AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style = AcDbObjectId(), double height = 0,
             double rotation = 0);

    AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    AcGePoint3d alignmentPoint() const;
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& point);
    // True for a text that stands at its position without any justification.
    bool isDefaultAlignment() const { return m_horizontal == 0 && vertical() == 0; }
    AcDb::TextHorzMode horizontalMode() const { return AcDb::TextHorzMode(m_horizontal); }
    virtual Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode mode);
    AcDb::TextVertMode verticalMode() const { return AcDb::TextVertMode(vertical()); }
    virtual Acad::ErrorStatus setVerticalMode(AcDb::TextVertMode mode);

    ACHAR* textString() const;   // the caller frees it with acutDelString
    const ACHAR* textStringConst() const { return m_text; }
    Acad::ErrorStatus setTextString(const ACHAR* text);
    // The record "Standard" where the text names none.
    AcDbObjectId textStyle() const;
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);
    double height() const { return m_height; }
    Acad::ErrorStatus setHeight(double height);
    double rotation() const;   // radians
    Acad::ErrorStatus setRotation(double angle);
    double widthFactor() const { return m_widthFactor; }
    Acad::ErrorStatus setWidthFactor(double factor);
    double oblique() const;   // radians
    Acad::ErrorStatus setOblique(double angle);
    bool isMirroredInX() const { return (m_generation & 2) != 0; }
    Acad::ErrorStatus mirrorInX(bool mirror);
    bool isMirroredInY() const { return (m_generation & 4) != 0; }
    Acad::ErrorStatus mirrorInY(bool mirror);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    Acad::ErrorStatus getEcs(AcGeMatrix3d& ecs) const override;
    // Moves the position to where the justification puts it. Called by setters of text, style and size.
    virtual Acad::ErrorStatus adjustAlignment(const AcDbDatabase* database = nullptr);

    bool addOutline(KxPlat::CurvePieces& pieces) const override;   // its box
    // The corners of the box around what is drawn, from the start of the base line on, in world axes.
    void getBoundingPoints(AcGePoint3d corners[4]) const;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;
    // The section that texts and attributes share; texts keep the vertical mode in a section of its own.
    static const KxPlat::ClassSchema& commonSchema();
    int16_t vertical() const { return m_vertical; }
    int16_t m_vertical = 0;

private:
    CString m_text;
    AcGePoint3d m_position;
    AcGePoint3d m_alignment;
    AcGeVector3d m_normal{0, 0, 1};
    AcDbObjectId m_style;   // null: "Standard"
    double m_height = 0;
    double m_rotation = 0;   // degrees
    double m_widthFactor = 1;
    double m_oblique = 0;   // degrees
    double m_thickness = 0;
    int16_t m_generation = 0;
    int16_t m_horizontal = 0;
};
