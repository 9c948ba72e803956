#include "Products.h"
#include "CadInfo.h"
#include "RegistryKey.h"
#include "RegistrySearch.h"
#include <vector>

namespace KxMfcEx {
namespace {

const wchar_t kCadKey[] = L"SOFTWARE\\Autodesk\\AutoCAD";
constexpr size_t kDataRoom = 2600;   // characters

struct CadProduct {
    int type;
    RegistryFilter filter;
};
const CadProduct kCadProducts[] = {{kProductAutoCad, FilterCAD}, {kProductCivil3D, FilterCivil3D}};

// A product of the family lies at "SOFTWARE\Kx\<name>\R18.2", for one user or for all of them; its folder is the value
// "Location".
struct OwnProduct {
    int type;
    const wchar_t *key, *program;
};
const OwnProduct kOwnProducts[] = {{kProductBase, L"SOFTWARE\\Kx\\KxArxBase", L"KxArxBase.arx"},
                                   {kProductHost, L"SOFTWARE\\Kx\\kxcad", L"kxcad"},
                                   {kProductLauncher, L"SOFTWARE\\Kx\\kxlaunch", L"kxlaunch"}};

struct Installation {
    int release;
    CString program;
};

template <class Row, size_t count>
const Row* RowOf(const Row (&rows)[count], int type)
{
    for (const Row& row : rows) {
        if (row.type == type)
            return &row;
    }
    return nullptr;
}

// The program of the first installation that a release's keys tell of; empty without one.
CString CadProgram(HKEY release, RegistryFilter filter)
{
    CStringArray names;
    for (const wchar_t* name : {L"ACADDRV", L"ColorBookLocation", L"ACAD"})
        names.Add(name);
    std::vector<wchar_t> data(kDataRoom + 1);
    DWORD type = 0, size = DWORD(kDataRoom * sizeof data[0]);
    auto* bytes = static_cast<BYTE*>(static_cast<void*>(data.data()));
    if (Reg_GetFirstSuiteNameValueData(release, names, &type, bytes, &size, filter) != 1)
        return CString();
    return FindInOrAbove(data.data(), L"Acad.exe");
}

std::vector<Installation> CadInstallations(RegistryFilter filter)
{
    std::vector<Installation> found;
    const RegistryKey root(HKEY_CURRENT_USER, kCadKey, RegistrySearchAccess());
    CString name;
    for (DWORD i = 0; root.KeyName(i, name); ++i) {
        const RegistryKey release(root.Get(), name, RegistrySearchAccess());
        const CString program = release.IsOpen() ? CadProgram(release.Get(), filter) : CString();
        if (!program.IsEmpty())
            found.push_back({ReleaseOfKeyName(name), program});
    }
    return found;
}

std::vector<Installation> OwnInstallations(const OwnProduct& product)
{
    std::vector<Installation> found;
    for (HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        const RegistryKey root(hive, product.key, KEY_READ);
        CString name, folder;
        for (DWORD i = 0; root.KeyName(i, name); ++i) {
            const RegistryKey release(root.Get(), name, KEY_READ);
            CFileStatus status;
            if (!release.Text(L"Location", folder))
                continue;
            const CString program = folder.TrimRight(L"\\/") + L"\\" + product.program;
            if (CFile::GetStatus(program, status))
                found.push_back({ReleaseOfKeyName(name), program});
        }
    }
    return found;
}

bool IsProduct(int type)
{
    return RowOf(kCadProducts, type) != nullptr || RowOf(kOwnProducts, type) != nullptr;
}

std::vector<Installation> Installations(int type)
{
    if (const CadProduct* cad = RowOf(kCadProducts, type))
        return CadInstallations(cad->filter);
    const OwnProduct* own = RowOf(kOwnProducts, type);
    return own != nullptr ? OwnInstallations(*own) : std::vector<Installation>();
}

PendingProfile& Pending()
{
    static PendingProfile pending;
    return pending;
}

}   // namespace

int GetProductInstallVers(int productType, CArray<int, int>& releases)
{
    const std::vector<Installation> found = Installations(productType);
    for (const Installation& installation : found)
        releases.Add(installation.release);
    return int(found.size());
}

int GetProductExePath(int productType, int release, CString& path)
{
    if (!IsProduct(productType))
        return -1;
    for (const Installation& installation : Installations(productType)) {
        if (installation.release != release)
            continue;
        path = installation.program;
        return 1;
    }
    return -2;
}

int WriteProfileValue(const wchar_t* path, const wchar_t* value)
{
    if (path == nullptr || *path == 0 || value == nullptr || *value == 0)
        return 0;
    const RegistryKey key(HKEY_CURRENT_USER, path, KEY_WRITE);
    return key.SetText(nullptr, value) ? 1 : 0;
}

const PendingProfile& GetPendingProfile()
{
    return Pending();
}

void SetPendingProfile(const wchar_t* path, const wchar_t* value)
{
    Pending() = {path, value};
}

}   // namespace KxMfcEx
