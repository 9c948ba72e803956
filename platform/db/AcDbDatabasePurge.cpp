// What a drawing could do without: found by walking the references of every live object.
#include "AcDbBlockTableRecord.h"
#include "AcDbDatabase.h"
#include "AcDbDictionary.h"
#include "AcDbEntity.h"
#include "core/DbCore.h"
#include "core/EraseUnused.h"
#include "core/NamingLists.h"
#include "core/ObjectAccess.h"
#include <unordered_map>
#include <unordered_set>

using namespace KxPlat;

namespace {

// Owners that a damaged file closed to a ring are followed no further than any real chain goes.
const int kDeepestOwner = 64;

// Only references from objects that are themselves there count, and the header's from no object at all.
template <class Visit>
void ForEachHardReference(DbCore& core, Visit&& visit)
{
    core.handles.ForEach([&](AcDbStub& stub) {
        if (stub.object == nullptr || AcDbObjectId(&stub).isEffectivelyErased())
            return;
        VisitReferences(*stub.object, [&](AcDbObjectId& id, Reference kind) {
            if (!id.isNull() && (kind == Reference::HardPointer || kind == Reference::HardOwner))
                visit(&stub, id);
        });
    });
}

template <class Visit>
void ForEachNameInXData(DbCore& core, Visit&& visit)
{
    const struct {
        int code;
        TableKind table;
    } rows[] = {{1001, TableKind::RegApp}, {1003, TableKind::Layer}};
    core.handles.ForEach([&](AcDbStub& stub) {
        if (stub.object == nullptr || AcDbObjectId(&stub).isEffectivelyErased())
            return;
        ForEachNamingList(*stub.object, [&](const GroupList& groups) {
            for (const GroupValue& group : groups)
                for (const auto& row : rows)
                    if (group.code == row.code)
                        if (AcDbStub* named = core.Table(row.table)->find(std::wstring_view(group.text())))
                            visit(named);
        });
    });
}

// Records that the header names are in use, whatever the entities say.
std::unordered_set<AcDbStub*> NamedByHeader(const AcDbDatabase& database)
{
    std::unordered_set<AcDbStub*> named;
    for (AcDbObjectId id : {database.clayer(), database.celtype(), database.textstyle(), database.dimstyle()})
        named.insert(id);
    return named;
}

bool MayGo(const DbCore& core, AcDbStub* stub)
{
    if (stub == nullptr || stub->object == nullptr || stub->erased || stub->database != core.database)
        return false;
    const AcDbObject& object = *stub->object;
    if (const AcDbSymbolTableRecord* record = AcDbSymbolTableRecord::cast(&object)) {
        const AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(record);
        const bool isXref = block != nullptr && (block->isFromExternalReference() || block->isFromOverlayReference());
        return record->isPurgeable() && !isXref && !record->isDependent();
    }
    // Other objects go only out of dictionaries that do not hold them hard.
    const AcDbStub* owner = object.ownerId();
    const AcDbDictionary* dictionary = owner == nullptr ? nullptr : AcDbDictionary::cast(owner->object);
    return dictionary != nullptr && !object.isKindOf(AcDbDictionary::desc());
}

}   // namespace

Acad::ErrorStatus AcDbDatabase::purge(AcDbObjectIdArray& ids)
{
    std::unordered_set<AcDbStub*> candidates;
    for (int i = 0; i < ids.length(); ++i)
        if (MayGo(*m_core, ids.at(i)))
            candidates.insert(ids.at(i));
    for (AcDbStub* named : NamedByHeader(*this))
        candidates.erase(named);
    ForEachNameInXData(*m_core, [&](AcDbStub* named) { candidates.erase(named); });
    // A definition does not keep itself: what stands inside it goes with it.
    ForEachHardReference(*m_core, [&](AcDbStub* from, AcDbStub* to) {
        AcDbStub* at = from;
        for (int depth = 0; at != nullptr && depth < kDeepestOwner; ++depth, at = ObjectAccess::Owner(*at->object)) {
            if (at == to)
                return;
            if (at->object == nullptr || AcDbSymbolTableRecord::cast(at->object) != nullptr)
                break;
        }
        const AcDbStub* owner = from;
        if (owner->object != nullptr && owner->object->isKindOf(AcDbDictionary::desc()))
            return;   // being listed is not being used
        candidates.erase(to);
    });
    AcDbObjectIdArray kept;
    for (int i = 0; i < ids.length(); ++i)
        if (candidates.count(ids.at(i)) != 0)
            kept.append(ids.at(i));
    ids = kept;
    return Acad::eOk;
}

Acad::ErrorStatus KxPlat::EraseUnused(AcDbObject& object)
{
    ObjectAccess::State(object) |= kKnownUnused;
    const Acad::ErrorStatus status = object.erase();
    ObjectAccess::State(object) &= ~kKnownUnused;
    return status;
}

Acad::ErrorStatus AcDbDatabase::countHardReferences(const AcDbObjectIdArray& ids, Adesk::UInt32* counts)
{
    if (counts == nullptr)
        return Acad::eInvalidInput;
    std::unordered_map<AcDbStub*, Adesk::UInt32> found;
    for (int i = 0; i < ids.length(); ++i)
        found[ids.at(i)] = 0;
    ForEachHardReference(*m_core, [&](AcDbStub*, AcDbStub* to) {
        auto place = found.find(to);
        if (place != found.end())
            ++place->second;
    });
    for (int i = 0; i < ids.length(); ++i)
        counts[i] = found[ids.at(i)];
    return Acad::eOk;
}
