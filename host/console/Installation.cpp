#include "Installation.h"
#include "RegistryTexts.h"
#include "win/CodePage.h"
#include "win/ElfVersion.h"
#include "win/Files.h"
#include "win/Format.h"
#include "win/Modules.h"
#include "win/Version.h"
#include <filesystem>
#include <vector>

using namespace KxPlat;

namespace KxConsole {

namespace fs = std::filesystem;

namespace {

const wchar_t kCadKey[] = L"SOFTWARE\\Autodesk\\AutoCAD\\";
const wchar_t kProfile[] = L"<<Unnamed Profile>>";
const wchar_t kProductName[] = L"kxcad";
const char kProgram[] = "acad.exe";
// What lies beside the program and is needed there again.
const char* const kBeside[] = {"libkxplatform.so", "KxArxBase.arx"};

// The product codes count the releases; 01 is the plain program, 409 English.
const struct {
    const wchar_t *release, *product;
} kProducts[] = {
    {L"18.0", L"ACAD-8001:409"}, {L"18.1", L"ACAD-9001:409"}, {L"18.2", L"ACAD-A001:409"}, {L"19.0", L"ACAD-B001:409"}};

// The family's products and their files, which lie in one folder.
const struct {
    const wchar_t *key, *file;
} kFamily[] = {{L"SOFTWARE\\Kx\\KxArxBase\\R1.0", L"KxArxBase.arx"},
               {L"SOFTWARE\\Kx\\kxcad\\R1.0", L"kxcad"},
               {L"SOFTWARE\\Kx\\kxlaunch\\R1.0", L"kxlaunch"}};

std::wstring ProductKey(const std::wstring& release)
{
    for (const auto& row : kProducts)
        if (release == row.release)
            return kCadKey + (L"R" + release) + L"\\" + row.product;
    return {};
}

std::wstring ProgramPath()
{
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return path;
}

// The bytes of this program with another product version of the same length in its version resource.
std::string ProgramOf(const std::wstring& release, int& error)
{
    std::string bytes = ReadWholeFile(HostPath(ProgramPath()), error);
    const std::string_view text = OwnVersionTextOf(bytes);
    const std::string name = "ProductVersion=";
    const size_t at = text.find(name);
    if (error != 0 || at == std::string_view::npos)
        return {};
    const size_t start = size_t(text.data() - bytes.data()) + at + name.size();
    const std::string version = ToUtf8(release);
    return bytes.replace(start, version.size(), version);
}

bool CopyProgram(const std::wstring& release, const fs::path& target, int& error)
{
    const std::string bytes = ProgramOf(release, error);
    if (bytes.empty())
        return false;
    AtomicFile file;
    error = file.Open(target.string());
    if (error != 0)
        return false;
    file.Write(bytes);
    error = file.Commit();
    std::error_code failure;
    if (error == 0)
        fs::permissions(target,
                        fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec | fs::perms::others_read |
                            fs::perms::others_exec,
                        failure);
    return error == 0 && !failure;
}

void LinkNeighbours(const fs::path& folder)
{
    const fs::path own = fs::path(HostPath(ProgramPath())).parent_path();
    std::error_code failure;
    if (fs::equivalent(own, folder, failure))
        return;
    for (const char* name : kBeside) {
        if (!fs::exists(own / name, failure))
            continue;
        if (fs::is_symlink(folder / name, failure))
            fs::remove(folder / name, failure);
        fs::create_symlink(own / name, folder / name, failure);
    }
}

bool EnterFamily()
{
    const std::wstring own = ProgramPath();
    const std::wstring folder = own.substr(0, own.find_last_of(L'\\'));
    for (const auto& product : kFamily)
        if (FileInfoOf(HostPath(folder + L"\\" + product.file)).exists && !WriteText(product.key, L"Location", folder))
            return false;
    return true;
}

bool EnterInRegistry(const std::wstring& key, const std::wstring& release, const std::wstring& folder)
{
    const std::wstring profiles = key + L"\\Profiles";
    return WriteText(key, L"ProductName", kProductName + (L" " + release)) && WriteText(key, L"AcadLocation", folder) &&
           WriteText(profiles, L"", kProfile) &&
           WriteText(profiles + L"\\" + kProfile + L"\\General", L"ACAD", folder) && EnterFamily();
}

bool IsOwn(const std::wstring& key)
{
    std::wstring product;
    return ReadText(key, L"ProductName", product) && product.starts_with(kProductName);
}

// The last release takes the family along.
void LeaveRegistry(const std::wstring& release)
{
    const std::wstring parent = kCadKey + (L"R" + release);
    if (KeysIn(parent).empty())
        RemoveTree(parent);
    for (const auto& row : kProducts)
        if (IsOwn(ProductKey(row.release)))
            return;
    for (const auto& product : kFamily)
        RemoveTree(product.key);
}

}   // namespace

std::wstring OwnRelease()
{
    const std::wstring path = ProgramPath();
    std::vector<char> block(GetFileVersionInfoSizeW(path.c_str(), nullptr));
    void* found = nullptr;
    UINT length = 0;
    if (block.empty() || !GetFileVersionInfoW(path.c_str(), 0, DWORD(block.size()), block.data()) ||
        !VerQueryValueW(block.data(), L"\\", &found, &length))
        return L"18.1";
    const DWORD version = static_cast<const VS_FIXEDFILEINFO*>(found)->dwProductVersionMS;
    return Format(L"%u.%u", HIWORD(version), LOWORD(version));
}

std::wstring Install(const std::wstring& release, const std::string& folderName)
{
    const std::wstring key = ProductKey(release);
    if (HasKey(key) && !IsOwn(key))
        return release + L": another CAD program of this release is installed";
    std::error_code failure;
    const fs::path folder = fs::absolute(HostPath(FromUtf8(folderName)), failure);
    int error = MakeFolders(folder.string());
    if (error == 0 && CopyProgram(release, folder / kProgram, error)) {
        LinkNeighbours(folder);
        return EnterInRegistry(key, release, DrivePath(folder.string())) ? L""
                                                                         : L"registry: the entry cannot be written";
    }
    return FromUtf8(folderName) + L": " + (error != 0 ? SystemErrorText(error) : L"the program cannot be copied");
}

std::wstring Uninstall(const std::wstring& release)
{
    const std::wstring key = ProductKey(release);
    std::wstring location;
    if (!IsOwn(key) || !ReadText(key, L"AcadLocation", location))
        return release + L": this release of kxcad is not installed";
    const fs::path folder = HostPath(location);
    std::error_code failure;
    for (const char* name : kBeside)
        if (fs::is_symlink(folder / name, failure))
            fs::remove(folder / name, failure);
    fs::remove(folder / kProgram, failure);
    if (!failure)
        fs::remove(folder, failure);   // an empty one only
    if (!RemoveTree(key))
        return L"registry: the entry cannot be removed";
    LeaveRegistry(release);
    return L"";
}

bool UseProfile(const std::wstring& release, const std::wstring& profile, std::wstring& folders)
{
    const std::wstring parent = kCadKey + (L"R" + release);
    for (const std::wstring& product : KeysIn(parent)) {
        const std::wstring profiles = parent + L"\\" + product + L"\\Profiles";
        if (profile.empty() || !HasKey(profiles + L"\\" + profile))
            continue;
        ReadText(profiles + L"\\" + profile + L"\\General", L"ACAD", folders);
        return WriteText(profiles, L"", profile);
    }
    return false;
}

}   // namespace KxConsole
