// The options of pictures: which files, and how the drawing is put on the page.
#pragma once
#include "gs/Plot.h"
#include <string>
#include <vector>

namespace KxConsole {

struct PlotOptions {
    std::vector<std::string> files;
    KxPlat::PlotSettings settings;
};

// Each answers what is wrong with the value, or nothing.
std::string SetPlotPaper(PlotOptions& options, const std::string& value);        // "a3", "A4", "420x297" (mm)
std::string SetPlotResolution(PlotOptions& options, const std::string& value);   // dots per inch
std::string SetPlotBackground(PlotOptions& options, const std::string& value);   // "white", "black", "#RRGGBB"

}   // namespace KxConsole
