// A place in space.
#pragma once
#include "AcGePoint2d.h"
#include "AcGeVector3d.h"

class AcGePlane;

class AcGePoint3d {
public:
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr AcGePoint3d() = default;
    constexpr AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
    // A point of a plane, given in the plane's own axes.
    AcGePoint3d(const AcGePlanarEnt& plane, const AcGePoint2d& point);

    static const AcGePoint3d kOrigin;

    double operator[](unsigned index) const { return index == 0 ? x : index == 1 ? y : z; }
    double& operator[](unsigned index) { return index == 0 ? x : index == 1 ? y : z; }
    AcGePoint3d& set(double xx, double yy, double zz)
    {
        x = xx, y = yy, z = zz;
        return *this;
    }
    AcGeVector3d asVector() const { return {x, y, z}; }
    AcGePoint2d convert2d(const AcGePlanarEnt& plane) const;

    AcGePoint3d operator+(const AcGeVector3d& vector) const { return {x + vector.x, y + vector.y, z + vector.z}; }
    AcGePoint3d operator-(const AcGeVector3d& vector) const { return {x - vector.x, y - vector.y, z - vector.z}; }
    AcGeVector3d operator-(const AcGePoint3d& other) const { return {x - other.x, y - other.y, z - other.z}; }
    AcGePoint3d operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
    AcGePoint3d operator/(double divisor) const { return {x / divisor, y / divisor, z / divisor}; }
    AcGePoint3d& operator+=(const AcGeVector3d& vector) { return *this = *this + vector; }
    AcGePoint3d& operator-=(const AcGeVector3d& vector) { return *this = *this - vector; }
    AcGePoint3d& operator*=(double factor) { return *this = *this * factor; }
    AcGePoint3d& operator/=(double divisor) { return *this = *this / divisor; }

    double distanceTo(const AcGePoint3d& other) const { return (*this - other).length(); }
    AcGePoint3d& rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& about = kOrigin);
    AcGePoint3d& scaleBy(double factor, const AcGePoint3d& about = kOrigin);
    AcGePoint3d& mirror(const AcGePlane& plane);
    AcGePoint3d& transformBy(const AcGeMatrix3d& matrix);
    // The foot of the perpendicular, and the place where a line along `vector` meets the plane.
    AcGePoint3d orthoProject(const AcGePlane& plane) const;
    AcGePoint3d project(const AcGePlane& plane, const AcGeVector3d& vector) const;

    bool isEqualTo(const AcGePoint3d& other, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(other) <= tol.equalPoint();
    }
    bool operator==(const AcGePoint3d& other) const { return isEqualTo(other); }
    bool operator!=(const AcGePoint3d& other) const { return !isEqualTo(other); }
};

AcGePoint3d operator*(const AcGeMatrix3d& matrix, const AcGePoint3d& point);
