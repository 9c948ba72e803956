// Choosing objects: ways, filters, the conversation, sets.
#include "ed/select/Candidates.h"
#include "ed/select/DocumentSelection.h"
#include "lispSession.h"
#include <gtest/gtest.h>

namespace {

// Six objects on four layers; the handles of a set are told by the names A to F.
//   A line (0,0)-(10,0) on WALL        B circle at (20,0) radius 5 on WALL, red
//   C text at (0,20) on TEXT           D line (0,30)-(30,30) on LOCKED
//   E line (0,40)-(10,40) on OFF       F line (0,50)-(10,50) on FROZEN
struct Plan : LispSession {
    Plan()
    {
        (*this)(L"(defun lay (n f c) (entmake (list '(0 . \"LAYER\") '(100 . \"AcDbSymbolTableRecord\")"
                L" '(100 . \"AcDbLayerTableRecord\") (cons 2 n) (cons 70 f) (cons 62 c))))"
                L"(lay \"WALL\" 0 7) (lay \"TEXT\" 0 7) (lay \"LOCKED\" 4 7) (lay \"OFF\" 0 -7) (lay \"FROZEN\" 1 7)"
                L"(defun ln (l x1 y1 x2 y2) (entmakex (list '(0 . \"LINE\") (cons 8 l) (list 10 x1 y1 0) (list 11 x2 "
                L"y2 0))))"
                L"(setq names (list"
                L" (cons (ln \"WALL\" 0 0 10 0) \"A\")"
                L" (cons (entmakex '((0 . \"CIRCLE\") (8 . \"WALL\") (62 . 1) (10 20 0 0) (40 . 5))) \"B\")"
                L" (cons (entmakex '((0 . \"TEXT\") (8 . \"TEXT\") (10 0 20 0) (40 . 2.5) (1 . \"hello\"))) \"C\")"
                L" (cons (ln \"LOCKED\" 0 30 30 30) \"D\")"
                L" (cons (ln \"OFF\" 0 40 10 40) \"E\")"
                L" (cons (ln \"FROZEN\" 0 50 10 50) \"F\")))"
                L"(defun show (s / i r) (setq i 0 r \"\") (if s (repeat (sslength s)"
                L" (setq r (strcat r (cdr (assoc (ssname s i) names))) i (1+ i)))) r)");
    }
    std::wstring Show(const std::wstring& form)
    {
        const std::wstring shown = (*this)(L"(show " + form + L")");
        return shown.size() > 1 && shown[0] == L'"' ? shown.substr(1, shown.size() - 2) : shown;
    }
};

}   // namespace

TEST(Selection, WaysReachWhatTheyShould)
{
    struct Row {
        const wchar_t* form;
        const wchar_t* names;
    };
    static const Row rows[] = {
        {L"(ssget \"X\")", L"ABCDEF"},
        {L"(ssget \"_A\")", L"ABCE"},   // neither locked nor frozen
        {L"(ssget \"W\" '(-1 -1) '(11 1))", L"A"},
        {L"(ssget \"W\" '(-1 -6) '(24 1))", L"A"},   // the circle reaches 25
        {L"(ssget \"C\" '(-1 -6) '(16 1))", L"AB"},
        {L"(ssget \"C\" '(19 -1) '(21 1))", L""},   // inside the circle, but not on it
        {L"(ssget \"C\" '(5 29) '(6 31))", L"D"},   // a locked layer can be pointed at
        {L"(ssget \"C\" '(5 29) '(6 51))", L"D"},   // what is off or frozen cannot
        {L"(ssget \"_C:L\" '(5 29) '(6 31))", L""},
        {L"(ssget \"F\" '((5 -1) (5 35)))", L"ACD"},
        {L"(ssget \"F\" '((11 -1) (11 29)))", L""},
        {L"(ssget \"WP\" '((-1 -1) (12 -1) (12 1) (-1 1)))", L"A"},
        {L"(ssget \"WP\" '((-1 -1) (12 -1) (5 1)))", L""},   // a triangle that the line leaves
        {L"(ssget \"CP\" '((-1 -1) (12 -1) (5 1)))", L"A"},
        {L"(ssget \"L\")", L"D"},   // the last one that can be seen
        {L"(ssget '(5 0))", L"A"},
        {L"(ssget '(5 7))", L""},
        {L"(ssget \"P\")", L"A"},   // chosen last
        {L"(ssget \"I\")", L""},
    };
    Plan plan;
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.form)));
        EXPECT_EQ(plan.Show(row.form), row.names);
    }
    EXPECT_EQ(plan(L"(ssget \"Q\")"), L"nil");
}

TEST(Selection, FiltersCombine)
{
    struct Row {
        const wchar_t* filter;
        const wchar_t* names;
    };
    static const Row rows[] = {
        {L"((0 . \"LINE\"))", L"ADEF"},
        {L"((0 . \"line,circle\"))", L"ABDEF"},
        {L"((0 . \"~LINE\"))", L"BC"},
        {L"((8 . \"WALL\"))", L"AB"},
        {L"((8 . \"?A*\"))", L"AB"},
        {L"((8 . \"wall\") (0 . \"LINE\"))", L"A"},
        {L"((62 . 1))", L"B"},
        {L"((62 . 256))", L"ACDEF"},   // by layer, which the drawing leaves out
        {L"((-4 . \"<OR\") (0 . \"TEXT\") (62 . 1) (-4 . \"OR>\"))", L"BC"},
        {L"((-4 . \"<NOT\") (0 . \"LINE\") (-4 . \"NOT>\"))", L"BC"},
        {L"((-4 . \"<AND\") (0 . \"LINE\") (-4 . \"<NOT\") (8 . \"WALL\") (-4 . \"NOT>\") (-4 . \"AND>\"))", L"DEF"},
        {L"((-4 . \"<XOR\") (0 . \"LINE\") (8 . \"WALL\") (-4 . \"XOR>\"))", L"BDEF"},
        {L"((0 . \"CIRCLE\") (-4 . \">=\") (40 . 5.0))", L"B"},
        {L"((0 . \"CIRCLE\") (-4 . \">\") (40 . 5.0))", L""},
        {L"((-4 . \"*,>=,*\") (10 0.0 30.0 0.0))", L"DEF"},
        {L"((-4 . \"=,<>,*\") (10 0.0 0.0 0.0))", L"CDEF"},
        {L"((1 . \"hel*\"))", L"C"},
        {L"((410 . \"Model\"))", L"ABCDEF"},
        {L"((8 . \"none\"))", L""},
    };
    Plan plan;
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.filter)));
        EXPECT_EQ(plan.Show(L"(ssget \"X\" '" + std::wstring(row.filter) + L")"), row.names);
    }
    static const wchar_t* const wrong[] = {L"((-4 . \"<OR\") (0 . \"LINE\"))", L"((0 . \"LINE\") (-4 . \"AND>\"))",
                                           L"((-4 . \"~~\") (62 . 1))", L"((-4 . \"<AND\") (-4 . \"AND>\"))",
                                           L"((62 . 1) (-4 . \">\"))"};
    for (const wchar_t* filter : wrong)
        EXPECT_EQ(plan(L"(ssget \"X\" '" + std::wstring(filter) + L")"), L"nil");
}

TEST(Selection, TheConversationTakesEveryWay)
{
    struct Row {
        const wchar_t* typed;
        const wchar_t* names;
        const wchar_t* said;   // somewhere in what was printed
    };
    static const Row rows[] = {
        {L"all\n\n", L"ABCE", L"\n4 found"},
        {L"w\n-1,-1\n11,1\n\n", L"A", L"\n1 found"},
        {L"c\n-1,-6\n16,1\n5,30\n\n", L"ABD", L"\n1 found, 3 total"},
        {L"5,0\n5,0\n\n", L"A", L"\n1 found (1 duplicate), 1 total"},
        {L"all\nr\n5,0\n\n", L"BCE", L"\n1 found, 1 removed, 3 total"},
        {L"all\nr\n5,0\na\n5,0\n\n", L"BCEA", L"\n1 found, 4 total"},
        {L"5,0\n5,30\nu\n\n", L"A", L""},
        {L"l\n\n", L"D", L"\n1 found"},
        {L"box\n12,1\n-1,-1\n\n", L"A", L""},   // from right to left: crossing
        {L"f\n5,-1\n5,35\n\n\n", L"ACD", L"\n3 found"},
        {L"wp\n-1,-1\n12,-1\n12,1\n-1,1\n\n\n", L"A", L""},
        {L"cp\n-1,-1\n12,-1\nu\n12,-1\n5,1\n\n\n", L"A", L""},
        {L"12,12\n-1,-1\n\n", L"A", L""},   // nothing there: a rectangle begins
        {L"(ssget \"X\" '((0 . \"TEXT\")))\n\n", L"C", L"\n1 found"},
        {L"!kept\n\n", L"B", L"\n1 found"},
        {L"si\n5,0\n", L"A", L"\n1 found"},
        {L"nonsense\n5,0\n\n", L"A", L"\n*Invalid selection*"},
        {L"?\n5,0\n\n", L"A",
         L"\n*Invalid selection*\nExpects a point or Window/Last/Crossing/BOX/ALL/Fence/WPolygon/CPolygon/Group/Add/"
         L"Remove/Multiple/Previous/Undo/AUto/SIngle"},
        {L"box\n-1,-1\n12,1\n\n", L"A", L""},   // from left to right: a window
        {L"box\n-1,-6\n16,1\n\n", L"A", L""},   // which the circle leaves
        {L"box\n16,1\n-1,-6\n\n", L"AB", L""},
        {L"g\npair\n\n", L"AC", L"\n2 found"},
        {L"g\nnone\n5,0\n\n", L"A", L"\n0 found"},
        {L"m\n5,0\n15,0\n\n", L"AB", L""},
        {L"au\n12,12\n-1,-1\n\n", L"A", L""},
        {L"si\nau\n12,12\n-1,-1\n", L"A", L""},
        {L"all\nr\n5,0\nu\n\n", L"BCEA", L""},   // what was taken away last comes back
        {L"all\nremove\nw\n-1,-6\n26,6\nadd\nlast\n\n", L"CED", L"\n2 found, 2 removed, 2 total"},
        {L"u\n5,0\n\n", L"A", L"\nCommand has been completely undone."},
        {L"_all\n\n", L"ABCE", L""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.typed)));
        Plan plan;
        plan(L"(setq kept (ssadd (car (nth 1 names))))"
             L"(vl-cmdf \"_.-GROUP\" \"_C\" \"PAIR\" \"\" (car (nth 0 names)) (car (nth 2 names)) \"\")");
        const std::wstring printed = plan.Typed(L"(progn (setq s (ssget)) (princ))\n" + std::wstring(row.typed));
        EXPECT_EQ(plan.Show(L"s"), row.names);
        EXPECT_NE(printed.find(row.said), std::wstring::npos) << testing::PrintToString(printed);
    }
}

TEST(Selection, PreviousAndEscape)
{
    Plan plan;
    plan.Typed(L"(progn (ssget) (princ))\np\n5,0\n\n");
    EXPECT_NE(plan.ui.printed.find(L"\nNo previous selection set."), std::wstring::npos);
    plan.Typed(L"(progn (setq s (ssget)) (princ))\n5,30\np\n\n");
    EXPECT_EQ(plan.Show(L"s"), L"DA");
    plan.Typed(L"(setq s 'untouched)\n(setq s (ssget))\n5,0\n\x1b\n");
    EXPECT_EQ(plan(L"s"), L"UNTOUCHED");   // Esc ends the program
}

TEST(Selection, PromptsOfTheCallersAndSingleChoice)
{
    Plan plan;
    struct Row {
        const wchar_t* typed;
        const wchar_t* mode;
        int answer;
        int count;
    };
    static const Row rows[] = {{L"5,0\n", L"_:S:$", RTNORM, 1},     {L"all\n", L"_:S:$", RTNORM, 4},
                               {L"\n", L"_:$", RTERROR, 0},         {L"100,100\n", L"_:S:$", RTERROR, 0},
                               {L"5,30\n\n", L"_:L:$", RTERROR, 0}, {L"\x1b", L"_:$", RTCAN, 0},
                               {L"5,0\n\n", L"_:$", RTNORM, 1}};
    const ACHAR* prompts[2] = {L"\n \u9009\u62E9\u5B9E\u4F53:", L"\nout:"};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.typed) + row.mode));
        plan.session.input().Push(
            std::make_unique<KxPlat::TextSource>(row.typed, KxPlat::TextSource::Kind::Script, true));
        ads_name set;
        EXPECT_EQ(acedSSGet(row.mode, prompts, nullptr, nullptr, set), row.answer);
        Adesk::Int32 length = 0;
        if (row.answer == RTNORM)
            acedSSLength(set, &length);
        EXPECT_EQ(length, row.count);
        EXPECT_EQ(plan.session.state().errorNumber == 52, row.typed[0] == L'\n' || row.mode[2] == L'L');
        plan.session.state().errorNumber = 0;
        if (row.answer == RTNORM)
            acedSSFree(set);
    }
}

TEST(Selection, TheSetPickedBeforeTheCommand)
{
    Plan plan;
    EXPECT_EQ(plan(L"(progn (sssetfirst nil (ssadd (car (nth 1 names)) (ssadd (car (nth 0 names))))) (princ))"), L"");
    EXPECT_EQ(plan.Show(L"(ssget \"I\")"), L"AB");
    EXPECT_EQ(plan.Show(L"(cadr (ssgetfirst))"), L"AB");
    plan(L"(entdel (car (nth 0 names)))");
    EXPECT_EQ(plan.Show(L"(ssget \"_I\")"), L"B");
    acedSSSetFirst(nullptr, nullptr);
    EXPECT_EQ(plan(L"(ssget \"I\")"), L"nil");
}

TEST(Selection, SetsAddRemoveAndForget)
{
    Plan plan;
    static const LispRow rows[] = {
        {L"(setq s (ssadd)) (sslength s)", L"0"},
        {L"(ssadd (car (nth 2 names)) s) (ssadd (car (nth 0 names)) s) (ssadd (car (nth 2 names)) s) (show s)",
         L"\"CA\""},
        {L"(null (ssmemb (car (nth 0 names)) s))", L"nil"},
        {L"(ssmemb (car (nth 1 names)) s)", L"nil"},
        {L"(ssdel (car (nth 2 names)) s) (show s)", L"\"A\""},
        {L"(ssdel (car (nth 2 names)) s)", L"nil"},
        {L"(ssname s 1)", L"nil"},
        {L"(ssname s -1)", L"nil"},
        {L"(type s)", L"PICKSET"},
        {L"(sslength nil)", L"\n; error: bad argument type: lselsetp nil"},
        {L"(ssname s \"a\")", L"\n; error: bad argument type: numberp: \"a\""},
    };
    for (const LispRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.form)));
        EXPECT_EQ(plan(row.form), row.answer);
    }
    const size_t before = KxPlat::SelectionSets::All().Count();
    plan(L"(setq s nil)");
    EXPECT_EQ(KxPlat::SelectionSets::All().Count(), before - 1);
}

TEST(Selection, LargeSetsStayQuickToTakeApart)
{
    Plan plan;
    EXPECT_EQ(plan(L"(repeat 3000 (ln \"WALL\" 0 100 1 101)) (setq s (ssget \"X\" '((0 . \"LINE\"))) n 0)"
                   L"(while (setq e (ssname s 0)) (ssdel e s) (setq n (1+ n))) n"),
              L"3004");
    EXPECT_EQ(
        plan(L"(setq s (ssget \"X\")) (setq e (ssname s 1500)) (ssadd e s) (list (sslength s) (null (ssmemb e s)))"),
        L"(3006 nil)");
}

TEST(Selection, HiddenObjectsCannotBePointedAt)
{
    Plan plan;
    plan(L"(entmod (list (cons -1 (car (nth 0 names))) '(60 . 1)))");
    EXPECT_EQ(plan.Show(L"(ssget \"X\")"), L"ABCDEF");
    EXPECT_EQ(plan.Show(L"(ssget \"A\")"), L"BCE");
    EXPECT_EQ(plan(L"(ssget '(5 0))"), L"nil");
}

TEST(Selection, NamesOfOtherThingsAreRefused)
{
    Plan plan;
    ads_name set, nothing = {0, 0}, result;
    ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, set), RTNORM);
    AcDbObjectId id;
    EXPECT_EQ(acdbGetObjectId(id, set), Acad::eInvalidAdsName);
    EXPECT_EQ(acdbGetObjectId(id, nothing), Acad::eInvalidAdsName);
    EXPECT_EQ(acedSSAdd(set, nullptr, result), RTERROR);
    ads_name entity;
    acdbEntLast(entity);
    Adesk::Int32 length = 0;
    EXPECT_EQ(acedSSLength(entity, &length), RTERROR);
    EXPECT_EQ(acedSSFree(set), RTNORM);
    EXPECT_EQ(acedSSFree(set), RTERROR);
    EXPECT_EQ(acedSSLength(set, &length), RTERROR);
}

TEST(Selection, OneObjectWithItsPoint)
{
    struct Row {
        const wchar_t* typed;
        const wchar_t* answer;   // of (entsel), the entity told by its name
    };
    static const Row rows[] = {{L"5,0\n", L"(\"A\" (5.0 0.0 0.0))"},
                               {L"l\n", L"(\"D\" (0.0 0.0 0.0))"},
                               {L"5,7\n", L"nil"},
                               {L"\n", L"nil"},
                               {L"(car (nth 1 names))\n", L"(\"B\" (0.0 0.0 0.0))"}};
    Plan plan;
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.typed)));
        plan.Typed(L"(progn (setq s (entsel)) (princ))\n" + std::wstring(row.typed));
        EXPECT_EQ(plan(L"(if s (list (cdr (assoc (car s) names)) (cadr s)))"), row.answer);
    }
    plan.Typed(L"(progn (initget \"Other\") (setq s (entsel)) (princ))\no\n");
    EXPECT_EQ(plan(L"s"), L"\"Other\"");
}

TEST(Selection, TheHostsCommandsTakeWhatWasSelectedBefore)
{
    Plan plan;
    plan(L"(sssetfirst nil (ssadd (car (nth 1 names))))");
    plan.Typed(L"erase\n");
    EXPECT_EQ(plan.Show(L"(ssget \"X\")"), L"ACDEF");
    plan.Typed(L"u\n");
    EXPECT_EQ(plan.Show(L"(ssget \"X\")"), L"ABCDEF");
    plan.Typed(L"(progn (foreach n names (entdel (car n))) (princ))\nu\n");
    EXPECT_EQ(plan.Show(L"(ssget \"X\")"), L"ABCDEF");   // one form is one step back
}
