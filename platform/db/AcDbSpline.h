// A spline in world axes: control points over knots, fit points, or both.
#pragma once
#include "../ge/AcGeNurbCurve3d.h"
#include "AcDbCurve.h"
#include <vector>

class AcDbSpline : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDbSpline);

    AcDbSpline() = default;
    AcDbSpline(int degree, bool rational, bool closed, bool periodic, const AcGePoint3dArray& controlPoints,
               const AcGeDoubleArray& knots, const AcGeDoubleArray& weights, double controlPointTolerance = 0,
               double knotTolerance = 0);

    // The curve through the points, `order` being its degree and one. It keeps the points; the tolerance is kept, too,
    // though the curve misses none of them.
    explicit AcDbSpline(const AcGePoint3dArray& fitPoints, int order = 4, double fitTolerance = 0.0);
    AcDbSpline(const AcGePoint3dArray& fitPoints, const AcGeVector3d& startTangent, const AcGeVector3d& endTangent,
               int order = 4, double fitTolerance = 0.0);
    // A control polygon as geometry has it.
    explicit AcDbSpline(const AcGeNurbCurve3d& curve);

    int degree() const { return m_degree; }
    bool isRational() const { return (m_flags & 4) != 0; }
    bool isPeriodic() const override { return (m_flags & 2) != 0; }
    bool isClosed() const override;
    bool hasFitData() const { return !m_fitPoints.empty(); }
    int numControlPoints() const { return int(m_points.size()); }
    Acad::ErrorStatus getControlPointAt(int index, AcGePoint3d& point) const;
    Acad::ErrorStatus setControlPointAt(int index, const AcGePoint3d& point);
    int numFitPoints() const { return int(m_fitPoints.size()); }
    Acad::ErrorStatus getFitPointAt(int index, AcGePoint3d& point) const;
    double weightAt(int index) const;   // -1 for a spline that is not rational
    Acad::ErrorStatus getNurbsData(int& degree, bool& rational, bool& closed, bool& periodic,
                                   AcGePoint3dArray& controlPoints, AcGeDoubleArray& knots, AcGeDoubleArray& weights,
                                   double& controlPointTolerance, double& knotTolerance) const;
    double fitTolerance() const { return m_fitTolerance; }

    bool isPlanar() const override;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    Acad::ErrorStatus getStartParam(double& parameter) const override;
    Acad::ErrorStatus getEndParam(double& parameter) const override;
    Acad::ErrorStatus getPointAtParam(double parameter, AcGePoint3d& point) const override;
    // The curve as geometry; empty where the data do not fit together.
    AcGeNurbCurve3d curve() const;
    Acad::ErrorStatus reverseCurve() override;
    bool addOutline(KxPlat::CurvePieces& pieces) const override;
    AcDbCurve* PartBetween(double from, double to) const override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    void TakeCurve(const AcGeNurbCurve3d& curve);

    friend class SplinePoints;
    friend class SplineWeights;

    std::vector<double> m_knots;
    std::vector<AcGePoint3d> m_points;
    std::vector<double> m_weights;
    std::vector<AcGePoint3d> m_fitPoints;
    AcGeVector3d m_normal;
    AcGeVector3d m_startTangent;
    AcGeVector3d m_endTangent;
    double m_knotTolerance = 1e-7;
    double m_controlPointTolerance = 1e-7;
    double m_fitTolerance = 1e-10;
    int16_t m_flags = 0;   // 1 closed, 2 periodic, 4 rational, 8 planar, 16 linear
    int16_t m_degree = 3;
    bool m_areWeightsApart = false;   // in the file the weights stand together, not each behind its point,
    bool m_areWeightsFirst = false;   // and before all points
};
