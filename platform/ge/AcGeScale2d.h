// Factors along the two axes of the plane.
#pragma once
#include "AcGeTol.h"
#include <cmath>

class AcGeScale2d {
public:
    double sx = 1.0;
    double sy = 1.0;

    constexpr AcGeScale2d() = default;
    constexpr AcGeScale2d(double factor) : sx(factor), sy(factor) {}
    constexpr AcGeScale2d(double x, double y) : sx(x), sy(y) {}

    double operator[](unsigned index) const { return index == 0 ? sx : sy; }
    double& operator[](unsigned index) { return index == 0 ? sx : sy; }
    AcGeScale2d operator*(const AcGeScale2d& other) const { return {sx * other.sx, sy * other.sy}; }
    AcGeScale2d inverse() const { return {1.0 / sx, 1.0 / sy}; }
    bool isProportional(const AcGeTol& tol = AcGeContext::gTol) const
    {
        return std::fabs(sx - sy) <= tol.equalVector();
    }
};
