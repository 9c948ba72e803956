// Message boxes of commands, as MessageBoxW's flags describe them.
#pragma once
#include <string_view>

class QWidget;

namespace KxDesktop {

// The ID code of the button pressed.
int RunMessageBox(QWidget& parent, std::wstring_view text, std::wstring_view caption, unsigned type);

}   // namespace KxDesktop
