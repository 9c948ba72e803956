// An affine map of the plane: `entry` is row by row, points are columns, the third column moves.
#pragma once
#include "AcGePoint2d.h"

class AcGeMatrix2d {
public:
    double entry[3][3];

    AcGeMatrix2d() { setToIdentity(); }

    static const AcGeMatrix2d kIdentity;

    double operator()(unsigned row, unsigned column) const { return entry[row][column]; }
    double& operator()(unsigned row, unsigned column) { return entry[row][column]; }
    AcGeMatrix2d operator*(const AcGeMatrix2d& right) const;
    AcGeMatrix2d& operator*=(const AcGeMatrix2d& right) { return *this = *this * right; }
    AcGeMatrix2d& preMultBy(const AcGeMatrix2d& left) { return *this = left * *this; }
    AcGeMatrix2d& postMultBy(const AcGeMatrix2d& right) { return *this = *this * right; }
    AcGeMatrix2d& setToIdentity();
    double det() const;
    bool isSingular(const AcGeTol& tol = AcGeContext::gTol) const;
    // A singular matrix answers itself.
    AcGeMatrix2d inverse() const;
    AcGeMatrix2d& invert() { return *this = inverse(); }
    AcGeVector2d translation() const { return {entry[0][2], entry[1][2]}; }
    bool isEqualTo(const AcGeMatrix2d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool operator==(const AcGeMatrix2d& other) const { return isEqualTo(other); }

    AcGeMatrix2d& setToTranslation(const AcGeVector2d& vector);
    AcGeMatrix2d& setToRotation(double angle, const AcGePoint2d& center = AcGePoint2d::kOrigin);
    AcGeMatrix2d& setToScaling(double factor, const AcGePoint2d& center = AcGePoint2d::kOrigin);

    static AcGeMatrix2d translation(const AcGeVector2d& vector) { return AcGeMatrix2d().setToTranslation(vector); }
    static AcGeMatrix2d rotation(double angle, const AcGePoint2d& center = AcGePoint2d::kOrigin)
    {
        return AcGeMatrix2d().setToRotation(angle, center);
    }
    static AcGeMatrix2d scaling(double factor, const AcGePoint2d& center = AcGePoint2d::kOrigin)
    {
        return AcGeMatrix2d().setToScaling(factor, center);
    }
};
