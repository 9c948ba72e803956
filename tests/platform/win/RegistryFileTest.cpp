#include "support/TempFolder.h"
#include "win/CodePage.h"
#include "win/Registry.h"
#include "win/RegistryStore.h"
#include "win/RegistryText.h"
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

using namespace KxPlat;
using KxTest::TempFolder;

const std::string kHead = "Windows Registry Editor Version 5.00\r\n";

// One line per value: path|name|type|bytes
std::vector<std::string> Listed(const RegistryKey& key, const std::string& path = "")
{
    std::vector<std::string> lines;
    if (!path.empty() && key.Values().empty() && key.Keys().empty())
        lines.push_back(path);
    for (const RegistryValue& value : key.Values()) {
        std::string hex;
        for (char byte : value.data) {
            char digits[3];
            std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned char>(byte));
            hex += digits;
        }
        lines.push_back(path + "|" + ToUtf8(value.name) + "|" + std::to_string(value.type) + "|" + hex);
    }
    for (const auto& child : key.Keys()) {
        const std::string name =
            path.empty() ? ToUtf8(child->Name()).substr(0, 9) : path + "\\" + ToUtf8(child->Name());
        const auto below = Listed(*child, name);
        lines.insert(lines.end(), below.begin(), below.end());
    }
    return lines;
}

struct Case {
    const char* text;   // behind the head
    std::vector<std::string> lines;
    size_t badLine = 0;
};

TEST(RegistryText, ReadsWhatExportsHold)
{
    static const Case cases[] = {
        {"\r\n[HKEY_CURRENT_USER\\A]\r\n\"n\"=\"v\"\r\n", {"HKEY_CURR\\A|n|1|76000000"}},
        {"[HKEY_CURRENT_USER\\A]\n@=\"\"\n", {"HKEY_CURR\\A||1|0000"}},
        {"[HKEY_CURRENT_USER\\A]\n\"a\\\\b\\\"c\"=\"x\\\\\"\n", {"HKEY_CURR\\A|a\\b\"c|1|78005c000000"}},
        {"[HKEY_CURRENT_USER\\A]\n\"n\"=\"1\r\n2\"\n\"m\"=dword:1\n",
         {"HKEY_CURR\\A|n|1|31000d000a0032000000", "HKEY_CURR\\A|m|4|01000000"}},
        {"[HKEY_CURRENT_USER\\A]\n\"n\" = dword:DEADBEEF ; why\n", {"HKEY_CURR\\A|n|4|efbeadde"}},
        {"[HKEY_CURRENT_USER\\A]\n\"n\"=hex:01,aB,\\\r\n  ff,\\\r\n  7\n\"m\"=hex:\n",
         {"HKEY_CURR\\A|n|3|01abff07", "HKEY_CURR\\A|m|3|"}},
        {"[HKEY_CURRENT_USER\\A]\n\"n\"=hex(2):25,00\n\"q\"=hex(b):01,00,00,00,00,00,00,80\n\"o\"=hex(0):\n",
         {"HKEY_CURR\\A|n|2|2500", "HKEY_CURR\\A|q|11|0100000000000080", "HKEY_CURR\\A|o|0|"}},
        {"[HKEY_CURRENT_USER\\A]\n\"n\"=hex(80000001):05\n", {"HKEY_CURR\\A|n|2147483649|05"}},
        {"[HKEY_CURRENT_USER\\A]\n\"n\"=\"1\"\n\"N\"=\"2\"\n", {"HKEY_CURR\\A|n|1|32000000"}},
        {"[HKEY_CURRENT_USER\\A]\n\"n\"=\"1\"\n\"m\"=dword:2\n\"N\"=-\n", {"HKEY_CURR\\A|m|4|02000000"}},
        {"[HKEY_CURRENT_USER\\A\\B]\n[HKEY_CURRENT_USER\\C]\n[-HKEY_CURRENT_USER\\a]\n", {"HKEY_CURR\\C"}},
        {"[-HKEY_CURRENT_USER\\none\\x]\n[HKEY_CURRENT_USER\\A]\n", {"HKEY_CURR\\A"}},
        {"[HKEY_CURRENT_USER\\A]\n[-HKEY_CURRENT_USER\\A]\n\"n\"=\"1\"\n", {"HKEY_CURR"}, 4},
        {"[HKEY_CURRENT_USER\\A]b]\n", {"HKEY_CURR\\A]b"}},
        {"[HKEY_CURRENT_USER\\图层]\n\"墙\"=\"体\"\n", {"HKEY_CURR\\图层|墙|1|53 4f"}},
        {"[HKEY_CLASSES_ROOT\\.dwg]\n", {"HKEY_LOCA\\SOFTWARE\\Classes\\.dwg"}},
        {"[HKCU\\A]\n\"n\"=\"1\"\n", {}, 2},
        {"\"n\"=\"1\"\n[HKEY_CURRENT_USER\\A]\n", {"HKEY_CURR\\A"}, 2},
        {"[HKEY_CURRENT_USER\\A]\nrubbish\n\"n\"=dword:1\n", {"HKEY_CURR\\A|n|4|01000000"}, 3},
        {"[HKEY_CURRENT_USER\\A]\n\"n\"=dword:123456789\n\"n\"=hex:1g\n\"n\"=hex(:1\n\"n\"=hex:111\n\"n\"=\n",
         {"HKEY_CURR\\A"},
         3},
        {"[HKEY_CURRENT_USER\\A]\n\"n\"=\"open\n\"m\"=dword:1\n", {"HKEY_CURR\\A"}, 3},
        {"[HKEY_CURRENT_USER\\A]\n\"n\"=\"a\" b\n\"m\"=dword:1\n", {"HKEY_CURR\\A|m|4|01000000"}, 3},
        {"[HKEY_CURRENT_USER\\A]\n\"n\n@\n\n", {"HKEY_CURR\\A"}, 3},
        {"[]\n[-]\n[\n[HKEY_CURRENT_USER\n", {}, 2},
        {"[HKEY_CURRENT_USER\\A]\n\"n\"=hex:01,\\", {"HKEY_CURR\\A"}, 3},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.text);
        std::vector<std::string> lines = row.lines;
        for (std::string& line : lines) {
            if (line.ends_with("53 4f"))   // U+4F53 and its end
                line.replace(line.size() - 5, 5, "534f0000");
        }
        for (RegistryEncoding encoding : {RegistryEncoding::Utf8, RegistryEncoding::Utf16}) {
            RegistryKey root;
            std::string bytes = kHead + row.text;
            if (encoding == RegistryEncoding::Utf16)
                bytes = "\xFF\xFE" + UnitBytes(FromUtf8(bytes));
            const RegistryReading reading = ReadRegistry(bytes, root);
            EXPECT_TRUE(reading.isRegistry);
            EXPECT_EQ(reading.encoding, encoding);
            EXPECT_EQ(reading.badLine, row.badLine);
            EXPECT_EQ(Listed(root), lines);
            RegistryKey again;
            const RegistryReading second = ReadRegistry(RegistryText(root, encoding), again);
            EXPECT_EQ(second.badLine, 0u);
            EXPECT_EQ(Listed(again), Listed(root)) << "written and read again";
        }
    }
}

TEST(RegistryText, OtherMarksAndVersions)
{
    struct Row {
        std::string bytes;
        bool isRegistry;
        std::vector<std::string> lines;
    };
    const std::string body = "[HKEY_CURRENT_USER\\A]\n\"n\"=\"é\"\n";
    std::string big = UnitBytes(FromUtf8(kHead + body));
    for (size_t i = 0; i < big.size(); i += 2)
        std::swap(big[i], big[i + 1]);
    const std::vector<std::string> lines = {"HKEY_CURR\\A|n|1|e9000000"};
    const Row rows[] = {{"\xEF\xBB\xBF" + kHead + body, true, lines},
                        {"\xFE\xFF" + big, true, lines},
                        {"REGEDIT4\n" + body, true, lines},
                        {"REGEDIT4\n[HKEY_CURRENT_USER\\A]\n\"n\"=hex(1):c3,a9,00\n", true, lines},
                        {"REGEDIT4\n[HKEY_CURRENT_USER\\A]\n\"n\"=hex:c3,a9\n", true, {"HKEY_CURR\\A|n|3|c3a9"}},
                        {"Windows Registry Editor Version 6.00\n" + body, false, {}},
                        {body, false, {}},
                        {"", false, {}},
                        {"\xFF\xFE\x57", false, {}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.bytes);
        RegistryKey root;
        EXPECT_EQ(ReadRegistry(row.bytes, root).isRegistry, row.isRegistry);
        EXPECT_EQ(Listed(root), row.lines);
    }
}

TEST(RegistryText, WritesAsAnExportDoes)
{
    RegistryKey root;
    RegistryKey& key = root.FindOrAdd(L"HKEY_CURRENT_USER").FindOrAdd(L"A");
    key.SetValue(L"", REG_SZ, UnitBytes(std::wstring(L"墙\"\\") + L'\0'));
    key.SetValue(L"d", REG_DWORD, std::string("\x2A\0\0\0", 4));
    key.SetValue(L"short", REG_DWORD, "\x2A");
    key.SetValue(L"line", REG_SZ, UnitBytes(std::wstring(L"\n") + L'\0'));
    key.SetValue(L"b", REG_BINARY, std::string(26, '\x01'));
    std::string ones;
    for (int i = 0; i < 25; ++i)
        ones += "01,";
    EXPECT_EQ(
        RegistryText(root, RegistryEncoding::Utf8),
        kHead +
            "\r\n[HKEY_CURRENT_USER]\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n@=\"墙\\\"\\\\\"\r\n\"d\"=dword:0000002a\r\n"
            "\"short\"=hex(4):2a\r\n\"line\"=hex(1):0a,00,00,00\r\n\"b\"=hex:" +
            ones + "\\\r\n  01\r\n");
}

class RegistryFileTest : public testing::Test {
protected:
    void SetUp() override { setenv("KX_REGISTRY", m_folder.Path("dir/t.reg").c_str(), 1); }
    void TearDown() override { unsetenv("KX_REGISTRY"); }
    void Put(const std::string& bytes)
    {
        std::filesystem::create_directories(m_folder.Path("dir"));
        m_folder.Write("dir/t.reg", bytes);
    }
    static LSTATUS Create(const wchar_t* name)
    {
        HKEY key = nullptr;
        const LSTATUS error =
            RegCreateKeyExW(HKEY_CURRENT_USER, name, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
        RegCloseKey(key);
        return error;
    }
    static LSTATUS Open(const wchar_t* name)
    {
        HKEY key = nullptr;
        const LSTATUS error = RegOpenKeyExW(HKEY_CURRENT_USER, name, 0, KEY_READ, &key);
        RegCloseKey(key);
        return error;
    }
    TempFolder m_folder;
};

TEST_F(RegistryFileTest, IsMadeAtTheFirstChange)
{
    EXPECT_EQ(Open(L"A"), 2);
    EXPECT_FALSE(std::filesystem::exists(m_folder.Path("dir"))) << "looking makes nothing";
    EXPECT_EQ(Create(L"A"), 0);
    EXPECT_EQ(m_folder.Read("dir/t.reg"), kHead + "\r\n[HKEY_CURRENT_USER]\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n");
}

TEST_F(RegistryFileTest, FollowsChangesFromOutside)
{
    Put(kHead + "[HKEY_CURRENT_USER\\A]\n");
    EXPECT_EQ(Open(L"A"), 0);
    Put(kHead + "[HKEY_CURRENT_USER\\B]\n[HKEY_CURRENT_USER\\C]\n");
    EXPECT_EQ(Open(L"A"), 2);
    EXPECT_EQ(Open(L"B"), 0);
    std::filesystem::remove(m_folder.Path("dir/t.reg"));
    EXPECT_EQ(Open(L"B"), 2);
}

TEST_F(RegistryFileTest, KeepsItsEncoding)
{
    Put("\xFF\xFE" + UnitBytes(FromUtf8(kHead + "[HKEY_CURRENT_USER\\图]\n")));
    EXPECT_EQ(Create(L"层"), 0);
    EXPECT_EQ(m_folder.Read("dir/t.reg").substr(0, 6), std::string("\xFF\xFEW\0i\0", 6));
    EXPECT_EQ(Open(L"图"), 0);
}

TEST_F(RegistryFileTest, NothingOfTheUsersIsLost)
{
    Put("my notes\n");
    EXPECT_EQ(Open(L"A"), 2);
    EXPECT_EQ(Create(L"A"), 1009) << "no registry";
    EXPECT_EQ(m_folder.Read("dir/t.reg"), "my notes\n");
    const std::string damaged = kHead + "[HKEY_CURRENT_USER\\A]\nx=1\n";
    Put(damaged);
    EXPECT_EQ(Create(L"B"), 0);
    EXPECT_EQ(m_folder.Read("dir/t.reg.damaged"), damaged);
    EXPECT_EQ(Open(L"A"), 0);
    std::filesystem::remove_all(m_folder.Path("dir"));
    m_folder.Write("dir", "a file");
    EXPECT_NE(Create(L"A"), 0) << "no folder can be made there";
}

}   // namespace
