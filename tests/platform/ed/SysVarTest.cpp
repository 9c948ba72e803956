#include "db/AcDbDatabase.h"
#include "db/core/DbCore.h"
#include "EditorTest.h"
#include "rx/ResBufs.h"

using namespace KxPlat;
using KxTest::Editor;

namespace {

resbuf ShortValue(int number)
{
    resbuf value = {};
    value.restype = RTSHORT;
    value.resval.rint = short(number);
    return value;
}

}   // namespace

TEST_F(Editor, VariablesHaveTheirTypes)
{
    struct Row {
        const wchar_t* name;
        short type;
    };
    static const Row rows[] = {{L"cmdecho", RTSHORT},  {L"LTSCALE", RTREAL},    {L"CLAYER", RTSTR},
                               {L"LIMMAX", RTPOINT},   {L"INSBASE", RT3DPOINT}, {L"DWGNAME", RTSTR},
                               {L"MILLISECS", RTLONG}, {L"ACADVER", RTSTR}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.name)));
        resbuf value = {};
        ASSERT_EQ(acedGetVar(row.name, &value), RTNORM);
        EXPECT_EQ(value.restype, row.type);
        if (value.restype == RTSTR)
            acutDelString(value.resval.rstring);
    }
    resbuf value = {};
    EXPECT_EQ(acedGetVar(L"NOSUCHVAR", &value), RTERROR);
}

TEST_F(Editor, WhatDoesNotFitIsRefused)
{
    const resbuf two = ShortValue(2), one = ShortValue(1);
    EXPECT_EQ(acedSetVar(L"FILEDIA", &two), RTERROR);   // 0 or 1
    EXPECT_EQ(IntegerVar(L"FILEDIA"), 1);
    EXPECT_EQ(acedSetVar(L"DWGNAME", &one), RTERROR);   // read-only
    EXPECT_EQ(acedSetVar(L"CLAYER", &one), RTERROR);    // no text
    EXPECT_EQ(SetVar(L"CLAYER", VarOf(L"nowhere")), VarAnswer::OutOfRange);
    EXPECT_EQ(TextVar(L"CLAYER"), L"0");
    EXPECT_EQ(acedSetVar(L"LTSCALE", &two), RTNORM);   // a whole number does for a real
    EXPECT_EQ(RealVar(L"LTSCALE"), 2.0);
    EXPECT_EQ(acedSetVar(L"ROLLOVERTIPS", &one), RTNORM);
}

TEST_F(Editor, VariablesLiveWhereTheyBelong)
{
    SetVar(L"CMDECHO", VarOf(0));
    SetVar(L"USERI1", VarOf(11));
    SetVar(L"USERS1", VarOf(L"one"));
    AcApDocument* first = acDocManager->curDocument();
    EXPECT_EQ(CoreOf(*first->database()).header.Integer("$USERI1"), 11);
    EXPECT_NE(IntegerVar(L"DBMOD") & 4, 0);
    AcApDocument* second = nullptr;
    std::wstring why;
    ASSERT_EQ(NewDrawing(L"", second, why), Acad::eOk);
    EXPECT_EQ(IntegerVar(L"CMDECHO"), 0);
    EXPECT_EQ(IntegerVar(L"USERI1"), 0);
    EXPECT_EQ(TextVar(L"USERS1"), L"");
    EXPECT_EQ(TextVar(L"DWGNAME"), L"Drawing2.dwg");
    MakeCurrent(first);
    EXPECT_EQ(IntegerVar(L"USERI1"), 11);
    EXPECT_EQ(TextVar(L"USERS1"), L"one");
}

TEST_F(Editor, TheReleaseIsTheOneAskedFor)
{
    session.reset();
    SessionOptions options;
    options.release = L"18.2";
    session.emplace(options);
    AcApDocument* document = nullptr;
    std::wstring why;
    ASSERT_EQ(NewDrawing(L"", document, why), Acad::eOk);
    EXPECT_EQ(TextVar(L"ACADVER"), L"18.2");
}

TEST_F(Editor, ColorsGoByNameAndNumber)
{
    for (const auto& [set, shown] :
         {std::pair{L"red", L"1"}, {L"BYBLOCK", L"BYBLOCK"}, {L"30", L"30"}, {L"bylayer", L"BYLAYER"}}) {
        EXPECT_EQ(SetVar(L"CECOLOR", VarOf(set)), VarAnswer::Done);
        EXPECT_EQ(TextVar(L"CECOLOR"), shown);
    }
    EXPECT_NE(SetVar(L"CECOLOR", VarOf(L"mauve")), VarAnswer::Done);
}

TEST_F(Editor, SetvarShowsAndAsks)
{
    struct Row {
        const wchar_t* typed;
        const wchar_t* seen;
        bool isGood;
    };
    static const Row rows[] = {
        {L"SETVAR USERI1 7\n",
         L"\nCommand: SETVAR\nEnter variable name or [?]: USERI1\nEnter new value for USERI1 <0>: 7", true},
        {L"useri1\n\n", L"\nCommand: useri1\nEnter new value for USERI1 <7>: ", true},
        {L"USERI1 x 8\n",
         L"\nCommand: USERI1\nEnter new value for USERI1 <7>: x\nRequires an integer value.\nEnter new value for "
         L"USERI1 <7>: 8",
         false},
        {L"USERI1 7\n", L"\nCommand: USERI1\nEnter new value for USERI1 <8>: 7", true},
        {L"FILEDIA 2 1\n",
         L"\nCommand: FILEDIA\nEnter new value for FILEDIA <1>: 2\nRequires an integer between 0 and 1."
         L"\nEnter new value for FILEDIA <1>: 1",
         false},
        {L"DWGNAME\n", L"\nCommand: DWGNAME\nDWGNAME = \"Drawing1.dwg\" (read only)", true},
        {L"USERS1\nmy text\n", L"\nCommand: USERS1\nEnter new value for USERS1, or . for none <\"\">: my text", true},
        {L"USERS1\n.\n", L"\nCommand: USERS1\nEnter new value for USERS1, or . for none <\"my text\">: .", true},
        {L"INSBASE 1,2.5\n", L"\nCommand: INSBASE\nEnter new value for INSBASE <0.0,0.0,0.0>: 1,2.5", true},
        {L"INSBASE\n\n", L"\nCommand: INSBASE\nEnter new value for INSBASE <1.0,2.5,0.0>: ", true},
        {L"SETVAR NOSUCH\n",
         L"\nCommand: SETVAR\nEnter variable name or [?]: NOSUCH"
         L"\nUnknown variable name. Type SETVAR ? for a list of variables.",
         false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.typed)));
        EXPECT_EQ(Seen(row.typed), row.seen);
        EXPECT_EQ(isGood, row.isGood);
    }
    const std::wstring list = Seen(L"SETVAR ? USERI#\n");
    EXPECT_NE(list.find(L"\nUSERI1             7 "), std::wstring::npos);
    EXPECT_NE(list.find(L"\nUSERI5             0 "), std::wstring::npos);
    EXPECT_EQ(list.find(L"USERR1"), std::wstring::npos);
}

TEST_F(Editor, ACommandKnowsThatItRuns)
{
    EXPECT_EQ(IntegerVar(L"CMDACTIVE"), 0);
    Seen(L"SETVAR CMDNAMES\n");
    EXPECT_EQ(Seen(L"SETVAR CMDACTIVE\n"),
              L"\nCommand: SETVAR\nEnter variable name or [?]: CMDACTIVE\nCMDACTIVE = 1 (read only)");
    EXPECT_EQ(TextVar(L"CMDNAMES"), L"");
}
