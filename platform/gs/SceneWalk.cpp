#include "SceneWalk.h"
#include "../db/AcCmColor.h"
#include "ShapeDrawer.h"
#include "SpatialIndex.h"
#include <algorithm>
#include <deque>
#include <numeric>

namespace KxPlat {

namespace {

// What a block reference hands on to its contents.
struct Inherited {
    uint32_t rgb = 0xFFFFFF;
    int16_t lineWeight = -3;
    const SceneLinetype* linetype = nullptr;
    const AcDbStub* layer = nullptr;   // stands for layer "0"
};

// A look within one insertion of a block, layers and inheritance settled.
struct Settled {
    bool isKnown = false;
    bool showsItems = false;    // anything but blocks
    bool showsBlocks = false;   // the contents of a reference on a layer that is off may be seen
    Inherited own;
    Stroke stroke;
};

}   // namespace

class SceneWalk::Walker {
public:
    Walker(Scene& scene, const Projection& device, const DrawOptions& options, Painter& painter)
        : m_scene(scene),
          m_options(options),
          m_painter(painter),
          m_shapes(painter, options.mode, device.width(), device.height())
    {
        const uint32_t back = options.background;
        const uint32_t light = (back >> 16 & 0xFF) * 3 + (back >> 8 & 0xFF) * 6 + (back & 0xFF);
        m_foreground = light > 1275 ? 0x000000 : 0xFFFFFF;
        if (options.cutsNothing)
            m_shapes.CutNothing();
    }

    // The outermost list, whose looks stay settled from one entity to the next.
    void Enter(AcDbObjectId block, const DisplayList& list)
    {
        m_inside.assign(1, block);
        Reset(m_settled[0], list);
    }
    bool Shows(const DisplayList& list, uint32_t entity)
    {
        const EntitySpan& span = list.entities[entity];
        if (span.itemCount == 0)
            return false;
        const Item& item = list.items[span.firstItem];
        const Settled& look = SettledLook(list, item.look, Inherited(), m_settled[0]);
        return item.kind == ItemKind::Block ? look.showsBlocks : look.showsItems;
    }
    void DrawEntity(const DisplayList& list, uint32_t entity, const Projection& projection)
    {
        const EntitySpan& span = list.entities[entity];
        const Reach reach = ReachOf(span, projection);
        if (reach == Reach::Outside)
            return;
        m_painter.Begin(span);
        DrawSpan(list, span, reach, projection, Inherited(), m_settled[0]);
    }

private:
    static void Reset(std::vector<Settled>& settled, const DisplayList& list)
    {
        settled.assign(list.looks.size(), Settled());
    }

    void DrawBlock(AcDbObjectId block, const Projection& projection, const Inherited& inherited)
    {
        if (std::find(m_inside.begin(), m_inside.end(), block) != m_inside.end() || m_inside.size() >= kDeepestBlock)
            return;
        m_inside.push_back(block);
        const DisplayList& list = m_scene.ListOf(block);
        while (m_settled.size() < m_inside.size())
            m_settled.emplace_back();
        std::vector<Settled>& settled = m_settled[m_inside.size() - 1];
        Reset(settled, list);
        for (size_t at = 0; at < list.entities.size(); ++at) {
            if (IsTooMuch())
                break;
            const EntitySpan& span = list.entities[at];
            const Reach reach = ReachOf(span, projection);
            if (reach != Reach::Outside || m_options.cutsNothing)
                DrawSpan(list, span, reach, projection, inherited, settled);
            if (at % 1024 == 1023 && m_options.isAborted && m_options.isAborted())
                break;
        }
        m_inside.pop_back();
    }

    // Told once.
    bool IsTooMuch()
    {
        if (++m_nested == m_options.mostNested + 1)
            m_scene.Note(DrawNote::DeepBlocks);
        return m_nested > m_options.mostNested;
    }

    // The colour of the first thing within a block that is seen; false when there is none.
    bool ColorWithin(AcDbObjectId block, const Inherited& inherited, uint32_t& rgb)
    {
        if (std::find(m_inside.begin(), m_inside.end(), block) != m_inside.end() || m_inside.size() >= kDeepestBlock)
            return false;
        m_inside.push_back(block);
        const DisplayList& list = m_scene.ListOf(block);
        bool isFound = false;
        for (size_t at = 0; at < list.items.size() && !isFound && !IsTooMuch(); ++at) {
            const Item& item = list.items[at];
            Settled look;
            Settle(list.looks[item.look], inherited, look);
            if (item.kind == ItemKind::Block)
                isFound = look.showsBlocks && ColorWithin(list.blocks[item.first].block, look.own, rgb);
            else if (look.showsItems)
                rgb = look.stroke.pen.rgb, isFound = true;
        }
        m_inside.pop_back();
        return isFound;
    }

    void DrawSpan(const DisplayList& list, const EntitySpan& span, Reach reach, const Projection& projection,
                  const Inherited& inherited, std::vector<Settled>& settled)
    {
        for (uint32_t at = span.firstItem; at < span.firstItem + span.itemCount; ++at) {
            const Item& item = list.items[at];
            const Settled& look = SettledLook(list, item.look, inherited, settled);
            if (item.kind == ItemKind::Block) {
                const BlockItem& block = list.blocks[item.first];
                uint32_t rgb = 0;
                if (look.showsBlocks && reach == Reach::Dot) {
                    if (!ColorWithin(block.block, look.own, rgb))
                        continue;
                    m_shapes.Dot(AcGePoint3d(span.min[0], span.min[1], span.min[2]), projection, rgb);
                    return;
                }
                if (look.showsBlocks)
                    DrawBlock(block.block, projection.Within(block.toOwner), Inherited(look.own));
                continue;
            }
            if (!look.showsItems)
                continue;
            if (reach == Reach::Dot) {
                m_shapes.Dot(AcGePoint3d(span.min[0], span.min[1], span.min[2]), projection, look.stroke.pen.rgb);
                return;
            }
            m_shapes.Draw(list, item, projection, look.stroke);
        }
    }

    const Settled& SettledLook(const DisplayList& list, uint32_t number, const Inherited& inherited,
                               std::vector<Settled>& settled)
    {
        Settled& known = settled[number];
        if (!known.isKnown)
            Settle(list.looks[number], inherited, known);
        return known;
    }

    void Settle(const Look& look, const Inherited& inherited, Settled& settled) const
    {
        settled.isKnown = true;
        const AcDbStub* layerId = look.layer;
        const SceneLayer* layer = &m_scene.LayerOf(layerId);
        if (layer->isZero && inherited.layer != nullptr) {
            layerId = inherited.layer;
            layer = &m_scene.LayerOf(layerId);
        }
        settled.showsBlocks =
            (m_options.showsAllLayers || !layer->isFrozen) && (!m_options.isPlot || layer->isPlottable);
        settled.showsItems = settled.showsBlocks && (m_options.showsAllLayers || !layer->isOff) &&
                             (!m_options.layerFilter || m_options.layerFilter(layerId));
        Inherited& own = settled.own;
        own.rgb = ColorOf(look, *layer, inherited);
        own.lineWeight = WeightOf(look, *layer, inherited);
        own.linetype = &LinetypeOf(look, *layer, inherited);
        own.layer = layerId;
        settled.stroke.pen.rgb = own.rgb;
        // The default weight is thin.
        settled.stroke.pen.width = m_options.pixelsPerMm * std::max<int>(own.lineWeight, 0) / 100;
        settled.stroke.linetype = m_options.ignoresLinetypes ? nullptr : own.linetype;
        settled.stroke.dashScale = m_scene.linetypeScale() * double(look.linetypeScale);
        if (m_options.adjust)
            m_options.adjust(settled.stroke);
    }

    uint32_t ColorOf(const Look& look, const SceneLayer& layer, const Inherited& inherited) const
    {
        switch (look.color & 0xFF000000) {
        case kColorByLayer:
            return layer.isForeground ? m_foreground : layer.rgb;
        case kColorBackground:
            return m_options.background;
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

    Scene& m_scene;
    const DrawOptions& m_options;
    Painter& m_painter;
    ShapeDrawer m_shapes;
    uint32_t m_foreground;
    size_t m_nested = 0;
    std::vector<AcDbObjectId> m_inside;
    std::deque<std::vector<Settled>> m_settled{1};   // by depth; references stay valid as it grows
};

SceneWalk::SceneWalk(Scene& scene, const DisplayList& list, const Projection& projection, DrawOptions options,
                     Painter& painter)
    : m_list(list),
      m_projection(projection),
      m_options(std::move(options)),
      m_walker(std::make_unique<Walker>(scene, m_projection, m_options, painter)),
      m_entities(list.entities.size())
{
    m_walker->Enter(AcDbObjectId(), list);
    std::iota(m_entities.begin(), m_entities.end(), 0);
}

SceneWalk::SceneWalk(Scene& scene, AcDbObjectId block, const Projection& projection, DrawOptions options,
                     Painter& painter)
    : SceneWalk(scene, scene.ListOf(block), projection, std::move(options), painter)
{
    m_walker->Enter(block, m_list);
    if (SpatialIndex* index = m_options.usesIndex ? scene.IndexOf(block) : nullptr)
        index->Find(
            m_list, m_projection, [&](uint32_t entity) { return m_walker->Shows(m_list, entity); }, m_entities);
}

SceneWalk::~SceneWalk() = default;

void SceneWalk::Keep(std::vector<uint32_t> entities)
{
    m_entities = std::move(entities);
}

void SceneWalk::Draw(size_t count, size_t every)
{
    for (; count > 0 && m_at < m_entities.size(); m_at += every, --count)
        m_walker->DrawEntity(m_list, m_entities[m_at], m_projection);
}

void DrawScene(Scene& scene, AcDbObjectId block, const Projection& projection, const DrawOptions& options,
               Painter& painter)
{
    SceneWalk walk(scene, block, projection, options, painter);
    while (!walk.IsDone() && !(options.isAborted && options.isAborted()))
        walk.Draw(1024);
}

}   // namespace KxPlat
