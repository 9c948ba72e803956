// Finds the version resource in the bytes of a Windows program file.
#pragma once
#include <string_view>

namespace KxPlat {

// Of the first language; empty when `file` is no program of 32 or 64 bits, is damaged, or has no version resource.
std::string_view VersionResourceOf(std::string_view file);

}   // namespace KxPlat
