// Curves and methods of the object model.
#include "lispSession.h"
#include <gtest/gtest.h>

// A semicircle from (10,0) over (0,10) to (-10,0): parameters are angles.
TEST(LispCurves, AnswerWhatLiesAlongThem)
{
    static const LispRow rows[] = {
        {L"(near (vlax-curve-getendparam a))", L"\"3.1416\""},
        {L"(near (vlax-curve-getdistatparam a (/ pi 2)))", L"\"15.7080\""},
        {L"(near (vlax-curve-getparamatdist a (* 5 pi)))", L"\"1.5708\""},
        {L"(near (vlax-curve-getpointatdist a (* 5 pi)))", L"(\"0.0000\" \"10.0000\" \"0.0000\")"},
        {L"(near (vlax-curve-getstartpoint a))", L"(\"10.0000\" \"0.0000\" \"0.0000\")"},
        {L"(near (vlax-curve-getendpoint (vlax-ename->vla-object a)))", L"(\"-10.0000\" \"0.0000\" \"0.0000\")"},
        {L"(near (vlax-curve-getpointatparam a 0))", L"(\"10.0000\" \"0.0000\" \"0.0000\")"},
        {L"(near (vlax-curve-getfirstderiv a 0.0))", L"(\"0.0000\" \"10.0000\" \"0.0000\")"},
        {L"(near (vlax-curve-getclosestpointto a '(0 25)))", L"(\"0.0000\" \"10.0000\" \"0.0000\")"},
        {L"(near (vlax-curve-getclosestpointto a '(0 -25)))", nullptr},   // one of the ends
        {L"(near (vlax-curve-getclosestpointto a '(0 -25) T))", L"(\"0.0000\" \"-10.0000\" \"0.0000\")"},
        {L"(near (vlax-curve-getparamatpoint a '(0 10)))", L"\"1.5708\""},
        {L"(near (vlax-curve-getdistatpoint a '(-10 0)))", L"\"31.4159\""},
        {L"(list (vlax-curve-isclosed a) (vlax-curve-isclosed c))", L"(nil T)"},
        {L"(near (vlax-curve-getarea c))", L"\"12.5664\""},
        {L"(vlax-curve-getparamatpoint a '(3 3))", L"nil"},   // off the curve
        {L"(vlax-curve-getendparam (tblobjname \"LAYER\" \"0\"))", L"nil"},
        {L"(vlax-curve-getendparam 5)", L"\n; error: bad argument type: VLA-OBJECT 5"},
    };
    LispSession lisp;
    lisp(L"(setvar \"DIMZIN\" 0)");   // all digits are shown
    lisp(L"(setq a (entmakex (list '(0 . \"ARC\") '(10 0 0 0) '(40 . 10.0) '(50 . 0.0) (cons 51 pi)))"
         L" c (entmakex '((0 . \"CIRCLE\") (10 0 0 0) (40 . 2.0))))"
         L"(defun near (x) (if (listp x) (mapcar 'near x) (rtos (+ x 1e-9) 2 4)))");
    for (const LispRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.form)));
        const std::wstring answer = lisp(row.form);
        if (row.answer != nullptr) {
            EXPECT_EQ(answer, row.answer);
        } else {
            EXPECT_NE(answer.find(L"10.0000"), std::wstring::npos) << testing::PrintToString(answer);
        }
    }
}

TEST(LispObjects, MethodsDrawAndMove)
{
    static const LispRow rows[] = {
        {L"(setq m (vla-get-modelspace (vla-get-activedocument (vlax-get-acad-object))) l (vla-addline m '(0 0 0) '(4 "
         L"0 0)))"
         L"(cdr (assoc 11 (entget (entlast))))",
         L"(4.0 0.0 0.0)"},
        {L"(vla-move l '(0 0 0) (vlax-3d-point 1 2 3)) (cdr (assoc 10 (entget (entlast))))", L"(1.0 2.0 3.0)"},
        {L"(vlax-invoke l 'Rotate '(1 2 0) pi) (mapcar '(lambda (x) (rtos x 2 1)) (cdr (assoc 11 (entget (entlast)))))",
         L"(\"-3.0\" \"2.0\" \"3.0\")"},
        {L"(vlax-invoke-method l \"ScaleEntity\" '(1 2 3) 0.5) (rtos (vla-get-length l) 2 1)", L"\"2.0\""},
        {L"(setq k (vla-copy l)) (list (= (vlax-vla-object->ename k) (entlast)) (eq k l))", L"(T nil)"},
        {L"(vla-getboundingbox l 'low 'high) (mapcar '(lambda (x) (rtos x 2 1)) (append low high))",
         L"(\"-1.0\" \"2.0\" \"3.0\" \"1.0\" \"2.0\" \"3.0\")"},
        {L"(setq n (vla-mirror l '(0 0 0) '(1 0 0))) (rtos (cadr (vlax-curve-getstartpoint n)) 2 1)", L"\"-2.0\""},
        {L"(setq p (vla-addlightweightpolyline m '(0 0 3 0 3 4))) (rtos (vlax-curve-getdistatparam p 2) 2 1)",
         L"\"7.0\""},
        {L"(vla-get-textstring (vla-addtext m \"Flur\" '(0 0 0) 2.5))", L"\"Flur\""},
        {L"(vla-get-name (vla-add (vla-get-layers (vla-get-activedocument (vlax-get-acad-object))) \"Neu\"))",
         L"\"Neu\""},
        {L"(setq i 0) (vlax-map-collection m '(lambda (o) (setq i (1+ i)))) i", L"5"},
        {L"(list (vlax-method-applicable-p l 'Move) (vlax-method-applicable-p l 'Fly))", L"(T nil)"},
        {L"(vla-addcircle m '(0 0 0) 0)", L"\n; error: Automation Error. Invalid radius"},
        {L"(vlax-invoke l 'Fly)", L"\n; error: Automation Error. Unknown method"},
        {L"(vla-addline l '(0 0 0) '(1 1 1))", L"\n; error: Automation Error. The object is no block"},
    };
    LispSession lisp;
    lisp(L"(setvar \"DIMZIN\" 0)");   // all digits are shown
    Check(lisp, rows);
}

TEST(LispObjects, PolylinesTellTheirCoordinates)
{
    static const LispRow rows[] = {
        {L"(setq m (vla-get-modelspace (vla-get-activedocument (vlax-get-acad-object)))"
         L" p (vla-addlightweightpolyline m '(0 0 3 0 3 4)))"
         L"(vlax-safearray->list (vlax-variant-value (vla-get-coordinates p)))",
         L"(0.0 0.0 3.0 0.0 3.0 4.0)"},
        {L"(list (vla-get-length p) (progn (vla-put-closed p :vlax-true) (vla-get-length p)) (vla-get-area p))",
         L"(7.0 12.0 6.0)"},
        {L"(length (vla-get-coordinates p))", L"6"},   // the first point is not told twice
        {L"(entmake '((0 . \"POLYLINE\") (66 . 1) (70 . 8))) (entmake '((0 . \"VERTEX\") (10 1 2 3) (70 . 32)))"
         L"(entmake '((0 . \"VERTEX\") (10 4 5 6) (70 . 32))) (entmake '((0 . \"SEQEND\")))"
         L"(vla-get-coordinates (vlax-ename->vla-object (entlast)))",
         L"(1.0 2.0 3.0 4.0 5.0 6.0)"},
        {L"(rtos (vla-get-circumference (vla-addcircle m '(0 0 0) 1)) 2 4)", L"\"6.2832\""},
        {L"(rtos (vla-get-arclength (vla-addarc m '(0 0 0) 1 0 pi)) 2 4)", L"\"3.1416\""},
        {L"(vla-get-arclength p)", L"\n; error: Automation Error. Unknown name ARCLENGTH"},
        {L"(vla-get-coordinates (vla-addpoint m '(7 8 9)))", L"(7.0 8.0 9.0)"},
        {L"(setq d (vla-get-activedocument (vlax-get-acad-object))) (vla-get-name d)", L"\"Drawing1.dwg\""},
    };
    LispSession lisp;
    lisp(L"(setvar \"DIMZIN\" 0)");
    Check(lisp, rows);
}

// EXPLODE asks a program for one answer, as programs expect.
TEST(LispObjects, ExplodingNeedsNoEnter)
{
    LispSession lisp;
    lisp.Typed(L"LINE\n1,1\n2,1\n\n-BLOCK\nUnit\n1,1\nL\n\n");
    lisp.Typed(
        L"(command \"_.-INSERT\" \"Unit\" \"10,10\" 1 1 0)\n(command \"_.EXPLODE\" (entlast))\n(setq kx-after 5)\n");
    EXPECT_EQ(lisp(L"(list kx-after (cdr (assoc 0 (entget (entlast)))) (cdr (assoc 10 (entget (entlast)))))"),
              L"(5 \"LINE\" (10.0 10.0 0.0))");
}

TEST(LispMeasures, TextsAndUnits)
{
    static const LispRow rows[] = {
        {L"(cvunit 1 \"inch\" \"mm\")", L"25.4"},
        {L"(cvunit '(1 2.0) \"FEET\" \"inches\")", L"(12.0 24.0)"},
        {L"(cvunit 180 \"degrees\" \"radian\")", L"3.14159"},
        {L"(cvunit 1 \"m\" \"hour\")", L"nil"},
        {L"(cvunit 1 \"m\" \"ell\")", L"nil"},
        {L"(setq b (textbox '((1 . \"Wand\") (40 . 5.0)))) (caar b)", nullptr},
        // Twice as high, twice as wide; where the text stands and how it is turned is no matter.
        {L"(setq w (- (caadr b) (caar b)) c (textbox '((0 . \"TEXT\") (1 . \"Wand\") (40 . 10.0) (10 7 7 0) (50 . "
         L"1.0))))"
         L"(rtos (/ (- (caadr c) (caar c)) w) 2 3)",
         L"\"2.000\""},
        {L"(setq c (textbox '((1 . \"Wand\") (40 . 5.0) (41 . 0.5)))) (rtos (/ (- (caadr c) (caar c)) w) 2 3)",
         L"\"0.500\""},
        {L"(< 2.0 (cadadr b) 8.0)", L"T"},
        {L"(textbox '((40 . 5.0)))", L"nil"},
    };
    LispSession lisp;
    lisp(L"(setvar \"DIMZIN\" 0)");   // all digits are shown
    for (const LispRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.form)));
        const std::wstring answer = lisp(row.form);
        EXPECT_TRUE(row.answer == nullptr || answer == row.answer) << testing::PrintToString(answer);
    }
}
