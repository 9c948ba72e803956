// Points, angles and distances. Angles are radians; those that a function answers lie within 0 to 2 pi, the end left
// out.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase::Ge {

// Of the way from one point to another against the X axis, seen from above; 0 for points above each other.
KXARX_API double GetAngle(const AcGePoint3d& from, const AcGePoint3d& to);
// The turn to the left from one way out of the middle to another.
KXARX_API double GetAngle(const AcGePoint3d& from, const AcGePoint3d& middle, const AcGePoint3d& to);
KXARX_API double NormalAngle(double angle);
// An angle at which a text along it reads upright: above -90 degrees up to 90.
KXARX_API double TextAngle(double angle);
KXARX_API AcGePoint3d MidPoint(const AcGePoint3d& one, const AcGePoint3d& other);
// From a point along an angle of its own height.
KXARX_API AcGePoint3d PolarPoint(const AcGePoint3d& from, double angle, double distance);
// The nearest place of a segment, or of the endless line through both points.
KXARX_API AcGePoint3d NearestOnSegment(const AcGePoint3d& point, const AcGePoint3d& start, const AcGePoint3d& end);
KXARX_API AcGePoint3d NearestOnLine(const AcGePoint3d& point, const AcGePoint3d& start, const AcGePoint3d& end);
// Where the endless lines through both pairs cross, seen from above; false for parallel ones.
KXARX_API bool LinesCross(const AcGePoint3d& a1, const AcGePoint3d& a2, const AcGePoint3d& b1, const AcGePoint3d& b2,
                          AcGePoint3d& at);
// 1 to the left of the way from start to end, -1 to the right, 0 on its line.
KXARX_API int SideOf(const AcGePoint3d& point, const AcGePoint3d& start, const AcGePoint3d& end);
// The circle through three points of one plane; false where they lie on a line.
KXARX_API bool CircleThrough(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3, AcGePoint3d& center,
                             double& radius);
// The bulge of the arc from start to end over a point, and the middle of the arc that a bulge makes.
KXARX_API double BulgeOfArc(const AcGePoint2d& start, const AcGePoint2d& over, const AcGePoint2d& end);
KXARX_API AcGePoint2d MiddleOfBulge(const AcGePoint2d& start, const AcGePoint2d& end, double bulge);

}   // namespace KxArxBase::Ge
