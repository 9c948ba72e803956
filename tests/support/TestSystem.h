// What tests ask of the system that they run on; tests/windows/support/ holds the same for Windows.
#pragma once
#include <cstdlib>
#include <filesystem>
#include <string>

namespace KxTest {

// True on Wine, for rows that do not hold there.
constexpr bool kOnWine = false;

inline std::filesystem::path TempRoot()
{
    return std::filesystem::temp_directory_path();
}

// The drive form of an absolute path.
inline std::wstring DriveForm(const std::filesystem::path& path)
{
    std::wstring text = L"Z:" + path.wstring();
    for (wchar_t& character : text)
        character = character == L'/' ? L'\\' : character;
    return text;
}

// The way back, for paths below drive Z:.
inline std::filesystem::path RealPath(std::wstring drivePath)
{
    for (wchar_t& character : drivePath)
        character = character == L'\\' ? L'/' : character;
    return drivePath.substr(2);
}

// A variable that this process and those it starts see for as long as the object lives.
class Variable {
public:
    Variable(const char* name, const std::filesystem::path& value) : m_name(name) { setenv(name, value.c_str(), 1); }
    ~Variable() { unsetenv(m_name); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* m_name;
};

// Names the folder for temporary files.
inline const char kTempVariable[] = "TMPDIR";

// False where folders cannot be linked.
inline bool LinkFolder(const std::filesystem::path& target, const std::filesystem::path& link)
{
    std::filesystem::create_directory_symlink(target, link);
    return true;
}

// Windows of this test's programs only, kept in `folder`.
class WindowPlace {
public:
    explicit WindowPlace(const std::filesystem::path& folder) : m_variable("KX_WINDOWS", folder) {}

private:
    Variable m_variable;
};

}   // namespace KxTest
