#include "KxMfcEx/Products.h"
#include "KxMfcEx/Launch.h"
#include "KxMfcEx/RegistrySearch.h"
#include "support/ArgumentProgram.h"
#include "support/DriveC.h"
#include "support/TestRegistry.h"
#include <gtest/gtest.h>

namespace {

using namespace KxMfcEx;
using KxTest::DriveC;
using KxTest::TempFolder;
using KxTest::TestRegistry;
using KxTest::Variable;

// A drive C: with three programs that write down their arguments, and a registry that tells of two of them.
class Products : public testing::Test {
protected:
    void SetUp() override
    {
        for (const char* name : {"Acad2008/Support", "Acad2012", "Civil/Support", "Kx"})
            m_drive.MakeFolder(name);
        std::filesystem::create_directories(m_folder.Path("tmp"));
        for (const char* name : {"Acad2008/acad.exe", "Acad2012/acad.exe", "Civil/acad.exe", "Kx/kxcad"})
            KxTest::InstallArgumentProgram(m_drive.Path(name));
        m_drive.Write("start.scr", "");
        m_registry.Import(R"([HKEY_CURRENT_USER\SOFTWARE\Autodesk\AutoCAD\R17.1\ACAD-6000:804\Profiles\Civil\General]
"ACAD"="C:\\Civil\\Support"
[HKEY_CURRENT_USER\SOFTWARE\Autodesk\AutoCAD\R17.1\ACAD-6001:804\Profiles]
@="Architect"
[HKEY_CURRENT_USER\SOFTWARE\Autodesk\AutoCAD\R17.1\ACAD-6001:804\Profiles\Architect\General]
"acad"="C:\\none;C:\\Acad2008\\Support"
[HKEY_CURRENT_USER\SOFTWARE\Autodesk\AutoCAD\R17.1\ACAD-6001:804\Profiles\Plain]
[HKEY_CURRENT_USER\SOFTWARE\Autodesk\AutoCAD\R18.2\ACAD-A001:804]
"ACADDRV"="C:\\Acad2012"
[HKEY_CURRENT_USER\SOFTWARE\Autodesk\AutoCAD\R19.0\ACAD-B001:804]
"ACADDRV"="C:\\gone"
[HKEY_CURRENT_USER\SOFTWARE\Kx\kxcad\R1.0]
"Location"="C:\\Kx\\"
[HKEY_LOCAL_MACHINE\SOFTWARE\Kx\kxcad\R0.9]
"Location"="C:\\none"
)");
    }
    void TearDown() override { SetPendingProfile(L"", L""); }
    // What the started program was given, one argument a line.
    std::string Arguments()
    {
        for (int i = 0; i < 500 && !std::filesystem::exists(m_folder.Path("log")); ++i)
            Sleep(10);
        const std::string text = m_folder.Read("log");
        std::filesystem::remove(m_folder.Path("log"));
        return text;
    }

    TempFolder m_folder;
    DriveC m_drive;
    TestRegistry m_registry;
    Variable m_temp = {KxTest::kTempVariable, m_folder.Path("tmp")};
    Variable m_log = {"KX_TEST_LOG", m_folder.Path("log")};
};

TEST_F(Products, AreFoundByTheirPrograms)
{
    struct Row {
        int type;
        std::vector<int> releases;
    };
    static const Row rows[] = {
        {kProductAutoCad, {171, 182}}, {kProductCivil3D, {171}}, {kProductHost, {10}}, {kProductBase, {}}, {99, {}}};
    for (const Row& row : rows) {
        CArray<int, int> releases;
        EXPECT_EQ(GetProductInstallVers(row.type, releases), int(row.releases.size()));
        std::vector<int> found;
        for (INT_PTR i = 0; i < releases.GetSize(); ++i)
            found.push_back(releases[i]);
        EXPECT_EQ(found, row.releases) << row.type;
    }
    static const struct {
        int type, release, answer;
        const wchar_t* path;
    } paths[] = {{kProductAutoCad, 171, 1, L"C:\\Acad2008\\Acad.exe"},
                 {kProductAutoCad, 182, 1, L"C:\\Acad2012\\Acad.exe"},
                 {kProductCivil3D, 171, 1, L"C:\\Civil\\Acad.exe"},
                 {kProductHost, 10, 1, L"C:\\Kx\\kxcad"},
                 {kProductAutoCad, 190, -2, L"old"},
                 {kProductAutoCad, 0, -2, L"old"},
                 {99, 171, -1, L"old"}};
    for (const auto& row : paths) {
        CString path(L"old");
        EXPECT_EQ(GetProductExePath(row.type, row.release, path), row.answer);
        EXPECT_STREQ(path, row.path);
    }
}

TEST_F(Products, AValueHoldsAtMost2600Characters)
{
    for (const int length : {2599, 2600}) {   // and its terminator
        const std::string folders = "C:\\\\Acad2012;" + std::string(size_t(length - 12), ';');
        m_registry.Import("[HKEY_CURRENT_USER\\SOFTWARE\\Autodesk\\AutoCAD\\R18.2\\ACAD-A001:804]\n\"ACAD\"=\"" +
                          folders + "\"\n");
        CArray<int, int> releases;
        EXPECT_EQ(GetProductInstallVers(kProductAutoCad, releases), length == 2599 ? 1 : 0);
    }
}

TEST_F(Products, TheSearchTakesTheFirstAcceptedValue)
{
    static std::vector<std::wstring> s_asked;
    const RegistryFilter refuse = [](const wchar_t* path, const wchar_t* data) {
        s_asked.push_back(std::wstring(path) + L"=" + data);
        return 0;
    };
    m_registry.Import(R"([HKEY_CURRENT_USER\Top]
"A"="long text"
"B"="own"
[HKEY_CURRENT_USER\Top\K1]
"a"="first"
[HKEY_CURRENT_USER\Top\K2\K3]
"a"=hex:41,00,00,00,42,00,00
)");
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Top", 0, KEY_READ, &key), 0);
    CStringArray names;
    wchar_t text[32] = {};
    auto* data = reinterpret_cast<BYTE*>(text);
    DWORD type = 0, size = sizeof text;
    EXPECT_EQ(Reg_GetFirstSuiteNameValueData(key, names, &type, data, &size, nullptr), 0) << "no name";
    names.Add(L"a");
    EXPECT_EQ(Reg_GetFirstSuiteNameValueData(key, names, &type, data, &size, nullptr), 1);
    EXPECT_STREQ(text, L"long text") << "the key's own value comes first";
    EXPECT_EQ(size, 10 * sizeof text[0]);
    s_asked.clear();
    size = sizeof text;
    names.Add(L"B");
    EXPECT_EQ(Reg_GetFirstSuiteNameValueData(key, names, &type, data, &size, refuse), 0);
    EXPECT_EQ(s_asked, (std::vector<std::wstring>{L"\\A=long text", L"\\B=own", L"K1\\\\a=first", L"K2\\K3\\\\a=A"}));
    s_asked.clear();
    size = sizeof text;
    EXPECT_EQ(Reg_GetFirstSuiteNameValueData(key, names, &type, data, &size, refuse), 0);
    EXPECT_EQ(s_asked.size(), 4u) << "the path starts empty again";
    RegCloseKey(key);
    m_registry.Import("[HKEY_CURRENT_USER\\Top]\n\"a\"=\"x\"\n\"b\"=\"longer\"\n"
                      "[HKEY_CURRENT_USER\\Top\\K]\n\"b\"=\"below\"\n");
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Top", 0, KEY_READ, &key), 0);
    s_asked.clear();
    size = sizeof text;
    EXPECT_EQ(Reg_GetFirstSuiteNameValueData(key, names, &type, data, &size, refuse), 0);
    EXPECT_EQ(s_asked, (std::vector<std::wstring>{L"\\a=x", L"K\\\\b=below"})) << "a refused value leaves its size";
    m_registry.Import("[HKEY_CURRENT_USER\\Top]\n\"a\"=\"x\"\n");
    RegCloseKey(key);
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Top", 0, KEY_READ, &key), 0);
    s_asked.clear();
    size = sizeof text;
    names.Add(L"A");
    EXPECT_EQ(Reg_GetFirstSuiteNameValueData(key, names, &type, data, &size, refuse), 0);
    EXPECT_EQ(s_asked, (std::vector<std::wstring>{L"\\a=x", L"\\a=x"})) << "once for each name that it has";
    EXPECT_EQ(Reg_GetFirstSuiteNameValueData(nullptr, names, &type, data, &size, nullptr), 0);
    EXPECT_EQ(RegistrySearchAccess(), REGSAM(KEY_READ)) << "a process of the system's own kind";
    RegCloseKey(key);
}

TEST_F(Products, ProfilesAreReadAndWritten)
{
    CString text;
    EXPECT_STREQ(GetCurrentProfile(171), L"Architect");
    EXPECT_STREQ(GetCurrentProfile(182), L"") << "no profiles";
    EXPECT_STREQ(GetCurrentProfile(140), L"");
    CStringArray names;
    EXPECT_EQ(GetProfileNames(171, names), 2);
    EXPECT_STREQ(names[1], L"Plain");
    EXPECT_EQ(GetProfileText(171, L"architect", L"General", L"ACAD", text), 1);
    EXPECT_STREQ(text, L"C:\\none;C:\\Acad2008\\Support");
    EXPECT_EQ(GetProfileText(171, L"Nobody", L"General", L"ACAD", text), 0);
    EXPECT_EQ(SetProfileText(171, L"Plain", L"Variables", L"V", L"墙"), 1);
    EXPECT_EQ(GetProfileText(171, L"Plain", L"Variables", L"V", text), 1);
    EXPECT_STREQ(text, L"墙");
    EXPECT_EQ(SetProfileText(171, L"Nobody", L"Variables", L"V", L"1"), 0) << "no profile is made";
    EXPECT_EQ(AddTrustedPath(171, L"C:\\Kx\\", 0), 1);
    EXPECT_EQ(AddTrustedPath(171, L"c:/kx", 0), 1);
    EXPECT_EQ(AddTrustedPath(171, L"C:\\Kx", 1), 1);
    EXPECT_EQ(AddTrustedPath(171, L"C:\\KX\\", 1), 1);
    EXPECT_EQ(AddTrustedPath(171, L"C:\\a;b", 0), 0);
    EXPECT_EQ(AddTrustedPath(190, L"C:\\Kx", 0), 0);
    CStringArray folders;
    EXPECT_EQ(GetTrustedPaths(171, folders), 2);
    EXPECT_STREQ(folders[0], L"C:\\Kx");
    EXPECT_STREQ(folders[1], L"C:\\Kx\\...");
}

TEST_F(Products, ProfileValuesNeedAKey)
{
    const wchar_t kPath[] = L"SOFTWARE\\Autodesk\\AutoCAD\\R17.1\\ACAD-6001:804\\Profiles";
    static const struct {
        const wchar_t *path, *value;
        int answer;
    } rows[] = {
        {kPath, L"Plain", 1}, {L"", L"x", 0}, {kPath, L"", 0}, {nullptr, nullptr, 0}, {L"SOFTWARE\\none", L"x", 0}};
    for (const auto& row : rows)
        EXPECT_EQ(WriteProfileValue(row.path, row.value), row.answer);
    EXPECT_STREQ(GetCurrentProfile(171), L"Plain");
    EXPECT_EQ(RememberCurrentProfile(182), 0);
    EXPECT_STREQ(GetPendingProfile().path, L"");
    EXPECT_EQ(RememberCurrentProfile(171), 1);
    EXPECT_STREQ(GetPendingProfile().path, kPath);
    EXPECT_STREQ(GetPendingProfile().value, L"Plain");
}

TEST_F(Products, ScriptsStartTheProgram)
{
    EXPECT_EQ(RunAutoCadWithScr(171, nullptr, nullptr), 0);
    EXPECT_EQ(RunAutoCadWithScr(171, L"C:\\none.scr", nullptr), 0);
    EXPECT_EQ(RunAutoCadWithScr(190, L"C:\\start.scr", nullptr), -2);
    EXPECT_EQ(RunAutoCadWithScr(171, L"C:\\start.scr", nullptr), 1);
    EXPECT_EQ(Arguments(), "/b\nC:\\start.scr\n");
    EXPECT_EQ(RunAutoCadWithScr(182, L"C:\\start.scr", L"C:\\Kx support"), 1);
    EXPECT_EQ(Arguments(), "/b\nC:\\start.scr\n/s\nC:\\Kx support\n");
    EXPECT_EQ(RunAutoCadWithScr2(171, L"C:\\start.scr", L"建筑", L"s"), 1);
    EXPECT_TRUE(std::filesystem::exists(m_folder.Path("log"))) << "it waits for a program that ends soon";
    EXPECT_EQ(Arguments(), "/b\nC:\\start.scr\n/s\ns\n/p\n建筑\n");
    EXPECT_EQ(RunAutoCadWithScr2(171, L"C:\\start.scr", L"Plain", nullptr), 1);
    EXPECT_EQ(Arguments(), "/b\nC:\\start.scr\n/p\nPlain\n");
}

TEST_F(Products, AStartGivesTheProfileBack)
{
    ASSERT_EQ(RememberCurrentProfile(171), 1);
    WriteProfileValue(GetPendingProfile().path, L"Plain");   // what a program started with /p does
    EXPECT_EQ(RunAutoCadWithScr2(190, L"C:\\start.scr", L"Plain", nullptr), -2);
    EXPECT_STREQ(GetCurrentProfile(171), L"Plain") << "nothing was started";
    EXPECT_EQ(RunAutoCadWithScr2(171, L"C:\\start.scr", L"Plain", nullptr), 1);
    EXPECT_STREQ(GetCurrentProfile(171), L"Architect");
}

TEST_F(Products, ModulesAreLoadedByAScript)
{
    struct Row {
        const wchar_t *module, *extra;
        int princ;
        const wchar_t* script;
    };
    static const Row rows[] = {
        {L"C:\\Kx\\Mod.arx", nullptr, 1, L"(arxload \"C:/Kx/Mod.arx\")(princ)\n"},
        {L"C:\\Kx\\Mod.arx", L"x", 0, L"(arxload \"C:/Kx/Mod.arx\")\n"},   // one character is no text
        {L"图层.arx", L"(a \"\\\\\")\n", 0, L"(arxload \"图层.arx\")\n(a \"\\\\\")\n"},
        {nullptr, L"LINE", 1, L"LINE"},
        {nullptr, nullptr, 1, L""},
    };
    for (const Row& row : rows)
        EXPECT_STREQ(StartupScript(row.module, row.extra, row.princ), row.script);
    EXPECT_EQ(RunAutoCadWithArx(171, L"C:\\Kx\\Mod.arx", nullptr, 1, nullptr), 1);
    EXPECT_EQ(m_folder.Read("tmp/RunCad.SCR"), "(arxload \"C:/Kx/Mod.arx\")(princ)\r\n");
    wchar_t temp[MAX_PATH];
    GetTempPathW(MAX_PATH, temp);
    EXPECT_EQ(Arguments(), "/b\n" + std::string(temp, temp + std::wcslen(temp)) + "RunCad.SCR\n");
    EXPECT_EQ(RunAutoCadWithArx(171, nullptr, nullptr, 1, nullptr), 0) << "no script";
    std::filesystem::remove_all(m_folder.Path("tmp"));
    EXPECT_EQ(RunAutoCadWithArx(171, L"C:\\Kx\\Mod.arx", nullptr, 1, nullptr), 0) << "no folder for the script";
}

TEST_F(Products, ProgramsRunInTheirFolder)
{
    wchar_t before[MAX_PATH], after[MAX_PATH];
    _wgetcwd(before, MAX_PATH);
    EXPECT_EQ(CreateAppointProcess(L"C:\\none\\x.exe", L"x"), 0);
    EXPECT_STREQ(_wgetcwd(after, MAX_PATH), before);
    EXPECT_EQ(CreateAppointProcess(L"C:\\Acad2012\\acad.exe", L"acad.exe \"a b\" c"), 1);
    EXPECT_STREQ(_wgetcwd(after, MAX_PATH), L"C:\\Acad2012") << "and stays there";
    EXPECT_EQ(Arguments(), "a b\nc\n");
    _wchdir(before);
}

}   // namespace
