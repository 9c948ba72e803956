// A text of several lines with format codes in it, in world axes.
#pragma once
#include "AcDbEntity.h"
#include <vector>

namespace AcDb {
enum LineSpacingStyle { kAtLeast = 1, kExactly = 2 };
}

class AcDbMText : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbMText);

    enum AttachmentPoint {
        kTopLeft = 1,
        kTopCenter,
        kTopRight,
        kMiddleLeft,
        kMiddleCenter,
        kMiddleRight,
        kBottomLeft,
        kBottomCenter,
        kBottomRight
    };
    enum FlowDirection { kLtoR = 1, kTtoB = 3, kByStyle = 5 };

    AcGePoint3d location() const { return m_location; }
    Acad::ErrorStatus setLocation(const AcGePoint3d& location);
    AcGeVector3d direction() const;
    Acad::ErrorStatus setDirection(const AcGeVector3d& direction);
    double rotation() const;   // radians, of the direction in the plane of the normal
    Acad::ErrorStatus setRotation(double angle);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    double width() const { return m_width; }   // 0: lines are not broken
    Acad::ErrorStatus setWidth(double width);
    double textHeight() const { return m_height; }
    Acad::ErrorStatus setTextHeight(double height);
    AttachmentPoint attachment() const { return AttachmentPoint(m_attachment); }
    Acad::ErrorStatus setAttachment(AttachmentPoint attachment);
    FlowDirection flowDirection() const { return FlowDirection(m_flow); }
    AcDbObjectId textStyle() const { return m_style; }
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);
    double lineSpacingFactor() const { return m_lineSpacing; }
    AcDb::LineSpacingStyle lineSpacingStyle() const { return AcDb::LineSpacingStyle(m_lineSpacingStyle); }

    ACHAR* contents() const;   // with format codes; the caller frees it with acutDelString
    CString contentsText() const;
    Acad::ErrorStatus setContents(const ACHAR* text);
    ACHAR* text() const;   // as it is seen, lines parted by "\r\n"

    // What the lines need, without and with the height of the last one.
    double actualWidth() const;
    double actualHeight() const;

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;

    bool addOutline(KxPlat::CurvePieces& pieces) const override;   // its box
    Acad::ErrorStatus setFlowDirection(FlowDirection direction);
    Acad::ErrorStatus setLineSpacingFactor(double factor);   // 0.25 to 4
    // Top left, top right, bottom left, bottom right.
    void getBoundingPoints(AcGePoint3d corners[4]) const;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    friend class MTextPieces;

    AcGePoint3d m_location;
    AcGeVector3d m_direction;   // of no length: the rotation counts
    AcGeVector3d m_normal{0, 0, 1};
    std::vector<CString> m_pieces;   // as files hold it: pieces of up to 250 characters, the last one in group 1
    AcDbObjectId m_style;
    double m_height = 0;
    double m_width = 0;
    double m_rotation = 0;   // degrees; counts where there is no direction
    double m_lineSpacing = 1;
    int16_t m_attachment = kTopLeft;
    int16_t m_flow = kByStyle;
    int16_t m_lineSpacingStyle = 1;
};

namespace KxPlat {

// The lines of a text with format codes, codes left out.
std::vector<CString> LinesOfMText(const CString& contents);

}   // namespace KxPlat
