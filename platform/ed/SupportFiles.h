// Files that are named without a folder, and settings that outlive the session.
#pragma once
#include <string>

namespace KxPlat {

// The full path: as given, in the current folder, beside the current drawing, on the support path, beside the program.
// Empty when it is nowhere.
std::wstring FindSupportFile(const std::wstring& name);
// The same for modules, whose extension may be left out.
std::wstring FindModuleFile(const std::wstring& name);

// KX_SUPPORT_PATH in front of the setting "ACAD", separated by ";".
std::wstring SupportPath();
std::wstring ProgramFolder();   // with its separator

std::wstring Setting(const std::wstring& name);
bool SetSetting(const std::wstring& name, const std::wstring& value);

}   // namespace KxPlat
