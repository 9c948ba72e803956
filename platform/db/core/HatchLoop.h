// One boundary of a hatch, read from its groups: a polyline, or edges one after another.
#pragma once
#include "../../ge/AcGePoint2d.h"
#include "FlatMap.h"
#include "GroupValue.h"
#include <vector>

namespace KxPlat {

struct HatchVertex {
    AcGePoint2d point;
    double bulge = 0;
};

class HatchLoop {
public:
    // The groups from the one with code 92 up to `end`.
    HatchLoop(const GroupList& groups, size_t begin, size_t end);

    const std::vector<HatchVertex>& vertices() const { return m_vertices; }
    // The boundary as points close enough for boxes and tests of what lies within.
    std::vector<AcGePoint2d> Outline() const;
    double Area() const;
    bool Surrounds(const HatchLoop& other) const;

private:
    void ReadPolyline(const GroupList& groups, size_t begin, size_t end);
    void ReadEdges(const GroupList& groups, size_t begin, size_t end);

    std::vector<HatchVertex> m_vertices;
};

// Moves the boundaries of a hatch from the axes before to those after.
void MapHatchLoops(GroupList& groups, const FlatMap& map, double elevation);
// Turns and scales a pattern and its lines.
void MapHatchPattern(GroupList& groups, const FlatMap& map);

}   // namespace KxPlat
