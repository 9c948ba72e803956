#include "CadWindow.h"
#include "FileVersion.h"
#include "Processes.h"
#include "StrUtils.h"
#include <cstring>
#include <memory>
#include <vector>

namespace KxMfcEx {
namespace {

struct TitleRow {
    const wchar_t* begin;
    int release;
};
const TitleRow kTitles[] = {
    {L"AutoCAD 2002", 150},          {L"AutoCAD 2000", 150},          {L"AutoCAD 2004", 160}, {L"AutoCAD 2005", 161},
    {L"AutoCAD 2006", 162},          {L"AutoCAD 2007", 170},          {L"AutoCAD 2008", 171}, {L"AutoCAD 2009", 172},
    {L"AutoCAD 2010", 180},          {L"AutoCAD 2011", 181},          {L"AutoCAD 2012", 182}, {L"AutoCAD 2013", 190},
    {L"Autodesk AutoCAD 2014", 191}, {L"Autodesk AutoCAD 2015", 200},
};

bool Begins(const wchar_t* text, const wchar_t* begin)
{
    return std::wcsncmp(text, begin, std::wcslen(begin)) == 0;
}

bool IsFrame(HWND window)
{
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    // The index that names the module is read as if it named the style; its two lowest bits are never set.
    return GetParent(window) == nullptr && (style & WS_VISIBLE) != 0 && (style & WS_CAPTION) != 0 &&
           (style & WS_SYSMENU) != 0 && (GetClassLongW(window, -16) & 3) == 0;
}

void WriteHandle(HWND window)
{
    wchar_t folder[1000] = {};
    GetTempPathW(ARRAYSIZE(folder), folder);
    CString path;
    path.Format(L"%sToolBoxSelectCAD~.txt", folder);
    std::FILE* file = _wfopen(path, L"wt");
    if (file == nullptr)
        return;
    std::fprintf(file, "%x", static_cast<unsigned>(reinterpret_cast<uintptr_t>(window)));
    std::fclose(file);
}

constexpr int kNone = -1;

int ReleaseOfProgram(const wchar_t* program)
{
    CFileVersion version;
    VS_FIXEDFILEINFO info = {};
    if (!version.Open(program) || !version.GetFixedInfo(info))
        return kNone;
    return int(LOWORD(info.dwProductVersionMS)) + 10 * int(HIWORD(info.dwProductVersionMS));
}

// The release of the CAD program that the window belongs to; kNone for any other window.
int ReleaseByProcess(HWND window)
{
    if (!IsFrame(window))
        return kNone;
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t path[MAX_PATH] = {};
    if (!GetProcessFullPath(process, path) || CString(path).Right(8).CompareNoCase(L"acad.exe") != 0)
        return kNone;
    WriteHandle(window);
    return ReleaseOfProgram(path);
}

int ReleaseByTitle(HWND window)
{
    wchar_t title[260] = {};
    GetWindowTextW(window, title, ARRAYSIZE(title));
    const int release = ReleaseOfTitle(title);
    return release != 0 ? release : kNone;
}

}   // namespace

int ReleaseOfTitle(const wchar_t* title)
{
    if (title == nullptr || (!Begins(title, L"AutoCAD") && !Begins(title, L"Autodesk AutoCAD")) ||
        Begins(title, L"AutoCAD Text") || Begins(title, L"AutoCAD 文本"))
        return 0;
    if (!Begins(title, L"AutoCAD 2") && !Begins(title, L"Autodesk AutoCAD 2"))
        return 140;
    for (const TitleRow& row : kTitles) {
        if (Begins(title, row.begin))
            return row.release;
    }
    return 0;
}

BOOL CALLBACK FindAutoCadWindowProc(HWND window, LPARAM parameter)
{
    auto& search = *reinterpret_cast<CadWindowSearch*>(parameter);
    const int release = search.mode != 0 ? ReleaseByProcess(window) : ReleaseByTitle(window);
    if (release == kNone)
        return TRUE;
    search.window = window;
    search.release = release;
    return FALSE;
}

int GetAutoCadWnd(HWND& window, int& release, int mode)
{
    window = nullptr;
    release = 0;
    CadWindowSearch search;
    search.mode = static_cast<WORD>(mode);
    if (EnumWindows(FindAutoCadWindowProc, reinterpret_cast<LPARAM>(&search)))
        return 0;
    window = search.window;
    release = search.release;
    return 1;
}

LRESULT SendStrCopyDataToWnd(HWND window, const wchar_t* text, int wide)
{
    COPYDATASTRUCT copy = {1, 0, nullptr};
    const auto send = [&] {
        return SendMessageW(window, WM_COPYDATA, reinterpret_cast<WPARAM>(window), reinterpret_cast<LPARAM>(&copy));
    };
    if (wide) {
        CString whole;
        whole.Format(L"%s", text);
        copy.cbData = static_cast<DWORD>(whole.GetLength() + 1);
        copy.lpData = const_cast<wchar_t*>(whole.GetString());
        return send();
    }
    char* bytes = nullptr;
    const int size = Str_WideCharToMultiByte(text, bytes);
    const std::unique_ptr<char[]> owner(bytes);
    const size_t length = size > 0 ? size_t(size) - 1 : 0;
    std::vector<char> data(length + 2, '\0');
    if (length != 0)
        std::memcpy(data.data(), bytes, length);
    copy.cbData = static_cast<DWORD>(data.size());
    copy.lpData = data.data();
    return send();
}

}   // namespace KxMfcEx
