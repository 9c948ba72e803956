#include "KxArxBase/KxMessages.h"
#include "TestUi.h"
#include <gtest/gtest.h>
#include <vector>

using namespace KxArxBase;

TEST(Messages, GoToTheBoxOrToTheCommandLine)
{
    TestUi ui;
    ui.answer = IDNO;
    EXPECT_EQ(MessageInfo(L"继续吗？ 100%s", 0, MB_YESNO), IDNO);
    EXPECT_EQ(ui.shown, L"继续吗？ 100%s");
    EXPECT_EQ(ui.shownType, MB_YESNO);
    EXPECT_EQ(ui.Taken(), L"");

    MessageInfo(L"\n图层 100%s 已关闭", 1, 0);   // the text is no format
    EXPECT_EQ(ui.Taken(), L"\n图层 100%s 已关闭");
    EXPECT_EQ(MessageInfo(nullptr, 0, 0), 0);
    EXPECT_EQ(MessageInfo(nullptr, 1, 0), 0);
    EXPECT_EQ(ui.Taken(), L"");
}

TEST(Messages, AnErrorLineTellsTheStatus)
{
    TestUi ui;
    EXPECT_EQ(MessageError(Acad::eOk, 1, 0, L"Error: "), 1);
    EXPECT_EQ(ui.Taken(), L"");
    MessageError(Acad::eKeyNotFound, 1, 0, L"Error: ");
    EXPECT_EQ(ui.Taken(), L"\nError: eKeyNotFound");
    MessageError(AsStatus(KxAcad::eNoModule), 1, 0, L"Error: ");
    EXPECT_EQ(ui.Taken(), L"\nError: KxAcad::eNoModule");
}

TEST(Messages, OwnStatusesHaveTheirNames)
{
    struct Row {
        int value;
        const wchar_t* text;
    };
    static const Row rows[] = {{40000, L"KxAcad::eNoObject"},       {40001, L"KxAcad::eNoSectionsInDict"},
                               {40002, L"KxAcad::eNoApi"},          {40003, L"KxAcad::eApiAccessError"},
                               {40004, L"KxAcad::eNoModule"},       {40005, L"KxAcad::eWrongHookType"},
                               {40006, L"KxAcad::eFailRegCadHook"}, {40007, L"KxAcad::eFailRemoveCadHook"}};
    for (const Row& row : rows)
        EXPECT_STREQ(KxAcadErrorStatusText(KxAcad::KxAcadError(row.value)), row.text);
    for (int foreign : {0, 3, 39999, 40008})
        EXPECT_STREQ(KxAcadErrorStatusText(KxAcad::KxAcadError(foreign)),
                     acadErrorStatusText(Acad::ErrorStatus(foreign)));
}

TEST(Messages, ATraceIsPrintedOnlyWhenSwitchedOn)
{
    TestUi ui;
    DebugCmdMsg(L"%s %s %d", static_cast<const wchar_t*>(nullptr));   // too few arguments: must not be looked at
    EXPECT_EQ(ui.Taken(), L"");
    G_bOutDebugCmdMsg = 1;
    DebugCmdMsg(L"\n模块 %s 有 %d 条命令", L"KxArxBase", 52);
    G_bOutDebugCmdMsg = 0;
    EXPECT_EQ(ui.Taken(), L"\n模块 KxArxBase 有 52 条命令");
}

TEST(Messages, AFailingStepRunsThreeTimes)
{
    TestUi ui;
    std::vector<Acad::ErrorStatus> answers = {Acad::eWasOpenForRead, Acad::eKeyNotFound, Acad::eInvalidInput};
    size_t runs = 0;
    EXPECT_EQ(Reported([&] { return answers[runs++]; }), Acad::eInvalidInput);
    EXPECT_EQ(runs, 3u);
    EXPECT_EQ(ui.Taken(), L"\nError: eKeyNotFound");

    runs = 0;
    answers[0] = Acad::eOk;
    EXPECT_EQ(Reported([&] { return answers[runs++]; }), Acad::eOk);
    EXPECT_EQ(runs, 1u);
}

TEST(Messages, AHandleIsWrittenInHexadecimal)
{
    EXPECT_STREQ(Str_GetAcDbHandle(AcDbHandle(0x2A, 0)), L"2A");
    EXPECT_STREQ(Str_GetAcDbHandle(AcDbHandle(int32_t(0xFFFFFFFF), 0x1)), L"1FFFFFFFF");
}

TEST(Messages, TheLengthOfATextGrowsWithHeightAndWidth)
{
    AcDbDatabase db;
    double unit = -1, high = -1;
    ASSERT_EQ(GetTextsLength(L"WALL", db.textstyle(), 1.0, 1.0, unit, &high), Acad::eOk);
    EXPECT_GT(unit, 0);
    EXPECT_GT(high, 0);
    double length = -1;
    GetTextsLength(L"WALL", db.textstyle(), 2.5, 1.0, length, nullptr);
    EXPECT_NEAR(length, 2.5 * unit, 1e-9);
    GetTextsLength(L"WALL", db.textstyle(), 1.0, 0.5, length, nullptr);
    EXPECT_NEAR(length, 0.5 * unit, 1e-9);
    GetTextsLength(L"WALLWALL", db.textstyle(), 1.0, 1.0, length, nullptr);
    EXPECT_GT(length, 1.9 * unit);
    EXPECT_EQ(GetTextsLength(L"", db.textstyle(), 1.0, 1.0, length, nullptr), Acad::eOk);
    EXPECT_EQ(length, 0);

    length = 17;
    EXPECT_NE(GetTextsLength(L"WALL", db.layerZero(), 1.0, 1.0, length, nullptr), Acad::eOk);
    EXPECT_EQ(length, 17);
}
