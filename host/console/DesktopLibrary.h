// The library with the desktop window, which only a program with a window needs.
#pragma once
#include "desktop/Desktop.h"
#include <memory>

namespace KxConsole {

// Null, and why in `error`, when the program was built without it or there is no display. It stays loaded.
std::unique_ptr<KxDesktop::DesktopHost> OpenDesktop(const KxDesktop::DesktopSettings& settings, std::wstring& error);

}   // namespace KxConsole
