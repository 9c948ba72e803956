// OPEN, NEW, SAVE, SAVEAS, DXFOUT, CLOSE and SCRIPT.
#include "db/AcDbDatabase.h"
#include "EditorTest.h"
#include "support/TempFolder.h"

using namespace KxPlat;
using KxTest::Editor;

namespace {

class FileSession : public Editor {
protected:
    std::wstring In(const wchar_t* name) const { return folder.DrivePath(name); }
    KxTest::TempFolder folder;
};

}   // namespace

TEST_F(FileSession, ASavedDrawingComesBack)
{
    Seen(L"USERI1 42\nSAVEAS 2007\n" + In(L"plan.dxf") + L"\n");
    ASSERT_TRUE(isGood);
    EXPECT_EQ(TextVar(L"DWGNAME"), L"plan.dxf");
    EXPECT_EQ(TextVar(L"DWGPREFIX"), folder.DrivePath() + L"\\");
    EXPECT_EQ(IntegerVar(L"DBMOD"), 0);
    EXPECT_NE(folder.Read("plan.dxf").find("AC1021"), std::string::npos);
    Seen(L"NEW .\n");
    EXPECT_EQ(IntegerVar(L"USERI1"), 0);
    Seen(L"OPEN\n\"" + In(L"plan") + L"\"\n");   // the extension is found
    ASSERT_TRUE(isGood);
    EXPECT_EQ(IntegerVar(L"USERI1"), 42);
    EXPECT_EQ(OpenDocuments().size(), 3u);
}

TEST_F(FileSession, QsaveKeepsNameAndVersion)
{
    Seen(L"SAVEAS R12\n" + In(L"old.dxf") + L"\nUSERI2 5\nQSAVE\n");
    ASSERT_TRUE(isGood);
    EXPECT_NE(folder.Read("old.dxf").find("AC1009"), std::string::npos);
    EXPECT_NE(folder.Read("old.dxf").find("$USERI2"), std::string::npos);
    EXPECT_EQ(acDocManager->curDocument()->formatForSave(), AcApDocument::kR12_dxf);
}

TEST_F(FileSession, AnExistingDrawingIsReplacedOnDemandOnly)
{
    folder.Write("there.dxf", "mine");
    const std::wstring question =
        L"\nA drawing with this name already exists.\nDo you want to replace it? [Yes/No] <N>: ";
    EXPECT_NE(Seen(L"SAVE\n" + In(L"there.dxf") + L"\n\n").find(question), std::wstring::npos);
    EXPECT_EQ(folder.Read("there.dxf"), "mine");
    Seen(L"SAVE\n" + In(L"there.dxf") + L"\nY\n");
    EXPECT_NE(folder.Read("there.dxf"), "mine");
    EXPECT_EQ(Seen(L"QSAVE\n").find(question), std::wstring::npos);   // its own file
    folder.Write("other.dxf", "mine");
    EXPECT_EQ(Seen(L"EXPERT 2\nSAVE\n" + In(L"other.dxf") + L"\n").find(question), std::wstring::npos);
    EXPECT_NE(folder.Read("other.dxf"), "mine");
}

TEST_F(FileSession, FailuresSayWhy)
{
    folder.Write("letter.dxf", "Dear Sir,\nthis is no drawing.\n");
    struct Row {
        std::wstring typed;
        std::wstring says;
    };
    const Row rows[] = {
        {L"OPEN\n" + In(L"none.dxf") + L"\n", In(L"none.dxf") + L": no such file"},
        {L"OPEN\n" + In(L"letter.dxf") + L"\n", In(L"letter.dxf") + L": line 1"},
        {L"OPEN\n" + folder.DrivePath() + L"\n", folder.DrivePath() + L": it is a folder"},
        {L"SAVEAS 2000\n" + In(L"no\\such\\a.dxf") + L"\n", L"a.dxf: no such file or folder"},
        {L"SAVEAS 2000\n" + In(L"a.txt") + L"\n", L"a.txt: no drawing file format has this extension"},
        {L"SCRIPT\n" + In(L"none.scr") + L"\n", In(L"none.scr") + L": no such file"},
        {L"NEW\n" + In(L"none.dxf") + L"\n", In(L"none.dxf") + L": no such file"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.typed));
        EXPECT_NE(Seen(row.typed).find(row.says), std::wstring::npos);
        EXPECT_FALSE(isGood);
        EXPECT_EQ(OpenDocuments().size(), 1u);
    }
}

TEST_F(FileSession, ClosingTheLastDrawingOpensANewOne)
{
    Seen(L"USERI1 5\nCLOSE N\n");
    EXPECT_EQ(IntegerVar(L"USERI1"), 5);
    Seen(L"CLOSE Y\n");
    EXPECT_EQ(IntegerVar(L"USERI1"), 0);
    EXPECT_EQ(TextVar(L"DWGNAME"), L"Drawing2.dwg");
    EXPECT_EQ(OpenDocuments().size(), 1u);
}

TEST_F(FileSession, ScriptsRunInPlace)
{
    folder.Write("a.scr", "; sets two variables\r\nUSERI1 1\r\nSCRIPT " + folder.Path("b.scr") +
                              "\r\nUSERI3 IntegerOnly\r\n3\r\n");
    folder.Write("b.scr", "USERI2\n2\n");
    Seen(L"SCRIPT\n" + In(L"a") + L"\nUSERI4 4\n");
    EXPECT_FALSE(isGood);   // a bad answer in a.scr
    for (int i = 1; i <= 4; ++i)
        EXPECT_EQ(IntegerVar(L"USERI" + std::to_wstring(i)), i);
}

TEST_F(FileSession, DxfoutWritesACopy)
{
    Seen(L"DXFOUT\n" + In(L"copy.dxf") + L"\nV R12 6\n");
    ASSERT_TRUE(isGood);
    EXPECT_NE(folder.Read("copy.dxf").find("AC1009"), std::string::npos);
    EXPECT_EQ(TextVar(L"DWGNAME"), L"Drawing1.dwg");
    Seen(L"DXFOUT\n" + In(L"binary.dxf") + L"\nB\n");
    EXPECT_EQ(folder.Read("binary.dxf").substr(0, 18), "AutoCAD Binary DXF");
}
