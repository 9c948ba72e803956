// Commands that a LISP program runs over several calls of (command).
#include "ed/AcEdCommandStack.h"
#include "EditorTest.h"
#include "rx/AcRxDictionary.h"
#include "win/Fiber.h"

using namespace KxTest;

namespace {

// Remembers two numbers that a command asked for.
int g_first = 0, g_second = 0, g_runs = 0, g_answer = 0;

void TwoNumbers()
{
    ++g_runs;
    g_first = g_second = 0;
    g_answer = acedGetInt(L"\nFirst: ", &g_first);
    if (g_answer == RTNORM)
        g_answer = acedGetInt(L"\nSecond: ", &g_second);
}

class Programs : public Editor {
protected:
    void SetUp() override
    {
        Editor::SetUp();
        acedRegCmds->addCommand(L"TEST", L"TWO", L"TWO", ACRX_CMD_MODAL, TwoNumbers);
        g_first = g_second = g_runs = 0;
    }
};

TEST(Fibers, StopInTheirMiddleAndGoOn)
{
    std::wstring seen;
    KxPlat::Fiber fiber([&] {
        seen += L"a";
        try {
            throw 1;
        } catch (int) {
            KxPlat::Fiber::Wait();   // within a handler
            seen += L"c";
        }
        EXPECT_EQ(KxPlat::Fiber::Current(), &fiber);
    });
    fiber.Resume();
    try {
        throw std::runtime_error("x");
    } catch (const std::exception&) {
        seen += L"b";
    }
    EXPECT_FALSE(fiber.IsDone());
    fiber.Resume();
    EXPECT_TRUE(fiber.IsDone());
    EXPECT_EQ(seen, L"abc");
    EXPECT_EQ(KxPlat::Fiber::Current(), nullptr);
}

TEST_F(Programs, OneCallBeginsAndTheNextGoesOn)
{
    Seen(L"(progn (command \"TWO\" 3) (setq active (getvar \"CMDACTIVE\")) (command 4))\n");
    EXPECT_TRUE(isGood);
    EXPECT_EQ(g_first, 3);
    EXPECT_EQ(g_second, 4);
    EXPECT_EQ(g_runs, 1);
    EXPECT_NE(Seen(L"!active\n").find(L"\n1"), std::wstring::npos);
    EXPECT_TRUE(session->state().running.empty());
}

TEST_F(Programs, ALoopFeedsACommandUntilItEnds)
{
    Seen(L"(progn (setq n 0) (command \"TWO\") (while (> (getvar \"CMDACTIVE\") 0) (setq n (1+ n)) (command n)))\n");
    EXPECT_EQ(g_first, 1);
    EXPECT_EQ(g_second, 2);
}

TEST_F(Programs, QuestionsOfTheProgramPassTheWaitingCommandBy)
{
    Seen(L"(progn (command \"TWO\") (setq n (getint \"N: \")) (command (* 2 n) n))\n21\n");
    EXPECT_EQ(g_first, 42);
    EXPECT_EQ(g_second, 21);
}

TEST_F(Programs, APauseIsAnsweredFromBelow)
{
    Seen(L"(command \"TWO\" PAUSE 9)\n8\n");
    EXPECT_EQ(g_first, 8);
    EXPECT_EQ(g_second, 9);
}

TEST_F(Programs, NoArgumentsAreEscape)
{
    const std::wstring seen = Seen(L"(progn (command \"TWO\" 5) (command) (setq n (getvar \"CMDNAMES\")))\n");
    EXPECT_TRUE(isGood);
    EXPECT_EQ(g_answer, RTCAN);
    EXPECT_NE(seen.find(L"*Cancel*"), std::wstring::npos);
    EXPECT_NE(seen.find(L"\"\""), std::wstring::npos);   // no command runs any more
    Seen(L"(progn (command \"TWO\" 5 nil) 1)\n");
    EXPECT_EQ(g_answer, RTCAN);
    EXPECT_TRUE(isGood);
}

TEST_F(Programs, WhatTheProgramLeavesOpenTheUserAnswers)
{
    Seen(L"(defun c:mine () (command \"TWO\" 5) (princ))\nMINE\n6\n");
    EXPECT_EQ(g_first, 5);
    EXPECT_EQ(g_second, 6);
    EXPECT_TRUE(isGood);
}

TEST_F(Programs, AFailureCancelsWhatWaits)
{
    Seen(L"(progn (command \"TWO\" 5) (car 1))\n");
    EXPECT_FALSE(isGood);
    EXPECT_EQ(g_answer, RTCAN);
    EXPECT_TRUE(session->state().running.empty());
}

TEST_F(Programs, AnErrorFunctionMayCancelTheCommandItself)
{
    Seen(L"(defun *error* (m) (command) (setq told m))\n(progn (command \"TWO\") (car 1))\n");
    EXPECT_EQ(g_answer, RTCAN);
    EXPECT_NE(Seen(L"!told\n").find(L"bad argument type"), std::wstring::npos);
}

TEST_F(Programs, TheUsersEscapeEndsProgramAndCommand)
{
    Seen(L"(progn (setq after nil) (command \"TWO\" PAUSE) (setq after 1))\n\x1b");
    EXPECT_FALSE(isGood);
    EXPECT_EQ(g_answer, RTCAN);
    EXPECT_NE(Seen(L"!after\n").find(L"nil"), std::wstring::npos);
}

// Each line of a script is a program of its own; a later one finds the command of an earlier one at its prompt.
TEST_F(Programs, AFormAtThePromptOfACommandAnswersIt)
{
    Seen(L"(command \"TWO\" 3)\n(command 4)\n");
    EXPECT_TRUE(isGood);
    EXPECT_EQ(g_first, 3);
    EXPECT_EQ(g_second, 4);
    Seen(L"TWO\n(command 5 (+ 3 3))\n");
    EXPECT_EQ(g_first, 5);
    EXPECT_EQ(g_second, 6);
}

TEST_F(Programs, EchoFollowsTheVariable)
{
    EXPECT_NE(Seen(L"(command \"TWO\" 1 2)\n").find(L"First: 1"), std::wstring::npos);
    Seen(L"(setvar \"CMDECHO\" 0)\n");
    EXPECT_EQ(Seen(L"(command \"TWO\" 1 2)\n").find(L"First: 1"), std::wstring::npos);
}

TEST_F(Programs, ACommandThatStillWaitsAtTheEndIsCancelled)
{
    resbuf number = {};
    number.restype = RTSTR;
    ACHAR name[] = L"TWO";
    number.resval.rstring = name;
    session->programs().Feed(&number);
    EXPECT_EQ(session->state().running.size(), 1u);
    session.reset();
    EXPECT_EQ(g_answer, RTCAN);
}

}   // namespace
