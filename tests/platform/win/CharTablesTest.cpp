#include "win/CharTables.h"
#include "win/CodePage.h"
#include <gtest/gtest.h>

namespace {

using namespace KxPlat;

TEST(CharTables, CasePairsOfManyScripts)
{
    static const wchar_t* const pairs[] = {L"aA", L"zZ",   L"éÉ", L"ÿŸ", L"őŐ", L"жЖ", L"ёЁ", L"ωΩ",
                                           L"աԱ", L"ａＡ", L"ⅳⅣ", L"ⓐⒶ", L"ǆǄ", L"ẁẀ", L"ᾀᾈ", L"\x10428\x10400"};
    for (const wchar_t* pair : pairs) {
        SCOPED_TRACE(ToUtf8(pair));
        EXPECT_EQ(Upper(pair[0]), pair[1]);
        EXPECT_EQ(Lower(pair[1]), pair[0]);
        EXPECT_TRUE(IsLower(pair[0]));
        EXPECT_TRUE(IsUpper(pair[1]));
    }
}

TEST(CharTables, WhatHasNoPairStays)
{
    for (wchar_t character :
         {L'ß', L'ı', L'İ', L'ſ', L'µ', L'中', L'1', L'_', L'\x212A', L'\xD800', wchar_t(0x7FFFFFFF), wchar_t(-1)}) {
        EXPECT_EQ(Upper(character), character) << int(character);
        EXPECT_EQ(Lower(character), character) << int(character);
    }
}

TEST(CharTables, TextsCompareWithoutCase)
{
    struct Row {
        const wchar_t *a, *b;
        int order;
    };
    static const Row rows[] = {{L"", L"", 0},     {L"Layer", L"lAYER", 0}, {L"ÄÖ-墙", L"äö-墙", 0},
                               {L"a", L"B", -1},  {L"A", L"_", 1},         {L"ab", L"a", 1},
                               {L"a", L"ab", -1}, {L"K", L"\x212A", -1},   {L"墙体", L"墙面", -1}};
    for (const Row& row : rows) {
        SCOPED_TRACE(ToUtf8(row.a));
        EXPECT_EQ(CompareNoCase(row.a, row.b), row.order);
        EXPECT_EQ(EqualNoCase(row.a, row.b), row.order == 0);
        if (row.order == 0) {
            EXPECT_EQ(FoldHash(row.a), FoldHash(row.b));
        }
    }
    EXPECT_TRUE(StartsWithNoCase(L"*Model_Space", L"*MODEL"));
    EXPECT_FALSE(StartsWithNoCase(L"*M", L"*MODEL"));
}

TEST(CharTables, Classes)
{
    for (wchar_t character : {L'a', L'Z', L'é', L'墙', L'あ', L'한', L'ж', L'\x20000'})
        EXPECT_TRUE(IsLetter(character)) << int(character);
    for (wchar_t character : {L'0', L'_', L' ', L'×', L'。', L'\x3000', L'\xE000', L'٣'})
        EXPECT_FALSE(IsLetter(character)) << int(character);
    for (wchar_t character : {L' ', L'\t', L'\r', L'\n', L'\x3000', L'\xA0', L'\x2003'})
        EXPECT_TRUE(IsSpace(character)) << int(character);
    EXPECT_FALSE(IsSpace(L'\x200B'));
    EXPECT_TRUE(IsDigit(L'7'));
    EXPECT_FALSE(IsDigit(L'７'));
}

}   // namespace
