// A message on its way from one process to another.
#pragma once
#include "KxWinTypes.h"
#include <string>

namespace KxPlat {

struct WindowMessage {
    HWND window = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;   // of WM_COPYDATA: not used
    ULONG_PTR dataKind = 0;
    bool hasData = false;
    std::string data;
};

// What a window of this process answers.
LRESULT CallWindow(const WindowMessage& message);
// Sends to another process, and deals with messages that come meanwhile. A Windows error or 0.
DWORD Transmit(const WindowMessage& message, DWORD milliseconds, LRESULT& answer);
// Starts to listen for messages to this process; false when it cannot.
bool Listen();
void StopListening();

}   // namespace KxPlat
