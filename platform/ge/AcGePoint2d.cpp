#include "AcGePoint2d.h"
#include "AcGeMatrix2d.h"

const AcGePoint2d AcGePoint2d::kOrigin;

AcGePoint2d& AcGePoint2d::rotateBy(double angle, const AcGePoint2d& about)
{
    return *this = about + (*this - about).rotateBy(angle);
}

AcGePoint2d& AcGePoint2d::scaleBy(double factor, const AcGePoint2d& about)
{
    return *this = about + (*this - about) * factor;
}

AcGePoint2d& AcGePoint2d::transformBy(const AcGeMatrix2d& matrix)
{
    return *this = matrix * *this;
}

AcGePoint2d operator*(const AcGeMatrix2d& matrix, const AcGePoint2d& point)
{
    return AcGePoint2d() + (matrix * point.asVector() + matrix.translation());
}
