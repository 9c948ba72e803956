// What an AcDbObjectId points to: one record per handle of a database, whether its object is there or not.
#pragma once
#include "../../rx/acadstrc.h"
#include "../AcDb.h"
#include "../AcDbObjectId.h"
#include <cstddef>
#include <cstdint>

class AcDbObject;

struct AcDbStub {
    AcDbObject* object = nullptr;   // owned by the database; null: referred to, but defined nowhere
    AcDbDatabase* database = nullptr;
    uint64_t handle = 0;
    uint32_t recordedIn = 0;   // the undo step in which the object's fields were last recorded
    uint16_t readers = 0;
    bool writing : 1 = false;
    bool notifying : 1 = false;
    bool erased : 1 = false;
    bool fromXref : 1 = false;   // came with an xref: seen and used, but never saved
};

namespace KxPlat {

// Objects are mostly visited in the order of their handles: while one is worked on, memory fetches the one some steps
// on. Behind the last stub of every chunk stand as many empty ones, so the step is always there.
constexpr size_t kStubsAhead = 8;
inline void FetchAhead(const AcDbStub* stub)
{
    const char* object = reinterpret_cast<const char*>(stub[kStubsAhead].object);
    __builtin_prefetch(object);
    __builtin_prefetch(object + 64);
}

// Every successful opening counts one, every close takes one away; a command leaves the figure as it found it.
long OpenObjectCount();
void CountOpenObjects(long difference);

// On eOk `object` is set and counts as open. A writer excludes readers and writers.
Acad::ErrorStatus OpenStub(AcDbStub* stub, AcDb::OpenMode mode, bool erasedToo, AcDbObject*& object);

}   // namespace KxPlat
