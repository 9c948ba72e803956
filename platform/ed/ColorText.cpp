#include "ColorText.h"
#include "../win/CharTables.h"
#include "SysVars.h"
#include <iterator>

namespace KxPlat {

namespace {

// By their indexes.
const wchar_t* const g_names[] = {L"BYBLOCK", L"RED", L"YELLOW", L"GREEN", L"CYAN", L"BLUE", L"MAGENTA", L"WHITE"};

bool TrueColor(std::wstring_view text, AcCmColor& color)
{
    if (StartsWithNoCase(text, L"RGB:"))
        text.remove_prefix(4);
    VarValue parts;
    if (!VarFromText(text, VarType::Point3, parts))
        return false;
    for (const double part : parts.real) {
        if (part < 0 || part > 255 || part != int(part))
            return false;
    }
    color.setRGB(Adesk::UInt8(parts.real[0]), Adesk::UInt8(parts.real[1]), Adesk::UInt8(parts.real[2]));
    return true;
}

}   // namespace

bool ColorFromText(std::wstring_view text, AcCmColor& color)
{
    VarValue index;
    if (EqualNoCase(text, L"BYLAYER")) {
        color.setColorIndex(256);
        return true;
    }
    for (size_t i = 0; i < std::size(g_names); ++i) {
        if (EqualNoCase(text, g_names[i])) {
            color.setColorIndex(Adesk::UInt16(i));
            return true;
        }
    }
    if (!VarFromText(text, VarType::Short, index))
        return TrueColor(text, color);
    if (index.integer < 0 || index.integer > 256)
        return false;
    color.setColorIndex(Adesk::UInt16(index.integer));
    return true;
}

}   // namespace KxPlat
