// Draws nothing, but notes which entities come into a small device: what lies under the cursor, or within a rectangle.
#pragma once
#include "Painter.h"

struct AcDbStub;

namespace KxPlat {

class PickPainter : public Painter {
public:
    // `wholly`: only entities of which nothing lies outside.
    PickPainter(double width, double height, bool wholly) : m_width(width), m_height(height), m_wholly(wholly) {}

    void Begin(const EntitySpan& entity) override;
    void Strip(const DevicePoint* points, size_t count, const Pen& pen) override;
    void Fill(const std::vector<DevicePoint>& points, const std::vector<uint32_t>& ends, uint32_t rgb) override;
    // A text is hit anywhere between its first and its last letter.
    bool Text(const TextItem& text, const DevicePoint& origin, const DevicePoint& x, const DevicePoint& y,
              uint32_t rgb) override;

    // In drawing order. Ends the last entity.
    std::vector<AcDbStub*> Found();

private:
    bool IsInside(const DevicePoint& point) const
    {
        return point.x >= 0 && point.y >= 0 && point.x <= m_width && point.y <= m_height;
    }
    bool Crosses(const DevicePoint& from, const DevicePoint& to) const;
    void Note(bool touches, bool isInside);
    void End();

    double m_width, m_height;
    bool m_wholly;
    AcDbStub* m_entity = nullptr;
    bool m_isTouched = false, m_isOutside = false;
    std::vector<AcDbStub*> m_found;
};

}   // namespace KxPlat
