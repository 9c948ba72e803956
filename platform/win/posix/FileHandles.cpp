#include "../FileHandles.h"
#include "../Files.h"
#include "../HandleTable.h"
#include "../SharingMode.h"
#include "../WinAnswer.h"
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class OpenFile : public KxPlat::KernelObject {
public:
    OpenFile(int number, DWORD asked) : file(number), access(asked) {}
    ~OpenFile() override { close(file); }
    const int file;
    const DWORD access;
};

// -1 for what is no open file, or is open for something else.
int FileOf(HANDLE handle, DWORD access = 0)
{
    const auto* open = dynamic_cast<OpenFile*>(KxPlat::ObjectOf(handle));
    const bool isAllowed = open != nullptr && (open->access & access) == access;
    if (!isAllowed)
        SetLastError(open == nullptr ? DWORD(ERROR_INVALID_HANDLE) : DWORD(ERROR_ACCESS_DENIED));
    return isAllowed ? open->file : -1;
}

HANDLE Refuse(DWORD error)
{
    SetLastError(error);
    return INVALID_HANDLE_VALUE;
}

struct Disposition {
    DWORD number;
    int flags;
    bool marksExisting;   // by the last error 183
};
const Disposition kDispositions[] = {
    {CREATE_NEW, O_CREAT | O_EXCL, false}, {CREATE_ALWAYS, O_CREAT | O_TRUNC, true}, {OPEN_EXISTING, 0, false},
    {OPEN_ALWAYS, O_CREAT, true},          {TRUNCATE_EXISTING, O_TRUNC, false},
};

const Disposition* DispositionOf(DWORD number)
{
    for (const Disposition& row : kDispositions) {
        if (row.number == number)
            return &row;
    }
    return nullptr;
}

// The error of a name that no file can have, 0 for the others.
DWORD NameError(const std::wstring& name, const std::string& path)
{
    if (name.empty())
        return ERROR_PATH_NOT_FOUND;
    if (name.find_first_of(L"*?<>|\"") != std::wstring::npos)
        return ERROR_INVALID_NAME;
    const KxPlat::FileInfo info = KxPlat::FileInfoOf(path);
    if (info.isFolder)
        return ERROR_ACCESS_DENIED;
    if (name.back() == L'\\' || name.back() == L'/')
        return ERROR_INVALID_NAME;
    const size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    return KxPlat::FileInfoOf(folder).isFolder ? DWORD(ERROR_SUCCESS) : DWORD(ERROR_PATH_NOT_FOUND);
}

// What is only written is opened for reading, too, where that is allowed: marks and locks need it.
int OpenWith(const std::string& path, DWORD access, int flags)
{
    const bool reads = (access & GENERIC_READ) != 0, writes = (access & GENERIC_WRITE) != 0;
    const int file = open(path.c_str(), (writes ? O_RDWR : O_RDONLY) | flags, 0666);
    return file < 0 && errno == EACCES && writes && !reads ? open(path.c_str(), O_WRONLY | flags, 0666) : file;
}

BOOL SetLock(HANDLE handle, int command, short kind, DWORD low, DWORD high, const OVERLAPPED* start)
{
    const int file = FileOf(handle);
    if (file < 0 || start == nullptr)
        return file < 0 ? FALSE : KxPlat::FailWith(ERROR_INVALID_PARAMETER);
    struct flock region = {};
    region.l_type = kind;
    region.l_whence = SEEK_SET;
    region.l_start = static_cast<off_t>((uint64_t(start->OffsetHigh) << 32 | start->Offset) & INT64_MAX);
    if (region.l_start > KxPlat::kEndOfLocks)
        return KxPlat::FailWith(ERROR_INVALID_PARAMETER);
    region.l_len = std::min(static_cast<off_t>((uint64_t(high) << 32 | low) & INT64_MAX),
                            static_cast<off_t>(KxPlat::kEndOfLocks - region.l_start));
    while (fcntl(file, command, &region) != 0) {
        if (errno != EINTR)
            return KxPlat::FailWith(errno == EAGAIN || errno == EACCES ? DWORD(ERROR_LOCK_VIOLATION)
                                                                       : KxPlat::WinErrorOf(errno));
    }
    return TRUE;
}

}   // namespace

HANDLE CreateFileW(LPCWSTR nameText, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security, DWORD disposition,
                   DWORD attributes, HANDLE templateFile)
{
    const Disposition* how = DispositionOf(disposition);
    if (how == nullptr)
        return Refuse(ERROR_INVALID_PARAMETER);
    const std::wstring name = nameText != nullptr ? nameText : L"";
    const std::string path = KxPlat::HostPath(name);
    const DWORD nameError = NameError(name, path);
    if (nameError != 0)
        return Refuse(nameError);
    const bool exists = KxPlat::FileInfoOf(path).exists;
    if (exists && disposition == CREATE_NEW)
        return Refuse(ERROR_FILE_EXISTS);
    // Nothing is cut away before the file is known to be free.
    const int file = OpenWith(path, access, (how->flags & ~O_TRUNC) | O_CLOEXEC);
    if (file < 0)
        return Refuse(KxPlat::WinErrorOf(errno));
    auto opened = std::make_unique<OpenFile>(file, access);
    if (!KxPlat::TakeShare(file, access, share))
        return Refuse(ERROR_SHARING_VIOLATION);
    if ((how->flags & O_TRUNC) != 0 && ftruncate(file, 0) != 0)
        return Refuse(KxPlat::WinErrorOf(errno));
    SetLastError(exists && how->marksExisting ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    return KxPlat::NewHandle(std::move(opened));
}

BOOL ReadFile(HANDLE handle, LPVOID buffer, DWORD count, LPDWORD done, LPOVERLAPPED overlapped)
{
    const int file = FileOf(handle, GENERIC_READ);
    if (done != nullptr)
        *done = 0;
    if (file < 0)
        return FALSE;
    ssize_t got = 0;
    while ((got = read(file, buffer, count)) < 0 && errno == EINTR) {
    }
    if (got < 0)
        return KxPlat::FailWith(errno == EBADF ? DWORD(ERROR_ACCESS_DENIED) : KxPlat::WinErrorOf(errno));
    if (done != nullptr)
        *done = static_cast<DWORD>(got);
    return TRUE;
}

BOOL WriteFile(HANDLE handle, LPCVOID bytes, DWORD count, LPDWORD done, LPOVERLAPPED overlapped)
{
    const int file = FileOf(handle, GENERIC_WRITE);
    if (done != nullptr)
        *done = 0;
    if (file < 0)
        return FALSE;
    DWORD put = 0;
    while (put < count) {
        const ssize_t step = write(file, static_cast<const char*>(bytes) + put, count - put);
        if (step < 0 && errno != EINTR)
            return KxPlat::FailWith(errno == EBADF ? DWORD(ERROR_ACCESS_DENIED) : KxPlat::WinErrorOf(errno));
        put += step > 0 ? static_cast<DWORD>(step) : 0;
        if (done != nullptr)
            *done = put;
    }
    return TRUE;
}

DWORD SetFilePointer(HANDLE handle, LONG low, LONG* high, DWORD origin)
{
    static const int kOrigins[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    const int file = FileOf(handle);
    if (file < 0)
        return INVALID_SET_FILE_POINTER;
    const int64_t offset =
        high != nullptr ? static_cast<int64_t>(uint64_t(uint32_t(*high)) << 32 | uint32_t(low)) : low;
    const off_t place = origin <= FILE_END ? lseek(file, offset, kOrigins[origin]) : -1;
    if (place < 0) {
        SetLastError(origin <= FILE_END ? ERROR_NEGATIVE_SEEK : ERROR_INVALID_PARAMETER);
        return INVALID_SET_FILE_POINTER;
    }
    SetLastError(ERROR_SUCCESS);
    if (high != nullptr)
        *high = static_cast<LONG>(static_cast<uint64_t>(place) >> 32);
    return static_cast<DWORD>(place);
}

DWORD GetFileSize(HANDLE handle, LPDWORD high)
{
    struct stat info = {};
    const int file = FileOf(handle);
    if (file < 0 || fstat(file, &info) != 0)
        return INVALID_FILE_SIZE;
    if (high != nullptr)
        *high = static_cast<DWORD>(static_cast<uint64_t>(info.st_size) >> 32);
    SetLastError(ERROR_SUCCESS);
    return static_cast<DWORD>(info.st_size);
}

BOOL LockFileEx(HANDLE handle, DWORD flags, DWORD reserved, DWORD low, DWORD high, LPOVERLAPPED start)
{
    const int command = (flags & LOCKFILE_FAIL_IMMEDIATELY) != 0 ? F_OFD_SETLK : F_OFD_SETLKW;
    return SetLock(handle, command, (flags & LOCKFILE_EXCLUSIVE_LOCK) != 0 ? F_WRLCK : F_RDLCK, low, high, start);
}

BOOL UnlockFileEx(HANDLE handle, DWORD reserved, DWORD low, DWORD high, LPOVERLAPPED start)
{
    return SetLock(handle, F_OFD_SETLK, F_UNLCK, low, high, start);
}
