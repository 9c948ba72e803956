// The module's life in a session: loaded, used in documents, unloaded.
#include "ap/Documents.h"
#include "ed/acedads.h"
#include "ed/AcEdCommandStack.h"
#include "ed/AcEdInputPointManager.h"
#include "ed/Session.h"
#include "rx/AcRxDictionary.h"
#include "rx/ResBufs.h"
#include "ui/ScriptedUi.h"
#include "win/CodePage.h"
#include "win/Files.h"
#include "win/Modules.h"
#include "win/OwnVersion.h"
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

KX_OWN_VERSION("ProductName=test\n"
               "FileVersion=1.0.0.0\n"
               "ProductVersion=18.1.0.0\n")

namespace {

const std::wstring g_module = KxPlat::DrivePath(KX_BIN "/KxArxBase.arx");

class Life : public testing::Test {
protected:
    explicit Life(const wchar_t* release = L"18.1") : session(Options(release)) { AddDrawing(); }
    ~Life() override { KxPlat::SetUi(nullptr); }

    static KxPlat::SessionOptions Options(const wchar_t* release)
    {
        KxPlat::SessionOptions options;
        options.release = release;
        options.hasKeyboard = false;
        KxPlat::SetOwnProductVersion(release);   // as the host program does
        return options;
    }
    AcApDocument* AddDrawing()
    {
        AcApDocument* document = nullptr;
        std::wstring why;
        KxPlat::NewDrawing(L"", document, why);
        return document;
    }
    bool Load() { return acedArxLoad(g_module.c_str()) == RTNORM; }
    bool Unload() { return acedArxUnload(g_module.c_str()) == RTNORM; }
    std::wstring Say(const std::wstring& line)
    {
        ui.TakePrinted();
        session.Run(line + L"\n");
        return ui.TakePrinted();
    }
    bool Says(const std::wstring& line, const std::wstring& answer)
    {
        return Say(line).find(answer) != std::wstring::npos;
    }
    bool HasFilter() { return acDocManager->curDocument()->inputPointManager()->currentPointFilter() != nullptr; }

    struct SetUi : KxPlat::ScriptedUi {
        SetUi() { KxPlat::SetUi(this); }
    } ui;
    KxPlat::Session session;
};

class LifeOn182 : public Life {
protected:
    LifeOn182() : Life(L"18.2") {}
};

int TipsVariable()
{
    resbuf value = {};
    return acedGetVar(L"ROLLOVERTIPS", &value) == RTNORM ? value.resval.rint : -1;
}

}   // namespace

TEST_F(Life, CommandsComeAndGoWithTheModule)
{
    EXPECT_EQ(acedRegCmds->lookupLocalCmd(L"TCXSQB"), nullptr);
    ASSERT_TRUE(Load());
    AcEdCommand* command = acedRegCmds->lookupLocalCmd(L"tcxsqb");
    ASSERT_NE(command, nullptr);
    EXPECT_STREQ(command->globalName(), L"SHOWALLLAYER");
    EXPECT_STREQ(command->groupName(), L"KxArxBase");
    EXPECT_TRUE(HasFilter());
    ASSERT_TRUE(Unload());
    EXPECT_EQ(acedRegCmds->lookupLocalCmd(L"TCXSQB"), nullptr);
    EXPECT_FALSE(HasFilter());
    EXPECT_TRUE(Says(L"TCXSQB", L"Unknown command"));
    EXPECT_TRUE(Load());   // again, from a clean slate
    EXPECT_NE(acedRegCmds->lookupLocalCmd(L"TCXSQB"), nullptr);
}

TEST_F(Life, EveryDocumentHasTheLispFunction)
{
    ASSERT_TRUE(Load());
    AddDrawing();
    EXPECT_TRUE(HasFilter());
    EXPECT_TRUE(Says(L"(InsertBlockFromFile 1 2)", L"nil"));
    ASSERT_TRUE(Unload());
    EXPECT_TRUE(Says(L"(InsertBlockFromFile 1 2)", L"error"));
    AcApDocument* other = *KxPlat::OpenDocuments().begin();
    acDocManager->activateDocument(other);
    EXPECT_TRUE(Says(L"(InsertBlockFromFile 1 2)", L"error"));
}

TEST_F(Life, LispBringsInABlockOfAFile)
{
    ASSERT_TRUE(Load());
    std::wstring file = KxPlat::DrivePath(KX_TEST_DATA "/house_r2007.dxf");
    for (wchar_t& character : file)
        character = character == L'\\' ? L'/' : character;
    const std::wstring call = L"(InsertBlockFromFile \"" + file + L"\" ";
    Say(L"(setq KX-OLD (cdr (assoc 2 (tblnext \"BLOCK\" T))))");
    EXPECT_TRUE(Says(call + L"\"*Model_Space\" \"新块\")", L"T"));
    EXPECT_TRUE(Says(L"(cdr (assoc 2 (tblsearch \"BLOCK\" \"新块\")))", L"\"新块\""));
    EXPECT_TRUE(Says(call + L"\"没有的块\")", L"nil"));
    EXPECT_TRUE(Says(L"(InsertBlockFromFile)", L"nil"));
}

TEST_F(Life, TracesArePrintedOnceTheSwitchIsSet)
{
    ASSERT_TRUE(Load());
    const HMODULE module = LoadLibraryW(g_module.c_str());
    int* trace = reinterpret_cast<int*>(GetProcAddress(module, "G_bOutDebugCmdMsg"));
    ASSERT_NE(trace, nullptr);
    EXPECT_FALSE(Says(L"KxCadBaseTest", L"命令样例"));
    *trace = 1;
    EXPECT_TRUE(Says(L"KxCadBaseTest", L"...[命令样例]  CmdTestKxCadBase..."));
    EXPECT_TRUE(Says(L"QLTC", L"...[清理图层]  CmdCleanMlineStyle..."));
    AddDrawing();
    EXPECT_NE(ui.TakePrinted().find(L"\n*** AppMsg(KxArxBase) - AcRx::kLoadDwgMsg"), std::wstring::npos);
    *trace = 0;
    FreeLibrary(module);
}

TEST_F(Life, ARecordThatIsNoSnapshotHoldsTheCommandUntilTheUserBreaks)
{
    struct Breaker : KxPlat::ScriptedUi {
        bool Interrupted() override { return --patience <= 0; }
        int patience = 1000;
    } breaker;
    ASSERT_TRUE(Load());
    Say(L"(setq LayerSta '(1 2))");
    KxPlat::SetUi(&breaker);
    session.Run(L"RecoverLayerStatus\n");
    EXPECT_LE(breaker.patience, 0);
    KxPlat::SetUi(&ui);
    EXPECT_TRUE(Says(L"SaveLayerStatus", L"\n 图层状态已保存。"));
    EXPECT_FALSE(Says(L"RecoverLayerStatus", L"失败"));
}

TEST_F(Life, TipsStayAsTheyAreOnOtherReleases)
{
    const int before = TipsVariable();
    ASSERT_TRUE(Load());
    EXPECT_EQ(before, 1);
    EXPECT_EQ(TipsVariable(), 1);
}

TEST_F(LifeOn182, TipsAreSwitchedOffAtStart)
{
    ASSERT_TRUE(Load());
    EXPECT_EQ(TipsVariable(), 0);
}

TEST_F(Life, LibrariesOfTheHostAreHeldWhereTheyAreFound)
{
    const std::string folder = testing::TempDir() + "kx-host-libraries";
    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(KX_BIN "/probe/KxLower.arx", folder + "/acadbtn.xmx",
                               std::filesystem::copy_options::overwrite_existing);
    const std::wstring library = KxPlat::DrivePath(folder + "/acadbtn.xmx");
    ::setenv("KX_SUPPORT_PATH", folder.c_str(), 1);
    EXPECT_EQ(GetModuleHandleW(library.c_str()), nullptr);
    ASSERT_TRUE(Load());
    EXPECT_NE(GetModuleHandleW(library.c_str()), nullptr);
    ASSERT_TRUE(Unload());
    EXPECT_EQ(GetModuleHandleW(library.c_str()), nullptr);
    ::unsetenv("KX_SUPPORT_PATH");
    std::filesystem::remove_all(folder);
}

TEST_F(Life, SomeKeysAndDoubleClicksAreTraced)
{
    using Hook = int (*)(void* hook, const MSG* message);
    static const struct {
        UINT message;
        WPARAM key;
        const wchar_t* line;   // null: passed over
    } rows[] = {
        {0, 7, L"\n ...HWND: 0 Msg: 0 WPARAM: 7 LPARAM: -2 ..."},
        {256, 35, L"\n ...HWND: 0 Msg: 100 WPARAM: 35 LPARAM: -2 ..."},
        {256, 36, L"\n ...HWND: 0 Msg: 100 WPARAM: 36 LPARAM: -2 ..."},
        {256, 37, L"\n ...HWND: 0 Msg: 100 WPARAM: 37 LPARAM: -2 ..."},
        {256, 38, nullptr},   // the arrow up
        {256, 39, L"\n ...HWND: 0 Msg: 100 WPARAM: 39 LPARAM: -2 ..."},
        {256, 65, L"\n ...HWND: 0 Msg: 100 WPARAM: 65 LPARAM: -2 ..."},
        {256, 66, nullptr},
        {257, 65, nullptr},   // a key let go
        {513, 0, nullptr},
        {515, 1, L"\n ...HWND: 0 Msg: 203 WPARAM: 1 LPARAM: -2 ..."},
        {521, 1, L"\n ...HWND: 0 Msg: 209 WPARAM: 1 LPARAM: -2 ..."},
    };
    ASSERT_TRUE(Load());
    const auto hook = reinterpret_cast<Hook>(
        GetProcAddress(GetModuleHandleW(g_module.c_str()), "_ZN12KxArxModules15KxCadBaseModule6DoHookEPvPK6tagMSG"));
    ASSERT_NE(hook, nullptr);
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.message) + " " + std::to_string(row.key));
        MSG message = {};
        message.message = row.message;
        message.wParam = row.key;
        message.lParam = -2;
        ui.TakePrinted();
        EXPECT_EQ(hook(nullptr, &message), row.line != nullptr ? 1 : 0);
        EXPECT_EQ(ui.TakePrinted(), row.line != nullptr ? row.line : L"");
    }
}
