// Stubs of one database, found by handle. Handles of real drawings are dense, so they are kept in pages of sixteen;
// a file full of wild handles costs one page each and no more.
#pragma once
#include "Stub.h"
#include <array>
#include <memory>
#include <unordered_map>
#include <vector>

namespace KxPlat {

class HandleTable {
public:
    explicit HandleTable(AcDbDatabase* database) : m_database(database) {}

    AcDbStub* Find(uint64_t handle) const
    {
        Page* page = PageOf(handle >> 4);
        return page == nullptr ? nullptr : (*page)[handle & 15];
    }
    // The stub of this handle, made without an object when there is none yet.
    AcDbStub* Get(uint64_t handle);
    // A stub with no handle that anything can refer to (see SetHandle).
    AcDbStub* NewUnnamed();
    void SetHandle(AcDbStub* stub, uint64_t handle);

    uint64_t NextHandle() const { return m_next; }
    void RaiseNextHandle(uint64_t handle) { m_next = handle > m_next ? handle : m_next; }

    size_t Size() const { return m_count; }
    template <class F>
    void ForEach(F&& visit) const
    {
        for (size_t i = 0; i < m_count; ++i)
            visit(m_chunks[i / kChunk][i % kChunk]);
    }

private:
    using Page = std::array<AcDbStub*, 16>;
    static constexpr size_t kChunk = 4096;

    Page* PageOf(uint64_t number) const
    {
        if (number == m_lastNumber)
            return m_lastPage;
        auto place = m_pages.find(number);
        if (place == m_pages.end())
            return nullptr;
        m_lastNumber = number;
        m_lastPage = place->second.get();
        return m_lastPage;
    }

    AcDbDatabase* m_database;
    std::vector<std::unique_ptr<AcDbStub[]>> m_chunks;   // stubs never move
    size_t m_count = 0;
    std::unordered_map<uint64_t, std::unique_ptr<Page>> m_pages;
    mutable uint64_t m_lastNumber = ~uint64_t(0);
    mutable Page* m_lastPage = nullptr;
    uint64_t m_next = 1;
};

}   // namespace KxPlat
