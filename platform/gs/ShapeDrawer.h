// Brings single items of a display list onto a device: curves become chords, lines dashes, texts glyphs, and what lies
// outside is cut away.
#pragma once
#include "Painter.h"
#include "RenderMode.h"
#include "Scene.h"

namespace KxPlat {

// How the items are drawn, all questions of layers and blocks settled.
struct Stroke {
    Pen pen;
    const SceneLinetype* linetype = nullptr;   // null: continuous
    double dashScale = 1;                      // drawing units for one of the linetype
    bool isDashedInPixels = false;             // the linetype's unit is a pixel
};

class ShapeDrawer {
public:
    ShapeDrawer(Painter& painter, RenderMode mode, double width, double height);

    // Lines are handed on whole, wherever they lie.
    void CutNothing() { m_cutsNothing = true; }
    // Any item but a block.
    void Draw(const DisplayList& list, const Item& item, const Projection& projection, const Stroke& stroke);
    void Dot(const AcGePoint3d& point, const Projection& projection, uint32_t rgb);

private:
    void Strip(const AcGePoint3d* points, uint32_t count, const Projection& projection);
    void StripBeforeEye(const AcGePoint3d* points, uint32_t count, const Projection& projection);
    void Dashed(const AcGePoint3d* points, uint32_t count);
    void Arc(const ArcItem& arc, const Projection& projection);
    void Fill(const DisplayList& list, const Item& item, const Projection& projection);
    void Face(const AcGePoint3d* points, uint32_t count, bool hasNormals, const Projection& projection);
    void Text(const TextItem& text, const Projection& projection);
    void Glyphs(const TextItem& text, const DevicePoint& origin, const DevicePoint& x, const DevicePoint& y);
    // Hands on what lies on the device, in one piece where it can.
    void Clipped(const std::vector<DevicePoint>& line);
    bool IsNear(const DevicePoint& point) const;
    bool Cut(DevicePoint& from, DevicePoint& to) const;
    // The part of a polygon, in the affine axes, that lies before the eye; finished points are added to `m_filled`.
    void AddBeforeEye(const AcGePoint3d* points, uint32_t count, const Projection& projection);

    Painter& m_painter;
    RenderMode m_mode;
    double m_width, m_height;
    bool m_cutsNothing = false;
    Pen m_pen;
    const SceneLinetype* m_linetype = nullptr;
    double m_dashScale = 1;
    std::vector<DevicePoint> m_line, m_dash, m_cut, m_filled, m_polygon;
    std::vector<uint32_t> m_ends;
    std::vector<float> m_shades;
    std::vector<AcGePoint3d> m_curve;
};

}   // namespace KxPlat
