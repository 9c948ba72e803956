#include "Installations.h"
#include "KxMfcEx/CadInfo.h"
#include "KxMfcEx/Products.h"
#include "KxMfcEx/RegistryKey.h"
#include "KxMfcEx/RegistrySearch.h"

namespace KxLaunch {
namespace {

const wchar_t kCadKey[] = L"SOFTWARE\\Autodesk\\AutoCAD";

struct FlavourRow {
    int flavour, productType;
    const wchar_t* name;
};
const FlavourRow kFlavours[] = {{KxMfcEx::kPlainCad, KxMfcEx::kProductAutoCad, L"AutoCAD"},
                                {KxMfcEx::kCivil3D, KxMfcEx::kProductCivil3D, L"Civil 3D"}};

const FlavourRow* RowOf(int flavour)
{
    for (const FlavourRow& row : kFlavours)
        if (row.flavour == flavour)
            return &row;
    return nullptr;
}

// The products of one release.
void AddProducts(const KxMfcEx::RegistryKey& key, int release, std::vector<Installation>& found)
{
    CString name;
    for (DWORD i = 0; key.KeyName(i, name); ++i) {
        Installation installation;
        installation.release = release;
        installation.key = name;
        if (KxMfcEx::GetCADInfo(name, nullptr, &installation.flavour, &installation.language) == 0)
            continue;
        if (const FlavourRow* row = RowOf(installation.flavour))
            KxMfcEx::GetProductExePath(row->productType, release, installation.program);
        found.push_back(installation);
    }
}

}   // namespace

std::vector<Installation> InstalledPrograms()
{
    std::vector<Installation> found;
    const KxMfcEx::RegistryKey root(HKEY_CURRENT_USER, kCadKey, KxMfcEx::RegistrySearchAccess());
    CString name;
    for (DWORD i = 0; root.KeyName(i, name); ++i) {
        const KxMfcEx::RegistryKey release(root.Get(), name, KxMfcEx::RegistrySearchAccess());
        AddProducts(release, KxMfcEx::ReleaseOfKeyName(name), found);
    }
    return found;
}

const wchar_t* FlavourName(int flavour)
{
    const FlavourRow* row = RowOf(flavour);
    return row != nullptr ? row->name : L"another";
}

}   // namespace KxLaunch
