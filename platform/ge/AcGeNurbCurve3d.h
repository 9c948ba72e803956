// A spline: control points over a knot vector, with weights where it is rational.
#pragma once
#include "AcGeCurve3d.h"

class AcGeNurbCurve3d : public AcGeCurve3d {
public:
    AcGeNurbCurve3d() = default;
    // `weights` is empty for a spline that is not rational. What does not fit together leaves an empty curve.
    AcGeNurbCurve3d(int degree, const AcGeDoubleArray& knots, const AcGePoint3dArray& controlPoints,
                    const AcGeDoubleArray& weights = AcGeDoubleArray());
    // The cubic through all points, its parameter the length of the chords, without a sudden turn of its curvature.
    // Without a tangent an end is free of curvature; where the first point comes again at the end and no tangent is
    // given the curve goes on smoothly there. Equal neighbours count once; fewer than two points leave it empty.
    AcGeNurbCurve3d(const AcGePoint3dArray& fitPoints, const AcGeVector3d& startTangent, const AcGeVector3d& endTangent,
                    bool startTangentDefined = true, bool endTangentDefined = true);
    // Through all points with another degree: knots are averages of the parameters of the points.
    AcGeNurbCurve3d(int degree, const AcGePoint3dArray& fitPoints);

    int degree() const { return m_degree; }
    int numControlPoints() const { return m_points.length(); }
    AcGePoint3d controlPointAt(int index) const { return m_points[index]; }
    int numKnots() const { return m_knots.length(); }
    double knotAt(int index) const { return m_knots[index]; }
    bool isRational() const { return !m_weights.isEmpty(); }
    const AcGeDoubleArray& knots() const { return m_knots; }
    const AcGePoint3dArray& controlPoints() const { return m_points; }
    const AcGeDoubleArray& weights() const { return m_weights; }

    // The same curve with one knot more.
    AcGeNurbCurve3d& addKnot(double knot);
    // What lies between two parameters of the interval; it keeps their values.
    AcGeNurbCurve3d& hardTrimByParams(double from, double to);
    // Walked the other way, over the mirrored interval.
    AcGeNurbCurve3d& reverseParam();

    using AcGeCurve3d::evalPoint;
    void getInterval(AcGeInterval& interval) const override;
    AcGePoint3d evalPoint(double parameter) const override;
    Derivatives derivativesAt(double parameter) const override;
    AcGeNurbCurve3d& transformBy(const AcGeMatrix3d& matrix) override;
    std::vector<double> breaks() const override;
    int steps() const override { return 16 * (m_points.length() > 0 ? m_points.length() - m_degree : 1); }

private:
    // A point with its weight as a fourth coordinate.
    struct Weighted {
        AcGeVector3d point;
        double weight = 0.0;
        Weighted operator*(double factor) const { return {point * factor, weight * factor}; }
        Weighted operator+(const Weighted& other) const { return {point + other.point, weight + other.weight}; }
    };
    Weighted WeightedAt(int index) const;
    int SpanOf(double parameter) const;
    // The curve of degree m_degree - order that is the derivative of that order, at a parameter.
    Weighted Derivative(double parameter, int order) const;

    int m_degree = 0;
    AcGeDoubleArray m_knots;
    AcGePoint3dArray m_points;
    AcGeDoubleArray m_weights;
};
