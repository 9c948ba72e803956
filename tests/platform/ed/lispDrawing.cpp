// Programs at work on a drawing.
#include "db/AcDbArc.h"
#include "lispSession.h"
#include <gtest/gtest.h>

namespace {

const wchar_t* const kLine = L"(setq e (entmakex '((0 . \"LINE\") (8 . \"\u5899\") (62 . 3) (10 1 2 0) (11 4 6 0))))";

}   // namespace

TEST(LispEntities, AreMadeReadAndChanged)
{
    LispSession lisp;
    EXPECT_EQ(lisp(kLine).substr(0, 14), L"<Entity name: ");
    static const LispRow rows[] = {
        {L"(mapcar 'car (entget e))", L"(-1 0 330 5 100 67 410 8 62 100 10 11 210)"},
        {L"(cdr (assoc 0 (entget e)))", L"\"LINE\""},
        {L"(equal e (cdr (assoc -1 (entget e))))", L"T"},
        {L"(equal e (handent (cdr (assoc 5 (entget e)))))", L"T"},
        {L"(assoc 10 (entget e))", L"(10 1.0 2.0 0.0)"},
        {L"(assoc 8 (entget e))", L"(8 . \"\u5899\")"},
        {L"(assoc 410 (entget e))", L"(410 . \"Model\")"},
        {L"(cdr (assoc 2 (tblsearch \"layer\" \"\u5899\")))", L"\"\u5899\""},
        {L"(setq l (entget e)) (null (entmod (subst '(11 9.0 9.0 0.0) (assoc 11 l) l)))", L"nil"},
        {L"(assoc 11 (entget e))", L"(11 9.0 9.0 0.0)"},
        {L"(assoc 62 (entget e))", L"(62 . 3)"},
        {L"(null (entmod (list (cons -1 e) '(8 . \"New layer\"))))", L"nil"},
        {L"(mapcar '(lambda (c) (assoc c (entget e))) '(8 10 62))", L"((8 . \"New layer\") (10 1.0 2.0 0.0) (62 . 3))"},
        {L"(entmod (list (cons -1 e) '(6 . \"NoSuchLinetype\")))", L"nil"},
        {L"(entmod (list (cons -1 e) '(62 . \"red\")))", L"\n; error: bad DXF group: (62 . \"red\")"},
        {L"(equal e (entlast))", L"T"},
        {L"(equal e (entdel e))", L"T"},
        {L"(entget e)", L"nil"},
        {L"(entlast)", L"nil"},
        {L"(entdel e) (cdr (assoc 0 (entget e)))", L"\"LINE\""},
        {L"(entget 5)", L"\n; error: bad argument type: lentityp 5"},
        {L"(entmake '((0 . \"LINE\")))", L"nil"},
        {L"(entmake '((0 . \"NOSUCHTHING\") (10 0 0 0)))", L"nil"},
        {L"(entmake '((0 . \"CIRCLE\") (10 0 0 0) (40 . 2.5)))", L"((0 . \"CIRCLE\") (10 0 0 0) (40 . 2.5))"},
        {L"(cdr (assoc 40 (entget (entlast))))", L"2.5"},
    };
    Check(lisp, rows);
}

TEST(LispEntities, ListsOfVerticesAreReplacedAsAWhole)
{
    LispSession lisp;
    static const LispRow rows[] = {
        {L"(setq e (entmakex '((0 . \"LWPOLYLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbPolyline\") (90 . 3) (70 . 1) "
         L"(10 0 0) (10 5 0) (42 . 1.0) (10 5 5)))) (type e)",
         L"ENAME"},
        {L"(vl-remove-if-not '(lambda (g) (member (car g) '(10 42 90 70))) (entget e))",
         L"((90 . 3) (70 . 1) (10 0.0 0.0) (10 5.0 0.0) (42 . 1.0) (10 5.0 5.0))"},
        {L"(null (entmod (vl-remove '(10 5.0 0.0) (entget e))))", L"nil"},
        {L"(vl-remove-if-not '(lambda (g) (= (car g) 10)) (entget e))", L"((10 0.0 0.0) (10 5.0 5.0))"},
        {L"(cdr (assoc 90 (entget e)))", L"2"},
    };
    Check(lisp, rows);
}

TEST(LispEntities, PolylinesOfTheOldKindAndBlocks)
{
    LispSession lisp;
    static const LispRow rows[] = {
        {L"(progn (entmake '((0 . \"POLYLINE\") (66 . 1) (8 . \"P\"))) (entmake '((0 . \"VERTEX\") (10 1 1 0)))"
         L" (entmake '((0 . \"VERTEX\") (10 2 2 0))) (entmake '((0 . \"SEQEND\"))))",
         L"((0 . \"SEQEND\"))"},
        {L"(setq e (entlast)) (cdr (assoc 0 (entget e)))", L"\"POLYLINE\""},
        {L"(setq r nil) (while e (setq r (cons (cdr (assoc 0 (entget e))) r) e (entnext e))) (reverse r)",
         L"(\"POLYLINE\" \"VERTEX\" \"VERTEX\" \"SEQEND\")"},
        {L"(assoc 10 (entget (entnext (entlast))))", L"(10 1.0 1.0 0.0)"},
        {L"(progn (entmake '((0 . \"BLOCK\") (2 . \"Door\") (70 . 0) (10 0 0 0)))"
         L" (entmake '((0 . \"LINE\") (10 0 0 0) (11 1 0 0))) (entmake '((0 . \"ENDBLK\"))))",
         L"\"Door\""},
        {L"(mapcar 'car (tblsearch \"BLOCK\" \"door\"))", L"(0 2 70 10 -2)"},
        {L"(cdr (assoc 0 (entget (cdr (assoc -2 (tblsearch \"BLOCK\" \"door\"))))))", L"\"LINE\""},
        {L"(entnext (cdr (assoc -2 (tblsearch \"BLOCK\" \"door\"))))", L"nil"},
        {L"(entmake '((0 . \"INSERT\") (2 . \"Door\") (10 5 5 0)))", L"((0 . \"INSERT\") (2 . \"Door\") (10 5 5 0))"},
        {L"(cdr (assoc 2 (entget (entlast))))", L"\"Door\""},
        {L"(entmake '((0 . \"INSERT\") (2 . \"Window\") (10 5 5 0)))", L"nil"},
    };
    Check(lisp, rows);
}

TEST(LispEntities, ExtendedData)
{
    LispSession lisp;
    lisp(kLine);
    static const LispRow rows[] = {
        {L"(regapp \"MYAPP\")", L"\"MYAPP\""},
        {L"(regapp \"MYAPP\")", L"nil"},
        {L"(null (entmod (append (entget e) '((-3 (\"MYAPP\" (1000 . \"text\") (1070 . 7) (1010 1.0 2.0 3.0) (1040 . "
         L"2.5)))))))",
         L"nil"},
        {L"(assoc -3 (entget e))", L"nil"},
        {L"(assoc -3 (entget e '(\"MYAPP\")))",
         L"(-3 (\"MYAPP\" (1000 . \"text\") (1070 . 7) (1010 1.0 2.0 3.0) (1040 . 2.5)))"},
        {L"(assoc -3 (entget e '(\"*\")))",
         L"(-3 (\"MYAPP\" (1000 . \"text\") (1070 . 7) (1010 1.0 2.0 3.0) (1040 . 2.5)))"},
        {L"(assoc -3 (entget e '(\"OTHER\")))", L"nil"},
        {L"(sslength (ssget \"X\" '((-3 (\"MYAPP\")))))", L"1"},
        {L"(null (entmod (list (cons -1 e) '(-3 (\"MYAPP\")))))", L"nil"},
        {L"(assoc -3 (entget e '(\"*\")))", L"nil"},
    };
    Check(lisp, rows);
}

TEST(LispTables, RecordsAreMadeFoundAndWalked)
{
    LispSession lisp;
    static const LispRow rows[] = {
        {L"(null (entmake '((0 . \"LAYER\") (100 . \"AcDbSymbolTableRecord\") (100 . \"AcDbLayerTableRecord\") (2 . "
         L"\"A\") "
         L"(70 . 0) (62 . 5) (6 . \"Continuous\"))))",
         L"nil"},
        {L"(tblsearch \"LAYER\" \"a\")", L"((0 . \"LAYER\") (2 . \"A\") (70 . 0) (62 . 5) (6 . \"Continuous\"))"},
        {L"(tblsearch \"LAYER\" \"none\")", L"nil"},
        {L"(entmake '((0 . \"LAYER\") (100 . \"AcDbSymbolTableRecord\") (100 . \"AcDbLayerTableRecord\") (2 . \"A\") "
         L"(70 . 0)))",
         L"nil"},
        {L"(setq r nil) (while (setq d (tblnext \"LAYER\" (null d))) (setq r (cons (cdr (assoc 2 d)) r))) (reverse r)",
         L"(\"0\" \"A\")"},
        {L"(tblnext \"LAYER\" t) (cdr (assoc 2 (tblnext \"LAYER\")))", L"\"A\""},
        {L"(setq d (entget (tblobjname \"LAYER\" \"A\"))) (null (entmod (subst '(62 . -5) '(62 . 5) d)))", L"nil"},
        {L"(cdr (assoc 62 (tblsearch \"LAYER\" \"A\")))", L"-5"},
        {L"(null (entmod (subst '(2 . \"B\") '(2 . \"A\") (entget (tblobjname \"LAYER\" \"A\")))))", L"nil"},
        {L"(list (tblobjname \"LAYER\" \"A\") (null (tblobjname \"LAYER\" \"B\")))", L"(nil nil)"},
        {L"(entmod (subst '(2 . \"0\") '(2 . \"B\") (entget (tblobjname \"LAYER\" \"B\"))))", L"nil"},
        {L"(setq d (entget (tblobjname \"LAYER\" \"0\"))) (entmod (subst '(70 . 1) '(70 . 0) d))", L"nil"},
    };
    Check(lisp, rows);
}

TEST(LispTables, DictionariesHoldRecordsOfPrograms)
{
    LispSession lisp;
    static const LispRow rows[] = {
        {L"(setq x (entmakex '((0 . \"XRECORD\") (100 . \"AcDbXrecord\") (280 . 1) (1 . \"kept\") (40 . 1.5)))) (type "
         L"x)",
         L"ENAME"},
        {L"(equal x (dictadd (namedobjdict) \"MINE\" x))", L"T"},
        {L"(cdr (assoc 1 (dictsearch (namedobjdict) \"mine\")))", L"\"kept\""},
        {L"(dictadd (namedobjdict) \"MINE\" x)", L"nil"},
        {L"(dictrename (namedobjdict) \"MINE\" \"YOURS\")", L"\"YOURS\""},
        {L"(dictsearch (namedobjdict) \"MINE\")", L"nil"},
        {L"(equal x (dictremove (namedobjdict) \"YOURS\"))", L"T"},
        {L"(dictsearch (namedobjdict) \"YOURS\")", L"nil"},
    };
    Check(lisp, rows);
}

TEST(LispHost, VariablesAndCommands)
{
    LispSession lisp;
    static const LispRow rows[] = {
        {L"(getvar \"NoSuchVariable\")", L"nil"},
        {L"(setvar \"CMDECHO\" 0)", L"0"},
        {L"(getvar 'cmdecho)", L"0"},
        {L"(setvar \"LUPREC\" 2) (rtos 3.14159)", L"\"3.14\""},
        {L"(setvar \"CLAYER\" \"none\")", L"\n; error: variable setting rejected: \"CLAYER\" \"none\""},
        {L"(getvar \"CLAYER\")", L"\"0\""},
        {L"(type (getvar \"EXTMIN\"))", L"LIST"},
        {L"(command \"SETVAR\" \"CMDECHO\" 1)", L"nil"},
        {L"(getvar \"CMDECHO\")", L"1"},
        {L"(command nil)", L"nil"},
        {L"(load \"no-such-file\")", L"\n; error: LOAD failed: \"no-such-file\""},
        {L"(load \"no-such-file\" 'missing)", L"MISSING"},
        {L"(arxload \"no-such-module\" 'missing)", L"MISSING"},
    };
    Check(lisp, rows);
}

TEST(LispHost, FormsAtTheCommandLine)
{
    LispSession lisp;
    EXPECT_EQ(lisp.Typed(L"(+ 1 2)\n"), L"\n3");
    EXPECT_EQ(lisp.Typed(L"(setq a \"x\")\n!a\n"), L"\n\"x\"\n\"x\"");
    EXPECT_EQ(lisp.Typed(L"(princ)\n"), L"");
    EXPECT_EQ(lisp.Typed(L"(+ 1\n 2)\n"), L"\n3");
    EXPECT_EQ(lisp.Typed(L"(defun c:hello (/ x) (setq x 5) (princ \"hi\") (princ))\nhello\n"), L"\nC:HELLOhi");
    EXPECT_TRUE(lisp.session.Run(L"(+ 1 1)\n"));
    lisp.Typed(L"(car 5)\n");
    EXPECT_TRUE(lisp.session.HasFailed());
}

TEST(LispHost, QuestionsAreAnsweredByTheInput)
{
    LispSession lisp;
    struct Row {
        const wchar_t* typed;
        const wchar_t* answer;
    };
    static const Row rows[] = {
        {L"(setq r (getpoint \"where\"))\n1,2\n", L"(1.0 2.0 0.0)"},
        {L"(setq r (getint))\n42\n", L"42"},
        {L"(setq r (getreal))\n2.5\n", L"2.5"},
        {L"(setq r (getstring))\nword\n", L"\"word\""},
        {L"(setq r (getstring t))\ntwo words\n", L"\"two words\""},
        {L"(progn (initget \"Yes No\") (setq r (getkword)))\nn\n", L"\"No\""},
        {L"(setq r (getdist))\n12\n", L"12.0"},
        {L"(setq r (getpoint))\n\n", L"nil"},
        {L"(progn (initget \"Exit\") (setq r (getpoint)))\ne\n", L"\"Exit\""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.typed)));
        lisp.Typed(row.typed);
        EXPECT_EQ(lisp(L"r"), row.answer);
    }
}

TEST(LispHost, AFileIsLoadedAndItsFaultsAreLocated)
{
    LispSession lisp;
    const std::wstring path = L"/tmp/kx-load-" + std::to_wstring(uintptr_t(&lisp)) + L".lsp";
    lisp(L"(setq p \"" + path + L"\" f (open p \"w\"))");
    lisp(L"(write-line \"(setq one 1)\" f) (write-line \"\" f) (write-line \"(setq two (+ one 'x))\" f) (close f)");
    EXPECT_EQ(lisp(L"(load p)"), L"\n; error: bad argument type: numberp: X");
    EXPECT_NE(lisp.ui.printed.find(L"\n; in: (+ ONE (QUOTE X))"), std::wstring::npos);
    EXPECT_NE(lisp.ui.printed.find(L", line 3"), std::wstring::npos);
    EXPECT_EQ(lisp(L"one"), L"1");
    EXPECT_EQ(lisp(L"(setq f (open p \"w\")) (write-line \"(setq a 2) (+ a 3)\" f) (close f) (load p)"), L"5");
    EXPECT_EQ(lisp(L"(load (substr p 1 (- (strlen p) 4)))"), L"5");   // the extension may be left out
    lisp(L"(vl-file-delete p)");
}

// --- the C interface ---

TEST(LispSymbols, ListsComeAndGoAsChains)
{
    LispSession lisp;
    resbuf* list = acutBuildList(RTLB, RTSTR, L"\u5899", RTSHORT, 1, RTSTR, L"B", RTSHORT, 0, RTLE, RTNONE);
    EXPECT_EQ(acedPutSym(L"HideReverse", list), RTNORM);
    acutRelRb(list);
    EXPECT_EQ(lisp(L"HideReverse"), L"(\"\u5899\" 1 \"B\" 0)");
    resbuf* back = nullptr;
    ASSERT_EQ(acedGetSym(L"hidereverse", &back), RTNORM);
    EXPECT_EQ(back->restype, RTLB);
    EXPECT_EQ(back->rbnext->restype, RTSTR);
    EXPECT_STREQ(back->rbnext->resval.rstring, L"\u5899");
    EXPECT_EQ(back->rbnext->rbnext->restype, RTSHORT);
    acutRelRb(back);
    EXPECT_EQ(acedPutSym(L"HideReverse", nullptr), RTNORM);
    EXPECT_EQ(acedGetSym(L"HideReverse", &back), RTERROR);
    EXPECT_EQ(back, nullptr);
    EXPECT_EQ(acedGetSym(L"never-mentioned", &back), RTERROR);
}

TEST(LispSymbols, EveryKindOfValueIsHandedOver)
{
    LispSession lisp;
    struct Row {
        const wchar_t* form;
        short type;
    };
    static const Row rows[] = {{L"(setq v 7)", RTSHORT},
                               {L"(setq v 70000)", RTLONG},
                               {L"(setq v 1.5)", RTREAL},
                               {L"(setq v \"s\")", RTSTR},
                               {L"(setq v t)", RTT},
                               {L"(setq v '(1.0 2.0))", RTPOINT},
                               {L"(setq v '(1.0 2.0 3.0))", RT3DPOINT},
                               {L"(setq v '(1 2))", RTLB},
                               {L"(setq v '(a . 2))", RTLB},
                               {L"(setq v '((1 nil) 2))", RTLB}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.form)));
        const std::wstring printed = lisp(row.form);
        resbuf* value = nullptr;
        ASSERT_EQ(acedGetSym(L"v", &value), RTNORM);
        EXPECT_EQ(value->restype, row.type);
        EXPECT_EQ(acedPutSym(L"w", value), RTNORM);
        acutRelRb(value);
        const std::wstring again = lisp(L"w");
        EXPECT_EQ(again, printed == L"(A . 2)" ? L"(\"A\" . 2)" : printed);
    }
}

TEST(LispSymbols, ASetIsKeptByItsVariable)
{
    LispSession lisp;
    lisp(kLine);
    ads_name set, entity;
    acdbEntLast(entity);
    ASSERT_EQ(acedSSAdd(entity, nullptr, set), RTNORM);
    resbuf* list = acutBuildList(RTLB, RTPICKS, set, RTSHORT, 0, RTLE, RTNONE);
    acedPutSym(L"HideObjectReverse", list);
    acutRelRb(list);
    EXPECT_EQ(acedSSFree(set), RTNORM);
    resbuf* back = nullptr;
    ASSERT_EQ(acedGetSym(L"HideObjectReverse", &back), RTNORM);
    Adesk::Int32 length = 0;
    EXPECT_EQ(acedSSLength(back->rbnext->resval.rlname, &length), RTNORM);
    EXPECT_EQ(length, 1);
    EXPECT_EQ(acedPutSym(L"HideObjectReverse", back), RTNORM);   // the old value goes, the set stays
    EXPECT_EQ(acedSSLength(back->rbnext->resval.rlname, &length), RTNORM);
    EXPECT_EQ(acedPutSym(L"HideObjectReverse", nullptr), RTNORM);
    EXPECT_EQ(acedSSLength(back->rbnext->resval.rlname, &length), RTERROR);
    acutRelRb(back);
}

TEST(LispSymbols, FunctionsAreInvoked)
{
    LispSession lisp;
    lisp(L"(defun sum (a l / b) (setq b (apply '+ l)) (list a b))");
    resbuf* call = acutBuildList(RTSTR, L"sum", RTREAL, 1.5, RTLB, RTSHORT, 2, RTSHORT, 3, RTLE, RTNONE);
    resbuf* result = nullptr;
    EXPECT_EQ(acedInvoke(call, &result), RTNORM);
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(result->restype, RTLB);
    EXPECT_EQ(result->rbnext->resval.rreal, 1.5);
    EXPECT_EQ(result->rbnext->rbnext->resval.rint, 5);
    acutRelRb(result);
    call->resval.rstring[0] = L'x';
    EXPECT_EQ(acedInvoke(call, &result), RTERROR);
    acutRelRb(call);
}

namespace {

int AddArguments()
{
    resbuf* arguments = acedGetArgs();
    double sum = acedGetFunCode();
    for (const resbuf* at = arguments; at != nullptr; at = at->rbnext)
        sum += at->restype == RTREAL ? at->resval.rreal : at->resval.rint;
    acutRelRb(arguments);
    return acedRetReal(sum);
}

}   // namespace

TEST(LispSymbols, AModulesFunctionGetsItsArguments)
{
    LispSession lisp;
    ASSERT_EQ(acedDefun(L"add-all", 100), RTNORM);
    acedRegFunc(AddArguments, 100);
    EXPECT_EQ(lisp(L"(add-all 1 2.5)"), L"103.5");
    EXPECT_EQ(lisp(L"(mapcar 'add-all '(1 2) '(3 4))"), L"(104.0 106.0)");
    EXPECT_EQ(lisp(L"(type add-all)"), L"EXRXSUBR");
    EXPECT_EQ(acedRetInt(1), RTERROR);   // outside a call nobody waits
    EXPECT_EQ(acedUndef(L"add-all", 100), RTNORM);
    EXPECT_EQ(lisp(L"(add-all 1)"), L"\n; error: no function definition: ADD-ALL");
    EXPECT_EQ(acedUndef(L"add-all", 100), RTERROR);
    acedRegFunc(nullptr, 100);
}

TEST(LispSymbols, WhatAModulesFunctionThrowsIsAnError)
{
    static const struct {
        int (*function)();
        const wchar_t* answer;
    } rows[] = {
        {[]() -> int { throw std::bad_alloc(); }, L"\n; error: function failed: BREAK: out of memory"},
        {[]() -> int { throw std::runtime_error("no luck"); }, L"\n; error: function failed: BREAK: no luck"},
        {[]() -> int { throw 5; }, L"\n; error: function failed: BREAK: an unknown exception"},
    };
    LispSession lisp;
    ASSERT_EQ(acedDefun(L"break", 101), RTNORM);
    for (const auto& row : rows) {
        acedRegFunc(row.function, 101);
        EXPECT_EQ(lisp(L"(break)"), row.answer);
        EXPECT_EQ(acedRetInt(1), RTERROR);   // the call is over
        EXPECT_EQ(lisp(L"(vl-catch-all-error-p (vl-catch-all-apply 'break))"), L"T");
    }
    acedUndef(L"break", 101);
    acedRegFunc(nullptr, 101);
}

TEST(LispNames, AreCheckedAndListed)
{
    static const LispRow rows[] = {
        {L"(snvalid \"Walls 1\")", L"T"},
        {L"(snvalid \"\u5899\")", L"T"},
        {L"(snvalid \"\")", L"nil"},
        {L"(snvalid \" a\")", L"nil"},
        {L"(snvalid \"a*\")", L"nil"},
        {L"(snvalid \"a|b\")", L"nil"},
        {L"(snvalid \"a|b\" 1)", L"T"},
        {L"(snvalid \"a|b\" 0)", L"nil"},
        {L"(setq n \"\") (list (repeat 255 (setq n (strcat n \"x\")) (snvalid n)) (snvalid (strcat n \"x\")))",
         L"(T nil)"},
        {L"(snvalid 5)", L"\n; error: bad argument type: stringp 5"},
        {L"(layoutlist)", L"(\"Layout1\")"},
    };
    LispSession lisp;
    Check(lisp, rows);
}

TEST(LispBlackboard, DocumentsShareIt)
{
    LispSession lisp;
    EXPECT_EQ(lisp(L"(vl-bb-set 'shared '(1 (a . 2.5) \"text\"))"), L"(1 (A . 2.5) \"text\")");
    lisp(L"(setq shared 5)");
    AcApDocument* first = lisp.document;
    std::wstring why;
    ASSERT_EQ(KxPlat::NewDrawing(L"", lisp.document, why), Acad::eOk);
    static const LispRow rows[] = {
        {L"(vl-bb-ref 'shared)", L"(1 (A . 2.5) \"text\")"},
        {L"(eq 'a (caadr (vl-bb-ref 'shared)))", L"T"},   // a symbol of this document
        {L"shared", L"nil"},
        {L"(vl-bb-ref 'nothing)", L"nil"},
        {L"(vl-bb-set 'shared (lambda (x) x))", nullptr},
        {L"(vl-bb-set 'shared nil)", L"nil"},
    };
    for (const LispRow& row : rows) {
        const std::wstring answer = lisp(row.form);
        if (row.answer != nullptr)
            EXPECT_EQ(answer, row.answer);
        else
            EXPECT_EQ(answer.find(L"\n; error: bad argument type"), 0u);
    }
    lisp.document = first;
    EXPECT_EQ(lisp(L"(vl-bb-ref 'shared)"), L"nil");
}

// Degrees in the drawing, radians in a program's lists and filters.
TEST(LispEntities, AnglesAreRadians)
{
    LispSession lisp;
    lisp(L"(defun degrees (x) (rtos (/ (* x 180) pi) 2 4))");
    lisp(L"(setq arc (entmakex (list '(0 . \"ARC\") '(10 0 0 0) '(40 . 1.0) (cons 50 0.0) (cons 51 (/ pi 2)))))");
    EXPECT_EQ(lisp(L"(degrees (cdr (assoc 51 (entget arc))))"), L"\"90\"");
    const AcDbStub* stub = lisp.interpreter().Find(L"ARC")->value.id();
    EXPECT_NEAR(static_cast<const AcDbArc*>(stub->object)->endAngle(), 1.5707963, 1e-7);
    lisp(L"(setq e (entget arc)) (entmod (subst (cons 51 pi) (assoc 51 e) e))");
    EXPECT_EQ(lisp(L"(degrees (cdr (assoc 51 (entget arc))))"), L"\"180\"");
    EXPECT_EQ(lisp(L"(sslength (ssget \"X\" '((0 . \"ARC\") (-4 . \">\") (51 . 3.14) (-4 . \"<\") (51 . 3.15))))"),
              L"1");
}
