// A frame of tolerances.
#pragma once
#include "AcDbEntity.h"
#include <vector>

class AcDbFcf : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbFcf);

    AcDbFcf() = default;
    AcDbFcf(const ACHAR* text, const AcGePoint3d& location, const AcGeVector3d& normal, const AcGeVector3d& direction);

    ACHAR* text() const;   // with format codes; the caller frees it with acutDelString
    Acad::ErrorStatus setText(const ACHAR* text);
    AcGePoint3d location() const { return m_location; }
    Acad::ErrorStatus setLocation(const AcGePoint3d& location);
    AcGeVector3d normal() const { return m_normal; }
    AcGeVector3d direction() const { return m_direction; }
    Acad::ErrorStatus setOrientation(const AcGeVector3d& normal, const AcGeVector3d& direction);
    AcDbObjectId dimensionStyle() const { return m_style; }
    Acad::ErrorStatus setDimensionStyle(AcDbObjectId style);

    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    bool addOutline(KxPlat::CurvePieces& pieces) const override;   // the frames of its cells

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    // One frame of the tolerance with the text that stands in it, in the plane of the entity.
    struct Cell {
        double x, y, width, height;
        CString text;
    };
    std::vector<Cell> Cells() const;
    double TextHeight() const;
    AcGePoint3d At(double x, double y) const;

    AcDbObjectId m_style;
    CString m_text;
    AcGePoint3d m_location;
    AcGeVector3d m_normal{0, 0, 1};
    AcGeVector3d m_direction{1, 0, 0};
};
