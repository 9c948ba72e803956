// Colours as DWG files have them.
#pragma once
#include "../db/AcCmColor.h"
#include <cstdint>

namespace KxPlat {

constexpr int kByLayerColor = 256;

// The index that comes nearest to a true colour.
inline int16_t IndexOfRgb(uint32_t rgb)
{
    return AcCmEntityColor::lookUpACI(Adesk::UInt8(rgb >> 16), Adesk::UInt8(rgb >> 8), Adesk::UInt8(rgb));
}

}   // namespace KxPlat
