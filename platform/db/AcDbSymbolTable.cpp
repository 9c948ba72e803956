#include "AcDbSymbolTable.h"
#include "../win/CharTables.h"
#include "core/DbCore.h"
#include "core/ObjectAccess.h"
#include "core/RecordNames.h"

using namespace KxPlat;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject)

const ClassSchema& AcDbSymbolTable::fieldSchema()
{
    static const ClassSchema schema(&AcDbObject::fieldSchema(), "TABLE", "AcDbSymbolTable",
                                    {Int16(70, &AcDbSymbolTable::m_writtenCount).always()});
    return schema;
}

const ClassSchema& AcDbSymbolTableRecord::fieldSchema()
{
    static const ClassSchema schema(&AcDbObject::fieldSchema(), "", "AcDbSymbolTableRecord", {});
    return schema;
}

// --- the record ---

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& name) const
{
    name = nullptr;
    return acutNewString(m_name, name);
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& name) const
{
    name = m_name;
    return Acad::eOk;
}

namespace {

// What the host never takes in a name; a bar only stands between an xref and its record.
bool IsLegalName(const CString& name)
{
    constexpr int kLongest = 255;
    return !name.IsEmpty() && name.GetLength() <= kLongest && name.FindOneOf(L"<>/\\\":;?*,=`|") < 0;
}

}   // namespace

bool AcDbSymbolTableRecord::isRenamable() const
{
    return !isDependent() && isErasable();
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name)
{
    const CString wanted(name);
    if (isDependent() && objectId().isValid())
        return Acad::eXRefDependent;
    if (wanted == m_name && !wanted.IsEmpty())
        return Acad::eOk;
    // Block names may start with an asterisk (anonymous ones); the rest of the rule is the same for all.
    const bool isAnonymous = wanted.GetLength() > 1 && wanted[0] == L'*';
    if (!IsLegalName(isAnonymous ? wanted.Mid(1) : wanted))
        return Acad::eInvalidSymbolTableName;
    if (objectId().isNull()) {
        m_name = wanted;
        return Acad::eOk;
    }
    const AcDbStub* owner = ownerId();
    AcDbSymbolTable* table = owner == nullptr ? nullptr : AcDbSymbolTable::cast(owner->object);
    if (table != nullptr) {
        AcDbStub* other = table->find(std::wstring_view(wanted, size_t(wanted.GetLength())));
        if (other != nullptr && AcDbObjectId(other) != objectId())
            return Acad::eDuplicateRecordName;
    }
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const CString old = m_name;
    m_name = wanted;
    if (table != nullptr)
        table->renamed(*this, old);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::subErase(bool erasing)
{
    if (erasing)
        return isErasable() ? Acad::eOk : Acad::eCannotBeErasedByCaller;
    const AcDbStub* owner = ownerId();
    const AcDbSymbolTable* table = owner == nullptr ? nullptr : AcDbSymbolTable::cast(owner->object);
    if (table != nullptr && table->find(std::wstring_view(m_name, size_t(m_name.GetLength()))) != nullptr)
        return Acad::eDuplicateRecordName;
    return Acad::eOk;
}

CString KxPlat::RecordNameOf(const AcDbObject& object)
{
    const AcDbSymbolTableRecord* record = AcDbSymbolTableRecord::cast(&object);
    return record == nullptr ? CString() : record->nameText();
}

void KxPlat::RecordRenamed(const AcDbObject& object, const CString& oldName)
{
    const AcDbSymbolTableRecord* record = AcDbSymbolTableRecord::cast(&object);
    const AcDbStub* owner = object.ownerId();
    if (record == nullptr || owner == nullptr)
        return;
    if (AcDbSymbolTable* table = AcDbSymbolTable::cast(owner->object))
        table->renamed(*record, oldName);
}

// --- the table ---

void AcDbSymbolTable::attach(AcDbStub* stub)
{
    m_records.push_back(stub);
    m_index.Add(static_cast<AcDbSymbolTableRecord*>(stub->object)->nameText(), stub);
}

void AcDbSymbolTable::renamed(const AcDbSymbolTableRecord& record, const CString& oldName)
{
    AcDbStub* stub = record.objectId();
    m_index.Remove(oldName, stub);
    m_index.Add(record.nameText(), stub);
}

AcDbStub* AcDbSymbolTable::find(std::wstring_view name, bool erasedToo) const
{
    AcDbStub* live = m_index.Find(name, [](const AcDbStub* stub) { return !stub->erased; });
    return live != nullptr || !erasedToo ? live : m_index.Find(name, [](const AcDbStub*) { return true; });
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbObjectId& id, bool getErasedRecord) const
{
    if (name == nullptr)
        return Acad::eInvalidInput;
    AcDbStub* stub = find(name, getErasedRecord);
    if (stub == nullptr)
        return Acad::eKeyNotFound;
    id = stub;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                         bool openErasedRecord) const
{
    record = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getAt(name, id, openErasedRecord);
    if (status != Acad::eOk)
        return status;
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus openStatus = OpenStub(id, mode, openErasedRecord, opened);
    record = static_cast<AcDbSymbolTableRecord*>(opened);
    return openStatus;
}

bool AcDbSymbolTable::has(const ACHAR* name) const
{
    return name != nullptr && find(name) != nullptr;
}

bool AcDbSymbolTable::has(AcDbObjectId id) const
{
    const AcDbStub* stub = id;
    return stub != nullptr && stub->object != nullptr && !stub->erased && stub->object->ownerId() == objectId() &&
           stub->object->isKindOf(recordClass());
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning,
                                               bool skipDeleted) const
{
    iterator = new AcDbSymbolTableIterator(*this, skipDeleted);
    iterator->start(atBeginning, skipDeleted);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record)
{
    AcDbObjectId id;
    return add(id, record);
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record)
{
    if (record == nullptr)
        return Acad::eNullObjectPointer;
    if (!record->isKindOf(recordClass()))
        return Acad::eWrongObjectType;
    if (!record->objectId().isNull())
        return Acad::eAlreadyInDb;
    if (record->nameText().IsEmpty())
        return Acad::eInvalidSymbolTableName;
    const CString name = record->nameText();
    const bool isUnnumbered = name.GetLength() == 2 && name[0] == L'*';
    if (!isUnnumbered && has(name))
        return Acad::eDuplicateRecordName;
    const Acad::ErrorStatus status = assertWriteEnabled(false);
    if (status != Acad::eOk)
        return status;
    while (isUnnumbered && (record->nameText() == name || has(record->nameText()))) {
        CString numbered;
        numbered.Format(L"%s%Ld", static_cast<const wchar_t*>(name), ++m_lastAnonymous);
        record->takeName(numbered);
    }
    id = CoreOf(*database()).Adopt(record, 0, objectId(), true);
    attach(id);
    return Acad::eOk;
}

// --- iteration ---

AcDbSymbolTableIterator::AcDbSymbolTableIterator(const AcDbSymbolTable& table, bool skipErased)
    : m_records(table.records())
{
    start(true, skipErased);
}

void AcDbSymbolTableIterator::skip(int direction, bool skipDeleted)
{
    m_count = std::ptrdiff_t(m_records.size());
    while (skipDeleted && m_at >= 0 && m_at < m_count && m_records[size_t(m_at)]->erased)
        m_at += direction;
}

void AcDbSymbolTableIterator::start(bool atBeginning, bool skipDeleted)
{
    m_at = atBeginning ? 0 : std::ptrdiff_t(m_records.size()) - 1;
    skip(atBeginning ? 1 : -1, skipDeleted);
}

void AcDbSymbolTableIterator::step(bool forward, bool skipDeleted)
{
    const int direction = forward ? 1 : -1;
    m_at += direction;
    skip(direction, skipDeleted);
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId& id) const
{
    if (done())
        return Acad::eInvalidInput;
    id = m_records[size_t(m_at)];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableIterator::open(AcDbObject*& record, AcDb::OpenMode mode, bool erasedToo) const
{
    record = nullptr;
    return done() ? Acad::eInvalidInput : OpenStub(m_records[size_t(m_at)], mode, erasedToo, record);
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                                     bool openErasedRecord) const
{
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus status = open(opened, mode, openErasedRecord);
    record = static_cast<AcDbSymbolTableRecord*>(opened);
    return status;
}

Acad::ErrorStatus AcDbSymbolTableIterator::seek(AcDbObjectId id)
{
    for (size_t i = 0; i < m_records.size(); ++i)
        if (AcDbObjectId(m_records[i]) == id) {
            m_at = std::ptrdiff_t(i);
            return Acad::eOk;
        }
    return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcDbSymbolTableIterator::seek(const AcDbSymbolTableRecord* record)
{
    return record == nullptr ? Acad::eInvalidInput : seek(record->objectId());
}
