// Every command of the module can be left with Esc at each of its prompts, and then nothing has happened.
#include "ap/AcApDocument.h"
#include "db/core/Stub.h"
#include "DrawingState.h"
#include "ed/acedads.h"
#include "ed/AcEdCommandStack.h"
#include "ed/Session.h"
#include "rx/ResBufs.h"
#include "ui/ScriptedUi.h"
#include "win/CodePage.h"
#include "win/Files.h"
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace {

// What carries each command through all of its prompts. "@FILE" stands for a drawing file; "@NO" is no line but the
// answer to a message box. A prompt of a dialog counts as one.
struct Row {
    const wchar_t* command;
    std::vector<std::wstring> answers;
};

const Row g_rows[] = {
    {L"KxCadBaseTest", {}},
    {L"CleanBlock", {}},
    {L"CleanDimStyle", {}},
    {L"CleanLineStyle", {}},
    {L"CleanPrintStyle", {}},
    {L"CleanShape", {}},
    {L"CleanTextStyle", {}},
    {L"CleanMlineStyle", {}},
    {L"CleanDatabase", {}},
    {L"CleanLayer", {}},
    {L"KxInFile", {L"@FILE", L"新块", L"1,2", L"2", L"30"}},
    {L"DeleteNoPickObjectInCurSpaceSure", {L"L", L"", L"@NO"}},
    {L"DeleteNoPickObjectInCurSpace", {L"L", L""}},
    {L"HidePickObject", {L"L", L""}},
    {L"HideNoPickObject", {L"L", L""}},
    {L"ShowAllObject", {}},
    {L"ReversePickObject", {}},
    {L"HidePickObjectLayer", {L"L", L""}},
    {L"HideNoPickObjectLayer", {L"L", L""}},
    {L"ShowAllLayer", {}},
    {L"ReverseHidePickLayer", {}},
    {L"ShowAllObjectAndLayer", {}},
    {L"FrozenPickObjectLayer", {L"L", L""}},
    {L"FrozenNoPickObjectLayer", {L"L", L""}},
    {L"UnFrozenAllLayer", {}},
    {L"ReverseFrozenPickLayer", {}},
    {L"LockPickLayer", {L"L", L""}},
    {L"LockNoPickLayer", {L"L", L""}},
    {L"UnLockPickLayer", {L"L", L""}},
    {L"UnLockAllLayer", {}},
    {L"ReverseLockPickLayer", {}},
    {L"ChangePickObjectLayer", {L"ALL", L"", L"L"}},
    {L"SaveLayerStatus", {}},
    {L"RecoverLayerStatus", {}},
    {L"KxListCloseLayer", {L"A", L""}},
    {L"KxListForzenLayer", {L"A", L""}},
    {L"KxListLockLayer", {L"A", L""}},
    {L"KxLayerWalk", {L"N", L"N", L""}},
    {L"KxSetCurLayer", {L"L"}},
    {L"KxObjectChangeToCurLayer", {L"ALL", L""}},
    {L"KxCombineLayer", {L"2,3", L"N", L"1", L"M"}},
    {L"KxAddToolTipToObject", {L"L", L"说明 文字"}},
    {L"KxRemoveToolTipToObject", {L"L"}},
    {L"KxPickObjectDeleteLayerObjects", {L"L", L"", L"@NO"}},
    {L"KxDlgAbout", {L""}},
    {L"MakeGroup", {L"ALL", L"", L"组"}},
    {L"ZValueToZero", {L"ALL", L""}},
    {L"SetLayerToFront", {L"L", L""}},
    {L"SetlayerToBack", {L"L", L""}},
    {L"KxAlignText", {L"ALL", L"", L"R", L"5,5"}},
    {L"LoadProFromIni", {L"none.ini"}},
    {L"UnLoadProFromIni", {L"none.ini"}},
};

class Leave : public testing::Test {
protected:
    Leave() { KxPlat::SetUi(&ui); }
    ~Leave() override { KxPlat::SetUi(nullptr); }

    void Open(const std::string& drawing)
    {
        std::wstring why;
        ASSERT_EQ(KxPlat::OpenDrawing(KxPlat::DrivePath(drawing), document, why), Acad::eOk) << KxPlat::ToUtf8(why);
        ASSERT_EQ(acedArxLoad(KxPlat::DrivePath(KX_BIN "/KxArxBase.arx").c_str()), RTNORM);
        file = KxPlat::DrivePath(KX_TEST_DATA "/house_r2007.dxf");
    }
    // Runs the command with its first `count` answers, and Esc to the next question.
    void LeaveAt(const Row& row, size_t count)
    {
        ui.answers.push_back(row.command);
        for (size_t i = 0; i < count; ++i)
            ui.answers.push_back(row.answers[i] == L"@FILE" ? file : row.answers[i]);
        if (row.answers[count] == L"@NO")
            ui.boxAnswers.push_back(IDNO);
        else
            ui.answers.push_back(L"\x1b");
        session.Loop();
        EXPECT_TRUE(ui.answers.empty()) << "the command did not ask as often";
        EXPECT_TRUE(ui.boxAnswers.empty()) << "the command did not ask";
        ui.answers.clear();
        ui.boxAnswers.clear();
    }
    void LeaveEverywhere()
    {
        const KxTest::DrawingState before = KxTest::StateOf(*document->database());
        const long openObjects = KxPlat::OpenObjectCount();
        for (const Row& row : g_rows) {
            for (size_t count = 0; count < row.answers.size(); ++count) {
                SCOPED_TRACE(KxPlat::ToUtf8(row.command) + " left at prompt " + std::to_string(count + 1));
                ui.TakePrinted();
                LeaveAt(row, count);
                EXPECT_EQ(KxTest::Changes(before, KxTest::StateOf(*document->database())), "(none)\n")
                    << KxPlat::ToUtf8(ui.TakePrinted());
                EXPECT_EQ(KxPlat::OpenObjectCount(), openObjects);
            }
        }
    }

    KxPlat::ScriptedUi ui;
    KxPlat::Session session;
    AcApDocument* document = nullptr;
    std::wstring file;
};

}   // namespace

TEST_F(Leave, TheTableNamesEveryCommand)
{
    Open(KX_TEST_DATA "/house_r2010.dxf");
    std::set<std::wstring> names;
    for (const Row& row : g_rows) {
        names.insert(row.command);
        AcEdCommand* command = acedRegCmds->lookupGlobalCmd(row.command);
        ASSERT_NE(command, nullptr) << KxPlat::ToUtf8(row.command);
        EXPECT_STREQ(command->groupName(), L"KxArxBase");
    }
    EXPECT_EQ(names.size(), 52u);
}

TEST_F(Leave, NothingIsChangedInAPlan)
{
    Open(KX_TEST_DATA "/house_r2010.dxf");
    LeaveEverywhere();
}

TEST_F(Leave, NothingIsChangedInARealDrawing)
{
    const char* name = KX_DRAWINGS "/cn_plan_r2013_ansi936.dxf";
    if (!std::filesystem::exists(name))
        GTEST_SKIP() << "no drawing " << name;
    Open(name);
    LeaveEverywhere();
}
