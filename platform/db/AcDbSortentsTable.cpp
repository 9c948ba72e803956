#include "AcDbSortentsTable.h"
#include "AcDbBlockTableRecord.h"
#include "AcDbDictionary.h"
#include "core/DbCore.h"
#include "core/Fields.h"
#include <algorithm>
#include <unordered_map>
#include <unordered_set>

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbSortentsTable, AcDbObject, 0, 0, 0, SORTENTSTABLE, AcDb)

// Pairs of an entity (331) and its sort handle (5, a text).
class SortEntries : public ListField {
public:
    bool Starts(int code) const override { return code == 331 || code == 5; }
    bool Continues(int code) const override { return Starts(code); }
    void Put(AcDbObject& object, const GroupValue& group) const override
    {
        auto& entries = static_cast<AcDbSortentsTable&>(object).m_entries;
        if (group.code == 331)
            entries.push_back({group.id(), AcDbObjectId()});
        else if (!entries.empty())
            entries.back().sortedAs = WithHandle(entries.back().entity, group.text());
    }
    void Get(const AcDbObject& object, GroupSink& sink, AcDb::AcDbDwgVersion) const override
    {
        for (const AcDbSortentsTable::Entry& entry : static_cast<const AcDbSortentsTable&>(object).m_entries) {
            const AcDbStub* entity = entry.entity;
            if (entity == nullptr || entity->erased)
                continue;
            const AcDbStub* sortedAs = entry.sortedAs.isNull() ? entity : static_cast<AcDbStub*>(entry.sortedAs);
            CString handle;
            handle.Format(L"%I64X", static_cast<long long>(sortedAs->handle));
            sink.Id(331, entry.entity);
            sink.Text(5, handle);
        }
    }
    void Copy(AcDbObject& to, const AcDbObject& from) const override
    {
        static_cast<AcDbSortentsTable&>(to).m_entries = static_cast<const AcDbSortentsTable&>(from).m_entries;
    }
    bool IsEmpty(const AcDbObject& object) const override
    {
        return static_cast<const AcDbSortentsTable&>(object).m_entries.empty();
    }
    void Clear(AcDbObject& object) const override { static_cast<AcDbSortentsTable&>(object).m_entries.clear(); }
    void Visit(AcDbObject& object, const ReferenceVisitor& visitor) const override
    {
        for (AcDbSortentsTable::Entry& entry : static_cast<AcDbSortentsTable&>(object).m_entries) {
            visitor(entry.entity, Reference::SoftPointer);
            visitor(entry.sortedAs, Reference::SoftPointer);
        }
    }

private:
    static AcDbObjectId WithHandle(AcDbObjectId entity, const CString& text)
    {
        uint64_t handle = 0;
        for (int i = 0; i < text.GetLength(); ++i) {
            const wchar_t digit = text[i];
            const int value = digit >= L'0' && digit <= L'9'   ? digit - L'0'
                              : digit >= L'A' && digit <= L'F' ? digit - L'A' + 10
                              : digit >= L'a' && digit <= L'f' ? digit - L'a' + 10
                                                               : -1;
            if (value < 0)
                return AcDbObjectId();
            handle = handle * 16 + uint64_t(value);
        }
        if (handle == 0 || entity.database() == nullptr)
            return AcDbObjectId();
        return CoreOf(*entity.database()).handles.Get(handle);
    }
};

const ClassSchema& AcDbSortentsTable::fieldSchema()
{
    static const SortEntries entries;
    static const ClassSchema schema(&AcDbObject::fieldSchema(), "SORTENTSTABLE", "AcDbSortentsTable",
                                    {
                                        Id(330, &AcDbSortentsTable::m_block).always(),
                                        List(&entries),
                                    });
    return schema;
}

namespace {

uint64_t HandleOf(AcDbObjectId id)
{
    const AcDbStub* stub = id;
    return stub == nullptr ? 0 : stub->handle;
}

}   // namespace

AcDbBlockTableRecord* AcDbSortentsTable::block() const
{
    const AcDbStub* stub = m_block;
    return stub == nullptr || stub->object == nullptr ? nullptr : AcDbBlockTableRecord::cast(stub->object);
}

Acad::ErrorStatus AcDbSortentsTable::getSortHandle(AcDbObjectId entity, AcDbHandle& handle) const
{
    if (entity.isNull() || entity.isErased())
        return Acad::eInvalidInput;
    handle = entity.handle();
    for (const Entry& entry : m_entries)
        if (entry.entity == entity && !entry.sortedAs.isNull())
            handle = entry.sortedAs.handle();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSortentsTable::getFullDrawOrder(AcDbObjectIdArray& entities, Adesk::UInt8) const
{
    entities.setLogicalLength(0);
    const AcDbBlockTableRecord* owner = block();
    if (owner == nullptr)
        return Acad::eNullObjectId;
    std::unordered_map<const AcDbStub*, uint64_t> places;
    for (const Entry& entry : m_entries)
        if (!entry.sortedAs.isNull())
            places[entry.entity] = HandleOf(entry.sortedAs);
    std::vector<std::pair<uint64_t, AcDbStub*>> order;
    for (AcDbStub* stub : owner->entities()) {
        if (stub->erased)
            continue;
        const auto found = places.find(stub);
        order.emplace_back(found == places.end() ? stub->handle : found->second, stub);
    }
    std::stable_sort(order.begin(), order.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const auto& one : order)
        entities.append(AcDbObjectId(one.second));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSortentsTable::move(const AcDbObjectIdArray& entities, bool toTop)
{
    AcDbObjectIdArray order;
    Acad::ErrorStatus status = getFullDrawOrder(order);
    if (status != Acad::eOk)
        return status;
    const std::unordered_set<AcDbObjectId> moved(entities.begin(), entities.end());
    size_t found = 0;
    for (const AcDbObjectId& id : order)
        found += moved.count(id);
    if (found != moved.size())
        return Acad::eInvalidInput;
    std::stable_partition(order.begin(), order.end(),
                          [&](const AcDbObjectId& id) { return (moved.count(id) != 0) != toTop; });
    return deal(order);
}

Acad::ErrorStatus AcDbSortentsTable::setRelativeDrawOrder(const AcDbObjectIdArray& entities)
{
    AcDbObjectIdArray order;
    const Acad::ErrorStatus status = getFullDrawOrder(order);
    if (status != Acad::eOk)
        return status;
    const std::unordered_set<AcDbObjectId> moved(entities.begin(), entities.end());
    int next = 0;
    for (AcDbObjectId& id : order)
        if (moved.count(id) != 0 && next < entities.length())
            id = entities.at(next++);
    if (next != entities.length() || moved.size() != size_t(entities.length()))
        return Acad::eInvalidInput;
    return deal(order);
}

// The entities' own handles, in rising order, are dealt out along the new order, so that no handle is used twice.
Acad::ErrorStatus AcDbSortentsTable::deal(const AcDbObjectIdArray& order)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    std::vector<AcDbObjectId> handles(order.begin(), order.end());
    std::sort(handles.begin(), handles.end(), [](AcDbObjectId a, AcDbObjectId b) { return HandleOf(a) < HandleOf(b); });
    m_entries.clear();
    for (int i = 0; i < order.length(); ++i)
        if (order.at(i) != handles[size_t(i)])
            m_entries.push_back({order.at(i), handles[size_t(i)]});
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSortentsTable::moveToTop(AcDbObjectIdArray& entities)
{
    return move(entities, true);
}

Acad::ErrorStatus AcDbSortentsTable::moveToBottom(AcDbObjectIdArray& entities)
{
    return move(entities, false);
}

Acad::ErrorStatus AcDbBlockTableRecord::getSortentsTable(AcDbSortentsTable*& table, AcDb::OpenMode mode,
                                                         bool createIfNecessary)
{
    static const wchar_t name[] = L"ACAD_SORTENTS";
    table = nullptr;
    AcDbDictionary* dictionary = nullptr;
    Acad::ErrorStatus status = acdbOpenObject(dictionary, extensionDictionary(), AcDb::kForRead);
    if (status == Acad::eOk) {
        status = dictionary->getAt(name, table, mode);
        dictionary->close();
    } else {
        status = Acad::eKeyNotFound;
    }
    if (status != Acad::eKeyNotFound || !createIfNecessary)
        return status;
    if (extensionDictionary().isNull())
        status = createExtensionDictionary();
    else
        status = Acad::eOk;
    if (status == Acad::eOk)
        status = acdbOpenObject(dictionary, extensionDictionary(), AcDb::kForWrite);
    if (status != Acad::eOk)
        return status;
    AcDbSortentsTable* added = new AcDbSortentsTable;
    added->m_block = objectId();
    AcDbObjectId id;
    status = dictionary->setAt(name, added, id);
    dictionary->close();
    if (status != Acad::eOk) {
        delete added;
        return status;
    }
    added->close();
    return acdbOpenObject(table, id, mode);
}
