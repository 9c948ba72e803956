// Modules: messages in their order, refusals, and what is left behind.
#include "ed/Modules.h"
#include "ed/AcEdCommandStack.h"
#include "EditorTest.h"
#include "rx/AcRxDictionary.h"
#include "support/TempFolder.h"
#include "win/Files.h"
#include <cstdlib>

using namespace KxPlat;
using KxTest::Editor;

namespace {

class ModuleSession : public Editor {
protected:
    void SetUp() override
    {
        setenv("KX_PROBE_LOG", folder.Path("log").c_str(), 1);
        unsetenv("KX_PROBE_WANTS");
        Editor::SetUp();
    }
    void TearDown() override
    {
        Editor::TearDown();
        unsetenv("KX_PROBE_LOG");
        unsetenv("KX_PROBE_WANTS");
    }
    std::string TakeLog()
    {
        const std::string log = folder.Read("log");
        folder.Write("log", "");
        return log;
    }

    KxTest::TempFolder folder;
    const std::wstring recorder = DrivePath(KX_BIN "/probe/KxRecorder.arx");
    const std::wstring noModule = DrivePath(KX_BIN "/probe/KxProbe.arx");
};

}   // namespace

TEST_F(ModuleSession, MessagesComeInTheirOrder)
{
    ASSERT_EQ(acedArxLoad(recorder.c_str()), RTNORM);
    EXPECT_EQ(TakeLog(), "init;load Drawing1.dwg;");
    EXPECT_EQ(acedArxLoad(recorder.c_str()), RTNORM);   // it is there already
    EXPECT_EQ(TakeLog(), "");
    AcApDocument* second = nullptr;
    std::wstring why;
    ASSERT_EQ(NewDrawing(L"", second, why), Acad::eOk);
    EXPECT_EQ(TakeLog(), "load Drawing2.dwg;");
    EXPECT_EQ(acDocManager->closeDocument(second), Acad::eOk);
    EXPECT_EQ(TakeLog(), "leave Drawing2.dwg;");
    EXPECT_EQ(Seen(L"RECORD\n"), L"\nCommand: RECORD\nrecorded");
    EXPECT_EQ(acedArxUnload(L"kxrecorder"), RTNORM);
    EXPECT_EQ(TakeLog(), "leave Drawing1.dwg;unload;");
    Seen(L"RECORD\n");   // its commands went with it
    EXPECT_FALSE(isGood);
}

TEST_F(ModuleSession, AModuleIsLoadedInEveryOpenDrawing)
{
    AcApDocument* second = nullptr;
    std::wstring why;
    ASSERT_EQ(NewDrawing(L"", second, why), Acad::eOk);
    ASSERT_EQ(acedArxLoad(recorder.c_str()), RTNORM);
    EXPECT_EQ(TakeLog(), "init;load Drawing1.dwg;load Drawing2.dwg;");
    EXPECT_EQ(acDocManager->curDocument(), second);   // as before
}

TEST_F(ModuleSession, TheEndOfTheSessionUnloadsAll)
{
    ASSERT_EQ(acedArxLoad(recorder.c_str()), RTNORM);
    TakeLog();
    session.reset();
    EXPECT_EQ(TakeLog(), "prequit;leave Drawing1.dwg;quit;unload;");
    EXPECT_EQ(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER), nullptr);
}

TEST_F(ModuleSession, AFailedStartLeavesNothing)
{
    setenv("KX_PROBE_WANTS", "refuse-init", 1);
    EXPECT_EQ(acedArxLoad(recorder.c_str()), RTERROR);
    EXPECT_EQ(LastModuleFault(), L"its start-up failed");
    EXPECT_EQ(TakeLog(), "init;");
    EXPECT_TRUE(LoadedModules().empty());
    EXPECT_EQ(acedRegCmds->lookupGlobalCmd(L"RECORD"), nullptr);
}

TEST_F(ModuleSession, ARefusedUnloadKeepsTheModule)
{
    ASSERT_EQ(acedArxLoad(recorder.c_str()), RTNORM);
    TakeLog();
    setenv("KX_PROBE_WANTS", "refuse-unload", 1);
    EXPECT_EQ(acedArxUnload(recorder.c_str()), RTERROR);
    EXPECT_EQ(TakeLog(), "leave Drawing1.dwg;unload;load Drawing1.dwg;");
    EXPECT_EQ(Seen(L"RECORD\n"), L"\nCommand: RECORD\nrecorded");
}

TEST_F(ModuleSession, ALockedModuleStays)
{
    setenv("KX_PROBE_WANTS", "lock", 1);
    ASSERT_EQ(acedArxLoad(recorder.c_str()), RTNORM);
    EXPECT_TRUE(acrxDynamicLinker->isApplicationLocked(L"KxRecorder.arx"));
    EXPECT_TRUE(acrxDynamicLinker->isAppMDIAware(recorder.c_str()));
    EXPECT_EQ(acedArxUnload(recorder.c_str()), RTERROR);
    EXPECT_EQ(LastModuleFault(), L"it is locked");
}

TEST_F(ModuleSession, ARunningCommandHoldsItsModule)
{
    ASSERT_EQ(acedArxLoad(recorder.c_str()), RTNORM);
    EXPECT_EQ(Seen(L"SUICIDE\n"), L"\nCommand: SUICIDE\n-5001");
    EXPECT_EQ(LastModuleFault(), L"one of its commands runs");
}

TEST_F(ModuleSession, WhatIsNoModuleIsRefused)
{
    folder.Write("letter.arx", "Dear Sir");
    struct Row {
        std::wstring file;
        const wchar_t* fault;
    };
    const Row rows[] = {{L"Z:\\no\\such.arx", L"no such file"},
                        {folder.DrivePath(L"letter.arx"), L"it is no module"},
                        {noModule, L"it is no module of this host"}};
    for (const Row& row : rows) {
        EXPECT_EQ(acedArxLoad(row.file.c_str()), RTERROR);
        EXPECT_EQ(LastModuleFault(), row.fault);
    }
    EXPECT_TRUE(LoadedModules().empty());
}

TEST_F(ModuleSession, ArxTellsWhatItDoes)
{
    const std::wstring load = L"ARX L\n" + recorder + L"\n";
    EXPECT_NE(Seen(load).find(L"\nKxRecorder.arx successfully loaded."), std::wstring::npos);
    EXPECT_NE(Seen(L"ARX ?\n").find(L"\n" + recorder), std::wstring::npos);
    resbuf* names = acedArxLoaded();
    ASSERT_NE(names, nullptr);
    EXPECT_STREQ(names->resval.rstring, L"KxRecorder.arx");
    acutRelRb(names);
    EXPECT_NE(Seen(L"ARX U\nKxRecorder.arx\n").find(L"\nKxRecorder.arx successfully unloaded."), std::wstring::npos);
    EXPECT_NE(Seen(L"ARX U\nKxRecorder.arx\n").find(L"\nKxRecorder.arx cannot be unloaded: it is not loaded."),
              std::wstring::npos);
    EXPECT_FALSE(isGood);
}
