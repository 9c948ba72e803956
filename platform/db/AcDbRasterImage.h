// A picture in the drawing, and the wipeout, which is a picture of the background. `u` and `v` are the sides of one
// pixel; the clip boundary is in pixels.
#pragma once
#include "../ge/AcGePoint3dArray.h"
#include "AcDbEntity.h"
#include <vector>

namespace KxPlat {
struct Field;
}

class AcDbRasterImage : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbRasterImage);

    enum ClipBoundaryType { kInvalid = 0, kRect = 1, kPoly = 2 };
    enum ImageDisplayOpt { kShow = 1, kShowUnAligned = 2, kClip = 4, kTransparent = 8 };

    AcDbObjectId imageDefId() const { return m_definition; }
    Acad::ErrorStatus setImageDefId(AcDbObjectId definition);
    void getOrientation(AcGePoint3d& origin, AcGeVector3d& u, AcGeVector3d& v) const;   // sides of the whole picture
    bool setOrientation(const AcGePoint3d& origin, const AcGeVector3d& u, const AcGeVector3d& v);
    AcGeVector2d imageSize() const { return m_size.asVector(); }   // in pixels
    bool isClipped() const { return m_isClipped != 0; }
    ClipBoundaryType clipBoundaryType() const { return ClipBoundaryType(m_clipType); }
    bool isSetDisplayOpt(ImageDisplayOpt option) const { return (m_display & option) != 0; }
    // The corners of what is shown, in world axes.
    Acad::ErrorStatus getVertices(AcGePoint3dArray& vertices) const;

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    bool addOutline(KxPlat::CurvePieces& pieces) const override;   // the frame
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;
    static std::vector<KxPlat::Field> FieldList();

private:
    AcGePoint3d m_origin;
    AcGeVector3d m_u{1, 0, 0};
    AcGeVector3d m_v{0, 1, 0};
    AcGePoint2d m_size{1, 1};
    AcDbObjectId m_definition;
    AcDbObjectId m_reactor;
    std::vector<AcGePoint2d> m_clip;
    int32_t m_version = 0;
    int16_t m_display = 7, m_isClipped = 0;
    int16_t m_brightness = 50, m_contrast = 50, m_fade = 0;
    int16_t m_clipType = 1;
    int16_t m_isClipInside = 0;
};

class AcDbWipeout : public AcDbRasterImage {
public:
    ACDB_DECLARE_MEMBERS(AcDbWipeout);

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;
};
