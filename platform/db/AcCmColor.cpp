#include "AcCmColor.h"
#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr Adesk::UInt32 kFirstTen[] = {0x000000, 0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                       0x0000FF, 0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
constexpr Adesk::UInt32 kGreys[] = {0x333333, 0x505050, 0x696969, 0x828282, 0xBEBEBE, 0xFFFFFF};

// Indices 10 to 249 are 24 hues of 15 degrees; the last digit gives the brightness, and odd ones are half as strong.
Adesk::UInt32 HueColor(int index)
{
    constexpr double brightness[] = {255, 189, 129, 104, 79};
    const int hue = index / 10 - 1;
    const int shade = index % 10;
    const double high = brightness[shade / 2];
    const double sector = hue / 4.0;
    auto channel = [&](double shift) {
        const double away = std::abs(std::remainder(sector - shift, 6.0));
        double strength = std::clamp(2.0 - away, 0.0, 1.0);
        if (shade % 2 != 0)
            strength = (1.0 + strength) / 2.0;
        return Adesk::UInt32(high * strength);
    };
    return channel(0) << 16 | channel(2) << 8 | channel(4);
}

std::array<Adesk::UInt32, 256> MakeTable()
{
    std::array<Adesk::UInt32, 256> table{};
    for (int i = 0; i < 10; ++i)
        table[size_t(i)] = kFirstTen[i];
    for (int i = 10; i < 250; ++i)
        table[size_t(i)] = HueColor(i);
    for (int i = 250; i < 256; ++i)
        table[size_t(i)] = kGreys[i - 250];
    return table;
}

const std::array<Adesk::UInt32, 256>& Table()
{
    static const std::array<Adesk::UInt32, 256> table = MakeTable();
    return table;
}

}   // namespace

Adesk::UInt32 AcCmEntityColor::lookUpRGB(Adesk::UInt8 index)
{
    return Table()[index];
}

Adesk::UInt8 AcCmEntityColor::lookUpACI(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue)
{
    int best = 7;
    long bestDistance = -1;
    for (int i = 1; i < 256; ++i) {
        const Adesk::UInt32 rgb = Table()[size_t(i)];
        const long r = long(rgb >> 16) - red, g = long(rgb >> 8 & 255) - green, b = long(rgb & 255) - blue;
        const long distance = r * r + g * g + b * b;
        if (bestDistance < 0 || distance < bestDistance) {
            best = i;
            bestDistance = distance;
        }
    }
    return Adesk::UInt8(best);
}

Acad::ErrorStatus AcCmColor::setColorMethod(AcCmEntityColor::ColorMethod method)
{
    m_method = method;
    m_index = method == AcCmEntityColor::kByLayer ? 256 : method == AcCmEntityColor::kByBlock ? 0 : m_index;
    return Acad::eOk;
}

Adesk::UInt16 AcCmColor::colorIndex() const
{
    return isByColor() ? AcCmEntityColor::lookUpACI(red(), green(), blue()) : m_index;
}

Acad::ErrorStatus AcCmColor::setColorIndex(Adesk::UInt16 index)
{
    if (index > 257)
        return Acad::eInvalidIndex;
    m_index = index;
    m_rgb = 0;
    m_method = index == 0     ? AcCmEntityColor::kByBlock
               : index == 256 ? AcCmEntityColor::kByLayer
               : index == 257 ? AcCmEntityColor::kNone
                              : AcCmEntityColor::kByACI;
    return Acad::eOk;
}

Acad::ErrorStatus AcCmColor::setRGB(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue)
{
    m_method = AcCmEntityColor::kByColor;
    m_index = 0;
    m_rgb = Adesk::UInt32(red) << 16 | Adesk::UInt32(green) << 8 | blue;
    return Acad::eOk;
}

Adesk::UInt32 AcCmColor::rgb() const
{
    return isByColor() ? m_rgb : m_index < 256 ? AcCmEntityColor::lookUpRGB(Adesk::UInt8(m_index)) : 0xFFFFFF;
}
