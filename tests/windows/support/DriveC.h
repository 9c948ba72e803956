// Drive C: for one test. What the test leaves at its root is removed, so it must be the drive of a Wine of its own.
#pragma once
#include <filesystem>
#include <fstream>
#include <set>
#include <stdexcept>

namespace KxTest {

class DriveC {
public:
    DriveC()
    {
        if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr)
            throw std::runtime_error("drive C: is somebody's own");
        for (const auto& entry : std::filesystem::directory_iterator(Path()))
            m_before.insert(entry.path());
    }
    ~DriveC()
    {
        std::error_code ignored;
        std::set<std::filesystem::path> made;
        for (const auto& entry : std::filesystem::directory_iterator(Path(), ignored))
            made.insert(entry.path());
        for (const auto& path : made) {
            if (m_before.count(path) == 0)
                std::filesystem::remove_all(path, ignored);
        }
    }
    DriveC(const DriveC&) = delete;
    DriveC& operator=(const DriveC&) = delete;

    std::filesystem::path Path(const std::string& name = "") const
    {
        return (std::filesystem::path(L"C:\\") / std::u8string(name.begin(), name.end())).make_preferred();
    }
    void MakeFolder(const std::string& name) const { std::filesystem::create_directories(Path(name)); }
    void Write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(Path(name), std::ios::binary) << bytes;
    }

    // Another drive; false where a test cannot make one.
    bool AddDrive(char) const { return false; }

private:
    std::set<std::filesystem::path> m_before;
};

}   // namespace KxTest
