#include "AcGeVector2d.h"
#include "AcGeMatrix2d.h"
#include "EntityAxes.h"

constinit AcGeTol AcGeContext::gTol;
const AcGeVector2d AcGeVector2d::kIdentity;
const AcGeVector2d AcGeVector2d::kXAxis(1.0, 0.0);
const AcGeVector2d AcGeVector2d::kYAxis(0.0, 1.0);

AcGeVector2d& AcGeVector2d::normalize(const AcGeTol& tol)
{
    const double size = length();
    return size <= tol.equalVector() ? *this : *this /= size;
}

double AcGeVector2d::angle() const
{
    return KxPlat::FullTurn(std::atan2(y, x));
}

double AcGeVector2d::angleTo(const AcGeVector2d& other) const
{
    return std::fabs(std::atan2(x * other.y - y * other.x, dotProduct(other)));
}

AcGeVector2d& AcGeVector2d::rotateBy(double angle)
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return set(x * c - y * s, x * s + y * c);
}

AcGeVector2d& AcGeVector2d::transformBy(const AcGeMatrix2d& matrix)
{
    return *this = matrix * *this;
}

bool AcGeVector2d::isParallelTo(const AcGeVector2d& other, const AcGeTol& tol) const
{
    return isCodirectionalTo(other, tol) || isCodirectionalTo(-other, tol);
}

bool AcGeVector2d::isCodirectionalTo(const AcGeVector2d& other, const AcGeTol& tol) const
{
    return normal(tol).isEqualTo(other.normal(tol), tol);
}

bool AcGeVector2d::isPerpendicularTo(const AcGeVector2d& other, const AcGeTol& tol) const
{
    return std::fabs(normal(tol).dotProduct(other.normal(tol))) <= tol.equalVector();
}

AcGeVector2d operator*(const AcGeMatrix2d& matrix, const AcGeVector2d& vector)
{
    const auto& e = matrix.entry;
    return {e[0][0] * vector.x + e[0][1] * vector.y, e[1][0] * vector.x + e[1][1] * vector.y};
}
