// What texts measure, and what their codes stand for.
#include "gi/AcGiTextStyle.h"
#include <cmath>
#include <gtest/gtest.h>

TEST(ShownText, ReadsPercentCodes)
{
    struct Row {
        const wchar_t* text;
        const wchar_t* shown;
    };
    static const Row rows[] = {
        {L"%%c100", L"∅100"},     {L"±", L"±"},       {L"%%P0.5", L"±0.5"}, {L"45%%d", L"45°"},
        {L"%%u标题%%u", L"标题"}, {L"50%%%", L"50%"}, {L"%%065", L"A"},     {L"50%", L"50%"},
        {L"%%", L"%%"},           {L"%%x", L"%%x"},   {L"%%06", L"%%06"},   {L"", L""},
    };
    for (const Row& row : rows)
        EXPECT_STREQ(KxPlat::ShownText(row.text), row.shown);
    EXPECT_STREQ(KxPlat::ShownText(L"ab%%d", 3), L"ab%") << "no further than the length";
}

TEST(TextStyle, MeasuresByHeightWidthAndSlant)
{
    AcGiTextStyle style;
    style.setTextSize(10);
    EXPECT_EQ(style.extents(L"墙体", false, -1, false), AcGePoint2d(20, 10)) << "ideographs are square";
    EXPECT_NEAR(style.extents(L"ii", false, -1, false).x, 6.6, 1e-9);
    EXPECT_GT(style.extents(L"WW", false, -1, false).x, style.extents(L"ii", false, -1, false).x);
    EXPECT_EQ(style.extents(L"墙体", false, 1, false).x, 10) << "only so many characters";
    EXPECT_EQ(style.extents(L"", false, -1, false), AcGePoint2d(0, 0));
    EXPECT_LT(style.extents(L"%%d", false, -1, false).x, style.extents(L"%%d", false, -1, true).x);
    style.setXScale(0.5);
    EXPECT_EQ(style.extents(L"墙体", false, -1, false), AcGePoint2d(10, 10));
    style.setObliquingAngle(std::atan(0.25));
    EXPECT_NEAR(style.extents(L"墙体", false, -1, false).x, 12.5, 1e-9);
    style.setVertical(true);
    EXPECT_EQ(style.extents(L"墙体", false, -1, false), AcGePoint2d(5, -20));
}
