#include "../Files.h"
#include "../CharTables.h"
#include "../CodePage.h"
#include "../KxWinTypes.h"
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

namespace KxPlat {
namespace {

int ErrorUnless(bool done)
{
    return done ? 0 : errno;
}

struct ErrorRow {
    int error;
    uint32_t winError;
};
const ErrorRow kErrors[] = {
    {0, ERROR_SUCCESS},
    {ENOENT, ERROR_FILE_NOT_FOUND},
    {ENOTDIR, ERROR_PATH_NOT_FOUND},
    {EACCES, ERROR_ACCESS_DENIED},
    {EPERM, ERROR_ACCESS_DENIED},
    {EROFS, ERROR_ACCESS_DENIED},
    {EISDIR, ERROR_ACCESS_DENIED},
    {EEXIST, ERROR_ALREADY_EXISTS},
    {ENOTEMPTY, ERROR_DIR_NOT_EMPTY},
    {EBADF, ERROR_INVALID_HANDLE},
    {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
    {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENOSPC, ERROR_DISK_FULL},
    {EINVAL, ERROR_INVALID_NAME},
    {ENAMETOOLONG, ERROR_INVALID_NAME},
    {EIO, ERROR_READ_FAULT},
};

}   // namespace

FileInfo FileInfoOf(const std::string& hostPath)
{
    FileInfo info;
    struct stat status = {};
    if (stat(hostPath.c_str(), &status) != 0)
        return info;
    info.exists = true;
    info.isFolder = S_ISDIR(status.st_mode);
    info.isRegular = S_ISREG(status.st_mode);
    info.writable = access(hostPath.c_str(), W_OK) == 0;
    info.size = static_cast<uint64_t>(status.st_size);
    info.created = status.st_ctime;
    info.modified = status.st_mtime;
    info.accessed = status.st_atime;
    info.stamp = {status.st_ino, info.size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
    return info;
}

std::vector<FolderEntry> ListFolder(const std::string& hostPath)
{
    std::vector<FolderEntry> entries;
    DIR* folder = opendir(hostPath.empty() ? "." : hostPath.c_str());
    if (folder == nullptr)
        return entries;
    while (const dirent* entry = readdir(folder)) {
        const std::string name = entry->d_name;
        if (name == "." || name == "..")
            continue;
        bool isFolder = entry->d_type == DT_DIR;
        if (entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN) {
            struct stat status = {};
            isFolder = stat((hostPath + "/" + name).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
        }
        entries.push_back({name, isFolder, entry->d_type == DT_LNK});
    }
    closedir(folder);
    std::sort(entries.begin(), entries.end(), [](const FolderEntry& a, const FolderEntry& b) {
        const int order = CompareNoCase(DecodeLossless(kUtf8, a.name), DecodeLossless(kUtf8, b.name));
        return order != 0 ? order < 0 : a.name < b.name;
    });
    return entries;
}

int MakeFolder(const std::string& hostPath)
{
    return ErrorUnless(mkdir(hostPath.c_str(), 0777) == 0);
}

int MakeFolders(const std::string& hostPath)
{
    for (size_t at = 1; at <= hostPath.size(); ++at) {
        if (at < hostPath.size() && hostPath[at] != '/')
            continue;
        const int error = MakeFolder(hostPath.substr(0, at));
        if (error != 0 && error != EEXIST)
            return error;
    }
    return FileInfoOf(hostPath).isFolder ? 0 : ENOTDIR;
}

int RemoveFolder(const std::string& hostPath)
{
    return ErrorUnless(rmdir(hostPath.c_str()) == 0);
}

int RemoveFile(const std::string& hostPath)
{
    return ErrorUnless(unlink(hostPath.c_str()) == 0);
}

int RenameFile(const std::string& from, const std::string& to)
{
    return ErrorUnless(rename(from.c_str(), to.c_str()) == 0);
}

int ChangeFolder(const std::string& hostPath)
{
    return ErrorUnless(chdir(hostPath.c_str()) == 0);
}

std::string CurrentFolder()
{
    std::string path(4096, '\0');
    while (getcwd(path.data(), path.size()) == nullptr) {
        if (errno != ERANGE)
            return "/";   // the folder was removed under this process
        path.resize(path.size() * 2);
    }
    path.resize(std::strlen(path.c_str()));
    return path;
}

std::string TempFolder()
{
    const char* wanted = std::getenv("TMPDIR");
    std::string path = wanted != nullptr && wanted[0] == '/' ? wanted : "/tmp";
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

std::string ReadWholeFile(const std::string& hostPath, int& error)
{
    MappedFile file;
    error = file.Open(hostPath);
    return std::string(file.View());
}

std::wstring SystemErrorText(int error)
{
    return FromUtf8(std::strerror(error));
}

uint32_t WinErrorOf(int error)
{
    for (const ErrorRow& row : kErrors) {
        if (row.error == error)
            return row.winError;
    }
    return ERROR_READ_FAULT;
}

}   // namespace KxPlat
