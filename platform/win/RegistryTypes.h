// The types of registry values, and texts as the registry keeps them.
#pragma once
#include "KxWinTypes.h"
#include <string>
#include <string_view>

// clang-format off
enum : DWORD {
    REG_NONE = 0, REG_SZ = 1, REG_EXPAND_SZ = 2, REG_BINARY = 3, REG_DWORD = 4, REG_DWORD_LITTLE_ENDIAN = 4,
    REG_DWORD_BIG_ENDIAN = 5, REG_LINK = 6, REG_MULTI_SZ = 7, REG_RESOURCE_LIST = 8, REG_QWORD = 11
};
// clang-format on

namespace KxPlat {

// UTF-16, little end first.
std::string UnitBytes(std::wstring_view text);
std::wstring TextOfBytes(std::string_view bytes);

}   // namespace KxPlat
