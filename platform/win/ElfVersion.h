// The version block of our own programs, out of the bytes of their file.
#pragma once
#include "VersionTree.h"
#include <optional>
#include <string_view>

namespace KxPlat {

// The lines of the section ".kxversion"; empty when `file` is no 64-bit program of this system or has none.
std::string_view OwnVersionTextOf(std::string_view file);
// The tree that a Windows program with those values has. `productVersion` replaces the text's own unless it is empty.
VersionNode VersionTreeOf(std::string_view text, const std::wstring& productVersion);

}   // namespace KxPlat
