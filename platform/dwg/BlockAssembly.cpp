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
    std::vector<AcDbStub*> Walk(const PendingChain& chain);
    void AttachParts(const PendingChain& chain);
    const ChainLink* LinkOf(uint64_t handle);
    void Own();
    void Complete(const PendingBlock& block);
    void PlaceLeftOver();
    static void MarkPaper(const AcDbBlockTableRecord& block);
    static void NumberViewports(const AcDbBlockTableRecord& block, bool isCurrent);

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

// The entities of a chain, in its order.
std::vector<AcDbStub*> Assembly::Walk(const PendingChain& chain)
{
    std::vector<AcDbStub*> found;
    uint64_t handle = chain.first;
    for (size_t steps = 0; handle != 0 && steps <= m_input.links.size(); ++steps) {
        const ChainLink* link = LinkOf(handle);
        if (link == nullptr) {
            m_input.report.Mend("a chain of entities is broken");
            break;
        }
        found.push_back(m_input.StubOf(handle));
        if (handle == chain.last)
            break;
        handle = link->next;
    }
    return found;
}

void Assembly::AttachParts(const PendingChain& chain)
{
    AcDbEntity* whole = EntityAt(chain.owner);
    if (whole == nullptr || whole->parts() == nullptr)
        return;
    std::vector<AcDbStub*> parts = Walk(chain);
    parts.insert(parts.end(), chain.list.begin(), chain.list.end());
    for (AcDbStub* stub : parts) {
        AcDbEntity* part = EntityAt(stub);
        // What has parts itself, or is in a block, is no part.
        if (part == nullptr || part->parts() != nullptr || ObjectAccess::Owner(*part) != nullptr)
            continue;
        ObjectAccess::Owner(*part) = chain.owner;
        whole->attachPart(stub);
    }
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
        else if (whole != nullptr && whole->parts() != nullptr && static_cast<AcDbEntity&>(entity).parts() == nullptr)
            whole->attachPart(placed.stub);
        else
            continue;
        m_input.report.Mend("an entity is in no list");
    }
}

// Only entities of the current sheet say so themselves.
void Assembly::MarkPaper(const AcDbBlockTableRecord& block)
{
    std::vector<AcDbStub*> all = block.entities();
    for (AcDbStub* mark : {block.beginStub(), block.endStub()})
        if (mark != nullptr)
            all.push_back(mark);
    for (size_t i = 0; i < all.size(); ++i) {
        AcDbEntity* entity = EntityAt(all[i]);
        if (entity == nullptr)
            continue;
        entity->setInPaperSpace(true);
        if (entity->parts() != nullptr)
            all.insert(all.end(), entity->parts()->begin(), entity->parts()->end());
    }
}

// The file does not say: the sheet itself is number one. On other sheets than the current one none is active.
void Assembly::NumberViewports(const AcDbBlockTableRecord& block, bool isCurrent)
{
    constexpr int kIsOff = 0x20000;
    int16_t number = 0;
    for (AcDbStub* stub : block.entities())
        if (stub->object->isKindOf(AcDbViewport::desc())) {
            number = int16_t(isCurrent ? number + 1 : 0);
            Member<int16_t>(*stub->object, 69) = number;
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
        if (AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(chain.owner->object))
            for (AcDbStub* stub : Walk(chain))
                block->attach(stub);
    Own();
    for (const PendingChain& chain : m_input.chains)
        AttachParts(chain);
    for (const PendingBlock& block : m_input.blocks)
        Complete(block);
    PlaceLeftOver();
    for (const AcDbStub* record : m_input.core.Table(TableKind::Block)->records()) {
        const AcDbBlockTableRecord& block = *static_cast<AcDbBlockTableRecord*>(record->object);
        if (block.isPaperSpace())
            MarkPaper(block);
        NumberViewports(block, record->handle == m_input.file.roots.paperSpace);
    }
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
