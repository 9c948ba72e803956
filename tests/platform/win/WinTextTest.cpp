// Windows names only: these rows hold on any implementation of the calls.
#include "KxWin.h"
#include <gtest/gtest.h>
#include <vector>

namespace {

TEST(WinText, LeadBytes)
{
    struct Row {
        UINT codePage;
        std::vector<BYTE> lead, other;
    };
    static const Row rows[] = {{936, {0xD6, 0x81, 0xA0, 0xFE}, {0x80, 0xFF, 0x41}},
                               {932, {0x81, 0x9F, 0xE0, 0xFC}, {0xA0, 0xB1, 0xDF, 0xFD}},
                               {949, {0x81, 0xFE}, {0x80, 0xFF}},
                               {950, {0x81, 0xFE}, {0x80, 0xFF}},
                               {1252, {}, {0x81, 0xD6, 0xFE}},
                               {65001, {}, {0xE4, 0xC3}}};
    for (const Row& row : rows) {
        for (BYTE byte : row.lead)
            EXPECT_TRUE(IsDBCSLeadByteEx(row.codePage, byte)) << row.codePage << " " << int(byte);
        for (BYTE byte : row.other)
            EXPECT_FALSE(IsDBCSLeadByteEx(row.codePage, byte)) << row.codePage << " " << int(byte);
    }
}

TEST(WinText, SizesAndRefusals)
{
    wchar_t out[8] = L"#######";
    EXPECT_EQ(MultiByteToWideChar(936, 0, "\xD6\xD0", -1, out, 8), 2);   // counts the terminator
    EXPECT_STREQ(out, L"中");
    EXPECT_EQ(MultiByteToWideChar(936, 0, "\xD6\xD0\xCE\xC4", -1, nullptr, 0), 3);
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "", -1, out, 8), 1);
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "ab", -2, out, 8), 3) << "any negative count";

    EXPECT_EQ(MultiByteToWideChar(1252, 0, "abcd", 4, out, 2), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(std::wstring(out, 2), L"ab");

    struct Row {
        UINT codePage;
        LPCSTR bytes;
        int count, size;
    };
    static const Row wrong[] = {{1252, "a", 0, 8}, {1252, nullptr, 1, 8}, {9999, "a", 1, 8}, {1252, "a", 1, -1}};
    for (const Row& row : wrong) {
        SetLastError(0);
        EXPECT_EQ(MultiByteToWideChar(row.codePage, 0, row.bytes, row.count, out, row.size), 0);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
    for (UINT codePage : {936u, 65001u}) {
        EXPECT_EQ(MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, "a\xD6", 2, out, 8), 0);
        EXPECT_EQ(GetLastError(), ERROR_NO_UNICODE_TRANSLATION);
        EXPECT_EQ(MultiByteToWideChar(codePage, 0, "a\xD6", 2, out, 8), 2);
    }
}

TEST(WinText, StandInsAndDefaults)
{
    struct Row {
        UINT codePage;
        const wchar_t* text;
        const char* fitted;
        BOOL fittedUsed;
        const char* plain;
        BOOL plainUsed;
    };
    static const Row rows[] = {
        {1252, L"中文", "??", TRUE, "??", TRUE},
        {1252, L"é", "\xE9", FALSE, "\xE9", FALSE},
        {1252, L"Ł", "L", FALSE, "?", TRUE},
        {1252, L"Ω", "O", FALSE, "?", TRUE},
        {1252, L"Ａ", "A", FALSE, "?", TRUE},
        {1252, L"😀", "??", TRUE, "??", TRUE},
        {1252, L"\xD83D", "?", TRUE, "?", TRUE},
        {936, L"Ł", "?", TRUE, "?", TRUE},
        {936, L"\xA0", "?", TRUE, "?", TRUE},
        {936, L"°±²Ø",
         "\xA1\xE3\xA1\xC0"
         "2?",
         TRUE, "\xA1\xE3\xA1\xC0??", TRUE},
        {65001, L"°", "\xC2\xB0", FALSE, "\xC2\xB0", FALSE},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.text));
        char out[16] = {};
        BOOL used = 7;
        WideCharToMultiByte(row.codePage, 0, row.text, -1, out, sizeof out, nullptr, &used);
        EXPECT_STREQ(out, row.fitted);
        EXPECT_EQ(used, row.fittedUsed);
        WideCharToMultiByte(row.codePage, WC_NO_BEST_FIT_CHARS, row.text, -1, out, sizeof out, nullptr, &used);
        EXPECT_STREQ(out, row.plain);
        EXPECT_EQ(used, row.plainUsed);
    }
    char out[8] = {};
    BOOL used = 0;
    EXPECT_EQ(WideCharToMultiByte(936, 0, L"Łx", 2, out, 8, "_", &used), 2);
    EXPECT_STREQ(out, "_x");
    EXPECT_TRUE(used);
    EXPECT_EQ(WideCharToMultiByte(936, 0, L"中文", 2, out, 3, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
}

}   // namespace
