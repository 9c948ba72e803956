#include "support/TestRegistry.h"
#include "win/Registry.h"
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

TEST(RegistryProcesses, WriteInTurn)
{
    const KxTest::TestRegistry registry;
    constexpr int kProcesses = 3, kValues = 15;
    HKEY key = nullptr;
    ASSERT_EQ(
        RegCreateKeyExW(HKEY_CURRENT_USER, L"SOFTWARE\\KxTest", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
        0);
    const auto setText = [key](const std::wstring& name) {
        const auto* text = static_cast<const BYTE*>(static_cast<const void*>(L"x"));
        return RegSetValueExW(key, name.c_str(), 0, REG_SZ, text, 2 * sizeof(wchar_t)) != 0;
    };
    for (int process = 0; process < kProcesses; ++process) {
        if (fork() == 0) {
            bool failed = false;
            for (int i = 0; i < kValues; ++i)
                failed |= setText(std::to_wstring(process) + L"-" + std::to_wstring(i));
            _exit(failed);
        }
    }
    for (int process = 0; process < kProcesses; ++process) {
        int status = 0;
        wait(&status);
        EXPECT_EQ(status, 0);
    }
    DWORD values = 0;
    EXPECT_EQ(RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, nullptr, nullptr,
                               nullptr, nullptr),
              0);
    EXPECT_EQ(values, DWORD(kProcesses * kValues)) << "none overwrote another's, and this process sees them";
    RegCloseKey(key);
}

}   // namespace
