// Versions of the DWG format, under the names of the releases that brought them. They compare by age.
#pragma once
#include "../db/AcDb.h"

namespace KxPlat {

using DwgVersion = AcDb::AcDbDwgVersion;

inline constexpr DwgVersion kR13 = AcDb::kDHL_1012;
inline constexpr DwgVersion kR14 = AcDb::kDHL_1014;
inline constexpr DwgVersion kR2000 = AcDb::kDHL_1015;
inline constexpr DwgVersion kR2004 = AcDb::kDHL_1018;
inline constexpr DwgVersion kR2007 = AcDb::kDHL_1021;
inline constexpr DwgVersion kR2010 = AcDb::kDHL_1024;
inline constexpr DwgVersion kR2013 = AcDb::kDHL_1027;
inline constexpr DwgVersion kR2018 = AcDb::kDHL_1032;

// From R2007 on texts are UTF-16 in a stream of their own, and so are references; before, texts stand in place, in the
// drawing's code page.
constexpr bool HasStringStream(DwgVersion version)
{
    return version >= kR2007;
}

}   // namespace KxPlat
