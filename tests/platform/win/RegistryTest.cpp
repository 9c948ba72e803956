// Windows names only: these rows hold on any implementation of the calls.
#include "KxWin.h"
#include "support/TestRegistry.h"
#include <cstring>
#include <gtest/gtest.h>

namespace {

constexpr DWORD kChar = sizeof(wchar_t);
const wchar_t kTop[] = L"SOFTWARE\\KxTest";

const BYTE* Bytes(const void* data)
{
    return static_cast<const BYTE*>(data);
}

// A registry of its own, with an open key SOFTWARE\KxTest of the user's.
class Registry : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(Create(kTop, m_key), 0); }
    void TearDown() override { RegCloseKey(m_key); }
    static LSTATUS Create(const wchar_t* name, HKEY& key, DWORD* disposition = nullptr)
    {
        return RegCreateKeyExW(HKEY_CURRENT_USER, name, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, disposition);
    }
    static LSTATUS Open(const wchar_t* name)
    {
        HKEY key = nullptr;
        const LSTATUS error = RegOpenKeyExW(HKEY_CURRENT_USER, name, 0, KEY_READ, &key);
        EXPECT_EQ(key != nullptr, error == 0);
        EXPECT_EQ(RegCloseKey(key), error == 0 ? 0 : 6);
        return error;
    }
    LSTATUS SetText(const wchar_t* name, const wchar_t* text)
    {
        return RegSetValueExW(m_key, name, 0, REG_SZ, Bytes(text), DWORD(std::wcslen(text) + 1) * kChar);
    }
    std::wstring Text(const wchar_t* name)
    {
        wchar_t text[128] = {};
        DWORD size = sizeof text;
        const LSTATUS error = RegQueryValueExW(m_key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size);
        return error == 0 ? text : L"?" + std::to_wstring(error);
    }

    KxTest::TestRegistry m_registry;
    HKEY m_key = nullptr;
};

TEST_F(Registry, NamesOfKeys)
{
    DWORD disposition = 0;
    HKEY key = nullptr, again = nullptr;
    EXPECT_EQ(Create(L"SOFTWARE\\KxTest\\R17.1\\ACAD-6001:804", key, &disposition), 0);
    EXPECT_EQ(disposition, REG_CREATED_NEW_KEY);
    EXPECT_EQ(Create(L"SOFTWARE\\KxTest\\R17.1\\ACAD-6001:804", again, &disposition), 0);
    EXPECT_EQ(disposition, REG_OPENED_EXISTING_KEY);
    EXPECT_NE(key, again);
    struct Row {
        const wchar_t* name;
        LSTATUS error;
    };
    static const Row rows[] = {{L"software\\kxTEST\\r17.1\\acad-6001:804", 0},
                               {L"SOFTWARE\\KxTest\\", 0},
                               {L"\\SOFTWARE\\KxTest", 161},
                               {L"SOFTWARE/KxTest", 2},
                               {L"SOFTWARE\\KxTest\\nope", 2},
                               {L"", 0},
                               {L"SOFTWARE\\KxTest ", 2}};
    for (const Row& row : rows)
        EXPECT_EQ(Open(row.name), row.error) << testing::PrintToString(row.name);
    EXPECT_EQ(Create(L"SOFTWARE\\KxTest\\x\\", key, &disposition), 0);
    EXPECT_EQ(disposition, REG_CREATED_NEW_KEY);
    EXPECT_EQ(Create(L"\\SOFTWARE", key), 161);
    EXPECT_EQ(Create((L"SOFTWARE\\" + std::wstring(255, L'n')).c_str(), key), 0);
    EXPECT_EQ(Create(nullptr, key), 0);
    EXPECT_EQ(Create(L"", key), 0);
    const HKEY wrong = reinterpret_cast<HKEY>(0x7778);
    EXPECT_EQ(RegCreateKeyExW(wrong, L"x", 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr), 6);
    wchar_t name[8];
    EXPECT_EQ(RegEnumKeyW(wrong, 0, name, 8), 6);
    EXPECT_EQ(RegOpenKeyExW(reinterpret_cast<HKEY>(0x7778), L"x", 0, KEY_READ, &key), 6);
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\KxTest", 0, KEY_READ, &key), 2);
}

TEST_F(Registry, HandlesEnd)
{
    HKEY key = nullptr;
    ASSERT_EQ(Create(L"SOFTWARE\\KxTest\\gone", key), 0);
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, kTop), 5) << "there is a key below";
    EXPECT_EQ(RegDeleteKeyW(m_key, L"GONE"), 0) << "though a handle is open";
    EXPECT_EQ(RegDeleteKeyW(m_key, L"gone"), 2);
    const DWORD one = 1;
    EXPECT_EQ(RegSetValueExW(key, L"v", 0, REG_DWORD, Bytes(&one), 4), 1018);
    HKEY again = nullptr;
    ASSERT_EQ(Create(L"SOFTWARE\\KxTest\\gone", again), 0);
    EXPECT_EQ(RegSetValueExW(key, L"v", 0, REG_DWORD, Bytes(&one), 4), 1018) << "the new key is another one";
    EXPECT_EQ(RegSetValueExW(again, L"v", 0, REG_DWORD, Bytes(&one), 4), 0);
    EXPECT_EQ(RegCloseKey(key), 0);
    EXPECT_EQ(RegCloseKey(key), 6);
    EXPECT_EQ(RegCloseKey(nullptr), 6);
    EXPECT_EQ(RegCloseKey(HKEY_CURRENT_USER), 0);
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, kTop, 0, KEY_READ, &key), 0);
    EXPECT_EQ(RegSetValueExW(key, L"v", 0, REG_DWORD, Bytes(&one), 4), 5) << "opened for reading";
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, L"SOFTWARE\\none"), 2);
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, kTop), 0);
    EXPECT_EQ(Open(kTop), 2);
    EXPECT_EQ(Open(L"SOFTWARE"), 0);
}

TEST_F(Registry, ValuesOfEveryType)
{
    const DWORD number = 0x12345678;
    const BYTE bytes[] = {1, 2, 255};
    struct Row {
        const wchar_t* name;
        DWORD type;
        const void* data;
        DWORD size, stored;
    };
    const Row rows[] = {{L"zeta", REG_SZ, L"one", 4 * kChar, 4 * kChar},
                        {L"nonul", REG_SZ, L"two", 3 * kChar, 4 * kChar},
                        {L"mid", REG_DWORD, &number, 4, 4},
                        {L"bad", REG_DWORD, &number, 2, 2},
                        {L"exp", REG_EXPAND_SZ, L"%WINDIR%\\x", 11 * kChar, 11 * kChar},
                        {nullptr, REG_SZ, L"def", 4 * kChar, 4 * kChar},
                        {L"empty", REG_SZ, L"", kChar, kChar},
                        {L"zero", REG_SZ, nullptr, 0, 0},
                        {L"bin", REG_BINARY, bytes, 3, 3},
                        {L"multi", REG_MULTI_SZ, L"a\0bc\0", 6 * kChar, 6 * kChar},
                        {L"ZETA", REG_SZ, L"three\"\\\n墙体", 11 * kChar, 11 * kChar}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.name));
        EXPECT_EQ(RegSetValueExW(m_key, row.name, 0, row.type, Bytes(row.data), row.size), 0);
        DWORD type = 153, size = 256;
        BYTE data[256] = {};
        EXPECT_EQ(RegQueryValueExW(m_key, row.name, nullptr, &type, data, &size), 0);
        EXPECT_EQ(type, row.type);
        EXPECT_EQ(size, row.stored);
        EXPECT_EQ(std::memcmp(data, row.data != nullptr ? row.data : data, row.size), 0);
    }
    EXPECT_EQ(Text(L"Zeta"), L"three\"\\\n墙体") << "names know no case";
    EXPECT_EQ(Text(L""), L"def");
    EXPECT_EQ(RegSetValueExW(m_key, L"x", 0, REG_BINARY, nullptr, 5), 998);
    DWORD count = 0, nameSize = 0, dataSize = 0;
    EXPECT_EQ(RegQueryInfoKeyW(m_key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &count, &nameSize,
                               &dataSize, nullptr, nullptr),
              0);
    EXPECT_EQ(count, 10u);
    EXPECT_EQ(nameSize, 5u);
    EXPECT_EQ(dataSize, 11 * kChar);
    wchar_t expanded[64];
    DWORD type = 0, size = sizeof expanded;
    EXPECT_EQ(RegGetValueW(m_key, nullptr, L"exp", RRF_RT_REG_SZ, &type, expanded, &size), 0);
    EXPECT_STREQ(expanded, L"C:\\windows\\x");
    EXPECT_EQ(type, DWORD(REG_SZ));
    EXPECT_EQ(size, 13 * kChar);
    EXPECT_EQ(RegGetValueW(m_key, nullptr, L"mid", RRF_RT_REG_SZ, nullptr, nullptr, nullptr), 1630);
    LONG legacy = sizeof expanded;
    EXPECT_EQ(RegQueryValueW(HKEY_CURRENT_USER, kTop, expanded, &legacy), 0);
    EXPECT_STREQ(expanded, L"def");
    EXPECT_EQ(legacy, LONG(4 * kChar));
    EXPECT_EQ(RegDeleteValueW(m_key, L"NONUL"), 0);
    EXPECT_EQ(RegDeleteValueW(m_key, L"nonul"), 2);
}

TEST_F(Registry, SmallBuffers)
{
    ASSERT_EQ(SetText(L"zeta", L"one"), 0);
    wchar_t text[8] = L"#######";
    auto* data = reinterpret_cast<BYTE*>(text);
    struct Row {
        DWORD room;
        LSTATUS error;
    };
    static const Row rows[] = {{2 * kChar, 234}, {4 * kChar - 1, 234}, {4 * kChar, 0}};
    for (const Row& row : rows) {
        DWORD size = row.room, type = 0;
        EXPECT_EQ(RegQueryValueExW(m_key, L"zeta", nullptr, &type, data, &size), row.error);
        EXPECT_EQ(type, DWORD(REG_SZ));
        EXPECT_EQ(size, 4 * kChar);
        EXPECT_STREQ(text, row.error == 0 ? L"one" : L"#######") << "a small buffer is left alone";
    }
    DWORD size = 5, type = 153;
    EXPECT_EQ(RegQueryValueExW(m_key, L"nope", nullptr, &type, data, &size), 2);
    EXPECT_EQ(size, 5u);
    EXPECT_EQ(type, 153u);
    EXPECT_EQ(RegQueryValueExW(m_key, L"nope", nullptr, &type, nullptr, &size), 2);
    EXPECT_EQ(size, 0u);
    EXPECT_EQ(RegQueryValueExW(m_key, L"zeta", nullptr, nullptr, nullptr, &size), 0);
    EXPECT_EQ(size, 4 * kChar);
    EXPECT_EQ(RegQueryValueExW(m_key, L"zeta", nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(RegQueryValueExW(m_key, L"zeta", nullptr, nullptr, data, nullptr), 87);
    wchar_t name[8];
    DWORD nameSize = 4;
    size = sizeof text;
    EXPECT_EQ(RegEnumValueW(m_key, 0, name, &nameSize, nullptr, nullptr, data, &size), 234);
    EXPECT_EQ(nameSize, 4u);
    EXPECT_EQ(size, 4 * kChar);
    nameSize = 5;
    size = 2;
    EXPECT_EQ(RegEnumValueW(m_key, 0, name, &nameSize, nullptr, nullptr, data, &size), 234);
    EXPECT_EQ(nameSize, 4u);
    EXPECT_EQ(size, 4 * kChar);
    nameSize = 5;
    EXPECT_EQ(RegEnumValueW(m_key, 0, name, &nameSize, nullptr, nullptr, nullptr, &size), 0);
    EXPECT_STREQ(name, L"zeta");
    EXPECT_EQ(RegEnumValueW(m_key, 0, name, nullptr, nullptr, nullptr, nullptr, nullptr), 87);
    EXPECT_EQ(RegEnumValueW(m_key, 1, name, &nameSize, nullptr, nullptr, nullptr, nullptr), 259);
}

TEST_F(Registry, KeysInTheOrderOfTheirNames)
{
    const std::vector<std::wstring> made = {L"b", L"A", L"c", L"_x", L"Z1", L"10", L"2", L"a b", L"中", L"ab"};
    HKEY key = nullptr;
    for (const std::wstring& name : made) {
        ASSERT_EQ(Create((std::wstring(kTop) + L"\\" + name).c_str(), key), 0);
        EXPECT_EQ(RegCloseKey(key), 0);
    }
    std::vector<std::wstring> names;
    wchar_t name[8];
    for (DWORD i = 0; RegEnumKeyW(m_key, i, name, 8) == 0; ++i)
        names.push_back(name);
    EXPECT_EQ(names, (std::vector<std::wstring>{L"10", L"2", L"_x", L"A", L"a b", L"ab", L"b", L"c", L"Z1", L"中"}));
    EXPECT_EQ(RegEnumKeyW(m_key, 10, name, 8), 259);
    EXPECT_EQ(RegEnumKeyW(m_key, 0, name, 2), 234);
    EXPECT_EQ(RegEnumKeyW(m_key, 0, name, 3), 0);
    DWORD size = 2;
    EXPECT_EQ(RegEnumKeyExW(m_key, 0, name, &size, nullptr, nullptr, nullptr, nullptr), 234);
    EXPECT_EQ(size, 2u);
    EXPECT_EQ(RegEnumKeyW(nullptr, 0, name, 8), 6);
    DWORD keys = 0, longest = 0;
    EXPECT_EQ(RegQueryInfoKeyW(m_key, nullptr, nullptr, nullptr, &keys, &longest, nullptr, nullptr, nullptr, nullptr,
                               nullptr, nullptr),
              0);
    EXPECT_EQ(keys, 10u);
    EXPECT_EQ(longest, 3u);
    int deleted = 0;
    for (DWORD i = 0; RegEnumKeyW(m_key, i, name, 8) == 0; ++i)
        deleted += RegDeleteKeyW(m_key, name) == 0 ? 1 : 0;
    EXPECT_EQ(deleted, 5) << "a walk by index over keys that go away meets every second one";
    while (RegEnumKeyW(m_key, 0, name, 8) == 0)
        deleted += RegDeleteKeyW(m_key, name) == 0 ? 1 : 0;
    EXPECT_EQ(deleted, 10);
}

TEST_F(Registry, The32BitViewOfTheMachine)
{
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\KxTest64", 0, nullptr, 0,
                              KEY_ALL_ACCESS | KEY_WOW64_32KEY, nullptr, &key, nullptr),
              0);
    EXPECT_EQ(RegCloseKey(key), 0);
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\KxTest64", 0, KEY_READ, &key), 2);
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Wow6432Node\\KxTest64", 0, KEY_READ, &key), 0);
    EXPECT_EQ(RegCloseKey(key), 0);
}

}   // namespace
