// "kxcad --info FILE": what a drawing file is and holds, without opening it as a document.
#pragma once
#include <string>

namespace KxConsole {

// The lines to print, in UTF-8. False, and `why` says so, when the file cannot be read.
bool DrawingInfo(const std::string& path, std::string& lines, std::wstring& why);

}   // namespace KxConsole
