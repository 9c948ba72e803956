// Programs that a configuration file lists, loaded and unloaded by command.
#include "ed/acedads.h"
#include "ed/Session.h"
#include "mfc/CString.h"
#include "rx/acutads.h"
#include "ui/ScriptedUi.h"
#include "win/CodePage.h"
#include "win/Files.h"
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

// A session with the module and a folder of its own.
class Programs : public testing::Test {
protected:
    Programs() : folder(testing::TempDir() + "kx-programs")
    {
        std::filesystem::create_directories(folder);
        ::setenv("KX_REGISTRY", (folder + "/registry.reg").c_str(), 1);   // what is set there stays in the test
        KxPlat::SetUi(&ui);
        KxPlat::SessionOptions options;
        options.release = L"18.2";
        options.hasKeyboard = false;
        session = std::make_unique<KxPlat::Session>(options);
        AcApDocument* document = nullptr;
        std::wstring why;
        KxPlat::NewDrawing(L"", document, why);
        EXPECT_EQ(acedArxLoad(KxPlat::DrivePath(KX_BIN "/KxArxBase.arx").c_str()), RTNORM);
        ui.TakePrinted();
    }
    ~Programs() override
    {
        session.reset();
        KxPlat::SetUi(nullptr);
        ::unsetenv("KX_REGISTRY");
        std::filesystem::remove_all(folder);
    }

    std::wstring Drive(const std::string& name) const { return KxPlat::DrivePath(folder + "/" + name); }
    void Write(const std::string& name, const std::string& text) const
    {
        std::ofstream(folder + "/" + name, std::ios::binary) << text;
    }
    // What the command says about a configuration file of this text.
    std::wstring Run(const wchar_t* command, const std::string& ini)
    {
        Write("list.ini", ini);
        ui.TakePrinted();
        session->Run(std::wstring(command) + L"\n" + Drive("list.ini") + L"\n");
        return ui.TakePrinted();
    }
    bool Says(const std::wstring& said, const std::wstring& line) { return said.find(line) != std::wstring::npos; }

    std::string folder;
    KxPlat::ScriptedUi ui;
    std::unique_ptr<KxPlat::Session> session;
};

}   // namespace

TEST_F(Programs, ALispFileIsSentToTheHost)
{
    Write("one.lsp", "(setq KX-ONE \"loaded\")");
    const std::string path = KxPlat::ToUtf8(Drive("one.lsp"));
    const std::wstring said = Run(L"LoadProFromIni", "[LOAD_ACAD]\nNum=3\n1=  " + path + "\n3=x\n");
    EXPECT_TRUE(Says(said, L"\n 请输入配置文件(*.Ini)：")) << KxPlat::ToUtf8(said);
    EXPECT_TRUE(Says(said, L"\n... 加载成功 " + Drive("one.lsp") + L" ...\n")) << KxPlat::ToUtf8(said);
    resbuf* value = nullptr;
    acedGetSym(L"KX-ONE", &value);
    ASSERT_NE(value, nullptr);
    EXPECT_STREQ(value->resval.rstring, L"loaded");
    acutRelRb(value);

    // An absolute entry is never found among what was loaded.
    EXPECT_TRUE(Says(Run(L"UnLoadProFromIni", "[LOAD_ACAD]\nNum=1\n1=" + path + "\n"),
                     L"\n... 卸载失败 " + Drive("one.lsp") + L" ..."));
}

TEST_F(Programs, TheSectionOfTheReleaseComesFirst)
{
    for (const char* name : {"plain.lsp", "exact.lsp"})
        Write(name, "(princ)");
    const std::string plain = KxPlat::ToUtf8(Drive("plain.lsp"));
    const std::string exact = KxPlat::ToUtf8(Drive("exact.lsp"));
    const std::string ini = "[LOAD_ACAD]\nNum=1\n1=" + plain + "\n[LOAD_ACAD_182_X64]\n1=" + exact + "\nNum=";
    std::wstring said = Run(L"LoadProFromIni", ini + "1\n");
    EXPECT_TRUE(Says(said, Drive("exact.lsp")));
    EXPECT_FALSE(Says(said, Drive("plain.lsp")));
    said = Run(L"LoadProFromIni", ini + "\n");
    EXPECT_FALSE(Says(said, Drive("exact.lsp")));
    EXPECT_TRUE(Says(said, Drive("plain.lsp")));
}

TEST_F(Programs, LibrariesAreLoadedAndFreed)
{
    const std::wstring library = KxPlat::DrivePath(KX_BIN "/probe/KxLower.arx");
    const std::string ini =
        "[LOAD_ADLL]\nNum=2\n1=" + KxPlat::ToUtf8(library) + "\\\\\n2=" + KxPlat::ToUtf8(Drive("none.dll")) + "\n";
    std::wstring said = Run(L"LoadProFromIni", ini);
    EXPECT_TRUE(Says(said, L"\n... 加载成功 " + library + L" ..."));
    EXPECT_TRUE(Says(said, L"\n... 加载失败 " + Drive("none.dll") + L" ..."));
    said = Run(L"UnLoadProFromIni", ini);
    EXPECT_TRUE(Says(said, L"\n... DLL卸载成功 " + library + L" ..."));
    EXPECT_FALSE(Says(said, Drive("none.dll")));
    EXPECT_FALSE(Says(Run(L"UnLoadProFromIni", ini), L"DLL卸载成功"));   // once only
}

TEST_F(Programs, FoldersAreResolvedFromTheModulesFolder)
{
    acedSetEnv(L"ACAD", L"c:\\fonts");
    const std::wstring beside = KxPlat::DrivePath(std::string(KX_BIN));
    const std::wstring parent = beside.substr(0, beside.rfind(L'\\'));
    Run(L"LoadProFromIni", "[SUPPORTPATH]\nNum=2\n1=..\\Common\n2=Z:\\Lib\\\n");
    wchar_t folders[5000] = {};
    acedGetEnv(L"ACAD", folders, 5000);
    std::wstring expected = L"c:\\fonts;" + parent + L"\\common;z:\\lib";
    EXPECT_EQ(CString(folders).MakeLower(), CString(expected.c_str()).MakeLower());
    Run(L"UnLoadProFromIni", "[SUPPORTPATH]\nNum=2\n1=../Common\n2=Z:\\Lib\n");
    acedGetEnv(L"ACAD", folders, 5000);
    EXPECT_STREQ(folders, L"c:\\fonts");
}

TEST_F(Programs, AssembliesLeaveFileDialogsOff)
{
    Run(L"LoadProFromIni", "[LOAD_ACAD]\nNum=1\n1=Z:\\none\\net.dll\n");
    resbuf value = {};
    ASSERT_EQ(acedGetVar(L"FILEDIA", &value), RTNORM);
    EXPECT_EQ(value.resval.rint, 0);
}

TEST_F(Programs, ASectionOfTheReleaseCountsForUnloadingToo)
{
    const std::string ini = "[LOAD_ACAD]\nNum=1\n1=plain.arx\n[LOAD_ACAD_182_X64]\nNum=1\n1=special.arx\n";
    Write("KxArxBase.INI", ini);
    std::filesystem::copy_file(KX_BIN "/KxArxBase.arx", folder + "/KxArxBase.arx");
    ASSERT_EQ(acedArxUnload(L"KxArxBase.arx"), RTNORM);
    ASSERT_EQ(acedArxLoad(Drive("KxArxBase.arx").c_str()), RTNORM);
    EXPECT_TRUE(Says(ui.TakePrinted(), L"\n... ARX/DBX加载失败 " + Drive("special.arx") + L" ...\n"));
    session.reset();   // when no document is open any more
    const std::wstring said = ui.TakePrinted();
    EXPECT_TRUE(Says(said, L"\n... 卸载失败 " + Drive("special.arx") + L" ...")) << KxPlat::ToUtf8(said);
    EXPECT_FALSE(Says(said, L"plain.arx"));
}

TEST_F(Programs, AMissingFileIsPassedOverInSilence)
{
    ui.TakePrinted();
    session->Run(L"LoadProFromIni\n" + Drive("none.ini") + L"\n");
    const std::wstring said = ui.TakePrinted();
    EXPECT_FALSE(Says(said, L"..."));
    EXPECT_FALSE(session->HasFailed());
}

// A copy of the module in a folder of its own, so that its file is nobody else's.
TEST_F(Programs, TheFileBesideTheModuleIsReadAtItsStart)
{
    ASSERT_EQ(acedArxUnload(L"KxArxBase.arx"), RTNORM);
    std::filesystem::copy_file(KX_BIN "/KxArxBase.arx", folder + "/KxArxBase.arx",
                               std::filesystem::copy_options::overwrite_existing);
    const std::wstring library = KxPlat::DrivePath(KX_BIN "/probe/KxLower.arx");
    Write("start.lsp", "(setq KX-START \"at start\")");
    Write("KxArxBase.INI",
          "[SUPPORTPATH]\nNum=1\n1=Z:\\AtStart\n[LOAD_ACAD]\nNum=1\n1=start.lsp\n[LOAD_ADLL]\nNum=1\n1=" +
              KxPlat::ToUtf8(library) + "\n");
    acedSetEnv(L"ACAD", L"c:\\fonts");
    ui.TakePrinted();
    ASSERT_EQ(acedArxLoad(Drive("KxArxBase.arx").c_str()), RTNORM);
    std::wstring said = ui.TakePrinted();
    EXPECT_TRUE(Says(said, L"\n... 加载成功 " + library + L" ...")) << KxPlat::ToUtf8(said);
    EXPECT_TRUE(Says(said, L"\n... 加载成功 " + Drive("start.lsp") + L" ...\n")) << KxPlat::ToUtf8(said);
    wchar_t folders[5000] = {};
    acedGetEnv(L"ACAD", folders, 5000);
    EXPECT_EQ(CString(folders).CompareNoCase(L"c:\\fonts;Z:\\AtStart"), 0) << KxPlat::ToUtf8(folders);
    session->Run(L"REGEN\n");   // what the module sent comes first
    resbuf* value = nullptr;
    acedGetSym(L"KX-START", &value);
    ASSERT_NE(value, nullptr);
    EXPECT_STREQ(value->resval.rstring, L"at start");
    acutRelRb(value);

    ui.TakePrinted();
    ASSERT_EQ(acedArxUnload(L"KxArxBase.arx"), RTNORM);
    EXPECT_TRUE(Says(ui.TakePrinted(), L"\n... DLL卸载成功 " + library + L" ..."));
    acedGetEnv(L"ACAD", folders, 5000);
    EXPECT_STREQ(folders, L"c:\\fonts");
}
