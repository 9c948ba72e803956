// What all objects share while a file is written.
#pragma once
#include "../db/core/DbCore.h"
#include "../db/core/ObjectAccess.h"
#include "../db/core/TextCodec.h"
#include "DwgCodePages.h"
#include "DwgVersion.h"
#include "ObjectsOut.h"
#include <unordered_map>
#include <unordered_set>

namespace KxPlat {

class DwgOutput {
public:
    DwgOutput(DbCore& core, const ObjectsToWrite& wanted) : core(core), version(wanted.version), codec(wanted.codePage)
    {
    }
    DbCore& core;
    const DwgVersion version;
    TextCodec codec;
    DwgRoots roots;
    uint64_t layerZero = 0;
    // The table of blocks: null where a number is passed over, and names as the file has them.
    std::vector<const AcDbStub*> blocks;
    std::unordered_map<const AcDbStub*, CString> blockNames;
    std::unordered_set<const AcDbStub*> dropped;              // live, but not in this file
    std::unordered_map<std::string, const AcDbStub*> books;   // colours of colour books by their names

    // There, and to be saved: the contents of xrefs are read anew from their own files.
    bool IsLive(const AcDbStub* stub) const
    {
        return stub != nullptr && stub->object != nullptr && !stub->erased && !stub->fromXref;
    }
    // 0 for what the file will not hold. A handle that nothing ever had stays as it is.
    uint64_t HandleOf(const AcDbStub* stub) const
    {
        if (stub == nullptr || stub->erased || stub->fromXref || (!dropped.empty() && dropped.count(stub) != 0))
            return 0;
        return stub->handle;
    }
};

// The number by which DWG files name a code page of Windows.
inline int NumberOfCodePage(unsigned windows)
{
    constexpr int kWesternEuropean = 30, kLast = 44;
    for (int number = kLast; number > 0; --number)
        if (CodePageOfNumber(number).windows == windows)
            return number;
    return kWesternEuropean;
}

}   // namespace KxPlat
