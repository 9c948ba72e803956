#include "../MappedFile.h"
#include <cerrno>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace KxPlat {

int MappedFile::Open(const std::string& hostPath)
{
    Close();
    const int file = open(hostPath.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return errno;
    struct stat info = {};
    int error = fstat(file, &info) != 0 ? errno : S_ISDIR(info.st_mode) ? EISDIR : 0;
    if (error == 0 && S_ISREG(info.st_mode) && info.st_size > 0) {
        void* data = mmap(nullptr, static_cast<size_t>(info.st_size), PROT_READ, MAP_PRIVATE, file, 0);
        if (data != MAP_FAILED) {
            m_data = static_cast<const char*>(data);
            m_size = static_cast<size_t>(info.st_size);
            m_mapped = true;
            madvise(data, m_size, MADV_SEQUENTIAL);
        }
    }
    if (error == 0 && !m_mapped)
        error = ReadAll(file);
    close(file);
    return error;
}

int MappedFile::ReadAll(int file)
{
    char block[65536];
    for (;;) {
        const ssize_t got = read(file, block, sizeof block);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return errno;
        if (got == 0)
            break;
        m_read.append(block, static_cast<size_t>(got));
    }
    m_data = m_read.data();
    m_size = m_read.size();
    return 0;
}

void MappedFile::Close()
{
    if (m_mapped)
        munmap(const_cast<char*>(m_data), m_size);
    m_data = nullptr;
    m_size = 0;
    m_dropped = 0;
    m_mapped = false;
    m_read.clear();
}

void MappedFile::Drop(size_t upTo)
{
    static const auto page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    const size_t end = (upTo < m_size ? upTo : m_size) / page * page;
    if (!m_mapped || end <= m_dropped)
        return;
    madvise(const_cast<char*>(m_data) + m_dropped, end - m_dropped, MADV_DONTNEED);
    m_dropped = end;
}

}   // namespace KxPlat
