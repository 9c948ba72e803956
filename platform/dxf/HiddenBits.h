// Objects of which only the bits of a DWG file are known, as long as a drawing exchange file is written: they, and what
// belongs to them, count as erased, so that nothing in the file refers to them.
#pragma once
#include "../db/core/DbCore.h"

namespace KxPlat {

class HiddenBits {
public:
    explicit HiddenBits(DbCore& core);
    ~HiddenBits();
    HiddenBits(const HiddenBits&) = delete;

    // Without what only belongs to them.
    size_t count() const { return m_count; }

private:
    std::vector<AcDbStub*> m_stubs;
    size_t m_count = 0;
};

}   // namespace KxPlat
