#include "Commands.h"
#include "Hosts.h"
#include "KxMfcEx/Launch.h"
#include "KxMfcEx/Products.h"
#include "Text.h"

namespace KxLaunch {
namespace {

constexpr int kFirstPatience = 10;   // seconds until a started program shows its window
constexpr DWORD kPause = 50;         // milliseconds

int NewestRelease()
{
    CArray<int, int> releases;
    KxMfcEx::GetProductInstallVers(KxMfcEx::kProductAutoCad, releases);
    int newest = 0;
    for (INT_PTR i = 0; i < releases.GetSize(); ++i)
        newest = newest < releases[i] ? releases[i] : newest;
    return newest;
}

// Full paths, since the program starts in another folder. False after a complaint.
bool TakeFiles(Options& options)
{
    for (CString* file : {&options.module, &options.script, &options.rest}) {
        if (file->IsEmpty())
            continue;
        if (!IsFile(*file) || file->Find(L'"') >= 0) {
            Complain(*file, L"no such file");
            return false;
        }
        *file = FullPath(*file);
    }
    return true;
}

CString FolderOf(const CString& file)
{
    return file.Left(file.ReverseFind(L'\\'));
}

// What the user names here, and the trusted folders of the current profile, may be loaded without asking.
void TrustFolders(const Options& options)
{
    CStringArray folders;
    wchar_t before[4096] = {};
    if (GetEnvironmentVariableW(L"KX_TRUSTED_PATHS", before, ARRAYSIZE(before)) < ARRAYSIZE(before) && *before != 0)
        folders.Add(before);
    KxMfcEx::GetTrustedPaths(options.release, folders);
    for (const CString* file : {&options.module, &options.script})
        if (!file->IsEmpty())
            folders.Add(FolderOf(*file));
    CString list;
    for (INT_PTR i = 0; i < folders.GetSize(); ++i)
        list += (i != 0 ? L";" : L"") + folders[i];
    if (!list.IsEmpty())
        SetEnvironmentVariableW(L"KX_TRUSTED_PATHS", list);
}

bool TakeProfile(const Options& options)
{
    if (options.profile.IsEmpty())
        return true;
    CStringArray names;
    KxMfcEx::GetProfileNames(options.release, names);
    for (INT_PTR i = 0; i < names.GetSize(); ++i) {
        if (names[i].CompareNoCase(options.profile) != 0)
            continue;
        KxMfcEx::RememberCurrentProfile(options.release);
        return true;
    }
    Complain(options.profile, L"there is no such profile of this release");
    return false;
}

CString ContentsOf(const CString& path)
{
    CString text, line;
    CStdioFile file;
    if (path.IsEmpty() || !file.Open(path, CFile::modeRead | CFile::typeText))
        return text;
    while (file.ReadString(line))
        text += line + L"\n";
    return text;
}

// The script to start with: the user's own, or one that loads the module first; empty without either.
CString ScriptOf(const Options& options)
{
    if (options.module.IsEmpty())
        return options.script;
    wchar_t folder[780] = {};
    GetTempPathW(ARRAYSIZE(folder), folder);
    const CString path = CString(folder) + L"RunCad.SCR";
    CStdioFile file;
    if (file.Open(path, CFile::modeCreate | CFile::modeWrite | CFile::typeText))
        file.WriteString(KxMfcEx::StartupScript(options.module, ContentsOf(options.script), 1));
    return path;
}

// What no launcher of a script can say: a drawing, or a profile alone.
CString CommandLine(const Options& options, const CString& script)
{
    CString line(L"acad.exe /nologo");
    const struct {
        const wchar_t* format;
        const CString& value;
    } parts[] = {{L" \"%s\"", options.rest}, {L" /b \"%s\"", script}, {L" /p \"%s\"", options.profile}};
    for (const auto& part : parts)
        if (!part.value.IsEmpty())
            line.AppendFormat(part.format, part.value.GetString());
    return line;
}

int Launch(const Options& options, const CString& program)
{
    const bool isPlain = options.rest.IsEmpty() && options.profile.IsEmpty();
    if (isPlain && !options.module.IsEmpty())
        return KxMfcEx::RunAutoCadWithArx(options.release, options.module, ContentsOf(options.script), 1, nullptr);
    const CString script = ScriptOf(options);
    if (!options.rest.IsEmpty() || script.IsEmpty())
        return KxMfcEx::CreateAppointProcess(program, CommandLine(options, script));
    if (isPlain)
        return KxMfcEx::RunAutoCadWithScr(options.release, script, nullptr);
    return KxMfcEx::RunAutoCadWithScr2(options.release, script, options.profile, nullptr);
}

bool IsAmong(const std::vector<Host>& hosts, HWND window)
{
    for (const Host& host : hosts)
        if (host.window == window)
            return true;
    return false;
}

bool FindNew(const std::vector<Host>& before, int release, Host& found)
{
    for (const Host& host : RunningHosts()) {
        if (IsAmong(before, host.window) || (host.byTitle != release && host.byProgram != release))
            continue;
        found = host;
        return true;
    }
    return false;
}

// Until the new program's title names a drawing: then it takes texts.
int WaitUntilReady(const std::vector<Host>& before, const Options& options)
{
    const CString name = L"release " + TextOfRelease(options.release);
    const DWORD begin = GetTickCount();
    const auto isOver = [begin](int seconds) { return GetTickCount() - begin > DWORD(seconds) * 1000; };
    Host host;
    while (!FindNew(before, options.release, host)) {
        if (isOver(kFirstPatience))
            return Complain(name, L"was started, but shows no window");
        Sleep(kPause);
    }
    while (host.title.Find(L'[') < 0) {
        if (isOver(options.patience))
            return Complain(name, L"was started, but is not ready yet");
        Sleep(kPause);
        if (!Refresh(host))
            return Complain(name, L"ended while it was starting");
    }
    Print(L"%u  %s\n", host.process, host.title.GetString());
    return 0;
}

}   // namespace

int Start(const Options& given)
{
    Options options = given;
    if (options.release == 0)
        options.release = NewestRelease();
    if (options.release == 0)
        return Complain(L"CAD program", L"none is installed");
    CString program;
    if (KxMfcEx::GetProductExePath(KxMfcEx::kProductAutoCad, options.release, program) < 0)
        return Complain(L"release " + TextOfRelease(options.release), L"is not installed");
    if (!TakeFiles(options) || !TakeProfile(options))
        return 1;
    TrustFolders(options);
    const std::vector<Host> before = RunningHosts();
    if (Launch(options, program) <= 0)
        return Complain(program, L"cannot be started");
    return WaitUntilReady(before, options);
}

}   // namespace KxLaunch
