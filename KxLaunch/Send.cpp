#include "Commands.h"
#include "Hosts.h"
#include "KxMfcEx/CadWindow.h"
#include "Text.h"

namespace KxLaunch {
namespace {

bool Holds(CString text, CString part)
{
    return text.MakeUpper().Find(part.MakeUpper()) >= 0;
}

bool IsWanted(const Host& host, const Options& options)
{
    return (options.release == 0 || options.release == host.byTitle || options.release == host.byProgram) &&
           (options.process == 0 || DWORD(options.process) == host.process) && Holds(host.title, options.title);
}

// What was asked for, as a complaint names it.
CString Wanted(const Options& options)
{
    CString text(L"running CAD program");
    if (options.release != 0)
        text += L" of release " + TextOfRelease(options.release);
    if (!options.title.IsEmpty())
        text += L" titled \"" + options.title + L"\"";
    if (options.process != 0)
        text.AppendFormat(L" in process %d", options.process);
    return text;
}

const wchar_t* WhyNot(DWORD error)
{
    switch (error) {
    case NO_ERROR:
        return L"it did not take the text";
    case ERROR_TIMEOUT:
        return L"it does not respond";
    default:
        return L"it has gone";
    }
}

}   // namespace

int Send(const Options& options)
{
    std::vector<Host> found;
    for (const Host& host : RunningHosts())
        if (IsWanted(host, options))
            found.push_back(host);
    if (found.empty())
        return Complain(Wanted(options), L"there is none");
    if (found.size() > 1) {
        for (const Host& host : found)
            Print(L"%u  %s\n", host.process, host.title.GetString());
        return Complain(Wanted(options), L"there are several; choose by --release, --title or --process");
    }
    SetLastError(NO_ERROR);
    const LRESULT answer = KxMfcEx::SendStrCopyDataToWnd(found[0].window, options.rest, 0);
    return answer != 0 ? 0 : Complain(found[0].title, WhyNot(GetLastError()));
}

}   // namespace KxLaunch
