// A camera with what it looks at, on a part of a device.
#pragma once
#include "../db/AcDbObjectId.h"
#include "../ge/AcGeMatrix3d.h"
#include "../ge/AcGePoint2d.h"
#include "../ge/AcGePoint3d.h"
#include "AcGs.h"

class AcGiDrawable;
class AcGsDevice;
class AcGsModel;

class AcGsView {
public:
    enum RenderMode {
        kBoundingBox = 0,
        k2DOptimized = 1,
        kWireframe = 2,
        kHiddenLine = 3,
        kFlatShaded = 4,
        kGouraudShaded = 5,
        kFlatShadedWithWireframe = 6,
        kGouraudShadedWithWireframe = 7
    };
    enum Projection { kParallel = 0, kPerspective = 1 };

    virtual ~AcGsView() = default;

    virtual AcGsDevice* device() const = 0;

    // The part of the device, as shares of its width and height from the lower left corner, or in pixels.
    virtual void setViewport(const AcGePoint2d& lowerLeft, const AcGePoint2d& upperRight) = 0;
    virtual void setViewport(const AcGsDCRect& rect) = 0;
    virtual void getViewport(AcGePoint2d& lowerLeft, AcGePoint2d& upperRight) const = 0;
    virtual void getViewport(AcGsDCRect& rect) const = 0;

    // The field is what is seen at least of the plane through the target, in drawing units. Impossible values (a
    // position at the target, no field) change nothing.
    virtual void setView(const AcGePoint3d& position, const AcGePoint3d& target, const AcGeVector3d& upVector,
                         double fieldWidth, double fieldHeight, Projection projection = kParallel) = 0;
    virtual AcGePoint3d position() const = 0;
    virtual AcGePoint3d target() const = 0;
    virtual AcGeVector3d upVector() const = 0;
    virtual bool isPerspective() const = 0;
    virtual double fieldWidth() const = 0;
    virtual double fieldHeight() const = 0;

    // Moves the camera in its own axes, drawing units: x to the right, y up, z backwards.
    virtual void dolly(const AcGeVector3d& vector) = 0;
    virtual void dolly(double x, double y, double z) = 0;
    virtual void pan(double x, double y) = 0;
    // Turns the camera about its line of sight.
    virtual void roll(double angle) = 0;
    // Turns the camera about the target, in radians by the right hand: about its x axis, then about its y axis.
    virtual void orbit(double xOrbit, double yOrbit) = 0;
    // Above 1 things become larger.
    virtual void zoom(double factor) = 0;
    virtual void zoomExtents(const AcGePoint3d& minPoint, const AcGePoint3d& maxPoint) = 0;

    // World to eye, whose origin is the camera's position; eye to normalised coordinates, -1 to 1 across the viewport;
    // those to the device. In perspective the matrices hold for the plane through the target.
    virtual AcGeMatrix3d viewingMatrix() const = 0;
    virtual AcGeMatrix3d projectionMatrix() const = 0;
    virtual AcGeMatrix3d screenMatrix() const = 0;
    virtual AcGeMatrix3d worldToDeviceMatrix() const = 0;
    virtual AcGeMatrix3d objectToDeviceMatrix() const = 0;

    // A drawable may be a block (its contents are shown), an entity, or something of no drawing, which must live until
    // it is erased here.
    virtual bool add(AcGiDrawable* drawable, AcGsModel* model) = 0;
    virtual bool erase(AcGiDrawable* drawable) = 0;
    virtual void eraseAll() = 0;

    virtual void freezeLayer(AcDbObjectId layer) = 0;
    virtual void thawLayer(AcDbObjectId layer) = 0;
    virtual void clearFrozenLayers() = 0;

    virtual void setMode(RenderMode mode) = 0;
    virtual RenderMode mode() const = 0;

    virtual void invalidate() = 0;
    virtual void invalidate(const AcGsDCRect& rect) = 0;
    virtual bool isValid() const = 0;
    virtual void update() = 0;
    virtual void hide() = 0;
    virtual void show() = 0;
    virtual bool isVisible() const = 0;
};
