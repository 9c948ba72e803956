// Outlines out of font files, through FreeType. Curves become short chords; one glyph is taken apart once.
#include "Font.h"
#include <cmath>
#include <ft2build.h>
#include <unordered_map>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

using namespace KxPlat;

namespace {

constexpr int kStepsOfCurve = 6;

struct Tracer {
    Glyph* glyph;
    double scale;
    AcGePoint2d last;

    AcGePoint2d Point(const FT_Vector* at) const { return {double(at->x) * scale, double(at->y) * scale}; }
    void To(const AcGePoint2d& point)
    {
        glyph->contours.back().push_back(point);
        last = point;
    }
};

int MoveTo(const FT_Vector* to, void* user)
{
    Tracer& tracer = *static_cast<Tracer*>(user);
    tracer.glyph->contours.emplace_back();
    tracer.To(tracer.Point(to));
    return 0;
}

int LineTo(const FT_Vector* to, void* user)
{
    Tracer& tracer = *static_cast<Tracer*>(user);
    tracer.To(tracer.Point(to));
    return 0;
}

int CubicTo(const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to, void* user)
{
    Tracer& tracer = *static_cast<Tracer*>(user);
    const AcGePoint2d a = tracer.last, b = tracer.Point(control1), c = tracer.Point(control2), d = tracer.Point(to);
    for (int step = 1; step <= kStepsOfCurve; ++step) {
        const double t = double(step) / kStepsOfCurve, s = 1 - t;
        const double wa = s * s * s, wb = 3 * s * s * t, wc = 3 * s * t * t, wd = t * t * t;
        tracer.To({wa * a.x + wb * b.x + wc * c.x + wd * d.x, wa * a.y + wb * b.y + wc * c.y + wd * d.y});
    }
    return 0;
}

int ConicTo(const FT_Vector* control, const FT_Vector* to, void* user)
{
    Tracer& tracer = *static_cast<Tracer*>(user);
    const AcGePoint2d a = tracer.last, b = tracer.Point(control), c = tracer.Point(to);
    for (int step = 1; step <= kStepsOfCurve; ++step) {
        const double t = double(step) / kStepsOfCurve, s = 1 - t;
        tracer.To({s * s * a.x + 2 * s * t * b.x + t * t * c.x, s * s * a.y + 2 * s * t * b.y + t * t * c.y});
    }
    return 0;
}

constexpr FT_Outline_Funcs kTrace = {MoveTo, LineTo, ConicTo, CubicTo, 0, 0};

// The height of a capital in font units: what the height of a text means.
double CapitalHeight(FT_Face face)
{
    const FT_UInt index = FT_Get_Char_Index(face, 'H');
    if (index != 0 && FT_Load_Glyph(face, index, FT_LOAD_NO_SCALE | FT_LOAD_NO_HINTING) == 0 &&
        face->glyph->metrics.horiBearingY > 0)
        return double(face->glyph->metrics.horiBearingY);
    return face->units_per_EM * 0.72;
}

// Outlives every font that it opened.
std::shared_ptr<FT_LibraryRec_> Library()
{
    static const std::shared_ptr<FT_LibraryRec_> library = [] {
        FT_Library opened = nullptr;
        FT_Init_FreeType(&opened);
        return std::shared_ptr<FT_LibraryRec_>(opened, FT_Done_FreeType);
    }();
    return library;
}

class TrueTypeFont : public Font {
public:
    TrueTypeFont(std::shared_ptr<FT_LibraryRec_> library, FT_Face face)
        : m_library(std::move(library)), m_face(face), m_scale(1 / CapitalHeight(face))
    {
    }
    ~TrueTypeFont() override { FT_Done_Face(m_face); }

    const Glyph* GlyphOf(wchar_t character) override
    {
        const auto made = m_made.find(character);
        if (made != m_made.end())
            return made->second.get();
        return m_made.emplace(character, Load(character)).first->second.get();
    }

private:
    std::unique_ptr<Glyph> Load(wchar_t character)
    {
        const FT_UInt index = FT_Get_Char_Index(m_face, FT_ULong(character));
        if (index == 0 || FT_Load_Glyph(m_face, index, FT_LOAD_NO_SCALE | FT_LOAD_NO_HINTING) != 0)
            return nullptr;
        auto glyph = std::make_unique<Glyph>();
        glyph->isFilled = true;
        glyph->advance = double(m_face->glyph->metrics.horiAdvance) * m_scale;
        if (m_face->glyph->format == FT_GLYPH_FORMAT_OUTLINE) {
            Tracer tracer{glyph.get(), m_scale, AcGePoint2d()};
            if (FT_Outline_Decompose(&m_face->glyph->outline, &kTrace, &tracer) != 0)
                glyph->contours.clear();
        }
        return glyph;
    }

    std::shared_ptr<FT_LibraryRec_> m_library;
    FT_Face m_face;
    double m_scale;
    std::unordered_map<wchar_t, std::unique_ptr<Glyph>> m_made;
};

}   // namespace

namespace KxPlat {

std::unique_ptr<Font> OpenTrueTypeFont(const char* file, int faceIndex)
{
    std::shared_ptr<FT_LibraryRec_> library = Library();
    FT_Face face = nullptr;
    if (library == nullptr || FT_New_Face(library.get(), file, faceIndex, &face) != 0)
        return nullptr;
    if (!FT_IS_SCALABLE(face) || face->units_per_EM == 0) {
        FT_Done_Face(face);
        return nullptr;
    }
    FT_Select_Charmap(face, FT_ENCODING_UNICODE);
    return std::make_unique<TrueTypeFont>(std::move(library), face);
}

}   // namespace KxPlat
