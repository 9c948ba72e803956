// Curves: measured, cut, put in order, joined, offset.
#include "KxAcDb.h"
#include "Opened.h"
#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace KxArxBase {

namespace {

const double kJoined = 1e-6;   // how far apart two ends may lie

// Curves that the host made and nobody has added yet.
class MadeCurves {
public:
    ~MadeCurves()
    {
        for (void* curve : array)
            delete static_cast<AcDbCurve*>(curve);
    }
    AcDbVoidPtrArray array;
    AcDbCurve* Take(int index)
    {
        AcDbCurve* curve = static_cast<AcDbCurve*>(array[index]);
        array[index] = nullptr;
        return curve;
    }
};

Acad::ErrorStatus LengthOf(const AcDbCurve& curve, double& length)
{
    double end = 0;
    const Acad::ErrorStatus es = curve.getEndParam(end);
    return es == Acad::eOk ? curve.getDistAtParam(end, length) : es;
}

}   // namespace

Acad::ErrorStatus CKxAcDb::GetCurveLength(const AcDbObjectId& curve, double& length)
{
    const Opened<AcDbCurve> opened(curve, AcDb::kForRead);
    return opened ? LengthOf(*opened.get(), length) : opened.status();
}

Acad::ErrorStatus CKxAcDb::GetCurveArea(const AcDbObjectId& curve, double& area)
{
    const Opened<AcDbCurve> opened(curve, AcDb::kForRead);
    return opened ? opened->getArea(area) : opened.status();
}

Acad::ErrorStatus CKxAcDb::GetCurvePoints(const AcDbObjectId& curve, int count, AcGePoint3dArray& points)
{
    points.setLogicalLength(0);
    const Opened<AcDbCurve> opened(curve, AcDb::kForRead);
    if (!opened || count < 2)
        return opened ? Acad::eInvalidInput : opened.status();
    double length = 0;
    Acad::ErrorStatus es = LengthOf(*opened.get(), length);
    for (int i = 0; i < count && es == Acad::eOk; ++i) {
        AcGePoint3d point;
        es = i + 1 == count ? opened->getEndPoint(point) : opened->getPointAtDist(length * i / (count - 1), point);
        if (es == Acad::eOk)
            points.append(point);
    }
    return es;
}

Acad::ErrorStatus CKxAcDb::IntersectCurves(const AcDbObjectId& one, const AcDbObjectId& other, AcGePoint3dArray& points,
                                           AcDb::Intersect type)
{
    points.setLogicalLength(0);
    const Opened<AcDbEntity> first(one, AcDb::kForRead), second(other, AcDb::kForRead);
    if (!first || !second)
        return first ? second.status() : first.status();
    return first->intersectWith(second.get(), type, points);
}

Acad::ErrorStatus CKxAcDb::CutCurve(const AcDbObjectId& curve, const AcGePoint3dArray& points, AcDbObjectIdArray* parts)
{
    if (parts != nullptr)
        parts->setLogicalLength(0);
    MadeCurves made;
    {
        const Opened<AcDbCurve> opened(curve, AcDb::kForRead);
        if (!opened)
            return opened.status();
        AcGeDoubleArray parameters;
        for (const AcGePoint3d& point : points) {
            AcGePoint3d onCurve;
            double parameter = 0;
            Acad::ErrorStatus es = opened->getClosestPointTo(point, onCurve);
            if (es == Acad::eOk)
                es = opened->getParamAtPoint(onCurve, parameter);
            if (es != Acad::eOk)
                return es;
            parameters.append(parameter);
        }
        std::sort(parameters.begin(), parameters.end());
        const Acad::ErrorStatus es = opened->getSplitCurves(parameters, made.array);
        if (es != Acad::eOk)
            return es;
    }
    // The curve goes first: where it cannot (a locked layer) nothing has changed.
    Acad::ErrorStatus es = EraseObject(curve, 0);
    for (int i = 0; i < made.array.length() && es == Acad::eOk; ++i) {
        AcDbObjectId id;
        std::unique_ptr<AcDbCurve> part(made.Take(i));
        es = AddBeside(curve, part.get(), id);
        if (es != Acad::eOk)
            break;
        static_cast<void>(part.release());
        if (parts != nullptr)
            parts->append(id);
    }
    return es;
}

Acad::ErrorStatus CKxAcDb::CutCurve(const AcDbObjectId& curve, const AcDbObjectIdArray& cutters,
                                    AcDbObjectIdArray* parts)
{
    AcGePoint3dArray all;
    for (const AcDbObjectId& cutter : cutters) {
        AcGePoint3dArray points;
        const Acad::ErrorStatus es = cutter == curve ? Acad::eOk : IntersectCurves(curve, cutter, points);
        if (es != Acad::eOk)
            return es;
        all.append(points);
    }
    if (parts != nullptr)
        parts->setLogicalLength(0);
    return all.isEmpty() ? Acad::eInvalidInput : CutCurve(curve, all, parts);
}

namespace {

struct Ends {
    AcDbObjectId id;
    AcGePoint3d start, end;
    bool isTurned = false;

    void Turn()
    {
        std::swap(start, end);
        isTurned = !isTurned;
    }
};

Acad::ErrorStatus EndsOf(const AcDbObjectIdArray& curves, std::vector<Ends>& ends)
{
    for (const AcDbObjectId& id : curves) {
        const Opened<AcDbCurve> curve(id, AcDb::kForRead);
        Ends one = {id, {}, {}, false};
        Acad::ErrorStatus es = curve ? curve->getStartPoint(one.start) : curve.status();
        if (es == Acad::eOk)
            es = curve->getEndPoint(one.end);
        if (es != Acad::eOk)
            return es;
        ends.push_back(one);
    }
    return Acad::eOk;
}

bool AreOne(const AcGePoint3d& a, const AcGePoint3d& b)
{
    return a.distanceTo(b) <= kJoined;
}

// How many other ends lie at a place.
int Meeting(const std::vector<Ends>& ends, const Ends& self, const AcGePoint3d& place)
{
    int count = 0;
    for (const Ends& other : ends)
        count += &other != &self && (AreOne(other.start, place) || AreOne(other.end, place));
    return count;
}

// The first curve that nothing leads to, else the first one; turned so that its loose end is its start.
Ends TakeFirst(std::vector<Ends>& rest)
{
    size_t found = 0;
    bool isTurned = false;
    for (size_t i = 0; i < rest.size(); ++i) {
        const bool isStartLoose = Meeting(rest, rest[i], rest[i].start) == 0;
        if (!isStartLoose && Meeting(rest, rest[i], rest[i].end) != 0)
            continue;
        found = i, isTurned = !isStartLoose;
        break;
    }
    Ends first = rest[found];
    rest.erase(rest.begin() + std::ptrdiff_t(found));
    if (isTurned)
        first.Turn();
    return first;
}

// Chains one behind the other; `breaks` counts where a curve does not begin where the one before it ends.
std::vector<Ends> Sorted(std::vector<Ends> rest, int& breaks)
{
    std::vector<Ends> sorted;
    breaks = 0;
    while (!rest.empty()) {
        breaks += !sorted.empty();
        sorted.push_back(TakeFirst(rest));
        for (;;) {
            const AcGePoint3d at = sorted.back().end;
            const auto next = std::find_if(rest.begin(), rest.end(), [&](const Ends& each) {
                return AreOne(each.start, at) || AreOne(each.end, at);
            });
            if (next == rest.end())
                break;
            Ends found = *next;
            rest.erase(next);
            if (!AreOne(found.start, at))
                found.Turn();
            sorted.push_back(found);
        }
    }
    return sorted;
}

}   // namespace

Acad::ErrorStatus CKxAcDb::SortCurves(AcDbObjectIdArray& curves, AcArray<int>* turned)
{
    std::vector<Ends> ends;
    const Acad::ErrorStatus es = EndsOf(curves, ends);
    if (es != Acad::eOk)
        return es;
    int breaks = 0;
    curves.setLogicalLength(0);
    if (turned != nullptr)
        turned->setLogicalLength(0);
    for (const Ends& each : Sorted(ends, breaks)) {
        curves.append(each.id);
        if (turned != nullptr)
            turned->append(each.isTurned ? 1 : 0);
    }
    return Acad::eOk;
}

namespace {

// The plane of a curve that a polyline can hold; false for any other curve.
bool PlaneOf(const AcDbCurve& curve, AcGeVector3d& normal)
{
    if (const AcDbArc* arc = AcDbArc::cast(&curve))
        normal = arc->normal();
    else if (const AcDbPolyline* polyline = AcDbPolyline::cast(&curve))
        normal = polyline->normal();
    else if (const AcDbLine* line = AcDbLine::cast(&curve))
        normal = line->normal();
    else
        return false;
    return true;
}

// Segments in the axes of the plane, added to a polyline whose last vertex is where they begin.
bool AddSegments(const AcDbCurve& curve, bool isTurned, const AcGeMatrix3d& toPlane, AcDbPolyline& joined)
{
    double start = 0, end = 0;
    curve.getStartParam(start);
    curve.getEndParam(end);
    const bool isPolyline = curve.isKindOf(AcDbPolyline::desc());
    const int count = isPolyline ? int(std::lround(end - start)) : 1;
    for (int i = 0; i < count; ++i) {
        const double share = isTurned ? double(count - i) : double(i), step = isTurned ? -1 : 1;
        AcGePoint3d points[3];
        for (int k = 0; k < 3; ++k) {
            const double at = start + (end - start) * (share + step * k / 2) / count;
            if (curve.getPointAtParam(std::min(std::max(at, start), end), points[k]) != Acad::eOk)
                return false;
            points[k].transformBy(toPlane);
        }
        const AcGePoint2d from(points[0].x, points[0].y), over(points[1].x, points[1].y), to(points[2].x, points[2].y);
        const AcGeVector2d in = over - from, out = to - over;
        double bulge = std::tan(std::atan2(in.x * out.y - in.y * out.x, in.dotProduct(out)) / 2);
        if (std::fabs(bulge) < 1e-12)
            bulge = 0;
        if (joined.numVerts() == 0) {
            joined.addVertexAt(0, from);
            joined.setElevation(points[0].z);
        }
        if (std::fabs(points[0].z - joined.elevation()) > kJoined ||
            std::fabs(points[2].z - joined.elevation()) > kJoined)
            return false;
        joined.setBulgeAt(joined.numVerts() - 1, bulge);
        joined.addVertexAt(joined.numVerts(), to);
    }
    return true;
}

}   // namespace

Acad::ErrorStatus CKxAcDb::JoinCurves(const AcDbObjectIdArray& curves, AcDbObjectId* joined)
{
    if (joined != nullptr)
        joined->setNull();
    std::vector<Ends> ends;
    Acad::ErrorStatus es = curves.isEmpty() ? Acad::eInvalidInput : EndsOf(curves, ends);
    if (es != Acad::eOk)
        return es;
    int breaks = 0;
    const std::vector<Ends> sorted = Sorted(ends, breaks);
    if (breaks != 0)
        return Acad::eInvalidInput;
    auto whole = std::make_unique<AcDbPolyline>();
    // A line lies in any plane through it: the arcs and polylines decide.
    AcGeVector3d normal, planeNormal;
    for (const Ends& each : sorted) {
        const Opened<AcDbCurve> curve(each.id, AcDb::kForRead);
        if (curve && !curve->isKindOf(AcDbLine::desc()) && planeNormal.isZeroLength())
            PlaneOf(*curve.get(), planeNormal);
    }
    for (const Ends& each : sorted) {
        const Opened<AcDbCurve> curve(each.id, AcDb::kForRead);
        AcGeVector3d own;
        if (!curve || !PlaneOf(*curve.get(), own))
            return curve ? Acad::eInvalidInput : curve.status();
        if (whole->numVerts() == 0)
            normal = planeNormal.isZeroLength() ? own : planeNormal;
        if (!AddSegments(*curve.get(), each.isTurned, AcGeMatrix3d::worldToPlane(normal), *whole))
            return Acad::eInvalidInput;
    }
    whole->setNormal(normal);
    if (whole->numVerts() > 2 && AreOne(sorted.front().start, sorted.back().end)) {
        double bulge = 0;
        const unsigned last = whole->numVerts() - 1;
        whole->getBulgeAt(last - 1, bulge);
        whole->removeVertexAt(last);
        whole->setBulgeAt(last - 1, bulge);
        whole->setClosed(true);
    }
    {
        const Opened<AcDbEntity> first(curves[0], AcDb::kForRead);
        whole->setPropertiesFrom(first.get());
    }
    AcDbObjectId id;
    es = AddBeside(curves[0], whole.get(), id);
    if (es != Acad::eOk)
        return es;
    static_cast<void>(whole.release());
    if (joined != nullptr)
        *joined = id;
    return EraseObjects(curves, 0);
}

Acad::ErrorStatus CKxAcDb::OffsetCurve(const AcDbObjectId& curve, double distance, AcDbObjectIdArray* parallels)
{
    if (parallels != nullptr)
        parallels->setLogicalLength(0);
    MadeCurves made;
    {
        const Opened<AcDbCurve> opened(curve, AcDb::kForRead);
        const Acad::ErrorStatus es = opened ? opened->getOffsetCurves(distance, made.array) : opened.status();
        if (es != Acad::eOk)
            return es;
    }
    Acad::ErrorStatus es = Acad::eOk;
    for (int i = 0; i < made.array.length() && es == Acad::eOk; ++i) {
        AcDbObjectId id;
        std::unique_ptr<AcDbCurve> parallel(made.Take(i));
        es = AddBeside(curve, parallel.get(), id);
        if (es != Acad::eOk)
            break;
        static_cast<void>(parallel.release());
        if (parallels != nullptr)
            parallels->append(id);
    }
    return es;
}

}   // namespace KxArxBase
