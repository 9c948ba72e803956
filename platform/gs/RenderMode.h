// How lines and faces of a view are drawn; the values are those of AcGsView::RenderMode.
#pragma once

namespace KxPlat {

enum class RenderMode {
    BoundingBox = 0,
    Optimized2d = 1,
    Wireframe = 2,
    HiddenLine = 3,
    FlatShaded = 4,
    GouraudShaded = 5,
    FlatShadedWithWireframe = 6,
    GouraudShadedWithWireframe = 7
};

}   // namespace KxPlat
