// What can be drawn. Every call draws with the traits of the moment, in the axes of the transform on top of the stack.
// A call that answers true asks for an end of the drawing.
#pragma once
#include "../ge/AcGeMatrix3d.h"
#include "../rx/AcRxObject.h"
#include "AcGi.h"

class AcDbPolyline;
class AcGiDrawable;
class AcGiTextStyle;

class AcGiEdgeData;
class AcGiFaceData;
class AcGiVertexData;

class AcGiGeometry : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcGiGeometry);

    virtual void getModelToWorldTransform(AcGeMatrix3d& transform) const = 0;
    virtual void getWorldToModelTransform(AcGeMatrix3d& transform) const = 0;
    virtual Adesk::Boolean pushModelTransform(const AcGeVector3d& normal) = 0;
    virtual Adesk::Boolean pushModelTransform(const AcGeMatrix3d& transform) = 0;
    virtual Adesk::Boolean popModelTransform() = 0;

    virtual Adesk::Boolean circle(const AcGePoint3d& center, const double radius, const AcGeVector3d& normal) const = 0;
    virtual Adesk::Boolean circle(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3) const = 0;
    virtual Adesk::Boolean circularArc(const AcGePoint3d& center, const double radius, const AcGeVector3d& normal,
                                       const AcGeVector3d& startVector, const double sweepAngle,
                                       const AcGiArcType arcType = kAcGiArcSimple) const = 0;
    virtual Adesk::Boolean circularArc(const AcGePoint3d& start, const AcGePoint3d& point, const AcGePoint3d& end,
                                       const AcGiArcType arcType = kAcGiArcSimple) const = 0;
    virtual Adesk::Boolean polyline(const Adesk::UInt32 count, const AcGePoint3d* vertices,
                                    const AcGeVector3d* normal = nullptr,
                                    Adesk::GsMarker baseSubEntMarker = -1) const = 0;
    virtual Adesk::Boolean polygon(const Adesk::UInt32 count, const AcGePoint3d* vertices) const = 0;
    virtual Adesk::Boolean mesh(const Adesk::UInt32 rows, const Adesk::UInt32 columns, const AcGePoint3d* vertices,
                                const AcGiEdgeData* edges = nullptr, const AcGiFaceData* faces = nullptr,
                                const AcGiVertexData* vertexData = nullptr, const bool autoNormals = true) const = 0;
    // `faceList`: a count, then as many indices, over and over; a negative count is a hole in the face before it.
    virtual Adesk::Boolean shell(const Adesk::UInt32 vertexCount, const AcGePoint3d* vertices,
                                 const Adesk::UInt32 faceListSize, const Adesk::Int32* faceList,
                                 const AcGiEdgeData* edges = nullptr, const AcGiFaceData* faces = nullptr,
                                 const AcGiVertexData* vertexData = nullptr, const void* reserved = nullptr,
                                 const bool autoNormals = true) const = 0;
    virtual Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                                const double height, const double width, const double oblique,
                                const ACHAR* message) const = 0;
    virtual Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                                const ACHAR* message, const Adesk::Int32 length, const Adesk::Boolean raw,
                                const AcGiTextStyle& style) const = 0;
    virtual Adesk::Boolean xline(const AcGePoint3d& one, const AcGePoint3d& other) const = 0;
    virtual Adesk::Boolean ray(const AcGePoint3d& start, const AcGePoint3d& through) const = 0;
    virtual Adesk::Boolean pline(const AcDbPolyline& polyline, Adesk::UInt32 fromIndex = 0,
                                 Adesk::UInt32 numSegs = 0) const = 0;
    virtual Adesk::Boolean draw(AcGiDrawable* drawable) const = 0;
};

class AcGiWorldGeometry : public AcGiGeometry {
public:
    ACRX_DECLARE_MEMBERS(AcGiWorldGeometry);
    // The extents of what follows, from the first point to the second.
    virtual void setExtents(AcGePoint3d* newExtents) const = 0;
};

class AcGiViewportGeometry : public AcGiGeometry {
public:
    ACRX_DECLARE_MEMBERS(AcGiViewportGeometry);
    // In the axes of the eye, and in those of the display, whose corners are (-1, -1) and (1, 1).
    virtual Adesk::Boolean polylineEye(const Adesk::UInt32 count, const AcGePoint3d* points) const = 0;
    virtual Adesk::Boolean polygonEye(const Adesk::UInt32 count, const AcGePoint3d* points) const = 0;
    virtual Adesk::Boolean polylineDc(const Adesk::UInt32 count, const AcGePoint3d* points) const = 0;
    virtual Adesk::Boolean polygonDc(const Adesk::UInt32 count, const AcGePoint3d* points) const = 0;
};
