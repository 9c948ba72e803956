// Cases and classes of characters as Windows has them.
#pragma once
#include <string_view>

namespace KxPlat {

wchar_t Upper(wchar_t character);
wchar_t Lower(wchar_t character);
bool IsSpace(wchar_t character);
// Below, at or above 0; characters compare by the number of their lower case.
int CompareNoCase(std::wstring_view a, std::wstring_view b);

}   // namespace KxPlat
