// The command line: what a session does with text.
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbLayerTableRecord.h"
#include "ed/AcEdCommandStack.h"
#include "ed/rxmfcapi.h"
#include "EditorTest.h"
#include "mfc/CException.h"
#include "rx/AcRxDictionary.h"
#include <memory>

using namespace KxPlat;
using KxTest::Editor;

namespace {

int g_runs = 0;
AcAp::DocLockMode g_lock = AcAp::kNone;
AcDbObject* g_leftOpen = nullptr;

void Count()
{
    ++g_runs;
    g_lock = acDocManager->curDocument()->lockMode(true);
}

void AskTwice()
{
    int first = 0, second = 0;
    if (acedGetInt(L"\nFirst: ", &first) != RTNORM || acedGetInt(L"\nSecond: ", &second) != RTNORM)
        return;
    acutPrintf(L"\nsum %d", first + second);
}

void LocksAndForgets()
{
    acDocManager->lockDocument(acDocManager->curDocument(), AcAp::kXWrite);
}

void LeavesLayerOpen()
{
    AcDbLayerTable* layers = nullptr;
    acDocManager->curDocument()->database()->getSymbolTable(layers);
    g_leftOpen = layers;
}

void Throws()
{
    throw std::runtime_error("out of luck");
}

void AddLayer()
{
    AcDbLayerTable* layers = nullptr;
    ASSERT_EQ(acDocManager->curDocument()->database()->getSymbolTable(layers, AcDb::kForWrite), Acad::eOk);
    auto* layer = new AcDbLayerTableRecord;
    layer->setName(L"新图层");
    EXPECT_EQ(layers->add(layer), Acad::eOk);
    layer->close();
    layers->close();
}

void Add(const wchar_t* global, const wchar_t* local, Adesk::Int32 flags, void (*function)())
{
    ASSERT_EQ(acedRegCmds->addCommand(L"TEST", global, local, flags, function), Acad::eOk);
}

bool HasLayer(const wchar_t* name)
{
    AcDbLayerTable* layers = nullptr;
    acDocManager->curDocument()->database()->getSymbolTable(layers);
    const bool has = layers->has(name);
    layers->close();
    return has;
}

}   // namespace

TEST_F(Editor, CommandsAnswerToAllTheirNames)
{
    Add(L"CountRuns", L"JS", 0, Count);
    struct Row {
        const wchar_t* typed;
        int runs;
    };
    static const Row rows[] = {{L"COUNTRUNS\n", 1},   {L"countruns ", 1}, {L"js\n", 1},    {L"_CountRuns\n", 1},
                               {L"_JS\n", 0},         {L"'js\n", 1},      {L"JS JS\n", 2}, {L"-js\n", 1},
                               {L"._countruns\n", 1}, {L"J\n", 0}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.typed)));
        g_runs = 0;
        Seen(row.typed);
        EXPECT_EQ(g_runs, row.runs);
        EXPECT_EQ(isGood, row.runs != 0);
    }
}

TEST_F(Editor, UnknownCommandsAreNamed)
{
    EXPECT_EQ(Seen(L"nosuch\n"), L"\nCommand: nosuch\nUnknown command \"NOSUCH\".  Press F1 for help.");
    EXPECT_FALSE(isGood);
    EXPECT_TRUE(session->HasFailed());
    Seen(L"REGEN\n");
    EXPECT_TRUE(isGood);
    EXPECT_TRUE(session->HasFailed());   // what failed stays failed
}

TEST_F(Editor, EnterRepeatsTheLastCommand)
{
    Add(L"COUNTRUNS", L"COUNTRUNS", 0, Count);
    g_runs = 0;
    Seen(L"\n");
    EXPECT_TRUE(isGood);   // nothing to repeat
    Seen(L"COUNTRUNS\n\n\x1b\n");
    EXPECT_EQ(g_runs, 3);
}

TEST_F(Editor, AnswersComeFromTheSameText)
{
    Add(L"ADD", L"ADD", 0, AskTwice);
    EXPECT_EQ(Seen(L"ADD 1 2\n"), L"\nCommand: ADD\nFirst: 1\nSecond: 2\nsum 3");
    ui.answers = {L"5"};
    EXPECT_EQ(Seen(L"ADD 4\n"), L"\nCommand: ADD\nFirst: 4\nSecond: 5\nsum 9");   // the rest from the keyboard
    EXPECT_EQ(Seen(L"ADD 4 \x1bREGEN\n"), L"\nCommand: ADD\nFirst: 4*Cancel*\nCommand: REGEN\nRegenerating model.");
}

TEST_F(Editor, TransparentCommandsRunWithinOthers)
{
    Add(L"ADD", L"ADD", 0, AskTwice);
    Add(L"COUNTRUNS", L"COUNTRUNS", ACRX_CMD_TRANSPARENT, Count);
    g_runs = 0;
    EXPECT_EQ(Seen(L"ADD 1 'countruns 2\n"), L"\nCommand: ADD\nFirst: 1\nSecond: 'countruns\nResuming ADD command."
                                             L"\nSecond: 2\nsum 3");
    EXPECT_EQ(g_runs, 1);
    EXPECT_EQ(Seen(L"ADD 1 'setvar useri1 7 2\n"), L"\nCommand: ADD\nFirst: 1\nSecond: 'setvar"
                                                   L"\n>>Enter variable name or [?]: useri1"
                                                   L"\n>>Enter new value for USERI1 <0>: 7"
                                                   L"\nResuming ADD command.\nSecond: 2\nsum 3");
    EXPECT_EQ(IntegerVar(L"USERI1"), 7);
    EXPECT_EQ(Seen(L"ADD 1 'regen 2\n"), L"\nCommand: ADD\nFirst: 1\nSecond: 'regen"
                                         L"\n** That command may not be invoked transparently **\nSecond: 2\nsum 3");
    EXPECT_FALSE(isGood);
}

TEST_F(Editor, CommandsHoldTheLocksOfTheirFlags)
{
    struct Row {
        Adesk::Int32 flags;
        AcAp::DocLockMode lock;
    };
    static const Row rows[] = {{ACRX_CMD_MODAL, AcAp::kWrite},
                               {ACRX_CMD_USEPICKSET, AcAp::kWrite},
                               {ACRX_CMD_DOCREADLOCK, AcAp::kRead},
                               {ACRX_CMD_DOCEXCLUSIVELOCK, AcAp::kXWrite},
                               {ACRX_CMD_NOINTERNALLOCK, AcAp::kNotLocked},
                               {ACRX_CMD_SESSION, AcAp::kNotLocked}};
    for (const Row& row : rows) {
        acedRegCmds->removeGroup(L"TEST");
        Add(L"COUNTRUNS", L"COUNTRUNS", row.flags, Count);
        Seen(L"COUNTRUNS\n");
        EXPECT_EQ(g_lock, row.lock) << row.flags;
        EXPECT_EQ(acDocManager->curDocument()->lockMode(true), AcAp::kNotLocked);
    }
    Add(L"FORGET", L"FORGET", 0, LocksAndForgets);
    Seen(L"FORGET\n");
    EXPECT_EQ(acDocManager->curDocument()->lockMode(true), AcAp::kNotLocked);
}

TEST_F(Editor, ObjectsLeftOpenAreReported)
{
    Add(L"LEAVE", L"LEAVE", 0, LeavesLayerOpen);
    Seen(L"LEAVE\n");
    EXPECT_FALSE(isGood);
    EXPECT_NE(ui.complained.find(L"LEAVE: left 1 objects open"), std::wstring::npos);
    g_leftOpen->close();
}

TEST_F(Editor, ExceptionsEndTheCommandOnly)
{
    Add(L"THROW", L"THROW", 0, Throws);
    EXPECT_EQ(Seen(L"THROW\nREGEN\n"), L"\nCommand: THROW\nTHROW: out of luck\nCommand: REGEN\nRegenerating model.");
    EXPECT_FALSE(isGood);
    EXPECT_TRUE(acDocManager->curDocument()->isQuiescent());
}

TEST_F(Editor, WhateverIsThrownBecomesALine)
{
    static const struct {
        AcRxFunctionPtr command;
        const wchar_t* line;
    } rows[] = {
        {[] { throw std::bad_alloc(); }, L"out of memory"},
        {[] { throw std::runtime_error("\u5899"); }, L"\u5899"},
        {[] { throw 5; }, L"an unknown exception"},
        {[] { throw new CResourceException; }, L"A required resource was unavailable."},
        {[] { throw new CUserException; }, L"an exception without a message"},
    };
    for (const auto& row : rows) {
        Add(L"THROW", L"THROW", 0, row.command);
        EXPECT_EQ(Seen(L"THROW\n"), L"\nCommand: THROW\nTHROW: " + std::wstring(row.line));
        EXPECT_FALSE(isGood);
        EXPECT_TRUE(acDocManager->curDocument()->isQuiescent());
        acedRegCmds->removeGroup(L"TEST");
    }
}

TEST_F(Editor, SentStringsRunWhenTheCommandHasEnded)
{
    Add(L"SEND", L"SEND", 0, [] {
        acDocManager->sendStringToExecute(acDocManager->curDocument(),
                                          L"\x1b\x1b"
                                          L"ADD\n3\n",
                                          true, false, true);
        acutPrintf(L"\nsent");
    });
    Add(L"ADD", L"ADD", 0, AskTwice);
    EXPECT_EQ(Seen(L"SEND\n4\nREGEN\n"), L"\nCommand: SEND\nsent\nCommand: ADD\nFirst: 3\nSecond: 4\nsum 7"
                                         L"\nCommand: REGEN\nRegenerating model.");
    EXPECT_TRUE(isGood);
    // With nothing behind it, too.
    ui.answers = {L"5"};
    EXPECT_EQ(Seen(L"SEND\n"), L"\nCommand: SEND\nsent\nCommand: ADD\nFirst: 3\nSecond: 5\nsum 8");
}

TEST_F(Editor, CodeRunsCommandsWithItsOwnAnswers)
{
    Add(L"ADD", L"ADD", 0, AskTwice);
    ui.TakePrinted();
    EXPECT_EQ(acedCommand(RTSTR, L"ADD", RTSTR, L"1", RTSHORT, 2, RTNONE), RTNORM);
    EXPECT_EQ(ui.TakePrinted(), L"\nsum 3");
    EXPECT_EQ(acedCommand(RTSTR, L"NOSUCH", RTNONE), RTERROR);
    Type(L"7\n");
    ui.TakePrinted();
    EXPECT_EQ(acedCommand(RTSTR, L"ADD", RTSTR, L"\\", RTREAL, 1.0, RTSHORT, 3, RTNONE),
              RTERROR);   // 1.0 is no integer
    EXPECT_EQ(ui.TakePrinted(), L"\nFirst: 7\nRequires an integer value.\nsum 10");
    EXPECT_EQ(acedCommand(RTNONE), RTNORM);
}

TEST_F(Editor, AMissingAnswerIsAskedFromTheCaller)
{
    Add(L"ADD", L"ADD", 0, AskTwice);
    Add(L"OUTER", L"OUTER", 0, [] { acedCommand(RTSTR, L"ADD", RTSTR, L"1", RTNONE); });
    EXPECT_EQ(Seen(L"OUTER 5\n"), L"\nCommand: OUTER\nSecond: 5\nsum 6");
}

TEST_F(Editor, TheUsersEscapeEndsTheProgramToo)
{
    Add(L"ADD", L"ADD", 0, AskTwice);
    Add(L"OUTER", L"OUTER", 0, [] {
        acutPrintf(L"\n%d", acedCommand(RTSTR, L"ADD", RTSTR, L"\\", RTSTR, L"ADD", RTSHORT, 1, RTSHORT, 2, RTNONE));
    });
    ui.answers = {L"OUTER", L"\x1b"};
    session->Loop();
    EXPECT_EQ(ui.TakePrinted(), L"\nCommand: OUTER\nFirst: *Cancel*\n-5002\nCommand: ");
}

TEST_F(Editor, AWholeCommandIsOneStepOfUndo)
{
    Add(L"ADDLAYER", L"ADDLAYER", 0, AddLayer);
    Seen(L"ADDLAYER\n");
    EXPECT_TRUE(HasLayer(L"新图层"));
    EXPECT_EQ(Seen(L"U\n"), L"\nCommand: U\nADDLAYER");
    EXPECT_FALSE(HasLayer(L"新图层"));
    EXPECT_EQ(Seen(L"REDO\n"), L"\nCommand: REDO\nADDLAYER");
    EXPECT_TRUE(HasLayer(L"新图层"));
    EXPECT_EQ(Seen(L"REDO\n"), L"\nCommand: REDO\nNothing to redo");
    Seen(L"CLAYER 新图层\n");
    EXPECT_EQ(TextVar(L"CLAYER"), L"新图层");
    Seen(L"UNDO 2\n");
    EXPECT_FALSE(HasLayer(L"新图层"));
    EXPECT_EQ(TextVar(L"CLAYER"), L"0");
    EXPECT_EQ(Seen(L"U\n"), L"\nCommand: U\nNothing to undo");
}

TEST_F(Editor, UndoGoesBackToAMark)
{
    Seen(L"USERI1 1 USERI2 2 UNDO M USERI3 3 USERI4 4 UNDO B\n");
    EXPECT_EQ(IntegerVar(L"USERI2"), 2);
    EXPECT_EQ(IntegerVar(L"USERI3"), 0);
    EXPECT_EQ(IntegerVar(L"USERI4"), 0);
}

TEST_F(Editor, QuitAsksBeforeItDropsChanges)
{
    session->Run(L"QUIT\n");
    EXPECT_TRUE(session->IsQuitting());
    Start(true);
    Seen(L"USERI1 5\n");
    EXPECT_EQ(Seen(L"QUIT\n\n"),
              L"\nCommand: QUIT\nReally want to discard all changes to drawing Drawing1.dwg? [Yes/No] <N>: ");
    EXPECT_FALSE(session->IsQuitting());
    Seen(L"QUIT Y\nREGEN\n");
    EXPECT_TRUE(session->IsQuitting());
}

TEST_F(Editor, WindowMessagesPassFiltersAndWatches)
{
    static std::wstring seen;
    seen.clear();
    const AcedFilterWinMsgFn filter = [](MSG* message) {
        seen += L"f";
        return message->message == WM_KEYDOWN ? 1 : 0;
    };
    const AcedWatchWinMsgFn watch = [](const MSG*) { seen += L"w"; };
    EXPECT_EQ(acedRegisterFilterWinMsg(filter), 1);
    EXPECT_EQ(acedRegisterFilterWinMsg(filter), 0);   // once is enough
    EXPECT_EQ(acedRegisterWatchWinMsg(watch), 1);
    MSG message = {};
    message.message = WM_KEYDOWN;
    EXPECT_TRUE(PassMessage(message));
    message.message = WM_LBUTTONDBLCLK;
    EXPECT_FALSE(PassMessage(message));
    EXPECT_EQ(seen, L"ffw");
    EXPECT_EQ(acedRemoveFilterWinMsg(filter), 1);
    EXPECT_EQ(acedRemoveFilterWinMsg(filter), 0);
    EXPECT_EQ(acedRemoveWatchWinMsg(watch), 1);
}

TEST_F(Editor, HooksThatThrowLetTheMessageThrough)
{
    static int seen;
    seen = 0;
    const AcedFilterWinMsgFn filter = [](MSG*) -> int { throw std::runtime_error("no luck"); };
    const AcedWatchWinMsgFn watch = [](const MSG*) { throw 5; };
    const AcedWatchWinMsgFn last = [](const MSG*) { ++seen; };
    acedRegisterFilterWinMsg(filter);
    acedRegisterWatchWinMsg(watch);
    acedRegisterWatchWinMsg(last);
    MSG message = {};
    message.message = WM_KEYDOWN;
    EXPECT_FALSE(PassMessage(message));
    EXPECT_EQ(seen, 1);
    EXPECT_NE(ui.complained.find(L"a filter of messages: no luck"), std::wstring::npos);
    EXPECT_NE(ui.complained.find(L"a watch on messages: an unknown exception"), std::wstring::npos);
    acedRemoveFilterWinMsg(filter);
    acedRemoveWatchWinMsg(watch);
    acedRemoveWatchWinMsg(last);
}

// --- the command stack ---

TEST_F(Editor, AGroupHoldsEachNameOnce)
{
    struct Row {
        const wchar_t* group;
        const wchar_t* global;
        const wchar_t* local;
        Acad::ErrorStatus status;
    };
    static const Row rows[] = {
        {L"G1", L"AlphaCmd", L"AC", Acad::eOk},        {L"g1", L"ALPHACMD", L"XX", Acad::eDuplicateKey},
        {L"G1", L"Other", L"ac", Acad::eDuplicateKey}, {L"G2", L"AlphaCmd", L"AC", Acad::eOk},
        {L"G1", L"BetaCmd", nullptr, Acad::eOk},       {L"G1", L"", L"Y", Acad::eInvalidInput},
        {nullptr, L"Z", L"Z", Acad::eInvalidInput}};
    for (const Row& row : rows)
        EXPECT_EQ(acedRegCmds->addCommand(row.group, row.global, row.local, 0, Count), row.status);
    EXPECT_STREQ(acedRegCmds->lookupCmd(L"alphacmd", true)->groupName(), L"G2");   // the newest group first
    EXPECT_EQ(acedRegCmds->popGroupToTop(L"G1"), Acad::eOk);
    EXPECT_STREQ(acedRegCmds->lookupCmd(L"alphacmd", true)->groupName(), L"G1");
    EXPECT_STREQ(acedRegCmds->lookupCmd(L"BETACMD", L"g1")->localName(), L"BETACMD");
    EXPECT_EQ(acedRegCmds->lookupCmd(L"ac", true), nullptr);
    EXPECT_NE(acedRegCmds->lookupCmd(L"ac", false), nullptr);
    EXPECT_EQ(acedRegCmds->removeCmd(L"G1", L"AlphaCmd"), Acad::eOk);
    EXPECT_EQ(acedRegCmds->removeCmd(L"G1", L"AlphaCmd"), Acad::eKeyNotFound);
    EXPECT_STREQ(acedRegCmds->lookupCmd(L"alphacmd", true)->groupName(), L"G2");
    EXPECT_EQ(acedRegCmds->removeGroup(L"G2"), Acad::eOk);
    EXPECT_EQ(acedRegCmds->removeGroup(L"G2"), Acad::eKeyNotFound);
    EXPECT_EQ(acedRegCmds->lookupGlobalCmd(L"AlphaCmd"), nullptr);
}

TEST_F(Editor, CommandsAreWalkedGroupByGroup)
{
    Add(L"ONE", L"ONE", 0, Count);
    Add(L"TWO", L"ER", 0, Count);
    const std::unique_ptr<AcEdCommandIterator> it(acedRegCmds->iterator());
    EXPECT_STREQ(it->command()->globalName(), L"ONE");
    EXPECT_TRUE(it->next());
    EXPECT_STREQ(it->command()->localName(), L"ER");
    EXPECT_STREQ(it->commandGroup(), L"TEST");
    EXPECT_TRUE(it->next());
    EXPECT_STREQ(it->commandGroup(), L"ACAD_MAIN");
    while (it->next()) {
    }
    EXPECT_TRUE(it->done());
    EXPECT_EQ(it->command(), nullptr);
}

TEST_F(Editor, TheMeterOfAModuleIsShownAndGoesWithTheCommand)
{
    EXPECT_EQ(acedSetStatusBarProgressMeter(L"Moving", 5, 5), -1);
    EXPECT_EQ(acedSetStatusBarProgressMeterPos(1), -1);
    EXPECT_EQ(acedSetStatusBarProgressMeter(L"Moving", 10, 30), 0);
    EXPECT_EQ(acedSetStatusBarProgressMeterPos(15), 0);
    EXPECT_EQ(acedSetStatusBarProgressMeterPos(-5), 0);   // on to 20
    EXPECT_EQ(session->state().meterAt, 20);
    acedRestoreStatusBar();
    EXPECT_EQ(acedSetStatusBarProgressMeterPos(20), -1);
    Add(L"FORGETMETER", L"FORGETMETER", 0, [] { acedSetStatusBarProgressMeter(L"Moving", 0, 9); });
    Seen(L"FORGETMETER\n");
    EXPECT_EQ(session->state().meter, nullptr);
}
