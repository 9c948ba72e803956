// SAVEAS, QSAVE, OPEN and RECOVER on DWG files.
#include "db/AcDbDatabase.h"
#include "EditorTest.h"
#include "support/TempFolder.h"
#include "win/Files.h"

using namespace KxPlat;
using KxTest::Editor;

namespace {

class DwgSession : public Editor {
protected:
    std::wstring In(const wchar_t* name) const { return folder.DrivePath(name); }
    bool HasFile(const std::string& name) const { return std::filesystem::exists(folder.Path(name)); }
    KxTest::TempFolder folder;
};

}   // namespace

TEST_F(DwgSession, ASavedDrawingComesBackInEachVersion)
{
    const struct {
        const wchar_t* keyword;
        const char* begins;
    } rows[] = {{L"2000", "AC1015"}, {L"2010", "AC1024"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.begins);
        const std::wstring name = std::wstring(row.keyword) + L".dwg";
        Seen(L"NEW .\n-LAYER M 墙体\n\nUSERI1 42\nSAVEAS " + std::wstring(row.keyword) + L"\n" + In(name.c_str()) +
             L"\n");
        ASSERT_TRUE(isGood);
        EXPECT_TRUE(folder.Read(std::string(name.begin(), name.end())).starts_with(row.begins));
        EXPECT_FALSE(HasFile("2000.bak"));   // nothing was replaced
        Seen(L"NEW .\n");
        Seen(L"OPEN\n\"" + In(row.keyword) + L"\"\n");   // the extension is found
        ASSERT_TRUE(isGood);
        EXPECT_EQ(IntegerVar(L"USERI1"), 42);
        EXPECT_EQ(TextVar(L"CLAYER"), L"墙体");
    }
}

TEST_F(DwgSession, QsaveKeepsTheVersionAndTheOldFile)
{
    Seen(L"SAVEAS 2000\n" + In(L"a.dwg") + L"\n");
    const std::string before = folder.Read("a.dwg");
    Seen(L"USERI2 5\nQSAVE\n");
    ASSERT_TRUE(isGood);
    EXPECT_TRUE(folder.Read("a.dwg").starts_with("AC1015"));
    EXPECT_EQ(folder.Read("a.bak"), before);
    Seen(L"ISAVEBAK 0\nUSERI2 6\nQSAVE\nISAVEBAK 1\n");
    EXPECT_EQ(folder.Read("a.bak"), before);
    EXPECT_EQ(acDocManager->curDocument()->formatForSave(), AcApDocument::k2000_dwg);
}

TEST_F(DwgSession, AVersionThatCannotBeWrittenIsNamed)
{
    const std::wstring seen = Seen(L"SAVEAS 2018\n" + In(L"new.dwg") + L"\n");
    EXPECT_TRUE(isGood);
    EXPECT_NE(seen.find(L"The file has version 2010: version 2018 cannot be written."), std::wstring::npos);
    EXPECT_TRUE(folder.Read("new.dwg").starts_with("AC1024"));
}

TEST_F(DwgSession, WhatAVersionCannotHoldIsCounted)
{
    const struct {
        const char* drawing;
        const wchar_t* saved;
        bool isLess;
    } rows[] = {{"family_r2000.dwg", L"whole.dwg", false}, {"family_r2004.dwg", L"less.dwg", true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.drawing);
        const std::string path = std::string(KX_DRAWINGS) + "/" + row.drawing;
        if (!std::filesystem::exists(path))
            GTEST_SKIP() << path << " is not here";
        Seen(L"OPEN\n" + DrivePath(path) + L"\n");
        const std::wstring seen = Seen(L"SAVEAS 2000\n" + In(row.saved) + L"\n");
        ASSERT_TRUE(isGood);
        EXPECT_EQ(seen.find(L" objects that this version cannot hold were left out.") != std::wstring::npos,
                  row.isLess);
        Seen(L"OPEN\n" + In(row.saved) + L"\n");
        EXPECT_TRUE(isGood);
    }
}

TEST_F(DwgSession, TheFirstBytesTellWhatAFileIs)
{
    Seen(L"USERI3 7\nSAVEAS 2010\n" + In(L"real.dwg") + L"\n");
    folder.Write("wrong.dxf", folder.Read("real.dwg"));
    Seen(L"NEW .\nOPEN\n" + In(L"wrong.dxf") + L"\n");
    ASSERT_TRUE(isGood);
    EXPECT_EQ(IntegerVar(L"USERI3"), 7);
}

TEST_F(DwgSession, ADamagedFileIsRecoveredAndAudited)
{
    Seen(L"-LAYER M 轴线\n\nSAVEAS 2010\n" + In(L"a.dwg") + L"\n");
    std::string bytes = folder.Read("a.dwg");
    bytes.replace(0x80, 0x60, 0x60, '\xEE');   // the header; its copy at the end is whole
    folder.Write("b.dwg", bytes);
    const std::wstring seen = Seen(L"RECOVER\n" + In(L"b.dwg") + L"\n");
    EXPECT_NE(seen.find(L"the file's header is damaged"), std::wstring::npos);
    EXPECT_NE(seen.find(L"Total faults found 1, objects that could not be read 0."), std::wstring::npos);
    EXPECT_NE(seen.find(L"Total errors found"), std::wstring::npos);
    EXPECT_EQ(TextVar(L"CLAYER"), L"轴线");
}

TEST_F(DwgSession, WhatIsNoDrawingIsRefused)
{
    folder.Write("a.dwg", "AC1024 and nothing else");
    folder.Write("b.dwg", "Dear Sir");
    folder.Write("c.dwg", "AC1009" + std::string(500, '\0'));
    const struct {
        const wchar_t* name;
        const wchar_t* says;
    } rows[] = {{L"a.dwg", L"the file ends within its first bytes"},
                {L"b.dwg", L"this is no drawing"},
                {L"c.dwg", L"drawings of version AC1009 cannot be read"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.name)));
        EXPECT_NE(Seen(std::wstring(L"OPEN\n") + In(row.name) + L"\n").find(row.says), std::wstring::npos);
        EXPECT_FALSE(isGood);
    }
}
