// Writes the objects of a database as a DWG file has them, one frame after the other.
#pragma once
#include "ObjectsIn.h"

namespace KxPlat {

struct ObjectsToWrite {
    AcDb::AcDbDwgVersion version = AcDb::kDHL_1024;   // kDHL_1015 or kDHL_1024
    unsigned codePage = 1252;                         // a Windows number; of AC1015 files
};

struct ObjectsWritten {
    std::vector<DwgClass> classes;   // by number, instances counted
    DwgRoots roots;
    uint64_t nextHandle = 1;   // above all that were written, those made for this file alone included
    uint64_t count = 0;
    uint64_t dropped = 0;   // kept by their bits from another version, or of no class that the format knows
};

ObjectsWritten WriteObjects(const AcDbDatabase& database, const ObjectsToWrite& wanted, ObjectSink& sink);

}   // namespace KxPlat
