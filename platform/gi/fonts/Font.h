// The outline of characters. Lengths are shares of the text height (the height of a capital), y upwards from the base
// line. A stroke font's contours are open and drawn with the pen; a filled font's are closed, by the even-odd rule.
#pragma once
#include "../../ge/AcGePoint2d.h"
#include <memory>
#include <vector>

class AcGiTextStyle;

namespace KxPlat {

struct Glyph {
    double advance = 0;
    bool isFilled = false;
    std::vector<std::vector<AcGePoint2d>> contours;
};

class Font {
public:
    virtual ~Font() = default;
    // Null when the font has no such character.
    virtual const Glyph* GlyphOf(wchar_t character) = 0;
};

// The stroke font that stands for every shape font: ASCII and the signs of drawings.
Font& StrokeFont();
// The advance of a character of the stroke font, a square for ideographs it lacks.
double StrokeAdvanceOf(wchar_t character);

// A TrueType or OpenType file. Null when it cannot be read.
std::unique_ptr<Font> OpenTrueTypeFont(const char* file, int faceIndex);

// What a style's text is drawn with: its own font first, then fonts of the system that have what it lacks.
class FontChain {
public:
    explicit FontChain(Font& first) : m_first(&first) {}
    // Never null: what nobody has is a box.
    const Glyph& GlyphOf(wchar_t character) const;

private:
    Font* m_first;
};

// Fonts are opened once and live as long as the program.
const FontChain& FontsOf(const AcGiTextStyle& style);

}   // namespace KxPlat
