// The resources of a module: the compiled resource script that it carries under one exported name, in the format of
// .res files: entries one after the other, each with type, name, language and the same bytes as in a Windows program.
#pragma once
#include "../win/KxWinTypes.h"
#include <string_view>

namespace KxPlat {

// The exported name. Four bytes with the length of what follows come first.
constexpr char kResourceSymbol[] = "kxModuleResources";

// Type and name are texts or MAKEINTRESOURCE numbers. A view without data when there is no such entry.
std::string_view FindResourceBytes(HINSTANCE module, const wchar_t* name, const wchar_t* type);
// The same in a table that no module holds.
std::string_view FindResourceIn(std::string_view table, const wchar_t* name, const wchar_t* type);

}   // namespace KxPlat
