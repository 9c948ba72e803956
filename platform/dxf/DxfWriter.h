// Writes a database as a drawing file. The file at the path is the old one or the whole new one, whatever happens.
#pragma once
#include "../db/AcDb.h"
#include <string>

class AcDbDatabase;

namespace KxPlat {

struct DxfOutput {
    AcDb::AcDbDwgVersion version = AcDb::kDHL_1024;
    bool isBinary = false;
    int precision = 16;   // decimals; 16 and more: all that the numbers have
};

// 0 or the system's error number.
// `dropped` counts the objects that only a DWG file can hold.
int WriteDxf(AcDbDatabase& database, const std::string& hostPath, const DxfOutput& output, uint64_t* dropped = nullptr);

}   // namespace KxPlat
