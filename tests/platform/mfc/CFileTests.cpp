#include "mfc/CFile.h"
#include "win/CodePage.h"
#include "win/Files.h"
#include <gtest/gtest.h>

namespace {

class Files : public testing::Test {
protected:
    CString Name(const char* file) { return KxPlat::DrivePath(testing::TempDir() + "kx_" + file).c_str(); }
};

// The cause that opening throws, -1 when it does not.
int CauseOf(const CString& name, UINT flags)
{
    try {
        CFile file(name, flags);
    } catch (CFileException* error) {
        const int cause = error->m_cause;
        error->Delete();
        return cause;
    }
    return -1;
}

TEST_F(Files, LinesAreNarrowAndEndInCarriageReturns)
{
    const unsigned before = KxPlat::AnsiCodePage();
    const bool isThere = KxPlat::SetAnsiCodePage(936);
    const CString name = Name("lines.txt");
    {
        CStdioFile file(name, CFile::modeCreate | CFile::modeWrite | CFile::typeText);
        file.WriteString(L"墙\nab\n");
        file.WriteString(L"end");
    }
    CFile raw(name, CFile::modeRead);
    char bytes[32] = {};
    const UINT count = raw.Read(bytes, 32);
    CStdioFile file(name, CFile::modeRead | CFile::typeText);
    CString line;
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_TRUE(line == L"墙");
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_TRUE(line == L"ab");
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_TRUE(line == L"end");
    EXPECT_FALSE(file.ReadString(line));
    EXPECT_TRUE(line.IsEmpty());
    KxPlat::SetAnsiCodePage(before);
    if (!isThere)
        GTEST_SKIP() << "code page 936 is not available";
    EXPECT_EQ(std::string(bytes, count), "\xC7\xBD\r\nab\r\nend");
}

TEST_F(Files, ModesDecideWhatIsKept)
{
    const CString name = Name("modes.bin");
    {
        CFile file(name, CFile::modeCreate | CFile::modeWrite);
        file.Write("abcdef", 6);
        EXPECT_EQ(file.GetPosition(), 6u);
        EXPECT_EQ(file.Seek(-2, CFile::end), 4u);
        file.Write("XY", 2);
        EXPECT_EQ(file.GetLength(), 6u);
    }
    {
        CFile file(name, CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite);
        char bytes[7] = {};
        EXPECT_EQ(file.Read(bytes, 7), 6u);
        EXPECT_STREQ(bytes, "abcdXY");
        EXPECT_TRUE(file.GetFileName() == L"kx_modes.bin");
    }
    CFile(name, CFile::modeCreate | CFile::modeWrite).Close();
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(name, status));
    EXPECT_EQ(status.m_size, 0u);
    EXPECT_EQ(status.m_attribute, CFile::archive);
    CFile::Remove(name);
    EXPECT_FALSE(CFile::GetStatus(name, status));
}

TEST_F(Files, FailuresSayWhy)
{
    EXPECT_EQ(CauseOf(Name("no such file"), CFile::modeRead), CFileException::fileNotFound);
    EXPECT_EQ(CauseOf(Name("no such folder/file"), CFile::modeCreate | CFile::modeWrite), CFileException::badPath);
    EXPECT_EQ(CauseOf(KxPlat::DrivePath(testing::TempDir()).c_str(), CFile::modeRead), CFileException::accessDenied);
    CFileException error;
    CFile file;
    EXPECT_FALSE(file.Open(Name("no such file"), CFile::modeRead, &error));
    wchar_t message[300];
    ASSERT_TRUE(error.GetErrorMessage(message, 300));
    EXPECT_TRUE(CString(message) == Name("no such file") + L" was not found.");
    try {
        CFile::Remove(Name("no such file"));
        ADD_FAILURE();
    } catch (CFileException* thrown) {
        EXPECT_EQ(thrown->m_cause, CFileException::fileNotFound);
        thrown->Delete();
    }
}

}   // namespace
