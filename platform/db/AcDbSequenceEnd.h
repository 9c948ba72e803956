// The end mark behind the vertices of a polyline or the attributes of an insertion.
#pragma once
#include "AcDbEntity.h"

class AcDbSequenceEnd : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbSequenceEnd);
};

// Steps over the vertices or attributes of one entity, erased ones and the end mark left out.
class AcDbObjectIterator {
public:
    explicit AcDbObjectIterator(const std::vector<AcDbStub*>& parts) : m_parts(parts) { start(); }

    void start(bool atBeginning = true, bool skipErased = true);
    void step(bool backwards = false, bool skipErased = true);
    bool done() const;
    AcDbObjectId objectId() const;
    // Open for read or write as asked; null where that is refused.
    AcDbEntity* entity(AcDb::OpenMode mode = AcDb::kForRead) const;

private:
    bool isSkipped(bool skipErased) const;

    const std::vector<AcDbStub*>& m_parts;
    std::ptrdiff_t m_at = 0;
};
