// Draws the visible part of a block: resolves colours, layers, linetypes and weights, cuts at the device's edges, and
// leaves details out that are smaller than a pixel.
#pragma once
#include "Painter.h"
#include "Scene.h"
#include <functional>

namespace KxPlat {

struct DrawOptions {
    uint32_t background = 0xFFFFFF;
    bool showsAllLayers = false;   // whatever is off or frozen
    bool isPlot = false;           // layers that are not plotted stay away
    double pixelsPerMm = 0;        // of lineweights; 0 draws every line thin
    // Layers that may be drawn at all; empty for all.
    std::function<bool(const AcDbStub* layer)> layerFilter;
    // Asked now and then; true ends the drawing.
    std::function<bool()> isAborted;
};

void DrawScene(Scene& scene, AcDbObjectId block, const Projection& projection, const DrawOptions& options,
               Painter& painter);

}   // namespace KxPlat
