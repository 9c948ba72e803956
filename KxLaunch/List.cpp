#include "Commands.h"
#include "Hosts.h"
#include "Installations.h"
#include "KxMfcEx/Products.h"
#include "Text.h"

namespace KxLaunch {
namespace {

const struct {
    int type;
    const wchar_t* name;
} kFamily[] = {
    {KxMfcEx::kProductBase, L"KxArxBase"}, {KxMfcEx::kProductHost, L"kxcad"}, {KxMfcEx::kProductLauncher, L"kxlaunch"}};

void PrintProfiles(int release)
{
    CStringArray profiles, folders;
    KxMfcEx::GetProfileNames(release, profiles);
    const CString current = KxMfcEx::GetCurrentProfile(release);
    for (INT_PTR i = 0; i < profiles.GetSize(); ++i)
        Print(L"          profile  %s%s\n", profiles[i].GetString(),
              profiles[i].CompareNoCase(current) == 0 ? L"  (current)" : L"");
    KxMfcEx::GetTrustedPaths(release, folders);
    for (INT_PTR i = 0; i < folders.GetSize(); ++i)
        Print(L"          trusted  %s\n", folders[i].GetString());
}

void PrintCadPrograms()
{
    Print(L"CAD programs in the registry\n");
    const std::vector<Installation> programs = InstalledPrograms();
    int shown = 0;   // the release whose profiles were printed last
    for (const Installation& program : programs) {
        Print(L"  %-6s  %-8s  %-14s  %5d  %s\n", TextOfRelease(program.release).GetString(),
              FlavourName(program.flavour), program.key.GetString(), program.language,
              program.program.IsEmpty() ? L"(the program is not here)" : program.program.GetString());
        if (program.flavour == 1 && shown != program.release)
            PrintProfiles(shown = program.release);
    }
    if (programs.empty())
        Print(L"  none\n");
}

void PrintFamily()
{
    Print(L"Products of the family\n");
    bool isNone = true;
    for (const auto& row : kFamily) {
        CArray<int, int> releases;
        KxMfcEx::GetProductInstallVers(row.type, releases);
        for (INT_PTR i = 0; i < releases.GetSize(); ++i) {
            CString program;
            KxMfcEx::GetProductExePath(row.type, releases[i], program);
            Print(L"  %-6s  %-9s  %s\n", TextOfRelease(releases[i]).GetString(), row.name, program.GetString());
            isNone = false;
        }
    }
    if (isNone)
        Print(L"  none\n");
}

void PrintRunning()
{
    Print(L"Running\n");
    const std::vector<Host> hosts = RunningHosts();
    Print(hosts.empty() ? L"  none\n" : L"  by title  by program  process  title\n");
    for (const Host& host : hosts)
        Print(L"  %-8s  %-10s  %7u  %s\n", TextOfRelease(host.byTitle).GetString(),
              TextOfRelease(host.byProgram).GetString(), host.process, host.title.GetString());
}

}   // namespace

int List()
{
    PrintCadPrograms();
    PrintFamily();
    PrintRunning();
    return 0;
}

}   // namespace KxLaunch
