// WindowProgram TITLE LOG STYLE: shows a main window, then makes the file LOG and appends the bytes of each WM_COPYDATA
// to it. Answers 40 and the number of the data; ends when the window is closed.
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <cwchar>

namespace {

const wchar_t* g_log = nullptr;

void AppendToLog(const void* bytes, size_t count)
{
    std::FILE* file = _wfopen(g_log, L"ab");
    if (file == nullptr)
        return;
    std::fwrite(bytes, 1, count, file);
    std::fclose(file);
}

LRESULT CALLBACK Answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_DESTROY)
        PostQuitMessage(0);
    if (message != WM_COPYDATA)
        return DefWindowProcW(window, message, wParam, lParam);
    const auto& copy = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    AppendToLog(copy.lpData, copy.cbData);
    return 40 + static_cast<LRESULT>(copy.dwData);
}

}   // namespace

int main()
{
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count != 4)
        return 2;
    g_log = words[2];
    WNDCLASSW kind = {};
    kind.lpfnWndProc = Answer;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.lpszClassName = L"KxTestWindow";
    RegisterClassW(&kind);
    const HWND window = CreateWindowExW(0, kind.lpszClassName, words[1], std::wcstoul(words[3], nullptr, 16), 0, 0, 300,
                                        200, nullptr, nullptr, kind.hInstance, nullptr);
    if (window == nullptr)
        return 1;
    AppendToLog("", 0);
    SetTimer(window, 1, 60000, [](HWND self, UINT, UINT_PTR, DWORD) { DestroyWindow(self); });
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    return 0;
}
