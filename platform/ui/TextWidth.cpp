#include "TextWidth.h"

namespace KxPlat {

namespace {

struct WidthRange {
    unsigned first, last;
    int width;
};

const WidthRange kRanges[] = {
    {0x0300, 0x036F, 0}, {0x1100, 0x115F, 2}, {0x200B, 0x200F, 0}, {0x2E80, 0x303E, 2},   {0x3041, 0x33FF, 2},
    {0x3400, 0x4DBF, 2}, {0x4E00, 0x9FFF, 2}, {0xA000, 0xA4CF, 2}, {0xAC00, 0xD7A3, 2},   {0xF900, 0xFAFF, 2},
    {0xFE30, 0xFE6F, 2}, {0xFF00, 0xFF60, 2}, {0xFFE0, 0xFFE6, 2}, {0x1F300, 0x1FAFF, 2}, {0x20000, 0x3FFFD, 2},
};

}   // namespace

int CellWidth(wchar_t character)
{
    const unsigned code = unsigned(character);
    if (code < kRanges[0].first)
        return 1;
    for (const WidthRange& range : kRanges) {
        if (code <= range.last)
            return code >= range.first ? range.width : 1;
    }
    return 1;
}

int CellWidth(std::wstring_view text)
{
    int width = 0;
    for (wchar_t character : text)
        width += CellWidth(character);
    return width;
}

std::wstring Padded(std::wstring_view text, int cells, bool rightAligned)
{
    const int missing = cells - CellWidth(text);
    std::wstring padded(text);
    if (missing > 0)
        padded.insert(rightAligned ? 0 : padded.size(), size_t(missing), L' ');
    return padded;
}

}   // namespace KxPlat
