// Takes DWG files apart into sections, and puts sections together to files. Each version keeps its sections in one of
// three ways: side by side (up to AC1015), in the own way of AC1021, or in coded pages (all others).
#pragma once
#include "DwgReport.h"
#include "DwgSections.h"

namespace KxPlat {

// "AC1015" and the like in the first six bytes; kDHL_CURRENT for anything else.
AcDb::AcDbDwgVersion DwgVersionOf(std::string_view file);

// "AC1015"; empty for a version without DWG files that can be read.
std::string_view NameOfDwgVersion(AcDb::AcDbDwgVersion version);

// The sections may be views into `file`. False, and the report says why, when there is nothing to be read in it;
// sections that cannot be found are left out and reported.
bool ReadContainer(std::string_view file, DwgSections& sections, DwgReport& report);

bool ReadFlatContainer(std::string_view file, DwgSections& sections, DwgReport& report);
bool ReadPageContainer(std::string_view file, DwgSections& sections, DwgReport& report);
bool ReadOldPageContainer(std::string_view file, DwgSections& sections, DwgReport& report);

// However much a damaged file promises: what all its sections together may take, in bytes.
constexpr uint64_t SectionLimit(uint64_t fileSize)
{
    const uint64_t most = uint64_t(1) << 30, likely = fileSize * 300 + (uint64_t(1) << 20);
    return fileSize < most && likely < most ? likely : most > fileSize ? most : fileSize;
}

}   // namespace KxPlat
