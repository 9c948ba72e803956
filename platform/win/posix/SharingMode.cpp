#include "../SharingMode.h"
#include <fcntl.h>
#include <unistd.h>

namespace KxPlat {
namespace {

// One byte for each thing that an open file may do or forbid.
enum Mark { kReads, kWrites, kForbidsReading, kForbidsWriting, kForbidsRemoval };

struct flock RegionOf(Mark mark, short kind)
{
    struct flock region = {};
    region.l_type = kind;
    region.l_whence = SEEK_SET;
    region.l_start = kEndOfLocks + 1 + mark;
    region.l_len = 1;
    return region;
}

void Set(int file, Mark mark)
{
    struct flock region = RegionOf(mark, F_RDLCK);
    fcntl(file, F_OFD_SETLK, &region);
}

// By another handle.
bool IsSet(int file, Mark mark)
{
    struct flock region = RegionOf(mark, F_WRLCK);
    return fcntl(file, F_OFD_GETLK, &region) == 0 && region.l_type != F_UNLCK;
}

struct Rule {
    bool applies;
    Mark own, others;   // the mark set, and the one that nobody else may have set
};

}   // namespace

bool TakeShare(int file, DWORD access, DWORD share)
{
    const Rule rules[] = {{(access & GENERIC_READ) != 0, kReads, kForbidsReading},
                          {(access & GENERIC_WRITE) != 0, kWrites, kForbidsWriting},
                          {(share & FILE_SHARE_READ) == 0, kForbidsReading, kReads},
                          {(share & FILE_SHARE_WRITE) == 0, kForbidsWriting, kWrites}};
    for (const Rule& rule : rules) {
        if (rule.applies)
            Set(file, rule.own);
    }
    for (const Rule& rule : rules) {
        if (rule.applies && IsSet(file, rule.others))
            return false;
    }
    if ((share & FILE_SHARE_DELETE) == 0)
        Set(file, kForbidsRemoval);
    return true;
}

bool IsRemovalForbidden(const char* path)
{
    const int file = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return false;
    const bool forbidden = IsSet(file, kForbidsRemoval);
    close(file);
    return forbidden;
}

}   // namespace KxPlat
