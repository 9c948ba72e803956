#include "AcDbSpline.h"
#include "core/Fields.h"
#include "core/Members.h"
#include "core/VectorList.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbSpline, AcDbCurve, 0, 0, 0, SPLINE, AcDb)

// Control points, each with its weight behind it unless the file keeps the weights apart.
class SplinePoints : public PointList<AcDbSpline, AcGePoint3d> {
public:
    SplinePoints() : PointList(10, &AcDbSpline::m_points) {}

    bool Continues(int code) const override { return code == 41 || PointList::Continues(code); }
    bool PutReal(AcDbObject& object, int code, double value) const override
    {
        if (code != 41)
            return PointList::PutReal(object, code, value);
        AcDbSpline& spline = static_cast<AcDbSpline&>(object);
        // A weight behind the last of several points without one belongs to a list of its own.
        if (spline.m_weights.empty() && spline.m_points.size() > 1)
            spline.m_areWeightsApart = true;
        spline.m_weights.push_back(value);
        return true;
    }
    void Get(const AcDbObject& object, GroupSink& sink, AcDb::AcDbDwgVersion version) const override
    {
        const AcDbSpline& spline = static_cast<const AcDbSpline&>(object);
        if (spline.m_areWeightsApart) {
            PointList::Get(object, sink, version);
            for (size_t index = 0; index < spline.m_weights.size() && !spline.m_areWeightsFirst; ++index)
                sink.Real(41, spline.m_weights[index]);
            return;
        }
        for (size_t index = 0; index < spline.m_points.size(); ++index) {
            sink.Point(10, spline.m_points[index]);
            if (index < spline.m_weights.size())
                sink.Real(41, spline.m_weights[index]);
        }
    }
};

// Weights that stand before the control points.
class SplineWeights : public RealList<AcDbSpline> {
public:
    SplineWeights() : RealList(41, &AcDbSpline::m_weights) {}

    bool PutReal(AcDbObject& object, int code, double value) const override
    {
        AcDbSpline& spline = static_cast<AcDbSpline&>(object);
        spline.m_areWeightsApart = spline.m_areWeightsFirst = true;
        return RealList::PutReal(object, code, value);
    }
    // The other list copies and writes them otherwise.
    bool IsEmpty(const AcDbObject& object) const override
    {
        return !static_cast<const AcDbSpline&>(object).m_areWeightsFirst;
    }
    void Copy(AcDbObject& to, const AcDbObject& from) const override
    {
        AcDbSpline& target = static_cast<AcDbSpline&>(to);
        const AcDbSpline& source = static_cast<const AcDbSpline&>(from);
        target.m_weights = source.m_weights;
        target.m_areWeightsApart = source.m_areWeightsApart;
        target.m_areWeightsFirst = source.m_areWeightsFirst;
    }
};

const ClassSchema& AcDbSpline::fieldSchema()
{
    static const RealList<AcDbSpline> knots(40, &AcDbSpline::m_knots);
    static const SplineWeights weights;
    static const SplinePoints points;
    static const PointList<AcDbSpline, AcGePoint3d> fitPoints(11, &AcDbSpline::m_fitPoints);
    const auto self = [](const AcDbObject& o) -> const AcDbSpline& { return static_cast<const AcDbSpline&>(o); };
    static const ClassSchema schema(
        &AcDbCurve::fieldSchema(), "SPLINE", "AcDbSpline",
        {
            Vector3(210, &AcDbSpline::m_normal, 0, 0, 0),
            Int16(70, &AcDbSpline::m_flags).always(),
            Int16(71, &AcDbSpline::m_degree).always(),
            Count(72, [self](const AcDbObject& o) { return int64_t(self(o).m_knots.size()); }),
            Count(73, [self](const AcDbObject& o) { return int64_t(self(o).m_points.size()); }),
            Count(74, [self](const AcDbObject& o) { return int64_t(self(o).m_fitPoints.size()); }),
            Real(42, &AcDbSpline::m_knotTolerance, 1e-7).always(),
            Real(43, &AcDbSpline::m_controlPointTolerance, 1e-7).always(),
            Real(44, &AcDbSpline::m_fitTolerance, 1e-10),
            Vector3(12, &AcDbSpline::m_startTangent, 0, 0, 0),
            Vector3(13, &AcDbSpline::m_endTangent, 0, 0, 0),
            List(&knots),
            List(&weights),
            List(&points),
            List(&fitPoints),
        });
    return schema;
}

AcDbSpline::AcDbSpline(int degree, bool rational, bool closed, bool periodic, const AcGePoint3dArray& controlPoints,
                       const AcGeDoubleArray& knots, const AcGeDoubleArray& weights, double controlPointTolerance,
                       double knotTolerance)
    : m_knots(knots.begin(), knots.end()),
      m_points(controlPoints.begin(), controlPoints.end()),
      m_knotTolerance(knotTolerance),
      m_controlPointTolerance(controlPointTolerance),
      m_degree(int16_t(degree))
{
    if (rational)
        m_weights.assign(weights.begin(), weights.end());
    m_flags = int16_t((closed ? 1 : 0) | (periodic ? 2 : 0) | (rational ? 4 : 0));
}

bool AcDbSpline::isClosed() const
{
    // By its control points: the curve cannot be asked, since it asks this.
    return (m_flags & 1) != 0 || (m_points.size() > 1 && m_points.front() == m_points.back());
}

Acad::ErrorStatus AcDbSpline::getControlPointAt(int index, AcGePoint3d& point) const
{
    if (index < 0 || index >= numControlPoints())
        return Acad::eInvalidIndex;
    point = m_points[size_t(index)];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::setControlPointAt(int index, const AcGePoint3d& point)
{
    if (index < 0 || index >= numControlPoints())
        return Acad::eInvalidIndex;
    return Assign(*this, m_points[size_t(index)], point);
}

Acad::ErrorStatus AcDbSpline::getFitPointAt(int index, AcGePoint3d& point) const
{
    if (index < 0 || index >= numFitPoints())
        return Acad::eInvalidIndex;
    point = m_fitPoints[size_t(index)];
    return Acad::eOk;
}

double AcDbSpline::weightAt(int index) const
{
    return index >= 0 && size_t(index) < m_weights.size() ? m_weights[size_t(index)] : -1.0;
}

Acad::ErrorStatus AcDbSpline::getNurbsData(int& degree, bool& rational, bool& closed, bool& periodic,
                                           AcGePoint3dArray& controlPoints, AcGeDoubleArray& knots,
                                           AcGeDoubleArray& weights, double& controlPointTolerance,
                                           double& knotTolerance) const
{
    degree = m_degree;
    rational = isRational();
    closed = isClosed();
    periodic = isPeriodic();
    controlPoints.setLogicalLength(0);
    knots.setLogicalLength(0);
    weights.setLogicalLength(0);
    for (const AcGePoint3d& point : m_points)
        controlPoints.append(point);
    for (const double knot : m_knots)
        knots.append(knot);
    for (const double weight : m_weights)
        weights.append(weight);
    controlPointTolerance = m_controlPointTolerance;
    knotTolerance = m_knotTolerance;
    return Acad::eOk;
}

AcGeNurbCurve3d AcDbSpline::curve() const
{
    AcGePoint3dArray points;
    AcGeDoubleArray knots, weights;
    for (const AcGePoint3d& point : m_points)
        points.append(point);
    for (const double knot : m_knots)
        knots.append(knot);
    for (const double weight : m_weights)
        weights.append(weight);
    return AcGeNurbCurve3d(m_degree, knots, points, weights);
}

bool AcDbSpline::isPlanar() const
{
    return (m_flags & 8) != 0;
}

namespace {

constexpr int kMostPlaces = 4096;

// The extreme place along an axis, narrowed by thirds around the best of many places.
AcGePoint3d Extreme(const AcGeNurbCurve3d& curve, unsigned axis, double sign)
{
    AcGeInterval interval;
    curve.getInterval(interval);
    const int count = std::min(8 * curve.numControlPoints(), kMostPlaces);
    const double step = interval.length() / count;
    const auto height = [&](double t) { return curve.evalPoint(t)[axis] * sign; };
    double best = interval.lowerBound();
    for (int place = 1; place <= count; ++place)
        if (height(interval.lowerBound() + step * place) > height(best))
            best = interval.lowerBound() + step * place;
    double lower = std::max(best - step, interval.lowerBound()), upper = std::min(best + step, interval.upperBound());
    for (int round = 0; round < 60; ++round) {
        const double third = (upper - lower) / 3;
        if (height(lower + third) < height(upper - third))
            lower += third;
        else
            upper -= third;
    }
    return curve.evalPoint(height(best) > height(lower) ? best : lower);
}

}   // namespace

Acad::ErrorStatus AcDbSpline::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    const AcGeNurbCurve3d nurbs = curve();
    for (unsigned axis = 0; axis < 3 && nurbs.numControlPoints() > 0; ++axis) {
        extents.addPoint(Extreme(nurbs, axis, 1));
        extents.addPoint(Extreme(nurbs, axis, -1));
    }
    for (const AcGePoint3d& point : m_fitPoints)
        extents.addPoint(point);
    return extents.isEmpty() ? Acad::eInvalidExtents : Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    for (std::vector<AcGePoint3d>* points : {&m_points, &m_fitPoints})
        for (AcGePoint3d& point : *points)
            point.transformBy(transform);
    m_startTangent.transformBy(transform).normalize();
    m_endTangent.transformBy(transform).normalize();
    m_normal.transformBy(transform).normalize();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getStartParam(double& parameter) const
{
    AcGeInterval interval;
    const AcGeNurbCurve3d nurbs = curve();
    nurbs.getInterval(interval);
    parameter = interval.lowerBound();
    return nurbs.numControlPoints() == 0 ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getEndParam(double& parameter) const
{
    AcGeInterval interval;
    const AcGeNurbCurve3d nurbs = curve();
    nurbs.getInterval(interval);
    parameter = interval.upperBound();
    return nurbs.numControlPoints() == 0 ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getPointAtParam(double parameter, AcGePoint3d& point) const
{
    AcGeInterval interval;
    const AcGeNurbCurve3d nurbs = curve();
    nurbs.getInterval(interval);
    if (nurbs.numControlPoints() == 0)
        return Acad::eDegenerateGeometry;
    if (!interval.contains(parameter))
        return Acad::eInvalidInput;
    point = nurbs.evalPoint(parameter);
    return Acad::eOk;
}
