// Matrices, angles, polygons that overlap, and polylines picked by the user: small things that modules need everywhere.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

class KXARX_API CArxBaseFun {
public:
    // --- matrices: angles in radians, about the Z axis --------------------------------------------------------------
    static AcGeMatrix3d MoveMatrix(const AcGePoint3d& from, const AcGePoint3d& to);
    static AcGeMatrix3d RotateMatrix(const AcGePoint3d& center, double angle);
    static AcGeMatrix3d ScaleMatrix(const AcGePoint3d& center, double factor);
    // In the upright plane through both points; the identity where they are one.
    static AcGeMatrix3d MirrorMatrix(const AcGePoint3d& one, const AcGePoint3d& other);
    // Takes the first pair of points onto the second; with `scale` the lengths too. The identity for points that are
    // one.
    static AcGeMatrix3d AlignMatrix(const AcGePoint3d& from1, const AcGePoint3d& from2, const AcGePoint3d& to1,
                                    const AcGePoint3d& to2, int scale = 0);

    // --- angles ----------------------------------------------------------------------------------------------------
    static double ToRadians(double degrees);
    static double ToDegrees(double radians);
    // Within 0 to 2 pi, the end left out.
    static double NormalAngle(double angle);
    // Whether an angle lies on the way to the left from one to another, ends included.
    static bool IsAngleBetween(double angle, double from, double to);

    // --- polygons of the plane --------------------------------------------------------------------------------------
    // The places where their edges meet, and what they share; 0 where there is none.
    static int PolygonCrossings(const AcGePoint2dArray& one, const AcGePoint2dArray& other, AcGePoint2dArray& points);
    static int PolygonIntersection(const AcGePoint2dArray& one, const AcGePoint2dArray& other,
                                   AcArray<AcGePoint2dArray>& shared);
    static bool IsPointInside(const AcGePoint2d& point, const AcGePoint2dArray& polygon);   // edges included

    // --- polylines --------------------------------------------------------------------------------------------------
    // Asks for one polyline of any kind. RTNORM, or the host's code.
    static int PickPolyline(const wchar_t* prompt, AcDbObjectId& id, AcGePoint3d& point);
    // The segment nearest to a point, counted from 0, and the place on it.
    static Acad::ErrorStatus SegmentAt(AcDbObjectId polyline, const AcGePoint3d& point, int& segment,
                                       AcGePoint3d& onSegment);
    // The vertices in world axes; with `step` above 0 arcs are followed by points no further apart.
    static Acad::ErrorStatus PolylinePoints(AcDbObjectId polyline, AcGePoint3dArray& points, double step = 0);
};
