// A curve as parts of plain geometry, in order: what lengths, nearest places, cuts, meetings and drawing work on.
#pragma once
#include "../../ge/AcGeEllipArc3d.h"
#include "../../ge/AcGeLine3d.h"
#include "../../ge/AcGeNurbCurve3d.h"
#include <memory>
#include <vector>

class AcDbEntity;

namespace KxPlat {

struct CurvePiece {
    std::shared_ptr<const AcGeCurve3d> curve;
    double from, to;     // of the geometry's own parameter
    double start, end;   // of the whole curve's

    // Of an endless piece both are the same.
    bool IsEndless() const { return !std::isfinite(end - start); }
    double Local(double parameter) const
    {
        return IsEndless()                  ? parameter
               : from == to || start == end ? from
                                            : from + (parameter - start) * ((to - from) / (end - start));
    }
    double Global(double local) const
    {
        return IsEndless()                  ? local
               : from == to || start == end ? start
                                            : start + (local - from) * ((end - start) / (to - from));
    }
    double Length(double start, double end) const { return curve->length(Local(start), Local(end)); }
};

class CurvePieces : public std::vector<CurvePiece> {
public:
    // Over the geometry's whole interval.
    template <class Curve>
    void Add(const Curve& curve, double start, double end)
    {
        AcGeInterval interval;
        curve.getInterval(interval);
        push_back({std::make_shared<Curve>(curve), interval.lowerBound(), interval.upperBound(), start, end});
    }
    void AddSegment(const AcGePoint3d& from, const AcGePoint3d& to, double start, double end)
    {
        Add(AcGeLineSeg3d(from, to), start, end);
    }
    // Between two vertices of a flat polyline.
    void AddBulged(const AcGePoint3d& from, const AcGePoint3d& to, double bulge, const AcGeVector3d& normal,
                   double start, double end);
    // Segments from one point to the next, and back to the first when closed.
    void AddPath(const std::vector<AcGePoint3d>& points, bool isClosed);
    // Endless where a straight line ends, whole where an arc does; closed curves stay as they are.
    void Extend();
    void TransformBy(const AcGeMatrix3d& transform);
};

// The lines by which an entity is seen: of a curve itself, of anything else its edges, or those of what it explodes to.
CurvePieces OutlineOf(const AcDbEntity& entity);

// Points on a piece so close that the chords between them leave it nowhere by more than a small share of its size.
void AddSamples(const CurvePiece& piece, std::vector<AcGePoint3d>& points);

}   // namespace KxPlat
