// A top-level window that other programs of this user see, and that gets their messages.
// Windows are entered in a folder (KX_WINDOWS, else kxcad-windows in the user's runtime folder); those of a process
// that has ended are not seen any more, however it ended.
#pragma once
#include "KxWinTypes.h"
#include <string>

namespace KxPlat {

struct WindowFacts {
    std::wstring title;
    std::wstring className = L"AfxFrameOrView";
    DWORD style = WS_OVERLAPPEDWINDOW | WS_VISIBLE;
    DWORD extendedStyle = 0;
    DWORD classStyle = 0;
    HWND owner = nullptr;
};

class PublishedWindow {
public:
    // `procedure` is called by ServeWindows, and by SendMessageW within this process.
    PublishedWindow(const WindowFacts& facts, WNDPROC procedure);
    ~PublishedWindow();
    PublishedWindow(const PublishedWindow&) = delete;
    PublishedWindow& operator=(const PublishedWindow&) = delete;

    HWND Handle() const { return m_handle; }   // null when it could not be published
    void SetTitle(const std::wstring& title);

private:
    WindowFacts m_facts;
    HWND m_handle = nullptr;
};

// Deals with the messages that have come from other processes, after waiting for the first one at most that long.
// Answers how many it dealt with.
int ServeWindows(DWORD milliseconds);
// Readable when a message waits; -1 before the first window. For programs that wait for more than messages.
int WindowSocket();

}   // namespace KxPlat
