#include "TopWindows.h"
#include "LocalWindows.h"
#include "Processes.h"
#include "WinAnswer.h"
#include "WindowFolder.h"
#include "WindowMessage.h"
#include <algorithm>
#include <cstdlib>
#include <map>

namespace KxPlat {
namespace {

std::map<HWND, WNDPROC>& OwnWindows()
{
    static std::map<HWND, WNDPROC> windows;
    return windows;
}

LocalWindows*& Local()
{
    static LocalWindows* windows = nullptr;
    return windows;
}

}   // namespace

void SetLocalWindows(LocalWindows* windows)
{
    Local() = windows;
}

PublishedWindow::PublishedWindow(const WindowFacts& facts, WNDPROC procedure) : m_facts(facts)
{
    unsigned number = 1;
    while (OwnWindows().count(WindowHandle(GetCurrentProcessId(), number)) != 0)
        ++number;
    const HWND handle = WindowHandle(GetCurrentProcessId(), number);
    if (number > 255 || !Listen() || !WriteWindow(handle, m_facts))
        return;
    m_handle = handle;
    OwnWindows()[handle] = procedure;
}

PublishedWindow::~PublishedWindow()
{
    if (m_handle == nullptr)
        return;
    OwnWindows().erase(m_handle);
    EraseWindow(m_handle);
    if (!OwnWindows().empty())
        return;
    StopListening();
    DropLifeMark();
}

void PublishedWindow::SetTitle(const std::wstring& title)
{
    m_facts.title = title;
    if (m_handle != nullptr)
        WriteWindow(m_handle, m_facts);
}

LRESULT CallWindow(const WindowMessage& message)
{
    const auto found = OwnWindows().find(message.window);
    if (found == OwnWindows().end())
        return 0;
    if (message.message != WM_COPYDATA)
        return found->second(message.window, message.message, message.wParam, message.lParam);
    std::string bytes = message.data;   // the receiver's own
    COPYDATASTRUCT copy = {message.dataKind, static_cast<DWORD>(bytes.size()),
                           message.hasData ? bytes.data() : nullptr};
    return found->second(message.window, WM_COPYDATA, message.wParam, reinterpret_cast<LPARAM>(&copy));
}

}   // namespace KxPlat

namespace {

using Facts = std::optional<KxPlat::WindowFacts>;

Facts LocalFacts(HWND window)
{
    return KxPlat::Local() == nullptr ? Facts() : KxPlat::Local()->FactsOf(window);
}

// Sets the last error where there is no such window.
Facts FactsOf(HWND window)
{
    Facts facts = LocalFacts(window);
    if (!facts)
        facts = KxPlat::ReadWindow(window);
    if (!facts)
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return facts;
}

int CopyCut(const std::wstring& text, LPWSTR buffer, int size)
{
    if (buffer == nullptr || size <= 0)
        return 0;
    const size_t length = std::min(text.size(), static_cast<size_t>(size) - 1);
    std::copy_n(text.data(), length, buffer);
    buffer[length] = 0;
    return static_cast<int>(length);
}

UINT Patience()
{
    const char* wanted = std::getenv("KX_SEND_TIMEOUT");
    const int milliseconds = wanted != nullptr ? std::atoi(wanted) : 0;
    return milliseconds > 0 ? static_cast<UINT>(milliseconds) : 5000;
}

}   // namespace

BOOL EnumWindows(WNDENUMPROC callback, LPARAM parameter)
{
    for (HWND window : KxPlat::AllWindows()) {
        if (KxPlat::ReadWindow(window) && !callback(window, parameter))
            return FALSE;
    }
    return TRUE;
}

BOOL IsWindow(HWND window)
{
    return FactsOf(window) ? TRUE : FALSE;
}

int GetWindowTextW(HWND window, LPWSTR buffer, int size)
{
    const Facts facts = FactsOf(window);
    return CopyCut(facts ? facts->title : std::wstring(), buffer, size);
}

int GetWindowTextLengthW(HWND window)
{
    const Facts facts = FactsOf(window);
    return facts ? static_cast<int>(facts->title.size()) : 0;
}

int GetClassNameW(HWND window, LPWSTR buffer, int size)
{
    const Facts facts = FactsOf(window);
    return CopyCut(facts ? facts->className : std::wstring(), buffer, size);
}

LONG GetWindowLongW(HWND window, int index)
{
    const Facts facts = FactsOf(window);
    if (!facts)
        return 0;
    if (index != GWL_STYLE && index != GWL_EXSTYLE)
        return KxPlat::FailWith(ERROR_INVALID_INDEX_VALUE);
    return static_cast<LONG>(index == GWL_STYLE ? facts->style : facts->extendedStyle);
}

DWORD GetClassLongW(HWND window, int index)
{
    return static_cast<DWORD>(GetClassLongPtrW(window, index));
}

ULONG_PTR GetClassLongPtrW(HWND window, int index)
{
    // Programs lie at this address unless they are moved; its low bits are zero as those of every module.
    constexpr ULONG_PTR kModule = 0x140000000;
    const Facts facts = FactsOf(window);
    if (!facts)
        return 0;
    if (index != GCL_STYLE && index != GCL_HMODULE)
        return static_cast<ULONG_PTR>(KxPlat::FailWith(ERROR_INVALID_INDEX_VALUE));
    return index == GCL_STYLE ? facts->classStyle : kModule;
}

HWND GetParent(HWND window)
{
    const Facts facts = FactsOf(window);
    return facts ? facts->owner : nullptr;
}

DWORD GetWindowThreadProcessId(HWND window, LPDWORD processId)
{
    if (!FactsOf(window))
        return 0;
    // The main thread of a process has its number.
    const DWORD process = LocalFacts(window) ? GetCurrentProcessId() : KxPlat::ProcessOfWindow(window);
    if (processId != nullptr)
        *processId = process;
    return process;
}

LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    DWORD_PTR result = 0;
    SendMessageTimeoutW(window, message, wParam, lParam, 0, Patience(), &result);
    return static_cast<LRESULT>(result);
}

LRESULT SendMessageTimeoutW(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT flags, UINT milliseconds,
                            DWORD_PTR* result)
{
    if (!FactsOf(window))
        return FALSE;
    if (LocalFacts(window)) {
        const LRESULT local = KxPlat::Local()->Send(window, message, wParam, lParam);
        if (result != nullptr)
            *result = static_cast<DWORD_PTR>(local);
        return TRUE;
    }
    KxPlat::WindowMessage sent;
    sent.window = window;
    sent.message = message;
    sent.wParam = wParam;
    sent.lParam = message == WM_COPYDATA ? 0 : lParam;
    if (message == WM_COPYDATA && lParam != 0) {
        const auto& copy = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        sent.dataKind = copy.dwData;
        sent.hasData = copy.lpData != nullptr && copy.cbData != 0;
        if (sent.hasData)
            sent.data.assign(static_cast<const char*>(copy.lpData), copy.cbData);
    }
    LRESULT answer = 0;
    if (KxPlat::ProcessOfWindow(window) == GetCurrentProcessId())
        answer = KxPlat::CallWindow(sent);
    else if (const DWORD error = KxPlat::Transmit(sent, milliseconds, answer))
        return KxPlat::FailWith(error);
    if (result != nullptr)
        *result = static_cast<DWORD_PTR>(answer);
    return TRUE;
}
