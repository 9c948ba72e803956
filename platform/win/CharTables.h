// Cases and classes of characters, the same on every system and in every locale.
// Case is mapped one character to one, and only where the mapping can be undone.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace KxPlat {

wchar_t Upper(wchar_t character);
wchar_t Lower(wchar_t character);
std::wstring Upper(std::wstring_view text);
std::wstring Lower(std::wstring_view text);

bool IsUpper(wchar_t character);
bool IsLower(wchar_t character);
bool IsLetter(wchar_t character);   // of any script, ideographs included
bool IsDigit(wchar_t character);    // 0 to 9 only
bool IsSpace(wchar_t character);    // blank, tab, line ends, U+00A0, U+3000, ...

bool EqualNoCase(std::wstring_view a, std::wstring_view b);
// Below, at or above 0; characters compare by the number of their lower case.
int CompareNoCase(std::wstring_view a, std::wstring_view b);
bool StartsWithNoCase(std::wstring_view text, std::wstring_view prefix);
// Equal for texts that EqualNoCase calls equal.
size_t FoldHash(std::wstring_view text);

}   // namespace KxPlat
