#include "AcGiTextStyle.h"
#include "../rx/acutads.h"
#include "fonts/Font.h"
#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

struct DrawnCode {
    wchar_t letter;
    wchar_t drawn;   // 0: switches a line under or over the text
};

constexpr DrawnCode kCodes[] = {{L'C', 0x2205}, {L'D', 0x00B0}, {L'P', 0x00B1}, {L'%', L'%'},
                                {L'U', 0},      {L'O', 0},      {L'K', 0}};

bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

}   // namespace

namespace KxPlat {

CString ShownText(const ACHAR* text, int length)
{
    CString shown;
    for (int at = 0; text != nullptr && (length < 0 || at < length) && text[at] != 0; ++at) {
        const int left = length < 0 ? 5 : length - at;
        if (text[at] != L'%' || left < 3 || text[at + 1] != L'%' || text[at + 2] == 0) {
            shown += text[at];
            continue;
        }
        const wchar_t letter = text[at + 2] >= L'a' && text[at + 2] <= L'z' ? text[at + 2] - 32 : text[at + 2];
        const auto* code = std::find_if(std::begin(kCodes), std::end(kCodes),
                                        [letter](const DrawnCode& row) { return row.letter == letter; });
        if (code != std::end(kCodes)) {
            if (code->drawn != 0)
                shown += code->drawn;
            at += 2;
        } else if (left >= 5 && IsDigit(letter) && IsDigit(text[at + 3]) && IsDigit(text[at + 4])) {
            shown += wchar_t((letter - L'0') * 100 + (text[at + 3] - L'0') * 10 + (text[at + 4] - L'0'));
            at += 4;
        } else {
            shown += text[at];
        }
    }
    return shown;
}

}   // namespace KxPlat

AcGiTextStyle::AcGiTextStyle(const ACHAR* fontName, const ACHAR* bigFontName, double textSize, double xScale,
                             double obliquingAngle, double trackingPercent, bool isBackward, bool isUpsideDown,
                             bool isVertical, bool isOverlined, bool isUnderlined)
    : m_fileName(fontName),
      m_bigFontFileName(bigFontName),
      m_textSize(textSize),
      m_xScale(xScale),
      m_obliquingAngle(obliquingAngle),
      m_trackingPercent(trackingPercent),
      m_isBackward(isBackward),
      m_isUpsideDown(isUpsideDown),
      m_isVertical(isVertical),
      m_isOverlined(isOverlined),
      m_isUnderlined(isUnderlined)
{
}

Acad::ErrorStatus AcGiTextStyle::setFont(const ACHAR* typeface, bool bold, bool italic, int charset, int pitchAndFamily)
{
    m_typeface = typeface;
    m_isBold = bold;
    m_isItalic = italic;
    m_charset = charset;
    m_pitchAndFamily = pitchAndFamily;
    return Acad::eOk;
}

Acad::ErrorStatus AcGiTextStyle::font(ACHAR*& typeface, bool& bold, bool& italic, int& charset,
                                      int& pitchAndFamily) const
{
    bold = m_isBold;
    italic = m_isItalic;
    charset = m_charset;
    pitchAndFamily = m_pitchAndFamily;
    return acutNewString(m_typeface, typeface);
}

AcGePoint2d AcGiTextStyle::extents(const ACHAR* text, bool, int length, bool raw) const
{
    CString shown;
    for (int at = 0; raw && text != nullptr && (length < 0 || at < length) && text[at] != 0; ++at)
        shown += text[at];
    if (!raw)
        shown = KxPlat::ShownText(text, length);
    const KxPlat::FontChain& fonts = KxPlat::FontsOf(*this);
    double advance = 0;
    for (int at = 0; at < shown.GetLength(); ++at)
        advance += m_isVertical ? 1.0 : fonts.GlyphOf(shown[at]).advance * m_trackingPercent;
    if (m_isVertical)
        return AcGePoint2d(m_textSize * m_xScale, -advance * m_textSize);
    const double slant = std::tan(m_obliquingAngle) * m_textSize;
    const double width = advance * m_textSize * m_xScale;
    return AcGePoint2d(width == 0 ? 0 : width + slant, shown.IsEmpty() ? 0 : m_textSize);
}
