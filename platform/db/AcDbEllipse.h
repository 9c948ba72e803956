// An ellipse or an arc of one, in world axes.
#pragma once
#include "AcDbCurve.h"

class AcDbEllipse : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDbEllipse);

    AcDbEllipse() = default;
    AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                double radiusRatio, double startAngle = 0.0, double endAngle = 6.28318530717958647692);

    Acad::ErrorStatus get(AcGePoint3d& center, AcGeVector3d& normal, AcGeVector3d& majorAxis, double& radiusRatio,
                          double& startAngle, double& endAngle) const;
    // eDegenerateGeometry for axes of no length or a ratio outside 1e-6 to 1.
    Acad::ErrorStatus set(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                          double radiusRatio, double startAngle = 0.0, double endAngle = 6.28318530717958647692);
    AcGePoint3d center() const { return m_center; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& center);
    AcGeVector3d normal() const { return m_normal; }
    AcGeVector3d majorAxis() const { return m_majorAxis; }   // with its radius as length
    AcGeVector3d minorAxis() const;
    double radiusRatio() const { return m_ratio; }
    Acad::ErrorStatus setRadiusRatio(double ratio);
    double majorRadius() const { return m_majorAxis.length(); }
    double minorRadius() const { return majorRadius() * m_ratio; }
    double startParam() const { return m_start; }
    double endParam() const { return m_end; }
    double startAngle() const { return AngleOf(m_start); }
    double endAngle() const { return AngleOf(m_end); }

    bool isPlanar() const override { return true; }
    bool isClosed() const override;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    Acad::ErrorStatus getStartParam(double& parameter) const override;
    Acad::ErrorStatus getEndParam(double& parameter) const override;
    Acad::ErrorStatus getPointAtParam(double parameter, AcGePoint3d& point) const override;
    Acad::ErrorStatus getArea(double& area) const override;
    bool isPeriodic() const override { return isClosed(); }
    bool addOutline(KxPlat::CurvePieces& pieces) const override;
    AcDbCurve* PartBetween(double from, double to) const override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    double AngleOf(double parameter) const;

    AcGePoint3d m_center;
    AcGeVector3d m_majorAxis{1, 0, 0};
    AcGeVector3d m_normal{0, 0, 1};
    double m_ratio = 1;
    double m_start = 0;   // radians of the ellipse's parameter
    double m_end = 6.28318530717958647692;
};
