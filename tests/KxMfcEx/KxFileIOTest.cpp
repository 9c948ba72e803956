#include "KxMfcEx/KxFileIO.h"
#include "support/AnsiPage.h"
#include "support/TempFolder.h"
#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace KxMfcEx;
using KxTest::AnsiPage;
using KxTest::TempFolder;

class FileIO : public testing::Test {
protected:
    int Write() { return m_io.Open(m_name.c_str(), eKxFileIOWrite); }
    int Read() { return m_io.Open(m_name.c_str(), eKxFileIORead); }
    void Put(const std::string& bytes)
    {
        m_folder.Write("t.txt", bytes);
        ASSERT_EQ(Read(), 1);
    }
    std::string Bytes()
    {
        EXPECT_EQ(m_io.Close(), 0);
        return m_folder.Read("t.txt");
    }
    template <class T>
    T Next(wchar_t separator, T value = T())
    {
        m_io.StreamIO(value, separator);
        return value;
    }
    template <class T>
    void Out(T value, wchar_t separator)
    {
        m_io.StreamIO(value, separator);
    }

    TempFolder m_folder;
    std::wstring m_name = m_folder.DrivePath(L"t.txt");
    CKxFileIO m_io;
};

TEST_F(FileIO, WritesEachTypeAsItsText)
{
    ASSERT_EQ(Write(), 1);
    Out(12, L',');
    Out(1.5, L'\n');
    Out(-7L, L' ');
    Out(0.1f, L';');
    Out(2.0 / 3, L'|');
    Out(CString(L"LAYER 0"), L',');
    wchar_t text[501] = L"abc";
    m_io.StreamIO(text, L'\n');
    EXPECT_EQ(Bytes(), "12,1.500000\r\n-7 0.100000;0.666667|LAYER 0,abc\r\n");
    ASSERT_EQ(Read(), 1);
    EXPECT_EQ(Next<int>(L','), 12);
    EXPECT_EQ(Next<double>(L'\n'), 1.5);
    EXPECT_EQ(Next<long>(L' '), -7);
    EXPECT_EQ(Next<float>(L';'), 0.1f);
    EXPECT_EQ(Next<double>(L'|'), 0.666667);   // six decimals remain
    EXPECT_STREQ(Next<CString>(L','), L"LAYER 0");
    wchar_t back[501] = L"before";
    m_io.StreamIO(back, L'\n');
    EXPECT_STREQ(back, L"abc");
}

TEST_F(FileIO, ReadsUpToTheFirstSeparator)
{
    const AnsiPage page(1252);
    if (!page.IsSet())
        GTEST_SKIP() << "the rows are in page 1252";
    struct Row {
        const char* bytes;
        wchar_t separator;
        std::vector<const wchar_t*> fields;
    };
    static const Row rows[] = {
        {"a,b,c,", L',', {L"a", L"b", L"c"}},
        {",,", L',', {L"", L""}},
        {"one\r\ntwo\n", L'\n', {L"one", L"two"}},
        {"one\r\r\n", L'\n', {L"one"}},         // carriage returns are trimmed at a line end
        {"a\r,b\r,", L',', {L"a\r", L"b\r"}},   // and kept elsewhere
        {"x\r\ny,", L',', {L"x\ny"}},           // a line end inside a field is one character
        {"ab\x1A"
         "cd,",
         L',',
         {L"ab\xFF", L"", L""}},             // byte 26 ends the text
        {"a", L',', {L"a\xFF", L"", L""}},   // the mark of the end joins the last field, once
        {"a,", L',', {L"a", L"\xFF", L""}},
        {"", L',', {L"\xFF", L""}},
        {"\xA9"
         "b,",
         wchar_t(0xA9),
         {L"\xA9"
          L"b,\xFF"}},                                      // a separator from 0x80 on is never found
        {"a,b", wchar_t(L',' + 0x100), {L"a", L"b\xFF"}},   // only its lowest byte counts
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.bytes);
        Put(row.bytes);
        for (const wchar_t* field : row.fields)
            EXPECT_STREQ(Next<CString>(row.separator), field);
    }
}

TEST_F(FileIO, LongFieldsAreSplit)
{
    struct Row {
        int length;
        std::vector<int> pieces;
    };
    static const Row rows[] = {{499, {499, 3}}, {500, {500, 0, 3}}, {501, {500, 1, 3}}, {1000, {500, 500, 0, 3}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.length);
        Put(std::string(size_t(row.length), 'x') + ",end,");
        for (int piece : row.pieces)
            EXPECT_EQ(Next<CString>(L',').GetLength(), piece);
    }
}

TEST_F(FileIO, NumbersAreTheDigitsAtTheStart)
{
    struct Row {
        const char* field;
        int asInt;
        long asLong;
        double asReal;
    };
    static const Row rows[] = {
        {"12abc", 12, 12, 12}, {" -3", -3, -3, -3},
        {"1.9", 1, 1, 1.9},    {"1d2", 1, 1, 100},
        {"", 0, 0, 0},         {"x", 0, 0, 0},
        {"0x10", 0, 0, 0},     {"99999999999", std::numeric_limits<int>::max(), 2147483647, 99999999999.0}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.field);
        Put(std::string(row.field) + "," + row.field + "," + row.field + ",");
        EXPECT_EQ(Next<int>(L',', 5), row.asInt);
        EXPECT_EQ(Next<long>(L',', 5), row.asLong);
        EXPECT_EQ(Next<double>(L',', 5), row.asReal);
    }
    Put("a");
    EXPECT_EQ(Next<int>(L',', 5), 0);
    EXPECT_EQ(Next<int>(L',', 5), 0) << "behind the end";
}

TEST_F(FileIO, ChineseTextInBothCodePages)
{
    struct Row {
        unsigned page;
        const char *bytes, *chopped;
        const wchar_t* mark;   // what the byte 0xFF reads as
    };
    static const Row rows[] = {{936, "\xC7\xBD\xCC\xE5,\xB2\xE3\r\n", "\xC7\xBD", L"墙\xF8F5"},
                               {65001, "墙体,层\r\n", "墙", L"墙\xFFFD"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.page);
        const AnsiPage page(row.page);
        if (!page.IsSet())
            continue;
        ASSERT_EQ(Write(), 1);
        Out(CString(L"墙体"), L',');
        Out(CString(L"层"), L'\n');
        EXPECT_EQ(Bytes(), row.bytes);
        ASSERT_EQ(Read(), 1);
        EXPECT_STREQ(Next<CString>(L','), L"墙体");
        EXPECT_STREQ(Next<CString>(L'\n'), L"层");
        Put(row.chopped);
        EXPECT_STREQ(Next<CString>(L','), row.mark);
    }
}

TEST_F(FileIO, PositionsAreAStack)
{
    EXPECT_EQ(m_io.PushPosition(), 0) << "nothing is open";
    Put("one\r\ntwo\r\nthree\r\n");
    EXPECT_EQ(m_io.PopPosition(), 0);
    EXPECT_STREQ(Next<CString>(L'\n'), L"one") << "an empty stack leaves the place";
    EXPECT_EQ(m_io.PushPosition(), 1);
    EXPECT_STREQ(Next<CString>(L'\n'), L"two");
    EXPECT_EQ(m_io.PushPosition(), 1);
    while (!std::feof(m_io.GetFile()))
        Next<CString>(L'\n');
    EXPECT_EQ(m_io.PopPosition(), 1);
    EXPECT_STREQ(Next<CString>(L'\n'), L"three");
    EXPECT_EQ(m_io.PopPosition(), 1);
    EXPECT_STREQ(Next<CString>(L'\n'), L"two");
    EXPECT_EQ(m_io.PopPosition(), 0);
    m_io.PushPosition();
    m_io.Close();
    ASSERT_EQ(Read(), 1);
    EXPECT_EQ(m_io.PopPosition(), 0) << "Close forgets";
}

TEST_F(FileIO, WrittenFieldsCanBeReplaced)
{
    ASSERT_EQ(Write(), 1);
    Out(1, L'\n');
    m_io.PushPosition();
    Out(2, L'\n');
    Out(3, L'\n');
    m_io.PopPosition();
    Out(7, L'\n');
    EXPECT_EQ(Bytes(), "1\r\n7\r\n3\r\n");
}

TEST_F(FileIO, OpensAndRefuses)
{
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(m_io.GetFile(), nullptr);
    EXPECT_EQ(m_io.IsRead(), 1);
    EXPECT_EQ(m_io.Open(m_folder.DrivePath(L"none\\t.txt").c_str(), eKxFileIOWrite), 0);
    EXPECT_EQ(m_io.GetFileType(), eKxFileIOWrite) << "the mode is stored all the same";
    EXPECT_EQ(m_io.IsRead(), 0);
    EXPECT_EQ(m_io.Open(m_folder.DrivePath().c_str(), eKxFileIORead), 0) << "a folder";
    EXPECT_EQ(m_io.Open(nullptr, eKxFileIORead), 0);
    EXPECT_EQ(m_io.Close(), 0);
    EXPECT_EQ(Next<int>(L',', 5), 5) << "nothing happens on a closed stream";
    ASSERT_EQ(Write(), 1);
    Out(1, L',');
    ASSERT_EQ(Write(), 1);
    EXPECT_EQ(Bytes(), "") << "opening again closes and empties";
    m_folder.Write("t.txt", "x,");
    ASSERT_EQ(m_io.Open(m_name.c_str(), EKxFileIOType(2)), 1);
    EXPECT_STREQ(Next<CString>(L',', CString(L"kept")), L"kept") << "an unknown mode neither reads nor writes";
}

TEST_F(FileIO, VersionTravelsWithTheFile)
{
    int version = 3;
    m_io.StreamIOFileVersion(version, L'\n');
    EXPECT_EQ(m_io.GetFileVersion(), 0) << "closed";
    ASSERT_EQ(Write(), 1);
    m_io.StreamIOFileVersion(version, L'\n');
    EXPECT_EQ(m_io.GetFileVersion(), 3);
    m_io.SetFileVersion(9);
    ASSERT_EQ(Read(), 1);
    version = 0;
    m_io.StreamIOFileVersion(version, L'\n');
    EXPECT_EQ(version, 3);
    EXPECT_EQ(m_io.GetFileVersion(), 3);
}

}   // namespace
