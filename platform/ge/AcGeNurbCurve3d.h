// A spline: control points over a knot vector, with weights where it is rational.
#pragma once
#include "AcGeCurve3d.h"

class AcGeNurbCurve3d : public AcGeCurve3d {
public:
    AcGeNurbCurve3d() = default;
    // `weights` is empty for a spline that is not rational. What does not fit together leaves an empty curve.
    AcGeNurbCurve3d(int degree, const AcGeDoubleArray& knots, const AcGePoint3dArray& controlPoints,
                    const AcGeDoubleArray& weights = AcGeDoubleArray());

    int degree() const { return m_degree; }
    int numControlPoints() const { return m_points.length(); }
    AcGePoint3d controlPointAt(int index) const { return m_points[index]; }
    int numKnots() const { return m_knots.length(); }
    double knotAt(int index) const { return m_knots[index]; }
    bool isRational() const { return !m_weights.isEmpty(); }

    void getInterval(AcGeInterval& interval) const override;
    AcGePoint3d evalPoint(double parameter) const override;
    AcGeNurbCurve3d& transformBy(const AcGeMatrix3d& matrix) override;

private:
    int m_degree = 0;
    AcGeDoubleArray m_knots;
    AcGePoint3dArray m_points;
    AcGeDoubleArray m_weights;
};
