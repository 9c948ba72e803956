#include "Image.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <png.h>

namespace KxPlat {

Image::Image(int width, int height, uint32_t background)
    : m_width(width), m_height(height), m_pixels(size_t(width) * size_t(height), background)
{
}

void Image::Clear(uint32_t background)
{
    std::fill(m_pixels.begin(), m_pixels.end(), background);
}

Image Image::Reduced(int factor) const
{
    Image small(m_width / factor, m_height / factor, 0);
    const uint32_t count = uint32_t(factor * factor);
    for (int y = 0; y < small.height(); ++y)
        for (int x = 0; x < small.width(); ++x) {
            uint32_t red = 0, green = 0, blue = 0;
            for (int row = 0; row < factor; ++row) {
                const uint32_t* at = Row(y * factor + row) + x * factor;
                for (int column = 0; column < factor; ++column) {
                    red += at[column] >> 16 & 0xFF;
                    green += at[column] >> 8 & 0xFF;
                    blue += at[column] & 0xFF;
                }
            }
            small.Row(y)[x] = red / count << 16 | green / count << 8 | blue / count;
        }
    return small;
}

std::string Image::WritePng(const std::string& path, double dotsPerInch) const
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), &std::fclose);
    if (file == nullptr)
        return "cannot be written";
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png == nullptr ? nullptr : png_create_info_struct(png);
    std::vector<unsigned char> row(size_t(m_width) * 3);
    if (info == nullptr || setjmp(png_jmpbuf(png)) != 0) {
        png_destroy_write_struct(&png, &info);
        return "cannot be written";
    }
    png_init_io(png, file.get());
    png_set_IHDR(png, info, png_uint_32(m_width), png_uint_32(m_height), 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    const auto perMetre = png_uint_32(std::lround(dotsPerInch / 0.0254));
    png_set_pHYs(png, info, perMetre, perMetre, PNG_RESOLUTION_METER);
    png_write_info(png, info);
    for (int y = 0; y < m_height; ++y) {
        for (int x = 0; x < m_width; ++x) {
            const uint32_t rgb = At(x, y);
            row[size_t(x) * 3] = static_cast<unsigned char>(rgb >> 16);
            row[size_t(x) * 3 + 1] = static_cast<unsigned char>(rgb >> 8);
            row[size_t(x) * 3 + 2] = static_cast<unsigned char>(rgb);
        }
        png_write_row(png, row.data());
    }
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return std::fflush(file.get()) == 0 ? std::string() : std::string("cannot be written");
}

void ImagePainter::Strip(const DevicePoint* points, size_t count, const Pen& pen)
{
    if (count == 1) {
        if (pen.width >= 2)
            ThickLine({points->x - 0.01, points->y, 0}, {points->x + 0.01, points->y, 0}, pen);
        else
            Set(int(std::floor(points->x)), int(std::floor(points->y)), pen.rgb);
    }
    for (size_t at = 1; at < count; ++at)
        if (pen.width >= 1.5)
            ThickLine(points[at - 1], points[at], pen);
        else
            Line(points[at - 1], points[at], pen.rgb);
}

// Bresenham's line. What is handed over lies near the image, so whole numbers suffice.
void ImagePainter::Line(const DevicePoint& from, const DevicePoint& to, uint32_t rgb)
{
    int x = int(std::floor(from.x)), y = int(std::floor(from.y));
    const int endX = int(std::floor(to.x)), endY = int(std::floor(to.y));
    const int dx = std::abs(endX - x), dy = -std::abs(endY - y);
    const int stepX = x < endX ? 1 : -1, stepY = y < endY ? 1 : -1;
    int error = dx + dy;
    for (;;) {
        Set(x, y, rgb);
        if (x == endX && y == endY)
            return;
        const int twice = 2 * error;
        if (twice >= dy) {
            error += dy;
            x += stepX;
        }
        if (twice <= dx) {
            error += dx;
            y += stepY;
        }
    }
}

void ImagePainter::ThickLine(const DevicePoint& from, const DevicePoint& to, const Pen& pen)
{
    double x = to.x - from.x, y = to.y - from.y;
    const double length = std::hypot(x, y), half = pen.width / 2;
    if (length == 0)
        x = half;
    else
        x *= half / length, y *= half / length;
    // Ends reach half a width beyond, so that corners are closed.
    m_corners = {{from.x - x - y, from.y - y + x, 0},
                 {to.x + x - y, to.y + y + x, 0},
                 {to.x + x + y, to.y + y - x, 0},
                 {from.x - x + y, from.y - y - x, 0}};
    m_cornerEnds = {4};
    Fill(m_corners, m_cornerEnds, pen.rgb);
}

void ImagePainter::Fill(const std::vector<DevicePoint>& points, const std::vector<uint32_t>& ends, uint32_t rgb)
{
    if (points.empty())
        return;
    const auto [low, high] = std::minmax_element(points.begin(), points.end(),
                                                 [](const DevicePoint& a, const DevicePoint& b) { return a.y < b.y; });
    const int first = int(std::max(std::floor(low->y), 0.0));
    const int last = int(std::min(std::ceil(high->y), double(m_image.height() - 1)));
    for (int y = first; y <= last; ++y) {
        const double middle = y + 0.5;
        m_crossings.clear();
        uint32_t begin = 0;
        for (const uint32_t end : ends) {
            for (uint32_t at = begin, before = end - 1; at < end; before = at++) {
                const DevicePoint &a = points[before], &b = points[at];
                if ((a.y > middle) != (b.y > middle))
                    m_crossings.push_back(a.x + (b.x - a.x) * (middle - a.y) / (b.y - a.y));
            }
            begin = end;
        }
        std::sort(m_crossings.begin(), m_crossings.end());
        uint32_t* row = m_image.Row(y);
        for (size_t at = 0; at + 1 < m_crossings.size(); at += 2) {
            const double from = std::clamp(std::ceil(m_crossings[at] - 0.5), 0.0, double(m_image.width()));
            const double to = std::clamp(std::ceil(m_crossings[at + 1] - 0.5), 0.0, double(m_image.width()));
            for (int x = int(from); x < int(to); ++x)
                row[x] = rgb;
        }
    }
    // An area thinner than a pixel is still seen.
    if (high->y - low->y < 1)
        for (size_t at = 1; at < points.size(); ++at)
            if (std::abs(points[at].x) < 1e6 && std::abs(points[at - 1].x) < 1e6)
                Line(points[at - 1], points[at], rgb);
}

}   // namespace KxPlat
