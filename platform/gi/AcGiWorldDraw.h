// The contexts in which something draws itself: once for all views, and for one view.
#pragma once
#include "AcGiGeometry.h"
#include "AcGiSubEntityTraits.h"

class AcDbDatabase;

class AcGiContext : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcGiContext);
    virtual Adesk::Boolean isPsOut() const { return Adesk::kFalse; }
    virtual Adesk::Boolean isPlotGeneration() const { return Adesk::kFalse; }
    virtual AcDbDatabase* database() const = 0;
    virtual bool isBoundaryClipping() const { return false; }
};

class AcGiViewport : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcGiViewport);
    virtual void getModelToEyeTransform(AcGeMatrix3d& transform) const = 0;
    virtual void getEyeToModelTransform(AcGeMatrix3d& transform) const = 0;
    virtual void getWorldToEyeTransform(AcGeMatrix3d& transform) const = 0;
    virtual void getEyeToWorldTransform(AcGeMatrix3d& transform) const = 0;
    virtual Adesk::Boolean isPerspective() const = 0;
    virtual void getCameraTarget(AcGePoint3d& target) const = 0;
    virtual void getCameraUpVector(AcGeVector3d& up) const = 0;
    virtual Adesk::ULongPtr viewportId() const = 0;
    virtual Adesk::Int16 acadWindowId() const = 0;
    // Pixels for one unit around a point.
    virtual void getNumPixelsInUnitSquare(const AcGePoint3d& around, AcGePoint2d& pixels,
                                          bool includePerspective = true) const = 0;
    virtual AcGeVector3d viewDir() const = 0;
    virtual Adesk::Boolean layerVisible(const AcDbObjectId& layer) const = 0;
};

class AcGiCommonDraw : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcGiCommonDraw);

    virtual AcGiRegenType regenType() const = 0;
    // True when the user asked to stop.
    virtual Adesk::Boolean regenAbort() const = 0;
    virtual AcGiSubEntityTraits& subEntityTraits() const = 0;
    virtual AcGiGeometry* rawGeometry() const = 0;
    virtual Adesk::Boolean isDragging() const = 0;
    virtual double deviation(const AcGiDeviationType type, const AcGePoint3d& around) const = 0;
    virtual Adesk::UInt32 numberOfIsolines() const = 0;
    virtual AcGiContext* context() = 0;
};

class AcGiWorldDraw : public AcGiCommonDraw {
public:
    ACRX_DECLARE_MEMBERS(AcGiWorldDraw);
    virtual AcGiWorldGeometry& geometry() const = 0;
};

class AcGiViewportDraw : public AcGiCommonDraw {
public:
    ACRX_DECLARE_MEMBERS(AcGiViewportDraw);
    virtual AcGiViewport& viewport() const = 0;
    virtual AcGiViewportGeometry& geometry() const = 0;
    virtual Adesk::UInt32 sequenceNumber() const = 0;
    virtual Adesk::Boolean isValidId(const Adesk::ULongPtr viewportId) const = 0;
    virtual AcDbObjectId viewportObjectId() const = 0;
};
