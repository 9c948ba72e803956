#include "Files.h"
#include "CodePage.h"
#include "KxWinTypes.h"
#include <algorithm>
#include <cerrno>

namespace KxPlat {
namespace {

std::wstring Wide(const std::string& hostPath)
{
    return Decode(CP_UTF8, hostPath);
}

int64_t SecondsOf(const FILETIME& time)
{
    const int64_t ticks = int64_t(time.dwHighDateTime) << 32 | int64_t(time.dwLowDateTime);
    return (ticks - 116444736000000000) / 10000000;
}

}   // namespace

std::string HostPath(std::wstring_view path)
{
    std::string name = Encode(CP_UTF8, path);
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

std::wstring FullDrivePath(std::wstring_view path)
{
    const std::wstring name(path);
    wchar_t full[1024] = {};
    const DWORD length = GetFullPathNameW(name.c_str(), ARRAYSIZE(full), full, nullptr);
    return length == 0 || length >= ARRAYSIZE(full) ? name : std::wstring(full, length);
}

FileInfo FileInfoOf(const std::string& hostPath)
{
    FileInfo info;
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (!GetFileAttributesExW(Wide(hostPath).c_str(), GetFileExInfoStandard, &data))
        return info;
    info.exists = true;
    info.isFolder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    info.writable = (data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) == 0;
    info.size = uint64_t(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
    info.created = SecondsOf(data.ftCreationTime);
    info.modified = SecondsOf(data.ftLastWriteTime);
    info.accessed = SecondsOf(data.ftLastAccessTime);
    return info;
}

int RemoveFile(const std::string& hostPath)
{
    return _wremove(Wide(hostPath).c_str()) == 0 ? 0 : errno;
}

int RenameFile(const std::string& from, const std::string& to)
{
    return _wrename(Wide(from).c_str(), Wide(to).c_str()) == 0 ? 0 : errno;
}

uint32_t WinErrorOf(int error)
{
    static const struct {
        int error;
        uint32_t number;
    } kErrors[] = {{0, ERROR_SUCCESS},
                   {ENOENT, ERROR_FILE_NOT_FOUND},
                   {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
                   {EACCES, ERROR_ACCESS_DENIED},
                   {EBADF, ERROR_INVALID_HANDLE},
                   {EEXIST, ERROR_FILE_EXISTS},
                   {EINVAL, ERROR_INVALID_NAME},
                   {ENOSPC, ERROR_DISK_FULL}};
    for (const auto& row : kErrors) {
        if (row.error == error)
            return row.number;
    }
    return ERROR_INVALID_PARAMETER;
}

}   // namespace KxPlat
