// The keys of one test in the user's registry, filled from the text of an export file.
#pragma once
#include "support/Run.h"
#include "support/TempFolder.h"
#include <gtest/gtest.h>

namespace KxTest {

class TestRegistry {
public:
    TestRegistry() { Clear(); }
    ~TestRegistry() { Clear(); }
    TestRegistry(const TestRegistry&) = delete;
    TestRegistry& operator=(const TestRegistry&) = delete;

    // Replaces what was there. `keys` is what follows the first line of the file.
    void Import(const std::string& keys) const
    {
        Clear();
        m_folder.Write("t.reg", Utf16("\xEF\xBB\xBFWindows Registry Editor Version 5.00\n\n" + keys));
        ASSERT_TRUE(Run(L"reg.exe import " + m_folder.DrivePath(L"t.reg")));
    }

private:
    static std::string Utf16(const std::string& text)
    {
        std::wstring units(text.size(), L'\0');
        units.resize(
            size_t(MultiByteToWideChar(CP_UTF8, 0, text.data(), int(text.size()), units.data(), int(units.size()))));
        return std::string(reinterpret_cast<const char*>(units.data()), 2 * units.size());
    }
    static void Clear()
    {
        for (const wchar_t* key : {L"SOFTWARE\\Autodesk", L"SOFTWARE\\Kx", L"SOFTWARE\\KxTest", L"Top"}) {
            RegDeleteTreeW(HKEY_CURRENT_USER, key);
            RegDeleteTreeW(HKEY_LOCAL_MACHINE, key);
        }
    }
    TempFolder m_folder;
};

}   // namespace KxTest
