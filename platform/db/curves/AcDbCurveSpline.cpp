// Any curve as a spline.
#include "../AcDbSpline.h"
#include "../core/CurvePieces.h"

using namespace KxPlat;

namespace {

// A spline of degree 2 that is exactly the piece: a segment, or an arc in parts of a third of a turn at most.
AcGeNurbCurve3d Quadratic(const CurvePiece& piece)
{
    const auto* arc = dynamic_cast<const AcGeEllipArc3d*>(piece.curve.get());
    const int parts = arc == nullptr ? 1 : std::max(1, int(std::ceil((piece.to - piece.from) / (2 * kPi / 3) - 1e-9)));
    AcGeDoubleArray knots, weights;
    AcGePoint3dArray points;
    const double step = (piece.to - piece.from) / parts;
    const double weight = arc == nullptr ? 1.0 : std::cos(step / 2);
    for (int index = 0; index <= parts; ++index) {
        const double at = piece.from + step * index;
        for (int times = index == 0 || index == parts ? 3 : 2; times > 0; --times)
            knots.append(index == parts ? piece.end : piece.Global(at));
        points.append(piece.curve->evalPoint(at));
        weights.append(1.0);
        if (index == parts)
            break;
        const AcGePoint3d middle = piece.curve->evalPoint(at + step / 2);
        points.append(arc == nullptr ? middle : arc->center() + (middle - arc->center()) / weight);
        weights.append(weight);
    }
    return AcGeNurbCurve3d(2, knots, points, weights);
}

// Continues a spline of the same degree, whose end is the start of the other.
void Join(AcGeNurbCurve3d& spline, const AcGeNurbCurve3d& next)
{
    if (spline.numControlPoints() == 0) {
        spline = next;
        return;
    }
    AcGeDoubleArray knots = spline.knots(), weights = spline.weights();
    AcGePoint3dArray points = spline.controlPoints();
    knots.removeLast();
    for (int index = next.degree() + 1; index < next.numKnots(); ++index)
        knots.append(next.knotAt(index));
    for (int index = 1; index < next.numControlPoints(); ++index) {
        points.append(next.controlPointAt(index));
        weights.append(next.weights()[index]);
    }
    spline = AcGeNurbCurve3d(spline.degree(), knots, points, weights);
}

}   // namespace

Acad::ErrorStatus AcDbCurve::getSpline(AcDbSpline*& spline) const
{
    spline = nullptr;
    CurvePieces pieces;
    if (!addOutline(pieces) || pieces.empty())
        return Acad::eDegenerateGeometry;
    AcGeNurbCurve3d whole;
    for (const CurvePiece& piece : pieces) {
        if (const auto* own = dynamic_cast<const AcGeNurbCurve3d*>(piece.curve.get()); own != nullptr)
            whole = *own;
        else if (std::isfinite(piece.to - piece.from))
            Join(whole, Quadratic(piece));
    }
    if (whole.numControlPoints() == 0)
        return Acad::eNotApplicable;
    spline = new AcDbSpline(whole);
    spline->setPropertiesFrom(this);
    return Acad::eOk;
}
