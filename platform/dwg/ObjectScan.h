// Objects of a file whose object map is damaged: each stands in a frame of its own, with its size and a checksum.
#pragma once
#include "DwgSections.h"
#include "ObjectsIn.h"

namespace KxPlat {

// What stands at an address: its handle and type, once the frame is found whole.
struct ScannedObject {
    uint64_t handle = 0;
    uint64_t address = 0;
    uint64_t size = 0;   // of the whole frame
    int type = 0;
};
bool ScanObjectAt(std::string_view objects, uint64_t address, AcDb::AcDbDwgVersion version, bool checkSum,
                  ScannedObject& object);

// Adds the objects that the places lack, and corrects places where no object is.
void AddLostObjects(std::string_view objects, AcDb::AcDbDwgVersion version, std::vector<ObjectPlace>& places);

// Fills in the roots that are missing, as far as the types of the objects tell them.
void FindRoots(std::string_view objects, AcDb::AcDbDwgVersion version, const std::vector<ObjectPlace>& places,
               DwgRoots& roots);

}   // namespace KxPlat
