// The menus of the command module by families, and the names that people know its commands by.
#pragma once
#include <functional>
#include <QString>
#include <string>

class QMenu;
class QMenuBar;

namespace KxDesktop {

// Appends one menu for each family. Each action's object name is "command." and the command's global name.
void AddCommandMenus(QMenuBar& bar, QMenu& help, const std::function<void(const std::wstring& globalName)>& run);

}   // namespace KxDesktop
