#include "ShapeDrawer.h"
#include "../gi/fonts/Font.h"
#include "SegmentCut.h"
#include <algorithm>
#include <cmath>
#include <numbers>

namespace KxPlat {

namespace {

constexpr double kSmallestText = 2;           // pixels of height; smaller texts are a line
constexpr double kSmallestDash = 2;           // pixels of a dash pattern; smaller ones are a plain line
constexpr double kMostDashes = 1e5;           // of one strip; more are a plain line
constexpr double kEdge = 64;                  // pixels around the device in which lines are kept
constexpr uint32_t kBlackShaded = 0xC0C0C0;   // black faces would show no shape

DevicePoint Between(const DevicePoint& a, const DevicePoint& b, double share)
{
    return {a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share, a.depth + (b.depth - a.depth) * share};
}

// The share of its colour that a face shows; `normal` in the axes of the view, y down. The light comes over the left
// shoulder, and both sides of a face are alike.
float ShadeOf(double x, double y, double z)
{
    const double length = std::sqrt(x * x + y * y + z * z);
    if (!(length > 0))
        return 1;
    const double toLight = (x * -0.3 + y * -0.4 + z * 0.866) / length * (z < 0 ? -1 : 1);
    return float(0.3 + 0.7 * std::max(toLight, 0.0));
}

bool DrawsEdges(RenderMode mode)
{
    return mode != RenderMode::FlatShaded && mode != RenderMode::GouraudShaded;
}

bool IsSmooth(RenderMode mode)
{
    return mode == RenderMode::GouraudShaded || mode == RenderMode::GouraudShadedWithWireframe;
}

}   // namespace

ShapeDrawer::ShapeDrawer(Painter& painter, RenderMode mode, double width, double height)
    : m_painter(painter), m_mode(mode), m_width(width), m_height(height)
{
}

void ShapeDrawer::Dot(const AcGePoint3d& point, const Projection& projection, uint32_t rgb)
{
    const DevicePoint at = projection(point);
    m_painter.Strip(&at, 1, Pen{rgb, 0});
}

void ShapeDrawer::Draw(const DisplayList& list, const Item& item, const Projection& projection, const Stroke& stroke)
{
    m_pen = stroke.pen;
    m_linetype = stroke.linetype;
    m_dashScale = stroke.isDashedInPixels ? 1 / std::max(projection.Scale(), 1e-300) : stroke.dashScale;
    const AcGePoint3d* points = list.points.data() + item.first;
    switch (item.kind) {
    case ItemKind::Edge:
        if (DrawsEdges(m_mode))
            Strip(points, item.count, projection);
        break;
    case ItemKind::Strip:
        Strip(points, item.count, projection);
        break;
    case ItemKind::Arc:
        Arc(list.arcs[item.first], projection);
        break;
    case ItemKind::Fill:
        Fill(list, item, projection);
        break;
    case ItemKind::Face:
    case ItemKind::SmoothFace:
        if (m_painter.DrawsFaces())
            Face(points, item.count, item.kind == ItemKind::SmoothFace && IsSmooth(m_mode), projection);
        break;
    case ItemKind::Text:
        Text(list.texts[item.first], projection);
        break;
    case ItemKind::Block:
        break;
    }
}

void ShapeDrawer::Strip(const AcGePoint3d* points, uint32_t count, const Projection& projection)
{
    m_line.clear();
    bool reachesEye = false;
    for (uint32_t at = 0; at < count; ++at) {
        DevicePoint point = projection.Flat(points[at]);
        reachesEye |= projection.IsPerspective() && point.depth > projection.NearestDepth();
        m_line.push_back(projection.Finished(point));
    }
    if (reachesEye) {
        StripBeforeEye(points, count, projection);
        return;
    }
    const double period = m_linetype == nullptr ? 0 : m_linetype->period * m_dashScale * projection.Scale();
    if (period < kSmallestDash || m_linetype->dashes.empty() || count < 2) {
        Clipped(m_line);
        return;
    }
    double length = 0;
    for (uint32_t at = 1; at < count; ++at)
        length += points[at].distanceTo(points[at - 1]);
    if (length <= m_linetype->period * m_dashScale || length * projection.Scale() / period > kMostDashes)
        Clipped(m_line);   // too short for one pattern, or so long that no eye counts its dashes
    else
        Dashed(points, count);
}

// Segment by segment, each as far as it lies before the eye.
void ShapeDrawer::StripBeforeEye(const AcGePoint3d* points, uint32_t count, const Projection& projection)
{
    const double nearest = projection.NearestDepth();
    for (uint32_t at = 1; at < count; ++at) {
        DevicePoint from = projection.Flat(points[at - 1]), to = projection.Flat(points[at]);
        if (from.depth > nearest && to.depth > nearest)
            continue;
        if (from.depth > nearest)
            from = Between(to, from, (nearest - to.depth) / (from.depth - to.depth));
        else if (to.depth > nearest)
            to = Between(from, to, (nearest - from.depth) / (to.depth - from.depth));
        m_line.assign({projection.Finished(from), projection.Finished(to)});
        Clipped(m_line);
    }
}

// The pattern runs through the corners of the strip.
void ShapeDrawer::Dashed(const AcGePoint3d* points, uint32_t count)
{
    const std::vector<double>& dashes = m_linetype->dashes;
    size_t dash = 0;
    double left = std::abs(dashes[0]) * m_dashScale;
    m_dash.clear();
    if (dashes[0] >= 0)
        m_dash.push_back(m_line[0]);
    for (uint32_t at = 1; at < count; ++at) {
        const double length = points[at].distanceTo(points[at - 1]);
        double done = 0;
        while (length - done > left) {
            done += left;
            const double share = done / length;
            const DevicePoint &a = m_line[at - 1], &b = m_line[at];
            const DevicePoint corner{a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share,
                                     a.depth + (b.depth - a.depth) * share};
            if (dashes[dash] >= 0) {
                if (dashes[dash] > 0)
                    m_dash.push_back(corner);
                Clipped(m_dash);
            }
            m_dash.clear();
            dash = (dash + 1) % dashes.size();
            left = std::abs(dashes[dash]) * m_dashScale;
            if (dashes[dash] >= 0)
                m_dash.push_back(corner);
        }
        left -= length - done;
        if (dashes[dash] >= 0)
            m_dash.push_back(m_line[at]);
    }
    if (m_dash.size() > 1)
        Clipped(m_dash);
}

void ShapeDrawer::Arc(const ArcItem& arc, const Projection& projection)
{
    const double radius = std::max(arc.x.length(), arc.y.length()) * projection.Scale();
    // A quarter of a pixel between the curve and its chords.
    const double step = radius < 1 ? std::numbers::pi / 2 : 2 * std::acos(std::max(1 - 0.25 / radius, -1.0));
    const double steps = std::clamp(std::ceil(std::abs(arc.sweep) / std::max(step, 1e-6)), 2.0, 20000.0);
    m_curve.clear();
    for (double at = 0; at <= steps; ++at) {
        const double angle = arc.start + arc.sweep * at / steps;
        m_curve.push_back(arc.center + arc.x * std::cos(angle) + arc.y * std::sin(angle));
    }
    Strip(m_curve.data(), uint32_t(m_curve.size()), projection);
}

void ShapeDrawer::AddBeforeEye(const AcGePoint3d* points, uint32_t count, const Projection& projection)
{
    m_polygon.clear();
    bool reachesEye = false;
    for (uint32_t at = 0; at < count; ++at) {
        m_polygon.push_back(projection.Flat(points[at]));
        reachesEye |= projection.IsPerspective() && m_polygon.back().depth > projection.NearestDepth();
    }
    for (uint32_t at = 0; at < count; ++at) {
        const DevicePoint& to = m_polygon[at];
        if (!reachesEye) {
            m_filled.push_back(projection.Finished(to));
            continue;
        }
        const double nearest = projection.NearestDepth();
        const DevicePoint& from = m_polygon[(at + count - 1) % count];
        if ((from.depth > nearest) != (to.depth > nearest))
            m_filled.push_back(
                projection.Finished(Between(from, to, (nearest - from.depth) / (to.depth - from.depth))));
        if (to.depth <= nearest)
            m_filled.push_back(projection.Finished(to));
    }
}

void ShapeDrawer::Fill(const DisplayList& list, const Item& item, const Projection& projection)
{
    m_filled.clear();
    m_ends.clear();
    for (uint32_t at = item.first; at < item.first + item.count; ++at) {
        const Contour& contour = list.contours[at];
        AddBeforeEye(list.points.data() + contour.first, contour.count, projection);
        if (m_filled.size() > (m_ends.empty() ? 0 : m_ends.back()))
            m_ends.push_back(uint32_t(m_filled.size()));
    }
    if (!m_ends.empty())
        m_painter.Fill(m_filled, m_ends, m_pen.rgb);
}

// The normals of a smooth face stand behind its corners.
void ShapeDrawer::Face(const AcGePoint3d* points, uint32_t count, bool hasNormals, const Projection& projection)
{
    m_filled.clear();
    AddBeforeEye(points, count, projection);
    if (m_filled.size() < 3)
        return;
    const double deep = projection.DepthScale();
    // Newell's normal of the corners as they stand before the eye.
    double x = 0, y = 0, z = 0;
    for (size_t at = 0, before = m_polygon.size() - 1; at < m_polygon.size(); before = at++) {
        const DevicePoint &a = m_polygon[before], &b = m_polygon[at];
        x += (a.y - b.y) * (a.depth + b.depth) * deep;
        y += (a.depth - b.depth) * deep * (a.x + b.x);
        z += (a.x - b.x) * (a.y + b.y);
    }
    m_shades.assign(m_filled.size(), ShadeOf(x, y, z));
    for (uint32_t at = 0; hasNormals && m_filled.size() == count && at < count; ++at) {
        const AcGePoint3d& normal = points[count + at];
        const DevicePoint turned = projection.Way(AcGeVector3d(normal.x, normal.y, normal.z));
        m_shades[at] = ShadeOf(turned.x, turned.y, turned.depth * deep);
    }
    m_painter.Face(m_filled.data(), m_shades.data(), m_filled.size(), m_pen.rgb == 0 ? kBlackShaded : m_pen.rgb);
}

// In perspective a text is drawn as large as it is at its beginning.
void ShapeDrawer::Text(const TextItem& text, const Projection& projection)
{
    const DevicePoint flat = projection.Flat(text.origin);
    if (projection.IsPerspective() && flat.depth > projection.NearestDepth())
        return;
    const double larger = projection.IsPerspective() ? projection.Foreshortening(flat.depth) : 1;
    const DevicePoint origin = projection.Finished(flat);
    DevicePoint x = projection.Way(text.x), y = projection.Way(text.y);
    x = {x.x * larger, x.y * larger, x.depth * larger};
    y = {y.x * larger, y.y * larger, y.depth * larger};
    if (m_painter.Text(text, origin, x, y, m_pen.rgb))
        return;
    Glyphs(text, origin, x, y);
}

void ShapeDrawer::Glyphs(const TextItem& text, const DevicePoint& origin, const DevicePoint& x, const DevicePoint& y)
{
    const double height = std::hypot(y.x, y.y);
    const auto at = [&](double along, double up) {
        return DevicePoint{origin.x + x.x * along + y.x * up, origin.y + x.y * along + y.y * up,
                           origin.depth + x.depth * along + y.depth * up};
    };
    double along = 0, down = 0;
    if (height < kSmallestText) {
        for (const wchar_t letter : text.text)
            along += text.fonts->GlyphOf(letter).advance * text.tracking;
        m_line.assign({at(0, 0.4), at(along, 0.4)});
        Clipped(m_line);
        return;
    }
    for (const wchar_t letter : text.text) {
        const Glyph& glyph = text.fonts->GlyphOf(letter);
        down += text.isVertical ? 1.2 : 0;
        const double advance = text.isVertical ? 0 : glyph.advance * text.tracking;
        const DevicePoint middle = at(along + glyph.advance / 2, 0.4 - down);
        const double reach = 2 * (height + std::hypot(x.x, x.y) * (1 + glyph.advance));
        // Letters that lie off the device are passed over: a text may be a megabyte long.
        if (middle.x > -reach && middle.y > -reach && middle.x < m_width + reach && middle.y < m_height + reach) {
            m_filled.clear();
            m_ends.clear();
            for (const std::vector<AcGePoint2d>& contour : glyph.contours) {
                m_line.clear();
                for (const AcGePoint2d& point : contour)
                    m_line.push_back(at(along + point.x, point.y - down));
                if (!glyph.isFilled) {
                    Clipped(m_line);
                    continue;
                }
                m_filled.insert(m_filled.end(), m_line.begin(), m_line.end());
                m_ends.push_back(uint32_t(m_filled.size()));
            }
            if (!m_ends.empty())
                m_painter.Fill(m_filled, m_ends, m_pen.rgb);
        }
        along += advance;
    }
    for (const double up : {text.isUnderlined ? -0.2 : NAN, text.isOverlined ? 1.2 : NAN}) {
        if (std::isnan(up))
            continue;
        m_line.assign({at(0, up), at(along, up)});
        Clipped(m_line);
    }
}

bool ShapeDrawer::IsNear(const DevicePoint& point) const
{
    return point.x >= -kEdge && point.y >= -kEdge && point.x <= m_width + kEdge && point.y <= m_height + kEdge;
}

void ShapeDrawer::Clipped(const std::vector<DevicePoint>& line)
{
    if (m_cutsNothing ||
        std::all_of(line.begin(), line.end(), [this](const DevicePoint& point) { return IsNear(point); })) {
        m_painter.Strip(line.data(), line.size(), m_pen);
        return;
    }
    m_cut.clear();
    const auto flush = [this] {
        if (m_cut.size() > 1)
            m_painter.Strip(m_cut.data(), m_cut.size(), m_pen);
        m_cut.clear();
    };
    for (size_t at = 1; at < line.size(); ++at) {
        DevicePoint from = line[at - 1], to = line[at];
        if (!Cut(from, to)) {
            flush();
            continue;
        }
        if (m_cut.empty())
            m_cut.push_back(from);
        m_cut.push_back(to);
        if (!IsNear(line[at]))
            flush();
    }
    flush();
}

// To the part of a segment within the device and its edge.
bool ShapeDrawer::Cut(DevicePoint& from, DevicePoint& to) const
{
    const SegmentPart part = PartWithin(from, to, m_width, m_height, kEdge);
    if (part.isEmpty())
        return false;
    const double dx = to.x - from.x, dy = to.y - from.y, dz = to.depth - from.depth;
    const DevicePoint start = from;
    from = {start.x + dx * part.begin, start.y + dy * part.begin, start.depth + dz * part.begin};
    to = {start.x + dx * part.end, start.y + dy * part.end, start.depth + dz * part.end};
    return true;
}

}   // namespace KxPlat
