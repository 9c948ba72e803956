#include "AcGeScale3d.h"
#include "AcGeMatrix3d.h"
#include <cmath>

const AcGeScale3d AcGeScale3d::kIdentity;

void AcGeScale3d::getMatrix(AcGeMatrix3d& matrix) const
{
    matrix.setToIdentity();
    matrix.entry[0][0] = sx;
    matrix.entry[1][1] = sy;
    matrix.entry[2][2] = sz;
}

bool AcGeScale3d::isProportional(const AcGeTol& tol) const
{
    return isEqualTo(AcGeScale3d(sx), tol);
}

bool AcGeScale3d::isEqualTo(const AcGeScale3d& other, const AcGeTol& tol) const
{
    const double most = tol.equalVector();
    return std::fabs(sx - other.sx) <= most && std::fabs(sy - other.sy) <= most && std::fabs(sz - other.sz) <= most;
}
