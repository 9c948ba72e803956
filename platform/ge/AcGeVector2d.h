// A direction with a length in the plane.
#pragma once
#include "AcGeTol.h"
#include <cmath>

class AcGeMatrix2d;

class AcGeVector2d {
public:
    double x = 0.0;
    double y = 0.0;

    constexpr AcGeVector2d() = default;
    constexpr AcGeVector2d(double xx, double yy) : x(xx), y(yy) {}

    static const AcGeVector2d kIdentity;   // of no length
    static const AcGeVector2d kXAxis;
    static const AcGeVector2d kYAxis;

    double operator[](unsigned index) const { return index == 0 ? x : y; }
    double& operator[](unsigned index) { return index == 0 ? x : y; }
    AcGeVector2d& set(double xx, double yy)
    {
        x = xx, y = yy;
        return *this;
    }

    AcGeVector2d operator+(const AcGeVector2d& other) const { return {x + other.x, y + other.y}; }
    AcGeVector2d operator-(const AcGeVector2d& other) const { return {x - other.x, y - other.y}; }
    AcGeVector2d operator-() const { return {-x, -y}; }
    AcGeVector2d operator*(double factor) const { return {x * factor, y * factor}; }
    AcGeVector2d operator/(double divisor) const { return {x / divisor, y / divisor}; }
    friend AcGeVector2d operator*(double factor, const AcGeVector2d& vector) { return vector * factor; }
    AcGeVector2d& operator+=(const AcGeVector2d& other) { return *this = *this + other; }
    AcGeVector2d& operator-=(const AcGeVector2d& other) { return *this = *this - other; }
    AcGeVector2d& operator*=(double factor) { return *this = *this * factor; }
    AcGeVector2d& operator/=(double divisor) { return *this = *this / divisor; }
    AcGeVector2d& negate() { return *this = -*this; }
    AcGeVector2d perpVector() const { return {-y, x}; }   // a quarter turn to the left

    double dotProduct(const AcGeVector2d& other) const { return x * other.x + y * other.y; }
    double lengthSqrd() const { return dotProduct(*this); }
    double length() const { return std::hypot(x, y); }
    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const { return length() <= tol.equalVector(); }
    bool isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const
    {
        return std::fabs(length() - 1.0) <= tol.equalVector();
    }
    // A vector of no length stays as it is.
    AcGeVector2d& normalize(const AcGeTol& tol = AcGeContext::gTol);
    AcGeVector2d normal(const AcGeTol& tol = AcGeContext::gTol) const { return AcGeVector2d(*this).normalize(tol); }

    double angle() const;                              // from the X axis, 0 to 2 pi
    double angleTo(const AcGeVector2d& other) const;   // 0 to pi
    AcGeVector2d& rotateBy(double angle);
    AcGeVector2d& transformBy(const AcGeMatrix2d& matrix);

    bool isParallelTo(const AcGeVector2d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isCodirectionalTo(const AcGeVector2d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeVector2d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isEqualTo(const AcGeVector2d& other, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return (*this - other).length() <= tol.equalVector();
    }
    bool operator==(const AcGeVector2d& other) const { return isEqualTo(other); }
    bool operator!=(const AcGeVector2d& other) const { return !isEqualTo(other); }
};

AcGeVector2d operator*(const AcGeMatrix2d& matrix, const AcGeVector2d& vector);
