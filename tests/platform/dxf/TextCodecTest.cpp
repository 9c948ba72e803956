// Texts of files in all code pages, there and back.
#include "db/core/TextCodec.h"
#include <gtest/gtest.h>

using namespace KxPlat;

namespace {

TEST(TextCodec, DecodesByVersionAndCodePage)
{
    struct Row {
        AcDb::AcDbDwgVersion version;
        const char* page;
        const char* bytes;
        const wchar_t* text;
    };
    static const Row rows[] = {
        {AcDb::kDHL_1014, "ANSI_936", "\xC7\xBD\xCC\xE5", L"墙体"},
        {AcDb::kDHL_1027, "ANSI_936", "\xE5\xA2\x99\xE4\xBD\x93", L"墙体"},
        {AcDb::kDHL_1012, "dos932", "\x95\xC7\x5C", L"壁\\"},
        {AcDb::kDHL_1012, "dos932", "\x83\x5C", L"ソ"},   // its second byte is a backslash
        {AcDb::kDHL_1012, "dos850", "\x81", L"ü"},
        {AcDb::kDHL_1015, "ANSI_1252", "\xE9", L"é"},
        {AcDb::kDHL_1009, "", "\xFC", L"ü"},
        {AcDb::kDHL_1015, "ANSI_1252", "\\U+5899\\U+4F53", L"墙体"},
        {AcDb::kDHL_1015, "ANSI_1252", "a\\u+00e9b", L"aéb"},
        {AcDb::kDHL_1015, "ANSI_1252", "\\M+5C7BD\\M+195C7", L"墙壁"},
        {AcDb::kDHL_1027, "ANSI_1252", "\\U+D83C\\U+DFE0", L"\U0001F3E0"},
        {AcDb::kDHL_1015, "ANSI_1252", "\\U+12", L"\\U+12"},
        {AcDb::kDHL_1015, "ANSI_1252", "\\U+D83C", L"\\U+D83C"},
        {AcDb::kDHL_1015, "ANSI_1252", "\\U+000A", L"\\U+000A"},
        {AcDb::kDHL_1015, "ANSI_1252", "\\M+9C7BD", L"\\M+9C7BD"},
        {AcDb::kDHL_1015, "ANSI_1252", "{\\fArial;x}^J%%c", L"{\\fArial;x}^J%%c"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.bytes);
        EXPECT_EQ(std::wstring(TextCodec(row.version, row.page).Decode(row.bytes)), row.text);
    }
}

TEST(TextCodec, EncodesWhatTheCodePageLacksAsEscapes)
{
    struct Row {
        AcDb::AcDbDwgVersion version;
        const char* page;
        const wchar_t* text;
        const char* bytes;
    };
    static const Row rows[] = {
        {AcDb::kDHL_1014, "ANSI_936", L"墙体", "\xC7\xBD\xCC\xE5"},
        {AcDb::kDHL_1024, "ANSI_936", L"墙体", "\xE5\xA2\x99\xE4\xBD\x93"},
        {AcDb::kDHL_1015, "ANSI_1252", L"墙é", "\\U+5899\xE9"},
        {AcDb::kDHL_1015, "ANSI_1252", L"\U0001F3E0", "\\U+D83C\\U+DFE0"},
        {AcDb::kDHL_1015, "ANSI_1252", L"two\nlines\r", "two^Jlines^M"},
        {AcDb::kDHL_1015, "ANSI_1252", L"a\tb", "a\tb"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.bytes);
        EXPECT_EQ(TextCodec(row.version, row.page).Encode(row.text), row.bytes);
    }
}

TEST(TextCodec, EveryByteSurvives)
{
    struct Row {
        AcDb::AcDbDwgVersion version;
        const char* page;
    };
    static const Row rows[] = {{AcDb::kDHL_1027, "ANSI_1252"}, {AcDb::kDHL_1015, "ANSI_1252"},
                               {AcDb::kDHL_1015, "ANSI_936"},  {AcDb::kDHL_1015, "ANSI_932"},
                               {AcDb::kDHL_1015, "ANSI_950"},  {AcDb::kDHL_1015, "ANSI_949"},
                               {AcDb::kDHL_1012, "dos850"}};
    for (const Row& row : rows) {
        const TextCodec codec(row.version, row.page);
        for (int first = 0x80; first < 0x100; ++first)
            for (int second : {0x20, 0x30, 0x41, 0x5C, 0x7E, 0x80, 0xA1, 0xC3, 0xFF}) {
                const std::string bytes = {'x', char(first), char(second), 'y'};
                const std::string again(codec.Encode(codec.Decode(bytes)));
                EXPECT_EQ(codec.Decode(again), codec.Decode(bytes)) << row.page << " " << first << " " << second;
                // Japanese has two codes for some characters; all else is the same byte for byte.
                if (codec.codePage() != 932) {
                    EXPECT_EQ(again, bytes) << row.page << " " << first << " " << second;
                }
            }
    }
}

}   // namespace
