// What an AcDbObjectId points to: one record per handle of a database, whether its object is there or not.
#pragma once
#include "../../rx/acadstrc.h"
#include "../AcDb.h"
#include "../AcDbObjectId.h"
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
};

namespace KxPlat {

// Every successful opening counts one, every close takes one away; a command leaves the figure as it found it.
long OpenObjectCount();
void CountOpenObjects(long difference);

// On eOk `object` is set and counts as open. A writer excludes readers and writers.
Acad::ErrorStatus OpenStub(AcDbStub* stub, AcDb::OpenMode mode, bool erasedToo, AcDbObject*& object);

}   // namespace KxPlat
