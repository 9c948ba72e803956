// Writes a database as a DWG file.
#pragma once
#include "../db/AcDb.h"
#include <cstdint>
#include <string>

class AcDbDatabase;

namespace KxPlat {

// AC1015 or AC1024: the version that a file is written in when `wanted` is asked for.
AcDb::AcDbDwgVersion WritableDwgVersion(AcDb::AcDbDwgVersion wanted);

struct DwgWritten {
    int error = 0;          // of the system
    uint64_t dropped = 0;   // objects that the version cannot hold
};
// The file that was there stays whole until the new one is.
DwgWritten WriteDwg(const AcDbDatabase& database, const std::string& hostPath, AcDb::AcDbDwgVersion version);

}   // namespace KxPlat
