// The checks of values, of blocks and of groups.
#include "../../win/Format.h"
#include "../AcDbBlockReference.h"
#include "../AcDbBlockTableRecord.h"
#include "../AcDbCircle.h"
#include "../AcDbDatabase.h"
#include "../AcDbEntity.h"
#include "../AcDbGroup.h"
#include "Audit.h"
#include "ClonerParts.h"
#include "ObjectAccess.h"
#include <algorithm>
#include <cmath>

namespace KxPlat {

// --- values ----------------------------------------------------------------------------------------------------------

namespace {

// How many reals stand behind a field, one after the other.
int RealsOf(const Field& field)
{
    switch (field.list != nullptr || field.isCount ? FieldType::Int16 : field.type) {
    case FieldType::Real:
        return 1;
    case FieldType::Point2:
        return 2;
    case FieldType::Point3:
        return 3;
    default:
        return 0;
    }
}

}   // namespace

// Numbers that are none, and normals without a direction, get what the class has by default.
void Audit::Values(AcDbStub* stub)
{
    for (const Section& section : stub->object->fields().sections())
        for (const Field& field : section.fields) {
            const int count = RealsOf(field);
            if (count == 0)
                continue;
            const double* values = &field.in<double>(*stub->object);
            const bool isNumber =
                std::all_of(values, values + count, [](double value) { return std::isfinite(value); });
            // A class that may have no normal says so by its default.
            const bool isNormal = field.code == 210 && count == 3 && field.defaultReal[2] != 0;
            const bool isFlat = isNormal && values[0] == 0 && values[1] == 0 && values[2] == 0;
            if (isNumber && !isFlat)
                continue;
            Found(stub, Format(isNumber ? L"group %d is no direction" : L"group %d is no number", int(field.code)),
                  L"set to its default",
                  [&](AcDbObject& object) { std::copy_n(field.defaultReal, count, &field.in<double>(object)); });
        }
    if (stub->object->isKindOf(AcDbEntity::desc()))
        EntityValues(stub);
}

void Audit::EntityValues(AcDbStub* stub)
{
    const AcDbEntity& entity = static_cast<const AcDbEntity&>(*stub->object);
    if (!(entity.linetypeScale() > 0))
        Found(stub, Format(L"linetype scale %g", entity.linetypeScale()), L"set to 1",
              [](AcDbObject& object) { static_cast<AcDbEntity&>(object).setLinetypeScale(1); });
    const AcDbCircle* circle = AcDbCircle::cast(stub->object);
    if (circle != nullptr && !(circle->radius() > 0))
        return EraseFound(stub, Format(L"radius %g", circle->radius()));
    const AcDbBlockReference* insert = AcDbBlockReference::cast(stub->object);
    if (insert == nullptr)
        return;
    const AcGeScale3d scale = insert->scaleFactors();
    if (scale.sx != 0 && scale.sy != 0 && scale.sz != 0)
        return;
    Found(stub, L"a scale factor is 0", L"set to 1", [&](AcDbObject& object) {
        const auto one = [](double factor) { return factor != 0 ? factor : 1.0; };
        static_cast<AcDbBlockReference&>(object).setScaleFactors(
            AcGeScale3d(one(scale.sx), one(scale.sy), one(scale.sz)));
    });
}

// --- blocks ----------------------------------------------------------------------------------------------------------

// Depth first through the insertions; one that leads back into its own block goes.
bool Audit::Closes(AcDbStub* block, std::vector<AcDbStub*>& path, std::unordered_set<AcDbStub*>& done)
{
    if (std::find(path.begin(), path.end(), block) != path.end())
        return true;
    if (!done.insert(block).second)
        return false;
    path.push_back(block);
    for (AcDbStub* entity : static_cast<AcDbBlockTableRecord*>(block->object)->entities()) {
        const AcDbBlockReference* insert = entity->erased ? nullptr : AcDbBlockReference::cast(entity->object);
        AcDbStub* target = insert == nullptr ? nullptr : static_cast<AcDbStub*>(insert->blockTableRecord());
        if (target != nullptr && AcDbBlockTableRecord::cast(target->object) != nullptr && Closes(target, path, done))
            EraseFound(entity, L"inserts a block into itself");
    }
    path.pop_back();
    return false;
}

void Audit::Blocks()
{
    const std::vector<AcDbStub*> blocks = m_core.Table(TableKind::Block)->records();
    for (AcDbStub* stub : blocks) {
        if (stub->erased)
            continue;
        AcDbBlockTableRecord& block = static_cast<AcDbBlockTableRecord&>(*stub->object);
        std::vector<AcDbStub*>& entities = block.entities();
        const auto isSecond = [&](AcDbStub* entity) {
            return entity->object != nullptr && !entity->erased && !m_listed.insert(entity).second;
        };
        const size_t before = entities.size();
        std::vector<AcDbStub*> kept;
        for (AcDbStub* entity : entities)
            if (!isSecond(entity))
                kept.push_back(entity);
        if (kept.size() != before)
            Found(stub, Format(L"lists %d entities twice", int(before - kept.size())), L"listed once",
                  [&](AcDbObject&) { entities = kept; });
        for (AcDbStub* entity : kept)
            if (entity->object != nullptr && !entity->erased && entity->object->ownerId() != AcDbObjectId(stub))
                Found(entity, L"is owned by something else than its block", L"given to its block",
                      [&](AcDbObject& object) { object.setOwnerId(stub); });
    }
    std::unordered_set<AcDbStub*> done;
    for (AcDbStub* stub : blocks) {
        std::vector<AcDbStub*> path;
        if (!stub->erased)
            Closes(stub, path, done);
    }
}

// --- groups ----------------------------------------------------------------------------------------------------------

void Audit::Groups()
{
    m_core.handles.ForEach([&](AcDbStub& stub) {
        const AcDbGroup* group = stub.object == nullptr || stub.erased ? nullptr : AcDbGroup::cast(stub.object);
        if (group == nullptr)
            return;
        const std::vector<AcDbObjectId> members = group->members();
        for (AcDbObjectId member : members) {
            AcDbStub* entity = member;
            if (entity != nullptr && entity->erased)
                continue;   // it may come back
            if (entity == nullptr || entity->object == nullptr)
                Found(&stub, Format(L"member %I64X is not there", uint64_t(member.handle())), L"removed",
                      [&](AcDbObject& object) { static_cast<AcDbGroup&>(object).dropMember(member); });
            else if (!entity->object->hasPersistentReactor(&stub))
                Found(entity, Format(L"does not know its group %I64X", stub.handle), L"told",
                      [&](AcDbObject& object) { object.addPersistentReactor(&stub); });
        }
    });
}

}   // namespace KxPlat
