// Where the outlines of two entities meet.
#include "../../ge/AcGePlane.h"
#include "../../ge/Crossings.h"
#include "../AcDbCurve.h"
#include "../core/CurvePieces.h"

using namespace KxPlat;

namespace {

CurvePieces OutlineFor(const AcDbEntity& entity, bool extend)
{
    CurvePieces pieces = OutlineOf(entity);
    if (extend && entity.isKindOf(AcDbCurve::desc()))
        pieces.Extend();
    return pieces;
}

void AddOnce(AcArray<AcGePoint3d>& points, int first, const AcGePoint3d& point)
{
    for (int index = first; index < points.length(); ++index)
        if (points[index].distanceTo(point) <= 10 * MeetingTolerance(point))
            return;
    points.append(point);
}

struct Boxed {
    const CurvePiece* piece;
    const CurvePiece* flat;
    AcDbExtents box;
    bool isEndless;
};

std::vector<Boxed> Boxes(const CurvePieces& pieces, const CurvePieces& flat)
{
    std::vector<Boxed> boxed;
    for (size_t index = 0; index < pieces.size(); ++index) {
        AcGeInterval interval;
        flat[index].curve->getInterval(interval);
        Boxed one = {&pieces[index], &flat[index], AcDbExtents(), !std::isfinite(interval.length())};
        std::vector<AcGePoint3d> points;
        CurvePiece whole = flat[index];   // with what extending has added
        whole.from = interval.lowerBound(), whole.to = interval.upperBound();
        if (!one.isEndless)
            AddSamples(whole, points);
        double step = 0;
        for (size_t at = 0; at < points.size(); ++at) {
            one.box.addPoint(points[at]);
            step = at == 0 ? 0 : std::max(step, points[at].distanceTo(points[at - 1]));
        }
        // Between two samples the curve may bulge, yet never by more than their distance.
        const bool isStraight = dynamic_cast<const AcGeLinearEnt3d*>(flat[index].curve.get()) != nullptr;
        const double margin = points.empty() ? 0 : (isStraight ? 0 : step) + MeetingTolerance(points.front());
        if (!points.empty()) {
            const AcGeVector3d grown(margin, margin, margin);
            one.box = AcDbExtents(one.box.minPoint() - grown, one.box.maxPoint() + grown);
        }
        boxed.push_back(one);
    }
    return boxed;
}

bool MayMeet(const Boxed& a, const Boxed& b)
{
    if (a.isEndless || b.isEndless)
        return true;
    for (unsigned axis = 0; axis < 3; ++axis)
        if (a.box.minPoint()[axis] > b.box.maxPoint()[axis] || b.box.minPoint()[axis] > a.box.maxPoint()[axis])
            return false;
    return true;
}

Acad::ErrorStatus Meet(const AcDbEntity& first, const AcDbEntity* second, AcDb::Intersect type,
                       const AcGeMatrix3d* seen, AcArray<AcGePoint3d>& points)
{
    if (second == nullptr)
        return Acad::eNullEntityPointer;
    const CurvePieces ours = OutlineFor(first, (type & AcDb::kExtendThis) != 0);
    const CurvePieces theirs = OutlineFor(*second, (type & AcDb::kExtendArg) != 0);
    if (ours.empty() || theirs.empty())
        return Acad::eNotApplicable;
    CurvePieces flatOurs = ours, flatTheirs = theirs;
    if (seen != nullptr) {
        flatOurs.TransformBy(*seen);
        flatTheirs.TransformBy(*seen);
    }
    const std::vector<Boxed> a = Boxes(ours, flatOurs), b = Boxes(theirs, flatTheirs);
    const int before = points.length();
    for (const Boxed& one : a)
        for (const Boxed& other : b)
            if (MayMeet(one, other))
                for (const Crossing& crossing : Crossings(*one.flat->curve, *other.flat->curve))
                    AddOnce(points, before,
                            seen == nullptr ? crossing.point : one.piece->curve->evalPoint(crossing.first));
    return Acad::eOk;
}

}   // namespace

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity* other, AcDb::Intersect type, AcArray<AcGePoint3d>& points,
                                            Adesk::GsMarker, Adesk::GsMarker) const
{
    return Meet(*this, other, type, nullptr, points);
}

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity* other, AcDb::Intersect type, const AcGePlane& plane,
                                            AcArray<AcGePoint3d>& points, Adesk::GsMarker, Adesk::GsMarker) const
{
    const AcGeMatrix3d seen = AcGeMatrix3d::projection(plane, plane.normal());
    return Meet(*this, other, type, &seen, points);
}
