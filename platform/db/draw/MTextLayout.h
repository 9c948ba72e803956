// Where the pieces of a text with format codes stand: lines broken at the width, each piece in one font, size and
// colour.
#pragma once
#include "../../gi/AcGiTextStyle.h"
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace KxPlat {

struct MTextPiece {
    CString text;
    AcGiTextStyle style;
    double x = 0;   // from the line's left end, in the text's units
    double y = 0;   // of the base line, above the line's own (stacked texts)
    double width = 0;
    std::optional<uint16_t> colorIndex;   // 0 ByBlock, 256 ByLayer
    std::optional<uint32_t> rgb;
};

struct MTextLine {
    std::vector<MTextPiece> pieces;
    double width = 0;
    double height = 0;     // of the tallest piece
    double baseLine = 0;   // below the top of the text
    int alignment = -1;    // 0 left, 1 centre, 2 right; -1: as the text is attached
};

struct MTextBlock {
    std::vector<MTextLine> lines;
    double width = 0;    // of the widest line
    double height = 0;   // from the top of the first line to the base line of the last
};

// `width` 0 breaks no lines. `spacing` is the factor on the distance of lines.
MTextBlock LayOutMText(std::wstring_view contents, const AcGiTextStyle& style, double width, double spacing);

}   // namespace KxPlat
