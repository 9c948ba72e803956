// The object map: which object begins where, in pages of differences.
#pragma once
#include "DwgReport.h"
#include "DwgSections.h"

namespace KxPlat {

// By rising handle, each handle once.
std::vector<ObjectPlace> ReadObjectMap(std::string_view section, DwgReport& report);
// `places` are put in the order of their handles.
std::string WriteObjectMap(std::vector<ObjectPlace>& places);

}   // namespace KxPlat
