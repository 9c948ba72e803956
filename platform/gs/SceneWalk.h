// Draws the visible part of a block: resolves colours, layers, linetypes and weights, cuts at the device's edges, and
// leaves details out that are smaller than a pixel.
#pragma once
#include "Painter.h"
#include "RenderMode.h"
#include "Scene.h"
#include <functional>
#include <memory>

namespace KxPlat {

struct Stroke;

struct DrawOptions {
    uint32_t background = 0xFFFFFF;
    RenderMode mode = RenderMode::Wireframe;
    bool showsAllLayers = false;     // whatever is off or frozen
    bool isPlot = false;             // layers that are not plotted stay away
    bool ignoresLinetypes = false;   // every line is continuous
    bool cutsNothing = false;        // also what lies off the device is handed to the painter
    bool usesIndex = false;          // worth its making when a block is drawn again and again
    double pixelsPerMm = 0;          // of lineweights; 0 draws every line thin
    // Entities within blocks that are looked at; blocks that hold each other many times could make it endless.
    size_t mostNested = 10000000;
    // Layers that may be drawn at all; empty for all.
    std::function<bool(const AcDbStub* layer)> layerFilter;
    // Has the last word on how things are drawn.
    std::function<void(Stroke& stroke)> adjust;
    // Asked now and then; true ends the drawing.
    std::function<bool()> isAborted;
};

// A drawing of one block in steps. The scene must not change while it is under way.
class SceneWalk {
public:
    SceneWalk(Scene& scene, AcDbObjectId block, const Projection& projection, DrawOptions options, Painter& painter);
    // A list that belongs to no block.
    SceneWalk(Scene& scene, const DisplayList& list, const Projection& projection, DrawOptions options,
              Painter& painter);
    ~SceneWalk();
    SceneWalk(const SceneWalk&) = delete;

    // Draws only these of the block's entities, by their numbers in its list.
    void Keep(std::vector<uint32_t> entities);
    // Entities that may be seen, in drawing order.
    size_t Size() const { return m_entities.size(); }
    // The next ones, or only every so many-th.
    void Draw(size_t count, size_t every = 1);
    bool IsDone() const { return m_at >= m_entities.size(); }

private:
    class Walker;

    const DisplayList& m_list;
    Projection m_projection;
    DrawOptions m_options;
    std::unique_ptr<Walker> m_walker;
    std::vector<uint32_t> m_entities;
    size_t m_at = 0;
};

void DrawScene(Scene& scene, AcDbObjectId block, const Projection& projection, const DrawOptions& options,
               Painter& painter);

}   // namespace KxPlat
