#include "AcGeMatrix3d.h"
#include "AcGePlane.h"
#include "EntityAxes.h"
#include <algorithm>

const AcGeMatrix3d AcGeMatrix3d::kIdentity;

namespace {

AcGeVector3d Column(const AcGeMatrix3d& matrix, int column)
{
    return {matrix.entry[0][column], matrix.entry[1][column], matrix.entry[2][column]};
}

void SetColumn(AcGeMatrix3d& matrix, int column, const AcGeVector3d& vector)
{
    for (unsigned row = 0; row < 3; ++row)
        matrix.entry[row][column] = vector[row];
}

// The map that is `linear` and leaves `fixed` where it is.
AcGeMatrix3d& KeepPoint(AcGeMatrix3d& linear, const AcGePoint3d& fixed)
{
    return linear.setTranslation(fixed.asVector() - linear * fixed.asVector());
}

}   // namespace

AcGeMatrix3d& AcGeMatrix3d::setToIdentity()
{
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            entry[row][column] = row == column ? 1.0 : 0.0;
    }
    return *this;
}

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& right) const
{
    AcGeMatrix3d product;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double sum = 0.0;
            for (int step = 0; step < 4; ++step)
                sum += entry[row][step] * right.entry[step][column];
            product.entry[row][column] = sum;
        }
    }
    return product;
}

double AcGeMatrix3d::det() const
{
    return Column(*this, 0).dotProduct(Column(*this, 1).crossProduct(Column(*this, 2)));
}

double AcGeMatrix3d::norm() const
{
    return std::max({Column(*this, 0).length(), Column(*this, 1).length(), Column(*this, 2).length()});
}

bool AcGeMatrix3d::isSingular(const AcGeTol& tol) const
{
    return !(std::fabs(det()) > tol.equalVector());   // not a number counts as singular
}

AcGeMatrix3d AcGeMatrix3d::inverse() const
{
    const double d = det();
    if (d == 0.0 || !std::isfinite(d))
        return *this;
    const AcGeVector3d a = Column(*this, 0), b = Column(*this, 1), c = Column(*this, 2);
    AcGeMatrix3d result;
    const AcGeVector3d rows[3] = {b.crossProduct(c) / d, c.crossProduct(a) / d, a.crossProduct(b) / d};
    for (unsigned row = 0; row < 3; ++row) {
        for (unsigned column = 0; column < 3; ++column)
            result.entry[row][column] = rows[row][column];
    }
    return result.setTranslation(-(result * translation()));
}

AcGeMatrix3d AcGeMatrix3d::transpose() const
{
    AcGeMatrix3d result;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            result.entry[row][column] = entry[column][row];
    }
    return result;
}

bool AcGeMatrix3d::isEqualTo(const AcGeMatrix3d& other, const AcGeTol& tol) const
{
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            if (!(std::fabs(entry[row][column] - other.entry[row][column]) <= tol.equalVector()))
                return false;
        }
    }
    return true;
}

bool AcGeMatrix3d::isUniScaledOrtho(const AcGeTol& tol) const
{
    const double x = Column(*this, 0).length(), y = Column(*this, 1).length(), z = Column(*this, 2).length();
    return isScaledOrtho(tol) && std::fabs(x - y) <= tol.equalVector() && std::fabs(y - z) <= tol.equalVector();
}

bool AcGeMatrix3d::isScaledOrtho(const AcGeTol& tol) const
{
    const AcGeVector3d x = Column(*this, 0), y = Column(*this, 1), z = Column(*this, 2);
    return x.isPerpendicularTo(y, tol) && y.isPerpendicularTo(z, tol) && z.isPerpendicularTo(x, tol);
}

double AcGeMatrix3d::scale() const
{
    return norm();
}

AcGeMatrix3d& AcGeMatrix3d::setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                           const AcGeVector3d& yAxis, const AcGeVector3d& zAxis)
{
    setToIdentity();
    SetColumn(*this, 0, xAxis);
    SetColumn(*this, 1, yAxis);
    SetColumn(*this, 2, zAxis);
    return setTranslation(origin.asVector());
}

void AcGeMatrix3d::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                                  AcGeVector3d& zAxis) const
{
    xAxis = Column(*this, 0);
    yAxis = Column(*this, 1);
    zAxis = Column(*this, 2);
    origin = AcGePoint3d() + translation();
}

AcGeMatrix3d& AcGeMatrix3d::setTranslation(const AcGeVector3d& vector)
{
    SetColumn(*this, 3, vector);
    return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setToTranslation(const AcGeVector3d& vector)
{
    return setToIdentity().setTranslation(vector);
}

AcGeMatrix3d& AcGeMatrix3d::setToRotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center)
{
    const AcGeVector3d n = axis.normal();
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const AcGeVector3d units[3] = {AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, AcGeVector3d::kZAxis};
    setToIdentity();
    for (int column = 0; column < 3; ++column) {
        const AcGeVector3d& unit = units[column];
        SetColumn(*this, column, unit * c + n.crossProduct(unit) * s + n * (n.dotProduct(unit) * (1.0 - c)));
    }
    return KeepPoint(*this, center);
}

AcGeMatrix3d& AcGeMatrix3d::setToScaling(double factor, const AcGePoint3d& center)
{
    setToIdentity();
    entry[0][0] = entry[1][1] = entry[2][2] = factor;
    return KeepPoint(*this, center);
}

AcGeMatrix3d& AcGeMatrix3d::setToMirroring(const AcGePlane& plane)
{
    const AcGeVector3d n = plane.normal();
    setToIdentity();
    for (unsigned row = 0; row < 3; ++row) {
        for (unsigned column = 0; column < 3; ++column)
            entry[row][column] -= 2.0 * n[row] * n[column];
    }
    return KeepPoint(*this, plane.pointOnPlane());
}

AcGeMatrix3d& AcGeMatrix3d::setToMirroring(const AcGePoint3d& point)
{
    return setToScaling(-1.0, point);
}

AcGeMatrix3d& AcGeMatrix3d::setToProjection(const AcGePlane& plane, const AcGeVector3d& direction)
{
    const AcGeVector3d n = plane.normal();
    const double approach = n.dotProduct(direction);
    setToIdentity();
    if (std::fabs(approach) <= AcGeContext::gTol.equalVector())
        return *this;
    for (unsigned row = 0; row < 3; ++row) {
        for (unsigned column = 0; column < 3; ++column)
            entry[row][column] -= direction[row] * n[column] / approach;
    }
    return KeepPoint(*this, plane.pointOnPlane());
}

AcGeMatrix3d& AcGeMatrix3d::setToAlignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromXAxis,
                                               const AcGeVector3d& fromYAxis, const AcGeVector3d& fromZAxis,
                                               const AcGePoint3d& toOrigin, const AcGeVector3d& toXAxis,
                                               const AcGeVector3d& toYAxis, const AcGeVector3d& toZAxis)
{
    AcGeMatrix3d from;
    from.setCoordSystem(fromOrigin, fromXAxis, fromYAxis, fromZAxis);
    setCoordSystem(toOrigin, toXAxis, toYAxis, toZAxis);
    return postMultBy(from.inverse());
}

AcGeMatrix3d& AcGeMatrix3d::setToWorldToPlane(const AcGeVector3d& normal)
{
    return setToPlaneToWorld(normal).invert();
}

AcGeMatrix3d& AcGeMatrix3d::setToWorldToPlane(const AcGePlane& plane)
{
    return setToPlaneToWorld(plane).invert();
}

AcGeMatrix3d& AcGeMatrix3d::setToPlaneToWorld(const AcGeVector3d& normal)
{
    AcGeVector3d xAxis, yAxis;
    KxPlat::EntityAxes(normal, xAxis, yAxis);
    return setCoordSystem(AcGePoint3d(), xAxis, yAxis, xAxis.crossProduct(yAxis));
}

AcGeMatrix3d& AcGeMatrix3d::setToPlaneToWorld(const AcGePlane& plane)
{
    AcGePoint3d origin;
    AcGeVector3d uAxis, vAxis;
    plane.getCoordSystem(origin, uAxis, vAxis);
    return setCoordSystem(origin, uAxis, vAxis, plane.normal());
}
