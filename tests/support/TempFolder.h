// A folder of its own for one test, removed with all in it.
#pragma once
#include "support/TestSystem.h"
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace KxTest {

class TempFolder {
public:
    TempFolder()
    {
        std::random_device random;
        m_path = TempRoot() / ("kxtest-" + std::to_string(random()) + std::to_string(random()));
        std::filesystem::create_directories(m_path);
    }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::string Path(const std::string& name = "") const
    {
        return name.empty() ? m_path.string() : (m_path / name).string();
    }
    // The same in drive form.
    std::wstring DrivePath(const std::wstring& name = L"") const
    {
        return DriveForm(m_path) + (name.empty() ? L"" : L"\\" + name);
    }
    std::string Write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(m_path / name, std::ios::binary) << bytes;
        return Path(name);
    }
    std::string Read(const std::string& name) const
    {
        std::ifstream in(m_path / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

private:
    std::filesystem::path m_path;
};

}   // namespace KxTest
