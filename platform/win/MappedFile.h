// A file seen as one block of bytes, for as long as the object lives.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace KxPlat {

class MappedFile {
public:
    MappedFile() = default;
    ~MappedFile() { Close(); }
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    // 0 or the system's error number. What cannot be mapped (a pipe, a file of the kernel's) is read into memory.
    int Open(const std::string& hostPath);
    void Close();
    std::string_view View() const { return std::string_view(m_data, m_size); }
    // Gives the memory before `upTo` bytes back; the bytes stay readable, and are fetched again when touched.
    void Drop(size_t upTo);

private:
    int ReadAll(int file);

    const char* m_data = nullptr;
    size_t m_size = 0;
    size_t m_dropped = 0;
    bool m_mapped = false;
    std::string m_read;
};

}   // namespace KxPlat
