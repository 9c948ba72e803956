// A picture of a drawing in a file: .png, .svg or .pdf.
#pragma once
#include "../db/AcDbObjectId.h"
#include <string>
#include <vector>

class AcDbDatabase;

namespace KxPlat {

struct PlotSettings {
    double paperWidth = 297, paperHeight = 210;   // millimetres; turned to the drawing's format unless `keepsPaper`
    bool keepsPaper = false;
    double dotsPerInch = 150;
    uint32_t background = 0xFFFFFF;
    std::wstring layout;           // empty: the model space
    std::wstring layers;           // wildcard patterns with commas: only these layers; empty: all
    bool showsAllLayers = false;   // off and frozen ones, too
    bool usesLineWeights = true;
};

struct PlotResult {
    std::wstring error;          // empty when the file was written
    std::wstring warning;        // what was left out
    int width = 0, height = 0;   // pixels
};

// By the extension of `path`, which is a path of the host's.
PlotResult Plot(AcDbDatabase& database, const std::wstring& path, const PlotSettings& settings);

}   // namespace KxPlat
