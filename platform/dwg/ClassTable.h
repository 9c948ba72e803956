// The classes section.
#pragma once
#include "DwgSections.h"
#include "SectionBits.h"

namespace KxPlat {

struct DbCore;

std::vector<DwgClass> ReadClasses(std::string_view section, const SectionForm& form, DwgReport& report);
std::string WriteClasses(const std::vector<DwgClass>& classes, const SectionForm& form);
// Keeps them with the drawing as the records of a CLASSES section.
void TakeClasses(DbCore& core, const std::vector<DwgClass>& classes, AcDb::AcDbDwgVersion version);

}   // namespace KxPlat
