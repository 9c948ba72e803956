#include "CurvePieces.h"
#include "../../ge/AcGeCircArc2d.h"
#include "../AcDbEntity.h"
#include <algorithm>

namespace KxPlat {

// The arc bends left of its chord's other side: a positive bulge turns left, seen against the normal.
void CurvePieces::AddBulged(const AcGePoint3d& from, const AcGePoint3d& to, double bulge, const AcGeVector3d& normal,
                            double start, double end)
{
    const AcGeVector3d chord = to - from;
    if (bulge == 0 || chord.isZeroLength()) {
        AddSegment(from, to, start, end);
        return;
    }
    const AcGeVector3d across = normal.crossProduct(chord) * ((1 - bulge * bulge) / (4 * bulge));
    const AcGePoint3d center = from + chord * 0.5 + across;
    const AcGeVector3d arm = from - center;
    const AcGeVector3d axis = bulge > 0 ? normal : -normal;
    Add(AcGeCircArc3d(center, axis, arm, arm.length(), 0.0, 4 * std::atan(std::fabs(bulge))), start, end);
}

void CurvePieces::AddPath(const std::vector<AcGePoint3d>& points, bool isClosed)
{
    const size_t count = points.size() < 2 ? 0 : isClosed ? points.size() : points.size() - 1;
    for (size_t index = 0; index < count; ++index)
        AddSegment(points[index], points[(index + 1) % points.size()], double(index), double(index + 1));
}

namespace {

constexpr double kEndless = std::numeric_limits<double>::infinity();

// A straight line whose parameter is that of the segment, open at one end or at both.
class OpenLine : public AcGeLine3d {
public:
    OpenLine(const AcGeCurve3d& segment, double lower, double upper)
        : AcGeLine3d(segment.evalPoint(0.0), segment.derivativesAt(0.0).first), m_within(lower, upper)
    {
    }
    void getInterval(AcGeInterval& interval) const override { interval = m_within; }

private:
    AcGeInterval m_within;
};

void Lengthen(CurvePiece& piece, bool atStart, bool atEnd)
{
    if (dynamic_cast<const AcGeLinearEnt3d*>(piece.curve.get()) != nullptr) {
        AcGeInterval interval;
        piece.curve->getInterval(interval);
        piece.curve = std::make_shared<OpenLine>(*piece.curve, atStart ? -kEndless : interval.lowerBound(),
                                                 atEnd ? kEndless : interval.upperBound());
    } else if (const auto* arc = dynamic_cast<const AcGeEllipArc3d*>(piece.curve.get())) {
        // The whole turn begins where the arc does; its parameters stay those of the arc.
        auto whole = std::make_shared<AcGeEllipArc3d>(*arc);
        whole->set(arc->center(), arc->majorAxis(), arc->minorAxis(), arc->majorRadius(), arc->minorRadius(),
                   arc->startAng(), arc->startAng() + 2 * kPi);
        piece.curve = whole;
    }
}

}   // namespace

void CurvePieces::Extend()
{
    if (empty())
        return;
    const AcGePoint3d start = front().curve->evalPoint(front().from), end = back().curve->evalPoint(back().to);
    if (size() > 1 && start.isEqualTo(end))
        return;
    if (size() == 1) {
        Lengthen(front(), true, true);
        return;
    }
    Lengthen(front(), true, false);
    Lengthen(back(), false, true);
}

void CurvePieces::TransformBy(const AcGeMatrix3d& transform)
{
    const auto mapped = [&](auto copy) -> std::shared_ptr<const AcGeCurve3d> {
        copy.transformBy(transform);
        return std::make_shared<decltype(copy)>(copy);
    };
    for (CurvePiece& piece : *this) {
        if (const auto* open = dynamic_cast<const OpenLine*>(piece.curve.get()))
            piece.curve = mapped(*open);
        else if (const auto* segment = dynamic_cast<const AcGeLineSeg3d*>(piece.curve.get()))
            piece.curve = mapped(*segment);
        else if (const auto* ray = dynamic_cast<const AcGeRay3d*>(piece.curve.get()))
            piece.curve = mapped(*ray);
        else if (const auto* line = dynamic_cast<const AcGeLine3d*>(piece.curve.get()))
            piece.curve = mapped(*line);
        else if (const auto* spline = dynamic_cast<const AcGeNurbCurve3d*>(piece.curve.get()))
            piece.curve = mapped(*spline);
        else if (const auto* arc = dynamic_cast<const AcGeEllipArc3d*>(piece.curve.get()))
            piece.curve = mapped(AcGeEllipArc3d(*arc));
    }
}

void AddSamples(const CurvePiece& piece, std::vector<AcGePoint3d>& points)
{
    AcGeInterval interval;
    piece.curve->getInterval(interval);
    const double share = std::fabs(piece.to - piece.from) / std::max(interval.length(), 1e-300);
    const int count = std::max(1, int(std::ceil(piece.curve->steps() * std::min(share, 1.0))));
    for (int index = 0; index <= count; ++index)
        points.push_back(piece.curve->evalPoint(piece.from + (piece.to - piece.from) * index / count));
}

namespace {

constexpr int kMostNesting = 16;
constexpr size_t kMostPieces = 200'000;   // of one entity: blocks in blocks may multiply without end

void AddOutline(const AcDbEntity& entity, int nesting, CurvePieces& pieces)
{
    if (pieces.size() > kMostPieces || nesting > kMostNesting || entity.addOutline(pieces))
        return;
    AcArray<AcRxObject*> parts;
    entity.explode(parts);
    for (AcRxObject* part : parts) {
        if (const AcDbEntity* inside = AcDbEntity::cast(part))
            AddOutline(*inside, nesting + 1, pieces);
        delete part;
    }
}

}   // namespace

CurvePieces OutlineOf(const AcDbEntity& entity)
{
    CurvePieces pieces;
    AddOutline(entity, 0, pieces);
    return pieces;
}

}   // namespace KxPlat
