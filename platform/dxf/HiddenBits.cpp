#include "HiddenBits.h"
#include "../db/AcDbTable.h"
#include "../db/core/ObjectAccess.h"
#include <unordered_set>

namespace KxPlat {

HiddenBits::HiddenBits(DbCore& core)
{
    const auto hide = [this](const AcDbStub& stub) {
        m_stubs.push_back(const_cast<AcDbStub*>(&stub));
        m_stubs.back()->erased = true;
    };
    const auto isThere = [](const AcDbStub& stub) { return stub.object != nullptr && !stub.erased; };
    core.handles.ForEach([&](const AcDbStub& stub) {
        if (isThere(stub) && ObjectAccess::IsOnlyBits(*stub.object) && !stub.object->isKindOf(AcDbTable::desc()))
            hide(stub);
    });
    m_count = m_stubs.size();
    std::unordered_set<const AcDbStub*> hidden(m_stubs.begin(), m_stubs.end());
    for (size_t before = 0; before != m_stubs.size();) {
        before = m_stubs.size();
        core.handles.ForEach([&](const AcDbStub& stub) {
            if (isThere(stub) && hidden.count(ObjectAccess::Owner(*stub.object)) != 0) {
                hidden.insert(&stub);
                hide(stub);
            }
        });
    }
}

HiddenBits::~HiddenBits()
{
    for (AcDbStub* stub : m_stubs)
        stub->erased = false;
}

}   // namespace KxPlat
