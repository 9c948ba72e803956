// An arc of a circle, turning left around its normal from the start to the end angle.
#pragma once
#include "AcDbCurve.h"

class AcDbArc : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDbArc);

    AcDbArc() = default;
    AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle);
    AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle, double endAngle);

    AcGePoint3d center() const;   // in world axes
    Acad::ErrorStatus setCenter(const AcGePoint3d& center);
    double radius() const { return m_radius; }
    Acad::ErrorStatus setRadius(double radius);
    double startAngle() const;   // radians
    Acad::ErrorStatus setStartAngle(double angle);
    double endAngle() const;
    Acad::ErrorStatus setEndAngle(double angle);
    double totalAngle() const;
    double length() const { return totalAngle() * m_radius; }
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    Acad::ErrorStatus getEcs(AcGeMatrix3d& ecs) const override;
    Acad::ErrorStatus getStartParam(double& parameter) const override;   // the start angle
    Acad::ErrorStatus getEndParam(double& parameter) const override;     // above it by the arc's angle
    Acad::ErrorStatus getPointAtParam(double parameter, AcGePoint3d& point) const override;
    Acad::ErrorStatus getArea(double& area) const override;   // between arc and chord
    using AcDbCurve::extend;
    Acad::ErrorStatus extend(double newParameter) override;
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
    double m_start = 0;   // degrees
    double m_end = 0;
};
