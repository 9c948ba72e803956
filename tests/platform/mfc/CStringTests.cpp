#include "mfc/CString.h"
#include "mfc/TextView.h"
#include "win/CodePage.h"
#include <gtest/gtest.h>

namespace {

// For messages of failed checks.
std::string Utf8(const CString& text)
{
    return KxPlat::ToUtf8(KxPlat::TextView(text));
}

#define EXPECT_TEXT(actual, expected) EXPECT_EQ(Utf8(actual), Utf8(expected))

TEST(CString, IsOnePointerAndSharesItsText)
{
    static_assert(sizeof(CString) == sizeof(void*));
    CString empty;
    EXPECT_EQ(empty.GetString(), CString(L"").GetString());   // nothing is allocated for empty texts
    const CString original(L"图层");
    CString copy = original;
    EXPECT_EQ(copy.GetString(), original.GetString());
    copy.SetAt(0, L'墙');
    EXPECT_TEXT(original, L"图层");
    EXPECT_TEXT(copy, L"墙层");
    EXPECT_EQ(original.Mid(0).GetString(), original.GetString());
}

TEST(CString, TakesPartsOfItself)
{
    CString text(L"0123456789");
    text = text.GetString() + 3;
    EXPECT_TEXT(text, L"3456789");
    text += text.GetString() + 5;
    EXPECT_TEXT(text, L"345678989");
    text.Insert(2, text);
    EXPECT_TEXT(text, L"343456789895678989");
    text = L"ab";
    text.Format(L"%s-%s", text.GetString(), text.GetString());
    EXPECT_TEXT(text, L"ab-ab");
    text.Replace(text, L"x");
    EXPECT_TEXT(text, L"x");
    text = text;
    EXPECT_TEXT(text, L"x");
}

TEST(CString, CutsCountsToTheText)
{
    const CString text(L"abcdef");
    struct Row {
        int first, count;
        const wchar_t* expected;
    };
    static const Row rows[] = {{0, 2, L"ab"}, {4, 9, L"ef"}, {-3, 2, L"ab"},     {6, 1, L""},
                               {99, 1, L""},  {2, -1, L""},  {0, 99, L"abcdef"}, {5, INT32_MAX, L"f"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.first << "," << row.count);
        EXPECT_TEXT(text.Mid(row.first, row.count), row.expected);
    }
    EXPECT_TEXT(text.Right(2), L"ef");
    EXPECT_TEXT(text.Right(-1), L"");
    EXPECT_TEXT(text.Left(99), L"abcdef");
}

TEST(CString, FindsFromAPosition)
{
    const CString text(L"C:\\图纸\\一层\\平面.dwg");
    EXPECT_EQ(text.Find(L'\\'), 2);
    EXPECT_EQ(text.Find(L'\\', 3), 5);
    EXPECT_EQ(text.ReverseFind(L'\\'), 8);
    EXPECT_EQ(text.Find(L"平面"), 9);
    EXPECT_EQ(text.Find(L""), 0);
    EXPECT_EQ(text.Find(L"C", 1), -1);
    EXPECT_EQ(text.Find(L'C', -1), -1);
    EXPECT_EQ(text.Find(L"x", 99), -1);
    EXPECT_EQ(text.FindOneOf(L".平"), 9);
    EXPECT_EQ(text.FindOneOf(L"?*"), -1);
}

TEST(CString, ChangesInPlaceAndCounts)
{
    CString text(L"a-b--c");
    EXPECT_EQ(text.Replace(L"-", L"<>"), 3);
    EXPECT_TEXT(text, L"a<>b<><>c");
    EXPECT_EQ(text.Replace(L"", L"x"), 0);
    EXPECT_EQ(text.Replace(L"<>", L""), 3);
    EXPECT_TEXT(text, L"abc");
    EXPECT_EQ(text.Insert(1, L"图"), 4);
    EXPECT_EQ(text.Insert(99, L'!'), 5);
    EXPECT_EQ(text.Insert(-5, L"#"), 6);
    EXPECT_TEXT(text, L"#a图bc!");
    EXPECT_EQ(text.Delete(1, 2), 4);
    EXPECT_EQ(text.Delete(2, 99), 2);
    EXPECT_EQ(text.Delete(7), 2);
    EXPECT_TEXT(text, L"#b");
    text = L"axbxx";
    EXPECT_EQ(text.Remove(L'x'), 3);
    EXPECT_TEXT(text, L"ab");
    EXPECT_EQ(text.Replace(L'b', L'c'), 1);
    EXPECT_TEXT(text, L"ac");
    text.MakeReverse();
    EXPECT_TEXT(text, L"ca");
}

TEST(CString, ChangingACopyLeavesTheOther)
{
    struct Row {
        void (*change)(CString&);
        const wchar_t* expected;
    };
    static const Row rows[] = {
        {[](CString& t) { t.MakeUpper(); }, L" ÄB "},
        {[](CString& t) { t.Trim(); }, L"äb"},
        {[](CString& t) { t.TrimLeft(); }, L"äb "},
        {[](CString& t) { t.TrimRight(); }, L" äb"},
        {[](CString& t) { t.Replace(L'b', L'c'); }, L" äc "},
        {[](CString& t) { t.Remove(L' '); }, L"äb"},
        {[](CString& t) { t.Delete(0); }, L"äb "},
        {[](CString& t) { t += L"!"; }, L" äb !"},
        {[](CString& t) { t.Truncate(2); }, L" ä"},
        {[](CString& t) { t.Empty(); }, L""},
        {[](CString& t) { t.MakeReverse(); }, L" bä "},
        {[](CString& t) { t.GetBuffer()[1] = L'x'; }, L" xb "},
        {[](CString& t) { t.GetBufferSetLength(1); }, L" "},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(Utf8(row.expected));
        const CString original(L" äb ");
        CString changed = original;
        row.change(changed);
        EXPECT_TEXT(changed, row.expected);
        EXPECT_EQ(changed.GetLength(), int(std::wcslen(row.expected)));
        EXPECT_TEXT(original, L" äb ");
    }
}

TEST(CString, TrimsCharactersAndBlanksOfAllKinds)
{
    EXPECT_TEXT(CString(L"\t\x3000 x \r\n").Trim(), L"x");
    EXPECT_TEXT(CString(L"  \x3000").Trim(), L"");
    EXPECT_TEXT(CString(L"\\\\a\\b\\").Trim(L'\\'), L"a\\b");
    EXPECT_TEXT(CString(L"xyabyx").Trim(L"yx"), L"ab");
    EXPECT_TEXT(CString(L"ab").TrimRight(L""), L"ab");
}

TEST(CString, TokensSkipRunsOfSeparators)
{
    const CString text(L",,墙体,,门; 窗;");
    int at = 0;
    EXPECT_TEXT(text.Tokenize(L",;", at), L"墙体");
    EXPECT_EQ(at, 5);
    EXPECT_TEXT(text.Tokenize(L",;", at), L"门");
    EXPECT_TEXT(text.Tokenize(L",;", at), L" 窗");
    EXPECT_TEXT(text.Tokenize(L",;", at), L"");
    EXPECT_EQ(at, -1);
    EXPECT_TEXT(text.Tokenize(L",;", at), L"");
}

TEST(CString, BuffersEndAtTheirFirstZero)
{
    CString text(L"abc");
    wchar_t* buffer = text.GetBuffer(20);
    EXPECT_GE(text.GetAllocLength(), 20);
    std::wcscpy(buffer, L"longer text");
    text.ReleaseBuffer();
    EXPECT_EQ(text.GetLength(), 11);
    text.GetBuffer();
    text.ReleaseBuffer(4);
    EXPECT_TEXT(text, L"long");
    text.FreeExtra();
    EXPECT_EQ(text.GetAllocLength(), 4);
    CString none;
    none.GetBuffer(0);
    none.ReleaseBuffer();
    EXPECT_TRUE(none.IsEmpty());
}

TEST(CString, LockedTextsAreNotShared)
{
    CString text(L"abc");
    const wchar_t* place = text.LockBuffer();
    const CString copy = text;
    EXPECT_NE(copy.GetString(), place);
    text = L"ab";
    EXPECT_EQ(text.GetString(), place);
    text.UnlockBuffer();
    EXPECT_EQ(CString(text).GetString(), place);
    EXPECT_TEXT(copy, L"abc");
}

TEST(CString, ComparesByCodeAndWithoutCase)
{
    const CString text(L"Layer");
    EXPECT_TRUE(text == L"Layer" && L"Layer" == text && text == CString(L"Layer"));
    EXPECT_TRUE(text != L"layer" && text < L"layer" && L"a" > text && text <= CString(L"Layer"));
    EXPECT_EQ(text.CompareNoCase(L"LAYER"), 0);
    EXPECT_LT(CString(L"墙a").CompareNoCase(L"墙B"), 0);
    EXPECT_TRUE(CString() == static_cast<const wchar_t*>(nullptr));
    EXPECT_FALSE(CString(L"墙", 1) == CString(L"墙体"));
}

TEST(CString, NarrowTextsAreInTheAnsiCodePage)
{
    const unsigned before = KxPlat::AnsiCodePage();
    if (!KxPlat::SetAnsiCodePage(936))
        GTEST_SKIP() << "code page 936 is not available";
    EXPECT_TEXT(CString("\xC7\xBD"), L"墙");
    CString text(L"层");
    text += "\xC7\xBD";
    EXPECT_TEXT(text, L"层墙");
    EXPECT_TEXT(CString("\xC7\xBDx", 2), L"墙");
    KxPlat::SetAnsiCodePage(before);
}

TEST(CString, AppendsMillionsInLinearTime)
{
    CString text;
    for (int i = 0; i < 200000; ++i)
        text += L"ab";
    EXPECT_EQ(text.GetLength(), 400000);
    text.AppendFormat(L"%d%s", 7, L"x");
    EXPECT_TEXT(text.Right(3), L"b7x");
    EXPECT_TEXT(L"<" + CString(L"a") + L'b' + CString(L"c") + L">", L"<abc>");
}

TEST(AfxExtractSubString, CountsFieldsFromZeroWithEmptyOnes)
{
    struct Row {
        const wchar_t* text;
        int index;
        BOOL found;
        const wchar_t* field;
    };
    static const Row rows[] = {{L"a;b", 0, TRUE, L"a"}, {L"a;b", 1, TRUE, L"b"},  {L"a;b", 2, FALSE, L""},
                               {L"", 0, TRUE, L""},     {L"", 1, FALSE, L""},     {L";", 1, TRUE, L""},
                               {L"a;;c", 1, TRUE, L""}, {L"a;;c", 2, TRUE, L"c"}, {nullptr, 0, FALSE, L""}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << (row.text == nullptr ? "null" : Utf8(row.text)) << " " << row.index);
        CString field(L"old");
        EXPECT_EQ(AfxExtractSubString(field, row.text, row.index, L';'), row.found);
        EXPECT_TEXT(field, row.field);
    }
    CString both(L"x\ny");
    EXPECT_TRUE(AfxExtractSubString(both, both, 1));
    EXPECT_TEXT(both, L"y");
}

}   // namespace
