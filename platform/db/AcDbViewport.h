// A window of a layout onto the model: its frame on the sheet, and the view that it shows.
#pragma once
#include "../ge/AcGePoint2d.h"
#include "AcDbEntity.h"
#include <vector>

class AcDbViewport : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbViewport);

    AcGePoint3d centerPoint() const { return m_center; }
    Acad::ErrorStatus setCenterPoint(const AcGePoint3d& center);
    double width() const { return m_width; }
    Acad::ErrorStatus setWidth(double width);
    double height() const { return m_height; }
    Acad::ErrorStatus setHeight(double height);
    // 1 is the sheet itself; -1 while the viewport is not shown.
    Adesk::Int16 number() const { return m_number; }
    bool isOn() const { return (m_flags & 0x20000) == 0; }
    Acad::ErrorStatus setOn() { return SetFlag(0x20000, false); }
    Acad::ErrorStatus setOff() { return SetFlag(0x20000, true); }
    bool isLocked() const { return (m_flags & 0x4000) != 0; }
    Acad::ErrorStatus setLocked() { return SetFlag(0x4000, true); }
    Acad::ErrorStatus setUnlocked() { return SetFlag(0x4000, false); }
    bool isPerspectiveOn() const { return (m_flags & 1) != 0; }
    AcGePoint2d viewCenter() const { return m_viewCenter; }
    Acad::ErrorStatus setViewCenter(const AcGePoint2d& center);
    double viewHeight() const { return m_viewHeight; }
    Acad::ErrorStatus setViewHeight(double height);
    AcGePoint3d viewTarget() const { return m_viewTarget; }
    Acad::ErrorStatus setViewTarget(const AcGePoint3d& target);
    AcGeVector3d viewDirection() const { return m_viewDirection; }
    Acad::ErrorStatus setViewDirection(const AcGeVector3d& direction);
    double twistAngle() const;   // radians
    double lensLength() const { return m_lensLength; }
    double customScale() const { return m_viewHeight == 0 ? 1 : m_height / m_viewHeight; }
    AcDbObjectId nonRectClipEntityId() const { return m_clipEntity; }

    // Layers that are frozen in this viewport only.
    bool isLayerFrozenInViewport(const AcDbObjectId& layer) const;
    Acad::ErrorStatus getFrozenLayerList(AcDbObjectIdArray& layers) const;
    Acad::ErrorStatus freezeLayersInViewport(const AcDbObjectIdArray& layers);
    Acad::ErrorStatus thawLayersInViewport(const AcDbObjectIdArray& layers);
    Acad::ErrorStatus thawAllLayersInViewport();

    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    bool addOutline(KxPlat::CurvePieces& pieces) const override;   // the frame on the sheet

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    Acad::ErrorStatus SetFlag(int32_t bits, bool on);

    std::vector<AcDbObjectId> m_frozenLayers;
    AcDbObjectId m_clipEntity;
    CString m_plotStyleSheet;
    AcGePoint3d m_center;
    AcGePoint2d m_viewCenter;
    AcGePoint2d m_snapBase;
    AcGePoint2d m_snapSpacing{10, 10};
    AcGePoint2d m_gridSpacing{10, 10};
    AcGeVector3d m_viewDirection{0, 0, 1};
    AcGePoint3d m_viewTarget;
    AcGePoint3d m_ucsOrigin;
    AcGeVector3d m_ucsXAxis{1, 0, 0};
    AcGeVector3d m_ucsYAxis{0, 1, 0};
    AcDbObjectId m_ucs;
    AcDbObjectId m_baseUcs;
    double m_width = 1, m_height = 1;
    double m_lensLength = 50, m_frontClip = 0, m_backClip = 0, m_viewHeight = 1;
    double m_snapAngle = 0, m_twistAngle = 0, m_ucsElevation = 0;
    int32_t m_flags = 0;
    int16_t m_status = 1, m_number = 0, m_circleSides = 100;
    int16_t m_renderMode = 0, m_hasUcs = 1, m_showsUcsIcon = 0, m_orthoView = 0, m_shadePlot = 0;
};
