#include "SvgPainter.h"
#include "../gi/fonts/Font.h"
#include "../win/CodePage.h"
#include "DisplayList.h"
#include <algorithm>
#include <charconv>
#include <cmath>

namespace KxPlat {

namespace {

constexpr size_t kLongestPath = 60000;   // bytes; some readers are slow on longer ones

void AddColor(std::string& file, uint32_t rgb)
{
    constexpr char digits[] = "0123456789abcdef";
    file += '#';
    for (int shift = 20; shift >= 0; shift -= 4)
        file += digits[rgb >> shift & 15];
}

std::string Escaped(const std::wstring& text)
{
    std::string escaped;
    for (const char letter : ToUtf8(text)) {
        if (letter == '&')
            escaped += "&amp;";
        else if (letter == '<')
            escaped += "&lt;";
        else if (letter == '>')
            escaped += "&gt;";
        else if (static_cast<unsigned char>(letter) >= ' ')
            escaped += letter;
    }
    return escaped;
}

}   // namespace

SvgPainter::SvgPainter(double width, double height, double dotsPerInch, uint32_t background)
{
    m_file = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"";
    Number(width / dotsPerInch * 25.4);
    m_file += "mm\" height=\"";
    Number(height / dotsPerInch * 25.4);
    m_file += "mm\" viewBox=\"0 0 ";
    Number(width);
    m_file += ' ';
    Number(height);
    m_file += "\">\n<rect width=\"100%\" height=\"100%\" fill=\"";
    AddColor(m_file, background);
    m_file += "\"/>\n<g fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
}

void SvgPainter::Number(double value)
{
    char digits[32];
    const auto end =
        std::to_chars(digits, digits + sizeof digits, std::isfinite(value) ? value : 0, std::chars_format::fixed, 2);
    const char* last = end.ptr;
    while (last > digits + 1 && last[-1] == '0')
        --last;
    if (last[-1] == '.')
        --last;
    m_file.append(digits, size_t(last - digits));
}

void SvgPainter::Point(char command, const DevicePoint& point)
{
    m_file += command;
    Number(point.x);
    m_file += ' ';
    Number(point.y);
}

// Neighbouring lines of one pen share a path.
void SvgPainter::OpenPath(const Pen& pen)
{
    const double width = std::max(pen.width, 0.5);
    if (m_isPathOpen && m_pen.rgb == pen.rgb && m_pen.width == width && m_file.size() - m_pathStart < kLongestPath)
        return;
    ClosePath();
    m_pen = {pen.rgb, width};
    m_file += "<path stroke=\"";
    AddColor(m_file, pen.rgb);
    m_file += "\" stroke-width=\"";
    Number(width);
    m_file += "\" d=\"";
    m_pathStart = m_file.size();
    m_isPathOpen = true;
}

void SvgPainter::ClosePath()
{
    if (m_isPathOpen)
        m_file += "\"/>\n";
    m_isPathOpen = false;
}

void SvgPainter::Strip(const DevicePoint* points, size_t count, const Pen& pen)
{
    OpenPath(pen);
    for (size_t at = 0; at < count; ++at)
        Point(at == 0 ? 'M' : 'L', points[at]);
    if (count == 1)
        m_file += "h0";
}

void SvgPainter::Fill(const std::vector<DevicePoint>& points, const std::vector<uint32_t>& ends, uint32_t rgb)
{
    ClosePath();
    m_file += "<path stroke=\"none\" fill-rule=\"evenodd\" fill=\"";
    AddColor(m_file, rgb);
    m_file += "\" d=\"";
    uint32_t at = 0;
    for (const uint32_t end : ends) {
        for (const uint32_t first = at; at < end; ++at)
            Point(at == first ? 'M' : 'L', points[at]);
        m_file += 'Z';
    }
    m_file += "\"/>\n";
}

bool SvgPainter::Text(const TextItem& text, const DevicePoint& origin, const DevicePoint& x, const DevicePoint& y,
                      uint32_t rgb)
{
    // Vertical texts and those of shape fonts are drawn stroke by stroke: no font of a reader looks like them.
    if (text.isVertical || text.text.empty() || !text.fonts->GlyphOf(text.text.front()).isFilled)
        return false;
    double advance = 0;
    for (const wchar_t letter : text.text)
        advance += text.fonts->GlyphOf(letter).advance * text.tracking;
    if (!(advance > 0))
        return false;
    ClosePath();
    // A hundred units are the height of a capital; a font's size is about 1.4 times that.
    m_file += "<text xml:space=\"preserve\" font-size=\"140\" font-family=\"";
    m_file += text.family.empty() ? "sans-serif" : Escaped(text.family) + ", sans-serif";
    m_file += "\" textLength=\"";
    Number(advance * 100);
    m_file += "\" lengthAdjust=\"spacingAndGlyphs\" fill=\"";
    AddColor(m_file, rgb);
    m_file += "\" transform=\"matrix(";
    const double entries[] = {x.x, x.y, -y.x, -y.y};
    for (const double entry : entries) {
        char digits[32];
        m_file.append(digits,
                      std::to_chars(digits, digits + sizeof digits, entry / 100, std::chars_format::fixed, 6).ptr);
        m_file += ' ';
    }
    Number(origin.x);
    m_file += ' ';
    Number(origin.y);
    m_file += ")\">" + Escaped(text.text) + "</text>\n";
    return true;
}

std::string SvgPainter::Finish()
{
    ClosePath();
    m_file += "</g>\n</svg>\n";
    return std::move(m_file);
}

}   // namespace KxPlat
