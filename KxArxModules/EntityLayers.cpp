#include "EntityLayers.h"
#include "KxArxBase/Opened.h"
#include "WorkMeter.h"
#include <memory>

namespace KxArxModules {

using KxArxBase::CKxAcDb;
using KxArxBase::Opened;

AcDbObjectId LayerOf(AcDbObjectId entity)
{
    const Opened<AcDbEntity> opened(entity, AcDb::kForRead);
    return opened ? opened->layerId() : AcDbObjectId();
}

CString LayerName(AcDbObjectId layer)
{
    const Opened<AcDbLayerTableRecord> opened(layer, AcDb::kForRead);
    const ACHAR* name = nullptr;
    if (!opened || opened->getName(name) != Acad::eOk)
        return CString();
    return name;
}

bool IsLayerLocked(AcDbObjectId layer)
{
    const Opened<AcDbLayerTableRecord> opened(layer, AcDb::kForRead);
    return opened && opened->isLocked();
}

LayerSet LayersOf(const AcDbObjectIdArray& entities)
{
    LayerSet layers;
    for (const AcDbObjectId& id : entities) {
        const AcDbObjectId layer = LayerOf(id);
        if (!layer.isNull())
            layers.insert(layer);
    }
    return layers;
}

AcDbObjectIdArray SpacesOf(CKxAcDb& db)
{
    AcDbObjectIdArray spaces;
    AcDbSymbolTableIterator* opened = nullptr;
    if (db.NewIterator(AcDbBlockTable::desc(), opened) != Acad::eOk)
        return spaces;
    const std::unique_ptr<AcDbSymbolTableIterator> it(opened);
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        it->getRecordId(id);
        const Opened<AcDbBlockTableRecord> block(id, AcDb::kForRead);
        if (block && block->isLayout())
            spaces.append(id);
    }
    return spaces;
}

AcDbObjectIdArray EntitiesOnLayers(AcDbObjectId block, const LayerSet& layers)
{
    AcDbObjectIdArray entities;
    const Opened<AcDbBlockTableRecord> record(block, AcDb::kForRead);
    AcDbBlockTableRecordIterator* opened = nullptr;
    if (!record || record->newIterator(opened) != Acad::eOk)
        return entities;
    const std::unique_ptr<AcDbBlockTableRecordIterator> it(opened);
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        it->getEntityId(id);
        if (layers.count(LayerOf(id)) != 0)
            entities.append(id);
    }
    return entities;
}

Moved MoveToLayer(const AcDbObjectIdArray& entities, AcDbObjectId layer)
{
    Moved result;
    WorkMeter meter(LayerName(layer), entities.length());
    for (const AcDbObjectId& id : entities) {
        meter.Step();
        Opened<AcDbEntity> entity(id, AcDb::kForRead);
        if (!entity || entity->layerId() == layer)
            continue;
        const Acad::ErrorStatus es = entity->upgradeOpen();
        if (es == Acad::eOk && entity->setLayer(layer) == Acad::eOk)
            ++result.moved;
        else if (es == Acad::eOnLockedLayer)
            ++result.locked;
    }
    return result;
}

}   // namespace KxArxModules
