// Reading, printing and evaluating without a drawing.
#include "ed/lisp/Reader.h"
#include "lispTestUi.h"
#include <gtest/gtest.h>

using namespace KxPlat::Lisp;

namespace {

template <size_t N>
void Check(const LispRow (&rows)[N])
{
    Lisp lisp;
    for (const LispRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.form)));
        EXPECT_EQ(lisp(row.form), row.answer);
    }
}

}   // namespace

TEST(LispReader, FormsAreReadAsTheyPrint)
{
    static const LispRow rows[] = {
        {L"'(a . b)", L"(A . B)"},
        {L"'(a (b c) . d)", L"(A (B C) . D)"},
        {L"''a", L"(QUOTE A)"},
        {L"'(1 2.5 -3 +4 1e3 .5 -.25 1.)", L"(1 2.5 -3 4 1000.0 0.5 -0.25 1.0)"},
        {L"2147483647", L"2147483647"},
        {L"2147483648", L"2.14748e+09"},
        {L"\"a\\\"b\\\\c\\n\\t\\101\\U+4E2D\"", L"\"a\\\"b\\\\c\\n\\tA\u4E2D\""},
        {L"'(a ; rest\n b ;| block\n |; c)", L"(A B C)"},
        {L"'c:my-command", L"C:MY-COMMAND"},
        {L"'(nil t NIL)", L"(nil T nil)"},
        {L"'1+", L"1+"},
        {L"'\u56FE\u5C42", L"\u56FE\u5C42"},
        {L"'(\"x\")", L"(\"x\")"},
    };
    Check(rows);
}

TEST(LispReader, FaultsAreNamed)
{
    static const LispRow rows[] = {
        {L"(+ 1 2", L"\n; error: malformed list on input"},
        {L"(+ 1 2))", L"\n; error: extra right paren on input"},
        {L"(princ \"abc", L"\n; error: malformed string on input"},
        {L"'( . b)", L"\n; error: misplaced dot on input"},
        {L"'(a . b c)", L"\n; error: extra cdrs in dotted pair on input"},
        {L"'(a . )", L"\n; error: misplaced dot on input"},
    };
    Check(rows);
}

TEST(LispReader, DeepNestingNeedsNoStack)
{
    Lisp lisp;
    const std::wstring deep = L"(setq x '" + std::wstring(300000, L'(') + std::wstring(300000, L')') + L") (length x)";
    EXPECT_EQ(lisp(deep.c_str()), L"1");
    EXPECT_EQ(lisp((std::wstring(300000, L'(')).c_str()), L"\n; error: malformed list on input");
}

TEST(LispReader, AnIncompleteLineIsKnown)
{
    struct Row {
        const wchar_t* text;
        int open;
        bool isInText;
    };
    static const Row rows[] = {{L"(a (b)", 1, false},    {L"(a \")", 1, true},        {L"(a \"\\\")\"", 1, false},
                               {L"(a ; )\n)", 0, false}, {L"(a ;| ) |; )", 0, false}, {L"a))", -2, false},
                               {L"(a \"x\" (", 2, false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.text)));
        const Balance balance = BalanceOf(row.text);
        EXPECT_EQ(balance.open, row.open);
        EXPECT_EQ(balance.isInText, row.isInText);
    }
}

TEST(LispPrinter, RealsHaveSixDigitsAndAPoint)
{
    struct Row {
        double value;
        const wchar_t* text;
    };
    static const Row rows[] = {{1, L"1.0"},       {3.14159265, L"3.14159"},  {100000, L"100000.0"},
                               {1e6, L"1.0e+06"}, {123456.789, L"123457.0"}, {1e-5, L"1.0e-05"},
                               {-0.5, L"-0.5"},   {1.5e20, L"1.5e+20"},      {0.0001, L"0.0001"}};
    for (const Row& row : rows)
        EXPECT_EQ(PrintedReal(row.value), row.text);
}

TEST(LispArithmetic, IntegersStayIntegersAndWrap)
{
    static const LispRow rows[] = {
        {L"(+ 1 2 3)", L"6"},
        {L"(+ 1 2.0)", L"3.0"},
        {L"(+)", L"0"},
        {L"(- 5)", L"-5"},
        {L"(- 50 40.0 2.5)", L"7.5"},
        {L"(* 2 3 4.0)", L"24.0"},
        {L"(/ 7 2)", L"3"},
        {L"(/ 7 2.0)", L"3.5"},
        {L"(/ 100 20 2)", L"2"},
        {L"(rem 42 12)", L"6"},
        {L"(rem -7 2)", L"-1"},
        {L"(1+ 5)", L"6"},
        {L"(1- -17.5)", L"-18.5"},
        {L"(max 4 9 2.0)", L"9.0"},
        {L"(min 1 2 -3)", L"-3"},
        {L"(gcd 81 57)", L"3"},
        {L"(abs -99.25)", L"99.25"},
        {L"(fix 3.7)", L"3"},
        {L"(fix -3.7)", L"-3"},
        {L"(fix 1e12)", L"1.0e+12"},
        {L"(float 3)", L"3.0"},
        {L"(expt 2 4)", L"16"},
        {L"(expt 3.0 2.0)", L"9.0"},
        {L"(expt 2 -1)", L"0.5"},
        {L"(sqrt 4)", L"2.0"},
        {L"(atan 1.0)", L"0.785398"},
        {L"(atan -2.0 3.0)", L"-0.588003"},
        {L"(~ 3)", L"-4"},
        {L"(logand 7 15 3)", L"3"},
        {L"(logior 1 2 4)", L"7"},
        {L"(lsh 2 1)", L"4"},
        {L"(lsh 40 -2)", L"10"},
        {L"(boole 6 12 5)", L"9"},
        {L"(boole 8 3 14)", L"-16"},
        {L"(+ 2147483646 3)", L"-2147483647"},
        {L"(/ -2147483648 -1)", L"-2147483648"},
        {L"(rem -2147483648 -1)", L"0"},
        {L"(minusp -4.2)", L"T"},
        {L"(zerop 0.0)", L"T"},
    };
    Check(rows);
}

TEST(LispComparison, NumbersAndTexts)
{
    static const LispRow rows[] = {
        {L"(= 4 4.0)", L"T"},
        {L"(= 20 388)", L"nil"},
        {L"(= \"me\" \"me\")", L"T"},
        {L"(= 5 5 5.0)", L"T"},
        {L"(/= 10 20 10)", L"T"},
        {L"(< 1 2 3)", L"T"},
        {L"(< 1 3 2)", L"nil"},
        {L"(> \"c\" \"b\")", L"T"},
        {L"(>= 3 3 2)", L"T"},
        {L"(<= 2 9 9 4)", L"nil"},
        {L"(equal '(1 2) '(1 2))", L"T"},
        {L"(equal 1.1 1.11 0.02)", L"T"},
        {L"(equal '(1.0 (2.0)) '(1.001 (2.0)) 0.01)", L"T"},
        {L"(eq '(a) '(a))", L"nil"},
        {L"(not nil)", L"T"},
        {L"(null '())", L"T"},
        {L"(= \"a\" 1)", L"nil"},
    };
    Check(rows);
}

TEST(LispForms, ControlAndBinding)
{
    static const LispRow rows[] = {
        {L"(setq a 1 b (+ a 1)) (list a b)", L"(1 2)"},
        {L"(if nil 1)", L"nil"},
        {L"(cond ((= 1 2) 'a) ((+ 1 1)) (t 'c))", L"2"},
        {L"(and 1 2)", L"T"},
        {L"(or nil nil)", L"nil"},
        {L"(setq i 0 s 0) (while (< i 5) (setq i (1+ i) s (+ s i)))", L"15"},
        {L"(setq n 0) (repeat 4 (setq n (+ n 2)))", L"8"},
        {L"(setq r nil x 9) (foreach x '(1 2 3) (setq r (cons x r))) (list r x)", L"((3 2 1) 9)"},
        {L"(defun f (a / b) (setq b (* a 2)) (+ b 1))", L"F"},
        {L"(setq b 'outer) (list (f 5) b)", L"(11 OUTER)"},
        {L"(defun seen () hidden) (defun binds (hidden) (seen)) (binds 7)", L"7"},
        {L"((lambda (x y) (+ x y)) 1 2)", L"3"},
        {L"(mapcar '(lambda (x y) (* x y)) '(1 2 3) '(4 5))", L"(4 10)"},
        {L"(mapcar 'car '((a 1) (b 2)))", L"(A B)"},
        {L"(apply '+ '(1 2 3))", L"6"},
        {L"(apply (function (lambda (x) (list x))) '(1))", L"(1)"},
        {L"(eval (list '+ 1 2))", L"3"},
        {L"(set 'q 5) q", L"5"},
        {L"(defun fact (n) (if (< n 2) 1 (* n (fact (1- n))))) (fact 10)", L"3628800"},
        {L"(defun-q g (x) (* x 3)) (list (g 4) (cadr g))", L"(12 (* X 3))"},
        {L"(type f)", L"USUBR"},
        {L"(mapcar 'type (list 1 1.0 \"\" 'a '(1) nil car))", L"(INT REAL STR SYM LIST nil SUBR)"},
        {L"(boundp 'nosuchsymbol)", L"nil"},
        {L"(if 1 2 3 4)", L"\n; error: too many arguments"},
    };
    Check(rows);
}

TEST(LispLists, TakenApartAndPutTogether)
{
    static const LispRow rows[] = {
        {L"(setq x '((a b) c d)) (list (car x) (caar x) (cadr x) (cdar x) (cddr x) (cadar x))",
         L"((A B) A C (B) (D) B)"},
        {L"(caddr '(1 2 3))", L"3"},
        {L"(cadddr '(1 2 3 4))", L"4"},
        {L"(cons 'a 'b)", L"(A . B)"},
        {L"(append '(a b) '(c) nil '(d))", L"(A B C D)"},
        {L"(append '(a) 'nil)", L"(A)"},
        {L"(reverse '((a) b c))", L"(C B (A))"},
        {L"(nth 3 '(a b c d e))", L"D"},
        {L"(nth 9 '(a))", L"nil"},
        {L"(last '(a b (d e)))", L"(D E)"},
        {L"(member 'c '(a b c d))", L"(C D)"},
        {L"(assoc 'width '((name box) (width 3)))", L"(WIDTH 3)"},
        {L"(cdr (assoc 8 '((0 . \"LINE\") (8 . \"WALL\"))))", L"\"WALL\""},
        {L"(subst 'qq 'b '(a b (c b) b))", L"(A QQ (C B) QQ)"},
        {L"(length '(a b (c d)))", L"3"},
        {L"(vl-remove 2 '(1 2 3 2))", L"(1 3)"},
        {L"(vl-remove-if 'minusp '(1 -2 3))", L"(1 3)"},
        {L"(vl-remove-if-not 'minusp '(1 -2 3))", L"(-2)"},
        {L"(vl-member-if 'minusp '(1 -2 3))", L"(-2 3)"},
        {L"(vl-every '= '(1 2) '(1 2))", L"T"},
        {L"(vl-some '(lambda (x) (if (> x 1) (* x 10))) '(1 2 3))", L"20"},
        {L"(vl-position 'c '(a b c))", L"2"},
        {L"(vl-sort '(3 2 1 3) '<)", L"(1 2 3 3)"},
        {L"(vl-sort-i '(\"b\" \"a\" \"c\") '<)", L"(1 0 2)"},
        {L"(vl-list* 1 2 '(3 4))", L"(1 2 3 4)"},
        {L"(vl-list-length '(a . b))", L"nil"},
        {L"(acad_strlsort '(\"b\" \"C\" \"a\"))", L"(\"a\" \"b\" \"C\")"},
    };
    Check(rows);
}

TEST(LispStrings, Functions)
{
    static const LispRow rows[] = {
        {L"(strcat \"a\" \"bout\" \"\")", L"\"about\""},
        {L"(substr \"abcde\" 2)", L"\"bcde\""},
        {L"(substr \"abcde\" 2 1)", L"\"b\""},
        {L"(substr \"abcde\" 9)", L"\"\""},
        {L"(strlen \"one\" \"four\")", L"7"},
        {L"(strcase \"Sample \u00E9\")", L"\"SAMPLE \u00C9\""},
        {L"(strcase \"Sample\" t)", L"\"sample\""},
        {L"(ascii \"BIG\")", L"66"},
        {L"(chr 65)", L"\"A\""},
        {L"(wcmatch \"Name\" \"N*\")", L"T"},
        {L"(wcmatch \"Name\" \"n*\")", L"nil"},
        {L"(wcmatch \"Name\" \"???,~*m*,N*\")", L"T"},
        {L"(read \"(a b) c\")", L"(A B)"},
        {L"(list (atoi \"97\") (atoi \"3.9\") (atoi \"x\") (atoi \"-5 m\"))", L"(97 3 0 -5)"},
        {L"(list (atof \"97.1\") (atof \"3\") (atof \" 1e2x\"))", L"(97.1 3.0 100.0)"},
        {L"(itoa -33)", L"\"-33\""},
        {L"(vl-string-search \"foo\" \"pfooyey on you\")", L"1"},
        {L"(vl-string-subst \"Obi-wan\" \"Ben\" \"Ben Kenobi Ben\")", L"\"Obi-wan Kenobi Ben\""},
        {L"(vl-string-translate \"abc\" \"XYZ\" \"aabbcd\")", L"\"XXYYZd\""},
        {L"(vl-string-trim \" \" \"  ab \")", L"\"ab\""},
        {L"(vl-string-left-trim \" \\t\" \" \\tab \")", L"\"ab \""},
        {L"(vl-string-right-trim \"x\" \"xx\")", L"\"\""},
        {L"(vl-string-position 98 \"abcb\")", L"1"},
        {L"(vl-string-position 98 \"abcb\" 0 t)", L"3"},
        {L"(vl-string-mismatch \"VL-FUN\" \"VL-VAR\")", L"3"},
        {L"(vl-string->list \"AB\")", L"(65 66)"},
        {L"(vl-list->string '(20013 65))", L"\"\u4E2DA\""},
        {L"(vl-prin1-to-string '(\"a\" 1.0))", L"\"(\\\"a\\\" 1.0)\""},
        {L"(vl-princ-to-string '(\"a\" b))", L"\"(a B)\""},
        {L"(vl-filename-base \"c:\\\\dir\\\\plan.v2.dwg\")", L"\"plan.v2\""},
        {L"(vl-filename-directory \"c:\\\\dir\\\\plan.dwg\")", L"\"c:\\\\dir\""},
        {L"(vl-filename-extension \"c:\\\\my.dir\\\\plan\")", L"nil"},
    };
    Check(rows);
}

TEST(LispStrings, LengthsAndAnglesInUnits)
{
    static const LispRow rows[] = {
        {L"(rtos 17.5 1 4)", L"\"1.7500E+01\""},
        {L"(rtos 17.5 2 2)", L"\"17.50\""},
        {L"(rtos -0.001 2 2)", L"\"0.00\""},
        {L"(rtos 17.5 3 2)", L"\"1'-5.50\\\"\""},
        {L"(rtos 17.5 4 2)", L"\"1'-5 1/2\\\"\""},
        {L"(rtos 17.5 5 2)", L"\"17 1/2\""},
        {L"(rtos 11.999 4 2)", L"\"1'\""},
        {L"(rtos 0.0 4 2)", L"\"0\\\"\""},
        {L"(angtos 0.785398 0 4)", L"\"45.0000\""},
        {L"(angtos 0.785398 1 4)", L"\"45d0'0\\\"\""},
        {L"(angtos -0.785398 0 2)", L"\"315.00\""},
        {L"(angtos 0.785398 2 4)", L"\"50.0000g\""},
        {L"(angtos 0.785398 3 4)", L"\"0.7854r\""},
        {L"(angtos 0.785398 4 2)", L"\"N 45d0' E\""},
        {L"(distof \"1'-5 1/2\\\"\" 4)", L"17.5"},
        {L"(distof \"17 1/2\" 5)", L"17.5"},
        {L"(distof \"-2.5e1\" 2)", L"-25.0"},
        {L"(distof \"wide\" 2)", L"nil"},
        {L"(angtof \"45.0000\" 0)", L"0.785398"},
        {L"(angtof \"50g\" 0)", L"0.785398"},
        {L"(angtof \"n 45d0'0\\\" e\" 4)", L"0.785398"},
        {L"(angtof \"s 45d w\" 4)", L"3.92699"},
    };
    Check(rows);
}

TEST(LispGeometry, PlaneAndSpace)
{
    static const LispRow rows[] = {
        {L"(distance '(1.0 2.5 3.0) '(7.7 2.5 3.0))", L"6.7"},
        {L"(distance '(0 0) '(3 4 9))", L"5.0"},
        {L"(angle '(0 0) '(0 -1))", L"4.71239"},
        {L"(polar '(1 1 3.5) 0.0 2)", L"(3.0 1.0 3.5)"},
        {L"(inters '(1 1) '(9 9) '(4 1) '(4 2))", L"nil"},
        {L"(inters '(1 1) '(9 9) '(4 1) '(4 2) nil)", L"(4.0 4.0)"},
        {L"(inters '(0 0) '(1 0) '(0 1) '(1 1) nil)", L"nil"},
        {L"(trans '(1 2) 0 1)", L"(1.0 2.0 0.0)"},
    };
    Check(rows);
}

TEST(LispErrors, SayWhatTheHostSays)
{
    static const LispRow rows[] = {
        {L"(+ 1 \"a\")", L"\n; error: bad argument type: numberp: \"a\""},
        {L"(strlen 1)", L"\n; error: bad argument type: stringp 1"},
        {L"(itoa 1.0)", L"\n; error: bad argument type: fixnump: 1.0"},
        {L"(car 1)", L"\n; error: bad argument type: listp 1"},
        {L"(nosuch 1)", L"\n; error: no function definition: NOSUCH"},
        {L"(1 2)", L"\n; error: bad function: 1"},
        {L"(\"f\")", L"\n; error: bad function: \"f\""},
        {L"(car)", L"\n; error: too few arguments"},
        {L"(car '(1) 2)", L"\n; error: too many arguments"},
        {L"((lambda (x) x))", L"\n; error: too few arguments"},
        {L"(/ 1 0)", L"\n; error: divide by zero"},
        {L"(setq 1 2)", L"\n; error: syntax error"},
        {L"(substr \"a\" 0)", L"\n; error: bad argument value: positive 0"},
        {L"(sqrt -1)", L"\n; error: function undefined for argument"},
    };
    Check(rows);
    Lisp lisp;
    lisp(L"(progn (princ \"x\") (list 1 (+ 1 nil)))");
    EXPECT_EQ(lisp.ui.printed, L"x\n; error: bad argument type: numberp: nil\n; in: (+ 1 nil)\n");
}

TEST(LispErrors, TheProgramsErrorFunctionSeesItsVariables)
{
    Lisp lisp;
    lisp(L"(defun c:try (/ *error* saved) (defun *error* (m) (setq told (list m saved))) (setq saved 42) (car 5))");
    lisp(L"(c:try)");
    EXPECT_TRUE(lisp.failed);
    EXPECT_EQ(lisp.ui.printed, L"");   // the function has dealt with it
    EXPECT_EQ(lisp(L"told"), L"(\"bad argument type: listp 5\" 42)");
    EXPECT_EQ(lisp(L"(list saved *error*)"), L"(nil nil)");
}

TEST(LispErrors, CanBeCaught)
{
    static const LispRow rows[] = {
        {L"(setq e (vl-catch-all-apply '/ '(50 0)))", L"#<%catch-all-apply-error%>"},
        {L"(vl-catch-all-error-p e)", L"T"},
        {L"(vl-catch-all-error-message e)", L"\"divide by zero\""},
        {L"(vl-catch-all-apply '/ '(50 5))", L"10"},
        {L"(vl-catch-all-error-p 10)", L"nil"},
    };
    Check(rows);
    Lisp lisp;
    lisp(L"(defun *error* (m) (setq told m)) (vl-catch-all-apply '(lambda () (car 5)))");
    EXPECT_EQ(lisp(L"told"), L"nil");
}

TEST(LispLimits, ARunawayProgramIsStopped)
{
    Lisp lisp;
    EXPECT_EQ(lisp(L"(defun down (n) (+ 1 (down n))) (down 1)"),
              L"\n; error: Hard error occurred *** internal stack limit reached (simulated)");
    lisp.ui.untilInterrupt = 3;
    EXPECT_EQ(lisp(L"(while t)"), L"\n; error: Function cancelled");
    lisp.ui.untilInterrupt = 3;
    EXPECT_EQ(lisp(L"(defun again () (again)) (repeat 1000000000)"), L"\n; error: Function cancelled");
    EXPECT_EQ(lisp(L"(setq s \"abcdefgh\") (while t (setq s (strcat s s)))"), L"\n; error: insufficient string space");
    EXPECT_EQ(lisp(L"(+ 1 1)"), L"2");
}

TEST(LispLimits, AMillionElementsComeAndGo)
{
    const long before = LiveCells();
    {
        Lisp lisp;
        EXPECT_EQ(lisp(L"(setq l nil) (repeat 1000000 (setq l (cons 1 l))) (length (setq l (reverse l)))"), L"1000000");
        EXPECT_EQ(lisp(L"(setq d nil) (repeat 1000000 (setq d (list d))) (setq d nil l nil)"), L"nil");
    }
    EXPECT_EQ(LiveCells(), before);
}

TEST(LispPrinting, GoesToTheCommandLine)
{
    Lisp lisp;
    EXPECT_EQ(lisp(L"(princ \"a\\n\") (prin1 \"a\\n\") (print '(\"b\")) (terpri) (prompt \"p\")"), L"nil");
    EXPECT_EQ(lisp.ui.printed, L"a\n\"a\\n\"\n(\"b\") \np");
    Value value;
    ASSERT_TRUE(lisp.interpreter.Run(L"(princ)", value));
    EXPECT_TRUE(lisp.interpreter.IsNothing(value));
}

TEST(LispFiles, AreWrittenAndReadBack)
{
    Lisp lisp;
    const std::wstring path = L"/tmp/kx-lisp-" + std::to_wstring(uintptr_t(&lisp)) + L".txt";
    lisp((L"(setq p \"" + path + L"\")").c_str());
    static const LispRow rows[] = {
        {L"(setq f (open p \"w\")) (write-line \"\u5899 one\" f) (write-char 65 f) (princ '(\"q\") f) (close f)",
         L"nil"},
        {L"(setq f (open p \"a\")) (write-line \"\" f) (close f)", L"nil"},
        {L"(setq f (open p \"r\")) (list (read-line f) (read-char f) (read-line f) (read-line f))",
         L"(\"\u5899 one\" 65 \"(q)\" nil)"},
        {L"(write-line \"x\" f)", nullptr},
        {L"(close f) (read-line f)", nullptr},
        {L"(open \"/no/such/folder/file\" \"r\")", L"nil"},
        {L"(vl-file-size p)", L"13"},
        {L"(vl-file-delete p)", L"T"},
        {L"(vl-file-size p)", L"nil"},
    };
    for (const LispRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.form)));
        const std::wstring answer = lisp(row.form);
        if (row.answer == nullptr)
            EXPECT_NE(answer.find(L"bad argument type: streamp"), std::wstring::npos);
        else
            EXPECT_EQ(answer, row.answer);
    }
}

TEST(LispLimits, MemoryIsBounded)
{
    static const wchar_t* const greedy[] = {L"(setq l nil) (while t (setq l (cons 1 l)))",
                                            L"(setq l nil) (while t (setq l (cons (strcat s \"x\") l)))"};
    Lisp lisp;
    lisp.interpreter.SetMemoryLimit(LiveCells() + 200'000);
    EXPECT_EQ(lisp(L"(setq s \"0123456789abcdef\") (repeat 8 (setq s (strcat s s))) (strlen s)"), L"4096");
    for (const wchar_t* form : greedy) {
        EXPECT_EQ(lisp(form), L"\n; error: insufficient node space");
        EXPECT_EQ(lisp(L"(< 100 (length l) 250000)"), L"T");
        EXPECT_EQ(lisp(L"(setq l nil)"), L"nil");
    }
}
