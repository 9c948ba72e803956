// A picture in memory: 0xRRGGBB pixels from the upper left corner, row by row.
#pragma once
#include "Painter.h"
#include "ScanFill.h"
#include <string>
#include <vector>

namespace KxPlat {

class Image {
public:
    Image(int width, int height, uint32_t background);

    int width() const { return m_width; }
    int height() const { return m_height; }
    uint32_t At(int x, int y) const { return m_pixels[size_t(y) * size_t(m_width) + size_t(x)]; }
    uint32_t* Row(int y) { return m_pixels.data() + size_t(y) * size_t(m_width); }
    const uint32_t* Row(int y) const { return m_pixels.data() + size_t(y) * size_t(m_width); }
    void Clear(uint32_t background);
    // Moves what is there; where nothing comes from, the old pixels stay.
    void Shift(int dx, int dy);
    void Put(const Image& part, int left, int top);

    // Each pixel the mean of `factor` by `factor` pixels of this image.
    Image Reduced(int factor) const;
    // Empty on success, otherwise what went wrong.
    std::string WritePng(const std::string& path, double dotsPerInch) const;

private:
    int m_width, m_height;
    std::vector<uint32_t> m_pixels;
};

class ImagePainter : public Painter {
public:
    explicit ImagePainter(Image& image) : m_image(image) {}

    void Strip(const DevicePoint* points, size_t count, const Pen& pen) override;
    void Fill(const std::vector<DevicePoint>& points, const std::vector<uint32_t>& ends, uint32_t rgb) override;

private:
    void Line(const DevicePoint& from, const DevicePoint& to, uint32_t rgb);
    bool IsNear(const DevicePoint& point) const;
    void ThickLine(const DevicePoint& from, const DevicePoint& to, const Pen& pen);
    void Set(int x, int y, uint32_t rgb)
    {
        if (x >= 0 && y >= 0 && x < m_image.width() && y < m_image.height())
            m_image.Row(y)[x] = rgb;
    }

    Image& m_image;
    ScanFill m_fill;
    std::vector<DevicePoint> m_corners;
    std::vector<uint32_t> m_cornerEnds;
};

}   // namespace KxPlat
