#include "../AtomicFile.h"
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace KxPlat {
namespace {

// Follows links to the file that is meant, also where that file does not exist yet.
std::string FollowLinks(std::string path)
{
    for (int hops = 0; hops < 40; ++hops) {
        char text[4096];
        const ssize_t length = readlink(path.c_str(), text, sizeof text);
        if (length <= 0 || length == static_cast<ssize_t>(sizeof text))
            break;
        const std::string target(text, static_cast<size_t>(length));
        const size_t slash = path.rfind('/');
        path = target[0] == '/' || slash == std::string::npos ? target : path.substr(0, slash + 1) + target;
    }
    return path;
}

std::string TemporaryName(const std::string& target)
{
    const size_t slash = target.rfind('/');
    const size_t name = slash == std::string::npos ? 0 : slash + 1;
    // A long name leaves no room for a tail; its beginning is enough to know the file by.
    return target.substr(0, name) + "." + target.substr(name, 200) + ".kx-XXXXXX";
}

mode_t NewFileMode()
{
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

void SyncFolderOf(const std::string& path)
{
    const size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const int file = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0)
        return;
    fsync(file);
    close(file);
}

}   // namespace

int AtomicFile::Fail(int error)
{
    if (m_error == 0)
        m_error = error;
    return m_error;
}

int AtomicFile::Open(const std::string& hostPath)
{
    Discard();
    m_target = FollowLinks(hostPath);
    struct stat info = {};
    const bool exists = stat(m_target.c_str(), &info) == 0;
    if (exists && S_ISDIR(info.st_mode))
        return Fail(EISDIR);
    if (exists && !S_ISREG(info.st_mode)) {
        m_file = open(m_target.c_str(), O_WRONLY | O_CLOEXEC);
        return m_file < 0 ? Fail(errno) : 0;
    }
    if (exists && access(m_target.c_str(), W_OK) != 0)
        return Fail(errno);
    m_temporary = TemporaryName(m_target);
    m_file = mkostemp(m_temporary.data(), O_CLOEXEC);
    if (m_file < 0) {
        m_temporary.clear();
        return Fail(errno);
    }
    // Owner and mode go over as far as this user may set them.
    if (exists && fchown(m_file, info.st_uid, info.st_gid) != 0)
        errno = 0;
    if (fchmod(m_file, exists ? info.st_mode & 07777 : NewFileMode()) != 0)
        return Fail(errno);
    m_buffer.reserve(kBuffer + 4096);
    return 0;
}

void AtomicFile::Flush()
{
    size_t done = 0;
    while (done < m_buffer.size() && m_error == 0) {
        const ssize_t put = write(m_file, m_buffer.data() + done, m_buffer.size() - done);
        if (put < 0 && errno == EINTR)
            continue;
        if (put < 0)
            Fail(errno);
        else
            done += static_cast<size_t>(put);
    }
    m_buffer.clear();
}

void AtomicFile::WriteAt(uint64_t place, std::string_view bytes)
{
    Flush();
    while (!bytes.empty() && m_error == 0) {
        const ssize_t put = pwrite(m_file, bytes.data(), bytes.size(), static_cast<off_t>(place));
        if (put < 0 && errno == EINTR)
            continue;
        if (put < 0) {
            Fail(errno);
        } else {
            bytes.remove_prefix(static_cast<size_t>(put));
            place += static_cast<uint64_t>(put);
        }
    }
}

int AtomicFile::Commit()
{
    if (m_file < 0)
        return Fail(EBADF);
    Flush();
    if (!m_temporary.empty() && fsync(m_file) != 0)
        Fail(errno);
    if (close(m_file) != 0)
        Fail(errno);
    m_file = -1;
    if (m_error == 0 && !m_temporary.empty()) {
        if (rename(m_temporary.c_str(), m_target.c_str()) != 0)
            Fail(errno);
        else
            SyncFolderOf(m_target);
    }
    const int error = m_error;
    if (error == 0)
        m_temporary.clear();
    Discard();
    return error;
}

void AtomicFile::Discard()
{
    if (m_file >= 0)
        close(m_file);
    m_file = -1;
    if (!m_temporary.empty())
        unlink(m_temporary.c_str());
    m_temporary.clear();
    m_buffer.clear();
    m_error = 0;
}

}   // namespace KxPlat
