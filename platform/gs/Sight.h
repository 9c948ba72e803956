// One view onto one block: the sheet, the model, or the model through a viewport of a sheet.
#pragma once
#include "Camera.h"
#include "Scene.h"
#include <vector>

namespace KxPlat {

struct Sight {
    AcDbObjectId block;
    Camera camera;
    double left = 0, top = 0, width = 0, height = 0;   // pixels on the page
    std::vector<AcDbObjectId> frozenLayers;            // in this viewport only

    bool Freezes(const AcDbStub* layer) const;
};

// The model as the viewports of a layout's block show it, `page` bringing the sheet onto the device.
void AddSightsOfViewports(Scene& scene, AcDbObjectId layoutBlock, const Projection& page, std::vector<Sight>& sights);

}   // namespace KxPlat
