#include "Audit.h"
#include "../../win/Format.h"
#include "../AcDbBlockReference.h"
#include "../AcDbBlockTableRecord.h"
#include "../AcDbDatabase.h"
#include "../AcDbDictionary.h"
#include "../AcDbEntity.h"
#include "../AcDbGroup.h"
#include "../AcDbProxyObject.h"
#include "../AcDbSymbolTable.h"
#include "ClonerParts.h"
#include "DefaultDrawing.h"
#include "ObjectAccess.h"
#include <algorithm>
#include <cmath>
#include <map>

namespace KxPlat {

namespace {

std::wstring TitleOf(const AcDbStub& stub)
{
    return Format(L"%s(%I64X)", stub.object->isA()->name(), stub.handle);
}

bool IsThere(const DbCore& core, AcDbObjectId id)
{
    const AcDbStub* stub = id;
    return stub != nullptr && stub->object != nullptr && !stub->erased && stub->database == core.database;
}

bool IsPlaceholder(AcDbObjectId id)
{
    const AcDbObject* object = ObjectOf(id);
    return object != nullptr && (ObjectAccess::State(*object) & kPlaceholder) != 0;
}

std::wstring HandleText(AcDbObjectId id)
{
    return Format(L"%I64X", uint64_t(id.handle()));
}

}   // namespace

void Audit::Found(AcDbStub* stub, std::wstring what, std::wstring fix, const std::function<void(AcDbObject&)>& change)
{
    m_findings.push_back({TitleOf(*stub), std::move(what), std::move(fix)});
    if (!m_fixes)
        return;
    // Repairs reach objects on locked layers, too.
    const bool wasWriting = stub->writing;
    stub->writing = true;
    stub->object->assertWriteEnabled();
    change(*stub->object);
    stub->writing = wasWriting;
}

void Audit::EraseFound(AcDbStub* stub, std::wstring what)
{
    Found(stub, std::move(what), L"erased", [this](AcDbObject& object) {
        if (object.erase() == Acad::eOk)
            ++m_erased;
    });
}

AcDbObjectId Audit::DefaultRecord(TableKind kind) const
{
    const AcDbDatabase& database = *m_core.database;
    switch (kind) {
    case TableKind::Layer:
        return database.layerZero();
    case TableKind::Linetype:
        return database.byLayerLinetype();
    case TableKind::TextStyle:
    case TableKind::DimStyle:
        return m_core.Table(kind)->find(L"Standard");
    default:
        return AcDbObjectId();
    }
}

// --- tables ----------------------------------------------------------------------------------------------------------

void Audit::RecordName(TableKind kind, AcDbStub* stub)
{
    AcDbSymbolTable& table = *m_core.Table(kind);
    const auto& record = static_cast<const AcDbSymbolTableRecord&>(*stub->object);
    const CString name = record.nameText();
    // Several views stand under the name of the active one.
    const bool isTwice = kind != TableKind::Viewport && !name.IsEmpty() && table.find(ViewOf(name)) != stub;
    if (!name.IsEmpty() && !isTwice)
        return;
    CString free;
    for (int i = 0;; ++i) {
        free.Format(L"%s$AUDIT%d", static_cast<const wchar_t*>(name), i);
        if (table.find(ViewOf(free)) == nullptr)
            break;
    }
    Found(stub, name.IsEmpty() ? L"has no name" : Format(L"name %s is there twice", name.GetString()),
          Format(L"named %s", free.GetString()), [&](AcDbObject& object) {
              AcDbSymbolTableRecord& renamed = static_cast<AcDbSymbolTableRecord&>(object);
              renamed.takeName(free);
              table.renamed(renamed, name);
              if (AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(&object))
                  block->nameBegin();
          });
}

void Audit::Records(TableKind kind)
{
    AcDbSymbolTable& table = *m_core.Table(kind);
    const std::vector<AcDbStub*> records = table.records();
    for (AcDbStub* stub : records) {
        if (stub->erased || stub->object == nullptr)
            continue;
        RecordName(kind, stub);
        if (stub->object->ownerId() != table.objectId())
            Found(stub, L"is owned by something else than its table", L"given to its table",
                  [&](AcDbObject& object) { object.setOwnerId(table.objectId()); });
    }
}

void Audit::Tables()
{
    for (size_t kind = 0; kind < kTableCount; ++kind)
        Records(TableKind(kind));
    AcDbDatabase& database = *m_core.database;
    const struct {
        const wchar_t* what;
        AcDbObjectId current;
        TableKind kind;
        Acad::ErrorStatus (AcDbDatabase::*set)(AcDbObjectId);
    } rows[] = {{L"current layer", database.clayer(), TableKind::Layer, &AcDbDatabase::setClayer},
                {L"current linetype", database.celtype(), TableKind::Linetype, &AcDbDatabase::setCeltype},
                {L"current text style", database.textstyle(), TableKind::TextStyle, &AcDbDatabase::setTextstyle},
                {L"current dimension style", database.dimstyle(), TableKind::DimStyle, &AcDbDatabase::setDimstyle}};
    for (const auto& row : rows) {
        const AcDbObjectId standard = DefaultRecord(row.kind);
        if (IsThere(m_core, row.current) || standard.isNull())
            continue;
        m_findings.push_back({L"header", std::wstring(row.what) + L" is not defined", L"set to the standard one"});
        if (m_fixes)
            (database.*row.set)(standard);
    }
}

// --- references ------------------------------------------------------------------------------------------------------

// A record that the object names. One that no table has is made where it can be: its name is all that a file had of it.
void Audit::Named(AcDbStub* stub, const Field& field)
{
    const AcDbObjectId id = field.in<AcDbObjectId>(*stub->object);
    if (id.isNull() || (IsThere(m_core, id) && !IsPlaceholder(id)))
        return;
    const CString name = ObjectOf(id) == nullptr ? CString(HandleText(id).c_str())
                                                 : static_cast<const AcDbSymbolTableRecord*>(ObjectOf(id))->nameText();
    const wchar_t* const kinds[] = {L"block", L"layer",    L"text style",  L"linetype",       L"view",
                                    L"UCS",   L"viewport", L"application", L"dimension style"};
    const std::wstring what = Format(L"%s %s is not defined", kinds[size_t(field.table)], name.GetString());
    if (field.table == TableKind::Block && stub->object->isKindOf(AcDbBlockReference::desc()))
        return EraseFound(stub, what);
    const AcDbObjectId standard = DefaultRecord(field.table);
    if (IsPlaceholder(id) && field.table == TableKind::Layer)
        return Found(stub, what, L"layer made", [&](AcDbObject& object) {
            AcDbStub* made = m_core.Table(field.table)->find(ViewOf(name));
            if (made == nullptr) {
                AcDbSymbolTableRecord* record = NewRecord(field.table);
                CopyFields(*record, *ObjectOf(standard));
                record->takeName(name);
                made = AttachRecord(m_core, field.table, record, 0);
            }
            field.in<AcDbObjectId>(object) = made;
        });
    Found(stub, what, standard.isNull() ? L"removed" : L"set to the standard one",
          [&](AcDbObject& object) { field.in<AcDbObjectId>(object) = standard; });
}

// A dictionary drops entries that name nothing.
void Audit::Entries(AcDbStub* stub)
{
    const AcDbDictionary* dictionary = AcDbDictionary::cast(stub->object);
    if (dictionary == nullptr)
        return;
    std::vector<AcDbDictionary::Entry> lost;
    for (const AcDbDictionary::Entry& entry : dictionary->entries())
        if (!IsThere(m_core, entry.id) && !entry.id.isErased())
            lost.push_back(entry);
    for (const AcDbDictionary::Entry& entry : lost)
        Found(stub,
              Format(L"entry %s names %s, which is not there", entry.name.GetString(), HandleText(entry.id).c_str()),
              L"removed", [&](AcDbObject& object) { static_cast<AcDbDictionary&>(object).dropEntry(entry.name); });
}

void Audit::References(AcDbStub* stub)
{
    for (const Section& section : stub->object->fields().sections())
        for (const Field& field : section.fields) {
            if (field.list == nullptr && field.type == FieldType::Name)
                Named(stub, field);
            if (stub->erased)
                return;
        }
    Entries(stub);
    if (stub->object->isKindOf(AcDbDictionary::desc()) || stub->object->isKindOf(AcDbGroup::desc()))
        return;
    std::vector<AcDbObjectId> lost;
    VisitReferences(*stub->object, [&](AcDbObjectId& id, Reference kind) {
        if (!id.isNull() && kind != Reference::None && !IsThere(m_core, id) && !IsPlaceholder(id))
            lost.push_back(id);
    });
    for (AcDbObjectId id : lost)
        Found(stub, Format(L"refers to %s, which is not there", HandleText(id).c_str()), L"removed",
              [&](AcDbObject& object) {
                  VisitReferences(object, [&](AcDbObjectId& each, Reference) {
                      if (each == id)
                          each.setNull();
                  });
                  if (ObjectAccess::Find(object) != nullptr)
                      std::erase(ObjectAccess::Make(object).reactors, AcDbObjectId());
              });
}

void Audit::Applications(AcDbStub* stub)
{
    const Annex* annex = ObjectAccess::Find(*stub->object);
    if (annex == nullptr)
        return;
    AcDbSymbolTable& table = *m_core.Table(TableKind::RegApp);
    std::vector<CString> unknown;
    for (const GroupValue& group : annex->xData)
        if (group.code == 1001 && table.find(ViewOf(group.text())) == nullptr)
            unknown.push_back(group.text());
    for (const CString& name : unknown) {
        if (table.find(ViewOf(name)) != nullptr)
            continue;   // made a moment ago
        Found(stub, Format(L"has data of %s, which is not registered", name.GetString()), L"registered",
              [&](AcDbObject&) {
                  AcDbSymbolTableRecord* record = NewRecord(TableKind::RegApp);
                  record->takeName(name);
                  AttachRecord(m_core, TableKind::RegApp, record, 0);
              });
    }
}

// --- place -----------------------------------------------------------------------------------------------------------

// Whether whoever owns the object lists it as well.
bool Audit::IsInPlace(const AcDbStub& stub) const
{
    const AcDbObject& object = *stub.object;
    const AcDbObject* owner = ObjectOf(object.ownerId());
    if (owner == nullptr || object.ownerId().isErased())
        return false;
    if (const AcDbDictionary* dictionary = AcDbDictionary::cast(owner)) {
        const AcDbObjectId id(const_cast<AcDbStub*>(&stub));
        return std::any_of(dictionary->entries().begin(), dictionary->entries().end(),
                           [&](const AcDbDictionary::Entry& entry) { return entry.id == id; });
    }
    return true;
}

// Objects besides entities that nobody owns cannot be reached any more.
void Audit::Place(AcDbStub* stub)
{
    const AcDbObject& object = *stub->object;
    const bool isRoot = stub == m_core.namedObjects || object.isKindOf(AcDbSymbolTable::desc());
    if (isRoot || object.isKindOf(AcDbEntity::desc()) || object.isKindOf(AcDbSymbolTableRecord::desc()) ||
        IsInPlace(*stub))
        return;
    EraseFound(stub, L"is owned by nothing");
}

void Audit::Objects()
{
    m_core.handles.ForEach([&](AcDbStub& stub) {
        if (stub.object == nullptr || stub.erased || IsPlaceholder(&stub) || AcDbObjectId(&stub).isEffectivelyErased())
            return;
        Place(&stub);
        if (!stub.erased)
            References(&stub);
        if (!stub.erased)
            Values(&stub);
        if (!stub.erased)
            Applications(&stub);
    });
}

void Audit::All()
{
    Tables();
    Blocks();
    Objects();
    Groups();
}

}   // namespace KxPlat
