#include "ed/Prompt.h"
#include "EditorTest.h"
#include <cmath>

using namespace KxPlat;
using KxTest::Editor;

TEST(Keywords, MayBeShortenedToTheirCapitals)
{
    struct Row {
        const wchar_t* list;
        const wchar_t* typed;
        const wchar_t* match;
    };
    static const Row rows[] = {
        {L"Yes No", L"y", L"Yes"},
        {L"Yes No", L"YE", L"Yes"},
        {L"Yes No", L"yesss", L""},
        {L"LType LAyer", L"L", L""},
        {L"LType LAyer", L"la", L"LAyer"},
        {L"LType LAyer", L"LTy", L"LType"},
        {L"eXit Undo", L"x", L"eXit"},
        {L"eXit Undo", L"ex", L"eXit"},
        {L"eXit Undo", L"e", L""},
        {L"ON OFF", L"O", L""},
        {L"ON OFF", L"on", L"ON"},
        {L"LTYPE,LT Layer", L"lt", L"LTYPE"},
        {L"LTYPE,LT Layer", L"l", L"Layer"},
        {L"Ja Nein _Yes No", L"j", L"Yes"},
        {L"Ja Nein _Yes No", L"_n", L"No"},
        {L"Ja Nein _Yes No", L"y", L""},
        {L"是 否 _Yes No", L"是", L"Yes"},
        {L"2P 3P", L"3p", L"3P"},
        {L"? Load", L"?", L"?"},
        {L"Yes No", L"", L""},
        {L"Yes No", L"_", L""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.list) + L" / " + row.typed));
        EXPECT_EQ(MatchKeyword(KeywordsOf(row.list), row.typed), row.match);
    }
}

TEST_F(Editor, PointsAreTypedInManyWays)
{
    struct Row {
        const wchar_t* text;
        double x, y, z;
    };
    static const Row rows[] = {
        {L"1,2", 1, 2, 0},        {L"1.5,-2,3", 1.5, -2, 3},
        {L"@3,4", 13, 24, 5},     {L"@3,4,1", 13, 24, 6},
        {L"@", 10, 20, 5},        {L"5<90", 0, 5, 0},
        {L"@2<180", 8, 20, 5},    {L"*7,8", 7, 8, 0},
        {L"#7,8", 7, 8, 0},       {L"@10<30", 10 + 8.660254037844387, 25, 5},
        {L"1e2,2E1", 100, 20, 0},
    };
    const ads_point from = {10, 20, 5};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.text)));
        ads_point point = {-1, -1, -1};
        ASSERT_TRUE(ReadPoint(row.text, from, point));
        EXPECT_NEAR(point[X], row.x, 1e-12);
        EXPECT_NEAR(point[Y], row.y, 1e-12);
        EXPECT_NEAR(point[Z], row.z, 1e-12);
    }
    for (const wchar_t* wrong : {L"", L"1", L"1,", L"1,2,3,4", L"a,b", L"<5", L"1,,2", L"@@1,1"}) {
        ads_point point;
        EXPECT_FALSE(ReadPoint(wrong, from, point)) << testing::PrintToString(std::wstring(wrong));
    }
}

TEST_F(Editor, RelativePointsStartAtTheLastOne)
{
    ads_point first, second;
    Type(L"10,20 @1,1\n");
    ASSERT_EQ(acedGetPoint(nullptr, L"\nFirst: ", first), RTNORM);
    ASSERT_EQ(acedGetPoint(first, L"\nSecond: ", second), RTNORM);
    EXPECT_EQ(second[X], 11);
    EXPECT_EQ(second[Y], 21);
    EXPECT_EQ(ui.TakePrinted(), L"\nFirst: 10,20\nSecond: @1,1");
}

TEST_F(Editor, NumbersAreAskedForUntilTheyFit)
{
    struct Row {
        int bits;
        const wchar_t* typed;
        int answer;
        int number;
        const wchar_t* seen;   // behind the first answer
    };
    static const Row rows[] = {
        {0, L"12 ", RTNORM, 12, L""},
        {0, L" ", RTNONE, 0, L""},
        {0, L"\x1b", RTCAN, 0, L""},
        {0, L"1.5 3 ", RTNORM, 3, L"\nRequires an integer value.N: 3"},
        {0, L"99999999999 4 ", RTNORM, 4, L"\nRequires an integer value.N: 4"},
        {RSG_NONEG, L"-1 1 ", RTNORM, 1, L"\nValue must be positive.N: 1"},
        {RSG_NOZERO, L"0 -1 ", RTNORM, -1, L"\nValue must be nonzero.N: -1"},
        {RSG_NONEG | RSG_NOZERO, L"-5 2 ", RTNORM, 2, L"\nValue must be positive and nonzero.N: 2"},
        {RSG_NONULL, L" 2 ", RTNORM, 2, L"\nRequires an answer.N: 2"},
        {0, L"all ", RTKWORD, 0, L""},
        {RSG_OTHER, L"what ", RTKWORD, 0, L""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.typed)));
        Type(row.typed);
        int number = 0;
        acedInitGet(row.bits, L"All");
        ui.TakePrinted();
        EXPECT_EQ(acedGetInt(L"N: ", &number), row.answer);
        EXPECT_EQ(number, row.number);
        const std::wstring seen = ui.TakePrinted();
        EXPECT_EQ(seen.substr(std::min(seen.size(), seen.find(L'\n'))), row.seen);
        session->input().DropAll();
    }
}

TEST_F(Editor, ARuleHoldsForOnePromptOnly)
{
    int number = 0;
    Type(L"a -1 ");
    acedInitGet(RSG_NONEG, L"All");
    EXPECT_EQ(acedGetInt(L"", &number), RTKWORD);
    EXPECT_EQ(acedGetInt(L"", &number), RTNORM);
    EXPECT_EQ(number, -1);
}

TEST_F(Editor, KeywordsComeBackByTheirGlobalName)
{
    ACHAR keyword[512];
    Type(L"maybe j ");
    acedInitGet(0, L"Ja Nein _Yes No");
    EXPECT_EQ(acedGetKword(L"\nOk? ", keyword), RTNORM);
    EXPECT_STREQ(keyword, L"Yes");
    EXPECT_EQ(ui.TakePrinted(), L"\nOk? maybe\nInvalid option keyword.\nOk? j");
    EXPECT_TRUE(session->HasFailed());   // a bad answer in a script
}

TEST_F(Editor, TextsMayHoldBlanks)
{
    ACHAR text[512];
    Type(L"one word\n");
    EXPECT_EQ(acedGetString(1, L"", text), RTNORM);
    EXPECT_STREQ(text, L"one word");
    Type(L"one word\n");
    EXPECT_EQ(acedGetString(0, L"", text), RTNORM);
    EXPECT_STREQ(text, L"one");
    session->input().DropAll();
    Type(L"\n");
    EXPECT_EQ(acedGetString(1, L"", text), RTNORM);
    EXPECT_STREQ(text, L"");
    Type(std::wstring(600, L'墙') + L"\n");
    EXPECT_EQ(acedGetString(1, L"", text), RTINPUTTRUNCATED);
    EXPECT_EQ(std::wstring(text), std::wstring(511, L'墙'));
}

TEST_F(Editor, DistancesAndAnglesMayBeShownByPoints)
{
    ads_real value = 0;
    const ads_point base = {1, 1, 0};
    Type(L"4,5\n");
    EXPECT_EQ(acedGetDist(base, L"", &value), RTNORM);
    EXPECT_EQ(value, 5);
    Type(L"0,0\n3,4\n");
    EXPECT_EQ(acedGetDist(nullptr, L"", &value), RTNORM);
    EXPECT_EQ(value, 5);
    Type(L"2.5\n");
    EXPECT_EQ(acedGetDist(nullptr, L"", &value), RTNORM);
    EXPECT_EQ(value, 2.5);
    Type(L"90\n");
    EXPECT_EQ(acedGetAngle(nullptr, L"", &value), RTNORM);
    EXPECT_DOUBLE_EQ(value, 1.5707963267948966);
    Type(L"1,0\n");   // straight down from the base point
    EXPECT_EQ(acedGetAngle(base, L"", &value), RTNORM);
    EXPECT_DOUBLE_EQ(value, 4.71238898038469);
    Type(L"0.5r\n");
    EXPECT_EQ(acedGetAngle(nullptr, L"", &value), RTNORM);
    EXPECT_DOUBLE_EQ(value, 0.5);
}

// Angles from north, clockwise: 0 is up, 90 to the right.
TEST_F(Editor, AnglesFollowTheDrawingsDirection)
{
    VarValue north;
    north.type = VarType::Real;
    north.real[0] = 1.5707963267948966;
    ASSERT_EQ(SetVar(L"ANGBASE", north), VarAnswer::Done);
    ASSERT_EQ(SetVar(L"ANGDIR", VarOf(1)), VarAnswer::Done);
    ads_point point;
    Type(L"10<90\n");
    ASSERT_EQ(acedGetPoint(nullptr, L"", point), RTNORM);
    EXPECT_NEAR(point[X], 10, 1e-12);
    EXPECT_NEAR(point[Y], 0, 1e-12);
}

TEST_F(Editor, APromptAtTheEndOfTheInputIsCancelled)
{
    Start(false);
    int number = 5;
    EXPECT_EQ(acedGetInt(L"", &number), RTCAN);
    EXPECT_EQ(number, 5);
    EXPECT_TRUE(session->HasFailed());
}
