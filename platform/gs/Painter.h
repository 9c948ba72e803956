// What a scene is drawn with: an image, a plot file, a test of what lies under the cursor.
#pragma once
#include "Camera.h"
#include <cstddef>
#include <cstdint>
#include <vector>

namespace KxPlat {

struct TextItem;

struct Pen {
    uint32_t rgb = 0;
    double width = 0;   // pixels; 0 draws the thinnest line there is
};

class Painter {
public:
    virtual ~Painter() = default;
    // One point is a dot. The points lie on the device, or a little outside.
    virtual void Strip(const DevicePoint* points, size_t count, const Pen& pen) = 0;
    // Contours behind one another, `ends` telling where each ends; even-odd.
    virtual void Fill(const std::vector<DevicePoint>& points, const std::vector<uint32_t>& ends, uint32_t rgb) = 0;
    // A plane face, where faces are drawn; for each corner the share of the colour that the light shows there.
    virtual void Face(const DevicePoint* points, const float* shades, size_t count, uint32_t rgb) {}
    virtual bool DrawsFaces() const { return false; }
    // True when the text was drawn as text; otherwise its glyphs follow.
    virtual bool Text(const TextItem& text, const DevicePoint& origin, const DevicePoint& x, const DevicePoint& y,
                      uint32_t rgb)
    {
        return false;
    }
    // An entity of the drawn space begins.
    virtual void Begin(const struct EntitySpan& entity) {}
};

}   // namespace KxPlat
