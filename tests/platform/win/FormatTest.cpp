// The formatter, row by row against what the Microsoft C runtime of the host's release answers. Windows names only.
#include "KxWin.h"
#include "support/AnsiPage.h"
#include "support/TestSystem.h"
#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace std::string_literals;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
const wchar_t* const kNoText = nullptr;
const char* const kNoBytes = nullptr;

std::wstring Format(const wchar_t* format, ...)
{
    wchar_t buffer[512] = {};
    va_list arguments;
    va_start(arguments, format);
    const int length = _vsnwprintf(buffer, ARRAYSIZE(buffer), format, arguments);
    va_end(arguments);
    return std::wstring(buffer, size_t(length));
}

struct Row {
    int line;
    std::wstring got;
    std::wstring expected;
};

void CheckRows(const std::vector<Row>& rows)
{
    for (const Row& row : rows)
        EXPECT_EQ(row.got, row.expected) << "row of line " << row.line;
}

TEST(Format, Texts)
{
    CheckRows({
        {__LINE__, Format(L"%s", L"wide"), L"wide"},
        {__LINE__, Format(L"%s", kNoText), L"(null)"},
        {__LINE__, Format(L"%S", "narrow"), L"narrow"},
        {__LINE__, Format(L"%S", kNoBytes), L"(null)"},
        {__LINE__, Format(L"%hs|%ls|%ws|%hS", "narrow", L"w", L"x", "n"), L"narrow|w|x|n"},
        {__LINE__, Format(L"%5s|%-5s|", L"ab", L"ab"), L"   ab|ab   |"},
        {__LINE__, Format(L"%.2s", L"abcd"), L"ab"},
        {__LINE__, Format(L"%05s", L"ab"), L"000ab"},
        {__LINE__, Format(L"%10s", kNoText), L"    (null)"},
        {__LINE__, Format(L"%.3s", kNoText), L"(nu"},
        {__LINE__, Format(L"%*s|%-*s|%*s|", 4, L"a", 3, L"b", -3, L"c"), L"   a|b  |c  |"},
        {__LINE__, Format(L"%s层 %d 个", L"墙体", 3), L"墙体层 3 个"},
        {__LINE__, Format(L"%c%C", L'中', 'x'), L"中x"},
        {__LINE__, Format(L"%c|", 0), L"\0|"s},
        {__LINE__, Format(L"%3c|", L'x'), L"  x|"},
    });
}

TEST(Format, TextOfAPrecisionNeedsNoTerminator)
{
    const wchar_t letters[] = {L'a', L'b', L'c'};
    EXPECT_EQ(Format(L"%.3s", letters), L"abc");
}

TEST(Format, Integers)
{
    CheckRows({
        {__LINE__, Format(L"%d %i %u", -1, 12, -1), L"-1 12 4294967295"},
        {__LINE__, Format(L"%x %X %X", 255, 255, -1), L"ff FF FFFFFFFF"},
        {__LINE__, Format(L"%X", 0x23456789), L"23456789"},
        {__LINE__, Format(L"%08lx", 0xBEEFul), L"0000beef"},
        {__LINE__, Format(L"%08lX", 0xDEADBEEFul), L"DEADBEEF"},
        {__LINE__, Format(L"%Ld|%d", -1L, 7), L"-1|7"},
        {__LINE__, Format(L"%lld %I64d", 0x100000002LL, 0x100000002LL), L"4294967298 4294967298"},
        {__LINE__, Format(L"%I64X %I32d %Id", -1LL, -5, -5LL), L"FFFFFFFFFFFFFFFF -5 -5"},
        {__LINE__, Format(L"%I64d", std::numeric_limits<long long>::min()), L"-9223372036854775808"},
        {__LINE__, Format(L"%#x %#X %#o", 255, 255, 255), L"0xff 0XFF 0377"},
        {__LINE__, Format(L"%#x %#o", 0, 0), L"0 0"},
        {__LINE__, Format(L"%hd", 70000), L"4464"},
        {__LINE__, Format(L"%+d % d", 5, 5), L"+5  5"},
        {__LINE__, Format(L"%5d|%-5d|%05d", -7, -7, -7), L"   -7|-7   |-0007"},
        {__LINE__, Format(L"%.3d|%.0d", 7, 0), L"007|"},
        {__LINE__, Format(L"%*d", 6, 42), L"    42"},
        {__LINE__, Format(L"%o", 8), L"10"},
        {__LINE__, Format(L"%p", reinterpret_cast<void*>(0x1234AB)), L"00000000001234AB"},
        {__LINE__, Format(L"%p", static_cast<void*>(nullptr)), L"0000000000000000"},
    });
}

TEST(Format, Reals)
{
    CheckRows({
        {__LINE__, Format(L"%f %f", 1.5, 0.1), L"1.500000 0.100000"},
        {__LINE__, Format(L"%.0f %.0f %.0f", 0.5, 1.5, 2.5), L"1 2 3"},
        {__LINE__, Format(L"%.2f %.1f %.1f", 2.675, 0.25, 0.05), L"2.67 0.3 0.1"},
        {__LINE__, Format(L"%.1f %.0f %.2f", 9.95, 9.5, 999.995), L"9.9 10 1000.00"},
        {__LINE__, Format(L"%.1f %.2f", 99.25, 0.125), L"99.3 0.13"},
        {__LINE__, Format(L"%.20f", 0.1), L"0.10000000000000000555"},
        {__LINE__, Format(L"%.3f %f", -0.0001, -0.0), L"-0.000 -0.000000"},
        {__LINE__, Format(L"%f", 1e22), L"10000000000000000000000.000000"},
        {__LINE__, Format(L"%e %e", 12345.678, 1e100), L"1.234568e+004 1.000000e+100"},
        {__LINE__, Format(L"%.0e %.1e %.0e", 2.5, 9.75, 9.5), L"3e+000 9.8e+000 1e+001"},
        {__LINE__, Format(L"%.1E", 99.75), L"1.0E+002"},
        {__LINE__, Format(L"%g %g %g %g", 1e-5, 100000.0, 1000000.0, 0.1), L"1e-005 100000 1e+006 0.1"},
        {__LINE__, Format(L"%G %#g", 1e-10, 1.0), L"1E-010 1.00000"},
        {__LINE__, Format(L"%.17g %g %g", 0.1, 0.0, 123456789.0), L"0.10000000000000001 0 1.23457e+008"},
        {__LINE__, Format(L"%.3g %.3g", 999.5, 0.00012345), L"1e+003 0.000123"},
        {__LINE__, Format(L"%8.3f|%-8.3f|%08.3f", 3.14159, 3.14159, -3.14159), L"   3.142|3.142   |-003.142"},
        {__LINE__, Format(L"%Lf %lf", 1.5, 1.5), L"1.500000 1.500000"},
        {__LINE__, Format(L"%#.0f", 3.0), L"3."},
        {__LINE__, Format(L"%a", 1.0), L"0x1.0000000000000p+0"},
    });
}

TEST(Format, RealsThatAreNoNumbers)
{
    CheckRows({
        {__LINE__, Format(L"%f %f", kInfinity, -kInfinity), L"1.#INF00 -1.#INF00"},
        {__LINE__, Format(L"%f", -std::numeric_limits<double>::quiet_NaN()), L"-1.#IND00"},
        {__LINE__, Format(L"%10f|", std::numeric_limits<double>::quiet_NaN()), L"  1.#QNAN0|"},
        {__LINE__, Format(L"%.2f", kInfinity), L"1.#J"},
        {__LINE__, Format(L"%e %g", kInfinity, kInfinity), L"1.#INF00e+000 1.#INF"},
    });
}

TEST(Format, PercentSignsAndUnknownLetters)
{
    CheckRows({
        {__LINE__, Format(L"%%"), L"%"},
        {__LINE__, Format(L"100%"), L"100"},
        {__LINE__, Format(L"%q|"), L"q|"},
        {__LINE__, Format(L"%y%d", 5), L"y5"},
        {__LINE__, Format(L"a%!b"), L"a!b"},
        {__LINE__, Format(L""), L""},
    });
}

TEST(Format, NarrowTextsAreInTheAnsiCodePage)
{
    static const struct {
        unsigned page;
        const char *first, *second;
        const wchar_t* text;
    } rows[] = {{936, "\xD6\xD0\xCE\xC4", "\xC7\xBD", L"中文|墙"}, {65001, "\xE4\xB8\xAD", "", L"中|"}};
    for (const auto& row : rows) {
        const KxTest::AnsiPage page(row.page);
        if (page.IsSet() && !KxTest::kOnWine) {   // there the C runtime has a locale of its own, "C"
            EXPECT_EQ(Format(L"%S|%hs", row.first, row.second), row.text);
        }
    }
}

TEST(Format, APrecisionTakesTheZeroFlagAway)
{
    if (KxTest::kOnWine)
        GTEST_SKIP() << "Wine's C runtime pads with zeros all the same";
    EXPECT_EQ(Format(L"%05.3d|", 7), L"  007|");
}

TEST(Format, ALongIsThisSystems)
{
    const long most = std::numeric_limits<long>::max();
    const std::wstring expected = std::to_wstring(most);
    EXPECT_EQ(Format(L"%ld|%Ld|%lu|%d", most, most, most, 7), expected + L"|" + expected + L"|" + expected + L"|7");
}

TEST(CrtText, PrintsIntoABuffer)
{
    struct PrintRow {
        size_t count;
        int answer;
        const wchar_t* buffer;
    };
    static const PrintRow rows[] = {
        {4, 3, L"abc\0####"}, {3, 3, L"abc#####"}, {2, -1, L"ab######"}, {0, -1, L"########"}};
    for (const PrintRow& row : rows) {
        SCOPED_TRACE(row.count);
        wchar_t buffer[] = L"########";
        EXPECT_EQ(_snwprintf(buffer, row.count, L"%s", L"abc"), row.answer);
        EXPECT_EQ(std::wstring(buffer, 8), std::wstring(row.buffer, 8));
    }
}

TEST(CrtText, NumbersAtTheStartOfATextCount)
{
    struct NumberRow {
        const wchar_t* text;
        double real;
        int whole;
    };
    static const NumberRow rows[] = {{L"1.5abc", 1.5, 1}, {L"  -2e3", -2000, -2},
                                     {L"1d5", 100000, 1}, {L"0x10", 0, 0},
                                     {L"inf", 0, 0},      {L"nan", 0, 0},
                                     {L".5", 0.5, 0},     {L"1,5", 1, 1},
                                     {L"1e", 1, 1},       {L"", 0, 0},
                                     {L"+7", 7, 7},       {L"--5", 0, 0},
                                     {L"+-5", 0, 0},      {L"18.1s (LMS)", 18.1, 18}};
    for (const NumberRow& row : rows) {
        EXPECT_EQ(_wtof(row.text), row.real) << testing::PrintToString(row.text);
        EXPECT_EQ(_wtoi(row.text), row.whole) << testing::PrintToString(row.text);
    }
    EXPECT_EQ(_wtoi(L"2147483648"), 2147483647);
    EXPECT_EQ(_wtoi(L"-99999999999"), -2147483647 - 1);
    EXPECT_EQ(_wtoi64(L"-9223372036854775808"), std::numeric_limits<long long>::min());
    if (!KxTest::kOnWine) {   // there the number wraps around
        EXPECT_EQ(_wtoi64(L"99999999999999999999"), std::numeric_limits<long long>::max());
    }
    EXPECT_EQ(_wtof(L"1e999"), kInfinity);
}

TEST(CrtText, ComparisonAnswersTheDifferenceOfLowerCase)
{
    EXPECT_EQ(_wcsicmp(L"a", L"B"), -1);
    EXPECT_EQ(_wcsicmp(L"A", L"_"), 2);
    EXPECT_EQ(_wcsicmp(L"中", L"文"), -5978);
    EXPECT_EQ(_wcsicmp(L"Layer", L"LAYER"), 0);
    EXPECT_LT(_wcsicmp(L"Layer", L"LAYER1"), 0);
    EXPECT_EQ(_wcsnicmp(L"Layer1", L"LAYER2", 5), 0);
    wchar_t text[] = L"straße Ärger";
    EXPECT_STREQ(_wcsupr(text), L"STRAßE ÄRGER");
    if (!KxTest::kOnWine) {   // there the C runtime knows the letters of ASCII only, until a locale is set
        EXPECT_STREQ(_wcslwr(text), L"straße ärger");
    }
}

TEST(CrtText, WritesNumbersInAnyRadix)
{
    wchar_t buffer[40];
    EXPECT_STREQ(_itow(-42, buffer, 10), L"-42");
    EXPECT_STREQ(_itow(-1, buffer, 16), L"ffffffff");
    EXPECT_STREQ(_itow(std::numeric_limits<int>::min(), buffer, 10), L"-2147483648");
    EXPECT_STREQ(_itow(0, buffer, 2), L"0");
}

}   // namespace
