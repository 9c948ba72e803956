#include "SupportFiles.h"
#include "../ap/Documents.h"
#include "../win/CodePage.h"
#include "../win/Files.h"
#include "../win/Modules.h"
#include "../win/Profile.h"
#include "acedads.h"
#include <algorithm>
#include <cwchar>
#include <vector>

namespace KxPlat {

namespace {

const wchar_t kSettingsFile[] = L"C:\\kxcad.ini";
const wchar_t kSection[] = L"Environment";

bool IsFile(const std::wstring& path)
{
    const FileInfo info = FileInfoOf(HostPath(path));
    return info.exists && !info.isFolder;
}

std::vector<std::wstring> Folders()
{
    std::vector<std::wstring> folders = {L""};
    if (AcApDocument* document = acDocManager->curDocument(); document != nullptr && document->isNamedDrawing()) {
        const std::wstring drawing = document->fileName();
        folders.push_back(drawing.substr(0, drawing.find_last_of(L'\\') + 1));
    }
    const std::wstring path = SupportPath();
    for (size_t start = 0; start < path.size();) {
        const size_t end = std::min(path.find(L';', start), path.size());
        std::wstring folder = path.substr(start, end - start);
        if (!folder.empty() && folder.back() != L'\\' && folder.back() != L'/')
            folder += L'\\';
        if (!folder.empty())
            folders.push_back(folder);
        start = end + 1;
    }
    folders.push_back(ProgramFolder());
    return folders;
}

}   // namespace

std::wstring ProgramFolder()
{
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring program(path);
    return program.substr(0, program.find_last_of(L'\\') + 1);
}

std::wstring FindSupportFile(const std::wstring& name)
{
    if (name.empty())
        return {};
    const bool hasFolder = name[0] == L'\\' || name[0] == L'/' || (name.size() > 1 && name[1] == L':');
    if (hasFolder)
        return IsFile(name) ? FullDrivePath(name) : L"";
    for (const std::wstring& folder : Folders()) {
        if (IsFile(folder + name))
            return FullDrivePath(folder + name);
    }
    return {};
}

std::wstring FindModuleFile(const std::wstring& name)
{
    const std::wstring found = FindSupportFile(name);
    const size_t dot = name.find_last_of(L".\\/:");
    const bool hasExtension = dot != std::wstring::npos && name[dot] == L'.';
    return found.empty() && !hasExtension && !name.empty() ? FindSupportFile(name + L".arx") : found;
}

std::wstring SupportPath()
{
    const char* first = std::getenv("KX_SUPPORT_PATH");
    const std::wstring setting = Setting(L"ACAD");
    return first != nullptr && *first != 0 ? FromUtf8(first) + L";" + setting : setting;
}

std::wstring Setting(const std::wstring& name)
{
    std::vector<wchar_t> value(8192);
    GetPrivateProfileStringW(kSection, name.c_str(), L"", value.data(), DWORD(value.size()), kSettingsFile);
    return value.data();
}

bool SetSetting(const std::wstring& name, const std::wstring& value)
{
    MakeFolders(HostPath(L"C:\\"));
    return WritePrivateProfileStringW(kSection, name.c_str(), value.c_str(), kSettingsFile) != FALSE;
}

}   // namespace KxPlat

int acedFindFile(const ACHAR* name, ACHAR* found)
{
    const std::wstring path = name != nullptr ? KxPlat::FindSupportFile(name) : L"";
    if (path.empty() || path.size() >= MAX_PATH)
        return RTERROR;
    std::wcscpy(found, path.c_str());
    return RTNORM;
}

int acedGetEnv(const ACHAR* name, ACHAR* value, size_t length)
{
    if (name == nullptr || value == nullptr || length == 0)
        return RTERROR;
    const std::wstring setting = KxPlat::Setting(name);
    value[0] = 0;
    if (setting.empty() || setting.size() >= length)
        return RTERROR;
    std::wcscpy(value, setting.c_str());
    return RTNORM;
}

int acedSetEnv(const ACHAR* name, const ACHAR* value)
{
    if (name == nullptr || value == nullptr)
        return RTERROR;
    return KxPlat::SetSetting(name, value) ? RTNORM : RTERROR;
}
