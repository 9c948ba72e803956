#include "KxMfcEx/StrFunLib.h"
#include "support/AnsiPage.h"
#include "support/TempFolder.h"
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

using KxTest::AnsiPage;
using KxTest::TempFolder;
using Texts = std::vector<std::wstring>;

Texts TextsOf(const CStringArray& array)
{
    Texts texts;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        texts.emplace_back(array[i].GetString());
    return texts;
}

Texts TextsOf(const std::vector<CString>& strings)
{
    Texts texts;
    for (const CString& text : strings)
        texts.emplace_back(text.GetString());
    return texts;
}

struct Array : CStringArray {
    explicit Array(const Texts& texts)
    {
        for (const std::wstring& text : texts)
            Add(text.c_str());
    }
};

TEST(StrFunLib, EmptyFieldsDifferFromSplitToSplit)
{
    struct Row {
        const wchar_t* text;
        Texts full, kept, tokens, trimmed;   // without and with empty fields, by tokens, by trimmed fields
    };
    static const Row rows[] = {
        {L"a,,b", {L"a", L"b"}, {L"a", L"", L"b"}, {L"a"}, {L"a", L"b"}},
        {L"a,b,", {L"a", L"b"}, {L"a", L"b", L""}, {L"a", L"b"}, {L"a", L"b"}},
        {L",a", {L"a"}, {L"", L"a"}, {}, {L"a"}},
        {L"a", {L"a"}, {L"a"}, {L"a"}, {L"a"}},
        {L"", {}, {L""}, {}, {}},
        {L",", {}, {L"", L""}, {}, {}},
        {L" 墙 ,\t,层", {L" 墙 ", L"\t", L"层"}, {L" 墙 ", L"\t", L"层"}, {L" 墙 ", L"\t", L"层"}, {L"墙", L"层"}},
        {L"\"a,b\",c", {L"\"a", L"b\"", L"c"}, {L"\"a", L"b\"", L"c"}, {L"\"a", L"b\"", L"c"}, {L"\"a", L"b\"", L"c"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.text));
        Array out({L"old"});
        CStrFunLib::SplitString(row.text, out, L',', 0);
        EXPECT_EQ(TextsOf(out), row.full);
        CStrFunLib::SplitString(row.text, out, L',', 1);
        EXPECT_EQ(TextsOf(out), row.kept);
        EXPECT_EQ(TextsOf(CStrFunLib::SplitString(row.text, L",")), row.tokens);
        std::vector<CString> fields = {L"old"};
        EXPECT_EQ(CStrFunLib::SplitString(row.text, ',', fields), int(row.trimmed.size()));
        Texts appended = {L"old"};
        appended.insert(appended.end(), row.trimmed.begin(), row.trimmed.end());
        EXPECT_EQ(TextsOf(fields), appended);
    }
}

TEST(StrFunLib, TokensEndAtTheWholeDelimiter)
{
    struct Row {
        const wchar_t *text, *delimiter;
        int position;
        const wchar_t* token;
        int next;
    };
    static const Row rows[] = {{L"a::b:c", L"::", 0, L"a", 3},   {L"a::b:c", L"::", 3, L"b:c", -1},
                               {L"a::b", L"::", -1, L"", -1},    {L"a::b", L"::", -7, L"", -1},
                               {L"ab", L"b", 2, L"", -1},        {L"::a", L"::", 0, L"", 2},
                               {L"图层;墙", L";", 0, L"图层", 3}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.text) + std::to_string(row.position));
        int position = row.position;
        EXPECT_STREQ(CStrFunLib::GettokenStr(row.text, row.delimiter, position), row.token);
        EXPECT_EQ(position, row.next);
    }
}

TEST(StrFunLib, TokenizerStopsAtAnEmptyToken)
{
    struct Row {
        const char* text;
        std::vector<std::string> tokens;
    };
    static const Row rows[] = {{"a b;c", {"a", "b", "c"}},       {"a; b", {"a"}}, {" a", {}}, {"", {}}, {"a;", {"a"}},
                               {"\xC7\xBD;x", {"\xC7\xBD", "x"}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        char buffer[32];
        std::strcpy(buffer, row.text);
        std::vector<std::string> tokens;
        for (char* token = CStrFunLib::strtokNoPass(buffer, " ;"); token != nullptr;
             token = CStrFunLib::strtokNoPass(nullptr, " ;"))
            tokens.push_back(token);
        EXPECT_EQ(tokens, row.tokens);
        EXPECT_EQ(CStrFunLib::strtokNoPass(nullptr, " ;"), nullptr) << "the scan has ended";
    }
}

TEST(StrFunLib, PatternsAreNotAnchored)
{
    struct Row {
        const wchar_t *pattern, *text;
        int answer;
    };
    static const Row rows[] = {
        {L"*B*", L"xxbyy", 1},     {L"ab", L"AB", 1},   {L"ab", L"xab", 0},    {L"ab*", L"xxabyy", 1},
        {L"*ab", L"xxabyy", 1},    {L"a*c", L"cxa", 0}, {L"a*c", L"xaxcx", 1}, {L"ab*b", L"ab", 0},
        {L"a*a", L"a", 0},         {L"*", L"", 1},      {L"", L"", 1},         {L"", L"a", 0},
        {L"墙*", L"图层-墙体", 1}, {L"ÄB*", L"xäb", 1}, {L"a**b", L"ab", 1},   {nullptr, L"", 1},
        {L"a", nullptr, 0},        {L"*a", nullptr, 0}, {L"a?c", L"abc", 0}};
    for (const Row& row : rows)
        EXPECT_EQ(CStrFunLib::CompareNoCaseWithFormat(row.pattern, row.text), row.answer)
            << testing::PrintToString(row.pattern) << testing::PrintToString(row.text);
}

TEST(StrFunLib, FormsMatchWhole)
{
    struct Row {
        const wchar_t *text, *form;
        int answer;
    };
    static const Row rows[] = {{L"A-12", L"@-##", 1},
                               {L"A-1", L"@-##", 0},
                               {L"A-123", L"@-##", 0},
                               {L"墙-12", L"@-##", 1},
                               {L"1-12", L"@-##", 0},
                               {L"abc.DWG", L"*.dwg", 1},
                               {L"abc.dwgx", L"*.dwg", 0},
                               {L"a.dwg.dwg", L"*.dwg", 1},
                               {L"", L"*", 1},
                               {L"", L"?", 0},
                               {L"#", L"`#", 1},
                               {L"1", L"`#", 0},
                               {L"`", L"`", 1},
                               {L"aXbXc", L"a*x?", 1},
                               {nullptr, nullptr, 1}};
    for (const Row& row : rows)
        EXPECT_EQ(CStrFunLib::AssertString(row.text, row.form), row.answer)
            << testing::PrintToString(row.text) << testing::PrintToString(row.form);
}

TEST(StrFunLib, ModuleNamesFollowTheRelease)
{
    struct Row {
        const wchar_t* name;
        int release;
        const wchar_t* result;
    };
    static const Row rows[] = {{L"ToolK.ARX", 18, L"ToolK10.arx"},
                               {L"ToolK.ARX", 20, L"Tool.arx"},
                               {L"toolk.arx", 15, L"toolK.arx"},
                               {L"ToolK.arx", 16, L"ToolK6.arx"},
                               {L"ToolK.arx", 17, L"ToolK8.arx"},
                               {L"ToolK.arx", 19, L"ToolK13.arx"},
                               {L"ToolK.arx", 180, L"Tool.arx"},
                               {L"Tool.arx", 18, L"Tool.arx"},
                               {L"ToolK.arx.bak", 18, L"ToolK.arx.bak"},
                               {L"k.arx", 18, L"K10.arx"},
                               {L"arx", 18, L"arx"}};
    for (const Row& row : rows) {
        CString name(row.name);
        CStrFunLib::GetKxArxVerName(name, row.release, 64);
        EXPECT_STREQ(name, row.result) << testing::PrintToString(row.name);
    }
}

TEST(StrFunLib, TrimmingNeverHalvesACharacter)
{
    struct Row {
        unsigned page;
        const char* text;
        int count;
        const char *front, *end;
    };
    static const Row rows[] = {
        {936,
         "a\xC7\xBD"
         "b",
         -1,
         "a\xC7\xBD"
         "b",
         "a\xC7\xBD"
         "b"},
        {936,
         "a\xC7\xBD"
         "b",
         9,
         "a\xC7\xBD"
         "b",
         "a\xC7\xBD"
         "b"},
        {936,
         "a\xC7\xBD"
         "b",
         0, "", ""},
        {936,
         "a\xC7\xBD"
         "b",
         1, "a", "b"},
        {936,
         "a\xC7\xBD"
         "b",
         2, "a", "b"},
        {936,
         "a\xC7\xBD"
         "b",
         3, "a\xC7\xBD",
         "\xC7\xBD"
         "b"},
        {936, "\xCC\xE5\xB2\xE3", 3, "\xCC\xE5", "\xB2\xE3"},
        {936, "a\xC7", -1, "a", "a\xC7"},              // half a character was there before
        {936, "\xCE\\b", 2, "\xCE\\", "b"},            // "\" is the second half of one
        {1252, "a\xC7\xBD", 2, "a\xC7", "\xC7\xBD"},   // one byte each
        {65001, "墙b", 1, "", "b"},
        {65001, "墙b", 2, "", "b"},
        {65001, "墙b", 3, "墙", "b"},
        {65001, "墙b", 4, "墙b", "墙b"},
        {65001, "a😀é", 3, "a", "é"},
        {65001, "a😀é", 6, "a😀", "😀é"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.text) + " " + std::to_string(row.count));
        const AnsiPage page(row.page);
        if (!page.IsSet())
            continue;
        char buffer[32];
        EXPECT_STREQ(CStrFunLib::StrTrimValid(std::strcpy(buffer, row.text), row.count), row.front);
        EXPECT_STREQ(CStrFunLib::StrTrimReverseValid(std::strcpy(buffer, row.text), row.count), row.end);
    }
    wchar_t wide[] = L"墙体层";
    EXPECT_STREQ(CStrFunLib::StrTrimValid(wide, 2), L"墙体");
    EXPECT_STREQ(CStrFunLib::StrTrimReverseValid(wide, 1), L"体");
    const wchar_t pair[] = {L'a', wchar_t(0xD83D), wchar_t(0xDE00), L'b', 0};
    wchar_t halves[5];
    EXPECT_STREQ(CStrFunLib::StrTrimValid(std::wcscpy(halves, pair), 2), L"a");
    EXPECT_STREQ(CStrFunLib::StrTrimReverseValid(std::wcscpy(halves, pair), 2), L"b");
}

TEST(StrFunLib, FindsAndReplacesInAnyCase)
{
    EXPECT_EQ(CStrFunLib::FindNoCase(L"图层ABCabc", L"aBc"), 2);
    EXPECT_EQ(CStrFunLib::FindNoCase(L"图层ABCabc", L"aBc", 3), 5);
    EXPECT_EQ(CStrFunLib::FindNoCase(L"abc", L"d"), -1);
    EXPECT_EQ(CStrFunLib::FindNoCase(nullptr, L"d"), -1);
    struct Row {
        const wchar_t *text, *oldText, *newText;
        int size, count;
        const wchar_t* result;
    };
    static const Row rows[] = {{L"Wall-WALL", L"wall", L"墙", 20, 2, L"墙-墙"},
                               {L"aXa", L"x", L"", 20, 1, L"aa"},
                               {L"aaa", L"A", L"aa", 20, 3, L"aaaaaa"},
                               {L"aaa", L"A", L"aa", 6, -1, L"aaa"},
                               {L"aaa", L"A", L"aa", 7, 3, L"aaaaaa"},
                               {L"abc", L"", L"x", 20, 0, L"abc"},
                               {L"abc", L"B", nullptr, 20, 1, L"ac"}};
    for (const Row& row : rows) {
        wchar_t buffer[20];
        std::wcscpy(buffer, row.text);
        EXPECT_EQ(CStrFunLib::ReplaceNoCase(buffer, row.size, row.oldText, row.newText), row.count);
        EXPECT_STREQ(buffer, row.result);
    }
    CString text(L"aabbaabb");
    EXPECT_EQ(CStrFunLib::RemoveStr(text, L"ab"), 2);
    EXPECT_STREQ(text, L"abab") << "one pass";
    EXPECT_STREQ(CStrFunLib::RepalceSigns(L"a/b\\c:d", L"/\\:", L'_'), L"a_b_c_d");
    EXPECT_STREQ(CStrFunLib::RemoveTaileDotes(L"..a.b.."), L"..a.b");
    EXPECT_STREQ(CStrFunLib::RemoveHeaderDotes(L"..a.b.."), L"a.b..");
}

TEST(StrFunLib, ListsOfTexts)
{
    CStringArray list;
    EXPECT_EQ(CStrFunLib::StringToStringArray(L"a--b----c-", L"--", list), 4);
    EXPECT_EQ(TextsOf(list), (Texts{L"a", L"b", L"", L"c-"}));
    EXPECT_EQ(CStrFunLib::StringToStringArray(L"a", L"", list), 1);
    EXPECT_STREQ(CStrFunLib::GetStringSplit(L"a;墙;", 1, L';'), L"墙");
    EXPECT_STREQ(CStrFunLib::GetStringSplit(L"a;墙;", 3, L';'), L"");
    EXPECT_STREQ(CStrFunLib::GetStringSplit(L"a;墙;", -1, L';'), L"");
    EXPECT_EQ(CStrFunLib::IsInSplitCString(L"Wall;Door", L"DOOR", L';'), 1);
    EXPECT_EQ(CStrFunLib::IsInSplitCString(L"Wall;Door", L"Doo", L';'), 0);
    EXPECT_EQ(CStrFunLib::IsInSplitCString(L"a;;b", L"", L';'), 1);
    EXPECT_STREQ(CStrFunLib::LinkArrayString(Array({L"a", L"", L"b"}), L", "), L"a, , b");
    Array repeated({L"b", L"a", L"B", L"a", L"b"});
    EXPECT_EQ(CStrFunLib::UniqueStrAry(repeated), 2);
    EXPECT_EQ(TextsOf(repeated), (Texts{L"b", L"a", L"B"}));
}

TEST(StrFunLib, PartsOfFileNames)
{
    struct Row {
        const wchar_t *file, *folder, *name, *base, *extension;
    };
    static const Row rows[] = {{L"C:\\图纸\\a.b.dwg", L"C:\\图纸\\", L"a.b.dwg", L"a.b", L"dwg"},
                               {L"C:\\dir.x\\file", L"C:\\dir.x\\", L"file", L"file", L""},
                               {L"/dir/x.dxf", L"/dir/", L"x.dxf", L"x", L"dxf"},
                               {L"C:x.dxf", L"C:", L"x.dxf", L"x", L"dxf"},
                               {L"x.", L"", L"x.", L"x", L""},
                               {L"C:\\dir\\", L"C:\\dir\\", L"", L"", L""},
                               {L".cfg", L"", L".cfg", L"", L"cfg"},
                               {nullptr, L"", L"", L"", L""}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.file));
        EXPECT_STREQ(CStrFunLib::GetFilePath(row.file), row.folder);
        EXPECT_STREQ(CStrFunLib::GetFileName(row.file), row.name);
        EXPECT_STREQ(CStrFunLib::GetFileBaseName(row.file), row.base);
        EXPECT_STREQ(CStrFunLib::GetFileExtName(row.file), row.extension);
        EXPECT_EQ(CStrFunLib::IsExistEXTName(row.file), row.extension[0] != 0 ? 1 : 0);
    }
    EXPECT_EQ(CStrFunLib::IsExistEXTName(L"a.DWG", L".dwg"), 1);
    EXPECT_EQ(CStrFunLib::IsExistEXTName(L"a.dwg", L"dxf"), 0);
    static const struct {
        std::wstring name;
        int answer;
    } names[] = {{L"图 1.dwg", 1},
                 {L"", 0},
                 {L"a:b", 0},
                 {L"a\tb", 0},
                 {L"a*", 0},
                 {L"a.", 0},
                 {L"a ", 0},
                 {L"nul", 0},
                 {L"Com1.txt", 0},
                 {L"com0", 1},
                 {L"console", 1},
                 {L"lpt9", 0},
                 {L"a/b", 0},
                 {std::wstring(255, L'a'), 1},
                 {std::wstring(256, L'a'), 0}};
    for (const auto& row : names)
        EXPECT_EQ(CStrFunLib::checkFileName(row.name.c_str()), row.answer) << testing::PrintToString(row.name);
    wchar_t own[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, own, MAX_PATH);
    EXPECT_STREQ(CStrFunLib::GetCurExeRunPath() + CStrFunLib::GetFileName(own), own);
}

TEST(StrFunLib, SearchesFolders)
{
    const TempFolder folder;
    std::filesystem::create_directories(folder.Path("Wand/innen"));
    const bool isLinked = KxTest::LinkFolder(folder.Path(), folder.Path("Wand/wandkreis"));
    for (const char* name : {"wand1.dwg", "x.dwg", "Wand/INNENWAND.dxf"})
        folder.Write(name, "x");
    const auto search = [&](const std::wstring& where, const wchar_t* part, int subFolders) {
        CStringArray found;
        const int count = CStrFunLib::BlurSearchPath(where.c_str(), part, found, subFolders);
        EXPECT_EQ(count, int(found.GetSize()));
        Texts names = TextsOf(found);
        for (std::wstring& name : names) {
            EXPECT_EQ(name.find(folder.DrivePath()), 0u);
            name.erase(0, folder.DrivePath().size());
        }
        return names;
    };
    EXPECT_EQ(search(folder.DrivePath(), L"WAND", 0), (Texts{L"\\Wand", L"\\wand1.dwg"}));
    Texts deep = {L"\\Wand", L"\\Wand\\INNENWAND.dxf", L"\\wand1.dwg"};
    if (isLinked)
        deep.insert(deep.end() - 1, L"\\Wand\\wandkreis");
    EXPECT_EQ(search(folder.DrivePath() + L"\\", L"WAND", 1), deep);
    EXPECT_EQ(search(folder.DrivePath(), L"", 0).size(), 3u);
    EXPECT_EQ(search(folder.DrivePath(L"none"), L"a", 1), Texts());
    const Array paths({L"C:\\Kx", L"c:\\kx\\Support\\", L"C:\\kx\\support"});
    EXPECT_EQ(CStrFunLib::FindSamePath(paths, L"C:/KX/./x/../Support"), 1);
    EXPECT_EQ(CStrFunLib::FindSamePath(paths, L"C:\\K"), -1);
}

TEST(StrFunLib, TimesAndNumbers)
{
    SYSTEMTIME time = {};
    const CString now = CStrFunLib::GetTimeString();
    EXPECT_EQ(CStrFunLib::AssertString(now, L"####-##-## ##:##:##"), 1) << testing::PrintToString(now.GetString());
    EXPECT_EQ(CStrFunLib::Str2Time(now, time), 1);
    struct Row {
        const wchar_t* text;
        std::vector<int> fields;   // year, month, weekday, day, hour, minute, second
    };
    static const Row rows[] = {{L"2026-03-09 07:05:01", {2026, 3, 1, 9, 7, 5, 1}},
                               {L" 2026-3-9  7:5:1", {2026, 3, 1, 9, 7, 5, 1}},
                               {L"2024-2-29 23:59:59", {2024, 2, 4, 29, 23, 59, 59}},
                               {L"2000-02-29 0:0:0", {2000, 2, 2, 29, 0, 0, 0}},
                               {L"2025-2-29 0:0:0", {}},
                               {L"1900-2-29 0:0:0", {}},
                               {L"2026-13-1 0:0:0", {}},
                               {L"2026-4-31 0:0:0", {}},
                               {L"2026-0-1 0:0:0", {}},
                               {L"2026-1-1 24:0:0", {}},
                               {L"2026-1-1 1:60:0", {}},
                               {L"2026-1-1", {}},
                               {L"2026/1/1 0:0:0", {}},
                               {L"99999999999-1-1 0:0:0", {}},
                               {L"", {}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.text));
        SYSTEMTIME parsed = {1, 2, 3, 4, 5, 6, 7, 8};
        EXPECT_EQ(CStrFunLib::Str2Time(row.text, parsed), row.fields.empty() ? 0 : 1);
        const std::vector<int> fields = {parsed.wYear, parsed.wMonth,  parsed.wDayOfWeek, parsed.wDay,
                                         parsed.wHour, parsed.wMinute, parsed.wSecond};
        EXPECT_EQ(fields, row.fields.empty() ? std::vector<int>({1, 2, 3, 4, 5, 6, 7}) : row.fields);
    }
    static const struct {
        double value;
        int decimals;
        const wchar_t* text;
    } reals[] = {{2.5, 6, L"2.5"},     {-3, 6, L"-3"},         {0, 6, L"0"},
                 {-1e-9, 6, L"0"},     {1.0 / 3, 3, L"0.333"}, {100, 0, L"100"},
                 {1e6, 2, L"1000000"}, {2.0 / 3, -1, L"1"},    {0.1234567, 6, L"0.123457"}};
    for (const auto& row : reals)
        EXPECT_STREQ(CStrFunLib::DblToStr(row.value, row.decimals), row.text);
    EXPECT_STREQ(CStrFunLib::IntToStr(-2147483647 - 1), L"-2147483648");
}

}   // namespace
