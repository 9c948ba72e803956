// Which programs may be loaded, and what each document starts with.
#include "ed/SupportFiles.h"
#include "ed/TrustedFiles.h"
#include "EditorTest.h"
#include "support/DriveC.h"
#include "support/TempFolder.h"
#include <algorithm>
#include <cstdlib>

using namespace KxPlat;
using KxTest::Editor;

namespace {

// A home, a drawing's folder and a folder to trust, each with a LISP file that says where it comes from.
class Trust : public Editor {
protected:
    void SetUp() override
    {
        Editor::SetUp();
        ::setenv("XDG_CONFIG_HOME", folder.Path("config").c_str(), 1);
        for (const char* name : {"config/kxcad", "plans", "tools", "tools/more"})
            std::filesystem::create_directories(folder.Path(name));
        for (const char* name : {"plans/a.lsp", "tools/a.lsp", "tools/more/a.lsp", "config/kxcad/a.lsp"})
            folder.Write(name, "(princ \"ran\")");
    }
    void TearDown() override
    {
        ::unsetenv("XDG_CONFIG_HOME");
        ::unsetenv("KX_TRUSTED_PATHS");
        ::unsetenv("KX_SUPPORT_PATH");
        Editor::TearDown();
    }
    std::wstring Load(const wchar_t* name)
    {
        std::wstring path = folder.DrivePath(name);
        for (wchar_t& character : path)
            character = character == L'\\' ? L'/' : character;
        return Seen(L"(load \"" + path + L"\")\n");
    }
    KxTest::DriveC drive;
    KxTest::TempFolder folder;
};

bool Ran(const std::wstring& seen)
{
    return seen.find(L"ran") != std::wstring::npos;
}

}   // namespace

TEST_F(Trust, FoldersAreTrustedWithOrWithoutTheirOwn)
{
    struct Row {
        const wchar_t* paths;
        const wchar_t* file;
        bool isTrusted;
    };
    static const Row rows[] = {
        {L"", L"plans\\a.lsp", false},
        {L"", L"config\\kxcad\\a.lsp", true},
        {L"*\\tools", L"tools\\a.lsp", true},
        {L"*\\TOOLS\\", L"tools\\a.lsp", true},
        {L"*\\tools", L"tools\\more\\a.lsp", false},
        {L"*\\tools\\...", L"tools\\more\\a.lsp", true},
        {L"*\\tools\\...", L"tools\\a.lsp", true},
        {L"*\\plans;*\\tools", L"tools\\a.lsp", true},
        {L"*\\tools", L"tools\\..\\plans\\a.lsp", false},
        {L"*\\tool", L"tools\\a.lsp", false},
        {L";;", L"plans\\a.lsp", false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.paths << " " << row.file);
        std::wstring paths = row.paths;
        for (size_t at; (at = paths.find(L'*')) != std::wstring::npos;)
            paths.replace(at, 1, folder.DrivePath());
        SetVar(L"TRUSTEDPATHS", VarOf(paths));
        EXPECT_EQ(IsTrusted(folder.DrivePath() + L"\\" + row.file), row.isTrusted);
    }
}

TEST_F(Trust, ScriptsAreRefusedWhatIsNotTrusted)
{
    const std::wstring seen = Load(L"plans\\a.lsp");
    EXPECT_FALSE(isGood);
    EXPECT_FALSE(Ran(seen));
    EXPECT_NE(seen.find(L"TRUSTEDPATHS"), std::wstring::npos);
    EXPECT_TRUE(Ran(Load(L"config\\kxcad\\a.lsp")));
    Seen(L"SECURELOAD 0\n");
    EXPECT_TRUE(Ran(Load(L"plans\\a.lsp")));
    Seen(L"SECURELOAD 2\n");
    EXPECT_FALSE(Ran(Load(L"plans\\a.lsp")));
    ::setenv("KX_TRUSTED_PATHS", folder.Path("plans").c_str(), 1);
    EXPECT_TRUE(Ran(Load(L"plans\\a.lsp")));
}

TEST_F(Trust, TheLevelIsKept)
{
    Seen(L"SECURELOAD 2\n");
    Start(true);
    EXPECT_EQ(IntegerVar(L"SECURELOAD"), 2);
}

TEST_F(Trust, TheUserIsAskedAtTheKeyboard)
{
    for (const wchar_t* answer : {L"Yes", L"No"}) {
        ui.TakePrinted();
        std::wstring path = folder.DrivePath(L"plans/a.lsp");
        std::replace(path.begin(), path.end(), L'\\', L'/');
        ui.answers = {L"(load \"" + path + L"\")", answer};
        session->Loop();
        EXPECT_EQ(Ran(ui.TakePrinted()), answer[0] == L'Y');
    }
}

TEST_F(Trust, WhatAModuleSendsIsTrusted)
{
    std::wstring path = folder.DrivePath(L"plans/a.lsp");
    std::replace(path.begin(), path.end(), L'\\', L'/');
    acDocManager->sendStringToExecute(acDocManager->curDocument(), (L"(LOAD \"" + path + L"\") ").c_str(), true, false,
                                      true);
    EXPECT_TRUE(Ran(Seen(L"")));
}

TEST_F(Trust, EachDocumentStartsWithTheUsersFile)
{
    folder.Write("config/kxcad/kxcad.lsp", "(princ \"<mine>\") (defun s::startup () (princ \"<startup>\"))");
    folder.Write("plans/kxcad.lsp", "(princ \"<drawing>\")");
    folder.Write("tools/kxcad.lsp", "(princ \"<tools>\")");
    ::setenv("KX_SUPPORT_PATH", folder.Path("tools").c_str(), 1);
    SetSetting(L"ACAD", folder.DrivePath(L"plans"));   // on the support path, but not trusted
    ui.TakePrinted();
    session->StartPrograms();
    EXPECT_EQ(ui.TakePrinted(), L"<tools><mine><startup>");
    EXPECT_NE(Seen(L"NEW .\n").find(L"<mine><startup>"), std::wstring::npos);
}

TEST_F(Trust, ProgramsForOtherMachinesAreRefusedInWords)
{
    Seen(L"SECURELOAD 0\n");
    folder.Write("plans/b.fas", "\r\n FAS4-FILE ; Do not change it!\r\n");
    EXPECT_NE(Load(L"plans\\b.fas").find(L"compiled LISP"), std::wstring::npos);
    EXPECT_NE(Seen(L"(vl-vbaload \"x.dvb\")\n").find(L"no VBA"), std::wstring::npos);
    EXPECT_NE(Seen(L"FILEDIA 0\nNETLOAD \"x.dll\"\n").find(L"no .NET"), std::wstring::npos);
}

TEST_F(Trust, AutoloadLoadsOnTheFirstCall)
{
    folder.Write("config/kxcad/auto.lsp", "(defun c:auto () (princ \"ran\"))");
    ::setenv("KX_SUPPORT_PATH", folder.Path("config/kxcad").c_str(), 1);
    EXPECT_FALSE(Ran(Seen(L"(autoload \"auto\" '(\"auto\"))\n")));
    EXPECT_TRUE(Ran(Seen(L"AUTO\n")));
    EXPECT_TRUE(Ran(Seen(L"AUTO\n")));
}
