// Finds the records of a symbol table by name, without regard to case. Erased records are not found.
#pragma once
#include "../../mfc/CString.h"
#include "../AcDbObjectId.h"
#include <cstdint>
#include <string_view>
#include <vector>

namespace KxPlat {

class NameIndex {
public:
    void Add(const CString& name, AcDbStub* record);
    void Remove(const CString& name, AcDbStub* record);
    // The record of this name that `accept` agrees to, or null.
    template <class Accept>
    AcDbStub* Find(std::wstring_view name, Accept&& accept) const;

private:
    struct Slot {
        uint64_t hash = 0;
        AcDbStub* record = nullptr;   // null with hash 1: removed; null with hash 0: never used
        CString name;
    };
    size_t SlotAfter(uint64_t hash, size_t step) const { return size_t(hash + step) & (m_slots.size() - 1); }
    void Grow();
    static uint64_t HashOf(std::wstring_view name);
    static bool SameName(std::wstring_view a, std::wstring_view b);

    std::vector<Slot> m_slots;
    size_t m_used = 0;
};

template <class Accept>
AcDbStub* NameIndex::Find(std::wstring_view name, Accept&& accept) const
{
    if (m_slots.empty())
        return nullptr;
    const uint64_t hash = HashOf(name);
    for (size_t step = 0;; ++step) {
        const Slot& slot = m_slots[SlotAfter(hash, step)];
        if (slot.hash == 0)
            return nullptr;
        if (slot.record != nullptr && slot.hash == hash &&
            SameName(std::wstring_view(slot.name, size_t(slot.name.GetLength())), name) && accept(slot.record))
            return slot.record;
    }
}

}   // namespace KxPlat
