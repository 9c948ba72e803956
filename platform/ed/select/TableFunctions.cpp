// Symbol tables and dictionaries by name, and walks through them.
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbDictionary.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/GroupResbuf.h"
#include "../../rx/acutads.h"
#include "../../rx/ResBufs.h"
#include "../../win/CharTables.h"
#include "acdbads.h"
#include "DocumentSelection.h"
#include "EntityGroups.h"
#include <map>

using namespace KxPlat;

namespace {

struct TableName {
    const wchar_t* name;
    TableKind kind;
};

const TableName kTables[] = {
    {L"LAYER", TableKind::Layer},     {L"LTYPE", TableKind::Linetype},    {L"VIEW", TableKind::View},
    {L"STYLE", TableKind::TextStyle}, {L"BLOCK", TableKind::Block},       {L"UCS", TableKind::Ucs},
    {L"APPID", TableKind::RegApp},    {L"DIMSTYLE", TableKind::DimStyle}, {L"VPORT", TableKind::Viewport},
};

// Where the walks of a document stand: by table, and by dictionary.
struct Walks : DocumentPart {
    std::map<TableKind, size_t> tables;
    std::map<AcDbStub*, size_t> dictionaries;
};

Walks& CurrentWalks()
{
    static Walks ofNoDocument;
    AcApDocument* document = acDocManager->curDocument();
    return document == nullptr ? ofNoDocument : PartOf<Walks>(*document);
}

const AcDbSymbolTable* TableNamed(const ACHAR* name, TableKind& kind)
{
    AcDbDatabase* database = CurrentDatabase();
    if (database != nullptr && name != nullptr)
        for (const TableName& row : kTables)
            if (EqualNoCase(name, row.name)) {
                kind = row.kind;
                return CoreOf(*database).Table(row.kind);
            }
    return nullptr;
}

// Block definitions of programs: the spaces are no blocks to them.
bool IsShown(const AcDbStub* stub)
{
    if (stub->erased || stub->object == nullptr)
        return false;
    const auto* block = AcDbBlockTableRecord::cast(stub->object);
    return block == nullptr || !(block->isModelSpace() || block->isPaperSpace() || block->isLayout());
}

resbuf* NamePair(int code, AcDbObjectId id)
{
    ads_name name;
    return acdbGetAdsName(name, id) == Acad::eOk ? NewNameRb(code, name) : nullptr;
}

// A block's first entity stands in group -2, its base point and flags as its definition has them.
resbuf* BlockChain(const AcDbBlockTableRecord& block)
{
    ChainBuilder chain;
    chain.Add(NewTextRb(0, L"BLOCK"));
    chain.Add(NewTextRb(2, std::wstring_view(block.nameText())));
    chain.Add(NewShortRb(70, block.blockFlags()));
    const AcGePoint3d origin = block.origin();
    chain.Add(NewPointRb(10, origin.x, origin.y, origin.z));
    for (const AcDbStub* stub : block.entities())
        if (!stub->erased && stub->object != nullptr) {
            chain.Add(NamePair(-2, const_cast<AcDbStub*>(stub)));
            return chain.Take();
        }
    chain.Add(NamePair(-2, block.endStub()));
    return chain.Take();
}

// Group 0 and the record's plain data: no names of objects, and nothing that points to other objects.
resbuf* RecordChain(AcDbStub* stub)
{
    if (const auto* block = AcDbBlockTableRecord::cast(stub->object))
        return BlockChain(*block);
    GroupList groups = GroupsForPrograms(stub);
    std::erase_if(groups, [](const GroupValue& group) {
        return group.code < 0 || group.code == 5 || (group.code >= 100 && group.code <= 105) || group.code >= 290;
    });
    return ChainForPrograms(groups);
}

size_t NextShown(const AcDbSymbolTable& table, size_t from)
{
    while (from < table.records().size() && !IsShown(table.records()[from]))
        ++from;
    return from;
}

const AcDbDictionary* DictionaryNamed(const ads_name name)
{
    AcDbObjectId id;
    if (acdbGetObjectId(id, name) != Acad::eOk || !id.isResident() || id.isErased())
        return nullptr;
    return AcDbDictionary::cast(static_cast<AcDbStub*>(id)->object);
}

resbuf* EntryChain(const AcDbDictionary::Entry& entry)
{
    return ChainForPrograms(GroupsForPrograms(entry.id));
}

AcDbDictionary* OpenDictionary(const ads_name name)
{
    AcDbObjectId id;
    AcDbDictionary* dictionary = nullptr;
    if (acdbGetObjectId(id, name) == Acad::eOk)
        acdbOpenObject(dictionary, id, AcDb::kForWrite);
    return dictionary;
}

}   // namespace

resbuf* acdbTblSearch(const ACHAR* tableName, const ACHAR* name, int setNext)
{
    TableKind kind = TableKind::Count;
    const AcDbSymbolTable* table = TableNamed(tableName, kind);
    AcDbStub* found = table == nullptr || name == nullptr ? nullptr : table->find(name);
    if (found == nullptr || !IsShown(found))
        return nullptr;
    if (setNext != 0) {
        const auto& records = table->records();
        CurrentWalks().tables[kind] = size_t(std::find(records.begin(), records.end(), found) - records.begin()) + 1;
    }
    return RecordChain(found);
}

resbuf* acdbTblNext(const ACHAR* tableName, int rewind)
{
    TableKind kind = TableKind::Count;
    const AcDbSymbolTable* table = TableNamed(tableName, kind);
    if (table == nullptr)
        return nullptr;
    size_t& next = CurrentWalks().tables[kind];
    const size_t at = NextShown(*table, rewind != 0 ? 0 : next);
    next = at + 1;
    return at < table->records().size() ? RecordChain(table->records()[at]) : nullptr;
}

int acdbTblObjName(const ACHAR* tableName, const ACHAR* name, ads_name result)
{
    TableKind kind = TableKind::Count;
    const AcDbSymbolTable* table = TableNamed(tableName, kind);
    AcDbStub* found = table == nullptr || name == nullptr ? nullptr : table->find(name);
    return found != nullptr && acdbGetAdsName(result, found) == Acad::eOk ? RTNORM : RTERROR;
}

int acdbNamedObjDict(ads_name result)
{
    AcDbDatabase* database = CurrentDatabase();
    return database != nullptr && acdbGetAdsName(result, database->namedObjectsDictionaryId()) == Acad::eOk ? RTNORM
                                                                                                            : RTERROR;
}

resbuf* acdbDictSearch(const ads_name name, const ACHAR* entryName, int setNext)
{
    const AcDbDictionary* dictionary = DictionaryNamed(name);
    if (dictionary == nullptr || entryName == nullptr)
        return nullptr;
    const auto& entries = dictionary->entries();
    for (size_t i = 0; i < entries.size(); ++i)
        if (entries[i].name.CompareNoCase(entryName) == 0 && !entries[i].id.isErased()) {
            if (setNext != 0)
                CurrentWalks().dictionaries[dictionary->objectId()] = i + 1;
            return EntryChain(entries[i]);
        }
    return nullptr;
}

resbuf* acdbDictNext(const ads_name name, int rewind)
{
    const AcDbDictionary* dictionary = DictionaryNamed(name);
    if (dictionary == nullptr)
        return nullptr;
    size_t& next = CurrentWalks().dictionaries[dictionary->objectId()];
    if (rewind != 0)
        next = 0;
    const auto& entries = dictionary->entries();
    while (next < entries.size() && (entries[next].id.isErased() || !entries[next].id.isResident()))
        ++next;
    return next < entries.size() ? EntryChain(entries[next++]) : nullptr;
}

int acdbDictAdd(const ads_name name, const ACHAR* entryName, const ads_name objectName)
{
    AcDbObjectId id;
    AcDbObject* object = nullptr;
    if (entryName == nullptr || acdbGetObjectId(id, objectName) != Acad::eOk)
        return RTERROR;
    AcDbDictionary* dictionary = OpenDictionary(name);
    if (dictionary == nullptr)
        return RTERROR;
    Acad::ErrorStatus status =
        dictionary->has(entryName) ? Acad::eDuplicateKey : acdbOpenObject(object, id, AcDb::kForWrite);
    if (status == Acad::eOk) {
        AcDbObjectId added;
        status = dictionary->setAt(entryName, object, added);
        object->close();
    }
    dictionary->close();
    return status == Acad::eOk ? RTNORM : RTERROR;
}

int acdbDictRemove(const ads_name name, const ACHAR* entryName)
{
    AcDbDictionary* dictionary = OpenDictionary(name);
    if (dictionary == nullptr)
        return RTERROR;
    const Acad::ErrorStatus status = entryName == nullptr ? Acad::eInvalidInput : dictionary->remove(entryName);
    dictionary->close();
    return status == Acad::eOk ? RTNORM : RTERROR;
}

int acdbDictRename(const ads_name name, const ACHAR* oldName, const ACHAR* newName)
{
    AcDbDictionary* dictionary = OpenDictionary(name);
    if (dictionary == nullptr)
        return RTERROR;
    const bool isDone = oldName != nullptr && newName != nullptr && dictionary->setName(oldName, newName);
    dictionary->close();
    return isDone ? RTNORM : RTERROR;
}
