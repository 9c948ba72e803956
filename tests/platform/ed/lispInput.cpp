// Raw input, and entities picked within others.
#include "lispSession.h"
#include <gtest/gtest.h>

TEST(LispInput, RawInputIsAKeyOrAPoint)
{
    static const struct {
        const wchar_t* typed;
        const wchar_t* answer;
    } rows[] = {
        {L"3,4\n", L"(3 (3.0 4.0 0.0))"},
        {L"a\n", L"(2 97)"},
        {L"\n", L"(2 13)"},
        {L"\x1b", L"nil"},
    };
    LispSession lisp;
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.typed)));
        lisp(L"(setq r nil)");
        lisp.Typed(L"(progn (setq r (grread)) (princ))\n" + std::wstring(row.typed));
        EXPECT_EQ(lisp(L"r"), row.answer);
    }
}

// A line (0,0)-(2,0) in block INNER, that at (10,0) in OUTER, that at (100,50), turned by 90 degrees, twice as large:
// the line runs from (100,70) to (100,74).
TEST(LispInput, NestedPicksReachIntoInsertions)
{
    LispSession lisp;
    lisp(L"(entmake '((0 . \"BLOCK\") (2 . \"INNER\") (70 . 0) (10 0 0 0)))"
         L"(entmake '((0 . \"LINE\") (10 0 0 0) (11 2 0 0))) (entmake '((0 . \"ENDBLK\")))"
         L"(entmake '((0 . \"BLOCK\") (2 . \"OUTER\") (70 . 0) (10 0 0 0)))"
         L"(entmake '((0 . \"INSERT\") (2 . \"INNER\") (10 10 0 0))) (entmake '((0 . \"CIRCLE\") (10 30 0 0) (40 . 1)))"
         L"(entmake '((0 . \"ENDBLK\")))"
         L"(setq top (entmakex (list '(0 . \"INSERT\") '(2 . \"OUTER\") '(10 100 50 0) '(41 . 2) '(42 . 2) '(43 . 2)"
         L" (cons 50 (/ pi 2)))))"
         L"(defun near (m) (mapcar '(lambda (r) (mapcar '(lambda (x) (atoi (rtos x 2 0))) r)) m))"
         L"(setq r (nentselp '(100 72 0)))");
    static const LispRow rows[] = {
        {L"(list (cdr (assoc 0 (entget (car r)))) (cdr (assoc 10 (entget (car r)))) (cadr r))",
         L"(\"LINE\" (0.0 0.0 0.0) (100.0 72.0 0.0))"},
        {L"(near (caddr r))", L"((0 -2 0 100) (2 0 0 70) (0 0 2 0) (0 0 0 1))"},
        {L"(list (eq (last (last r)) top) (mapcar '(lambda (e) (cdr (assoc 2 (entget e)))) (last r)))",
         L"(T (\"INNER\" \"OUTER\"))"},
        {L"(cdr (assoc 0 (entget (car (setq r (nentselp '(98 110 0)))))))", L"\"CIRCLE\""},
        {L"(length (last r))", L"1"},
        {L"(nentselp '(10 0 0))", L"nil"},   // nothing of the definition lies in the drawing itself
    };
    Check(lisp, rows);
    lisp.Typed(L"(progn (setq r (nentsel \"Which? \")) (princ))\n100,72\n");
    EXPECT_EQ(lisp(L"(near (caddr r))"), L"((0 2 0) (-2 0 0) (0 0 2) (100 70 0))");
    lisp(L"(vl-cmdf \"_.-LAYER\" \"N\" \"Hidden\" \"OFF\" \"Hidden\" \"\")"
         L"(entmod (subst '(8 . \"Hidden\") (assoc 8 (entget (car r))) (entget (car r))))");
    EXPECT_EQ(lisp(L"(cdr (assoc 0 (entget (car (nentselp '(98 110 0))))))"), L"\"CIRCLE\"");
}

TEST(LispInput, NestedPicksFindAttributes)
{
    LispSession lisp;
    lisp(L"(entmake '((0 . \"BLOCK\") (2 . \"TAG\") (70 . 2) (10 0 0 0)))"
         L"(entmake '((0 . \"LINE\") (10 0 0 0) (11 5 0 0))) (entmake '((0 . \"ENDBLK\")))"
         L"(entmake '((0 . \"INSERT\") (2 . \"TAG\") (66 . 1) (10 20 20 0)))"
         L"(entmake '((0 . \"ATTRIB\") (2 . \"NO\") (1 . \"W7\") (10 20 30 0) (40 . 2.5) (70 . 0)))"
         L"(entmake '((0 . \"SEQEND\")))");
    EXPECT_EQ(lisp(L"(setq r (nentselp '(20 30 0))) (list (cdr (assoc 1 (entget (car r)))) (length r) (caaddr r))"),
              L"(\"W7\" 4 (1.0 0.0 0.0 0.0))");
    EXPECT_EQ(lisp(L"(setq r (nentselp '(22 20 0))) (cdr (assoc 0 (entget (car r))))"), L"\"LINE\"");
}

TEST(LispInput, NestedPicksFindWhatLiesInNothing)
{
    LispSession lisp;
    lisp(L"(entmake '((0 . \"LINE\") (10 0 0 0) (11 10 0 0)))");
    lisp.Typed(L"(progn (setq r (nentsel)) (princ))\n5,0\n");
    EXPECT_EQ(lisp(L"(list (eq (car r) (entlast)) (cadr r))"), L"(T (5.0 0.0 0.0))");
    EXPECT_EQ(lisp(L"(setq r (nentselp '(2 0 0))) (list (eq (car r) (entlast)) (cadr r))"), L"(T (2.0 0.0 0.0))");
    EXPECT_EQ(lisp(L"(nentselp '(2 8 0))"), L"nil");
}
