// Polygons of the plane: corners in order, the last joined to the first, which is not repeated. Edges do not cross each
// other where a function speaks of an inside or an area.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase::Ge {

// Positive for corners that turn left; 0 for fewer than three.
KXARX_API double PolygonArea(const AcGePoint2dArray& polygon);
// The middle of the area; of one without any, the middle of its corners.
KXARX_API AcGePoint2d PolygonCentroid(const AcGePoint2dArray& polygon);
// 1 inside, 0 outside, -1 on an edge or corner (within `tolerance`).
KXARX_API int PointInPolygon(const AcGePoint2d& point, const AcGePoint2dArray& polygon, double tolerance = 1e-9);
// The one place where two segments meet; false for segments apart and for those on one line.
KXARX_API bool SegmentsMeet(const AcGePoint2d& a1, const AcGePoint2d& a2, const AcGePoint2d& b1, const AcGePoint2d& b2,
                            AcGePoint2d& at);
// The places where the edges of both polygons meet, each once.
KXARX_API void PolygonCrossings(const AcGePoint2dArray& one, const AcGePoint2dArray& other, AcGePoint2dArray& points);
// What two polygons share, as polygons that turn left; none where they share no area.
KXARX_API void PolygonIntersection(const AcGePoint2dArray& one, const AcGePoint2dArray& other,
                                   AcArray<AcGePoint2dArray>& shared);
// The smallest convex polygon around the points, turning left, without corners on its edges.
KXARX_API void ConvexHull(const AcGePoint2dArray& points, AcGePoint2dArray& hull);

}   // namespace KxArxBase::Ge
