// The sections that every file has and that say little: made anew for each file.
#pragma once
#include "DwgSections.h"

namespace KxPlat {

// A moment as files keep it: a Julian day and the milliseconds of that day.
struct DwgTime {
    uint32_t day = 0, millisecond = 0;
};

std::string AuxHeaderBytes(const DwgSections& kind, DwgTime created, DwgTime updated, uint64_t nextHandle);
std::string FreeSpaceBytes(const DwgSections& kind, uint64_t objectCount, DwgTime updated);
std::string TemplateBytes(const DwgSections& kind, bool isMetric);
bool IsMetric(std::string_view settings, AcDb::AcDbDwgVersion version);
std::string RevHistoryBytes();
std::string EmptyPreviewBytes();
std::string AppInfoBytes();

}   // namespace KxPlat
