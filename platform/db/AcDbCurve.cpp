#include "AcDbCurve.h"
#include "AcDbSpline.h"
#include "core/CurvePieces.h"
#include "core/Fields.h"
#include <algorithm>

using namespace KxPlat;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbCurve, AcDbEntity)

const ClassSchema& AcDbCurve::fieldSchema()
{
    return AcDbEntity::fieldSchema();
}

Acad::ErrorStatus AcDbCurve::getStartPoint(AcGePoint3d& point) const
{
    double parameter = 0;
    const Acad::ErrorStatus status = getStartParam(parameter);
    return status == Acad::eOk ? getPointAtParam(parameter, point) : status;
}

Acad::ErrorStatus AcDbCurve::getEndPoint(AcGePoint3d& point) const
{
    double parameter = 0;
    const Acad::ErrorStatus status = getEndParam(parameter);
    return status == Acad::eOk ? getPointAtParam(parameter, point) : status;
}

namespace {

CurvePieces PiecesOf(const AcDbCurve& curve)
{
    CurvePieces pieces;
    curve.addOutline(pieces);
    return pieces;
}

// The part with a parameter: the later one at a joint.
const CurvePiece* PieceAt(const CurvePieces& pieces, double parameter)
{
    const CurvePiece* found = nullptr;
    for (const CurvePiece& piece : pieces)
        if (parameter >= piece.start && parameter <= piece.end)
            found = &piece;
    return found;
}

// How near a point has to be to count as one of the curve.
double OnCurveTolerance(const AcGePoint3d& point)
{
    return 1e-6 * (1 + point.asVector().length() * 1e-6);
}

}   // namespace

Acad::ErrorStatus AcDbCurve::Nearest(const AcGePoint3d& given, const AcGeMatrix3d& seen, bool extend,
                                     AcGePoint3d& onCurve, double& parameter) const
{
    const CurvePieces plain = PiecesOf(*this);
    if (plain.empty())
        return Acad::eDegenerateGeometry;
    CurvePieces pieces = plain;
    if (extend)
        pieces.Extend();
    CurvePieces flat = pieces;
    flat.TransformBy(seen);
    const AcGePoint3d target = seen * given;
    double least = std::numeric_limits<double>::infinity(), local = 0;
    for (size_t index = 0; index < pieces.size(); ++index) {
        const double distance = flat[index].curve->closestPointTo(target, local).distanceTo(target);
        if (!(distance < least))
            continue;
        least = distance;
        onCurve = pieces[index].curve->evalPoint(local);
        parameter = plain[index].Global(local);
    }
    return std::isfinite(least) ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbCurve::getClosestPointTo(const AcGePoint3d& given, AcGePoint3d& onCurve, bool extend) const
{
    double parameter = 0;
    return Nearest(given, AcGeMatrix3d::kIdentity, extend, onCurve, parameter);
}

Acad::ErrorStatus AcDbCurve::getClosestPointTo(const AcGePoint3d& given, const AcGeVector3d& direction,
                                               AcGePoint3d& onCurve, bool extend) const
{
    if (direction.isZeroLength())
        return Acad::eInvalidInput;
    double parameter = 0;
    const AcGePlane plane(given, direction);
    return Nearest(given, AcGeMatrix3d::projection(plane, direction), extend, onCurve, parameter);
}

Acad::ErrorStatus AcDbCurve::getParamAtPoint(const AcGePoint3d& point, double& parameter) const
{
    AcGePoint3d onCurve;
    double found = 0;
    const Acad::ErrorStatus status = Nearest(point, AcGeMatrix3d::kIdentity, false, onCurve, found);
    if (status != Acad::eOk)
        return status;
    if (!(onCurve.distanceTo(point) <= OnCurveTolerance(point)))
        return Acad::eInvalidInput;
    parameter = found;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getDistAtParam(double parameter, double& distance) const
{
    const CurvePieces pieces = PiecesOf(*this);
    if (PieceAt(pieces, parameter) == nullptr)
        return pieces.empty() ? Acad::eDegenerateGeometry : Acad::eInvalidInput;
    double sum = 0;
    for (const CurvePiece& piece : pieces) {
        const double from = std::isfinite(piece.start) ? piece.start : 0;
        if (parameter > from)
            sum += piece.Length(from, std::min(parameter, piece.end));
    }
    distance = sum;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getParamAtDist(double distance, double& parameter) const
{
    const CurvePieces pieces = PiecesOf(*this);
    if (pieces.empty())
        return Acad::eDegenerateGeometry;
    if (!(distance >= 0) || !std::isfinite(distance))
        return Acad::eInvalidInput;
    double rest = distance;
    for (const CurvePiece& piece : pieces) {
        const double from = std::isfinite(piece.start) ? piece.start : 0;
        const double length = piece.Length(from, piece.end);
        if (rest <= length) {
            parameter = std::min(piece.Global(piece.curve->paramAtLength(piece.Local(from), rest)), piece.end);
            return Acad::eOk;
        }
        rest -= length;
    }
    if (rest > 1e-9 * (1 + distance))
        return Acad::eInvalidInput;
    parameter = pieces.back().end;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getDistAtPoint(const AcGePoint3d& point, double& distance) const
{
    double parameter = 0;
    const Acad::ErrorStatus status = getParamAtPoint(point, parameter);
    return status == Acad::eOk ? getDistAtParam(parameter, distance) : status;
}

Acad::ErrorStatus AcDbCurve::getPointAtDist(double distance, AcGePoint3d& point) const
{
    double parameter = 0;
    const Acad::ErrorStatus status = getParamAtDist(distance, parameter);
    return status == Acad::eOk ? getPointAtParam(parameter, point) : status;
}

Acad::ErrorStatus AcDbCurve::getFirstDeriv(double parameter, AcGeVector3d& derivative) const
{
    const CurvePieces pieces = PiecesOf(*this);
    const CurvePiece* piece = PieceAt(pieces, parameter);
    if (piece == nullptr)
        return pieces.empty() ? Acad::eDegenerateGeometry : Acad::eInvalidInput;
    const double rate = (piece->to - piece->from) / (piece->end - piece->start);
    derivative = piece->curve->derivativesAt(piece->Local(parameter)).first * (std::isfinite(rate) ? rate : 1.0);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getSecondDeriv(double parameter, AcGeVector3d& derivative) const
{
    const CurvePieces pieces = PiecesOf(*this);
    const CurvePiece* piece = PieceAt(pieces, parameter);
    if (piece == nullptr)
        return pieces.empty() ? Acad::eDegenerateGeometry : Acad::eInvalidInput;
    const double rate = (piece->to - piece->from) / (piece->end - piece->start);
    derivative = piece->curve->derivativesAt(piece->Local(parameter)).second * (std::isfinite(rate) ? rate * rate : 1);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getFirstDeriv(const AcGePoint3d& point, AcGeVector3d& derivative) const
{
    double parameter = 0;
    const Acad::ErrorStatus status = getParamAtPoint(point, parameter);
    return status == Acad::eOk ? getFirstDeriv(parameter, derivative) : status;
}

Acad::ErrorStatus AcDbCurve::getSecondDeriv(const AcGePoint3d& point, AcGeVector3d& derivative) const
{
    double parameter = 0;
    const Acad::ErrorStatus status = getParamAtPoint(point, parameter);
    return status == Acad::eOk ? getSecondDeriv(parameter, derivative) : status;
}

Acad::ErrorStatus AcDbCurve::extend(bool extendStart, const AcGePoint3d& toPoint)
{
    AcGePoint3d onCurve;
    double parameter = 0;
    const Acad::ErrorStatus status = Nearest(toPoint, AcGeMatrix3d::kIdentity, true, onCurve, parameter);
    if (status != Acad::eOk)
        return status;
    double start = 0, end = 0;
    getStartParam(start);
    getEndParam(end);
    // A whole turn is as good as none: an arc may reach the point the other way around.
    if (extendStart && parameter > end && isA()->dxfName() == std::wstring_view(L"ARC"))
        parameter -= 2 * kPi;
    if (extendStart ? !(parameter < start) : !(parameter > end))
        return Acad::eInvalidInput;
    return extend(parameter);
}

// --- cuts ---

Acad::ErrorStatus AcDbCurve::getSplitCurves(const AcGeDoubleArray& parameters, AcDbVoidPtrArray& curves) const
{
    double start = -std::numeric_limits<double>::infinity(), end = -start;
    getStartParam(start);
    getEndParam(end);
    const bool isRound = isPeriodic();
    std::vector<double> cuts;
    for (const double parameter : parameters) {
        if (!(parameter >= start - 1e-9 && parameter <= end + 1e-9) || (!cuts.empty() && parameter < cuts.back()))
            return Acad::eInvalidInput;
        const bool isEnd = parameter <= start + 1e-12 || parameter >= end - 1e-12;
        if (cuts.empty() || parameter > cuts.back() + 1e-12)
            if (isRound || !isEnd)
                cuts.push_back(parameter);
    }
    if (cuts.empty())
        return Acad::eInvalidInput;
    if (isRound) {
        // Both ends of a closed curve are one place, and one place alone parts nothing.
        if (cuts.size() > 1 && cuts.back() - cuts.front() >= end - start - 1e-12)
            cuts.pop_back();
        if (cuts.size() < 2)
            return Acad::eInvalidInput;
        cuts.push_back(cuts.front() + (end - start));
    } else {
        cuts.insert(cuts.begin(), start);
        cuts.push_back(end);
    }
    std::vector<std::unique_ptr<AcDbCurve>> parts;
    for (size_t index = 0; index + 1 < cuts.size(); ++index) {
        parts.emplace_back(PartBetween(cuts[index], cuts[index + 1]));
        if (parts.back() == nullptr)
            return Acad::eNotApplicable;
        parts.back()->setPropertiesFrom(this);
    }
    for (std::unique_ptr<AcDbCurve>& part : parts)
        curves.append(part.release());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getSplitCurves(const AcGePoint3dArray& points, AcDbVoidPtrArray& curves) const
{
    AcGeDoubleArray parameters;
    for (const AcGePoint3d& point : points) {
        double parameter = 0;
        const Acad::ErrorStatus status = getParamAtPoint(point, parameter);
        if (status != Acad::eOk)
            return status;
        parameters.append(parameter);
    }
    std::sort(parameters.begin(), parameters.end());
    return getSplitCurves(parameters, curves);
}

// --- parallels ---

namespace {

constexpr int kOffsetSamples = 200;

}   // namespace

// Of a curve that has no exact parallel, a spline through many places beside it.
Acad::ErrorStatus AcDbCurve::MakeOffset(double distance, std::vector<AcDbCurve*>& curves) const
{
    double start = 0, end = 0;
    if (!isPlanar() || getStartParam(start) != Acad::eOk || getEndParam(end) != Acad::eOk)
        return Acad::eNotApplicable;
    AcGeVector3d normal;
    std::vector<AcGeVector3d> slopes;
    for (int index = 0; index <= kOffsetSamples; ++index) {
        AcGeVector3d slope;
        getFirstDeriv(start + (end - start) * index / kOffsetSamples, slope);
        slopes.push_back(slope);
        for (const AcGeVector3d& other : slopes)
            if (other.crossProduct(slope).length() > normal.length())
                normal = other.crossProduct(slope);
    }
    if (normal.isZeroLength())
        normal = AcGeVector3d::kZAxis;
    normal.normalize();
    const CurvePieces pieces = PiecesOf(*this);
    if (const auto* ellipse = dynamic_cast<const AcGeEllipArc3d*>(pieces.front().curve.get()))
        normal = ellipse->normal();
    else if (normal.z < 0)
        normal.negate();
    AcGePoint3dArray places;
    for (int index = 0; index <= kOffsetSamples; ++index) {
        AcGePoint3d point;
        getPointAtParam(start + (end - start) * index / kOffsetSamples, point);
        places.append(point + slopes[size_t(index)].crossProduct(normal).normal() * distance);
    }
    curves.push_back(new AcDbSpline(AcGeNurbCurve3d(places, AcGeVector3d(), AcGeVector3d())));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getOffsetCurves(double distance, AcDbVoidPtrArray& curves) const
{
    if (!std::isfinite(distance))
        return Acad::eInvalidInput;
    std::vector<AcDbCurve*> made;
    const Acad::ErrorStatus status = MakeOffset(distance, made);
    for (AcDbCurve* curve : made) {
        curve->setPropertiesFrom(this);
        curves.append(curve);
    }
    return status == Acad::eOk && made.empty() ? Acad::eInvalidInput : status;
}
