#include "Hosts.h"
#include "KxMfcEx/CadWindow.h"
#include "KxMfcEx/Processes.h"

namespace KxLaunch {
namespace {

enum Mode { kByTitle = 0, kByProgram = 1 };

int ReleaseOf(HWND window, Mode mode)
{
    KxMfcEx::CadWindowSearch search;
    search.mode = mode;
    KxMfcEx::FindAutoCadWindowProc(window, reinterpret_cast<LPARAM>(&search));
    return search.release;
}

BOOL CALLBACK Collect(HWND window, LPARAM list)
{
    Host host;
    host.window = window;
    if (Refresh(host) && (host.byTitle != 0 || host.byProgram != 0))
        reinterpret_cast<std::vector<Host>*>(list)->push_back(host);
    return TRUE;
}

}   // namespace

std::vector<Host> RunningHosts()
{
    std::vector<Host> hosts;
    EnumWindows(Collect, reinterpret_cast<LPARAM>(&hosts));
    return hosts;
}

bool Refresh(Host& host)
{
    if (!IsWindow(host.window))
        return false;
    wchar_t title[260] = {}, program[MAX_PATH] = {};
    GetWindowTextW(host.window, title, ARRAYSIZE(title));
    GetWindowThreadProcessId(host.window, &host.process);
    KxMfcEx::GetProcessFullPath(host.process, program);
    host.title = title;
    host.program = program;
    host.byTitle = ReleaseOf(host.window, kByTitle);
    host.byProgram = ReleaseOf(host.window, kByProgram);
    return true;
}

}   // namespace KxLaunch
