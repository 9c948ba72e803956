// The conversation of SETVAR about one variable.
#pragma once
#include <string>

namespace KxPlat {

// Shows the value, and asks for a new one unless the variable is read-only.
void AskVariable(const std::wstring& name);
// "?" of SETVAR: the variables whose names match the pattern.
void ListVariables(const std::wstring& pattern);

}   // namespace KxPlat
