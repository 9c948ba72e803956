#include "KxMfcEx/FileVersion.h"
#include "KxMfcEx/Folders.h"
#include "KxMfcEx/Processes.h"
#include "KxMfcEx/StrUtils.h"
#include "support/AnsiPage.h"
#include "support/DriveC.h"
#include "support/ProgramFile.h"
#include "support/TempFolder.h"
#include <cstring>
#include <gtest/gtest.h>
#include <memory>

namespace {

using namespace KxMfcEx;
using KxTest::AnsiPage;
using KxTest::DriveC;
using KxTest::TempFolder;

TEST(FileVersion, ReadsTextsAndNumbers)
{
    const TempFolder folder;
    const KxTest::VersionStrings strings = {{u"FileDescription", u"图层工具"}, {u"FileVersion", u"18.1.49.0"},
                                            {u"InternalName", u"acad"},        {u"CompanyName", u"Kx"},
                                            {u"LegalCopyright", u"(C) 2010"},  {u"OriginalFilename", u"acad.exe"},
                                            {u"ProductName", u"AutoCAD 2011"}, {u"ProductVersion", u"18.1.49.0.0"}};
    folder.Write(
        "acad.exe",
        KxTest::ProgramFile(KxTest::VersionResource({18, 1, 49, 0, 65535, 2, 3, 40000}, 0x804, 0x4B0, strings), true));
    CFileVersion version;
    ASSERT_EQ(version.Open(folder.DrivePath(L"ACAD.EXE").c_str()), 1);
    EXPECT_STREQ(version.GetFileDescription(), L"图层工具");
    EXPECT_STREQ(version.GetFileVersion(), L"18.1.49.0");
    EXPECT_STREQ(version.GetInternalName(), L"acad");
    EXPECT_STREQ(version.GetCompanyName(), L"Kx");
    EXPECT_STREQ(version.GetLegalCopyright(), L"(C) 2010");
    EXPECT_STREQ(version.GetOriginalFilename(), L"acad.exe");
    EXPECT_STREQ(version.GetProductName(), L"AutoCAD 2011");
    EXPECT_STREQ(version.GetProductVersion(), L"18.1.49.0.0");
    EXPECT_STREQ(version.GetFixedFileVersion(), L"18,1,49,0");
    EXPECT_STREQ(version.GetFixedProductVersion(), L"65535,2,3,40000");
    EXPECT_STREQ(version.QueryValue(L"Comments"), L"");
    EXPECT_STREQ(version.QueryValue(L"FileVersion", 0x080404B0), L"18.1.49.0");
    EXPECT_STREQ(version.QueryValue(L"FileVersion", 0x040904B0), L"") << "no texts in that language";
    VS_FIXEDFILEINFO info = {};
    EXPECT_EQ(version.GetFixedInfo(info), 1);
    EXPECT_EQ(info.dwFileVersionMS, 0x00120001u);
}

TEST(FileVersion, ClosedOneIsEmpty)
{
    const TempFolder folder;
    folder.Write("acad.exe",
                 KxTest::ProgramFile(
                     KxTest::VersionResource({1, 2, 3, 4, 1, 2, 3, 4}, 0x409, 0x4B0, {{u"FileVersion", u"1"}}), false));
    folder.Write("text.exe", "text");
    CFileVersion version;
    VS_FIXEDFILEINFO info = {};
    const auto expectEmpty = [&] {
        EXPECT_STREQ(version.QueryValue(L"FileVersion"), L"");
        EXPECT_STREQ(version.GetFixedFileVersion(), L"");
        EXPECT_STREQ(version.GetFixedProductVersion(), L"");
        EXPECT_EQ(version.GetFixedInfo(info), 0);
    };
    expectEmpty();
    ASSERT_EQ(version.Open(folder.DrivePath(L"acad.exe").c_str()), 1);
    EXPECT_STREQ(version.GetFileVersion(), L"1");
    EXPECT_EQ(version.Open(folder.DrivePath(L"text.exe").c_str()), 0);
    expectEmpty();
    ASSERT_EQ(version.Open(folder.DrivePath(L"acad.exe").c_str()), 1);
    version.Close();
    expectEmpty();
    EXPECT_EQ(version.Open(folder.DrivePath(L"missing.exe").c_str()), 0);
}

TEST(FileVersion, AFileWithoutTranslationIsRefused)
{
    const TempFolder folder;
    const std::string resource = KxTest::VersionNode(u"VS_VERSION_INFO", 0, 52, std::string(52, '\x01'));
    folder.Write("x.dll", KxTest::ProgramFile(resource, true));
    CFileVersion version;
    EXPECT_EQ(version.Open(folder.DrivePath(L"x.dll").c_str()), 0);
    EXPECT_STREQ(version.GetFixedFileVersion(), L"");
}

class MakeDirTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_drive.MakeFolder("a");
        m_drive.Write("file", "x");
        _wgetcwd(m_before, MAX_PATH);
        _wchdir(L"C:\\");
    }
    void TearDown() override { _wchdir(m_before); }
    bool IsFolder(const std::string& name) const { return std::filesystem::is_directory(m_drive.Path(name)); }

    DriveC m_drive;
    wchar_t m_before[MAX_PATH] = {};
};

TEST_F(MakeDirTest, CountsWhatItMakes)
{
    struct Row {
        const wchar_t* path;
        int parents, answer;
        const char* folder;   // that is there afterwards
    };
    static const Row rows[] = {
        {L"C:\\a", 0, 0, "a"},
        {L"C:\\a", 1, 0, "a"},
        {L"C:\\n", 0, 1, "n"},
        {L"C:\\n\\x\\y", 0, 0, "n"},
        {L"C:\\a\\b\\c", 1, 2, "a/b/c"},
        {L"C:\\a\\d\\e\\", 1, 2, "a/d/e"},
        {L"C:\\a\\d\\e\\", 1, 0, "a/d/e"},
        {L"C:\\中文\\图层", 1, 2, "中文/图层"},
        {L"new\\sub", 1, 2, "new/sub"},
        {L"a\\z", 1, 0, "a"},   // the second name is looked for below the first one's own folder
        {L"C:\\file\\x", 1, 0, "a"},
        {L"C:/s/t", 1, 0, "a"},
        {L"", 1, 0, "a"},
        {nullptr, 1, 0, "a"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.path));
        EXPECT_EQ(MakeDir(row.path, row.parents), row.answer);
        EXPECT_TRUE(IsFolder(row.folder));
        wchar_t current[MAX_PATH];
        EXPECT_STREQ(_wgetcwd(current, MAX_PATH), L"C:\\") << "the current folder stays";
    }
    EXPECT_FALSE(IsFolder("a/z"));
    EXPECT_FALSE(IsFolder("s"));
}

TEST(Processes, OwnPathInDriveForm)
{
    wchar_t path[MAX_PATH], own[MAX_PATH];
    GetModuleFileNameW(nullptr, own, MAX_PATH);
    EXPECT_EQ(GetProcessFullPath(GetCurrentProcessId(), path), 1);
    EXPECT_STREQ(path, own);
    EXPECT_EQ(GetProcessFullPath(4294967295u, path), 0);
    EXPECT_STREQ(path, L"");
    EXPECT_EQ(GetProcessFullPath(GetCurrentProcessId(), nullptr), 0);
}

TEST(Processes, DevicesBecomeDrives)
{
    const DriveC drive;
    struct Row {
        const wchar_t *device, *path;
        int answer;
    };
    static const Row rows[] = {{L"\\Device\\HarddiskVolume1\\Kx\\acad.exe", L"C:\\Kx\\acad.exe", 1},
                               {L"\\DEVICE\\harddiskvolume2\\usr\\bin\\x", L"Z:\\usr\\bin\\x", 1},
                               {L"\\Device\\HarddiskVolume2", L"Z:", 1},
                               {L"\\Device\\CdRom0\\setup.exe", L"\\Device\\CdRom0\\setup.exe", 0}};
    for (const Row& row : rows) {
        wchar_t out[MAX_PATH] = {};
        EXPECT_EQ(DosPathToNtPath(row.device, out), row.answer);
        EXPECT_STREQ(out, row.path);
    }
    wchar_t out[MAX_PATH] = {};
    if (drive.AddDrive('a')) {
        wchar_t device[100] = {};
        ASSERT_NE(QueryDosDeviceW(L"A:", device, 100), 0u);
        const std::wstring path = std::wstring(device) + L"\\x";
        EXPECT_EQ(DosPathToNtPath(path.c_str(), out), 0) << "drives of floppy disks are passed over";
        EXPECT_EQ(out, path);
    }
    EXPECT_EQ(DosPathToNtPath(nullptr, out), 0);
    EXPECT_EQ(DosPathToNtPath(L"x", nullptr), 0);
}

TEST(Processes, A64BitProcessIsNoGuest)
{
    EXPECT_NE(GetProcAddress(GetModuleHandleW(L"kernel32"), "IsWow64Process"), nullptr);
    EXPECT_EQ(IsWin64(), 0);
}

TEST(StrUtils, NumbersOfEveryRadix)
{
    struct Row {
        const wchar_t* text;
        int radix, answer;
    };
    static const Row rows[] = {{L"-1.5", 10, 1}, {L"1.2.3", 10, 0}, {L"ff", 16, 1},  {L"fg", 16, 0}, {L"2", 2, 0},
                               {L"-1.01", 2, 1}, {L"8", 8, 0},      {L"777", 8, 1},  {L"-", 10, 1},  {L"+", 10, 1},
                               {L".", 10, 1},    {L"-.", 16, 1},    {L"--1", 10, 0}, {L"", 10, 0},   {nullptr, 10, 0},
                               {L"12", 3, 0},    {L"12", 0, 0},     {L"1 2", 10, 0}, {L"A", 10, 0},  {L"+5", 10, 1},
                               {L"１", 10, 0},   {L"1e5", 10, 0},   {L"1e5", 16, 1}};
    for (const Row& row : rows)
        EXPECT_EQ(Str_IsNumString(row.text, row.radix), row.answer) << testing::PrintToString(row.text) << row.radix;
}

TEST(StrUtils, ConvertsIntoNewArrays)
{
    struct Row {
        unsigned page;
        const char* bytes;
        const wchar_t* text;
    };
    static const Row rows[] = {
        {65001, "墙 a", L"墙 a"}, {936, "\xC7\xBD a", L"墙 a"}, {1252, "\xC7\xE9", L"Çé"}, {1252, "", L""}};
    for (const Row& row : rows) {
        const AnsiPage page(row.page);
        if (!page.IsSet())
            continue;
        wchar_t* wide = nullptr;
        EXPECT_EQ(Str_MultiByteToWideChar(row.bytes, wide), int(std::wcslen(row.text)) + 1);
        const std::unique_ptr<wchar_t[]> wideOwner(wide);
        EXPECT_STREQ(wide, row.text);
        char* narrow = nullptr;
        EXPECT_EQ(Str_WideCharToMultiByte(row.text, narrow), int(std::strlen(row.bytes)) + 1);
        const std::unique_ptr<char[]> narrowOwner(narrow);
        EXPECT_STREQ(narrow, row.bytes);
    }
    wchar_t* wide = nullptr;
    char* narrow = nullptr;
    EXPECT_EQ(Str_MultiByteToWideChar(nullptr, wide), 0);
    EXPECT_EQ(wide, nullptr);
    EXPECT_EQ(Str_WideCharToMultiByte(nullptr, narrow), 0);
    EXPECT_EQ(narrow, nullptr);
}

TEST(StrUtils, Formats)
{
    EXPECT_STREQ(Str_Format(L"%s_%d%S", L"LOAD_ACAD", 180, "_X64"), L"LOAD_ACAD_180_X64");
}

}   // namespace
