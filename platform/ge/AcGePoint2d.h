// A place in the plane.
#pragma once
#include "AcGeVector2d.h"

class AcGePoint2d {
public:
    double x = 0.0;
    double y = 0.0;

    constexpr AcGePoint2d() = default;
    constexpr AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}

    static const AcGePoint2d kOrigin;

    double operator[](unsigned index) const { return index == 0 ? x : y; }
    double& operator[](unsigned index) { return index == 0 ? x : y; }
    AcGePoint2d& set(double xx, double yy)
    {
        x = xx, y = yy;
        return *this;
    }
    AcGeVector2d asVector() const { return {x, y}; }

    AcGePoint2d operator+(const AcGeVector2d& vector) const { return {x + vector.x, y + vector.y}; }
    AcGePoint2d operator-(const AcGeVector2d& vector) const { return {x - vector.x, y - vector.y}; }
    AcGeVector2d operator-(const AcGePoint2d& other) const { return {x - other.x, y - other.y}; }
    AcGePoint2d operator*(double factor) const { return {x * factor, y * factor}; }
    AcGePoint2d operator/(double divisor) const { return {x / divisor, y / divisor}; }
    AcGePoint2d& operator+=(const AcGeVector2d& vector) { return *this = *this + vector; }
    AcGePoint2d& operator-=(const AcGeVector2d& vector) { return *this = *this - vector; }
    AcGePoint2d& operator*=(double factor) { return *this = *this * factor; }
    AcGePoint2d& operator/=(double divisor) { return *this = *this / divisor; }

    double distanceTo(const AcGePoint2d& other) const { return (*this - other).length(); }
    AcGePoint2d& rotateBy(double angle, const AcGePoint2d& about = kOrigin);
    AcGePoint2d& scaleBy(double factor, const AcGePoint2d& about = kOrigin);
    AcGePoint2d& transformBy(const AcGeMatrix2d& matrix);

    bool isEqualTo(const AcGePoint2d& other, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(other) <= tol.equalPoint();
    }
    bool operator==(const AcGePoint2d& other) const { return isEqualTo(other); }
    bool operator!=(const AcGePoint2d& other) const { return !isEqualTo(other); }
};

AcGePoint2d operator*(const AcGeMatrix2d& matrix, const AcGePoint2d& point);
