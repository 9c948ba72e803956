#include "Launch.h"
#include "Products.h"

namespace KxMfcEx {
namespace {

constexpr DWORD kPatience = 2000;   // milliseconds

bool IsFile(const wchar_t* path)
{
    CFileStatus status;
    return path != nullptr && CFile::GetStatus(path, status);
}

int Start(const wchar_t* program, CString commandLine, PROCESS_INFORMATION& info)
{
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_SHOWMAXIMIZED;
    const int result =
        CreateProcessW(program, commandLine.GetBuffer(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &info);
    commandLine.ReleaseBuffer();
    return result;
}

// Once the program has read the profile it was started with, the user's own becomes the current one again.
void WaitAndRestoreProfile(const PROCESS_INFORMATION& info)
{
    WaitForSingleObject(info.hProcess, kPatience);
    CloseHandle(info.hThread);
    CloseHandle(info.hProcess);
    WriteProfileValue(GetPendingProfile().path, GetPendingProfile().value);
}

void AppendOption(CString& line, const wchar_t* format, const wchar_t* value)
{
    if (value != nullptr)
        line.AppendFormat(format, value);
}

int RunWithScript(int release, const wchar_t* script, const wchar_t* profile, const wchar_t* extra,
                  PROCESS_INFORMATION& info)
{
    if (!IsFile(script))
        return 0;
    CString program;
    const int found = GetProductExePath(kProductAutoCad, release, program);
    if (found < 0 || !IsFile(program))
        return found;
    CString line = CString(L" /b \"") + script + L"\"";
    AppendOption(line, L" /s \"%s\"", extra);
    AppendOption(line, L" /p \"%s\"", profile);
    return Start(program, line, info);
}

void WriteScript(const wchar_t* path, const wchar_t* script)
{
    CStdioFile file;
    if (!file.Open(path, CFile::modeCreate | CFile::modeWrite | CFile::typeText))
        return;
    try {
        file.WriteString(script);
        file.Close();
    } catch (CFileException* error) {
        error->Delete();
    }
}

}   // namespace

int RunAutoCadWithScr(int release, const wchar_t* script, const wchar_t* extra)
{
    PROCESS_INFORMATION info = {};
    return RunWithScript(release, script, nullptr, extra, info);
}

int RunAutoCadWithScr2(int release, const wchar_t* script, const wchar_t* profile, const wchar_t* extra)
{
    PROCESS_INFORMATION info = {};
    const int result = RunWithScript(release, script, profile, extra, info);
    if (info.hProcess != nullptr)
        WaitAndRestoreProfile(info);
    return result;
}

CString StartupScript(const wchar_t* module, const wchar_t* extra, int addPrinc)
{
    CString script;
    if (module != nullptr) {
        script = CString(L"(arxload \"") + module + L"\")";
        if (addPrinc)
            script += L"(princ)";
        script += L"\n";
        script.Replace(L'\\', L'/');
    }
    if (extra != nullptr && std::wcslen(extra) > 1)
        script += extra;
    return script;
}

int RunAutoCadWithArx(int release, const wchar_t* module, const wchar_t* extra, int addPrinc, const wchar_t*)
{
    CString path;
    if (module != nullptr || extra != nullptr) {
        wchar_t folder[780] = {};
        GetTempPathW(ARRAYSIZE(folder), folder);
        path = CString(folder) + L"RunCad.SCR";
        WriteScript(path, StartupScript(module, extra, addPrinc));
    }
    return RunAutoCadWithScr(release, path, nullptr);
}

int CreateAppointProcess(CString program, CString commandLine)
{
    if (!IsFile(program))
        return 0;
    wchar_t drive[_MAX_DRIVE] = {}, folder[_MAX_DIR] = {};
    _wsplitpath(program, drive, folder, nullptr, nullptr);
    const CString place = CString(drive) + folder;
    SetCurrentDirectoryW(place);
    PROCESS_INFORMATION info = {};
    const int result = Start(program.Mid(place.GetLength()), commandLine, info);
    if (result != 0)
        WaitAndRestoreProfile(info);
    return result;
}

}   // namespace KxMfcEx
