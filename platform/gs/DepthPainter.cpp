#include "DepthPainter.h"
#include <cmath>
#include <limits>

namespace KxPlat {

namespace {

// Pixels that lines and filled areas come nearer to the eye, so that they are seen on the faces that they lie on.
constexpr double kLineLift = 2, kFillLift = 1;

uint32_t Shaded(uint32_t rgb, double shade)
{
    const double share = std::clamp(shade, 0.0, 1.0);
    return uint32_t((rgb >> 16 & 0xFF) * share) << 16 | uint32_t((rgb >> 8 & 0xFF) * share) << 8 |
           uint32_t((rgb & 0xFF) * share);
}

}   // namespace

DepthPainter::DepthPainter(Image& image, RenderMode mode, uint32_t background)
    : m_image(image), m_mode(mode), m_background(background)
{
    Reset(1);
}

void DepthPainter::Reset(double depthScale)
{
    m_depthScale = depthScale;
    m_depth.assign(size_t(m_image.width()) * size_t(m_image.height()), -std::numeric_limits<float>::infinity());
}

void DepthPainter::Set(int x, int y, double depth, uint32_t rgb)
{
    if (x < 0 || y < 0 || x >= m_image.width() || y >= m_image.height())
        return;
    float& there = m_depth[size_t(y) * size_t(m_image.width()) + size_t(x)];
    if (!(float(depth) >= there))
        return;
    there = float(depth);
    m_image.Row(y)[x] = rgb;
}

void DepthPainter::Strip(const DevicePoint* points, size_t count, const Pen& pen)
{
    if (count == 1 && std::abs(points->x) < 1e6 && std::abs(points->y) < 1e6)
        Set(int(std::floor(points->x)), int(std::floor(points->y)), points->depth * m_depthScale + kLineLift, pen.rgb);
    for (size_t at = 1; at < count; ++at)
        if (pen.width >= 1.5)
            ThickLine(points[at - 1], points[at], pen);
        else
            Line(points[at - 1], points[at], pen.rgb);
}

void DepthPainter::Line(const DevicePoint& from, const DevicePoint& to, uint32_t rgb)
{
    const double dx = to.x - from.x, dy = to.y - from.y, dz = (to.depth - from.depth) * m_depthScale;
    if (!(std::abs(dx) < 1e6 && std::abs(dy) < 1e6 && std::abs(from.x) < 1e6 && std::abs(from.y) < 1e6))
        return;
    const int steps = int(std::ceil(std::max(std::abs(dx), std::abs(dy))));
    for (int step = 0; step <= steps; ++step) {
        const double share = steps == 0 ? 0 : double(step) / steps;
        Set(int(std::floor(from.x + dx * share)), int(std::floor(from.y + dy * share)),
            from.depth * m_depthScale + dz * share + kLineLift, rgb);
    }
}

void DepthPainter::ThickLine(const DevicePoint& from, const DevicePoint& to, const Pen& pen)
{
    const double x = to.x - from.x, y = to.y - from.y, length = std::hypot(x, y);
    const double half = length > 0 ? pen.width / 2 / length : 0;
    const DevicePoint corners[] = {{from.x - y * half, from.y + x * half, from.depth},
                                   {to.x - y * half, to.y + x * half, to.depth},
                                   {to.x + y * half, to.y - x * half, to.depth},
                                   {from.x + y * half, from.y - x * half, from.depth}};
    const uint32_t end = 4;
    Slope depth;
    Line(from, to, pen.rgb);
    if (!Fit(corners, 4, depth))
        return;
    depth.atOrigin += kLineLift;
    Plane(corners, &end, 1, depth, [&](int, int) { return pen.rgb; });
}

bool DepthPainter::Fit(const DevicePoint* points, size_t count, Slope& depth) const
{
    // Newell's normal around the first point, so that far places lose no digits.
    const DevicePoint& origin = points[0];
    double x = 0, y = 0, z = 0;
    for (size_t at = 0, before = count - 1; at < count; before = at++) {
        const DevicePoint &a = points[before], &b = points[at];
        x += (a.y - b.y) * (a.depth + b.depth - 2 * origin.depth) * m_depthScale;
        y += (a.depth - b.depth) * m_depthScale * (a.x + b.x - 2 * origin.x);
        z += (a.x - b.x) * (a.y + b.y - 2 * origin.y);
    }
    if (!(std::abs(z) > 1e-9 * (std::abs(x) + std::abs(y))) || z == 0)
        return false;
    depth.byX = -x / z;
    depth.byY = -y / z;
    depth.atOrigin = origin.depth * m_depthScale - depth.byX * origin.x - depth.byY * origin.y;
    return true;
}

template <class Color>
void DepthPainter::Plane(const DevicePoint* points, const uint32_t* ends, size_t contours, const Slope& depth,
                         Color&& color)
{
    m_fill.Run(points, ends, contours, m_image.width(), m_image.height(), [&](int y, int from, int to) {
        float* there = m_depth.data() + size_t(y) * size_t(m_image.width());
        uint32_t* row = m_image.Row(y);
        for (int x = from; x < to; ++x) {
            const auto here = float(depth.At(x + 0.5, y + 0.5));
            if (!(here >= there[x]))
                continue;
            there[x] = here;
            row[x] = color(x, y);
        }
    });
}

void DepthPainter::Fill(const std::vector<DevicePoint>& points, const std::vector<uint32_t>& ends, uint32_t rgb)
{
    Slope depth;
    if (points.empty() || !Fit(points.data(), ends[0], depth))
        return;
    depth.atOrigin += kFillLift;
    Plane(points.data(), ends.data(), ends.size(), depth, [&](int, int) { return rgb; });
}

void DepthPainter::Face(const DevicePoint* points, const float* shades, size_t count, uint32_t rgb)
{
    Slope depth;
    const bool isEven = std::all_of(shades, shades + count, [&](float shade) { return shade == shades[0]; });
    if (isEven || m_mode == RenderMode::HiddenLine) {
        const uint32_t end = uint32_t(count);
        const uint32_t color = m_mode == RenderMode::HiddenLine ? m_background : Shaded(rgb, shades[0]);
        if (Fit(points, count, depth))
            Plane(points, &end, 1, depth, [&](int, int) { return color; });
        return;
    }
    for (size_t at = 2; at < count; ++at) {
        const DevicePoint corners[] = {points[0], points[at - 1], points[at]};
        const float light[] = {shades[0], shades[at - 1], shades[at]};
        if (Fit(corners, 3, depth))
            Triangle(corners, light, rgb, depth);
    }
}

void DepthPainter::Triangle(const DevicePoint corners[3], const float shades[3], uint32_t rgb, const Slope& depth)
{
    const double x1 = corners[1].x - corners[0].x, y1 = corners[1].y - corners[0].y;
    const double x2 = corners[2].x - corners[0].x, y2 = corners[2].y - corners[0].y;
    const double area = x1 * y2 - x2 * y1, s1 = shades[1] - shades[0], s2 = shades[2] - shades[0];
    Slope light;
    light.byX = (s1 * y2 - s2 * y1) / area;
    light.byY = (s2 * x1 - s1 * x2) / area;
    light.atOrigin = shades[0] - light.byX * corners[0].x - light.byY * corners[0].y;
    const uint32_t end = 3;
    Plane(corners, &end, 1, depth, [&](int x, int y) { return Shaded(rgb, light.At(x + 0.5, y + 0.5)); });
}

}   // namespace KxPlat
