// Names of drawing file versions, as $ACADVER spells them.
#pragma once
#include "../db/AcDb.h"
#include <string_view>

namespace KxPlat {

// Older names than AC1009 count as that version, newer ones than AC1032 as that; no name at all means AC1009.
AcDb::AcDbDwgVersion VersionOfName(std::string_view name);
const char* NameOfVersion(AcDb::AcDbDwgVersion version);

}   // namespace KxPlat
