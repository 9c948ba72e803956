// An affine map of space: `entry` is row by row, points are columns, the fourth column moves.
#pragma once
#include "AcGePoint3d.h"
#include "AcGeScale3d.h"

class AcGeMatrix2d;
class AcGePlane;

class AcGeMatrix3d {
public:
    double entry[4][4];

    AcGeMatrix3d() { setToIdentity(); }

    static const AcGeMatrix3d kIdentity;

    double operator()(unsigned row, unsigned column) const { return entry[row][column]; }
    double& operator()(unsigned row, unsigned column) { return entry[row][column]; }
    AcGeMatrix3d operator*(const AcGeMatrix3d& right) const;
    AcGeMatrix3d& operator*=(const AcGeMatrix3d& right) { return *this = *this * right; }
    AcGeMatrix3d& preMultBy(const AcGeMatrix3d& left) { return *this = left * *this; }
    AcGeMatrix3d& postMultBy(const AcGeMatrix3d& right) { return *this = *this * right; }
    AcGeMatrix3d& setToProduct(const AcGeMatrix3d& left, const AcGeMatrix3d& right) { return *this = left * right; }
    AcGeMatrix3d& setToIdentity();

    // A singular matrix answers itself.
    AcGeMatrix3d inverse() const;
    AcGeMatrix3d& invert() { return *this = inverse(); }
    bool isSingular(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeMatrix3d transpose() const;
    AcGeMatrix3d& transposeIt() { return *this = transpose(); }
    double det() const;    // of the upper left 3 by 3
    double norm() const;   // the largest column's length

    bool isEqualTo(const AcGeMatrix3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool operator==(const AcGeMatrix3d& other) const { return isEqualTo(other); }
    bool operator!=(const AcGeMatrix3d& other) const { return !isEqualTo(other); }
    // Axes of equal length and square to each other, mirrored or not.
    bool isUniScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;
    // Axes square to each other, of any length.
    bool isScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;
    double scale() const;

    AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis,
                                 const AcGeVector3d& zAxis);
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis, AcGeVector3d& zAxis) const;
    AcGeVector3d translation() const { return {entry[0][3], entry[1][3], entry[2][3]}; }
    AcGeMatrix3d& setTranslation(const AcGeVector3d& vector);

    AcGeMatrix3d& setToTranslation(const AcGeVector3d& vector);
    AcGeMatrix3d& setToRotation(double angle, const AcGeVector3d& axis,
                                const AcGePoint3d& center = AcGePoint3d::kOrigin);
    AcGeMatrix3d& setToScaling(double factor, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    AcGeMatrix3d& setToMirroring(const AcGePlane& plane);
    AcGeMatrix3d& setToMirroring(const AcGePoint3d& point);
    AcGeMatrix3d& setToProjection(const AcGePlane& plane, const AcGeVector3d& direction);
    AcGeMatrix3d& setToAlignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromXAxis,
                                     const AcGeVector3d& fromYAxis, const AcGeVector3d& fromZAxis,
                                     const AcGePoint3d& toOrigin, const AcGeVector3d& toXAxis,
                                     const AcGeVector3d& toYAxis, const AcGeVector3d& toZAxis);
    AcGeMatrix3d& setToWorldToPlane(const AcGeVector3d& normal);
    AcGeMatrix3d& setToWorldToPlane(const AcGePlane& plane);
    AcGeMatrix3d& setToPlaneToWorld(const AcGeVector3d& normal);
    AcGeMatrix3d& setToPlaneToWorld(const AcGePlane& plane);

    static AcGeMatrix3d translation(const AcGeVector3d& vector) { return AcGeMatrix3d().setToTranslation(vector); }
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis,
                                 const AcGePoint3d& center = AcGePoint3d::kOrigin)
    {
        return AcGeMatrix3d().setToRotation(angle, axis, center);
    }
    static AcGeMatrix3d scaling(double factor, const AcGePoint3d& center = AcGePoint3d::kOrigin)
    {
        return AcGeMatrix3d().setToScaling(factor, center);
    }
    static AcGeMatrix3d mirroring(const AcGePlane& plane) { return AcGeMatrix3d().setToMirroring(plane); }
    static AcGeMatrix3d mirroring(const AcGePoint3d& point) { return AcGeMatrix3d().setToMirroring(point); }
    static AcGeMatrix3d projection(const AcGePlane& plane, const AcGeVector3d& direction)
    {
        return AcGeMatrix3d().setToProjection(plane, direction);
    }
    static AcGeMatrix3d alignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromXAxis,
                                      const AcGeVector3d& fromYAxis, const AcGeVector3d& fromZAxis,
                                      const AcGePoint3d& toOrigin, const AcGeVector3d& toXAxis,
                                      const AcGeVector3d& toYAxis, const AcGeVector3d& toZAxis)
    {
        return AcGeMatrix3d().setToAlignCoordSys(fromOrigin, fromXAxis, fromYAxis, fromZAxis, toOrigin, toXAxis,
                                                 toYAxis, toZAxis);
    }
    // A normal stands for the entity axes that go with it, with the world's origin.
    static AcGeMatrix3d worldToPlane(const AcGeVector3d& normal) { return AcGeMatrix3d().setToWorldToPlane(normal); }
    static AcGeMatrix3d worldToPlane(const AcGePlane& plane) { return AcGeMatrix3d().setToWorldToPlane(plane); }
    static AcGeMatrix3d planeToWorld(const AcGeVector3d& normal) { return AcGeMatrix3d().setToPlaneToWorld(normal); }
    static AcGeMatrix3d planeToWorld(const AcGePlane& plane) { return AcGeMatrix3d().setToPlaneToWorld(plane); }
};
