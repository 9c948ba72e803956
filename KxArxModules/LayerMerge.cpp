#include "LayerMerge.h"
#include "EntityLayers.h"
#include "KxArxBase/Opened.h"
#include <functional>
#include <memory>

namespace KxArxModules {

using KxArxBase::CKxAcDb;
using KxArxBase::Opened;

namespace {

using EntityVisitor = std::function<void(AcDbObjectId entity, bool isInSpace)>;

void VisitAttributes(AcDbObjectId entity, bool isInSpace, const EntityVisitor& visit)
{
    if (!entity.objectClass()->isDerivedFrom(AcDbBlockReference::desc()))
        return;
    AcDbObjectIdArray attributes;
    {
        const Opened<AcDbBlockReference> reference(entity, AcDb::kForRead);
        if (!reference)
            return;
        const std::unique_ptr<AcDbObjectIterator> it(reference->attributeIterator());
        for (; !it->done(); it->step())
            attributes.append(it->objectId());
    }
    for (const AcDbObjectId& id : attributes)
        visit(id, isInSpace);
}

AcDbObjectIdArray EntitiesOf(AcDbBlockTableRecord& block)
{
    AcDbObjectIdArray entities;
    AcDbBlockTableRecordIterator* opened = nullptr;
    if (block.newIterator(opened) != Acad::eOk)
        return entities;
    const std::unique_ptr<AcDbBlockTableRecordIterator> it(opened);
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        it->getEntityId(id);
        entities.append(id);
    }
    return entities;
}

// The records of begin and end, which lie on layers too but are no objects to a user.
AcDbObjectIdArray FrameOf(AcDbBlockTableRecord& block)
{
    AcDbObjectIdArray frame;
    AcDbBlockBegin* begin = nullptr;
    AcDbBlockEnd* end = nullptr;
    if (block.openBlockBegin(begin) == Acad::eOk) {
        frame.append(begin->objectId());
        begin->close();
    }
    if (block.openBlockEnd(end) == Acad::eOk) {
        frame.append(end->objectId());
        end->close();
    }
    return frame;
}

void VisitBlock(AcDbObjectId block, const EntityVisitor& visit, const std::function<void(AcDbObjectId)>& visitFrame)
{
    AcDbObjectIdArray entities, frame;
    bool isInSpace = false;
    {
        const Opened<AcDbBlockTableRecord> record(block, AcDb::kForRead);
        if (!record)
            return;
        isInSpace = record->isLayout();
        entities = EntitiesOf(*record.get());
        frame = FrameOf(*record.get());
    }
    for (const AcDbObjectId& id : entities) {
        visit(id, isInSpace);
        VisitAttributes(id, isInSpace, visit);
    }
    for (const AcDbObjectId& id : frame)
        visitFrame(id);
}

void VisitDrawing(CKxAcDb& db, const EntityVisitor& visit, const std::function<void(AcDbObjectId)>& visitFrame)
{
    AcDbSymbolTableIterator* opened = nullptr;
    if (db.NewIterator(AcDbBlockTable::desc(), opened) != Acad::eOk)
        return;
    const std::unique_ptr<AcDbSymbolTableIterator> it(opened);
    for (; !it->done(); it->step()) {
        AcDbObjectId block;
        it->getRecordId(block);
        VisitBlock(block, visit, visitFrame);
    }
}

// Takes locks off layers and puts them back where the layer still lives.
class Unlocked {
public:
    explicit Unlocked(const LayerSet& layers)
    {
        for (AcDbObjectId id : layers) {
            if (!IsLayerLocked(id))
                continue;
            m_locked.push_back(id);
            SetLocked(id, false);
        }
    }
    ~Unlocked()
    {
        for (AcDbObjectId id : m_locked)
            SetLocked(id, true);
    }
    Unlocked(const Unlocked&) = delete;
    Unlocked& operator=(const Unlocked&) = delete;

private:
    static void SetLocked(AcDbObjectId id, bool locked)
    {
        Opened<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
        if (layer)
            layer->setIsLocked(locked);
    }
    std::vector<AcDbObjectId> m_locked;
};

bool Erase(AcDbObjectId layer)
{
    Opened<AcDbLayerTableRecord> record(layer, AcDb::kForWrite);
    return record && record->erase() == Acad::eOk;
}

// Erases the layers that nothing refers to any more.
void Purge(CKxAcDb& db, const std::vector<AcDbObjectId>& layers, MergeResult& result)
{
    AcDbObjectIdArray unused;
    for (AcDbObjectId id : layers)
        unused.append(id);
    db.PurgeObjects(&unused);
    for (AcDbObjectId id : layers) {
        const CString name = LayerName(id);
        if (unused.contains(id) && Erase(id))
            ++result.purged;
        else
            result.kept.push_back(name);
    }
}

}   // namespace

LayerCounts::LayerCounts(CKxAcDb& db)
{
    const auto count = [this](AcDbObjectId id, bool isInSpace) {
        LayerContents& contents = m_counts[LayerOf(id)];
        ++(isInSpace ? contents.inSpaces : contents.inBlocks);
    };
    VisitDrawing(db, count, [](AcDbObjectId) {});
}

LayerContents LayerCounts::Of(AcDbObjectId layer) const
{
    const auto found = m_counts.find(layer);
    return found == m_counts.end() ? LayerContents() : found->second;
}

MergeResult MergeLayers(CKxAcDb& db, const std::vector<AcDbObjectId>& sources, AcDbObjectId target)
{
    MergeResult result;
    const LayerSet layers(sources.begin(), sources.end());
    {
        const Unlocked unlocked(layers);
        const auto move = [&](AcDbObjectId id) {
            Opened<AcDbEntity> entity(id, AcDb::kForRead);
            return entity && layers.count(entity->layerId()) != 0 && entity->upgradeOpen() == Acad::eOk &&
                   entity->setLayer(target) == Acad::eOk;
        };
        VisitDrawing(
            db, [&](AcDbObjectId id, bool) { result.moved += move(id) ? 1 : 0; }, [&](AcDbObjectId id) { move(id); });
    }
    if (layers.count(db.GetAcDb()->clayer()) != 0)
        db.GetAcDb()->setClayer(target);
    Purge(db, sources, result);
    return result;
}

}   // namespace KxArxModules
