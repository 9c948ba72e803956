#include "ap/Documents.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbHostApplicationServices.h"
#include "db/core/DbCore.h"
#include "support/TempFolder.h"
#include "ui/ScriptedUi.h"
#include "win/Files.h"
#include <gtest/gtest.h>
#include <new>

using namespace KxPlat;

namespace {

class Documents : public testing::Test {
protected:
    void TearDown() override { CloseAllDocuments(); }
    AcApDocument* New()
    {
        AcApDocument* document = nullptr;
        EXPECT_EQ(NewDrawing(L"", document, why), Acad::eOk);
        return document;
    }
    std::wstring why;
};

class Recorder : public AcApDocManagerReactor {
public:
    Recorder() { acDocManager->addReactor(this); }
    ~Recorder() override { acDocManager->removeReactor(this); }
    void documentCreated(AcApDocument* document) override { Note(L"created ", document); }
    void documentToBeDestroyed(AcApDocument* document) override { Note(L"closing ", document); }
    void documentDestroyed(const ACHAR* fileName) override { seen += std::wstring(L"closed ") + fileName + L";"; }
    void documentActivated(AcApDocument* document) override { Note(L"active ", document); }
    void documentLockModeChanged(AcApDocument*, AcAp::DocLockMode before, AcAp::DocLockMode after, AcAp::DocLockMode,
                                 const ACHAR* command) override
    {
        seen += std::to_wstring(before) + L">" + std::to_wstring(after) + command + L";";
    }
    std::wstring seen;

private:
    void Note(const wchar_t* what, const AcApDocument* document)
    {
        seen += what + std::wstring(document->docTitle()) + L";";
    }
};

}   // namespace

TEST_F(Documents, TheNewestIsTheWorkingDrawing)
{
    EXPECT_EQ(acDocManager->curDocument(), nullptr);
    AcApDocument* first = New();
    AcApDocument* second = New();
    EXPECT_STREQ(second->fileName(), L"Drawing2.dwg");
    EXPECT_EQ(acDocManager->mdiActiveDocument(), second);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), second->database());
    EXPECT_EQ(acDocManager->document(first->database()), first);
    EXPECT_EQ(acDocManager->activateDocument(first), Acad::eOk);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), first->database());
    EXPECT_EQ(acDocManager->closeDocument(first), Acad::eOk);
    EXPECT_EQ(acDocManager->curDocument(), second);
    EXPECT_EQ(acDocManager->closeDocument(first), Acad::eNoDocument);
    EXPECT_EQ(acDocManager->closeDocument(second), Acad::eOk);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
}

TEST_F(Documents, ReactorsHearTheirStory)
{
    Recorder recorder;
    AcApDocument* first = New();
    AcApDocument* second = New();
    acDocManager->lockDocument(first, AcAp::kWrite, L"CMD");
    acDocManager->unlockDocument(first);
    acDocManager->closeDocument(second);
    EXPECT_EQ(recorder.seen, L"active Drawing1.dwg;created Drawing1.dwg;active Drawing2.dwg;created Drawing2.dwg;"
                             L"2>4CMD;4>2;closing Drawing2.dwg;active Drawing1.dwg;closed Drawing2.dwg;");
}

TEST_F(Documents, AReactorThatThrowsStopsNobody)
{
    struct Thrower : AcApDocManagerReactor {
        Thrower() { acDocManager->addReactor(this); }
        ~Thrower() override { acDocManager->removeReactor(this); }
        void documentCreated(AcApDocument*) override { throw std::bad_alloc(); }
        void documentToBeDestroyed(AcApDocument*) override { throw 7; }
    } thrower;
    ScriptedUi ui;
    SetUi(&ui);
    Recorder recorder;   // is told after it
    AcApDocument* document = New();
    EXPECT_EQ(ui.complained, L"a reactor of the documents: out of memory\n");
    EXPECT_EQ(acDocManager->closeDocument(document), Acad::eOk);
    EXPECT_NE(ui.complained.find(L"a reactor of the documents: an unknown exception"), std::wstring::npos);
    EXPECT_EQ(recorder.seen, L"active Drawing1.dwg;created Drawing1.dwg;closing Drawing1.dwg;closed Drawing1.dwg;");
    SetUi(nullptr);
}

TEST_F(Documents, LocksPileUpAndTheStrongestCounts)
{
    AcApDocument* document = New();
    struct Row {
        AcAp::DocLockMode lock;   // kNotLocked: unlock
        AcAp::DocLockMode after;
        Acad::ErrorStatus status;
    };
    static const Row rows[] = {
        {AcAp::kRead, AcAp::kRead, Acad::eOk},
        {AcAp::kWrite, AcAp::kWrite, Acad::eOk},
        {AcAp::kRead, AcAp::kWrite, Acad::eOk},
        {AcAp::kXWrite, AcAp::kXWrite, Acad::eOk},
        {AcAp::kNotLocked, AcAp::kWrite, Acad::eOk},
        {AcAp::kNotLocked, AcAp::kWrite, Acad::eOk},
        {AcAp::kNotLocked, AcAp::kRead, Acad::eOk},
        {AcAp::kNotLocked, AcAp::kNotLocked, Acad::eOk},
        {AcAp::kNotLocked, AcAp::kNotLocked, Acad::eLockViolation},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.lock == AcAp::kNotLocked ? acDocManager->unlockDocument(document)
                                               : acDocManager->lockDocument(document, row.lock),
                  row.status);
        EXPECT_EQ(document->lockMode(true), row.after);
    }
    EXPECT_EQ(acDocManager->lockDocument(document, AcAp::kNotLocked), Acad::eInvalidInput);
    EXPECT_EQ(acDocManager->lockDocument(nullptr, AcAp::kWrite), Acad::eNoDocument);
}

TEST_F(Documents, ADrawingIsSavedAndOpened)
{
    const KxTest::TempFolder folder;
    AcApDocument* document = New();
    CoreOf(*document->database()).header.SetInteger("$USERI1", 70, 9);
    ASSERT_EQ(SaveDrawing(*document, folder.DrivePath(L"计划.dxf"), AcDb::kDHL_1015, why), Acad::eOk);
    EXPECT_FALSE(document->isNamedDrawing());
    AcApDocument* opened = nullptr;
    ASSERT_EQ(OpenDrawing(folder.DrivePath(L"计划.DXF"), opened, why), Acad::eOk);   // whatever the case
    EXPECT_TRUE(opened->isNamedDrawing());
    EXPECT_EQ(CoreOf(*opened->database()).header.Integer("$USERI1"), 9);
    EXPECT_EQ(opened->formatForSave(), AcApDocument::k2000_dxf);
    EXPECT_EQ(opened->database()->originalFileVersion(), AcDb::kDHL_1015);
    RenameDocument(*opened, folder.DrivePath(L"b.dxf"));
    EXPECT_STREQ(opened->docTitle(), L"b.dxf");
}

TEST_F(Documents, WhatCannotBeReadOrWrittenIsExplained)
{
    const KxTest::TempFolder folder;
    folder.Write("a.dxf", "no drawing\n");
    AcApDocument* document = nullptr;
    EXPECT_NE(OpenDrawing(folder.DrivePath(L"a.dxf"), document, why), Acad::eOk);
    EXPECT_NE(why.find(L"line 1"), std::wstring::npos);
    EXPECT_NE(OpenDrawing(folder.DrivePath(L"none.dxf"), document, why), Acad::eOk);
    EXPECT_EQ(why, L"no such file");
    EXPECT_EQ(document, nullptr);
    AcApDocument* fresh = New();
    EXPECT_NE(SaveDrawing(*fresh, folder.DrivePath(), AcDb::kDHL_CURRENT, why), Acad::eOk);
    EXPECT_EQ(why, L"it is a folder");
    EXPECT_NE(SaveDrawing(*fresh, folder.DrivePath(L"x\\y.dxf"), AcDb::kDHL_CURRENT, why), Acad::eOk);
    EXPECT_EQ(why, L"no such file or folder");
    EXPECT_NE(SaveDrawing(*fresh, folder.DrivePath(L"y.odt"), AcDb::kDHL_CURRENT, why), Acad::eOk);
    EXPECT_EQ(why, L"no drawing file format has this extension");
}

TEST_F(Documents, PartsLiveAsLongAsTheirDocument)
{
    static int alive = 0;
    struct Counted : DocumentPart {
        Counted() { ++alive; }
        ~Counted() override { --alive; }
        int value = 0;
    };
    AcApDocument* first = New();
    AcApDocument* second = New();
    PartOf<Counted>(*first).value = 1;
    PartOf<Counted>(*second).value = 2;
    EXPECT_EQ(PartOf<Counted>(*first).value, 1);
    EXPECT_EQ(alive, 2);
    acDocManager->closeDocument(first);
    EXPECT_EQ(alive, 1);
}

TEST_F(Documents, TheIteratorVisitsThemInOrder)
{
    AcApDocument* first = New();
    AcApDocument* second = New();
    const std::unique_ptr<AcApDocumentIterator> it(acDocManager->newAcApDocumentIterator());
    EXPECT_EQ(it->document(), first);
    it->step();
    EXPECT_EQ(it->document(), second);
    it->step();
    EXPECT_TRUE(it->done());
    EXPECT_EQ(it->document(), nullptr);
}

TEST_F(Documents, TheLastPushedResourcesCount)
{
    auto one = reinterpret_cast<HINSTANCE>(1), two = reinterpret_cast<HINSTANCE>(2);
    acDocManager->pushResourceHandle(one);
    acDocManager->pushResourceHandle(two);
    EXPECT_EQ(ResourceHandle(), two);
    acDocManager->popResourceHandle();
    EXPECT_EQ(ResourceHandle(), one);
    acDocManager->popResourceHandle();
    acDocManager->popResourceHandle();
    EXPECT_EQ(ResourceHandle(), nullptr);
}
