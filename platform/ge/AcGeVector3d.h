// A direction with a length in space.
#pragma once
#include "AcGeVector2d.h"

class AcGeMatrix3d;
class AcGePlanarEnt;

class AcGeVector3d {
public:
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr AcGeVector3d() = default;
    constexpr AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
    // A vector of a plane, given in the plane's own axes.
    AcGeVector3d(const AcGePlanarEnt& plane, const AcGeVector2d& vector);

    static const AcGeVector3d kIdentity;   // of no length
    static const AcGeVector3d kXAxis;
    static const AcGeVector3d kYAxis;
    static const AcGeVector3d kZAxis;

    double operator[](unsigned index) const { return index == 0 ? x : index == 1 ? y : z; }
    double& operator[](unsigned index) { return index == 0 ? x : index == 1 ? y : z; }
    AcGeVector3d& set(double xx, double yy, double zz)
    {
        x = xx, y = yy, z = zz;
        return *this;
    }
    AcGeVector2d convert2d(const AcGePlanarEnt& plane) const;

    AcGeVector3d operator+(const AcGeVector3d& other) const { return {x + other.x, y + other.y, z + other.z}; }
    AcGeVector3d operator-(const AcGeVector3d& other) const { return {x - other.x, y - other.y, z - other.z}; }
    AcGeVector3d operator-() const { return {-x, -y, -z}; }
    AcGeVector3d operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
    AcGeVector3d operator/(double divisor) const { return {x / divisor, y / divisor, z / divisor}; }
    friend AcGeVector3d operator*(double factor, const AcGeVector3d& vector) { return vector * factor; }
    AcGeVector3d& operator+=(const AcGeVector3d& other) { return *this = *this + other; }
    AcGeVector3d& operator-=(const AcGeVector3d& other) { return *this = *this - other; }
    AcGeVector3d& operator*=(double factor) { return *this = *this * factor; }
    AcGeVector3d& operator/=(double divisor) { return *this = *this / divisor; }
    AcGeVector3d& negate() { return *this = -*this; }

    double dotProduct(const AcGeVector3d& other) const { return x * other.x + y * other.y + z * other.z; }
    AcGeVector3d crossProduct(const AcGeVector3d& other) const
    {
        return {y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x};
    }
    double lengthSqrd() const { return dotProduct(*this); }
    double length() const { return std::sqrt(lengthSqrd()); }
    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const { return length() <= tol.equalVector(); }
    bool isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const
    {
        return std::fabs(length() - 1.0) <= tol.equalVector();
    }
    // A vector of no length stays as it is.
    AcGeVector3d& normalize(const AcGeTol& tol = AcGeContext::gTol);
    AcGeVector3d normal(const AcGeTol& tol = AcGeContext::gTol) const { return AcGeVector3d(*this).normalize(tol); }
    // A unit vector across this one, the same for the same vector: the X axis of an entity with this normal.
    AcGeVector3d perpVector() const;

    double angleTo(const AcGeVector3d& other) const;                                  // 0 to pi
    double angleTo(const AcGeVector3d& other, const AcGeVector3d& reference) const;   // 0 to 2 pi, seen along reference
    double angleOnPlane(const AcGePlanarEnt& plane) const;                            // from the plane's X axis
    AcGeVector3d& rotateBy(double angle, const AcGeVector3d& axis);
    AcGeVector3d& mirror(const AcGeVector3d& normalToPlane);
    AcGeVector3d& transformBy(const AcGeMatrix3d& matrix);

    bool isParallelTo(const AcGeVector3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isCodirectionalTo(const AcGeVector3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeVector3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isEqualTo(const AcGeVector3d& other, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return (*this - other).length() <= tol.equalVector();
    }
    bool operator==(const AcGeVector3d& other) const { return isEqualTo(other); }
    bool operator!=(const AcGeVector3d& other) const { return !isEqualTo(other); }
};

AcGeVector3d operator*(const AcGeMatrix3d& matrix, const AcGeVector3d& vector);
