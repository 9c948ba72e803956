// A file of the fuzzing process, in memory where the system has such a folder.
#pragma once
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

namespace KxFuzz {

class File {
public:
    explicit File(const char* name)
    {
        namespace fs = std::filesystem;
        const fs::path base = fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
        m_folder = base / ("kx-fuzz-" + std::to_string(std::random_device()()));
        fs::create_directories(m_folder);
        m_path = (m_folder / name).string();
    }
    ~File()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    void Write(const uint8_t* data, size_t size) const
    {
        std::FILE* file = std::fopen(m_path.c_str(), "wb");
        if (file == nullptr || std::fwrite(data, 1, size, file) != size)
            std::abort();
        std::fclose(file);
    }
    const std::string& path() const { return m_path; }

private:
    std::filesystem::path m_folder;
    std::string m_path;
};

inline void Require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken promise: %s\n", what);
    std::abort();
}

}   // namespace KxFuzz
