// How many cells of a terminal a text takes: ideographs take two, combining marks none.
#pragma once
#include <string>
#include <string_view>

namespace KxPlat {

int CellWidth(wchar_t character);
int CellWidth(std::wstring_view text);
// Filled with blanks up to `cells`; a longer text is left as it is.
std::wstring Padded(std::wstring_view text, int cells, bool rightAligned = false);

}   // namespace KxPlat
