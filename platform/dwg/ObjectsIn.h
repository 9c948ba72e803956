// Reads the objects of a DWG file into an empty database: everything that the object map leads to.
#pragma once
#include "../db/core/Fields.h"
#include "DwgReport.h"
#include "DwgSections.h"
#include <functional>

class AcDbDatabase;

namespace KxPlat {

// The handles by which the header variables name the roots of a drawing; 0 where a file has none.
struct DwgRoots {
    uint64_t tables[size_t(TableKind::Count)] = {};   // control objects
    uint64_t viewportHeaders = 0;                     // the control object of the oldest files' tenth table
    uint64_t namedObjects = 0;
    uint64_t modelSpace = 0, paperSpace = 0;
    uint64_t byLayer = 0, byBlock = 0, continuous = 0;
};

struct ObjectsToRead {
    AcDb::AcDbDwgVersion version = AcDb::kDHL_CURRENT;
    unsigned codePage = 1252;   // a Windows number
    const std::vector<DwgClass>* classes = nullptr;
    const std::vector<ObjectPlace>* places = nullptr;   // by rising handle
    std::string_view objects;                           // what the places count from
    DwgRoots roots;
    std::function<void(uint64_t address)> passed;   // told now and then how far reading has come; may be empty
};

// What reading found out besides the drawing, for those who check the reader.
struct ObjectsRead {
    uint64_t count = 0;
    uint64_t opaque = 0;   // of classes that nobody knows, kept by their bits
    uint64_t unused = 0;   // understood, but not to the last bit: kept by their bits, and in the report
};

// An object that cannot be read costs itself and a line of the report.
ObjectsRead ReadObjects(AcDbDatabase& database, const ObjectsToRead& input, DwgReport& report);

}   // namespace KxPlat
