// Texts in bytes and in characters, converted by Windows.
#pragma once
#include <string>
#include <string_view>

namespace KxPlat {

std::wstring Decode(unsigned codePage, std::string_view bytes);
std::string Encode(unsigned codePage, std::wstring_view text);

}   // namespace KxPlat
