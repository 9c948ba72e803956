#include "win/CodePage.h"
#include <gtest/gtest.h>

namespace {

using namespace KxPlat;
using namespace std::string_literals;

TEST(CodePage, NamesOfDrawingsAndSystems)
{
    struct Row {
        const char* name;
        unsigned codePage;
    };
    static const Row rows[] = {{"ANSI_936", 936},
                               {"ansi_1252", 1252},
                               {"dos850", 850},
                               {"DOS932", 932},
                               {"GBK", 936},
                               {"GB2312", 936},
                               {"BIG5", 950},
                               {"ksc5601", 949},
                               {"Johab", 1361},
                               {"UTF-8", 65001},
                               {"65001", 65001},
                               {"cp437", 437},
                               {"ISO8859-1", 28591},
                               {"ISO8859_9", 28599},
                               {"windows-1251", 1251},
                               {"mac-roman", 10000},
                               {"", 0},
                               {"ANSI_", 0},
                               {"ANSI_99999", 0},
                               {"klingon", 0},
                               {"936x", 0}};
    for (const Row& row : rows)
        EXPECT_EQ(CodePageOf(row.name), row.codePage) << row.name;
}

TEST(CodePage, OneTextInManyPages)
{
    struct Row {
        unsigned codePage;
        const wchar_t* text;
        std::string bytes;
    };
    static const Row rows[] = {
        {936, L"中文", "\xD6\xD0\xCE\xC4"},
        {936, L"€é“Ω", "\x80\xA8\xA6\xA1\xB0\xA6\xB8"},
        {936, L"·—", "\xA1\xA4\xA1\xAA"},
        {936, L"\xE000\xE4C5\xE4C6", "\xAA\xA1\xFE\xFE\xA1\x40"},
        {950, L"中文", "\xA4\xA4\xA4\xE5"},
        {932, L"図面ｱ\\", "\x90\x7D\x96\xCA\xB1\\"},
        {949, L"도면", "\xB5\xB5\xB8\xE9"},
        {1250, L"Łódź", "\xA3\xF3\x64\x9F"},
        {1251, L"План", "\xCF\xEB\xE0\xED"},
        {1252, L"°±²Ø€", "\xB0\xB1\xB2\xD8\x80"},
        {1253, L"Ωμ", "\xD9\xEC"},
        {1254, L"ığ", "\xFD\xF0"},
        {1255, L"ש", "\xF9"},
        {1256, L"س", "\xD3"},
        {1257, L"ė", "\xEB"},
        {1258, L"đ", "\xF0"},
        {850, L"é×", "\x82\x9E"},
        {437, L"ß░", "\xE1\xB0"},
        {65001, L"中\x1F600", "\xE4\xB8\xAD\xF0\x9F\x98\x80"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.codePage);
        EXPECT_EQ(Encode(row.codePage, row.text), row.bytes);
        EXPECT_EQ(Decode(row.codePage, row.bytes), row.text);
    }
}

TEST(CodePage, WhatHasNoPlaceBecomesAQuestionMark)
{
    EXPECT_EQ(Encode(1252, L"a中b"), "a?b");
    EXPECT_EQ(Encode(936, L"\x1F600"), "?");
    EXPECT_EQ(ToUtf8(L"\xD83D"), "\xEF\xBF\xBD");
    EXPECT_EQ(Decode(936, "a\xD6"), L"a?");
    EXPECT_EQ(Decode(936, "\xD6"
                          "0"),
              L"?");
    EXPECT_EQ(Decode(936, "\xD6\0"s), L"?\0"s);
    EXPECT_EQ(Decode(936, "\xE4\xB8\xAD"), L"\x6D93?");
    EXPECT_EQ(Decode(1252, "\x81"), L"\x81");
}

TEST(CodePage, WrongUtf8BecomesOneMarkPerByte)
{
    struct Row {
        const char* bytes;
        const wchar_t* text;
    };
    static const Row rows[] = {{"\xD6\xD0\xCE\xC4", L"\xFFFD\xFFFD\xFFFD\xFFFD"},
                               {"a\xD6", L"a\xFFFD"},
                               {"\xD6"
                                "0",
                                L"\xFFFD"
                                L"0"},
                               {"\xC0\x80", L"\xFFFD\xFFFD"},
                               {"\xED\xA0\x80", L"\xFFFD\xFFFD\xFFFD"},
                               {"\xF4\x90\x80\x80", L"\xFFFD\xFFFD\xFFFD\xFFFD"},
                               {"\xF0\x9F\x98\x80", L"\x1F600"}};
    for (const Row& row : rows)
        EXPECT_EQ(FromUtf8(row.bytes), row.text) << row.bytes;
    EXPECT_TRUE(IsUtf8("墙 wall"));
    EXPECT_FALSE(IsUtf8("\xD6\xD0"));
}

TEST(CodePage, LosslessPairGivesBackAnyBytes)
{
    std::string all;
    for (int byte = 255; byte > 0; --byte)
        all += static_cast<char>(byte);
    const std::string samples[] = {all,
                                   "\xD6"
                                   "0\xFF"
                                   "a\x81",
                                   "\xE4\xB8", "ok", "\xA1\xA1\x80\x80\xC7"};
    for (unsigned codePage : {936u, 950u, 949u, 1361u, 1250u, 1252u, 1258u, 850u, 437u, 65001u}) {
        SCOPED_TRACE(codePage);
        for (const std::string& bytes : samples) {
            std::string back;
            EncodeLossless(codePage, DecodeLossless(codePage, bytes), back);
            EXPECT_EQ(back, bytes);
        }
    }
    std::string back;
    EncodeLossless(932, DecodeLossless(932, "\xFD\x81 \xEE\xDE"), back);
    EXPECT_EQ(back, "\xFD\x81 \xFB\xFA") << "of two codes for one character the system's own choice is written";
    EXPECT_EQ(DecodeLossless(936, "\xD6"
                                  "0"),
              L"\xDCD6"
              L"0");
    EXPECT_EQ(DecodeLossless(kUtf8, "a\xD6"), L"a\xDCD6");
}

TEST(CodePage, LosslessWriterChoosesWhatStandsForTheRest)
{
    std::string out = "1:";
    EncodeLossless(1252, L"é中\xD83D\xDE00", out,
                   [](wchar_t c, std::string& bytes) { bytes += "<" + std::to_string(int(c)) + ">"; });
    EXPECT_EQ(out, "1:\xE9<20013><128512>");
}

TEST(CodePage, EveryByteOfAOneBytePageComesBack)
{
    for (unsigned codePage : {1250u, 1251u, 1252u, 1253u, 1254u, 1255u, 1256u, 1257u, 1258u, 437u, 850u, 874u}) {
        for (int byte = 0; byte < 256; ++byte) {
            const std::string one(1, static_cast<char>(byte));
            EXPECT_EQ(Encode(codePage, Decode(codePage, one)), one) << codePage << " " << byte;
        }
    }
}

TEST(CodePage, Utf16JoinsPairs)
{
    EXPECT_EQ(ToUtf16(L"a中\x1F600"), u"a中\xD83D\xDE00");
    EXPECT_EQ(FromUtf16(u"\xD83D\xDE00\xD83D"), L"\x1F600\xD83D");
}

}   // namespace
