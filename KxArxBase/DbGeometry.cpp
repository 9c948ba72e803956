#include "DbGeometry.h"
#include "Opened.h"

namespace KxArxBase::Db {

namespace {

bool IsText(const AcDbEntity& entity)
{
    return entity.isKindOf(AcDbText::desc()) || entity.isKindOf(AcDbMText::desc());
}

}   // namespace

Acad::ErrorStatus GetExtents(AcDbExtents& result, const AcDbObjectIdArray& ids, int skipText)
{
    result = AcDbExtents();
    for (const AcDbObjectId& id : ids) {
        const Opened<AcDbEntity> entity(id, AcDb::kForRead);
        AcDbExtents extents;
        if (!entity || (skipText != 0 && IsText(*entity.get())) || entity->getGeomExtents(extents) != Acad::eOk)
            continue;
        result.addExt(extents);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AddExtents(AcDbExtents& extents, const AcArray<AcGePoint3d>& points)
{
    for (const AcGePoint3d& point : points)
        extents.addPoint(point);
    return Acad::eOk;
}

Acad::ErrorStatus SetPLinePt2D(AcDbPolyline* polyline, const AcArray<AcGePoint2d>& points)
{
    if (polyline == nullptr)
        return Acad::eInvalidInput;
    Acad::ErrorStatus es = polyline->reset(false, unsigned(points.length()));
    for (int i = 0; i < points.length() && es == Acad::eOk; ++i)
        es = polyline->addVertexAt(unsigned(i), points[i]);
    return es;
}

Acad::ErrorStatus SetPLinePt2D(AcDbObjectId polyline, const AcArray<AcGePoint2d>& points)
{
    const Opened<AcDbPolyline> opened(polyline, AcDb::kForWrite);
    return opened ? SetPLinePt2D(opened.get(), points) : opened.status();
}

Acad::ErrorStatus GetPLinePt2D(AcDbPolyline* polyline, AcArray<AcGePoint2d>& points)
{
    if (polyline == nullptr)
        return Acad::eInvalidInput;
    points.setLogicalLength(0);
    for (unsigned i = 0; i < polyline->numVerts(); ++i) {
        AcGePoint2d point;
        const Acad::ErrorStatus es = polyline->getPointAt(i, point);
        if (es != Acad::eOk)
            return es;
        points.append(point);
    }
    return Acad::eOk;
}

Acad::ErrorStatus GetPLinePt2D(AcDbObjectId polyline, AcArray<AcGePoint2d>& points)
{
    const Opened<AcDbPolyline> opened(polyline, AcDb::kForRead);
    return opened ? GetPLinePt2D(opened.get(), points) : opened.status();
}

}   // namespace KxArxBase::Db
