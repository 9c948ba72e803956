// Reads a DWG file into an empty database.
#pragma once
#include "DwgReport.h"
#include "ObjectsIn.h"
#include <string_view>

namespace KxPlat {
class MappedFile;
}

class AcDbDatabase;

namespace KxPlat {

// False, and the report says why, when nothing can be had from the file. What is damaged costs itself and a line of the
// report. `mapped` holds the bytes of `file`: the memory of what has been read is given back.
bool ReadDwg(AcDbDatabase& database, std::string_view file, DwgReport& report, ObjectsRead* read = nullptr,
             MappedFile* mapped = nullptr);

}   // namespace KxPlat
