// What tests ask of Windows.
#pragma once
#include "KxWin.h"
#include <cstring>
#include <filesystem>
#include <string>

namespace KxTest {

// For rows that do not hold there, each with its reason.
constexpr bool kOnWine = true;

// On drive Z:, which is the root of the system around Wine.
inline std::filesystem::path TempRoot()
{
    return L"Z:\\tmp";
}

inline std::wstring DriveForm(const std::filesystem::path& path)
{
    return std::filesystem::path(path).make_preferred().wstring();
}

inline std::filesystem::path RealPath(const std::wstring& drivePath)
{
    return drivePath;
}

// A variable that this process and those it starts see for as long as the object lives.
class Variable {
public:
    Variable(const char* name, const std::filesystem::path& value) : m_name(name, name + std::strlen(name))
    {
        m_before.resize(32768);
        m_before.resize(GetEnvironmentVariableW(m_name.c_str(), m_before.data(), DWORD(m_before.size())));
        Set(DriveForm(value));
    }
    ~Variable() { Set(m_before); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    // For the system and for the C runtime, which keeps a copy.
    void Set(const std::wstring& value) const
    {
        SetEnvironmentVariableW(m_name.c_str(), value.empty() ? nullptr : value.c_str());
        _wputenv((m_name + L"=" + value).c_str());
    }
    std::wstring m_name, m_before;
};

// Names the folder for temporary files.
inline const char kTempVariable[] = "TMP";

// False where folders cannot be linked.
inline bool LinkFolder(const std::filesystem::path&, const std::filesystem::path&)
{
    return false;
}

// All windows of the user's are seen: the tests run in a session of their own.
class WindowPlace {
public:
    explicit WindowPlace(const std::filesystem::path&) {}
};

}   // namespace KxTest
