// Binding to a database, and the nine symbol tables.
#include "KxAcDb.h"
#include "KxMessages.h"
#include "Opened.h"
#include <memory>

namespace KxArxBase {

namespace {

// What is known of a symbol table by the description of either of its two classes.
struct TableKind {
    AcRxClass* (*tableClass)();
    AcRxClass* (*recordClass)();
    Acad::ErrorStatus (*open)(AcDbDatabase& db, AcDbSymbolTable*& table, AcDb::OpenMode mode);
    AcDbSymbolTableRecord* (*newRecord)();
};

template <class Table, class Record>
constexpr TableKind KindOf()
{
    return {&Table::desc, &Record::desc,
            [](AcDbDatabase& db, AcDbSymbolTable*& table, AcDb::OpenMode mode) {
                Table* opened = nullptr;
                const Acad::ErrorStatus es = db.getSymbolTable(opened, mode);
                table = opened;
                return es;
            },
            []() -> AcDbSymbolTableRecord* { return new Record(); }};
}

const TableKind g_tables[] = {
    KindOf<AcDbBlockTable, AcDbBlockTableRecord>(),
    KindOf<AcDbDimStyleTable, AcDbDimStyleTableRecord>(),
    KindOf<AcDbLayerTable, AcDbLayerTableRecord>(),
    KindOf<AcDbLinetypeTable, AcDbLinetypeTableRecord>(),
    KindOf<AcDbTextStyleTable, AcDbTextStyleTableRecord>(),
    KindOf<AcDbRegAppTable, AcDbRegAppTableRecord>(),
    KindOf<AcDbUCSTable, AcDbUCSTableRecord>(),
    KindOf<AcDbViewTable, AcDbViewTableRecord>(),
    KindOf<AcDbViewportTable, AcDbViewportTableRecord>(),
};

const TableKind* FindKind(const AcRxClass* cls)
{
    for (const TableKind& kind : g_tables) {
        if (cls != nullptr && (cls == kind.tableClass() || cls == kind.recordClass()))
            return &kind;
    }
    return nullptr;
}

bool IsBlockKind(const AcRxClass* cls)
{
    return cls == AcDbBlockTable::desc() || cls == AcDbBlockTableRecord::desc();
}

// Adds a record under a new name and takes back the name that the table has given it.
Acad::ErrorStatus AddNamed(AcDbSymbolTable& table, AcDbSymbolTableRecord* record, CString& name, bool& added)
{
    added = false;
    Acad::ErrorStatus es = record->setName(name);
    if (es == Acad::eOk)
        es = table.upgradeOpen();
    if (es != Acad::eOk)
        return es;
    es = table.add(record);
    table.downgradeOpen();
    if (es != Acad::eOk)
        return es;
    added = true;
    const AcDbObjectId id = record->objectId();
    record->close();
    Opened<AcDbSymbolTableRecord> stored(id, AcDb::kForRead);
    const ACHAR* text = nullptr;
    if (stored && stored->getName(text) == Acad::eOk)
        name = text;
    return stored.status();
}

}   // namespace

CKxAcDb::CKxAcDb()
{
    IniKxAcDb(nullptr, 0);
}

CKxAcDb::CKxAcDb(AcDbDatabase* db, int follow)
{
    IniKxAcDb(db, follow);
}

CKxAcDb::~CKxAcDb() = default;

void CKxAcDb::IniKxAcDb(AcDbDatabase* db, int follow)
{
    if (follow != 0)
        m_db = nullptr;
    else
        m_db = db != nullptr ? db : acdbHostApplicationServices()->workingDatabase();
}

AcDbDatabase* CKxAcDb::GetAcDb() const
{
    return m_db != nullptr ? m_db : acdbHostApplicationServices()->workingDatabase();
}

long CKxAcDb::SetAcDbMod(long value)
{
    return acdbSetDbmod(GetAcDb(), value);
}

Acad::ErrorStatus CKxAcDb::OpenSymbolTable(AcRxClass* cls, AcDbSymbolTable*& table, AcDb::OpenMode mode, int newRecord,
                                           AcDbSymbolTableRecord** record)
{
    table = nullptr;
    const TableKind* kind = FindKind(cls);
    if (kind == nullptr)
        return Acad::eInvalidInput;
    AcDbDatabase* db = GetAcDb();
    if (db == nullptr)
        return Acad::eNoDatabase;
    const Acad::ErrorStatus es = kind->open(*db, table, mode);
    if (es == Acad::eOk && newRecord != 0 && record != nullptr)
        *record = kind->newRecord();
    return es;
}

Acad::ErrorStatus CKxAcDb::OpenRecWithEntyName(const wchar_t* name, AcRxClass* cls, AcDbSymbolTableRecord*& record,
                                               AcDb::OpenMode mode, int createIfMissing, int* created)
{
    record = nullptr;
    if (created != nullptr)
        *created = 0;
    AcDbSymbolTable* opened = nullptr;
    AcDbSymbolTableRecord* prepared = nullptr;
    Acad::ErrorStatus es =
        Reported([&] { return OpenSymbolTable(cls, opened, AcDb::kForRead, createIfMissing, &prepared); });
    if (es != Acad::eOk)
        return es;
    Opened<AcDbSymbolTable> table(opened, es);
    std::unique_ptr<AcDbSymbolTableRecord> fresh(prepared);
    if (name == nullptr) {
        if (!IsBlockKind(cls))
            return Acad::eWrongObjectType;
        return acdbOpenObject(record, GetAcDb()->currentSpaceId(), mode);
    }
    es = table->getAt(name, record, mode);
    if (es != Acad::eKeyNotFound || fresh == nullptr)
        return es;
    CString stored = name;
    bool added = false;
    es = AddNamed(*table.get(), fresh.get(), stored, added);
    if (!added)
        return es;
    static_cast<void>(fresh.release());
    if (created != nullptr)
        *created = 1;
    return table->getAt(stored, record, mode);
}

Acad::ErrorStatus CKxAcDb::AddRecToSymbolTab(AcDbSymbolTableRecord* record, int closeIt)
{
    if (record == nullptr)
        return Acad::eInvalidInput;
    AcDbSymbolTable* opened = nullptr;
    Acad::ErrorStatus es = Reported([&] { return OpenSymbolTable(record->isA(), opened, AcDb::kForWrite); });
    if (es == Acad::eOk)
        es = Opened<AcDbSymbolTable>(opened, es)->add(record);
    if (closeIt != 0) {
        if (es == Acad::eOk)
            record->close();
        else
            delete record;
    }
    return es;
}

Acad::ErrorStatus CKxAcDb::RenameSymbolTableRec(const wchar_t* oldName, AcRxClass* cls, const wchar_t* newName)
{
    AcDbSymbolTableRecord* opened = nullptr;
    const Acad::ErrorStatus es = Reported([&] { return OpenRecWithEntyName(oldName, cls, opened, AcDb::kForWrite); });
    if (es != Acad::eOk)
        return es;
    return Opened<AcDbSymbolTableRecord>(opened, es)->setName(newName);
}

Acad::ErrorStatus CKxAcDb::GetRecWithEntyName(const wchar_t* name, AcRxClass* cls, AcDbObjectId& id)
{
    AcDbSymbolTableRecord* opened = nullptr;
    const Acad::ErrorStatus es = Reported([&] { return OpenRecWithEntyName(name, cls, opened, AcDb::kForRead); });
    if (es == Acad::eOk)
        id = Opened<AcDbSymbolTableRecord>(opened, es)->objectId();
    return es;
}

bool CKxAcDb::IsHasSymbolTabRec(AcRxClass* cls, const wchar_t* name)
{
    AcDbSymbolTable* opened = nullptr;
    const Acad::ErrorStatus es = Reported([&] { return OpenSymbolTable(cls, opened, AcDb::kForRead); });
    return es == Acad::eOk && Opened<AcDbSymbolTable>(opened, es)->has(name);
}

bool CKxAcDb::FindRec(const wchar_t* name, AcRxClass* cls, AcDbObjectId& id)
{
    id.setNull();
    AcDbSymbolTable* opened = nullptr;
    if (name == nullptr || GetAcDb() == nullptr)
        return false;
    const Acad::ErrorStatus es = OpenSymbolTable(cls, opened, AcDb::kForRead);
    return es == Acad::eOk && Opened<AcDbSymbolTable>(opened, es)->getAt(name, id) == Acad::eOk;
}

bool CKxAcDb::IsHasLayer(const wchar_t* name)
{
    return IsHasSymbolTabRec(AcDbLayerTable::desc(), name);
}

Acad::ErrorStatus CKxAcDb::NewIterator(AcRxClass* cls, AcDbSymbolTableIterator*& it)
{
    it = nullptr;
    AcDbSymbolTable* opened = nullptr;
    const Acad::ErrorStatus es = Reported([&] { return OpenSymbolTable(cls, opened, AcDb::kForRead); });
    if (es != Acad::eOk)
        return es;
    return Opened<AcDbSymbolTable>(opened, es)->newIterator(it);
}

Acad::ErrorStatus CKxAcDb::NewIterator(const wchar_t* blockName, AcDbBlockTableRecordIterator*& it)
{
    it = nullptr;
    AcDbSymbolTableRecord* opened = nullptr;
    const Acad::ErrorStatus es =
        Reported([&] { return OpenRecWithEntyName(blockName, AcDbBlockTableRecord::desc(), opened, AcDb::kForRead); });
    if (es != Acad::eOk)
        return es;
    Opened<AcDbSymbolTableRecord> record(opened, es);
    return AcDbBlockTableRecord::cast(record.get())->newIterator(it);
}

Acad::ErrorStatus CKxAcDb::GetRecsName(AcRxClass* cls, CStringArray& names)
{
    names.RemoveAll();
    AcDbSymbolTableIterator* opened = nullptr;
    const Acad::ErrorStatus es = NewIterator(cls, opened);
    const std::unique_ptr<AcDbSymbolTableIterator> it(opened);
    if (es != Acad::eOk)
        return es;
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        it->getRecordId(id);
        Opened<AcDbSymbolTableRecord> record(id, AcDb::kForRead);
        const ACHAR* name = nullptr;
        if (record && record->getName(name) == Acad::eOk)
            names.Add(name);
    }
    return Acad::eOk;
}

}   // namespace KxArxBase
