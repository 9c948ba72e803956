// Windows of this process that other processes do not see. The window calls ask here first.
#pragma once
#include "PublishedWindow.h"
#include <optional>

namespace KxPlat {

class LocalWindows {
public:
    virtual ~LocalWindows() = default;
    // Nothing for a window of another kind.
    virtual std::optional<WindowFacts> FactsOf(HWND window) = 0;
    virtual LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) = 0;
};

// Null: there are none.
void SetLocalWindows(LocalWindows* windows);

}   // namespace KxPlat
