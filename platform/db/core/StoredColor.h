// A colour as two groups: an index (62) and a true colour (420) that overrides it.
#pragma once
#include "../AcCmColor.h"
#include <cstdint>
#include <cstdlib>

namespace KxPlat {

constexpr int32_t kNoTrueColor = INT32_MIN;

// The sign of a layer's index says whether it is on; it is no part of the colour.
inline AcCmColor ColorOf(int16_t index, int32_t trueColor)
{
    AcCmColor color;
    if (trueColor != kNoTrueColor)
        color.setRGB(Adesk::UInt8(trueColor >> 16), Adesk::UInt8(trueColor >> 8), Adesk::UInt8(trueColor));
    else
        color.setColorIndex(Adesk::UInt16(std::abs(int(index))));
    return color;
}

inline void StoreColor(const AcCmColor& color, int16_t& index, int32_t& trueColor)
{
    const int sign = index < 0 ? -1 : 1;
    index = int16_t(sign * int(color.colorIndex()));
    trueColor =
        color.isByColor() ? int32_t(color.red()) << 16 | int32_t(color.green()) << 8 | color.blue() : kNoTrueColor;
}

}   // namespace KxPlat
