// A folder of its own for one test, removed with all in it.
#pragma once
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
        m_path =
            std::filesystem::temp_directory_path() / ("kxtest-" + std::to_string(random()) + std::to_string(random()));
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
        std::wstring path = L"Z:" + m_path.wstring() + (name.empty() ? L"" : L"\\" + name);
        for (wchar_t& character : path)
            character = character == L'/' ? L'\\' : character;
        return path;
    }
    std::string Write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(Path(name), std::ios::binary) << bytes;
        return Path(name);
    }
    std::string Read(const std::string& name) const
    {
        std::ifstream in(Path(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

private:
    std::filesystem::path m_path;
};

}   // namespace KxTest
