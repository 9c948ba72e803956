// The one way into the desktop library, which the program loads when a window is wanted.
#pragma once
#include "ui/HostUi.h"
#include <functional>
#include <string>

namespace KxDesktop {

// What the program lends to its window.
struct DesktopSettings {
    std::string stateFolder;       // for recent files, history and layout; empty: nothing is kept
    std::function<void()> serve;   // answers messages of other programs; called several times a second
    std::function<bool(std::wstring& line)> takeLine;   // the next line that one of them sent
};

// The host seam with a window behind it.
class DesktopHost : public KxPlat::HostUi {
public:
    // Brings the window up, once there is a drawing to show.
    virtual void Show() = 0;
};

}   // namespace KxDesktop

// One at a time in a process; deleting it closes the window. Null, and why in `error`, where there is no display.
extern "C" __attribute__((visibility("default"))) KxDesktop::DesktopHost*
KxOpenDesktop(const KxDesktop::DesktopSettings& settings, std::wstring& error);
