// An object of a DWG file whose inside nobody here understands: its bits as they stood, which mean the same in files of
// the same version only, and the references that belong to them.
#pragma once
#include "../AcDb.h"
#include "../AcDbObjectId.h"
#include <string>
#include <vector>

namespace KxPlat {

struct KeptBits {
    struct Referred {
        uint8_t code;   // 2 and 4 soft, 3 and 5 hard; 2 and 3 own what they refer to
        AcDbObjectId id;
    };
    AcDb::AcDbDwgVersion version = AcDb::kDHL_CURRENT;
    int type = 0;          // the number of a built-in type; 0: `dxfName` tells the class
    std::string dxfName;   // in UTF-8
    bool isEntity = false;
    bool hasBinaryData = false;          // more of it stands in a section of its own
    std::string data, texts;             // from the first bit on; the last byte is filled up
    size_t dataBits = 0, textBits = 0;   // behind the data that all objects have, and of the string area
    std::vector<Referred> references;
};

}   // namespace KxPlat
