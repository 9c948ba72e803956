#include "PdfPainter.h"
#include "../gi/fonts/Font.h"
#include "../win/CodePage.h"
#include "DisplayList.h"
#include <algorithm>
#include <cairo/cairo-pdf.h>
#include <cairo/cairo.h>

namespace KxPlat {

PdfPainter::PdfPainter(const std::string& path, double width, double height, double dotsPerInch, uint32_t background)
    : m_surface(cairo_pdf_surface_create(path.c_str(), width * 72 / dotsPerInch, height * 72 / dotsPerInch)),
      m_page(cairo_create(m_surface))
{
    cairo_scale(m_page, 72 / dotsPerInch, 72 / dotsPerInch);
    cairo_set_line_cap(m_page, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(m_page, CAIRO_LINE_JOIN_ROUND);
    cairo_set_fill_rule(m_page, CAIRO_FILL_RULE_EVEN_ODD);
    SetColor(background);
    cairo_paint(m_page);
}

PdfPainter::~PdfPainter()
{
    cairo_destroy(m_page);
    cairo_surface_destroy(m_surface);
}

void PdfPainter::SetColor(uint32_t rgb)
{
    cairo_set_source_rgb(m_page, (rgb >> 16 & 0xFF) / 255.0, (rgb >> 8 & 0xFF) / 255.0, (rgb & 0xFF) / 255.0);
}

void PdfPainter::Strip(const DevicePoint* points, size_t count, const Pen& pen)
{
    SetColor(pen.rgb);
    cairo_set_line_width(m_page, std::max(pen.width, 0.5));
    for (size_t at = 0; at < count; ++at)
        cairo_line_to(m_page, points[at].x, points[at].y);
    if (count == 1)
        cairo_line_to(m_page, points[0].x, points[0].y);
    cairo_stroke(m_page);
}

void PdfPainter::Fill(const std::vector<DevicePoint>& points, const std::vector<uint32_t>& ends, uint32_t rgb)
{
    SetColor(rgb);
    uint32_t at = 0;
    for (const uint32_t end : ends) {
        cairo_new_sub_path(m_page);
        for (; at < end; ++at)
            cairo_line_to(m_page, points[at].x, points[at].y);
        cairo_close_path(m_page);
    }
    cairo_fill(m_page);
}

bool PdfPainter::Text(const TextItem& text, const DevicePoint& origin, const DevicePoint& x, const DevicePoint& y,
                      uint32_t rgb)
{
    if (text.isVertical || text.text.empty() || !text.fonts->GlyphOf(text.text.front()).isFilled)
        return false;
    double advance = 0;
    for (const wchar_t letter : text.text)
        advance += text.fonts->GlyphOf(letter).advance * text.tracking;
    const std::string utf8 = ToUtf8(text.text);
    cairo_save(m_page);
    cairo_select_font_face(m_page, text.family.empty() ? "sans-serif" : ToUtf8(text.family).c_str(),
                           CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    // A unit is the height of a capital; a font's size is about 1.4 times that. The text then is as wide as it was laid
    // out.
    const cairo_matrix_t axes = {x.x, x.y, -y.x, -y.y, origin.x, origin.y};
    cairo_transform(m_page, &axes);
    cairo_set_font_size(m_page, 1.4);
    cairo_text_extents_t extents;
    cairo_text_extents(m_page, utf8.c_str(), &extents);
    const bool isDrawable = advance > 0 && extents.x_advance > 0 && cairo_status(m_page) == CAIRO_STATUS_SUCCESS;
    if (isDrawable) {
        cairo_scale(m_page, advance / extents.x_advance, 1);
        SetColor(rgb);
        cairo_move_to(m_page, 0, 0);
        cairo_show_text(m_page, utf8.c_str());
    }
    cairo_restore(m_page);
    return isDrawable;
}

std::string PdfPainter::Finish()
{
    cairo_show_page(m_page);
    cairo_surface_finish(m_surface);
    const cairo_status_t status =
        cairo_status(m_page) != CAIRO_STATUS_SUCCESS ? cairo_status(m_page) : cairo_surface_status(m_surface);
    return status == CAIRO_STATUS_SUCCESS ? std::string() : std::string(cairo_status_to_string(status));
}

}   // namespace KxPlat
