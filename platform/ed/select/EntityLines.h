// An entity as straight pieces in the plane of the screen, for hit tests. Curves are cut finely enough to be picked.
#pragma once
#include "../../db/AcDbEntity.h"
#include "../../ge/AcGeMatrix3d.h"
#include "../../ge/AcGePoint2d.h"
#include <vector>

namespace KxPlat {

struct Segment {
    AcGePoint2d from, to;
};

// Entities without lines of their own (texts, proxies) give the outline of their extents; one without any gives
// nothing. A point is a segment without length.
std::vector<Segment> SegmentsOf(const AcDbEntity& entity, const AcGeMatrix3d& place = AcGeMatrix3d());

}   // namespace KxPlat
