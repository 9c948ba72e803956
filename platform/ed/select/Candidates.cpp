#include "Candidates.h"
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbLayerTableRecord.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/Stub.h"

namespace KxPlat {

namespace {

const AcDbLayerTableRecord* LayerOf(const AcDbEntity& entity)
{
    const AcDbStub* layer = entity.layerId();
    return layer == nullptr || layer->object == nullptr ? nullptr
                                                        : static_cast<const AcDbLayerTableRecord*>(layer->object);
}

bool Reaches(const AcDbLayerTableRecord* layer, Reach reach)
{
    if (layer == nullptr || reach == Reach::Drawing)
        return true;
    return !layer->isFrozen() && !(reach == Reach::Unlocked && layer->isLocked()) &&
           !(reach == Reach::Visible && layer->isOff());
}

void Add(const AcDbBlockTableRecord& block, Reach reach, std::vector<AcDbObjectId>& ids)
{
    ids.reserve(ids.size() + block.entities().size());
    const AcDbStub* lastLayer = nullptr;
    bool isReached = true;
    for (AcDbStub* stub : block.entities()) {
        if (stub->erased || stub->object == nullptr)
            continue;
        if (reach != Reach::Drawing) {
            FetchAhead(stub);
            const AcDbEntity& entity = static_cast<const AcDbEntity&>(*stub->object);
            const AcDbStub* layer = entity.layerId();
            if (layer != lastLayer || layer == nullptr) {
                lastLayer = layer;
                isReached = Reaches(LayerOf(entity), reach);
            }
            if (!isReached || entity.visibility() == AcDb::kInvisible)
                continue;
        }
        ids.push_back(stub);
    }
}

const AcDbBlockTableRecord* CurrentSpace(AcDbDatabase& database)
{
    const AcDbStub* space = database.currentSpaceId();
    return space == nullptr ? nullptr : AcDbBlockTableRecord::cast(space->object);
}

}   // namespace

std::vector<AcDbObjectId> EntitiesOf(AcDbDatabase& database, Reach reach)
{
    std::vector<AcDbObjectId> ids;
    if (reach != Reach::Drawing) {
        if (const AcDbBlockTableRecord* space = CurrentSpace(database))
            Add(*space, reach, ids);
        return ids;
    }
    for (const AcDbStub* stub : CoreOf(database).Table(TableKind::Block)->records()) {
        const AcDbBlockTableRecord* block = stub->erased ? nullptr : AcDbBlockTableRecord::cast(stub->object);
        if (block != nullptr && (block->isModelSpace() || block->isPaperSpace() || block->isLayout()))
            Add(*block, reach, ids);
    }
    return ids;
}

bool IsReached(const AcDbEntity& entity, Reach reach)
{
    return Reaches(LayerOf(entity), reach) && (reach == Reach::Drawing || entity.visibility() == AcDb::kVisible);
}

bool IsOnLockedLayer(const AcDbEntity& entity)
{
    const AcDbLayerTableRecord* layer = LayerOf(entity);
    return layer != nullptr && layer->isLocked();
}

AcDbObjectId LastVisible(AcDbDatabase& database)
{
    const AcDbBlockTableRecord* space = CurrentSpace(database);
    if (space == nullptr)
        return AcDbObjectId();
    const std::vector<AcDbStub*>& entities = space->entities();
    for (size_t i = entities.size(); i-- > 0;) {
        const AcDbStub* stub = entities[i];
        if (!stub->erased && stub->object != nullptr &&
            IsReached(static_cast<const AcDbEntity&>(*stub->object), Reach::Visible))
            return entities[i];
    }
    return AcDbObjectId();
}

}   // namespace KxPlat
