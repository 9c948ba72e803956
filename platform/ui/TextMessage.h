// A message box on the command line: its text, and a question with the letters of its buttons.
#pragma once
#include "TerminalDialog.h"
#include <string_view>

namespace KxPlat {

// As HostUi::ShowMessage; `ask` answers. A box with one button asks nothing.
int AskMessage(HostUi& ui, std::wstring_view text, std::wstring_view caption, unsigned type, const DialogAsk& ask);

}   // namespace KxPlat
