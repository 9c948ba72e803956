#include "NameIndex.h"
#include "../../win/CharTables.h"

namespace KxPlat {

uint64_t NameIndex::HashOf(std::wstring_view name)
{
    const uint64_t hash = FoldHash(name);
    return hash < 2 ? hash + 2 : hash;
}

bool NameIndex::SameName(std::wstring_view a, std::wstring_view b)
{
    return EqualNoCase(a, b);
}

void NameIndex::Grow()
{
    std::vector<Slot> old = std::move(m_slots);
    size_t live = 0;
    for (const Slot& slot : old)
        live += slot.record != nullptr;
    size_t size = 16;
    while (size < live * 4)
        size *= 2;
    m_slots.assign(size, Slot());
    m_used = 0;
    for (Slot& slot : old) {
        if (slot.record == nullptr)
            continue;
        size_t step = 0;
        while (m_slots[SlotAfter(slot.hash, step)].hash != 0)
            ++step;
        m_slots[SlotAfter(slot.hash, step)] = std::move(slot);
        ++m_used;
    }
}

void NameIndex::Add(const CString& name, AcDbStub* record)
{
    if ((m_used + 1) * 2 > m_slots.size())
        Grow();
    const uint64_t hash = HashOf(std::wstring_view(name, size_t(name.GetLength())));
    size_t step = 0;
    while (m_slots[SlotAfter(hash, step)].hash != 0)
        ++step;
    m_slots[SlotAfter(hash, step)] = {hash, record, name};
    ++m_used;
}

void NameIndex::Remove(const CString& name, AcDbStub* record)
{
    if (m_slots.empty())
        return;
    const uint64_t hash = HashOf(std::wstring_view(name, size_t(name.GetLength())));
    for (size_t step = 0;; ++step) {
        Slot& slot = m_slots[SlotAfter(hash, step)];
        if (slot.hash == 0)
            return;
        if (slot.record == record && slot.hash == hash) {
            slot = {1, nullptr, CString()};
            return;
        }
    }
}

}   // namespace KxPlat
