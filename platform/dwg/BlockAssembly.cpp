#include "BlockAssembly.h"
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbSequenceEnd.h"
#include "../db/AcDbViewport.h"
#include <algorithm>

namespace KxPlat {

namespace {

AcDbEntity* EntityAt(const AcDbStub* stub)
{
    return stub == nullptr || stub->object == nullptr ? nullptr : AcDbEntity::cast(stub->object);
}

// The member that holds this group.
template <class T>
T& Member(AcDbObject& object, int code)
{
    PlaceWanted wanted;
    wanted.code = code;
    const Place place = FindPlace(&object.fields(), object.isKindOf(AcDbEntity::desc()), wanted);
    return *reinterpret_cast<T*>(reinterpret_cast<char*>(&object) + place.offset);
}

class Assembly {
public:
    Assembly(DwgInput& input, const std::vector<PlacedEntity>& entities) : m_input(input), m_entities(entities) {}
    void Run();

private:
    void Walk(const PendingChain& chain);
    const ChainLink* LinkOf(uint64_t handle);
    void Own();
    void Complete(const PendingBlock& block);
    void PlaceLeftOver();
    static void NumberViewports(const AcDbBlockTableRecord& block);

    DwgInput& m_input;
    const std::vector<PlacedEntity>& m_entities;
    size_t m_nextLink = 0;
};

const ChainLink* Assembly::LinkOf(uint64_t handle)
{
    const std::vector<ChainLink>& links = m_input.links;
    if (m_nextLink < links.size() && links[m_nextLink].handle == handle)
        return &links[m_nextLink++];
    const auto place = std::lower_bound(links.begin(), links.end(), handle,
                                        [](const ChainLink& link, uint64_t wanted) { return link.handle < wanted; });
    if (place == links.end() || place->handle != handle)
        return nullptr;
    m_nextLink = size_t(place - links.begin()) + 1;
    return &*place;
}

void Assembly::Walk(const PendingChain& chain)
{
    AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(chain.owner->object);
    AcDbEntity* whole = EntityAt(chain.owner);
    if (block == nullptr && whole == nullptr)
        return;
    uint64_t handle = chain.first;
    for (size_t steps = 0; handle != 0 && steps <= m_input.links.size(); ++steps) {
        const ChainLink* link = LinkOf(handle);
        if (link == nullptr) {
            m_input.report.Mend("a chain of entities is broken");
            break;
        }
        AcDbStub* stub = m_input.StubOf(handle);
        block != nullptr ? block->attach(stub) : whole->attachPart(stub);
        if (handle == chain.last)
            break;
        handle = link->next;
    }
    if (block == nullptr && chain.end != 0)
        whole->attachPart(m_input.StubOf(chain.end));
}

// Who is in a list belongs to the owner of the list.
void Assembly::Own()
{
    for (const PlacedEntity& entity : m_entities)
        ObjectAccess::Owner(*entity.stub->object) = nullptr;
    for (AcDbStub* record : m_input.core.Table(TableKind::Block)->records()) {
        auto& list = static_cast<AcDbBlockTableRecord*>(record->object)->entities();
        const size_t before = list.size();
        list.erase(std::remove_if(list.begin(), list.end(),
                                  [record](AcDbStub* stub) {
                                      AcDbEntity* entity = EntityAt(stub);
                                      if (entity == nullptr || ObjectAccess::Owner(*entity) != nullptr)
                                          return true;
                                      ObjectAccess::Owner(*entity) = record;
                                      return false;
                                  }),
                   list.end());
        if (list.size() != before)
            m_input.report.Mend("a block lists entities that are not there");
    }
    for (const PlacedEntity& placed : m_entities) {
        const std::vector<AcDbStub*>* parts = static_cast<AcDbEntity*>(placed.stub->object)->parts();
        if (parts != nullptr)
            for (AcDbStub* part : *parts)
                if (AcDbEntity* entity = EntityAt(part))
                    ObjectAccess::Owner(*entity) = placed.stub;
    }
}

void Assembly::Complete(const PendingBlock& pending)
{
    AcDbBlockTableRecord* record =
        pending.record == nullptr ? nullptr : AcDbBlockTableRecord::cast(pending.record->object);
    if (record == nullptr)
        return;
    AcDbEntity* begin = EntityAt(pending.begin);
    AcDbEntity* end = EntityAt(pending.end);
    if (begin != nullptr && begin->isKindOf(AcDbBlockBegin::desc()) && record->beginStub() == nullptr) {
        record->setBegin(pending.begin);
        ObjectAccess::Owner(*begin) = pending.record;
        Member<int16_t>(*begin, 70) = pending.flags;
        Member<AcGePoint3d>(*begin, 10) = pending.origin;
        Member<CString>(*begin, 1) = pending.path;
        Member<CString>(*begin, 4) = pending.comment;
        // The record's name is the one that counts.
        Member<CString>(*begin, 2) = Member<CString>(*begin, 3) = record->nameText();
    }
    if (end != nullptr && end->isKindOf(AcDbBlockEnd::desc())) {
        record->setEnd(pending.end);
        ObjectAccess::Owner(*end) = pending.record;
    }
}

// Entities that no list names are where they say.
void Assembly::PlaceLeftOver()
{
    for (const PlacedEntity& placed : m_entities) {
        AcDbObject& entity = *placed.stub->object;
        if (ObjectAccess::Owner(entity) != nullptr)
            continue;
        ObjectAccess::Owner(entity) = placed.owner;
        if (placed.owner == nullptr || placed.owner->object == nullptr || entity.isKindOf(AcDbBlockBegin::desc()) ||
            entity.isKindOf(AcDbBlockEnd::desc()))
            continue;
        AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(placed.owner->object);
        AcDbEntity* whole = AcDbEntity::cast(placed.owner->object);
        if (block != nullptr)
            block->attach(placed.stub);
        else if (whole != nullptr && whole->parts() != nullptr)
            whole->attachPart(placed.stub);
        else
            continue;
        m_input.report.Mend("an entity is in no list");
    }
}

// The file does not say: the sheet itself is number one.
void Assembly::NumberViewports(const AcDbBlockTableRecord& block)
{
    constexpr int kIsOff = 0x20000;
    int16_t number = 0;
    for (AcDbStub* stub : block.entities())
        if (stub->object->isKindOf(AcDbViewport::desc())) {
            Member<int16_t>(*stub->object, 69) = ++number;
            const bool isOff = (Member<int32_t>(*stub->object, 90) & kIsOff) != 0;
            Member<int16_t>(*stub->object, 68) = isOff ? int16_t(0) : number;
        }
}

void Assembly::Run()
{
    std::vector<ChainLink>& links = m_input.links;
    const auto isBefore = [](const ChainLink& a, const ChainLink& b) { return a.handle < b.handle; };
    if (!std::is_sorted(links.begin(), links.end(), isBefore))
        std::sort(links.begin(), links.end(), isBefore);
    for (const PendingChain& chain : m_input.chains)
        Walk(chain);
    Own();
    for (const PendingBlock& block : m_input.blocks)
        Complete(block);
    PlaceLeftOver();
    for (const AcDbStub* record : m_input.core.Table(TableKind::Block)->records())
        NumberViewports(*static_cast<AcDbBlockTableRecord*>(record->object));
}

}   // namespace

void AttachRecordsLeftOver(DwgInput& input, const std::vector<AcDbStub*>& records)
{
    for (size_t kind = 0; kind < kTableCount; ++kind) {
        AcDbSymbolTable* table = input.core.Table(TableKind(kind));
        std::vector<AcDbStub*> known = table->records();
        std::sort(known.begin(), known.end(), std::less<>());
        for (AcDbStub* record : records) {
            if (!record->object->isKindOf(table->recordClass()) ||
                std::binary_search(known.begin(), known.end(), record, std::less<>()))
                continue;
            table->attach(record);
            ObjectAccess::Owner(*record->object) = input.core.tables[kind];
            input.report.Mend("a record is in no table");
        }
    }
}

void AssembleBlocks(DwgInput& input, const std::vector<PlacedEntity>& entities)
{
    Assembly(input, entities).Run();
}

}   // namespace KxPlat
