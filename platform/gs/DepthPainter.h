// Draws on an image with depth: what lies nearer to the eye hides what lies behind.
#pragma once
#include "Image.h"
#include "RenderMode.h"

namespace KxPlat {

class DepthPainter : public Painter {
public:
    DepthPainter(Image& image, RenderMode mode, uint32_t background);

    // Another view begins on the same image: nothing is hidden yet. `depthScale` are the pixels of one unit of depth.
    void Reset(double depthScale);

    void Strip(const DevicePoint* points, size_t count, const Pen& pen) override;
    void Fill(const std::vector<DevicePoint>& points, const std::vector<uint32_t>& ends, uint32_t rgb) override;
    void Face(const DevicePoint* points, const float* shades, size_t count, uint32_t rgb) override;
    bool DrawsFaces() const override { return true; }

private:
    // A value that changes evenly over the device.
    struct Slope {
        double atOrigin = 0, byX = 0, byY = 0;
        double At(double x, double y) const { return atOrigin + byX * x + byY * y; }
    };

    // False when the points lie on a line as seen from the eye.
    bool Fit(const DevicePoint* points, size_t count, Slope& depth) const;
    template <class Color>
    void Plane(const DevicePoint* points, const uint32_t* ends, size_t contours, const Slope& depth, Color&& color);
    void Line(const DevicePoint& from, const DevicePoint& to, uint32_t rgb);
    void ThickLine(const DevicePoint& from, const DevicePoint& to, const Pen& pen);
    void Triangle(const DevicePoint corners[3], const float shades[3], uint32_t rgb, const Slope& depth);
    void Set(int x, int y, double depth, uint32_t rgb);

    Image& m_image;
    RenderMode m_mode;
    uint32_t m_background;
    double m_depthScale = 1;
    std::vector<float> m_depth;
    ScanFill m_fill;
};

}   // namespace KxPlat
