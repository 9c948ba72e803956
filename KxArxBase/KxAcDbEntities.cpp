// Entities and objects: added, erased, purged, grouped, and their properties.
#include "DbPurge.h"
#include "KxAcDb.h"
#include "KxMessages.h"
#include "Opened.h"
#include <memory>
#include <unordered_set>

namespace KxArxBase {

namespace {

Acad::ErrorStatus Erase(const AcDbObjectId& id)
{
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus es = Reported([&] { return acdbOpenObject(opened, id, AcDb::kForWrite); });
    if (es != Acad::eOk)
        return es;
    return Opened<AcDbObject>(opened, es)->erase(true);
}

bool IsForeign(const AcDbBlockTableRecord& block)
{
    return block.isFromExternalReference() || block.isFromOverlayReference();
}

void CollectEntities(const AcDbBlockTableRecord& block, const AcRxClass* cls, AcDbObjectIdArray& ids)
{
    AcDbBlockTableRecordIterator* opened = nullptr;
    if (block.newIterator(opened) != Acad::eOk)
        return;
    const std::unique_ptr<AcDbBlockTableRecordIterator> it(opened);
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        it->getEntityId(id);
        if (cls == nullptr || (id.objectClass() != nullptr && id.objectClass()->isDerivedFrom(cls)))
            ids.append(id);
    }
}

struct Skipped {
    bool locked;
    bool invisible;
    bool hiddenLayers;

    bool Any() const { return locked || invisible || hiddenLayers; }
    bool Takes(AcDbObjectId id) const
    {
        const Opened<AcDbEntity> entity(id, AcDb::kForRead);
        if (!entity || (invisible && entity->visibility() == AcDb::kInvisible))
            return true;
        const Opened<AcDbLayerTableRecord> layer(entity->layerId(), AcDb::kForRead);
        return layer && ((locked && layer->isLocked()) || (hiddenLayers && (layer->isOff() || layer->isFrozen())));
    }
};

}   // namespace

Acad::ErrorStatus CKxAcDb::AddEntToSpace(AcDbEntity* ent, int closeIt, const wchar_t* space, AcDbObjectId* id)
{
    if (id != nullptr)
        id->setNull();
    AcDbSymbolTableRecord* opened = nullptr;
    Acad::ErrorStatus es =
        Reported([&] { return OpenRecWithEntyName(space, AcDbBlockTableRecord::desc(), opened, AcDb::kForWrite); });
    AcDbObjectId added;
    if (es == Acad::eOk) {
        Opened<AcDbSymbolTableRecord> block(opened, es);
        es = static_cast<AcDbBlockTableRecord*>(opened)->appendAcDbEntity(added, ent);
    }
    if (es == Acad::eOk && id != nullptr)
        *id = added;
    if (closeIt != 0) {
        if (es == Acad::eOk)
            ent->close();
        else
            delete ent;
    }
    return es;
}

Acad::ErrorStatus CKxAcDb::BlockRef(const wchar_t* block, const AcGePoint3d& position, AcGeScale3d scale,
                                    double rotation, int color, const wchar_t* space, const wchar_t* layer,
                                    const wchar_t* linetype, AcDbObjectId* id)
{
    if (id != nullptr)
        id->setNull();
    AcDbObjectId blockId;
    const Acad::ErrorStatus es = GetRecWithEntyName(block, AcDbBlockTableRecord::desc(), blockId);
    if (es != Acad::eOk)
        return es;
    auto* reference = new (std::nothrow) AcDbBlockReference(position, blockId);
    if (reference == nullptr)
        return Acad::eOutOfMemory;
    reference->setDatabaseDefaults(GetAcDb());
    SetEntityProperty(reference, &color, layer, linetype);
    reference->setScaleFactors(scale);
    reference->setPosition(position);
    reference->setRotation(rotation);
    return AddEntToSpace(reference, 1, space, id);
}

Acad::ErrorStatus CKxAcDb::EraseObject(const AcDbObjectId& id, int purge)
{
    const Acad::ErrorStatus es = Erase(id);
    if (es != Acad::eOk || purge == 0)
        return es;
    AcDbObjectIdArray ids;
    ids.append(id);
    return PurgeObjects(&ids);
}

Acad::ErrorStatus CKxAcDb::EraseObjects(const AcDbObjectIdArray& ids, int purge)
{
    Acad::ErrorStatus result = Acad::eOk;
    for (const AcDbObjectId& id : ids) {
        const Acad::ErrorStatus es = EraseObject(id, purge);
        if (es != Acad::eOk)
            result = es;
    }
    return result;
}

Acad::ErrorStatus CKxAcDb::PurgeObjects(AcDbObjectIdArray* ids)
{
    if (ids == nullptr)
        return Db::PurgeDatabase(GetAcDb());
    GetAcDb()->purge(*ids);
    return Acad::eOk;
}

Acad::ErrorStatus CKxAcDb::Group(const wchar_t* name, const AcDbObjectIdArray& ids, AcDbObjectId* groupId)
{
    if (groupId != nullptr)
        groupId->setNull();
    if (ids.isEmpty())
        return AsStatus(KxAcad::eNoObject);
    AcDbDictionary* opened = nullptr;
    Acad::ErrorStatus es = Reported([&] { return GetAcDb()->getGroupDictionary(opened, AcDb::kForWrite); });
    if (es != Acad::eOk)
        return es;
    Opened<AcDbDictionary> groups(opened, es);
    if (groups->has(name))
        return Acad::eDuplicateKey;
    auto group = std::make_unique<AcDbGroup>();
    AcDbObjectId id;
    es = groups->setAt(name, group.get(), id);
    if (es != Acad::eOk)
        return es;
    Opened<AcDbGroup> added(group.release(), es);
    es = added->append(ids);
    if (es != Acad::eOk)
        added->erase(true);
    else if (groupId != nullptr)
        *groupId = id;
    return es;
}

Acad::ErrorStatus CKxAcDb::SetEntityProperty(AcDbEntity* ent, const int* color, const wchar_t* layer,
                                             const wchar_t* linetype, const bool* visible)
{
    Acad::ErrorStatus result = Acad::eOk;
    const auto keep = [&result](Acad::ErrorStatus es) {
        if (es != Acad::eOk)
            result = es;
    };
    if (color != nullptr)
        keep(ent->setColorIndex(Adesk::UInt16(*color)));
    // Names are looked up here, since a new entity belongs to no database yet.
    AcDbObjectId record;
    if (layer != nullptr)
        keep(FindRec(layer, AcDbLayerTableRecord::desc(), record) ? ent->setLayer(record) : Acad::eKeyNotFound);
    if (linetype != nullptr)
        keep(FindRec(linetype, AcDbLinetypeTableRecord::desc(), record) ? ent->setLinetype(record)
                                                                        : Acad::eKeyNotFound);
    if (visible != nullptr)
        keep(ent->setVisibility(*visible ? AcDb::kVisible : AcDb::kInvisible));
    return result;
}

Acad::ErrorStatus CKxAcDb::SetEntitysProperty(const AcDbObjectIdArray& ids, const int* color, const wchar_t* layer,
                                              const wchar_t* linetype, const bool* visible)
{
    Acad::ErrorStatus result = Acad::eOk;
    for (const AcDbObjectId& id : ids) {
        Opened<AcDbEntity> entity(id, AcDb::kForWrite);
        const Acad::ErrorStatus es =
            entity ? SetEntityProperty(entity.get(), color, layer, linetype, visible) : entity.status();
        if (es != Acad::eOk)
            result = es;
    }
    return result;
}

Acad::ErrorStatus CKxAcDb::BlockTableGetEntityIds(AcDbObjectIdArray& ids, const wchar_t* block, AcRxClass* cls)
{
    ids.setLogicalLength(0);
    if (block != nullptr) {
        AcDbSymbolTableRecord* opened = nullptr;
        const Acad::ErrorStatus es =
            Reported([&] { return OpenRecWithEntyName(block, AcDbBlockTableRecord::desc(), opened, AcDb::kForRead); });
        if (es != Acad::eOk)
            return es;
        const Opened<AcDbSymbolTableRecord> record(opened, es);
        CollectEntities(*static_cast<AcDbBlockTableRecord*>(opened), cls, ids);
        return Acad::eOk;
    }
    AcDbSymbolTableIterator* opened = nullptr;
    const Acad::ErrorStatus es = NewIterator(AcDbBlockTable::desc(), opened);
    const std::unique_ptr<AcDbSymbolTableIterator> it(opened);
    if (es != Acad::eOk)
        return es;
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        it->getRecordId(id);
        const Opened<AcDbBlockTableRecord> record(id, AcDb::kForRead);
        if (record && !IsForeign(*record.get()))
            CollectEntities(*record.get(), cls, ids);
    }
    return Acad::eOk;
}

Acad::ErrorStatus CKxAcDb::GetDifferenceSetIds(const AcDbObjectIdArray& picked, AcDbObjectIdArray& others,
                                               AcRxClass* cls, bool skipLocked, bool skipInvisible,
                                               bool skipHiddenLayers, const wchar_t* space)
{
    others.setLogicalLength(0);
    AcDbSymbolTableRecord* opened = nullptr;
    const Acad::ErrorStatus es =
        Reported([&] { return OpenRecWithEntyName(space, AcDbBlockTableRecord::desc(), opened, AcDb::kForRead); });
    if (es != Acad::eOk)
        return es;
    AcDbObjectIdArray all;
    {
        const Opened<AcDbSymbolTableRecord> record(opened, es);
        CollectEntities(*static_cast<AcDbBlockTableRecord*>(opened), cls, all);
    }
    const std::unordered_set<AcDbObjectId> excluded(picked.begin(), picked.end());
    const Skipped skipped = {skipLocked, skipInvisible, skipHiddenLayers};
    for (const AcDbObjectId& id : all) {
        if (excluded.count(id) == 0 && !(skipped.Any() && skipped.Takes(id)))
            others.append(id);
    }
    return Acad::eOk;
}

}   // namespace KxArxBase
