#include "HandleTable.h"

namespace KxPlat {

AcDbStub* HandleTable::NewUnnamed()
{
    if (m_count % kChunk == 0)
        m_chunks.push_back(std::make_unique<AcDbStub[]>(kChunk + kStubsAhead));
    AcDbStub* stub = &m_chunks.back()[m_count % kChunk];
    ++m_count;
    stub->database = m_database;
    return stub;
}

AcDbStub* HandleTable::Get(uint64_t handle)
{
    if (AcDbStub* found = Find(handle))
        return found;
    AcDbStub* stub = NewUnnamed();
    SetHandle(stub, handle);
    return stub;
}

void HandleTable::SetHandle(AcDbStub* stub, uint64_t handle)
{
    stub->handle = handle;
    Page* page = PageOf(handle >> 4);
    if (page == nullptr) {
        std::unique_ptr<Page>& added = m_pages[handle >> 4];
        added = std::make_unique<Page>();
        added->fill(nullptr);
        page = added.get();
        m_lastNumber = handle >> 4;
        m_lastPage = page;
    }
    (*page)[handle & 15] = stub;
    // The last handle of all leaves no room for another; it must not become the seed.
    if (handle >= m_next && handle < ~uint64_t(0) - 1)
        m_next = handle + 1;
}

}   // namespace KxPlat
