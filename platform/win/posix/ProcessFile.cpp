#include "../ProcessFile.h"
#include "../KxWinTypes.h"
#include <cerrno>
#include <climits>
#include <unistd.h>

namespace KxPlat {

uint32_t OwnProcessId()
{
    return static_cast<uint32_t>(getpid());
}

uint32_t ProcessFile(uint32_t processId, std::string& file)
{
    char path[PATH_MAX] = {};
    const std::string link = "/proc/" + std::to_string(processId) + "/exe";
    const ssize_t length = readlink(link.c_str(), path, sizeof path - 1);
    if (length <= 0)
        return errno == EACCES ? ERROR_ACCESS_DENIED : ERROR_INVALID_PARAMETER;
    file.assign(path, static_cast<size_t>(length));
    // A program that was replaced while it runs still has its name.
    const std::string gone = " (deleted)";
    if (file.size() > gone.size() && file.compare(file.size() - gone.size(), gone.size(), gone) == 0)
        file.resize(file.size() - gone.size());
    return ERROR_SUCCESS;
}

}   // namespace KxPlat
