// Command lines as Windows programs part them into words.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace KxPlat {

// Blanks part words, quotation marks keep them together; 2n backslashes before a mark are n, one more makes the mark a
// plain one. The first word ends at the first blank or mark, without any escapes.
std::vector<std::wstring> CommandWords(std::wstring_view line);

}   // namespace KxPlat
