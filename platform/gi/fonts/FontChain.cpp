// Finds the font of a style: shape fonts are drawn with the built-in strokes, others are asked of fontconfig.
#include "../../win/CharTables.h"
#include "../../win/CodePage.h"
#include "../AcGiTextStyle.h"
#include "Font.h"
#include <algorithm>
#include <fontconfig/fontconfig.h>
#include <map>
#include <string>

using namespace KxPlat;

namespace {

// Names that Windows' drawings use, and the families that have their look and their characters elsewhere.
struct Stand {
    const wchar_t* name;   // lower case, as file or family
    const char* family;
};

constexpr Stand kStands[] = {
    {L"simsun", "SimSun,宋体,Noto Serif CJK SC,WenQuanYi Micro Hei"},
    {L"宋体", "SimSun,宋体,Noto Serif CJK SC,WenQuanYi Micro Hei"},
    {L"simhei", "SimHei,黑体,Noto Sans CJK SC,WenQuanYi Micro Hei"},
    {L"黑体", "SimHei,黑体,Noto Sans CJK SC,WenQuanYi Micro Hei"},
    {L"simfang", "FangSong,仿宋,Noto Serif CJK SC,WenQuanYi Micro Hei"},
    {L"simkai", "KaiTi,楷体,Noto Serif CJK SC,WenQuanYi Micro Hei"},
    {L"msyh", "Microsoft YaHei,Noto Sans CJK SC,WenQuanYi Micro Hei"},
    {L"arial", "Arial,Liberation Sans,DejaVu Sans"},
    {L"arialn", "Arial Narrow,Liberation Sans Narrow,DejaVu Sans Condensed"},
    {L"ariblk", "Arial Black,DejaVu Sans"},
    {L"calibri", "Calibri,Carlito,DejaVu Sans"},
    {L"tahoma", "Tahoma,DejaVu Sans"},
    {L"verdana", "Verdana,DejaVu Sans"},
    {L"times", "Times New Roman,Liberation Serif,DejaVu Serif"},
    {L"cour", "Courier New,Liberation Mono,DejaVu Sans Mono"},
};

struct FontFile {
    std::string path;
    int face = 0;
};

void AddFamilies(FcPattern* pattern, std::string_view families)
{
    while (!families.empty()) {
        const size_t comma = families.find(',');
        const std::string family(families.substr(0, comma));
        FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
        families = comma == std::string_view::npos ? std::string_view() : families.substr(comma + 1);
    }
}

// The best file that fontconfig knows; `needed`: a character that it must have, or 0.
FontFile Match(std::string_view families, bool isBold, bool isItalic, wchar_t needed)
{
    FontFile file;
    FcPattern* pattern = FcPatternCreate();
    AddFamilies(pattern, families);
    FcPatternAddInteger(pattern, FC_WEIGHT, isBold ? FC_WEIGHT_BOLD : FC_WEIGHT_NORMAL);
    FcPatternAddInteger(pattern, FC_SLANT, isItalic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern, FC_OUTLINE, FcTrue);
    FcCharSet* characters = FcCharSetCreate();
    if (needed != 0) {
        FcCharSetAddChar(characters, FcChar32(needed));
        FcPatternAddCharSet(pattern, FC_CHARSET, characters);
    }
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    if (FcPattern* found = FcFontMatch(nullptr, pattern, &result)) {
        FcChar8* path = nullptr;
        if (FcPatternGetString(found, FC_FILE, 0, &path) == FcResultMatch)
            file.path = reinterpret_cast<const char*>(path);
        FcPatternGetInteger(found, FC_INDEX, 0, &file.face);
        FcPatternDestroy(found);
    }
    FcCharSetDestroy(characters);
    FcPatternDestroy(pattern);
    return file;
}

class Fonts {
public:
    ~Fonts()
    {
        m_open.clear();
        FcFini();
    }

    Font* Open(const FontFile& file)
    {
        if (file.path.empty())
            return nullptr;
        const std::string key = file.path + '#' + std::to_string(file.face);
        auto [place, isNew] = m_open.try_emplace(key);
        if (isNew)
            place->second = OpenTrueTypeFont(file.path.c_str(), file.face);
        return place->second.get();
    }

    const FontChain& Chain(const std::wstring& name, bool isBold, bool isItalic)
    {
        const std::wstring key = name + (isBold ? L"|b" : L"|") + (isItalic ? L"i" : L"");
        const auto known = m_chains.find(key);
        if (known != m_chains.end())
            return known->second;
        Font* first = name.empty() ? nullptr : Open(Match(FamiliesOf(name), isBold, isItalic, 0));
        return m_chains.emplace(key, FontChain(first == nullptr ? StrokeFont() : *first)).first->second;
    }

    // A glyph out of any font of the system in the size of shape fonts, where an ideograph fills a square of the text's
    // height. One look for each character.
    const Glyph* Square(wchar_t character)
    {
        const auto known = m_squares.find(character);
        if (known != m_squares.end())
            return &known->second;
        const Glyph* found = Elsewhere(character);
        if (found == nullptr || found->advance <= 0)
            return nullptr;
        Glyph glyph = *found;
        const double scale = StrokeAdvanceOf(character) / found->advance;
        glyph.advance *= scale;
        for (std::vector<AcGePoint2d>& contour : glyph.contours)
            for (AcGePoint2d& point : contour)
                point = AcGePoint2d(point.x * scale, point.y * scale);
        return &m_squares.emplace(character, std::move(glyph)).first->second;
    }

    // A glyph out of any font of the system; one look for each character.
    const Glyph* Elsewhere(wchar_t character)
    {
        for (Font* font : m_fallbacks)
            if (const Glyph* glyph = font->GlyphOf(character))
                return glyph;
        if (m_missing.contains(character))
            return nullptr;
        Font* font = Open(Match("sans", false, false, character));
        const Glyph* glyph = font == nullptr ? nullptr : font->GlyphOf(character);
        if (glyph != nullptr)
            m_fallbacks.push_back(font);
        else
            m_missing[character] = true;
        return glyph;
    }

private:
    static std::string FamiliesOf(const std::wstring& name)
    {
        const auto* stand = std::find_if(std::begin(kStands), std::end(kStands),
                                         [&](const Stand& row) { return EqualNoCase(name, row.name); });
        return stand == std::end(kStands) ? ToUtf8(name) : stand->family;
    }

    std::map<std::string, std::unique_ptr<Font>> m_open;
    std::map<std::wstring, FontChain> m_chains;
    std::map<wchar_t, Glyph> m_squares;
    std::vector<Font*> m_fallbacks;
    std::map<wchar_t, bool> m_missing;
};

Fonts& AllFonts()
{
    static Fonts fonts;
    return fonts;
}

// What stands for a character that no font has, as wide as the character would be.
const Glyph& Box(wchar_t character)
{
    static std::map<double, Glyph> boxes;
    const double advance = StrokeAdvanceOf(character);
    const auto [place, isNew] = boxes.try_emplace(advance);
    if (isNew && advance > 0) {
        const double right = advance - 1.0 / 6;
        place->second = {advance, false, {{{0, 0}, {right, 0}, {right, 1}, {0, 1}, {0, 0}}}};
    }
    return place->second;
}

// "simsun" of "C:\\Windows\\Fonts\\SimSun.ttf"; nothing for a shape font or a name without extension.
std::wstring NameOfTrueTypeFile(std::wstring_view fileName)
{
    const size_t slash = fileName.find_last_of(L"\\/:");
    if (slash != std::wstring_view::npos)
        fileName.remove_prefix(slash + 1);
    const size_t dot = fileName.rfind(L'.');
    if (dot == std::wstring_view::npos)
        return {};
    const std::wstring_view extension = fileName.substr(dot);
    const bool isOutline =
        EqualNoCase(extension, L".ttf") || EqualNoCase(extension, L".ttc") || EqualNoCase(extension, L".otf");
    return isOutline ? std::wstring(fileName.substr(0, dot)) : std::wstring();
}

}   // namespace

namespace KxPlat {

const Glyph& FontChain::GlyphOf(wchar_t character) const
{
    if (const Glyph* own = m_first->GlyphOf(character))
        return *own;
    if (const Glyph* drawn = StrokeFont().GlyphOf(character))
        return *drawn;
    const bool isShapeFont = m_first == &StrokeFont();
    const Glyph* found = isShapeFont ? AllFonts().Square(character) : AllFonts().Elsewhere(character);
    return found == nullptr ? Box(character) : *found;
}

const FontChain& FontsOf(const AcGiTextStyle& style)
{
    const std::wstring_view typeface = style.typeface();
    const std::wstring name = typeface.empty() ? NameOfTrueTypeFile(style.fileName()) : std::wstring(typeface);
    return AllFonts().Chain(name, style.isBold(), style.isItalic());
}

}   // namespace KxPlat
