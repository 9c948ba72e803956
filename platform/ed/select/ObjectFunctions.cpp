// Names of objects, and the walk from one entity to the next.
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbRegAppTableRecord.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/ObjectAccess.h"
#include "../../db/core/Stub.h"
#include "../../rx/ResBufs.h"
#include "acdbads.h"
#include "DocumentSelection.h"
#include "EntityGroups.h"

using namespace KxPlat;

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name)
{
    if (name == nullptr || ads_name_nil(name) || IsSelectionSetName(name))
        return Acad::eInvalidAdsName;
    id.setFromOldId(name[0]);
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetAdsName(ads_name name, AcDbObjectId id)
{
    ads_name_clear(name);
    if (id.isNull())
        return Acad::eNullObjectId;
    name[0] = id.asOldId();
    return Acad::eOk;
}

int acdbHandEnt(const ACHAR* handle, ads_name result)
{
    AcDbDatabase* database = CurrentDatabase();
    AcDbObjectId id;
    if (handle == nullptr || *handle == 0 || database == nullptr ||
        database->getAcDbObjectId(id, false, AcDbHandle(handle)) != Acad::eOk)
        return RTERROR;
    return acdbGetAdsName(result, id) == Acad::eOk ? RTNORM : RTERROR;
}

resbuf* acdbEntGet(const ads_name entity)
{
    return acdbEntGetX(entity, nullptr);
}

resbuf* acdbEntGetX(const ads_name entity, const resbuf* apps)
{
    AcDbObjectId id;
    if (acdbGetObjectId(id, entity) != Acad::eOk)
        return nullptr;
    std::vector<std::wstring> names;
    for (; apps != nullptr; apps = apps->rbnext)
        if (ResKindOf(apps->restype) == ResKind::Text && apps->resval.rstring != nullptr)
            names.emplace_back(apps->resval.rstring);
    return ChainForPrograms(GroupsForPrograms(id, names));
}

int acdbEntDel(const ads_name entity)
{
    AcDbObjectId id;
    AcDbObject* object = nullptr;
    if (acdbGetObjectId(id, entity) != Acad::eOk || acdbOpenObject(object, id, AcDb::kForWrite, true) != Acad::eOk)
        return RTERROR;
    const Acad::ErrorStatus status = object->erase(!object->isErased());
    object->close();
    return status == Acad::eOk ? RTNORM : RTERROR;
}

int acdbEntUpd(const ads_name entity)
{
    AcDbObjectId id;
    return acdbGetObjectId(id, entity) == Acad::eOk && id.isResident() ? RTNORM : RTERROR;
}

namespace {

const AcDbBlockTableRecord* BlockOf(const AcDbStub* stub)
{
    return stub == nullptr || stub->object == nullptr ? nullptr : AcDbBlockTableRecord::cast(stub->object);
}

AcDbStub* FirstLive(const std::vector<AcDbStub*>& stubs, size_t from)
{
    for (size_t i = from; i < stubs.size(); ++i)
        if (!stubs[i]->erased && stubs[i]->object != nullptr)
            return stubs[i];
    return nullptr;
}

// Programs walk from one entity to the next: the place found last is where the search begins.
size_t PlaceIn(const std::vector<AcDbStub*>& stubs, const AcDbStub* stub)
{
    static size_t lastPlace = 0;
    for (const size_t guess : {lastPlace, lastPlace + 1})
        if (guess < stubs.size() && stubs[guess] == stub)
            return lastPlace = guess;
    const auto found = std::find(stubs.begin(), stubs.end(), stub);
    return lastPlace = size_t(found - stubs.begin());
}

// The spaces of a drawing in the order of a walk: the model space, then the layouts.
std::vector<const AcDbBlockTableRecord*> Spaces(AcDbDatabase& database)
{
    std::vector<const AcDbBlockTableRecord*> spaces;
    for (const bool isModel : {true, false})
        for (const AcDbStub* stub : CoreOf(database).Table(TableKind::Block)->records()) {
            const AcDbBlockTableRecord* block = stub->erased ? nullptr : BlockOf(stub);
            if (block != nullptr && block->isModelSpace() == isModel &&
                (isModel || block->isPaperSpace() || block->isLayout()))
                spaces.push_back(block);
        }
    return spaces;
}

// In the spaces from the one behind `after` on; null for all of them.
AcDbStub* FirstInSpaces(AcDbDatabase& database, const AcDbBlockTableRecord* after)
{
    bool isReached = after == nullptr;
    for (const AcDbBlockTableRecord* space : Spaces(database)) {
        if (isReached)
            if (AcDbStub* first = FirstLive(space->entities(), 0))
                return first;
        isReached = isReached || space == after;
    }
    return nullptr;
}

AcDbStub* NextBehind(AcDbDatabase& database, const AcDbStub* stub, bool intoParts)
{
    const AcDbEntity* entity = stub->object == nullptr ? nullptr : AcDbEntity::cast(stub->object);
    if (entity == nullptr)
        return nullptr;
    if (intoParts && entity->parts() != nullptr)
        if (AcDbStub* first = FirstLive(*entity->parts(), 0))
            return first;
    const AcDbStub* owner = ObjectAccess::Owner(*stub->object);
    if (const AcDbBlockTableRecord* block = BlockOf(owner)) {
        if (AcDbStub* next = FirstLive(block->entities(), PlaceIn(block->entities(), stub) + 1))
            return next;
        const bool isSpace = block->isModelSpace() || block->isPaperSpace() || block->isLayout();
        return isSpace ? FirstInSpaces(database, block) : nullptr;
    }
    const AcDbEntity* whole = owner == nullptr || owner->object == nullptr ? nullptr : AcDbEntity::cast(owner->object);
    if (whole == nullptr || whole->parts() == nullptr)
        return nullptr;
    const std::vector<AcDbStub*>& parts = *whole->parts();
    if (AcDbStub* next = FirstLive(parts, size_t(std::find(parts.begin(), parts.end(), stub) - parts.begin()) + 1))
        return next;
    return NextBehind(database, owner, false);
}

int Give(AcDbStub* stub, ads_name result)
{
    return stub != nullptr && acdbGetAdsName(result, stub) == Acad::eOk ? RTNORM : RTERROR;
}

}   // namespace

int acdbEntNext(const ads_name entity, ads_name result)
{
    AcDbDatabase* database = CurrentDatabase();
    if (database == nullptr || result == nullptr)
        return RTERROR;
    if (entity == nullptr || ads_name_nil(entity))
        return Give(FirstInSpaces(*database, nullptr), result);
    AcDbObjectId id;
    if (acdbGetObjectId(id, entity) != Acad::eOk)
        return RTERROR;
    return Give(NextBehind(*database, id, true), result);
}

int acdbEntLast(ads_name result)
{
    AcDbDatabase* database = CurrentDatabase();
    const AcDbBlockTableRecord* space = database == nullptr ? nullptr : BlockOf(database->currentSpaceId());
    if (space == nullptr || result == nullptr)
        return RTERROR;
    const std::vector<AcDbStub*>& entities = space->entities();
    for (size_t i = entities.size(); i-- > 0;)
        if (!entities[i]->erased && entities[i]->object != nullptr)
            return Give(entities[i], result);
    return RTERROR;
}

int acdbRegApp(const ACHAR* name)
{
    AcDbDatabase* database = CurrentDatabase();
    AcDbRegAppTable* table = nullptr;
    if (name == nullptr || *name == 0 || database == nullptr ||
        database->getSymbolTable(table, AcDb::kForRead) != Acad::eOk)
        return RTERROR;
    Acad::ErrorStatus status = Acad::eOk;
    if (!table->has(name)) {
        auto* record = new AcDbRegAppTableRecord;
        status = record->setName(name);
        if (status == Acad::eOk)
            status = table->upgradeOpen();
        if (status == Acad::eOk)
            status = table->add(record);
        if (status == Acad::eOk)
            record->close();
        else
            delete record;
    }
    table->close();
    return status == Acad::eOk ? RTNORM : RTERROR;
}
