// Windows names only: these rows hold on any implementation of the calls.
#include "KxWin.h"
#include "support/AnsiPage.h"
#include "support/DriveC.h"
#include "support/TempFolder.h"
#include <gtest/gtest.h>

namespace {

using KxTest::AnsiPage;
using KxTest::DriveC;
using KxTest::TempFolder;
using namespace std::string_literals;

const char kFile[] =
    "toplevel=before any section\r\n"
    "[Sec]\r\nplain=value\r\nquoted=\"dq value\"\r\nsquoted='sq value'\r\nmixq=\"abc'\r\ninnerq=ab\"cd\"ef\r\n"
    "onlyleft=\"abc\r\nqq=\"\"\r\nq1=\"\r\ndoubleq=\"\"abc\"\"\r\nqspace=\"  lead and trail  \"\r\n"
    "onlyright=abc\"\r\ntrail=abc   \r\nUPPER=U\r\nqthen=\"abc\" def\r\nqtrail=\"abc\"   \r\n   indented   =   "
    "indentval\r\nintab=a\tb\r\neqs=a=b=c\r\n"
    ";comment=1\r\n#hash=2\r\nsemi=abc ; not comment\r\nempty=\r\nblank=   \r\nnovalue\r\n=noname\r\n"
    "dup=first\r\ndup=second\r\nkey with space=kws\r\n"
    "num=12abc\r\nneg=-5\r\nhex=0x1F\r\nplus=+7\r\nspnum=  42\r\nbig=4294967299\r\n\r\n"
    "[ Spaced ]\r\nk=sp\r\n[sec]\r\nonlysecond=1\r\n[A]B]\r\nk=brk\r\n[Sec2] tail\r\nk=after\r\n   [Ind]\r\n k = "
    "ind\r\n[Empty]\r\n"
    "[Last]\r\nlast=noeol";

class Profile : public testing::Test {
protected:
    void SetUp() override
    {
        m_folder.Write("t.ini", kFile);
        m_file = m_folder.DrivePath(L"t.ini");
    }

    std::wstring Get(const wchar_t* section, const wchar_t* key, const wchar_t* defaultText = L"<def>",
                     DWORD size = 1024) const
    {
        std::wstring buffer(1026, L'#');
        const DWORD length = GetPrivateProfileStringW(section, key, defaultText, buffer.data(), size, m_file.c_str());
        return buffer.substr(0, length);
    }

    DriveC m_drive;
    TempFolder m_folder;
    std::wstring m_file;
};

TEST_F(Profile, Values)
{
    struct Row {
        const wchar_t *section, *key, *value;
    };
    static const Row rows[] = {
        {L"Sec", L"plain", L"value"},
        {L"SEC", L"PLAIN", L"value"},
        {L"sec", L"onlysecond", L"<def>"},
        {L"Sec", L"quoted", L"dq value"},
        {L"Sec", L"squoted", L"sq value"},
        {L"Sec", L"mixq", L"\"abc'"},
        {L"Sec", L"innerq", L"ab\"cd\"ef"},
        {L"Sec", L"onlyleft", L"\"abc"},
        {L"Sec", L"onlyright", L"abc\""},
        {L"Sec", L"trail", L"abc"},
        {L"Sec", L"upper", L"U"},
        {L"Sec", L"indented   ", L"indentval"},
        {L"Sec", L"hash", L"<def>"},
        {L"Ind", L"k", L"ind"},
        {L"Sec", L"qq", L""},
        {L"Sec", L"q1", L"\""},
        {L"Sec", L"doubleq", L"\"abc\""},
        {L"Sec", L"qspace", L"  lead and trail  "},
        {L"Sec", L"qthen", L"\"abc\" def"},
        {L"Sec", L"qtrail", L"abc"},
        {L"Sec", L" indented ", L"indentval"},
        {L"Sec", L"intab", L"a\tb"},
        {L"Sec", L"eqs", L"a=b=c"},
        {L"Sec", L"comment", L"<def>"},
        {L"Sec", L"#hash", L"2"},
        {L"Sec", L"semi", L"abc ; not comment"},
        {L"Sec", L"empty", L""},
        {L"Sec", L"blank", L""},
        {L"Sec", L"novalue", L"<def>"},
        {L"Sec", L"", L"noname"},
        {L"Sec", L"dup", L"first"},
        {L"Sec", L"key with space", L"kws"},
        {L"NoSec", L"plain", L"<def>"},
        {L" Sec ", L"plain", L"value"},
        {L"Spaced", L"k", L"sp"},
        {L" Spaced ", L"k", L"sp"},
        {L"A]B", L"k", L"brk"},
        {L"A", L"k", L"<def>"},
        {L"Sec2", L"k", L"after"},
        {L"", L"k", L"<def>"},
        {L"", L"toplevel", L"before any section"},
        {L"Last", L"last", L"noeol"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Get(row.section, row.key), row.value)
            << testing::PrintToString(row.section) << testing::PrintToString(row.key);
}

TEST_F(Profile, DefaultsLoseTheirLastBlanksAndQuotes)
{
    EXPECT_EQ(Get(L"Sec", L"nokey", nullptr), L"");
    EXPECT_EQ(Get(L"Sec", L"nokey", L"  d e f  "), L"  d e f");
    EXPECT_EQ(Get(L"Sec", L"nokey", L"\"q\""), L"q");
    EXPECT_EQ(Get(L"Sec", L"nokey", L"abcdef", 4), L"abc");
}

TEST_F(Profile, SmallBuffersCutValues)
{
    static const wchar_t* const kept[] = {L"", L"", L"v", L"va", L"val", L"valu", L"value", L"value"};
    for (DWORD size = 0; size < ARRAYSIZE(kept); ++size) {
        SCOPED_TRACE(size);
        std::wstring buffer(10, L'#');
        const DWORD length = GetPrivateProfileStringW(L"Sec", L"plain", L"", buffer.data(), size, m_file.c_str());
        EXPECT_EQ(buffer.substr(0, length), kept[size]);
        EXPECT_EQ(buffer.substr(length, 2), size == 0 ? L"##"s : L"\0#"s);
    }
}

TEST_F(Profile, LongValuesAreCut)
{
    EXPECT_EQ(Get(L"Sec", L"quoted", L"", 4), L"dq ");
    m_folder.Write("t.ini", "[Sec]\r\nlong=" + std::string(300, 'x') + "\r\n");
    EXPECT_EQ(Get(L"Sec", L"long", L"", 260).size(), 259u);
}

TEST_F(Profile, AFileIsReadAnewEachTime)
{
    m_folder.Write("t.ini", "[S]\r\nk=1\r\n");
    EXPECT_EQ(Get(L"S", L"k"), L"1");
    m_folder.Write("t.ini", "[S]\r\nk=2\r\n");
    EXPECT_EQ(Get(L"S", L"k"), L"2");
}

TEST_F(Profile, TheCurrentFolderIsNotSearched)
{
    wchar_t before[520];
    _wgetcwd(before, 520);
    _wchdir(m_folder.DrivePath().c_str());
    m_file = L"t.ini";
    EXPECT_EQ(Get(L"Sec", L"plain"), L"<def>");
    m_file = L".\\t.ini";
    EXPECT_EQ(Get(L"Sec", L"plain"), L"value");
    _wchdir(before);
}

TEST_F(Profile, Lists)
{
    const std::wstring sections = L"Sec\0Spaced\0sec\0A]B\0Sec2\0Ind\0Empty\0Last\0"s;
    EXPECT_EQ(Get(nullptr, nullptr), sections);
    EXPECT_EQ(Get(nullptr, L"plain"), sections);
    EXPECT_EQ(Get(nullptr, nullptr, L"d", 8), L"Sec\0Sp"s);
    EXPECT_EQ(Get(L"Last", nullptr), L"last\0"s);
    EXPECT_EQ(Get(L"Empty", nullptr, L"d"), L"d");
    EXPECT_EQ(Get(L"NoSec", nullptr, L"d"), L"d");
    EXPECT_EQ(Get(L"Sec", nullptr, L"d", 10), L"plain\0qu"s);
    EXPECT_EQ(Get(L"Sec", nullptr, L"d", 2), L"d");
    EXPECT_EQ(Get(L"Sec", nullptr, L"d", 1), L"");
    const std::wstring keys = Get(L"Sec", nullptr);
    EXPECT_EQ(keys.find(L"comment"), std::wstring::npos);
    EXPECT_EQ(keys.find(L"novalue"), std::wstring::npos);
    EXPECT_NE(keys.find(L"blank\0\0dup\0dup\0key with space\0"s), std::wstring::npos);

    wchar_t list[64];
    EXPECT_EQ(GetPrivateProfileSectionNamesW(list, 64, m_file.c_str()), sections.size());
    EXPECT_EQ(GetPrivateProfileSectionW(L"Last", list, 64, m_file.c_str()), 11u);
    EXPECT_EQ(std::wstring(list, 12), L"last=noeol\0\0"s);
    EXPECT_EQ(GetPrivateProfileSectionW(L"Sec", list, 12, m_file.c_str()), 10u);
    EXPECT_EQ(std::wstring(list, 12), L"plain=valu\0\0"s);
}

TEST_F(Profile, Numbers)
{
    struct Row {
        const wchar_t* key;
        UINT value;
    };
    static const Row rows[] = {{L"num", 12}, {L"neg", UINT(-5)}, {L"hex", 31},  {L"plus", 7},   {L"spnum", 42},
                               {L"big", 3},  {L"empty", 99},     {L"plain", 0}, {L"nokey", 99}, {L"quoted", 0}};
    for (const Row& row : rows)
        EXPECT_EQ(GetPrivateProfileIntW(L"Sec", row.key, 99, m_file.c_str()), row.value)
            << testing::PrintToString(row.key);
}

TEST_F(Profile, FilesThatCannotBeRead)
{
    struct Row {
        std::wstring file;
        DWORD error;
    };
    const Row rows[] = {{m_folder.DrivePath(L"missing.ini"), ERROR_FILE_NOT_FOUND},
                        {m_folder.DrivePath(L"no\\t.ini"), ERROR_PATH_NOT_FOUND},
                        {m_folder.DrivePath() + L"\\", ERROR_ACCESS_DENIED},
                        {m_file + L"\\", ERROR_INVALID_NAME},
                        {L"", ERROR_ACCESS_DENIED}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.file));
        wchar_t buffer[8] = L"#######";
        EXPECT_EQ(GetPrivateProfileStringW(L"Sec", L"plain", L"d", buffer, 8, row.file.c_str()), 1u);
        EXPECT_EQ(GetLastError(), row.error);
        EXPECT_STREQ(buffer, L"d");
    }
    EXPECT_EQ(Get(L"Sec", L"plain"), L"value");
    m_file = m_folder.DrivePath(L"T.INI");
    EXPECT_EQ(Get(L"Sec", L"plain"), L"value");
}

TEST_F(Profile, BareNamesLieInTheWindowsFolder)
{
    EXPECT_TRUE(WritePrivateProfileStringW(L"S", L"k", L"fromwin", L"bare.ini"));
    std::ifstream in(m_drive.Path("windows/bare.ini"), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "[S]\r\nk=fromwin\r\n");
    m_file = L"bare.ini";
    EXPECT_EQ(Get(L"S", L"k"), L"fromwin");
    in.close();
    EXPECT_TRUE(DeleteFileW(L"C:\\windows\\bare.ini"));
}

TEST_F(Profile, Encodings)
{
    const AnsiPage page(1252);
    if (!page.IsSet())
        GTEST_SKIP() << "the rows are in page 1252";
    struct Row {
        const char* name;
        std::string bytes;
        const wchar_t *k, *k2;
    };
    const Row rows[] = {
        {"UTF-16LE with mark", "\xFF\xFE[\0S\0]\0\n\0k\0=\0\x2D\x4E\x87\x65\n\0k\0002\0=\0b\0"s, L"中文", L"b"},
        {"UTF-16BE with mark", "\xFE\xFF\0[\0S\0]\0\n\0k\0=\x4E\x2D\x65\x87\0\n\0k\0002\0=\0b"s, L"中文", L"b"},
        {"UTF-16LE without mark", "[\0S\0]\0\n\0k\0=\0\x2D\x4E\n\0k\0002\0=\0b\0"s, L"<def>", L"<def>"},
        {"ANSI", "[S]\r\nk=\xC7\xE9\r\nk2=b\r\n", L"Çé", L"b"},
        {"UTF-16LE without mark, ASCII only", "[\0S\0]\0\n\0k\0=\0a\0\n\0k\0002\0=\0b\0"s, L"<def>", L"<def>"},
        {"blank line inside", "[S]\r\nk=a\r\n\r\nk2=b\r\n", L"a", L"b"},
        {"blank in the name", "[S ]\r\nk=a\r\nk2=b", L"a", L"b"},
        {"LF ends", "[S]\nk=a\nk2=b\n", L"a", L"b"},
        {"CR ends", "[S]\rk=a\rk2=b\r", L"a", L"b"},
        {"Ctrl-Z", "[S]\r\nk=a\r\n\x1Ak2=b\r\n", L"a", L"b"},
        {"VT and FF", "[S]\r\n\vk=\fa\r\n k2 =b\r\n", L"a", L"b"},
        {"section twice", "[S]\r\nk=a\r\n[S]\r\nk2=b\r\n", L"a", L"<def>"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        m_folder.Write("t.ini", row.bytes);
        EXPECT_EQ(Get(L"S", L"k"), row.k);
        EXPECT_EQ(Get(L"S", L"k2"), row.k2);
    }
}

TEST_F(Profile, Writing)
{
    const AnsiPage page(1252);
    if (!page.IsSet())
        GTEST_SKIP() << "the rows are in page 1252";
    const std::string base = "; head\r\n[S]\r\na=1\r\nb=2\r\n[T]\r\nc=3\r\n";
    struct Row {
        const char* name;
        std::string before;
        const wchar_t *section, *key, *value;
        std::string after;
    };
    const Row rows[] = {
        {"new file", "", L"S", L"k", L"v", "[S]\r\nk=v\r\n"},
        {"empty value", "", L"S", L"k", L"", "[S]\r\nk=\r\n"},
        {"quotes stay", "", L"S", L"k", L"\"v\"", "[S]\r\nk=\"v\"\r\n"},
        {"ANSI", "", L"S", L"k", L"Çé", "[S]\r\nk=\xC7\xE9\r\n"},
        {"change", base, L"s", L"B", L"9", "; head\r\n[S]\r\na=1\r\nb=9\r\n[T]\r\nc=3\r\n"},
        {"add key", base, L"S", L"z", L"9", "; head\r\n[S]\r\na=1\r\nb=2\r\nz=9\r\n[T]\r\nc=3\r\n"},
        {"delete key", base, L"S", L"b", nullptr, "; head\r\n[S]\r\na=1\r\n[T]\r\nc=3\r\n"},
        {"delete section", base, L"S", nullptr, nullptr, "; head\r\n[T]\r\nc=3\r\n"},
        {"delete missing key", base, L"S", L"nope", nullptr, base},
        {"new section", base, L"N", L"a", L"1", base + "[N]\r\na=1\r\n"},
        {"no line end", "[S]\r\na=1", L"S", L"b", L"2", "[S]\r\na=1\r\nb=2\r\n"},
        {"LF file", "[S]\na=1\n", L"S", L"a", L"2", "[S]\r\na=2\r\n"},
        {"duplicate key", "[S]\r\na=1\r\na=2\r\n", L"S", L"a", L"9", "[S]\r\na=9\r\na=2\r\n"},
        {"quoted value", "[S]\r\na=\"1\"\r\n", L"S", L"a", L"2", "[S]\r\na=2\r\n"},
        {"same value again", base, L"S", L"a", L"1", base},
        {"UTF-16", "\xFF\xFE[\0S\0]\0\r\0\n\0"s, L"S", L"a", L"中", "\xFF\xFE[\0S\0]\0\r\0\n\0a\0=\0\x2D\x4E\r\0\n\0"s},
        {"bytes of other lines", "[S]\r\nx=\xC7\xBD\r\n", L"S", L"a", L"1", "[S]\r\nx=\xC7\xBD\r\na=1\r\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        m_folder.Write("t.ini", row.before);
        EXPECT_TRUE(WritePrivateProfileStringW(row.section, row.key, row.value, m_file.c_str()));
        EXPECT_EQ(m_folder.Read("t.ini"), row.after);
    }
    EXPECT_FALSE(WritePrivateProfileStringW(L"S", L"k", L"v", m_folder.DrivePath(L"no\\t.ini").c_str()));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

TEST_F(Profile, ChineseInItsOwnPage)
{
    const AnsiPage page(936);
    if (!page.IsSet())
        GTEST_SKIP() << "another code page";
    m_folder.Write("t.ini", "[S]\r\nk=\xD6\xD0\xCE\xC4\r\n");
    EXPECT_EQ(Get(L"S", L"k"), L"中文");
    EXPECT_TRUE(WritePrivateProfileStringW(L"S", L"k", L"中", m_file.c_str()));
    EXPECT_EQ(m_folder.Read("t.ini"), "[S]\r\nk=\xD6\xD0\r\n");
}

TEST_F(Profile, BytesThatAreNoCharactersStay)
{
    const AnsiPage page(65001);
    if (!page.IsSet())
        GTEST_SKIP() << "in a page of one or two bytes each byte is a part of a character";
    m_folder.Write("t.ini", "[S]\r\nx=\xC7\xBD\r\n");
    EXPECT_TRUE(WritePrivateProfileStringW(L"S", L"a", L"中", m_file.c_str()));
    EXPECT_EQ(m_folder.Read("t.ini"), "[S]\r\nx=\xC7\xBD\r\na=\xE4\xB8\xAD\r\n");
    EXPECT_EQ(Get(L"S", L"a"), L"中");
}

}   // namespace
