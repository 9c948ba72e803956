// The copy that a save leaves of the file which it replaces.
#pragma once
#include <string_view>

namespace KxPlat {

// Copies a drawing file to the same name with ".bak". True also where there is no such file yet.
bool BackUpFile(std::wstring_view path);

}   // namespace KxPlat
