// Groups from a program into an object.
#pragma once
#include "../../db/AcDbObject.h"
#include "../../db/core/GroupValue.h"

namespace KxPlat {

// What a program's chain says about an object: its class, itself, its data. Points are one group per coordinate.
struct ObjectGroups {
    CString dxfName;     // group 0
    AcDbObjectId self;   // group -1
    GroupList groups;
    const resbuf* xData = nullptr;   // behind -3; lies in the chain
    bool hasXData = false;

    // False for a chain that holds what no drawing can.
    bool Read(const resbuf* chain, AcDbDatabase* database);
    // Null for a code that is not there.
    const GroupValue* Find(int code) const;
};

// The object is open for write, or new. Groups that are not mentioned stay as they are; lists (vertices, loops) are
// replaced as a whole. Names of layers that do not exist make layers; any other unknown name refuses all, and nothing
// is changed.
Acad::ErrorStatus PutGroups(AcDbObject& object, AcDbDatabase& database, const ObjectGroups& groups);

}   // namespace KxPlat
