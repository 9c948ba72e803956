// Making windows of a registered class.
#pragma once
#include "WindowTable.h"
#include "WinUser.h"

namespace KxPlat {

// Called with the new window before it hears of anything, so that a class library can tie its object to it.
typedef void (*WindowMade)(NativeWindow& window, void* object);
HWND MakeWindow(const CREATESTRUCTW& facts, WindowMade made, void* object);

}   // namespace KxPlat
