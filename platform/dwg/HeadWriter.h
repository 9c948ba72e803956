// Writes what all objects, and all entities, have in common before their own values.
#pragma once
#include "ObjectEncoder.h"

namespace KxPlat {

// The entities before and behind in the same list, in files that chain them.
struct Neighbours {
    const AcDbStub* before = nullptr;
    const AcDbStub* behind = nullptr;
};

void WriteXData(ObjectEncoder& out);
void WriteEntityHead(ObjectEncoder& out, const Neighbours& neighbours, bool hasBinaryData);
void WriteObjectHead(ObjectEncoder& out, const AcDbStub* owner, bool hasBinaryData);

}   // namespace KxPlat
