#include "AcDbDictionary.h"
#include "../win/CharTables.h"
#include "AcDbDatabase.h"
#include "AcDbEntity.h"
#include "core/DbCore.h"
#include <algorithm>

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbDictionary, AcDbObject, 0, 0, 0, DICTIONARY, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbDictionaryWithDefault, AcDbDictionary, 0, 0, 0, ACDBDICTIONARYWDFLT, AcDb)

// Pairs of a name (3) and an owned object (350 or 360). A name without an object waits for its second half.
class DictionaryEntries : public ListField {
public:
    bool Starts(int code) const override { return code == 3; }
    bool Continues(int code) const override { return code == 3 || code == 350 || code == 360; }
    void Put(AcDbObject& object, const GroupValue& group) const override
    {
        auto& entries = static_cast<AcDbDictionary&>(object).m_entries;
        if (group.code == 3)
            entries.push_back({group.text(), AcDbObjectId()});
        else if (!entries.empty() && entries.back().id.isNull()) {
            entries.back().id = group.id();
            entries.back().code = group.code;
        }
    }
    void Get(const AcDbObject& object, GroupSink& sink, AcDb::AcDbDwgVersion) const override
    {
        const AcDbDictionary& dictionary = static_cast<const AcDbDictionary&>(object);
        for (const AcDbDictionary::Entry& entry : dictionary.m_entries) {
            const AcDbStub* stub = entry.id;
            if (stub != nullptr && stub->erased)
                continue;
            sink.Text(3, entry.name);
            sink.Id(CodeOf(dictionary, entry), entry.id);
        }
    }
    void Copy(AcDbObject& to, const AcDbObject& from) const override
    {
        static_cast<AcDbDictionary&>(to).m_entries = static_cast<const AcDbDictionary&>(from).m_entries;
    }
    bool IsEmpty(const AcDbObject& object) const override
    {
        return static_cast<const AcDbDictionary&>(object).m_entries.empty();
    }
    void Clear(AcDbObject& object) const override { static_cast<AcDbDictionary&>(object).m_entries.clear(); }
    void Visit(AcDbObject& object, const ReferenceVisitor& visitor) const override
    {
        AcDbDictionary& dictionary = static_cast<AcDbDictionary&>(object);
        for (AcDbDictionary::Entry& entry : dictionary.m_entries)
            visitor(entry.id, ReferenceOfGroup(CodeOf(dictionary, entry)));
    }

private:
    static int CodeOf(const AcDbDictionary& dictionary, const AcDbDictionary::Entry& entry)
    {
        return entry.code != 0 ? entry.code : dictionary.m_isHard != 0 ? 360 : 350;
    }
};

const ClassSchema& AcDbDictionary::fieldSchema()
{
    static const DictionaryEntries entries;
    static const ClassSchema schema(&AcDbObject::fieldSchema(), "DICTIONARY", "AcDbDictionary",
                                    {
                                        Int16(280, &AcDbDictionary::m_isHard).since(AcDb::kDHL_1015),
                                        Int16(281, &AcDbDictionary::m_mergeStyle).always().since(AcDb::kDHL_1015),
                                        List(&entries),
                                    });
    return schema;
}

const ClassSchema& AcDbDictionaryWithDefault::fieldSchema()
{
    static const ClassSchema schema(&AcDbDictionary::fieldSchema(), "ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault",
                                    {Id(340, &AcDbDictionaryWithDefault::m_default).always()});
    return schema;
}

namespace {

bool IsLive(AcDbObjectId id)
{
    const AcDbStub* stub = id;
    return stub != nullptr && stub->object != nullptr && !stub->erased;
}

bool SameName(const CString& a, const ACHAR* b)
{
    return EqualNoCase(std::wstring_view(a, size_t(a.GetLength())), b);
}

}   // namespace

const AcDbDictionary::Entry* AcDbDictionary::find(const ACHAR* name) const
{
    if (name == nullptr)
        return nullptr;
    for (const Entry& entry : m_entries)
        if (IsLive(entry.id) && SameName(entry.name, name))
            return &entry;
    return nullptr;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObjectId& id) const
{
    const Entry* entry = find(name);
    if (entry == nullptr)
        return Acad::eKeyNotFound;
    id = entry->id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObject*& object, AcDb::OpenMode mode) const
{
    object = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getAt(name, id);
    return status == Acad::eOk ? acdbOpenObject(object, id, mode) : status;
}

bool AcDbDictionary::has(const ACHAR* name) const
{
    return find(name) != nullptr;
}

bool AcDbDictionary::has(AcDbObjectId id) const
{
    return IsLive(id) &&
           std::any_of(m_entries.begin(), m_entries.end(), [&](const Entry& entry) { return entry.id == id; });
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, ACHAR*& name) const
{
    name = nullptr;
    for (const Entry& entry : m_entries)
        if (entry.id == id && IsLive(id))
            return acutNewString(entry.name, name);
    return Acad::eKeyNotFound;
}

Adesk::UInt32 AcDbDictionary::numEntries() const
{
    return Adesk::UInt32(
        std::count_if(m_entries.begin(), m_entries.end(), [](const Entry& entry) { return IsLive(entry.id); }));
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id)
{
    if (object == nullptr)
        return Acad::eNullObjectPointer;
    if (name == nullptr || *name == 0)
        return Acad::eInvalidKey;
    if (objectId().isNull())
        return Acad::eNoDatabase;
    if (object->isKindOf(AcDbEntity::desc()))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const Entry* old = find(name);
    if (old != nullptr && old->id == object->objectId() && !old->id.isNull()) {
        id = old->id;
        return Acad::eOk;
    }
    if (old != nullptr) {
        AcDbObject* replaced = nullptr;
        const Acad::ErrorStatus opened = acdbOpenObject(replaced, old->id, AcDb::kForWrite);
        if (opened != Acad::eOk)
            return opened;
        replaced->erase();
        replaced->close();
    }
    // The new object takes the old one's place among the entries.
    const std::ptrdiff_t place = old == nullptr ? -1 : old - m_entries.data();
    if (object->objectId().isNull())
        id = CoreOf(*database()).Adopt(object, 0, objectId(), true);
    else
        id = object->objectId();
    if (object->isWriteEnabled()) {
        object->setOwnerId(objectId());
        object->addPersistentReactor(objectId());
    }
    if (place < 0)
        m_entries.push_back({name, id});
    else
        m_entries[size_t(place)].id = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* name)
{
    AcDbObjectId id;
    return remove(name, id);
}

// Only the entry goes: whoever removes it decides what becomes of the object.
Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* name, AcDbObjectId& id)
{
    const Entry* entry = find(name);
    if (entry == nullptr)
        return Acad::eKeyNotFound;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    id = entry->id;
    m_entries.erase(m_entries.begin() + (entry - m_entries.data()));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId id)
{
    for (const Entry& entry : m_entries)
        if (entry.id == id) {
            const CString name = entry.name;
            return remove(name);
        }
    return Acad::eKeyNotFound;
}

bool AcDbDictionary::setName(const ACHAR* oldName, const ACHAR* newName)
{
    const Entry* entry = find(oldName);
    if (entry == nullptr || newName == nullptr || *newName == 0 || has(newName) || assertWriteEnabled() != Acad::eOk)
        return false;
    m_entries[size_t(entry - m_entries.data())].name = newName;
    return true;
}

void AcDbDictionary::setTreatElementsAsHard(bool hard)
{
    if (assertWriteEnabled() != Acad::eOk)
        return;
    m_isHard = hard;
    for (Entry& entry : m_entries)
        entry.code = 0;
}

void AcDbDictionary::setMergeStyle(AcDb::DuplicateRecordCloning style)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_mergeStyle = int16_t(style);
}

// The named object dictionary and those that the drawing is built on stay.
Acad::ErrorStatus AcDbDictionary::subErase(bool erasing)
{
    if (erasing && database() != nullptr &&
        (objectId() == database()->namedObjectsDictionaryId() || objectId() == database()->layoutDictionaryId() ||
         objectId() == database()->groupDictionaryId()))
        return Acad::eCannotBeErasedByCaller;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionaryWithDefault::setDefaultId(AcDbObjectId id)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_default = id;
    return status;
}

AcDbDictionaryIterator::AcDbDictionaryIterator(const AcDbDictionary& dictionary)
{
    for (const AcDbDictionary::Entry& entry : dictionary.entries())
        if (IsLive(entry.id))
            m_entries.emplace_back(entry.name, entry.id);
}

const ACHAR* AcDbDictionaryIterator::name() const
{
    return done() ? L"" : static_cast<const ACHAR*>(m_entries[m_at].first);
}

AcDbObjectId AcDbDictionaryIterator::objectId() const
{
    return done() ? AcDbObjectId() : m_entries[m_at].second;
}

Acad::ErrorStatus AcDbDictionaryIterator::getObject(AcDbObject*& object, AcDb::OpenMode mode) const
{
    object = nullptr;
    return done() ? Acad::eInvalidInput : acdbOpenObject(object, objectId(), mode);
}

bool AcDbDictionaryIterator::next()
{
    if (!done())
        ++m_at;
    return !done();
}

bool AcDbDictionaryIterator::setPosition(AcDbObjectId id)
{
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        if (m_entries[i].second == id) {
            m_at = i;
            return true;
        }
    return false;
}
