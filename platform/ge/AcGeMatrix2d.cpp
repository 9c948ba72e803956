#include "AcGeMatrix2d.h"

const AcGeMatrix2d AcGeMatrix2d::kIdentity;

AcGeMatrix2d& AcGeMatrix2d::setToIdentity()
{
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            entry[row][column] = row == column ? 1.0 : 0.0;
    }
    return *this;
}

AcGeMatrix2d AcGeMatrix2d::operator*(const AcGeMatrix2d& right) const
{
    AcGeMatrix2d product;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            product.entry[row][column] = entry[row][0] * right.entry[0][column] +
                                         entry[row][1] * right.entry[1][column] +
                                         entry[row][2] * right.entry[2][column];
        }
    }
    return product;
}

double AcGeMatrix2d::det() const
{
    return entry[0][0] * entry[1][1] - entry[0][1] * entry[1][0];
}

bool AcGeMatrix2d::isSingular(const AcGeTol& tol) const
{
    return !(std::fabs(det()) > tol.equalVector());
}

AcGeMatrix2d AcGeMatrix2d::inverse() const
{
    const double d = det();
    if (d == 0.0 || !std::isfinite(d))
        return *this;
    AcGeMatrix2d result;
    result.entry[0][0] = entry[1][1] / d;
    result.entry[0][1] = -entry[0][1] / d;
    result.entry[1][0] = -entry[1][0] / d;
    result.entry[1][1] = entry[0][0] / d;
    const AcGeVector2d back = -(result * translation());
    result.entry[0][2] = back.x;
    result.entry[1][2] = back.y;
    return result;
}

bool AcGeMatrix2d::isEqualTo(const AcGeMatrix2d& other, const AcGeTol& tol) const
{
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            if (!(std::fabs(entry[row][column] - other.entry[row][column]) <= tol.equalVector()))
                return false;
        }
    }
    return true;
}

AcGeMatrix2d& AcGeMatrix2d::setToTranslation(const AcGeVector2d& vector)
{
    setToIdentity();
    entry[0][2] = vector.x;
    entry[1][2] = vector.y;
    return *this;
}

AcGeMatrix2d& AcGeMatrix2d::setToRotation(double angle, const AcGePoint2d& center)
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    setToIdentity();
    entry[0][0] = entry[1][1] = c;
    entry[0][1] = -s;
    entry[1][0] = s;
    entry[0][2] = center.x - c * center.x + s * center.y;
    entry[1][2] = center.y - s * center.x - c * center.y;
    return *this;
}

AcGeMatrix2d& AcGeMatrix2d::setToScaling(double factor, const AcGePoint2d& center)
{
    setToIdentity();
    entry[0][0] = entry[1][1] = factor;
    entry[0][2] = center.x * (1.0 - factor);
    entry[1][2] = center.y * (1.0 - factor);
    return *this;
}
