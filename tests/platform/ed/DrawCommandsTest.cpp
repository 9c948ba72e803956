// The host's own commands that draw, change and measure. Each row is a script and a form that tells what it left.
#include "lispSession.h"
#include <gtest/gtest.h>

namespace {

struct Row {
    const wchar_t* script;
    const wchar_t* form;
    const wchar_t* answer;
};

// Of the newest entity: its groups `codes`, in order.
const wchar_t kHelpers[] = L"(defun got (codes / e) (setq e (entget (entlast)))"
                           L"  (mapcar '(lambda (c) (cdr (assoc c e))) codes))"
                           L"(defun count (what / s) (setq s (ssget \"X\" (list (cons 0 what)))) (if s (sslength s) 0))"
                           L"(defun all (code) (mapcar 'cdr (vl-remove-if-not '(lambda (g) (= (car g) code)) (entget "
                           L"(entlast)))))";

void Check(const Row& row)
{
    SCOPED_TRACE(row.script);
    LispSession lisp;
    lisp(kHelpers);
    lisp.Typed(row.script);
    EXPECT_TRUE(!lisp.session.HasFailed()) << std::string(lisp.ui.printed.begin(), lisp.ui.printed.end());
    EXPECT_EQ(lisp(row.form), row.answer);
}

TEST(DrawCommands, DrawWhatTheyAreTold)
{
    static const Row rows[] = {
        {L"LINE\n1,2\n4,6\n\n", L"(got '(0 10 11 8))", L"(\"LINE\" (1.0 2.0 0.0) (4.0 6.0 0.0) \"0\")"},
        {L"LINE\n0,0\n10,0\n10,10\nC\n", L"(cons (count \"LINE\") (got '(11)))", L"(3 (0.0 0.0 0.0))"},
        {L"LINE\n0,0\n10,0\n10,10\nU\n@5<90\n\n", L"(cons (count \"LINE\") (got '(11)))", L"(2 (10.0 5.0 0.0))"},
        {L"POINT\n3,4,5\n", L"(got '(0 10))", L"(\"POINT\" (3.0 4.0 5.0))"},
        {L"CIRCLE\n5,5\n2.5\n", L"(got '(10 40))", L"((5.0 5.0 0.0) 2.5)"},
        {L"C\n5,5\nD\n3\n", L"(got '(40))", L"(1.5)"},
        {L"CIRCLE\n2P\n0,0\n6,8\n", L"(got '(10 40))", L"((3.0 4.0 0.0) 5.0)"},
        {L"CIRCLE\n3P\n5,0\n0,5\n-5,0\n", L"(got '(10 40))", L"((0.0 0.0 0.0) 5.0)"},
        // Over (0,5) from (5,0) to (-5,0): half a turn to the left.
        {L"ARC\n5,0\n0,5\n-5,0\n", L"(mapcar '(lambda (a) (fix (+ 0.5 (* a (/ 180 pi))))) (got '(50 51)))", L"(0 180)"},
        {L"ARC\n-5,0\n0,5\n5,0\n", L"(mapcar '(lambda (a) (fix (+ 0.5 (* a (/ 180 pi))))) (got '(50 51)))", L"(0 180)"},
        {L"ARC\nC\n1,1\n3,1\nA\n90\n", L"(mapcar '(lambda (a) (fix (+ 0.5 (* a (/ 180 pi))))) (got '(50 51)))",
         L"(0 90)"},
        {L"RECTANG\n1,1\n4,3\n", L"(cons (cdr (assoc 70 (entget (entlast)))) (all 10))",
         L"(1 (1.0 1.0) (4.0 1.0) (4.0 3.0) (1.0 3.0))"},
        {L"PLINE\n0,0\n10,0\n10,5\nC\n", L"(list (got '(0 90 70)) (all 10))",
         L"((\"LWPOLYLINE\" 3 1) ((0.0 0.0) (10.0 0.0) (10.0 5.0)))"},
        // An arc behind a line to the right that ends straight above it is half a circle: bulge 1.
        {L"PLINE\n0,0\n10,0\nA\n10,4\n\n", L"(mapcar '(lambda (b) (rtos b 2 3)) (all 42))", L"(\"1\")"},
        {L"PLINE\n0,0\nW\n2\n1\n10,0\nU\n5,5\n\n", L"(list (all 10) (car (all 40)) (car (all 41)))",
         L"(((0.0 0.0) (5.0 5.0)) 2.0 1.0)"},
        {L"TEXT\n1,1\n3.5\n0\nHello world\n\n", L"(got '(0 1 40 10))", L"(\"TEXT\" \"Hello world\" 3.5 (1.0 1.0 0.0))"},
        {L"TEXT\nMC\n5,5\n2\n90\nabc\n\n", L"(got '(72 73 11))", L"(1 2 (5.0 5.0 0.0))"},
        {L"TEXT\n0,10\n3\n0\none\ntwo\n\n", L"(list (count \"TEXT\") (got '(1 10)))", L"(2 (\"two\" (0.0 5.0 0.0)))"},
    };
    for (const Row& row : rows)
        Check(row);
}

TEST(DrawCommands, MoveAndCopy)
{
    static const Row rows[] = {
        {L"LINE\n0,0\n1,0\n\nMOVE\nL\n\n0,0\n5,6\n", L"(got '(10 11))", L"((5.0 6.0 0.0) (6.0 6.0 0.0))"},
        {L"LINE\n0,0\n1,0\n\nMOVE\nL\n\n2,3\n\n", L"(got '(10))", L"((2.0 3.0 0.0))"},
        {L"LINE\n0,0\n1,0\n\nCOPY\nL\n\n0,0\n0,1\n0,2\n\n", L"(list (count \"LINE\") (got '(10)))",
         L"(3 ((0.0 2.0 0.0)))"},
        {L"POINT\n2,0\nROTATE\nL\n\n0,0\n90\n", L"(mapcar '(lambda (c) (rtos c 2 3)) (car (got '(10))))",
         L"(\"0\" \"2\" \"0\")"},
        {L"POINT\n2,0\nROTATE\nL\n\n0,0\nR\n45\n90\n", L"(mapcar '(lambda (c) (rtos c 2 3)) (car (got '(10))))",
         L"(\"1.414\" \"1.414\" \"0\")"},
        {L"CIRCLE\n2,0\n1\nSCALE\nL\n\n0,0\n3\n", L"(got '(10 40))", L"((6.0 0.0 0.0) 3.0)"},
        {L"CIRCLE\n2,0\n1\nSCALE\nL\n\n0,0\nC\n3\n", L"(count \"CIRCLE\")", L"2"},
        {L"POINT\n3,1\nMIRROR\nL\n\n0,0\n0,5\n\n", L"(list (count \"POINT\") (car (got '(10))))",
         L"(2 (-3.0 1.0 0.0))"},
        {L"POINT\n3,1\nMIRROR\nL\n\n0,0\n0,5\nY\n", L"(count \"POINT\")", L"1"},
        // A text stays readable, and its box is the mirrored one.
        {L"TEXT\n2,0\n1\n0\nAAA\n\nMIRROR\nL\n\n0,0\n0,5\nY\n",
         L"(list (got '(50)) (< (car (cdr (assoc 10 (entget (entlast))))) -3))", L"((nil) T)"},
        {L"POINT\n1,1\nERASE\nL\n\nOOPS\n", L"(count \"POINT\")", L"1"},
        {L"POINT\n1,1\nPOINT\n2,2\nERASE\nALL\n\nU\n", L"(count \"POINT\")", L"2"},
    };
    for (const Row& row : rows)
        Check(row);
}

TEST(DrawCommands, ChangeProperties)
{
    static const Row rows[] = {
        {L"-LAYER\nN\nWalls\n\nPOINT\n0,0\nCHPROP\nL\n\nLA\nwalls\nC\n1\n\n", L"(got '(8 62))", L"(\"Walls\" 1)"},
        {L"POINT\n0,0\nCHANGE\nL\n\nP\nC\nred\nS\n2\n\n", L"(got '(62 48))", L"(1 2.0)"},
        {L"LINE\n0,0\n1,1\n\nCHPROP\nL\n\nT\n7\nLW\n0.5\n\n", L"(got '(39 370))", L"(7.0 50)"},
        {L"COLOR\n3\nPOINT\n0,0\n", L"(got '(62))", L"(3)"},
        {L"-LAYER\nN\nA\n\n-RENAME\nLA\nA\nB\n",
         L"(list (tblsearch \"LAYER\" \"A\") (cdr (assoc 2 (tblsearch \"LAYER\" "
         L"\"B\"))))",
         L"(nil \"B\")"},
    };
    for (const Row& row : rows)
        Check(row);
}

TEST(DrawCommands, BlocksAndGroups)
{
    static const Row rows[] = {
        {L"LINE\n1,1\n2,1\n\n-BLOCK\nUnit\n1,1\nL\n\n-INSERT\nunit\n10,10\n2\n\n90\n", L"(got '(0 2 10 41 42))",
         L"(\"INSERT\" \"Unit\" (10.0 10.0 0.0) 2.0 2.0)"},
        {L"LINE\n1,1\n2,1\n\n-BLOCK\nUnit\n1,1\nL\n\n-INSERT\nunit\n10,10\n2\n\n90\n",
         L"(cdr (assoc 10 (entget (cdr (assoc -2 (tblsearch \"BLOCK\" \"UNIT\"))))))", L"(0.0 0.0 0.0)"},
        {L"LINE\n1,1\n2,1\n\n-BLOCK\nUnit\n1,1\nL\n\n-INSERT\nunit\n10,10\n2\n\n0\nEXPLODE\nL\n\n", L"(got '(0 10 11))",
         L"(\"LINE\" (10.0 10.0 0.0) (12.0 10.0 0.0))"},
        {L"LINE\n1,1\n2,1\n\n-BLOCK\nUnit\n1,1\nL\n\n-INSERT\n*unit\n5,5\n1\n\n0\n", L"(got '(0))", L"(\"LINE\")"},
        {L"POINT\n1,1\nPOINT\n2,2\n-GROUP\n\nPair\nTwo points\nALL\n\nERASE\nG\nPair\n\n", L"(count \"POINT\")", L"0"},
        {L"POINT\n1,1\nPOINT\n2,2\nDRAWORDER\nL\n\nB\n", L"(count \"POINT\")", L"2"},
    };
    for (const Row& row : rows)
        Check(row);
}

TEST(DrawCommands, Measure)
{
    static const Row rows[] = {
        {L"DIST\n0,0\n3,4\n", L"(getvar \"DISTANCE\")", L"5.0"},
        {L"AREA\n0,0\n4,0\n4,3\n\n", L"(list (getvar \"AREA\") (getvar \"PERIMETER\"))", L"(6.0 12.0)"},
        {L"CIRCLE\n0,0\n1\nAREA\nO\nL\n", L"(list (rtos (getvar \"AREA\") 2 4) (rtos (getvar \"PERIMETER\") 2 4))",
         L"(\"3.1416\" \"6.2832\")"},
        {L"ID\n7,8,9\n", L"(getvar \"LASTPOINT\")", L"(7.0 8.0 9.0)"},
        {L"ZOOM\nE\nZOOM\nW\n0,0\n1,1\nZOOM\n2X\nZOOM\n0,0\n5,5\nPOINT\n1,1\n", L"(count \"POINT\")", L"1"},
        {L"UCS\nW\nUCS\n\nPOINT\n1,1\n", L"(count \"POINT\")", L"1"},
    };
    for (const Row& row : rows)
        Check(row);
}

// The classic forms of utilities, with and without an Enter for repeated copies.
TEST(DrawCommands, ProgramsDrawPieceByPiece)
{
    static const Row rows[] = {
        {L"(command \"_.LINE\" '(0 0) \"5,0\" \"\")\n", L"(got '(11))", L"((5.0 0.0 0.0))"},
        {L"(progn (command \"PLINE\") (foreach p '((0 0) (1 0) (1 1)) (command p)) (command \"C\"))\n",
         L"(got '(90 70))", L"(3 1)"},
        {L"(progn (command \"POINT\" \"1,1\") (command \"COPY\" (entlast) \"\" '(0 0) '(2 2)) (command \"POINT\" "
         L"\"9,9\"))\n",
         L"(count \"POINT\")", L"3"},
        {L"(progn (command \"POINT\" \"1,1\") (command \"COPY\" (entlast) \"\" '(0 0) '(2 2) \"\") (command \"POINT\" "
         L"\"9,9\"))\n",
         L"(count \"POINT\")", L"3"},
        {L"(progn (command \"TEXT\" '(0 0) 2 0 \"one\") (command \"TEXT\" '(0 5) 2 0 \"two\"))\n", L"(count \"TEXT\")",
         L"2"},
        {L"(command \"LINE\" \"0,0\" PAUSE \"\")\n6,6\n", L"(got '(11))", L"((6.0 6.0 0.0))"},
        {L"(command \"UNDEFINE\" \"LINE\")\n(defun c:line () (command \".LINE\" \"0,0\" \"3,3\" \"\"))\nLINE\n",
         L"(got '(11))", L"((3.0 3.0 0.0))"},
    };
    for (const Row& row : rows)
        Check(row);
}

}   // namespace
