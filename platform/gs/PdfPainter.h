// Writes what is drawn as a page of a PDF file. Texts of TrueType fonts can be searched.
#pragma once
#include "Painter.h"
#include <string>

typedef struct _cairo cairo_t;
typedef struct _cairo_surface cairo_surface_t;

namespace KxPlat {

class PdfPainter : public Painter {
public:
    // Sizes in pixels, of which `dotsPerInch` make an inch of the page.
    PdfPainter(const std::string& path, double width, double height, double dotsPerInch, uint32_t background);
    ~PdfPainter() override;
    PdfPainter(const PdfPainter&) = delete;
    PdfPainter& operator=(const PdfPainter&) = delete;

    void Strip(const DevicePoint* points, size_t count, const Pen& pen) override;
    void Fill(const std::vector<DevicePoint>& points, const std::vector<uint32_t>& ends, uint32_t rgb) override;
    bool Text(const TextItem& text, const DevicePoint& origin, const DevicePoint& x, const DevicePoint& y,
              uint32_t rgb) override;
    // Empty on success, otherwise what went wrong.
    std::string Finish();

private:
    void SetColor(uint32_t rgb);

    cairo_surface_t* m_surface;
    cairo_t* m_page;
};

}   // namespace KxPlat
