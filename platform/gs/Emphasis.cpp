#include "Emphasis.h"
#include "ShapeDrawer.h"
#include <cmath>
#include <numbers>
#include <unordered_set>

namespace KxPlat {

namespace {

constexpr size_t kMostGripsOfOne = 100, kMostGrips = 3000;
constexpr int kGripReach = 3;   // pixels from the middle of a grip to its side
constexpr uint32_t kOnLight = 0x0A5CD8, kOnDark = 0x5FB2FF, kGrip = 0x1C77E8;

bool IsLight(uint32_t rgb)
{
    return (rgb >> 16 & 0xFF) * 3 + (rgb >> 8 & 0xFF) * 6 + (rgb & 0xFF) > 1275;
}

// Six pixels drawn, four left out.
const SceneLinetype& Dashes()
{
    static const SceneLinetype dashes{SceneLinetype::Kind::Own, {6, -4}, 10};
    return dashes;
}

void DrawGrip(const DevicePoint& at, uint32_t frame, ImagePainter& painter)
{
    const double x = std::floor(at.x), y = std::floor(at.y), reach = kGripReach;
    const std::vector<DevicePoint> square = {{x - reach, y - reach, 0},
                                             {x + reach + 1, y - reach, 0},
                                             {x + reach + 1, y + reach + 1, 0},
                                             {x - reach, y + reach + 1, 0}};
    painter.Fill(square, {4}, kGrip);
    const DevicePoint border[] = {{x - reach, y - reach, 0},
                                  {x + reach, y - reach, 0},
                                  {x + reach, y + reach, 0},
                                  {x - reach, y + reach, 0},
                                  {x - reach, y - reach, 0}};
    painter.Strip(border, 5, Pen{frame, 0});
}

void AddArcGrips(const ArcItem& arc, std::vector<AcGePoint3d>& grips)
{
    const auto at = [&](double angle) { return arc.center + arc.x * std::cos(angle) + arc.y * std::sin(angle); };
    const bool isWhole = std::abs(arc.sweep) > 6.28;
    if (isWhole)
        grips.push_back(arc.center);
    const int steps = isWhole ? 3 : 2;
    for (int step = 0; step <= steps; ++step)
        grips.push_back(at(arc.start + (isWhole ? step * std::numbers::pi / 2 : arc.sweep * step / 2)));
}

}   // namespace

std::vector<AcGePoint3d> GripsOf(const DisplayList& list, const EntitySpan& span)
{
    std::vector<AcGePoint3d> grips;
    for (uint32_t at = span.firstItem; at < span.firstItem + span.itemCount && grips.size() < kMostGripsOfOne; ++at) {
        const Item& item = list.items[at];
        const AcGePoint3d* points = list.points.data() + item.first;
        switch (item.kind) {
        case ItemKind::Strip:
        case ItemKind::Edge:
            if (item.count <= kMostGripsOfOne)
                grips.insert(grips.end(), points, points + item.count);
            else
                grips.insert(grips.end(), {points[0], points[item.count - 1]});
            if (item.count == 2)
                grips.push_back(points[0] + (points[1] - points[0]) * 0.5);
            break;
        case ItemKind::Arc:
            AddArcGrips(list.arcs[item.first], grips);
            break;
        case ItemKind::Text:
            grips.push_back(list.texts[item.first].origin);
            break;
        case ItemKind::Block:
            grips.push_back(AcGePoint3d::kOrigin + list.blocks[item.first].toOwner.translation());
            break;
        case ItemKind::Fill:
        case ItemKind::Face:
        case ItemKind::SmoothFace:
            break;
        }
    }
    return grips;
}

void DrawEmphasis(Scene& scene, AcDbObjectId block, const Projection& projection, const DrawOptions& options,
                  const std::vector<AcDbObjectId>& entities, bool showsGrips, Image& image)
{
    const std::unordered_set<AcDbObjectId> wanted(entities.begin(), entities.end());
    const DisplayList& list = scene.ListOf(block);
    std::vector<uint32_t> numbers;
    for (uint32_t at = 0; at < list.entities.size(); ++at)
        if (wanted.count(AcDbObjectId(list.entities[at].entity)) != 0)
            numbers.push_back(at);
    ImagePainter painter(image);
    const bool isLight = IsLight(options.background);
    for (const bool isGround : {true, false}) {
        DrawOptions own = options;
        own.usesIndex = false;
        own.ignoresLinetypes = true;
        own.mode = RenderMode::Wireframe;
        own.adjust = [&, isGround](Stroke& stroke) {
            stroke.pen.rgb = isGround ? options.background : isLight ? kOnLight : kOnDark;
            if (isGround)
                return;
            stroke.linetype = &Dashes();
            stroke.isDashedInPixels = true;
        };
        SceneWalk walk(scene, block, projection, own, painter);
        walk.Keep(numbers);
        walk.Draw(numbers.size());
    }
    size_t count = 0;
    for (size_t at = 0; showsGrips && at < numbers.size() && count < kMostGrips; ++at)
        for (const AcGePoint3d& grip : GripsOf(list, list.entities[numbers[at]])) {
            const DevicePoint place = projection(grip);
            if (place.x < -kGripReach || place.y < -kGripReach || place.x > image.width() + kGripReach ||
                place.y > image.height() + kGripReach)
                continue;
            DrawGrip(place, isLight ? 0x203040 : 0xE0E8F0, painter);
            ++count;
        }
}

}   // namespace KxPlat
