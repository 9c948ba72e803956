// acdbEntMake: new entities, blocks and table records from lists of groups.
#include "../../db/AcDbBlockReference.h"
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbSequenceEnd.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/ObjectAccess.h"
#include "../../dxf/DxfClasses.h"
#include "../../dxf/DxfNames.h"
#include "../../win/CodePage.h"
#include "acdbads.h"
#include "DocumentSelection.h"
#include "PutGroups.h"
#include <memory>

using namespace KxPlat;

namespace {

// What a series of calls builds: a block, or an entity whose parts follow it.
struct EntityMaking : DocumentPart {
    AcDbObjectId block;
    AcDbObjectId whole;
};

EntityMaking& CurrentMaking()
{
    static EntityMaking ofNoDocument;
    AcApDocument* document = acDocManager->curDocument();
    return document == nullptr ? ofNoDocument : PartOf<EntityMaking>(*document);
}

// Without these groups an entity has no place.
struct Needed {
    const wchar_t* dxfName;
    int codes[3];
};

const Needed kNeeded[] = {{L"LINE", {10, 11, 10}},       {L"CIRCLE", {10, 40, 10}}, {L"ARC", {10, 40, 50}},
                          {L"POINT", {10, 10, 10}},      {L"TEXT", {10, 40, 1}},    {L"INSERT", {2, 10, 10}},
                          {L"LWPOLYLINE", {10, 10, 10}}, {L"MTEXT", {10, 1, 1}},    {L"ELLIPSE", {10, 11, 40}},
                          {L"VERTEX", {10, 10, 10}},     {L"ATTRIB", {10, 40, 2}},  {L"ATTDEF", {10, 40, 2}}};

bool IsComplete(const ObjectGroups& groups)
{
    for (const Needed& row : kNeeded)
        if (groups.dxfName == row.dxfName)
            for (const int code : row.codes)
                if (groups.Find(code) == nullptr)
                    return false;
    return true;
}

// Null for a class that is unknown or has no objects of its own.
std::unique_ptr<AcDbObject> NewObject(const ObjectGroups& groups)
{
    RecordSigns signs;
    for (const GroupValue& group : groups.groups)
        if (group.code == 100)
            signs.markers.push_back(ToUtf8(std::wstring_view(group.text())));
    if (const GroupValue* flags = groups.Find(70))
        signs.flags = flags->integer();
    if (const GroupValue* count = groups.Find(71))
        signs.count = count->integer();
    AcRxClass* aClass = DxfClasses().Choose(ToUtf8(std::wstring_view(groups.dxfName)), signs);
    AcRxObject* made = aClass == nullptr ? nullptr : aClass->create();
    AcDbObject* object = AcDbObject::cast(made);
    if (object == nullptr)
        delete made;
    return std::unique_ptr<AcDbObject>(object);
}

AcDbBlockTableRecord* BlockIn(const AcDbStub* stub)
{
    return stub == nullptr || stub->object == nullptr || stub->erased ? nullptr
                                                                      : AcDbBlockTableRecord::cast(stub->object);
}

void Erase(AcDbObjectId id)
{
    AcDbObject* object = nullptr;
    if (acdbOpenObject(object, id, AcDb::kForWrite) != Acad::eOk)
        return;
    object->erase();
    object->close();
}

// The block under construction, the space that group 67 names, or the current one.
AcDbObjectId OwnerFor(AcDbDatabase& database, const ObjectGroups& groups)
{
    if (BlockIn(CurrentMaking().block) != nullptr)
        return CurrentMaking().block;
    const GroupValue* space = groups.Find(67);
    if (space == nullptr)
        return database.currentSpaceId();
    const AcDbSymbolTable* blocks = CoreOf(database).Table(TableKind::Block);
    const AcDbBlockTableRecord* current = BlockIn(database.currentSpaceId());
    if (current != nullptr && current->isModelSpace() == (space->integer() == 0))
        return database.currentSpaceId();
    return blocks->find(space->integer() == 0 ? ACDB_MODEL_SPACE : ACDB_PAPER_SPACE);
}

Acad::ErrorStatus AppendTo(AcDbObjectId owner, AcDbEntity* entity)
{
    AcDbBlockTableRecord* block = nullptr;
    Acad::ErrorStatus status = acdbOpenObject(block, owner, AcDb::kForWrite);
    if (status != Acad::eOk)
        return status;
    status = block->appendAcDbEntity(entity);
    block->close();
    return status;
}

bool IsPart(const CString& dxfName)
{
    return dxfName == L"VERTEX" || dxfName == L"ATTRIB" || dxfName == L"SEQEND";
}

void AttachTo(AcDbObjectId whole, AcDbDatabase& database, AcDbEntity* part)
{
    AcDbEntity* owner = static_cast<AcDbEntity*>(static_cast<AcDbStub*>(whole)->object);
    if (part->layerId().isNull())
        part->setLayer(owner->layerId());
    part->setInPaperSpace(owner->isInPaperSpace());
    owner->attachPart(CoreOf(database).Adopt(part, 0, whole, false));
}

// A series of parts that was left without its end mark gets one.
void FinishWhole(AcDbDatabase& database)
{
    AcDbObjectId whole = CurrentMaking().whole;
    CurrentMaking().whole.setNull();
    if (whole.isNull() || !whole.isResident() || whole.isErased())
        return;
    const auto* owner = static_cast<const AcDbEntity*>(static_cast<AcDbStub*>(whole)->object);
    if (owner->parts() != nullptr && !owner->parts()->empty()) {
        AttachTo(whole, database, new AcDbSequenceEnd);
        return;
    }
    if (AcDbBlockReference::cast(owner) == nullptr)
        Erase(whole);
}

bool HasParts(const ObjectGroups& groups)
{
    const GroupValue* follow = groups.Find(66);
    return groups.dxfName == L"POLYLINE" ||
           (groups.dxfName == L"INSERT" && follow != nullptr && follow->integer() != 0);
}

int MakePart(AcDbDatabase& database, std::unique_ptr<AcDbObject> object, const ObjectGroups& groups, ads_name result)
{
    const AcDbObjectId whole = CurrentMaking().whole;
    AcDbEntity* entity = AcDbEntity::cast(object.get());
    if (whole.isNull() || entity == nullptr || PutGroups(*entity, database, groups) != Acad::eOk)
        return RTERROR;
    const bool isEnd = groups.dxfName == L"SEQEND";
    static_cast<void>(object.release());
    AttachTo(whole, database, entity);
    if (isEnd)
        CurrentMaking().whole.setNull();
    acdbGetAdsName(result, isEnd ? whole : entity->objectId());
    return RTNORM;
}

int MakeEntity(AcDbDatabase& database, std::unique_ptr<AcDbObject> object, const ObjectGroups& groups, ads_name result)
{
    AcDbEntity* entity = static_cast<AcDbEntity*>(object.get());
    entity->setDatabaseDefaults(&database);
    if (PutGroups(*entity, database, groups) != Acad::eOk || AppendTo(OwnerFor(database, groups), entity) != Acad::eOk)
        return RTERROR;
    static_cast<void>(object.release());
    acdbGetAdsName(result, entity->objectId());
    if (HasParts(groups))
        CurrentMaking().whole = entity->objectId();
    entity->close();
    return RTNORM;
}

int MakeRecord(AcDbDatabase& database, std::unique_ptr<AcDbObject> object, const ObjectGroups& groups, TableKind kind,
               ads_name result)
{
    auto* record = static_cast<AcDbSymbolTableRecord*>(object.get());
    const GroupValue* name = groups.Find(2);
    AcDbSymbolTable* table = nullptr;
    if (name == nullptr || record->setName(name->text()) != Acad::eOk ||
        PutGroups(*record, database, groups) != Acad::eOk ||
        acdbOpenObject(table, CoreOf(database).tables[size_t(kind)], AcDb::kForWrite) != Acad::eOk)
        return RTERROR;
    const Acad::ErrorStatus status = table->add(record);
    table->close();
    if (status != Acad::eOk)
        return RTERROR;
    static_cast<void>(object.release());
    acdbGetAdsName(result, record->objectId());
    record->close();
    return RTNORM;
}

// "*U" asks for the next free name of that kind.
CString FreeName(const AcDbSymbolTable& blocks, const CString& name)
{
    if (name.GetLength() != 2 || name[0] != L'*')
        return name;
    CString free;
    for (int number = 1; free.IsEmpty() || blocks.has(free); ++number)
        free.Format(L"%s%d", static_cast<const wchar_t*>(name), number);
    return free;
}

// A block of this name that is there already is emptied and defined anew.
int BeginBlock(AcDbDatabase& database, const ObjectGroups& groups, ads_name result)
{
    const GroupValue* given = groups.Find(2);
    AcDbBlockTable* blocks = nullptr;
    if (given == nullptr || database.getSymbolTable(blocks, AcDb::kForWrite) != Acad::eOk)
        return RTERROR;
    const CString name = FreeName(*blocks, given->text());
    AcDbBlockTableRecord* block = nullptr;
    Acad::ErrorStatus status = Acad::eOk;
    if (blocks->has(name)) {
        status = blocks->getAt(name, block, AcDb::kForWrite);
        if (status == Acad::eOk && (block->isModelSpace() || block->isPaperSpace() || block->isLayout())) {
            block->close();
            status = Acad::eInvalidBlockName;
        }
    } else {
        block = new AcDbBlockTableRecord;
        if (name[0] == L'*')
            block->takeName(name);
        else
            status = block->setName(name);
        if (status == Acad::eOk)
            status = blocks->add(block);
        if (status != Acad::eOk)
            delete block;
    }
    blocks->close();
    if (status != Acad::eOk)
        return RTERROR;
    const std::vector<AcDbStub*> old = block->entities();
    if (const GroupValue* x = groups.Find(10)) {
        const GroupValue *y = groups.Find(20), *z = groups.Find(30);
        block->setOrigin(AcGePoint3d(x->real(), y == nullptr ? 0 : y->real(), z == nullptr ? 0 : z->real()));
    }
    CurrentMaking().block = block->objectId();
    acdbGetAdsName(result, block->objectId());
    block->close();
    for (AcDbStub* stub : old)
        if (!stub->erased)
            Erase(stub);
    return RTNORM;
}

int EndBlock(ads_name result)
{
    const AcDbObjectId block = CurrentMaking().block;
    CurrentMaking().block.setNull();
    return acdbGetAdsName(result, block) == Acad::eOk ? RTNORM : RTERROR;
}

}   // namespace

int acdbEntMakeX(const resbuf* chain, ads_name result)
{
    AcDbDatabase* database = CurrentDatabase();
    if (database == nullptr || result == nullptr)
        return RTERROR;
    ads_name_clear(result);
    if (chain == nullptr) {
        FinishWhole(*database);
        CurrentMaking().block.setNull();
        return RTERROR;
    }
    ObjectGroups groups;
    if (!groups.Read(chain, database) || groups.dxfName.IsEmpty() || !IsComplete(groups))
        return RTERROR;
    groups.dxfName.MakeUpper();
    if (!IsPart(groups.dxfName))
        FinishWhole(*database);
    if (groups.dxfName == L"BLOCK")
        return BeginBlock(*database, groups, result);
    if (groups.dxfName == L"ENDBLK")
        return EndBlock(result);
    std::unique_ptr<AcDbObject> object = NewObject(groups);
    if (object == nullptr)
        return RTERROR;
    if (IsPart(groups.dxfName))
        return MakePart(*database, std::move(object), groups, result);
    if (AcDbEntity::cast(object.get()) != nullptr)
        return MakeEntity(*database, std::move(object), groups, result);
    for (const DxfTableName& table : kDxfTables)
        if (FromUtf8(table.name) == std::wstring_view(groups.dxfName))
            return MakeRecord(*database, std::move(object), groups, table.kind, result);
    // Other objects wait for the dictionary that they are added to.
    if (AcDbSymbolTable::cast(object.get()) != nullptr || PutGroups(*object, *database, groups) != Acad::eOk)
        return RTERROR;
    AcDbObject* made = object.release();
    AcDbObjectId id;
    database->addAcDbObject(id, made);
    made->close();
    acdbGetAdsName(result, id);
    return RTNORM;
}

int acdbEntMake(const resbuf* chain)
{
    ads_name result;
    return acdbEntMakeX(chain, result);
}
