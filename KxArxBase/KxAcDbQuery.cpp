// Properties of entities, and entities by their properties and places.
#include "GePolygon.h"
#include "KxAcDb.h"
#include "KxMessages.h"
#include "Opened.h"
#include <algorithm>
#include <unordered_set>

namespace KxArxBase {

namespace {

CString Taken(ACHAR* text)
{
    CString copy(text == nullptr ? L"" : text);
    acutDelString(text);
    return copy;
}

bool IsWithin(double low, double high, double from, double to)
{
    return from >= low && to <= high;
}

bool Reaches(double low, double high, double from, double to)
{
    return to >= low && from <= high;
}

}   // namespace

template <class Accept>
Acad::ErrorStatus CKxAcDb::SelectIf(AcDbObjectIdArray& ids, AcRxClass* cls, const wchar_t* space, Accept accept)
{
    ids.setLogicalLength(0);
    AcDbObjectIdArray all;
    const Acad::ErrorStatus es = GetDifferenceSetIds(AcDbObjectIdArray(), all, cls, false, false, false, space);
    for (const AcDbObjectId& id : all) {
        const Opened<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity && accept(*entity.get()))
            ids.append(id);
    }
    return es;
}

Acad::ErrorStatus CKxAcDb::GetEntityProperty(const AcDbObjectId& id, int* color, CString* layer, CString* linetype,
                                             bool* visible)
{
    const Opened<AcDbEntity> entity(id, AcDb::kForRead);
    if (!entity)
        return entity.status();
    if (color != nullptr)
        *color = entity->colorIndex();
    if (layer != nullptr)
        *layer = Taken(entity->layer());
    if (linetype != nullptr)
        *linetype = Taken(entity->linetype());
    if (visible != nullptr)
        *visible = entity->visibility() == AcDb::kVisible;
    return Acad::eOk;
}

Acad::ErrorStatus CKxAcDb::GetEntityExtents(const AcDbObjectId& id, AcDbExtents& extents)
{
    const Opened<AcDbEntity> entity(id, AcDb::kForRead);
    return entity ? entity->getGeomExtents(extents) : entity.status();
}

Acad::ErrorStatus CKxAcDb::SelectByLayer(const wchar_t* layers, AcDbObjectIdArray& ids, AcRxClass* cls,
                                         const wchar_t* space, wchar_t separator)
{
    std::unordered_set<AcDbObjectId> wanted;
    CString name;
    for (int field = 0; AfxExtractSubString(name, layers, field, separator); ++field) {
        AcDbObjectId id;
        if (FindRec(name, AcDbLayerTableRecord::desc(), id))
            wanted.insert(id);
    }
    return SelectIf(ids, cls, space, [&](const AcDbEntity& entity) { return wanted.count(entity.layerId()) != 0; });
}

Acad::ErrorStatus CKxAcDb::SelectByColor(int color, AcDbObjectIdArray& ids, AcRxClass* cls, const wchar_t* space)
{
    return SelectIf(ids, cls, space, [&](const AcDbEntity& entity) { return entity.colorIndex() == color; });
}

Acad::ErrorStatus CKxAcDb::SelectByWindow(const AcGePoint3d& corner, const AcGePoint3d& otherCorner, int crossing,
                                          AcDbObjectIdArray& ids, AcRxClass* cls, const wchar_t* space)
{
    const auto judge = crossing != 0 ? Reaches : IsWithin;
    return SelectIf(ids, cls, space, [&](const AcDbEntity& entity) {
        AcDbExtents box;
        if (entity.getGeomExtents(box) != Acad::eOk)
            return false;
        const AcGePoint3d low = box.minPoint(), high = box.maxPoint();
        return judge(std::min(corner.x, otherCorner.x), std::max(corner.x, otherCorner.x), low.x, high.x) &&
               judge(std::min(corner.y, otherCorner.y), std::max(corner.y, otherCorner.y), low.y, high.y);
    });
}

namespace {

const int kPointsOfCurve = 64;

// Places along the entity: of a curve many, of anything else the corners of its box.
AcGePoint2dArray PlacesOf(const AcDbEntity& entity)
{
    AcGePoint2dArray places;
    double start = 0, end = 0;
    const AcDbCurve* curve = AcDbCurve::cast(&entity);
    if (curve != nullptr && curve->getStartParam(start) == Acad::eOk && curve->getEndParam(end) == Acad::eOk) {
        const bool isStraight = entity.isKindOf(AcDbLine::desc());
        const int count = isStraight ? 1 : kPointsOfCurve * std::max(1, int(std::min(end - start, 1000.0) / 8));
        for (int i = 0; i <= count; ++i) {
            AcGePoint3d point;
            if (curve->getPointAtParam(start + (end - start) * i / count, point) == Acad::eOk)
                places.append(AcGePoint2d(point.x, point.y));
        }
        return places;
    }
    AcDbExtents box;
    if (entity.getGeomExtents(box) != Acad::eOk)
        return places;
    const AcGePoint3d low = box.minPoint(), high = box.maxPoint();
    for (const AcGePoint2d& point : {AcGePoint2d(low.x, low.y), AcGePoint2d(high.x, low.y), AcGePoint2d(high.x, high.y),
                                     AcGePoint2d(low.x, high.y), AcGePoint2d(low.x, low.y)})
        places.append(point);
    return places;
}

}   // namespace

Acad::ErrorStatus CKxAcDb::SelectByPolygon(const AcGePoint2dArray& polygon, int crossing, AcDbObjectIdArray& ids,
                                           AcRxClass* cls, const wchar_t* space)
{
    ids.setLogicalLength(0);
    if (polygon.length() < 3)
        return Acad::eInvalidInput;
    return SelectIf(ids, cls, space, [&](const AcDbEntity& entity) {
        const AcGePoint2dArray places = PlacesOf(entity);
        bool isAllInside = !places.isEmpty(), meets = false;
        for (int i = 0; i < places.length(); ++i) {
            const bool isInside = Ge::PointInPolygon(places[i], polygon) != 0;
            isAllInside = isAllInside && isInside;
            meets = meets || isInside;
            if (i == 0)
                continue;
            AcGePoint2d at;
            for (int k = 0; k < polygon.length() && !(meets && crossing != 0); ++k)
                if (Ge::SegmentsMeet(places[i - 1], places[i], polygon[k], polygon[(k + 1) % polygon.length()], at)) {
                    meets = true;
                    isAllInside = false;
                }
        }
        return crossing != 0 ? meets : isAllInside;
    });
}

}   // namespace KxArxBase
