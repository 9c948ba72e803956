// The fonts behind texts: strokes, files of the system, and what stands in for missing characters.
#include "gi/fonts/Font.h"
#include "gi/AcGiTextStyle.h"
#include <gtest/gtest.h>

using namespace KxPlat;

namespace {

AcGiTextStyle StyleOf(const wchar_t* fileName)
{
    AcGiTextStyle style;
    style.setFileName(fileName);
    return style;
}

TEST(Font, ShapeFontsAreDrawnWithStrokes)
{
    const FontChain& fonts = FontsOf(StyleOf(L"txt.shx"));
    const Glyph& letter = fonts.GlyphOf(L'L');
    ASSERT_EQ(letter.contours.size(), 1u);
    EXPECT_FALSE(letter.isFilled);
    ASSERT_EQ(letter.contours[0].size(), 3u);
    EXPECT_DOUBLE_EQ(letter.contours[0][0].y, 1);   // as tall as the text
    EXPECT_DOUBLE_EQ(letter.contours[0][1].y, 0);   // down to the base line
    EXPECT_DOUBLE_EQ(letter.contours[0][2].x, 0.5);
    EXPECT_DOUBLE_EQ(letter.advance, 0.75);
    EXPECT_EQ(&fonts.GlyphOf(L'L'), &letter);   // taken apart once
}

TEST(Font, EveryAsciiCharacterStandsInTheStrokeFont)
{
    for (wchar_t character = L'!'; character <= L'~'; ++character) {
        const Glyph* glyph = StrokeFont().GlyphOf(character);
        ASSERT_NE(glyph, nullptr) << int(character);
        EXPECT_FALSE(glyph->contours.empty()) << int(character);
        for (const auto& contour : glyph->contours)
            EXPECT_GE(contour.size(), 2u) << int(character);
        EXPECT_DOUBLE_EQ(glyph->advance, StrokeAdvanceOf(character)) << int(character);
    }
}

TEST(Font, AnIdeographFillsASquareWhateverDrawsIt)
{
    const FontChain& fonts = FontsOf(StyleOf(L"txt"));
    EXPECT_DOUBLE_EQ(fonts.GlyphOf(L'图').advance, 1);
    EXPECT_FALSE(fonts.GlyphOf(L'图').contours.empty());   // an outline, or the box where no font has it
    EXPECT_DOUBLE_EQ(StyleOf(L"txt").extents(L"图层", false, -1, true).x, 2);
}

TEST(Font, TrueTypeTextsAreMeasuredAsTheFontIs)
{
    AcGiTextStyle style;
    style.setFont(L"DejaVu Sans", false, false, 0, 0);
    const FontChain& fonts = FontsOf(style);
    const Glyph& wide = fonts.GlyphOf(L'M');
    if (!wide.isFilled)
        GTEST_SKIP() << "no outline font on this system";
    const Glyph& narrow = fonts.GlyphOf(L'i');
    EXPECT_GT(wide.advance, narrow.advance);
    EXPECT_NEAR(style.extents(L"Mi", false, -1, true).x, wide.advance + narrow.advance, 1e-9);
    // A capital is as tall as the text.
    double top = 0;
    for (const auto& contour : fonts.GlyphOf(L'H').contours)
        for (const AcGePoint2d& point : contour)
            top = std::max(top, point.y);
    EXPECT_NEAR(top, 1, 1e-9);
}

}   // namespace
