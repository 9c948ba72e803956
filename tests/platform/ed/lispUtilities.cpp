// Utilities in the style that drafters share, run as their users run them.
#include "lispSession.h"
#include "support/TempFolder.h"
#include <gtest/gtest.h>

namespace {

struct Utilities : LispSession {
    explicit Utilities(const wchar_t* name)
    {
        const std::string folder = KX_TEST_LISP;
        interpreter();
        const std::wstring answer =
            (*this)(L"(load \"" + std::wstring(folder.begin(), folder.end()) + L"/" + name + L".lsp\")");
        EXPECT_EQ(answer.find(L"error"), std::wstring::npos);
    }
    bool Says(const std::wstring& script, const wchar_t* words)
    {
        const std::wstring seen = Typed(script);
        EXPECT_FALSE(session.HasFailed()) << testing::PrintToString(seen);
        return seen.find(words) != std::wstring::npos;
    }
};

TEST(LispUtilities, LayerReport)
{
    Utilities lisp(L"layer-report");
    lisp.Typed(L"-LAYER\nM\nWalls\n\nPOINT\n0,0\nPOINT\n1,1\n");
    const std::wstring seen = lisp.Typed(L"LAYREP\n");
    EXPECT_NE(seen.find(L"\n0           0\nWalls       2\ntotal 2"), std::wstring::npos)
        << testing::PrintToString(seen);
}

TEST(LispUtilities, TextsAreReplaced)
{
    Utilities lisp(L"match-text");
    lisp.Typed(L"TEXT\n0,0\n1\n0\nroom 1, room 2\n\nTEXT\n0,5\n1\n0\nhall\n\n");
    EXPECT_TRUE(lisp.Says(L"TXTREP\nroom\nchamber\n", L"1 texts changed."));
    EXPECT_EQ(lisp(L"(cdr (assoc 1 (entget (entnext))))"), L"\"chamber 1, chamber 2\"");
    EXPECT_TRUE(lisp.Says(L"TXTREP\nnothing\n\n", L"No text found."));
    EXPECT_EQ(lisp(L"(getvar \"CMDECHO\")"), L"1");
    lisp.Typed(L"TXTREP\n\x1b");
    EXPECT_EQ(lisp(L"(getvar \"CMDECHO\")"), L"1");   // its error function put it back
}

TEST(LispUtilities, AGridIsDrawn)
{
    Utilities lisp(L"draw-grid");
    lisp.Typed(L"GRIDS\n0,0\n3\n10\n");
    EXPECT_FALSE(lisp.session.HasFailed());
    EXPECT_EQ(lisp(L"(mapcar '(lambda (k) (sslength (ssget \"X\" (list (cons 0 k) '(8 . \"GRID\"))))) '(\"LINE\" "
                   L"\"CIRCLE\" \"TEXT\"))"),
              L"(3 3 3)");
    EXPECT_EQ(lisp(L"(list (cdr (assoc 1 (entget (entlast)))) (getvar \"OSMODE\"))"), L"(\"C\" 4133)");
}

TEST(LispUtilities, LayersThroughTheObjectModel)
{
    Utilities lisp(L"vla-layers");
    lisp.Typed(L"-LAYER\nN\nA1,A2,B1\nLO\nA2\n\nONLYLAY\nA*\n");
    const wchar_t states[] = L"(mapcar '(lambda (n) (minusp (cdr (assoc 62 (tblsearch \"LAYER\" n))))) '(\"A1\" \"A2\" "
                             L"\"B1\" \"0\"))";
    EXPECT_EQ(lisp(states), L"(nil nil T T)");
    EXPECT_TRUE(lisp.Says(L"ALLLAY\n", L"2 layers were off."));
    EXPECT_EQ(lisp(states), L"(nil nil nil nil)");
    EXPECT_EQ(lisp(L"(logand 4 (cdr (assoc 70 (tblsearch \"LAYER\" \"A2\"))))"), L"0");
}

TEST(LispUtilities, TextsAreNumberedAcrossCalls)
{
    Utilities lisp(L"number-texts");
    lisp.Typed(L"TEXT\n9,0\n1\n0\nright\n\nTEXT\n0,0\n1\n0\nleft\n\nNUMTXT\nALL\n\nNUMTXT\nL\n\n");
    EXPECT_EQ(lisp(L"(mapcar '(lambda (e) (cdr (assoc 1 (entget e)))) (list (entnext) (entlast)))"),
              L"(\"2-right\" \"3-1-left\")");
    EXPECT_EQ(lisp(L"(cdr (assoc 62 (entget (entlast))))"), L"3");
    EXPECT_EQ(lisp(L"(vlax-ldata-list \"NUMTXT\")"), L"((\"last\" . 3))");
    EXPECT_EQ(lisp(L"(list (vlax-ldata-delete \"NUMTXT\" \"last\") (vlax-ldata-get \"NUMTXT\" \"last\" 'gone))"),
              L"(T GONE)");
}

TEST(LispUtilities, CopiesKnowTheirOrigin)
{
    Utilities lisp(L"copy-to-layer");
    lisp.Typed(L"LINE\n0,0\n5,5\n\nC2LAY\nCopies\nALL\n\n");
    EXPECT_EQ(
        lisp(L"(setq d (entget (entlast) '(\"C2LAY\"))) (list (cdr (assoc 8 d)) (= (cdr (assoc 5 (entget (entnext)))) "
             L"(cdr (cadr (cadr (assoc -3 d))))))"),
        L"(\"Copies\" T)");
}

TEST(LispUtilities, AttributesGoToAFile)
{
    Utilities lisp(L"attribute-list");
    KxTest::TempFolder folder;
    lisp(L"(entmake '((0 . \"BLOCK\") (2 . \"DOOR\") (70 . 2) (10 0.0 0.0 0.0)))"
         L"(entmake '((0 . \"ATTDEF\") (10 0 0 0) (40 . 1.0) (1 . \"900\") (3 . \"Width\") (2 . \"W\") (70 . 0)))"
         L"(entmake '((0 . \"ENDBLK\")))");
    lisp.Typed(L"-INSERT\nDOOR\n5,5\n1\n\n0\n1010\n");
    std::wstring path = folder.DrivePath(L"doors.csv");
    lisp.Typed(L"ATTCSV\n" + path + L"\n");
    EXPECT_EQ(folder.Read("doors.csv"), "DOOR,W=1010\n");
}

TEST(LispObjects, PropertiesAreReadAndSet)
{
    static const struct {
        const wchar_t* form;
        const wchar_t* answer;
    } rows[] = {
        {L"(setq c (vlax-ename->vla-object (entmakex '((0 . \"CIRCLE\") (10 1 2 0) (40 . 3.0)))))"
         L"(list (vla-get-radius c) (vla-get-center c) (vla-get-layer c) (vla-get-color c) (vla-get-objectname c))",
         L"(3.0 (1.0 2.0 0.0) \"0\" 256 \"AcDbCircle\")"},
        {L"(vla-put-radius c 4.5) (vla-put-color c 5) (list (vlax-get c 'Radius) (vlax-get-property c \"color\"))",
         L"(4.5 5)"},
        {L"(rtos (vla-get-area c) 2 3)", L"\"63.617\""},
        {L"(vla-put-visible c :vlax-false) (list (vla-get-visible c) (cdr (assoc 60 (entget (entlast)))))",
         L"(:VLAX-FALSE 1)"},
        {L"(vla-put-layer c \"Nowhere\")", L"\n; error: Automation Error. Invalid argument \"Nowhere\" in LAYER"},
        {L"(vla-get-textstring c)", L"\n; error: Automation Error. Unknown name TEXTSTRING"},
        {L"(vla-get-color 5)", L"\n; error: bad argument type: VLA-OBJECT 5"},
        {L"(list (vlax-property-available-p c 'radius) (vlax-property-available-p c 'textstring))", L"(T nil)"},
        {L"(= (vlax-vla-object->ename c) (entlast))", L"T"},
        {L"(vla-delete c) (vlax-erased-p c)", L"T"},
        {L"(vla-get-name (vla-item (vla-get-layers (vla-get-activedocument (vlax-get-acad-object))) 0))", L"\"0\""},
    };
    LispSession lisp;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.form);
        EXPECT_EQ(lisp(row.form), row.answer);
    }
}

}   // namespace
