// Walking over groups: what well-formed and sloppy files hold, and how the walk ends.
#include "dxf/AsciiTags.h"
#include "dxf/BinaryTags.h"
#include "dxf/TagWriter.h"
#include <gtest/gtest.h>
#include <limits>

using namespace KxPlat;

namespace {

double RealOf(const std::string& value, DxfReport& report)
{
    const std::string bytes = " 40\n" + value;
    AsciiTags tags(bytes, report);
    EXPECT_TRUE(tags.Next());
    return tags.Real();
}

TEST(AsciiTags, RealsAsProgramsSpellThem)
{
    struct Row {
        const char* value;
        double real;
        bool isMended;
    };
    static const Row rows[] = {
        {"1.5\n", 1.5, false},
        {"  -2.25\r\n", -2.25, false},
        {"7\n", 7.0, false},
        {"+3.5\n", 3.5, false},
        {"1.5D+02\n", 150.0, false},
        {"2.5   \n", 2.5, false},
        {"\t4.5\n", 4.5, false},
        {".5\n", 0.5, false},
        {"1e20", 1e20, false},
        {"0.1000000000000000055\n", 0.1, false},
        {"1e400\n", std::numeric_limits<double>::max(), true},
        {"-1e400\n", std::numeric_limits<double>::lowest(), true},
        {"1e-400\n", 0.0, true},
        {"nan\n", 0.0, true},
        {"-inf\n", 0.0, true},
        {"abc\n", 0.0, true},
        {"\n", 0.0, true},
        {"1.5abc\n", 1.5, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.value);
        DxfReport report;
        EXPECT_EQ(RealOf(row.value, report), row.real);
        EXPECT_EQ(report.mendedCount() > 0, row.isMended);
    }
}

TEST(AsciiTags, WholeNumbersAndHandles)
{
    DxfReport report;
    const std::string bytes = "70\n     7\n 70\r\n-1\r\n 90\n7.0\n 70\n7.5\n  5\n2f\n330\nFFFFFFFFFFFFFFFF\n"
                              "330\n10000000000000000\n340\nxyz\n340\n A1 \n";
    AsciiTags tags(bytes, report);
    for (int64_t number : {7, -1, 7}) {
        ASSERT_TRUE(tags.Next());
        EXPECT_EQ(tags.Integer(), number);
    }
    EXPECT_EQ(report.mendedCount(), 0u);
    ASSERT_TRUE(tags.Next());
    EXPECT_EQ(tags.Integer(), 7);
    EXPECT_EQ(report.mended().at(0), "line 7, group 70: a whole number is expected, not 7.5");
    const std::optional<uint64_t> handles[] = {0x2f, ~uint64_t(0), std::nullopt, std::nullopt, 0xA1};
    for (const std::optional<uint64_t>& handle : handles) {
        ASSERT_TRUE(tags.Next());
        EXPECT_EQ(tags.Handle(), handle);
    }
    EXPECT_FALSE(tags.Next());
}

TEST(AsciiTags, ValuesMayBeLeftUnread)
{
    DxfReport report;
    const std::string bytes = "  0\r\nLINE\r\n  8\r\n 0 \r\n 10\r\n1.0\r\n1000\r\n\r\n  0\r\nEOF";
    AsciiTags tags(bytes, report);
    std::vector<int> codes;
    while (tags.Next())
        codes.push_back(tags.code());
    EXPECT_EQ(codes, (std::vector<int>{0, 8, 10, 1000, 0}));
    tags.Rewind();
    tags.Next();
    tags.Next();
    EXPECT_EQ(tags.Text(), " 0 ");
    EXPECT_EQ(tags.Text(), " 0 ");
    EXPECT_EQ(tags.Place().at, 3u);
}

TEST(AsciiTags, BlankLinesBetweenGroupsArePassedOver)
{
    DxfReport report;
    const std::string bytes = "\xEF\xBB\xBF  0\nSECTION\n\n  2\nHEADER\n\t9\n$X\n";
    AsciiTags tags(bytes, report);
    ASSERT_TRUE(tags.Next());
    ASSERT_TRUE(tags.Next());
    EXPECT_EQ(tags.code(), 2);
    EXPECT_EQ(tags.Place().at, 4u);
    ASSERT_TRUE(tags.Next());
    EXPECT_EQ(tags.code(), 9);
    EXPECT_EQ(report.mendedCount(), 1u);
}

TEST(AsciiTags, SaysWhereNoGroupCodeIs)
{
    struct Row {
        const char* bytes;
        const char* error;
        bool isCutOff;
    };
    static const Row rows[] = {
        {"0\nLINE\nLAYER\n8\n", "line 3, group 0: a group code is expected here", false},
        {"0\nLINE\n-5\nx\n", "line 3, group 0: a group code is expected here", false},
        {"0\nLINE\n99999\nx\n", "line 3, group 0: a group code is expected here", false},
        {"0\nLINE\n10", "", true},
        {"0\nLINE\n", "", false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.bytes);
        DxfReport report;
        const std::string bytes = row.bytes;
        AsciiTags tags(bytes, report);
        EXPECT_TRUE(tags.Next());
        EXPECT_FALSE(tags.Next());
        EXPECT_FALSE(tags.Next());
        EXPECT_EQ(report.error(), row.error);
        EXPECT_EQ(tags.isCutOff(), row.isCutOff);
    }
}

// Group by group what the writer was given.
std::string Written(bool isBinary, bool hasShortCodes)
{
    std::string bytes;
    OutBuffer out([&bytes](std::string_view part) {
        bytes += part;
        return true;
    });
    const auto write = [](auto& writer) {
        writer.Text(0, "SECTION");
        writer.Real(10, 0.1);
        writer.Integer(70, -7);
        writer.Integer(90, 70000);
        writer.Integer(290, 1);
        writer.Integer(160, int64_t(1) << 40);
        writer.Handle(330, 0xABCDEF0123456789);
        writer.Chunk(310, std::string("\x00\xFFz", 3));
        writer.Text(1000, "text");
        writer.Real(1040, 2.0);
        writer.Integer(1071, -70000);
    };
    if (isBinary) {
        BinaryTagWriter writer(out, hasShortCodes);
        write(writer);
    } else {
        AsciiTagWriter writer(out, {});
        write(writer);
    }
    EXPECT_TRUE(out.Empty());
    return bytes;
}

template <class Tags>
void ExpectWritten(Tags tags)
{
    const auto next = [&tags](int code) { return tags.Next() && tags.code() == code; };
    ASSERT_TRUE(next(0));
    EXPECT_EQ(tags.Text(), "SECTION");
    ASSERT_TRUE(next(10));
    EXPECT_EQ(tags.Real(), 0.1);
    ASSERT_TRUE(next(70));
    EXPECT_EQ(tags.Integer(), -7);
    ASSERT_TRUE(next(90));
    EXPECT_EQ(tags.Integer(), 70000);
    ASSERT_TRUE(next(290));
    EXPECT_EQ(tags.Integer(), 1);
    ASSERT_TRUE(next(160));
    EXPECT_EQ(tags.Integer(), int64_t(1) << 40);
    ASSERT_TRUE(next(330));
    EXPECT_EQ(tags.Handle(), 0xABCDEF0123456789u);
    ASSERT_TRUE(next(310));
    EXPECT_EQ(tags.Chunk(), std::string("\x00\xFFz", 3));
    ASSERT_TRUE(next(1000));
    EXPECT_EQ(tags.Text(), "text");
    ASSERT_TRUE(next(1040));
    EXPECT_EQ(tags.Real(), 2.0);
    ASSERT_TRUE(next(1071));
    EXPECT_EQ(tags.Integer(), -70000);
    EXPECT_FALSE(tags.Next());
    EXPECT_FALSE(tags.isCutOff());
}

TEST(TagWriter, WhatIsWrittenReadsBackTheSame)
{
    DxfReport report;
    ExpectWritten(AsciiTags(Written(false, false), report));
    ExpectWritten(BinaryTags(Written(true, false), report));
    ExpectWritten(BinaryTags(Written(true, true), report));
    EXPECT_EQ(report.mendedCount(), 0u);
}

TEST(TagWriter, AsciiLooksAsTheHostWritesIt)
{
    EXPECT_EQ(Written(false, false).substr(0, 71),
              "  0\r\nSECTION\r\n 10\r\n0.1\r\n 70\r\n    -7\r\n 90\r\n    70000\r\n290"
              "\r\n     1\r\n160\r\n");
}

TEST(BinaryTags, TellsTheLengthOfCodesByTheFirst)
{
    struct Row {
        std::string_view bytes;
        bool hasShortCodes;
        int code;
    };
    static const Row rows[] = {
        {{"\0SECTION\0", 9}, true, 0},
        {{"\0\0SECTION\0", 10}, false, 0},
        {{"\xFF\xE7\x03hello\0", 9}, true, 999},
        {{"\xE7\x03hello\0", 8}, false, 999},
    };
    for (const Row& row : rows) {
        DxfReport report;
        const std::string bytes = std::string(kBinarySentinel) + std::string(row.bytes);
        BinaryTags tags(bytes, report);
        EXPECT_EQ(tags.hasShortCodes(), row.hasShortCodes);
        ASSERT_TRUE(tags.Next());
        EXPECT_EQ(tags.code(), row.code);
    }
}

TEST(BinaryTags, EndsCleanlyWhereverTheFileIsCut)
{
    for (bool hasShortCodes : {false, true}) {
        const std::string whole = Written(true, hasShortCodes);
        for (size_t size = kBinarySentinel.size(); size < whole.size(); ++size) {
            SCOPED_TRACE(size);
            // A copy of exact size, so that a byte read behind the end is found out.
            const std::vector<char> cut(whole.begin(), whole.begin() + std::ptrdiff_t(size));
            DxfReport report;
            BinaryTags tags(std::string_view(cut.data(), cut.size()), report);
            int groups = 0;
            while (tags.Next() && groups < 100)
                ++groups;
            EXPECT_LT(groups, 11);
        }
    }
}

TEST(OutBuffer, LongTextsAndManyGroupsArriveWhole)
{
    std::string bytes;
    OutBuffer out([&bytes](std::string_view part) {
        bytes += part;
        return true;
    });
    AsciiTagWriter writer(out, {false, false});
    const std::string longText(3'000'000, 'x');
    writer.Text(1, longText);
    for (int i = 0; i < 200'000; ++i)
        writer.Text(1, "0123456789");
    out.Empty();
    EXPECT_EQ(bytes.size(), 2 + 3'000'001 + size_t(200'000) * 13);
    EXPECT_EQ(bytes.substr(3'000'003), [] {
        std::string all;
        for (int i = 0; i < 200'000; ++i)
            all += "1\n0123456789\n";
        return all;
    }());
}

}   // namespace
