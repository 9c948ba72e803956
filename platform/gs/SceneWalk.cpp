#include "SceneWalk.h"
#include "../db/AcCmColor.h"
#include "../gi/fonts/Font.h"
#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace KxPlat {

namespace {

constexpr int kDeepest = 32;          // blocks within blocks
constexpr double kSmallestText = 2;   // pixels of height; smaller texts are a line
constexpr double kSmallestDash = 2;   // pixels of a dash pattern; smaller ones are a plain line
constexpr double kEdge = 64;          // pixels around the device in which lines are kept

// What a block reference hands on to its contents.
struct Inherited {
    uint32_t rgb = 0xFFFFFF;
    int16_t lineWeight = -3;
    const SceneLinetype* linetype = nullptr;
    const AcDbStub* layer = nullptr;   // stands for layer "0"
};

class Walker {
public:
    Walker(Scene& scene, const Projection& device, const DrawOptions& options, Painter& painter)
        : m_scene(scene), m_options(options), m_painter(painter), m_width(device.width()), m_height(device.height())
    {
        const uint32_t back = options.background;
        const uint32_t light = (back >> 16 & 0xFF) * 3 + (back >> 8 & 0xFF) * 6 + (back & 0xFF);
        m_foreground = light > 1275 ? 0x000000 : 0xFFFFFF;
    }

    void Draw(AcDbObjectId block, const Projection& projection, const Inherited& inherited)
    {
        if (std::find(m_inside.begin(), m_inside.end(), block) != m_inside.end() || m_inside.size() >= kDeepest)
            return;
        m_inside.push_back(block);
        const DisplayList& list = m_scene.ListOf(block);
        for (size_t at = 0; at < list.entities.size() && !m_isAborted; ++at) {
            const EntitySpan& span = list.entities[at];
            const Reach reach = ReachOf(span, projection);
            if (reach == Reach::Outside)
                continue;
            if (m_inside.size() == 1) {
                m_painter.Begin(span);
                m_isAborted = m_options.isAborted && at % 1024 == 0 && m_options.isAborted();
            }
            for (uint32_t item = span.firstItem; item < list.EndOf(at); ++item) {
                DrawItem(list, list.items[item], projection, inherited, reach == Reach::Dot ? &span : nullptr);
                if (reach == Reach::Dot)
                    break;
            }
        }
        m_inside.pop_back();
    }

private:
    enum class Reach { Outside, Dot, Seen };

    // Where the box of an entity falls on the device.
    static Reach ReachOf(const EntitySpan& span, const Projection& projection)
    {
        if (!(span.min[0] <= span.max[0]))
            return Reach::Seen;   // without bounds, or empty
        if (span.max[0] == std::numeric_limits<float>::max() || projection.IsPerspective())
            return Reach::Seen;
        double low[2], high[2];
        for (int row = 0; row < 2; ++row) {
            double middle = projection.entry[row][3] + (row == 0 ? projection.width() : projection.height()) / 2;
            double half = 0;
            for (int axis = 0; axis < 3; ++axis) {
                const double entry = projection.entry[row][axis];
                middle += entry * (double(span.min[axis]) + span.max[axis]) / 2;
                half += std::abs(entry) * (double(span.max[axis]) - span.min[axis]) / 2;
            }
            low[row] = middle - half;
            high[row] = middle + half;
        }
        if (high[0] < 0 || high[1] < 0 || low[0] > projection.width() || low[1] > projection.height())
            return Reach::Outside;
        return high[0] - low[0] < 0.75 && high[1] - low[1] < 0.75 ? Reach::Dot : Reach::Seen;
    }

    void DrawItem(const DisplayList& list, const Item& item, const Projection& projection, const Inherited& inherited,
                  const EntitySpan* asDot)
    {
        const Look& look = list.looks[item.look];
        const AcDbStub* layerId = look.layer;
        const SceneLayer* layer = &m_scene.LayerOf(layerId);
        if (layer->isZero && inherited.layer != nullptr) {
            layerId = inherited.layer;
            layer = &m_scene.LayerOf(layerId);
        }
        if (!m_options.showsAllLayers && (layer->isFrozen || (layer->isOff && item.kind != ItemKind::Block)))
            return;
        if (m_options.isPlot && !layer->isPlottable)
            return;
        if (item.kind != ItemKind::Block && m_options.layerFilter && !m_options.layerFilter(layerId))
            return;
        Inherited own;
        own.rgb = ColorOf(look, *layer, inherited);
        own.lineWeight = WeightOf(look, *layer, inherited);
        own.linetype = &LinetypeOf(look, *layer, inherited);
        own.layer = layerId;
        if (item.kind == ItemKind::Block) {
            const BlockItem& block = list.blocks[item.first];
            Draw(block.block, projection.Within(block.toOwner), own);
            return;
        }
        m_pen.rgb = own.rgb;
        m_pen.width = m_options.pixelsPerMm * std::max<int>(own.lineWeight, 0) / 100;   // the default weight is thin
        if (asDot != nullptr) {
            const DevicePoint at = projection(AcGePoint3d(asDot->min[0], asDot->min[1], asDot->min[2]));
            m_painter.Strip(&at, 1, Pen{own.rgb, 0});
            return;
        }
        m_linetype = own.linetype;
        m_dashScale = m_scene.linetypeScale() * double(look.linetypeScale);
        DrawShape(list, item, projection);
    }

    void DrawShape(const DisplayList& list, const Item& item, const Projection& projection)
    {
        switch (item.kind) {
        case ItemKind::Strip:
            Strip(list.points.data() + item.first, item.count, projection);
            break;
        case ItemKind::Arc:
            Arc(list.arcs[item.first], projection);
            break;
        case ItemKind::Fill:
            m_filled.clear();
            m_ends.clear();
            for (uint32_t at = item.first; at < item.first + item.count; ++at) {
                const Contour& contour = list.contours[at];
                for (uint32_t point = contour.first; point < contour.first + contour.count; ++point)
                    m_filled.push_back(projection(list.points[point]));
                m_ends.push_back(uint32_t(m_filled.size()));
            }
            m_painter.Fill(m_filled, m_ends, m_pen.rgb);
            break;
        case ItemKind::Face:
            if (!m_painter.DrawsFaces())
                break;
            m_filled.clear();
            for (uint32_t at = item.first; at < item.first + item.count; ++at)
                m_filled.push_back(projection(list.points[at]));
            m_painter.Face(m_filled.data(), m_filled.size(), m_pen.rgb);
            break;
        case ItemKind::Text:
            Text(list.texts[item.first], projection);
            break;
        case ItemKind::Block:
            break;
        }
    }

    uint32_t ColorOf(const Look& look, const SceneLayer& layer, const Inherited& inherited) const
    {
        switch (look.color & 0xFF000000) {
        case kColorByLayer:
            return layer.isForeground ? m_foreground : layer.rgb;
        case kColorByBlock:
            return m_inside.size() > 1 ? inherited.rgb : m_foreground;
        case kColorIndexed:
            return (look.color & 0xFF) == 7 ? m_foreground : AcCmEntityColor::lookUpRGB(Adesk::UInt8(look.color));
        default:
            return look.color;
        }
    }

    static int16_t WeightOf(const Look& look, const SceneLayer& layer, const Inherited& inherited)
    {
        return look.lineWeight == -1   ? layer.lineWeight
               : look.lineWeight == -2 ? inherited.lineWeight
                                       : look.lineWeight;
    }

    const SceneLinetype& LinetypeOf(const Look& look, const SceneLayer& layer, const Inherited& inherited) const
    {
        static const SceneLinetype continuous;
        const SceneLinetype& own = m_scene.LinetypeOf(look.linetype);
        if (own.kind == SceneLinetype::Kind::ByBlock)
            return inherited.linetype == nullptr ? continuous : *inherited.linetype;
        if (own.kind == SceneLinetype::Kind::Own)
            return own;
        const SceneLinetype& ofLayer = m_scene.LinetypeOf(layer.linetype);
        return ofLayer.kind == SceneLinetype::Kind::Own ? ofLayer : continuous;
    }

    void Strip(const AcGePoint3d* points, uint32_t count, const Projection& projection)
    {
        m_line.clear();
        for (uint32_t at = 0; at < count; ++at)
            m_line.push_back(projection(points[at]));
        const double period = m_linetype->period * m_dashScale * projection.Scale();
        if (m_linetype->dashes.empty() || period < kSmallestDash || count < 2) {
            Clipped(m_line);
            return;
        }
        double length = 0;
        for (uint32_t at = 1; at < count; ++at)
            length += points[at].distanceTo(points[at - 1]);
        if (length <= m_linetype->period * m_dashScale || length * projection.Scale() / period > 1e5)
            Clipped(m_line);   // too short for one pattern, or so long that no eye counts its dashes
        else
            Dashed(points, count);
    }

    // The pattern runs through the corners of the strip.
    void Dashed(const AcGePoint3d* points, uint32_t count)
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

    void Arc(const ArcItem& arc, const Projection& projection)
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

    void Text(const TextItem& text, const Projection& projection)
    {
        const DevicePoint origin = projection(text.origin), x = projection.Way(text.x), y = projection.Way(text.y);
        if (m_painter.Text(text, origin, x, y, m_pen.rgb))
            return;
        const double height = std::hypot(y.x, y.y);
        const auto at = [&](double along, double up) {
            return DevicePoint{origin.x + x.x * along + y.x * up, origin.y + x.y * along + y.y * up, origin.depth};
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
            along += text.isVertical ? 0 : glyph.advance * text.tracking;
        }
        for (const double up : {text.isUnderlined ? -0.2 : NAN, text.isOverlined ? 1.2 : NAN}) {
            if (std::isnan(up))
                continue;
            m_line.assign({at(0, up), at(along, up)});
            Clipped(m_line);
        }
    }

    bool IsNear(const DevicePoint& point) const
    {
        return point.x >= -kEdge && point.y >= -kEdge && point.x <= m_width + kEdge && point.y <= m_height + kEdge;
    }

    // Hands on what lies on the device, in one piece where it can.
    void Clipped(const std::vector<DevicePoint>& line)
    {
        if (std::all_of(line.begin(), line.end(), [this](const DevicePoint& point) { return IsNear(point); })) {
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

    // Liang and Barsky: the part of a segment within the device and its edge.
    bool Cut(DevicePoint& from, DevicePoint& to) const
    {
        const double dx = to.x - from.x, dy = to.y - from.y, dz = to.depth - from.depth;
        double begin = 0, end = 1;
        const double ways[] = {-dx, dx, -dy, dy};
        const double rooms[] = {from.x + kEdge, m_width + kEdge - from.x, from.y + kEdge, m_height + kEdge - from.y};
        for (int side = 0; side < 4; ++side) {
            if (ways[side] == 0) {
                if (rooms[side] < 0)
                    return false;
                continue;
            }
            const double share = rooms[side] / ways[side];
            if (ways[side] < 0)
                begin = std::max(begin, share);
            else
                end = std::min(end, share);
        }
        if (!(begin <= end))
            return false;
        const DevicePoint start = from;
        from = {start.x + dx * begin, start.y + dy * begin, start.depth + dz * begin};
        to = {start.x + dx * end, start.y + dy * end, start.depth + dz * end};
        return true;
    }

    Scene& m_scene;
    const DrawOptions& m_options;
    Painter& m_painter;
    double m_width, m_height;
    uint32_t m_foreground;
    bool m_isAborted = false;
    std::vector<AcDbObjectId> m_inside;
    Pen m_pen;
    const SceneLinetype* m_linetype = nullptr;
    double m_dashScale = 1;
    std::vector<DevicePoint> m_line, m_dash, m_cut, m_filled;
    std::vector<uint32_t> m_ends;
    std::vector<AcGePoint3d> m_curve;
};

}   // namespace

void DrawScene(Scene& scene, AcDbObjectId block, const Projection& projection, const DrawOptions& options,
               Painter& painter)
{
    Walker(scene, projection, options, painter).Draw(block, projection, Inherited());
}

}   // namespace KxPlat
