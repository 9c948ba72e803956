#include "HostWindow.h"
#include "ap/AcApDocManager.h"
#include "win/CodePage.h"
#include "win/WinSystem.h"
#include <cstring>

namespace KxConsole {

namespace {

constexpr DWORD kPause = 20;             // milliseconds between two looks while a program runs
constexpr size_t kMostLines = 1000000;   // that wait; more are refused

// A window procedure is a plain function: what it serves stands here.
HostWindow* g_window = nullptr;

const struct {
    const wchar_t *release, *year;
} kYears[] = {{L"18.0", L"2010"}, {L"18.1", L"2011"}, {L"18.2", L"2012"}, {L"19.0", L"2013"}};

KxPlat::WindowFacts Titled(const std::wstring& title)
{
    KxPlat::WindowFacts facts;
    facts.title = title;
    facts.className = L"AfxMDIFrame90u";
    return facts;
}

}   // namespace

std::wstring ProgramTitle(const std::wstring& release)
{
    for (const auto& row : kYears)
        if (release == row.release)
            return std::wstring(L"AutoCAD ") + row.year;
    return L"AutoCAD";
}

bool TextOfCopyData(const COPYDATASTRUCT& copy, std::wstring& text)
{
    const std::string_view bytes(static_cast<const char*>(copy.lpData), copy.lpData != nullptr ? copy.cbData : 0);
    const size_t end = bytes.find('\0');
    if (end == std::string_view::npos || bytes.find_first_not_of('\0', end) == std::string_view::npos) {
        text = KxPlat::Decode(KxPlat::AnsiCodePage(), bytes.substr(0, end));
        return true;
    }
    std::wstring wide(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(wide.data(), bytes.data(), wide.size() * sizeof(wchar_t));
    const size_t length = wide.find(L'\0');
    if (length == std::wstring::npos)
        return false;
    text = wide.substr(0, length);
    return true;
}

HostWindow::HostWindow(const std::wstring& release, bool takesTexts)
    : m_name(ProgramTitle(release)), m_takesTexts(takesTexts), m_title(m_name), m_window(Titled(m_name), Answer)
{
    g_window = this;
}

HostWindow::~HostWindow()
{
    g_window = nullptr;
}

void HostWindow::Update()
{
    m_lastUpdate = GetTickCount();
    const std::wstring title = Title();
    if (title != m_title)
        m_window.SetTitle(m_title = title);
    KxPlat::ServeWindows(0);
}

void HostWindow::UpdateNowAndThen()
{
    if (GetTickCount() - m_lastUpdate >= kPause)
        Update();
}

bool HostWindow::TakeLine(std::wstring& line)
{
    if (m_lines.empty())
        return false;
    line = std::move(m_lines.front());
    m_lines.pop_front();
    return true;
}

std::wstring HostWindow::Title() const
{
    const AcApDocument* document = acDocManager->curDocument();
    return document != nullptr ? m_name + L" - [" + document->docTitle() + L"]" : m_name;
}

LRESULT CALLBACK HostWindow::Answer(HWND, UINT message, WPARAM, LPARAM lParam)
{
    if (message != WM_COPYDATA || g_window == nullptr)
        return 0;
    return g_window->Take(*reinterpret_cast<const COPYDATASTRUCT*>(lParam)) ? 1 : 0;
}

// As if typed: the end of the text is Enter, too, where it does not stand there already.
bool HostWindow::Take(const COPYDATASTRUCT& copy)
{
    std::wstring text;
    if (!m_takesTexts || !TextOfCopyData(copy, text) || text.empty() || m_lines.size() > kMostLines)
        return false;
    std::erase(text, L'\r');
    for (size_t start = 0; start < text.size();) {
        const size_t end = std::min(text.find(L'\n', start), text.size());
        m_lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return true;
}

}   // namespace KxConsole
