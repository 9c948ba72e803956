// The part of a segment within an upright rectangle, after Liang and Barsky.
#pragma once
#include "Camera.h"
#include <algorithm>

namespace KxPlat {

// As shares of the way between the ends; `begin` above `end` where nothing of it lies within, edges included.
struct SegmentPart {
    double begin = 0, end = 1;
    bool isEmpty() const { return !(begin <= end); }
};

// The rectangle reaches from (-edge, -edge) to (width + edge, height + edge).
inline SegmentPart PartWithin(const DevicePoint& from, const DevicePoint& to, double width, double height, double edge)
{
    const double ways[] = {from.x - to.x, to.x - from.x, from.y - to.y, to.y - from.y};
    const double rooms[] = {from.x + edge, width + edge - from.x, from.y + edge, height + edge - from.y};
    SegmentPart part;
    for (int side = 0; side < 4; ++side) {
        if (ways[side] == 0) {
            if (rooms[side] < 0)
                return {1, 0};
            continue;
        }
        const double share = rooms[side] / ways[side];
        if (ways[side] < 0)
            part.begin = std::max(part.begin, share);
        else
            part.end = std::min(part.end, share);
    }
    return part;
}

}   // namespace KxPlat
