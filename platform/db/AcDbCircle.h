// A circle. Its centre is stored in the axes that go with its normal.
#pragma once
#include "AcDbCurve.h"

class AcDbCircle : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDbCircle);

    AcDbCircle() = default;
    AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);

    AcGePoint3d center() const;   // in world axes
    Acad::ErrorStatus setCenter(const AcGePoint3d& center);
    double radius() const { return m_radius; }
    Acad::ErrorStatus setRadius(double radius);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    double circumference() const;

    bool isPlanar() const override { return true; }
    bool isClosed() const override { return true; }
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    Acad::ErrorStatus getEcs(AcGeMatrix3d& ecs) const override;
    Acad::ErrorStatus getStartParam(double& parameter) const override;
    Acad::ErrorStatus getEndParam(double& parameter) const override;   // a whole turn in radians
    Acad::ErrorStatus getPointAtParam(double parameter, AcGePoint3d& point) const override;
    Acad::ErrorStatus getArea(double& area) const override;
    bool isPeriodic() const override { return true; }
    bool addOutline(KxPlat::CurvePieces& pieces) const override;
    AcDbCurve* PartBetween(double from, double to) const override;

protected:
    Acad::ErrorStatus MakeOffset(double distance, std::vector<AcDbCurve*>& curves) const override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    AcGePoint3d m_center;
    AcGeVector3d m_normal{0, 0, 1};
    double m_radius = 0;
    double m_thickness = 0;
};
