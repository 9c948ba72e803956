#include "DbZValue.h"
#include "Opened.h"
#include "ResBufChain.h"
#include <memory>

namespace KxArxBase::Db {

namespace {

AcGeMatrix3d DropToPlane()
{
    AcGeMatrix3d map;
    map.entry[2][2] = 0.0;
    return map;
}

bool IsPointGroup(int code)
{
    return code >= 10 && code <= 18;
}

// By the groups that the host tells of the entity; false for one that has no points.
bool HasFlatPoints(const AcDbEntity& entity)
{
    ads_name name;
    if (acdbGetAdsName(name, entity.objectId()) != Acad::eOk)
        return false;
    const ResBufChain groups(acdbEntGet(name));
    bool hasPoints = false;
    for (const resbuf* group = groups.get(); group != nullptr; group = group->rbnext) {
        if (!IsPointGroup(group->restype))
            continue;
        hasPoints = true;
        if (group->resval.rpoint[Z] != 0.0)
            return false;
    }
    return hasPoints;
}

// The extents of a dimension are those of its picture, which say nothing of the points that it measures.
bool IsFlat(const AcDbEntity& entity)
{
    AcDbExtents extents;
    const bool hasExtents = entity.getGeomExtents(extents) == Acad::eOk;
    if (hasExtents && (extents.minPoint().z != 0.0 || extents.maxPoint().z != 0.0))
        return false;
    return (hasExtents && AcDbDimension::cast(&entity) == nullptr) || HasFlatPoints(entity);
}

AcGeVector3d NormalOf(const AcDbEntity& entity)
{
    AcGeMatrix3d axes;
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    entity.getEcs(axes);
    axes.getCoordSystem(origin, x, y, z);
    return z;
}

bool HasBulges(const AcDbEntity& entity)
{
    if (const AcDbPolyline* polyline = AcDbPolyline::cast(&entity))
        return polyline->hasBulges();
    const AcDb2dPolyline* old = AcDb2dPolyline::cast(&entity);
    if (old == nullptr)
        return false;
    const std::unique_ptr<AcDbObjectIterator> it(old->vertexIterator());
    for (; !it->done(); it->step()) {
        const Opened<AcDb2dVertex> vertex(it->objectId(), AcDb::kForRead);
        if (vertex && vertex->bulge() != 0.0)
            return true;
    }
    return false;
}

// A circle or an arc as an ellipse of equal axes; null for other entities.
std::unique_ptr<AcDbEllipse> AsEllipse(const AcDbEntity& entity)
{
    AcGeMatrix3d axes;
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    entity.getEcs(axes);
    axes.getCoordSystem(origin, x, y, z);
    std::unique_ptr<AcDbEllipse> ellipse;
    if (const AcDbCircle* circle = AcDbCircle::cast(&entity))
        ellipse = std::make_unique<AcDbEllipse>(circle->center(), z, x * circle->radius(), 1.0);
    else if (const AcDbArc* arc = AcDbArc::cast(&entity))
        ellipse =
            std::make_unique<AcDbEllipse>(arc->center(), z, x * arc->radius(), 1.0, arc->startAngle(), arc->endAngle());
    if (ellipse != nullptr)
        ellipse->setPropertiesFrom(&entity);
    return ellipse;
}

// Puts the flat ellipse in the entity's place and erases the entity.
Acad::ErrorStatus ReplaceByEllipse(AcDbEntity& entity, std::unique_ptr<AcDbEllipse> ellipse)
{
    Acad::ErrorStatus es = ellipse->transformBy(DropToPlane());
    if (es != Acad::eOk)
        return es;
    Opened<AcDbBlockTableRecord> block(entity.ownerId(), AcDb::kForWrite);
    AcDbObjectId id;
    es = block ? block->appendAcDbEntity(id, ellipse.get()) : block.status();
    if (es != Acad::eOk)
        return es;
    ellipse.release()->close();
    return entity.erase();
}

Acad::ErrorStatus Lay(AcDbEntity& entity, bool& changed);

void LayById(AcDbObjectId id, bool& changed)
{
    const Opened<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity)
        Lay(*entity.get(), changed);
}

Acad::ErrorStatus LayInsertion(AcDbBlockReference& reference, bool& changed)
{
    const double z = reference.position().z;
    Acad::ErrorStatus es = Acad::eOk;
    if (z != 0.0) {
        es = reference.transformBy(AcGeMatrix3d::translation(AcGeVector3d(0, 0, -z)));
        changed = es == Acad::eOk;
    }
    const std::unique_ptr<AcDbObjectIterator> it(reference.attributeIterator());
    for (; !it->done(); it->step())
        LayById(it->objectId(), changed);
    return es;
}

void LayPicture(AcDbObjectId block, bool& changed)
{
    const Opened<AcDbBlockTableRecord> picture(block, AcDb::kForRead);
    AcDbBlockTableRecordIterator* opened = nullptr;
    if (!picture || picture->newIterator(opened) != Acad::eOk)
        return;
    const std::unique_ptr<AcDbBlockTableRecordIterator> it(opened);
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        it->getEntityId(id);
        LayById(id, changed);
    }
}

Acad::ErrorStatus Lay(AcDbEntity& entity, bool& changed)
{
    if (AcDbBlockReference* reference = AcDbBlockReference::cast(&entity))
        return LayInsertion(*reference, changed);
    if (IsFlat(entity))
        return Acad::eOk;
    const AcGeVector3d normal = NormalOf(entity);
    if (!normal.isParallelTo(AcGeVector3d::kZAxis)) {
        if (normal.isPerpendicularTo(AcGeVector3d::kZAxis))
            return Acad::eDegenerateGeometry;
        if (auto ellipse = AsEllipse(entity)) {
            const Acad::ErrorStatus es = ReplaceByEllipse(entity, std::move(ellipse));
            changed = changed || es == Acad::eOk;
            return es;
        }
        if (HasBulges(entity))
            return Acad::eNotApplicable;
    }
    const Acad::ErrorStatus es = entity.transformBy(DropToPlane());
    changed = changed || es == Acad::eOk;
    const AcDbDimension* dimension = AcDbDimension::cast(&entity);
    if (es == Acad::eOk && dimension != nullptr)
        LayPicture(dimension->dimBlockId(), changed);
    return es;
}

}   // namespace

Acad::ErrorStatus SetZValueToZero(AcDbObjectId id, bool& changed)
{
    changed = false;
    Opened<AcDbEntity> entity(id, AcDb::kForRead);
    if (!entity)
        return entity.status();
    if (AcDbBlockReference::cast(entity.get()) == nullptr && IsFlat(*entity.get()))
        return Acad::eOk;
    const Acad::ErrorStatus es = entity->upgradeOpen();
    return es == Acad::eOk ? Lay(*entity.get(), changed) : es;
}

}   // namespace KxArxBase::Db
