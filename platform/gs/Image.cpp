#include "Image.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <png.h>

namespace KxPlat {

namespace {

// Lines that pass between two pixels take the same one, whatever the last digits of their points.
constexpr double kTie = 1e-6;
// Fixed-point numbers along a line: 20 bits before the point, 40 behind it.
constexpr int kFixedBits = 40;
constexpr double kFixedOne = double(int64_t(1) << kFixedBits);

// The same as std::floor for what an int holds, without a call.
int WholeBelow(double value)
{
    const int cut = int(value);
    return cut - (value < cut ? 1 : 0);
}

}   // namespace

Image::Image(int width, int height, uint32_t background)
    : m_width(width), m_height(height), m_pixels(size_t(width) * size_t(height), background)
{
}

void Image::Clear(uint32_t background)
{
    std::fill(m_pixels.begin(), m_pixels.end(), background);
}

void Image::Shift(int dx, int dy)
{
    const int kept = m_width - std::abs(dx), rows = m_height - std::abs(dy);
    if (kept <= 0 || rows <= 0)
        return;
    for (int step = 0; step < rows; ++step) {
        const int y = dy > 0 ? m_height - 1 - step : step;   // no row is overwritten before it was moved
        std::memmove(Row(y) + std::max(dx, 0), Row(y - dy) + std::max(-dx, 0), size_t(kept) * sizeof(uint32_t));
    }
}

void Image::Put(const Image& part, int left, int top)
{
    const int from = std::max(left, 0), to = std::min(left + part.width(), m_width);
    for (int y = std::max(top, 0); y < std::min(top + part.height(), m_height) && from < to; ++y)
        std::memcpy(Row(y) + from, part.Row(y - top) + (from - left), size_t(to - from) * sizeof(uint32_t));
}

Image Image::Reduced(int factor) const
{
    Image small(m_width / factor, m_height / factor, 0);
    const uint32_t count = uint32_t(factor * factor);
    for (int y = 0; y < small.height(); ++y)
        for (int x = 0; x < small.width(); ++x) {
            uint32_t red = 0, green = 0, blue = 0;
            for (int row = 0; row < factor; ++row) {
                const uint32_t* at = Row(y * factor + row) + ptrdiff_t(x) * factor;
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
            Set(WholeBelow(std::clamp(points->x, -1.0, 1e6)), WholeBelow(std::clamp(points->y, -1.0, 1e6)), pen.rgb);
    }
    for (size_t at = 1; at < count; ++at)
        if (pen.width >= 1.5)
            ThickLine(points[at - 1], points[at], pen);
        else
            Line(points[at - 1], points[at], pen.rgb);
}

bool ImagePainter::IsNear(const DevicePoint& point) const
{
    return std::abs(point.x) < 1e6 && std::abs(point.y) < 1e6;
}

// One pixel for each column, or row of a steep line: the one that the line passes through in the column's middle. That
// is the same wherever a line was cut before, so that parts of a picture drawn apart fit together.
void ImagePainter::Line(const DevicePoint& from, const DevicePoint& to, uint32_t rgb)
{
    const double dx = to.x - from.x, dy = to.y - from.y;
    const bool isSteep = std::abs(dy) > std::abs(dx);
    const bool isBackward = (isSteep ? dy : dx) < 0;
    const DevicePoint &low = isBackward ? to : from, &high = isBackward ? from : to;
    const double start = isSteep ? low.y : low.x, end = isSteep ? high.y : high.x;
    const double side = isSteep ? low.x : low.y, otherSide = isSteep ? high.x : high.y;
    if (!(std::abs(start) < 1e9 && std::abs(end) < 1e9))
        return;
    const int last = isSteep ? m_image.height() - 1 : m_image.width() - 1;
    const int sides = isSteep ? m_image.width() : m_image.height();
    const int first = WholeBelow(std::clamp(start, -1.0, double(last) + 1));
    const int final = WholeBelow(std::clamp(end, -1.0, double(last) + 1));
    const int begin = std::max(first, 0), finish = std::min(final, last);
    if (begin > finish || !(std::abs(side) < 1e6 && std::abs(otherSide) < 1e6))
        return;
    const double slope = end > start ? (otherSide - side) / (end - start) : 0;
    const double least = std::min(side, otherSide), most = std::max(side, otherSide);
    const auto placeAt = [&](int at) { return std::clamp(side + (at + 0.5 - start) * slope, least, most) + kTie; };
    const auto set = [&](int at, int place) {
        if (place >= 0 && place < sides)
            m_image.Row(isSteep ? at : place)[isSteep ? place : at] = rgb;
    };
    // The middle of the first and the last pixel may lie beyond the ends; between them the way is even.
    set(begin, WholeBelow(placeAt(begin)));
    if (finish > begin)
        set(finish, WholeBelow(placeAt(finish)));
    if (finish - begin < 2)
        return;
    int64_t place = int64_t(placeAt(begin + 1) * kFixedOne);
    const int64_t step = int64_t(slope * kFixedOne);
    for (int at = begin + 1; at < finish; ++at, place += step)
        set(at, int(place >> kFixedBits));
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
    m_fill.Run(points.data(), ends.data(), ends.size(), m_image.width(), m_image.height(),
               [&](int y, int from, int to) { std::fill(m_image.Row(y) + from, m_image.Row(y) + to, rgb); });
    const auto [low, high] = std::minmax_element(points.begin(), points.end(),
                                                 [](const DevicePoint& a, const DevicePoint& b) { return a.y < b.y; });
    // An area thinner than a pixel is still seen.
    if (high->y - low->y < 1)
        for (size_t at = 1; at < points.size(); ++at)
            if (IsNear(points[at]) && IsNear(points[at - 1]))
                Line(points[at - 1], points[at], rgb);
}

}   // namespace KxPlat
