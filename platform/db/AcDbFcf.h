// A frame of tolerances.
#pragma once
#include "AcDbEntity.h"

class AcDbFcf : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbFcf);

    ACHAR* text() const;   // with format codes; the caller frees it with acutDelString
    Acad::ErrorStatus setText(const ACHAR* text);
    AcGePoint3d location() const { return m_location; }
    Acad::ErrorStatus setLocation(const AcGePoint3d& location);
    AcGeVector3d normal() const { return m_normal; }
    AcGeVector3d direction() const { return m_direction; }
    AcDbObjectId dimensionStyle() const { return m_style; }

    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    AcDbObjectId m_style;
    CString m_text;
    AcGePoint3d m_location;
    AcGeVector3d m_normal{0, 0, 1};
    AcGeVector3d m_direction{1, 0, 0};
};
