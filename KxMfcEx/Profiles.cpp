#include "CadInfo.h"
#include "Products.h"
#include "RegistryKey.h"
#include "StrFunLib.h"

namespace KxMfcEx {
namespace {

// "SOFTWARE\Autodesk\AutoCAD\R18.2\ACAD-A001:804\Profiles" of the first plain AutoCAD that has profiles; empty without
// one.
CString ProfilesPath(int release)
{
    const CString releasePath = CString(L"SOFTWARE\\Autodesk\\AutoCAD\\") + ReleaseKeyName(release);
    const RegistryKey root(HKEY_CURRENT_USER, releasePath, KEY_READ);
    CString name;
    for (DWORD i = 0; root.KeyName(i, name); ++i) {
        CString path = releasePath + L"\\" + name + L"\\Profiles";
        int flavour = -1;
        GetCADInfo(name, nullptr, &flavour, nullptr);
        if (flavour == kPlainCad && RegistryKey(HKEY_CURRENT_USER, path, KEY_READ).IsOpen())
            return path;
    }
    return CString();
}

// Empty when the release or the profile is not there.
CString SectionPath(int release, const wchar_t* profile, const wchar_t* section)
{
    const CString profiles = ProfilesPath(release);
    if (profiles.IsEmpty() || profile == nullptr || *profile == 0)
        return CString();
    const CString path = profiles + L"\\" + profile;
    return RegistryKey(HKEY_CURRENT_USER, path, KEY_READ).IsOpen() ? path + L"\\" + section : CString();
}

const wchar_t kSection[] = L"Variables";
const wchar_t kTrustedPaths[] = L"TRUSTEDPATHS";
const wchar_t kWithSubFolders[] = L"\\...";

// A trusted folder without the mark of its sub-folders.
CString WithoutMark(const CString& folder)
{
    const int length = folder.GetLength() - int(std::wcslen(kWithSubFolders));
    return folder.Mid(length) == kWithSubFolders ? folder.Left(length) : folder;
}

}   // namespace

CString GetCurrentProfile(int release)
{
    const CString path = ProfilesPath(release);
    CString name;
    if (!path.IsEmpty())
        RegistryKey(HKEY_CURRENT_USER, path, KEY_READ).Text(nullptr, name);
    return name;
}

int RememberCurrentProfile(int release)
{
    const CString name = GetCurrentProfile(release);
    if (name.IsEmpty())
        return 0;
    SetPendingProfile(ProfilesPath(release), name);
    return 1;
}

int GetProfileNames(int release, CStringArray& names)
{
    const CString path = ProfilesPath(release);
    if (path.IsEmpty())
        return 0;
    const RegistryKey profiles(HKEY_CURRENT_USER, path, KEY_READ);
    CString name;
    DWORD count = 0;
    for (; profiles.KeyName(count, name); ++count)
        names.Add(name);
    return int(count);
}

int GetProfileText(int release, const wchar_t* profile, const wchar_t* section, const wchar_t* name, CString& text)
{
    const CString path = SectionPath(release, profile, section);
    return !path.IsEmpty() && RegistryKey(HKEY_CURRENT_USER, path, KEY_READ).Text(name, text) ? 1 : 0;
}

int SetProfileText(int release, const wchar_t* profile, const wchar_t* section, const wchar_t* name,
                   const wchar_t* text)
{
    const CString path = SectionPath(release, profile, section);
    HKEY made = nullptr;
    if (path.IsEmpty() || text == nullptr ||
        RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_WRITE, nullptr, &made,
                        nullptr) != ERROR_SUCCESS)
        return 0;
    RegCloseKey(made);
    return RegistryKey(HKEY_CURRENT_USER, path, KEY_WRITE).SetText(name, text) ? 1 : 0;
}

int GetTrustedPaths(int release, CStringArray& folders)
{
    CString list;
    GetProfileText(release, GetCurrentProfile(release), kSection, kTrustedPaths, list);
    CStringArray fields;
    CStrFunLib::SplitString(list, fields, L';', 0);
    folders.Append(fields);
    return int(fields.GetSize());
}

int AddTrustedPath(int release, const wchar_t* folder, int withSubFolders)
{
    CString wanted(folder);
    wanted.TrimRight(L"\\/");
    if (wanted.IsEmpty() || wanted.Find(L';') >= 0)
        return 0;
    CStringArray folders, alike;
    GetTrustedPaths(release, folders);
    for (INT_PTR i = 0; i < folders.GetSize(); ++i) {
        // The mark is taken off first: Windows drops dots at the end of a name.
        const CString own = WithoutMark(folders[i]);
        if ((own.GetLength() != folders[i].GetLength()) == (withSubFolders != 0))
            alike.Add(own);
    }
    if (CStrFunLib::FindSamePath(alike, wanted) >= 0)
        return 1;
    folders.Add(withSubFolders ? wanted + kWithSubFolders : wanted);
    return SetProfileText(release, GetCurrentProfile(release), kSection, kTrustedPaths,
                          CStrFunLib::LinkArrayString(folders, L";"));
}

}   // namespace KxMfcEx
