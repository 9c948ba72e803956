// The host's main window as other programs of this user see it, and the texts that they send to it.
#pragma once
#include "win/PublishedWindow.h"
#include <deque>
#include <string>

namespace KxConsole {

class HostWindow {
public:
    // `takesTexts`: a text that comes with WM_COPYDATA is input, and its sender is told 1; else, and for what is no
    // whole text, 0. One at a time in a process.
    HostWindow(const std::wstring& release, bool takesTexts);
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;

    // The title follows the current drawing, waiting messages are answered.
    void Update();
    // The same for places that are passed very often: does nothing most of the time.
    void UpdateNowAndThen();
    // The next line that was sent.
    bool TakeLine(std::wstring& line);

private:
    static LRESULT CALLBACK Answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    bool Take(const COPYDATASTRUCT& copy);
    std::wstring Title() const;

    std::wstring m_name;
    bool m_takesTexts;
    std::wstring m_title;
    std::deque<std::wstring> m_lines;
    DWORD m_lastUpdate = 0;
    KxPlat::PublishedWindow m_window;
};

// The text in the data of a message: in the ANSI code page, or of wide characters, which have zero bytes within. False
// for wide characters that do not end in the data: the rest of the text is missing.
bool TextOfCopyData(const COPYDATASTRUCT& copy, std::wstring& text);
// "AutoCAD 2012" for "18.2"
std::wstring ProgramTitle(const std::wstring& release);

}   // namespace KxConsole
