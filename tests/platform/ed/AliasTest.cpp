// The user's own short names for commands.
#include "ed/AliasFile.h"
#include "ed/SupportFiles.h"
#include "EditorTest.h"
#include "support/DriveC.h"
#include "support/TempFolder.h"
#include <cstdlib>

using namespace KxPlat;
using KxTest::Editor;

namespace {

class Aliases : public Editor {
protected:
    void SetUp() override
    {
        ::setenv("XDG_CONFIG_HOME", folder.Path("config").c_str(), 1);
        for (const char* name : {"config/kxcad", "tools", "plans"})
            std::filesystem::create_directories(folder.Path(name));
        Editor::SetUp();
    }
    void TearDown() override
    {
        Editor::TearDown();
        ::unsetenv("XDG_CONFIG_HOME");
        ::unsetenv("KX_SUPPORT_PATH");
    }
    // What the session complains of when it starts with this file.
    std::wstring StartWith(const char* text)
    {
        folder.Write("config/kxcad/kxcad.pgp", text);
        ui.complained.clear();
        session->StartPrograms();
        return ui.complained;
    }
    KxTest::DriveC drive;
    KxTest::TempFolder folder;
};

bool Has(const std::wstring& text, const wchar_t* part)
{
    return text.find(part) != std::wstring::npos;
}

}   // namespace

TEST(AliasFile, Lines)
{
    struct Row {
        const wchar_t* text;
        const wchar_t* alias;   // null: the line is bad
        const wchar_t* command;
    };
    static const Row rows[] = {
        {L"QQ, *LINE", L"QQ", L"LINE"},
        {L"qq,*line\r\n", L"QQ", L"LINE"},
        {L"\t3A ,\t*3DARRAY  ; an array", L"3A", L"3DARRAY"},
        {L"QQ, *_.-LAYER", L"QQ", L"-LAYER"},
        {L"QQ, *LINE\nQQ, *ARC", L"QQ", L"ARC"},
        {L"-Q, *LINE", L"-Q", L"LINE"},
        {L"墙, *LINE", L"墙", L"LINE"},
        {L"QQ *LINE", nullptr, L""},
        {L"QQ, LINE", nullptr, L""},
        {L"QQ, *", nullptr, L""},
        {L"QQ, *_", nullptr, L""},
        {L"QQ,", nullptr, L""},
        {L", *LINE", nullptr, L""},
        {L"Q Q, *LINE", nullptr, L""},
        {L"QQ, *LINE ARC", nullptr, L""},
        {L"_QQ, *LINE", nullptr, L""},
        {L"EDIT, START EDIT, 9,*File to edit: ,", nullptr, L""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.text)));
        const AliasLines lines = ReadAliases(row.text);
        ASSERT_EQ(lines.faults.size(), row.alias == nullptr ? 1u : 0u);
        if (row.alias == nullptr) {
            EXPECT_TRUE(lines.names.empty());
            continue;
        }
        ASSERT_EQ(lines.names.size(), 1u);
        EXPECT_EQ(lines.names.begin()->first, row.alias);
        EXPECT_EQ(lines.names.begin()->second, row.command);
    }
    EXPECT_TRUE(ReadAliases(L"; nothing\n\n   \n;, *X\n").names.empty());
    EXPECT_TRUE(ReadAliases(L"; nothing\n\n   \n;, *X\n").faults.empty());
}

TEST_F(Aliases, BadLinesAreNamedAndTheRestHolds)
{
    const std::wstring said = StartWith("; mine\nQQ *LINE\n\nRR, *LINE\nSS, LINE\n");
    EXPECT_TRUE(Has(said, L"kxcad.pgp, line 2: \"ALIAS, *COMMAND\" is expected")) << testing::PrintToString(said);
    EXPECT_TRUE(Has(said, L"kxcad.pgp, line 5: the command has no \"*\" before it"));
    EXPECT_TRUE(Has(Seen(L"RR 0,0 1,1 \n"), L"Specify first point"));
    EXPECT_TRUE(isGood);
    EXPECT_TRUE(Has(Seen(L"QQ\n"), L"Unknown command \"QQ\""));
}

TEST_F(Aliases, WhatWinsOverWhat)
{
    EXPECT_EQ(StartWith("LINE, *CIRCLE\nL, *CIRCLE\nOO, *LA\nPP, *OWN\nOWN2, *CIRCLE\nNO, *NOTHING\n"), L"");
    Seen(L"(defun c:own () (princ \"<own>\") (princ))\n(defun c:own2 () (princ \"<own2>\") (princ))\n");
    EXPECT_TRUE(Has(Seen(L"LINE 0,0 1,1 \n"), L"Specify first point"));   // a command's own name
    EXPECT_TRUE(Has(Seen(L"L 0,0 1\n"), L"center point for circle"));     // the host's own short name gives way
    EXPECT_TRUE(Has(Seen(L"_L 0,0 1\n"), L"center point for circle"));
    EXPECT_FALSE(Has(Seen(L".L\n"), L"center point for circle"));
    EXPECT_TRUE(Has(Seen(L"oo \n"), L"Current layer"));   // and can stand behind the user's
    EXPECT_TRUE(Has(Seen(L"PP\n"), L"<own>"));
    EXPECT_TRUE(Has(Seen(L"OWN2\n"), L"<own2>"));
    EXPECT_TRUE(Has(Seen(L"NO\n"), L"Unknown command \"NO\""));
}

TEST_F(Aliases, FoldersAndTheirOrder)
{
    folder.Write("tools/kxcad.pgp", "QQ, *CIRCLE\nRR, *CIRCLE\n");
    folder.Write("plans/kxcad.pgp", "SS, *CIRCLE\n");
    ::setenv("KX_SUPPORT_PATH", folder.Path("tools").c_str(), 1);
    SetSetting(L"ACAD", folder.DrivePath(L"plans"));   // on the support path, but not trusted
    StartWith("QQ, *LINE\n");
    EXPECT_EQ(UserAlias(L"QQ"), L"LINE");
    EXPECT_EQ(UserAlias(L"RR"), L"CIRCLE");
    EXPECT_EQ(UserAlias(L"SS"), L"");
    Start(true);   // another session begins without them
    EXPECT_EQ(UserAlias(L"QQ"), L"");
}
