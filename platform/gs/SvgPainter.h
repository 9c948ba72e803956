// Writes what is drawn as an SVG file: lines as paths, texts as texts, so that they can be searched and copied.
#pragma once
#include "Painter.h"
#include <string>

namespace KxPlat {

class SvgPainter : public Painter {
public:
    // Sizes in pixels, of which `dotsPerInch` make an inch of the page.
    SvgPainter(double width, double height, double dotsPerInch, uint32_t background);

    void Strip(const DevicePoint* points, size_t count, const Pen& pen) override;
    void Fill(const std::vector<DevicePoint>& points, const std::vector<uint32_t>& ends, uint32_t rgb) override;
    bool Text(const TextItem& text, const DevicePoint& origin, const DevicePoint& x, const DevicePoint& y,
              uint32_t rgb) override;
    // The whole file.
    std::string Finish();

private:
    void OpenPath(const Pen& pen);
    void ClosePath();
    void Number(double value);
    void Point(char command, const DevicePoint& point);

    std::string m_file;
    bool m_isPathOpen = false;
    size_t m_pathStart = 0;
    Pen m_pen;
};

}   // namespace KxPlat
