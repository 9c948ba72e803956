// A straight segment between two world points.
#pragma once
#include "../ge/AcGePoint3d.h"
#include "AcDbCurve.h"

class AcDbLine : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDbLine);

    AcDbLine() = default;
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : m_start(start), m_end(end) {}

    AcGePoint3d startPoint() const { return m_start; }
    Acad::ErrorStatus setStartPoint(const AcGePoint3d& point);
    AcGePoint3d endPoint() const { return m_end; }
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& point);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getStartParam(double& parameter) const override;
    Acad::ErrorStatus getEndParam(double& parameter) const override;   // the length
    Acad::ErrorStatus getPointAtParam(double parameter, AcGePoint3d& point) const override;
    using AcDbCurve::extend;
    Acad::ErrorStatus extend(double newParameter) override;
    Acad::ErrorStatus reverseCurve() override;
    bool addOutline(KxPlat::CurvePieces& pieces) const override;
    AcDbCurve* PartBetween(double from, double to) const override;

protected:
    Acad::ErrorStatus MakeOffset(double distance, std::vector<AcDbCurve*>& curves) const override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    AcGePoint3d m_start;
    AcGePoint3d m_end;
    AcGeVector3d m_normal{0, 0, 1};
    double m_thickness = 0;
};
