#include "CharTables.h"
#include "CodePage.h"
#include "Files.h"
#include <cerrno>
#include <cstdlib>

namespace KxPlat {
namespace {

// Looking for a name leaves the caller's error number alone.
class KeptErrno {
public:
    KeptErrno() = default;
    ~KeptErrno() { errno = m_number; }
    KeptErrno(const KeptErrno&) = delete;
    KeptErrno& operator=(const KeptErrno&) = delete;

private:
    int m_number = errno;
};

std::string Environment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::string WithoutEndSlash(std::string path)
{
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

std::string DriveC()
{
    std::string folder = Environment("KX_DRIVE_C");
    if (folder.empty() || folder[0] != '/') {
        std::string data = Environment("XDG_DATA_HOME");
        if (data.empty() || data[0] != '/') {
            const std::string home = Environment("HOME");
            data = (home.empty() || home[0] != '/' ? TempFolder() : home) + "/.local/share";
        }
        folder = data + "/kxcad/drive_c";
    }
    return WithoutEndSlash(folder);
}

bool IsDriveLetter(wchar_t character)
{
    return character < 0x80 && IsLetter(character);
}

// The folder that a drive letter stands for, without a slash at its end: "" for the root itself.
std::string DriveRoot(wchar_t letter)
{
    letter = Lower(letter);
    if (letter == L'z')
        return "";
    std::string driveC = DriveC();
    if (letter == L'c')
        return driveC;
    return driveC.substr(0, driveC.rfind('/') + 1) + "drive_" + static_cast<char>(letter);
}

// The drive that holds a real absolute path, and the length of its root. Z: holds everything.
wchar_t DriveOf(const std::string& path, size_t& rootLength)
{
    const std::string root = DriveC();
    const bool within =
        path.compare(0, root.size(), root) == 0 && (path.size() == root.size() || path[root.size()] == '/');
    rootLength = within ? root.size() : 0;
    return within ? L'C' : L'Z';
}

bool IsSeparator(wchar_t character)
{
    return character == L'\\' || character == L'/';
}

std::vector<std::wstring> Components(std::wstring_view path)
{
    std::vector<std::wstring> parts;
    for (size_t at = 0; at < path.size();) {
        size_t end = at;
        while (end < path.size() && !IsSeparator(path[end]))
            ++end;
        if (end > at)
            parts.emplace_back(path.substr(at, end - at));
        at = end + 1;
    }
    return parts;
}

// Removes "." and resolves ".."; what rises above the top is dropped when `absolute`, else kept.
std::vector<std::wstring> Normalized(const std::vector<std::wstring>& parts, bool absolute)
{
    std::vector<std::wstring> out;
    for (const std::wstring& part : parts) {
        if (part == L".")
            continue;
        if (part != L"..") {
            out.push_back(part);
        } else if (!out.empty() && out.back() != L"..") {
            out.pop_back();
        } else if (!absolute) {
            out.push_back(part);
        }
    }
    return out;
}

std::string NameBytes(std::wstring_view name)
{
    std::string bytes;
    EncodeLossless(kUtf8, name, bytes);
    return bytes;
}

std::wstring NameText(std::string_view bytes)
{
    return DecodeLossless(kUtf8, bytes);
}

// Windows knows no name that ends in a dot or a blank.
std::wstring_view WithoutTail(std::wstring_view name)
{
    while (name.size() > 1 && (name.back() == L'.' || name.back() == L' '))
        name.remove_suffix(1);
    return name;
}

// The entry of `folder` that is meant by `name`, or `name` itself.
std::string FoundName(const std::string& folder, const std::wstring& name)
{
    std::string asSpelled = NameBytes(name);
    if (FileInfoOf(folder + asSpelled).exists)
        return asSpelled;
    const std::wstring_view plain = WithoutTail(name);
    for (const FolderEntry& entry : ListFolder(folder)) {
        if (EqualNoCase(NameText(entry.name), plain))
            return entry.name;
    }
    return name == L".." ? asSpelled : NameBytes(plain);
}

std::string Joined(std::string path, const std::vector<std::wstring>& parts)
{
    for (size_t i = 0; i < parts.size(); ++i) {
        if (!path.empty() && path.back() != '/')
            path += '/';
        path += FoundName(path, parts[i]);
    }
    return path;
}

std::wstring_view WithoutDevicePrefix(std::wstring_view path)
{
    const std::wstring_view head = path.substr(0, 4);
    return head == L"\\\\?\\" || head == L"\\\\.\\" ? path.substr(4) : path;
}

// A path taken apart: where it starts, and the names behind.
struct Start {
    wchar_t drive = 0;       // 0: the current one
    bool fromRoot = false;   // else from the current folder (of the drive)
    std::wstring_view rest;
};

Start StartOf(std::wstring_view path)
{
    Start start;
    start.rest = path;
    if (path.size() >= 2 && path[1] == L':' && IsDriveLetter(path[0])) {
        start.drive = Upper(path[0]);
        start.rest = path.substr(2);
    }
    start.fromRoot = !start.rest.empty() && IsSeparator(start.rest[0]);
    return start;
}

std::wstring DriveText(wchar_t drive, const std::vector<std::wstring>& parts)
{
    std::wstring text = {drive, L':'};
    if (parts.empty())
        return text + L'\\';
    for (const std::wstring& part : parts)
        text += L'\\' + part;
    return text;
}

}   // namespace

std::string HostPath(std::wstring_view path)
{
    const KeptErrno kept;
    path = WithoutDevicePrefix(path);
    if (path.empty())
        return "";
    if (path[0] == L'/') {
        std::string asSpelled = NameBytes(path);
        if (FileInfoOf(asSpelled).exists)
            return asSpelled;
        return Joined("/", Normalized(Components(path), true));
    }
    const Start start = StartOf(path);
    if (EqualNoCase(WithoutTail(start.rest), L"nul"))
        return "/dev/null";
    std::vector<std::wstring> parts = Components(start.rest);
    if (start.drive == 0 && !start.fromRoot) {
        const std::string relative = Joined("", Normalized(parts, false));
        return relative.empty() ? "." : relative;
    }
    const std::string current = CurrentFolder();
    size_t rootLength = 0;
    const wchar_t currentDrive = DriveOf(current, rootLength);
    const wchar_t drive = start.drive != 0 ? start.drive : currentDrive;
    std::string root = DriveRoot(drive);
    if (drive == L'C')
        MakeFolders(root);
    if (!start.fromRoot && drive == currentDrive) {
        const std::vector<std::wstring> above = Components(NameText(current.substr(rootLength)));
        parts.insert(parts.begin(), above.begin(), above.end());
    }
    return WithoutEndSlash(Joined(root + "/", Normalized(parts, true)));
}

std::wstring DrivePath(std::string_view hostPath)
{
    std::string path(hostPath);
    if (path.empty() || path[0] != '/')
        path = WithoutEndSlash(CurrentFolder()) + "/" + path;
    size_t rootLength = 0;
    const wchar_t drive = DriveOf(path, rootLength);
    return DriveText(drive, Normalized(Components(NameText(path.substr(rootLength))), true));
}

std::wstring FullDrivePath(std::wstring_view path)
{
    path = WithoutDevicePrefix(path);
    if (path.empty())
        return L"";
    if (path[0] == L'/')
        return DrivePath(NameBytes(path));
    const Start start = StartOf(path);
    const std::wstring current = DrivePath(CurrentFolder());
    const wchar_t drive = start.drive != 0 ? start.drive : current[0];
    std::vector<std::wstring> parts;
    if (!start.fromRoot && drive == current[0])
        parts = Components(std::wstring_view(current).substr(2));
    for (const std::wstring& part : Components(start.rest))
        parts.push_back(part);
    parts = Normalized(parts, true);
    if (!parts.empty())
        parts.back() = WithoutTail(parts.back());
    const bool folder = IsSeparator(path.back()) && !parts.empty();
    return DriveText(drive, parts) + (folder ? L"\\" : L"");
}

std::wstring DriveLetters()
{
    std::wstring letters;
    for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) {
        const std::string root = DriveRoot(letter);
        if (letter == L'C')
            MakeFolders(root);
        if (root.empty() || FileInfoOf(root).isFolder)
            letters += letter;
    }
    return letters;
}

}   // namespace KxPlat
