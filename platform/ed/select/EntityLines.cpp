#include "EntityLines.h"
#include "../../db/AcDbBlockReference.h"
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbCurve.h"
#include "../../db/core/Stub.h"
#include <cmath>
#include <memory>

namespace KxPlat {

namespace {

constexpr int kMostNesting = 16;
constexpr size_t kMostSegments = 200'000;   // of one entity: blocks in blocks may multiply without end
constexpr int kPiecesPerUnit = 8;           // of a polyline's parameter, one segment of it
constexpr int kPiecesOfCurve = 64;

AcGePoint2d Flat(const AcGePoint3d& point)
{
    return AcGePoint2d(point.x, point.y);
}

void AddBox(const AcDbExtents& box, const AcGeMatrix3d& place, std::vector<Segment>& segments)
{
    const AcGePoint3d low = box.minPoint(), high = box.maxPoint();
    AcGePoint3d corners[4] = {
        {low.x, low.y, low.z}, {high.x, low.y, low.z}, {high.x, high.y, high.z}, {low.x, high.y, high.z}};
    for (AcGePoint3d& corner : corners)
        corner.transformBy(place);
    for (int i = 0; i < 4; ++i)
        segments.push_back({Flat(corners[i]), Flat(corners[(i + 1) % 4])});
}

bool AddCurve(const AcDbCurve& curve, const AcGeMatrix3d& place, std::vector<Segment>& segments)
{
    double start = 0, end = 0;
    AcGePoint3d point;
    if (curve.getStartParam(start) != Acad::eOk || curve.getEndParam(end) != Acad::eOk || !(end > start) ||
        !std::isfinite(end - start) || curve.getPointAtParam(start, point) != Acad::eOk)
        return false;
    const bool isPolyline = curve.isA()->dxfName() != nullptr &&
                            std::wstring_view(curve.isA()->dxfName()).find(L"POLYLINE") != std::wstring_view::npos;
    const bool isLine = std::wstring_view(curve.isA()->dxfName() == nullptr ? L"" : curve.isA()->dxfName()) == L"LINE";
    const double pieces = isLine ? 1 : isPolyline ? (end - start) * kPiecesPerUnit : kPiecesOfCurve;
    const int count = int(std::min(std::max(1.0, std::round(pieces)), double(kMostSegments)));
    AcGePoint2d last = Flat(point.transformBy(place));
    for (int i = 1; i <= count; ++i) {
        AcGePoint3d next;
        if (curve.getPointAtParam(start + (end - start) * i / count, next) != Acad::eOk)
            return i > 1;
        const AcGePoint2d flat = Flat(next.transformBy(place));
        segments.push_back({last, flat});
        last = flat;
    }
    return true;
}

void AddEntity(const AcDbEntity& entity, const AcGeMatrix3d& place, int nesting, std::vector<Segment>& segments);

bool AddBlock(const AcDbBlockReference& reference, const AcGeMatrix3d& place, int nesting,
              std::vector<Segment>& segments)
{
    const AcDbStub* stub = reference.blockTableRecord();
    if (stub == nullptr || stub->object == nullptr || nesting >= kMostNesting)
        return false;
    const auto* block = AcDbBlockTableRecord::cast(stub->object);
    if (block == nullptr)
        return false;
    const AcGeMatrix3d inner =
        place * reference.blockTransform() * AcGeMatrix3d::translation(AcGePoint3d() - block->origin());
    const size_t before = segments.size();
    for (const AcDbStub* member : block->entities()) {
        if (member->erased || member->object == nullptr || segments.size() > kMostSegments)
            continue;
        if (const AcDbEntity* entity = AcDbEntity::cast(member->object))
            AddEntity(*entity, inner, nesting + 1, segments);
    }
    const std::unique_ptr<AcDbObjectIterator> attributes(reference.attributeIterator());
    for (; !attributes->done(); attributes->step()) {
        const AcDbStub* attribute = attributes->objectId();
        if (!attribute->erased && AcDbEntity::cast(attribute->object) != nullptr)
            AddEntity(*AcDbEntity::cast(attribute->object), place, nesting + 1, segments);
    }
    return segments.size() > before;
}

void AddEntity(const AcDbEntity& entity, const AcGeMatrix3d& place, int nesting, std::vector<Segment>& segments)
{
    const size_t before = segments.size();
    if (const AcDbCurve* curve = AcDbCurve::cast(&entity)) {
        if (AddCurve(*curve, place, segments))
            return;
        segments.resize(before);
    }
    if (const AcDbBlockReference* reference = AcDbBlockReference::cast(&entity))
        if (AddBlock(*reference, place, nesting, segments))
            return;
    AcDbExtents box;
    if (entity.getGeomExtents(box) == Acad::eOk)
        AddBox(box, place, segments);
}

}   // namespace

std::vector<Segment> SegmentsOf(const AcDbEntity& entity, const AcGeMatrix3d& place)
{
    std::vector<Segment> segments;
    AddEntity(entity, place, 0, segments);
    return segments;
}

}   // namespace KxPlat
