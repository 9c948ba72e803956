// Puts the entities of a file where they belong, when all of them are known: into their blocks in drawing order, and
// vertices and attributes into what they are parts of.
#pragma once
#include "DwgInput.h"

namespace KxPlat {

struct PlacedEntity {
    AcDbStub* stub;
    AcDbStub* owner;   // as the entity itself says
};

// Records that no table names join the table of their kind.
void AttachRecordsLeftOver(DwgInput& input, const std::vector<AcDbStub*>& records);
void AssembleBlocks(DwgInput& input, const std::vector<PlacedEntity>& entities);

}   // namespace KxPlat
