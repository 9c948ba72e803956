// The lines of hatch patterns by name.
#pragma once
#include <string_view>
#include <vector>

namespace KxPlat {

// A family of parallel lines in inches at a scale of 1: direction in degrees, a point of one line, the step to the next
// line along and across the direction, and dashes (negative: gaps; 0: a dot). No dashes: a whole line.
struct PatternLine {
    double angle;
    double x, y;
    double along, across;
    std::vector<double> dashes;
};

// Without regard to case; null for a name that is not built in.
const std::vector<PatternLine>* FindPattern(std::wstring_view name);

}   // namespace KxPlat
