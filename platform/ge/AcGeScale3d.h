// Factors along the three axes.
#pragma once
#include "AcGeTol.h"

class AcGeMatrix3d;

class AcGeScale3d {
public:
    double sx = 1.0;
    double sy = 1.0;
    double sz = 1.0;

    constexpr AcGeScale3d() = default;
    constexpr AcGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
    constexpr AcGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}

    static const AcGeScale3d kIdentity;

    double operator[](unsigned index) const { return index == 0 ? sx : index == 1 ? sy : sz; }
    double& operator[](unsigned index) { return index == 0 ? sx : index == 1 ? sy : sz; }
    AcGeScale3d& set(double x, double y, double z)
    {
        sx = x, sy = y, sz = z;
        return *this;
    }
    AcGeScale3d operator*(const AcGeScale3d& other) const { return {sx * other.sx, sy * other.sy, sz * other.sz}; }
    AcGeScale3d operator*(double factor) const { return {sx * factor, sy * factor, sz * factor}; }
    AcGeScale3d inverse() const { return {1.0 / sx, 1.0 / sy, 1.0 / sz}; }
    void getMatrix(AcGeMatrix3d& matrix) const;
    bool isProportional(const AcGeTol& tol = AcGeContext::gTol) const;
    bool isEqualTo(const AcGeScale3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool operator==(const AcGeScale3d& other) const { return isEqualTo(other); }
    bool operator!=(const AcGeScale3d& other) const { return !isEqualTo(other); }
};
