#include "Commands.h"
#include "Hosts.h"
#include "KxMfcEx/Products.h"
#include "Text.h"

namespace KxLaunch {
namespace {

struct ProductRow {
    int type;
    const wchar_t* name;
};
const ProductRow kCadPrograms[] = {{KxMfcEx::kProductAutoCad, L"AutoCAD"}, {KxMfcEx::kProductCivil3D, L"Civil 3D"}};
const ProductRow kFamily[] = {
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

template <size_t count>
void PrintInstalled(const wchar_t* title, const ProductRow (&rows)[count], bool withProfiles)
{
    Print(L"%s\n", title);
    bool isNone = true;
    for (const ProductRow& row : rows) {
        CArray<int, int> releases;
        KxMfcEx::GetProductInstallVers(row.type, releases);
        for (INT_PTR i = 0; i < releases.GetSize(); ++i) {
            CString program;
            KxMfcEx::GetProductExePath(row.type, releases[i], program);
            Print(L"  %-6s  %-9s  %s\n", TextOfRelease(releases[i]).GetString(), row.name, program.GetString());
            if (withProfiles && row.type == KxMfcEx::kProductAutoCad)
                PrintProfiles(releases[i]);
            isNone = false;
        }
    }
    if (isNone)
        Print(L"  none\n");
}

}   // namespace

int List()
{
    PrintInstalled(L"Installed CAD programs", kCadPrograms, true);
    PrintInstalled(L"Installed products of the family", kFamily, false);
    const std::vector<Host> hosts = RunningHosts();
    Print(L"Running\n");
    if (hosts.empty())
        Print(L"  none\n");
    else
        Print(L"  by title  by program  process  title\n");
    for (const Host& host : hosts)
        Print(L"  %-8s  %-10s  %7u  %s\n", TextOfRelease(host.byTitle).GetString(),
              TextOfRelease(host.byProgram).GetString(), host.process, host.title.GetString());
    return 0;
}

}   // namespace KxLaunch
