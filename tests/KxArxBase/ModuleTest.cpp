#include "ed/Session.h"
#include "KxArxBase/ArxModuleRegManage.h"
#include "KxArxBase/KxMessages.h"
#include "TestUi.h"
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace KxArxBase;

namespace {

// The handle of this program: any module that is really loaded will do.
const HINSTANCE g_handle = GetModuleHandleW(nullptr);

// Counts what the host's messages make it do.
class TestModule : public CArxModuleRegManage {
public:
    int InitModule() override
    {
        calls += "I";
        return initAnswer;
    }
    int UnloadModule() override
    {
        calls += "U";
        return 1;
    }
    Acad::ErrorStatus AcrxLoadDwgMsg() override
    {
        calls += "L";
        return drawingAnswer;
    }
    Acad::ErrorStatus AcrxUnloadDwgMsg() override
    {
        calls += "X";
        return drawingAnswer;
    }

    std::string calls;
    int initAnswer = 1;
    Acad::ErrorStatus drawingAnswer = Acad::eOk;
};

AcRx::AppRetCode Send(CArxModuleRegManage& module, int code)
{
    return module.AppAcrxEntryPoint(AcRx::AppMsgCode(code), nullptr);
}

void Nothing() {}

// A session, since the command stack lives in one.
class Module : public testing::Test {
protected:
    TestUi ui;
    KxPlat::Session session;
    TestModule module;
};

bool IsCommand(const wchar_t* group, const wchar_t* name)
{
    return acedRegCmds->lookupCmd(name, group) != nullptr;
}

}   // namespace

TEST_F(Module, EachMessageDoesItsWork)
{
    for (int code = 0; code <= 20; ++code) {
        if (code == AcRx::kInvkSubrMsg)
            continue;
        EXPECT_EQ(Send(module, code), AcRx::kRetOK) << code;
    }
    EXPECT_EQ(module.calls, "IULX");
    EXPECT_EQ(ui.Taken(), L"");   // nothing is traced unless switched on
}

TEST_F(Module, OnlyOneAndOkAreSuccess)
{
    module.initAnswer = 2;
    EXPECT_EQ(Send(module, AcRx::kInitAppMsg), AcRx::kRetError);
    module.drawingAnswer = Acad::eKeyNotFound;
    EXPECT_EQ(Send(module, AcRx::kLoadDwgMsg), AcRx::kRetError);
    EXPECT_EQ(Send(module, AcRx::kUnloadDwgMsg), AcRx::kRetError);
}

TEST_F(Module, MessagesAreTracedUnderTheirNames)
{
    struct Row {
        int code;
        const wchar_t* name;
    };
    static const Row rows[] = {{0, L"kNullMsg"},
                               {1, L"kInitAppMsg"},
                               {2, L"kUnloadAppMsg"},
                               {3, L"kLoadDwgMsg"},
                               {4, L"kUnloadDwgMsg"},
                               {6, L"kCfgMsg"},
                               {7, L"kLoadDwgMsg"},
                               {8, L"kQuitMsg"},
                               {9, L"kSaveMsg"},
                               {10, L"kLoadDwgMsg"},
                               {11, L"kNoDependencyMsg"},
                               {12, L"kOleUnloadAppMsg"},
                               {13, L"kPreQuitMsg"},
                               {14, L"kInitDialogMsg"},
                               {15, L"kEndDialogMsg"},
                               {16, L"kSuspendMsg"},
                               {17, nullptr},
                               {18, nullptr}};
    G_bOutDebugCmdMsg = 1;
    for (const Row& row : rows) {
        Send(module, row.code);
        const std::wstring name = module.GetModuleName().GetString();
        EXPECT_EQ(ui.Taken(), row.name == nullptr ? L"" : L"\n*** AppMsg(" + name + L") - AcRx::" + row.name)
            << row.code;
    }
    G_bOutDebugCmdMsg = 0;
}

TEST_F(Module, AwarenessOfDocumentsNeedsAnApplicationId)
{
    EXPECT_FALSE(module.AppAcrxregisterMDIAware(TRUE));
}

TEST_F(Module, CommandsNeedAnInstance)
{
    EXPECT_EQ(int(module.RegCmd(L"KX_TEST", L"KxOne", L"KX1", Nothing, 0)), 40004);
    EXPECT_EQ(ui.Taken(), L"");
    EXPECT_FALSE(IsCommand(L"KX_TEST", L"KxOne"));
}

TEST_F(Module, ARefusedCommandIsReportedOnce)
{
    module.SetInstance(g_handle);
    ASSERT_EQ(module.RegCmd(L"KX_TEST", L"KxOne", L"KX1", Nothing, 0), Acad::eOk);
    EXPECT_TRUE(IsCommand(L"KX_TEST", L"kxone"));
    EXPECT_EQ(module.RegCmd(L"KX_TEST", L"KxOne", L"KX1", Nothing, 0), Acad::eDuplicateKey);
    EXPECT_EQ(ui.Taken(), L"\nError: eDuplicateKey");
    EXPECT_EQ(module.RemoveCmd(L"KX_TEST"), 1);
    EXPECT_FALSE(IsCommand(L"KX_TEST", L"KxOne"));
}

TEST_F(Module, AListGoesOnBehindARefusedCommand)
{
    module.SetInstance(g_handle);
    CArxModuleRegManage::tagAutoCadCmd commands[] = {
        {L"KxOne", L"KX1", 0, Nothing}, {L"KxOne", L"KX1", 0, Nothing}, {L"KxTwo", L"KX2", 2, Nothing}};
    EXPECT_EQ(module.RegCmd(commands, 0, L"KX_LIST"), Acad::eOk);
    EXPECT_FALSE(IsCommand(L"KX_LIST", L"KxOne"));
    EXPECT_EQ(module.RegCmd(commands, 3, L"KX_LIST"), Acad::eOk);
    EXPECT_TRUE(IsCommand(L"KX_LIST", L"KxTwo"));
    EXPECT_EQ(acedRegCmds->lookupCmd(L"KxTwo", L"KX_LIST")->commandFlags(), 2);
    EXPECT_EQ(module.RemoveCmd(nullptr), 1);
    EXPECT_FALSE(IsCommand(L"KX_LIST", L"KxTwo"));
}

TEST_F(Module, GroupsAreRecordedBySpellingAndForgottenByName)
{
    module.SetInstance(g_handle);
    module.RegCmd(L"KX_A", L"KxOne", L"KX1", Nothing, 0);
    module.RegCmd(L"KX_A", L"KxTwo", L"KX2", Nothing, 0);
    module.RegCmd(L"kx_a", L"KxThree", L"KX3", Nothing, 0);
    module.RegCmd(L"KX_B", L"KxFour", L"KX4", Nothing, 0);
    EXPECT_EQ(module.RemoveCmd(L"没有"), 0);
    EXPECT_EQ(module.RemoveCmd(L"Kx_A"), 1);   // takes both spellings off the list
    EXPECT_EQ(module.RemoveCmd(nullptr), 1);   // so that only KX_B is left
    EXPECT_EQ(module.RemoveCmd(nullptr), 0);
}

TEST_F(Module, ANullGroupIsTheModulesName)
{
    module.SetInstance(g_handle);
    const CString name = module.GetModuleName();
    ASSERT_EQ(module.RegCmd(nullptr, L"KxOne", L"KX1", Nothing, 0), Acad::eOk);
    EXPECT_TRUE(IsCommand(name, L"KxOne"));
    EXPECT_EQ(module.RemoveCmd(nullptr), 1);
}

TEST_F(Module, TheFirstInstanceStays)
{
    HINSTANCE other = reinterpret_cast<HINSTANCE>(&module);
    EXPECT_EQ(module.SetInstance(g_handle), 1);
    module.RegCmd(L"KX_KEEP", L"KxOne", L"KX1", Nothing, 0);
    EXPECT_EQ(module.SetInstance(other), 0);
    EXPECT_EQ(module.GetInstance(), g_handle);
    EXPECT_EQ(module.RemoveCmd(nullptr), 1);   // the group is still known
}

TEST_F(Module, ACopyOfAFunctionTakesTheNameUpToItsEnd)
{
    CArxModuleRegManage::tagDefun one;
    for (wchar_t& character : one.name)
        character = L'x';
    one.name[3] = 0;
    one.code = 5;
    const CArxModuleRegManage::tagDefun copy(one);
    EXPECT_STREQ(copy.name, L"xxx");
    EXPECT_EQ(copy.name[4], 0);
    EXPECT_EQ(copy.code, 5);
    EXPECT_TRUE(copy == one);
}
