// Windows names only: these rows hold on any implementation of the calls. The modules stand in tests/modules.
#include "KxWin.h"
#include "support/TempFolder.h"
#include <gtest/gtest.h>

namespace {

using KxTest::TempFolder;

class Modules : public testing::Test {
protected:
    void SetUp() override
    {
        const std::wstring own = NameOf(nullptr);
        std::filesystem::copy(KxTest::RealPath(own.substr(0, own.rfind(L'\\') + 1) + L"probe"), m_folder.Path("bin"),
                              std::filesystem::copy_options::recursive);
    }
    std::wstring File(const std::wstring& name) const { return m_folder.DrivePath(L"bin\\" + name); }
    std::string Log() const { return m_folder.Read("log"); }
    static std::wstring NameOf(HMODULE module)
    {
        wchar_t name[520] = {};
        GetModuleFileNameW(module, name, 520);
        return name;
    }

    TempFolder m_folder;
    KxTest::Variable m_log{"KX_PROBE_LOG", m_folder.Path("log")};
};

TEST_F(Modules, LoadedCalledAndUnloaded)
{
    const HMODULE module = LoadLibraryW(File(L"KxProbe.arx").c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(NameOf(module), File(L"KxProbe.arx"));
    EXPECT_EQ(LoadLibraryW(File(L"sub\\..\\KXPROBE.ARX").c_str()), module) << "a second load gives the same handle";
    EXPECT_EQ(GetModuleHandleW(L"kxprobe.arx"), module);
    EXPECT_EQ(GetModuleHandleW(File(L"KxProbe.arx").c_str()), module);
    EXPECT_EQ(GetModuleHandleW(L"KxProbe"), nullptr);

    const auto count = reinterpret_cast<int (*)()>(GetProcAddress(module, "kxProbeCount"));
    ASSERT_NE(count, nullptr);
    EXPECT_EQ(GetProcAddress(nullptr, "kxProbeCount"), nullptr);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(count(), 2);
    EXPECT_EQ(GetProcAddress(module, "KXPROBECOUNT"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_PROC_NOT_FOUND);
    EXPECT_EQ(GetProcAddress(module, "printf"), nullptr) << "only the module's own symbols";

    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(GetModuleHandleW(L"KxProbe.arx"), module);
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(GetModuleHandleW(L"KxProbe.arx"), nullptr);
    EXPECT_FALSE(FreeLibrary(module));
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
    EXPECT_EQ(NameOf(module), L"");
    EXPECT_EQ(Log(), "constructor;attach;detach;destructor;");

    const HMODULE again = LoadLibraryW(File(L"KxProbe.arx").c_str());
    const auto fresh = reinterpret_cast<int (*)()>(GetProcAddress(again, "kxProbeCount"));
    ASSERT_NE(fresh, nullptr);
    EXPECT_EQ(fresh(), 1) << "unloading forgets the module's state";
    FreeLibrary(again);
}

TEST_F(Modules, ExtensionsAndFolders)
{
    std::filesystem::copy(m_folder.Path("bin/KxProbe.arx"), m_folder.Path("bin/kxdll.dll"));
    std::filesystem::copy(m_folder.Path("bin/KxProbe.arx"), m_folder.Path("bin/noext"));
    struct Row {
        std::wstring asked, loaded;
    };
    const Row rows[] = {{File(L"kxdll"), File(L"kxdll.dll")},
                        {File(L"noext."), File(L"noext")},
                        {m_folder.DrivePath(L"bin/KxProbe.arx"), File(L"KxProbe.arx")},
                        {File(L"KxProbe"), L""},
                        {File(L"noext"), L""},
                        {L"KxProbe.arx", L""}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.asked));
        const HMODULE module = LoadLibraryW(row.asked.c_str());
        EXPECT_EQ(module != nullptr ? NameOf(module) : L"", row.loaded);
        if (module != nullptr)
            FreeLibrary(module);
        else
            EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
    }
    wchar_t before[520];
    _wgetcwd(before, 520);
    _wchdir(m_folder.DrivePath(L"bin").c_str());
    for (const wchar_t* name : {L"KxProbe.arx", L".\\KxProbe.arx", L"kxdll"}) {
        const HMODULE module = LoadLibraryW(name);
        EXPECT_NE(module, nullptr) << testing::PrintToString(name);
        EXPECT_TRUE(FreeLibrary(module));
    }
    _wchdir(before);
}

TEST_F(Modules, RefusedLoads)
{
    m_folder.Write("bin/text.dll", "no program");
    m_folder.Write("bin/empty.dll", "");
    struct Row {
        std::wstring file;
        DWORD error;
    };
    const Row rows[] = {
        {File(L"missing.dll"), ERROR_MOD_NOT_FOUND},       {File(L"no\\missing.dll"), ERROR_MOD_NOT_FOUND},
        {File(L"text.dll"), ERROR_BAD_EXE_FORMAT},         {File(L"empty.dll"), ERROR_BAD_EXE_FORMAT},
        {m_folder.DrivePath(L"bin"), ERROR_MOD_NOT_FOUND}, {L"", ERROR_MOD_NOT_FOUND},
        {File(L"KxRefuse.arx"), ERROR_DLL_INIT_FAILED}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.file));
        SetLastError(0);
        EXPECT_EQ(LoadLibraryW(row.file.c_str()), nullptr);
        EXPECT_EQ(GetLastError(), row.error);
    }
    EXPECT_EQ(LoadLibraryW(nullptr), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(GetModuleHandleW(L"KxRefuse.arx"), nullptr);
}

TEST_F(Modules, AModuleThatIsLinkedToIsTakenInAndLetGo)
{
    if (KxTest::kOnWine)
        GTEST_SKIP() << "Windows looks for it beside the program, not beside the module";
    const HMODULE upper = LoadLibraryW(File(L"KxUpper.arx").c_str());
    ASSERT_NE(upper, nullptr);
    const HMODULE lower = GetModuleHandleW(L"KxLower.arx");
    ASSERT_NE(lower, nullptr);
    EXPECT_EQ(NameOf(lower), File(L"KxLower.arx"));
    EXPECT_EQ(Log(), "lower attach;upper attach;");
    EXPECT_EQ(GetProcAddress(upper, "kxLowerAnswer"), nullptr);
    EXPECT_EQ(LoadLibraryW(File(L"KxLower.arx").c_str()), lower);
    EXPECT_TRUE(FreeLibrary(upper));
    EXPECT_EQ(GetModuleHandleW(L"KxLower.arx"), lower) << "it was loaded for its own sake, too";
    EXPECT_TRUE(FreeLibrary(lower));
    EXPECT_EQ(Log(), "lower attach;upper attach;upper detach;lower detach;");
}

TEST_F(Modules, FileNamesAreCutToTheBuffer)
{
    wchar_t name[520], cut[8];
    const DWORD length = GetModuleFileNameW(nullptr, name, 520);
    ASSERT_GT(length, 8u);
    EXPECT_EQ(std::wstring(name, 3), L"Z:\\");
    EXPECT_EQ(GetModuleFileNameW(nullptr, name, length + 1), length);
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    EXPECT_EQ(GetModuleFileNameW(nullptr, cut, 0), 0u);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(GetModuleFileNameW(nullptr, cut, 8), 8u);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(GetModuleFileNameW(reinterpret_cast<HMODULE>(0x12345), name, 520), 0u);
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
}

}   // namespace
