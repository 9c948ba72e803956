#include "Camera.h"
#include <algorithm>
#include <cmath>

namespace KxPlat {

namespace {

// The nearest a point may come to the eye, as a share of the eye's distance.
constexpr double kNearest = 0.01;

// The view's axes: x to the right, y up, z to the eye.
void AxesOf(const Camera& camera, AcGeVector3d& x, AcGeVector3d& y, AcGeVector3d& z)
{
    z = camera.direction.isZeroLength() ? AcGeVector3d::kZAxis : camera.direction.normal();
    x = camera.up.crossProduct(z);
    if (x.isZeroLength())
        x = z.perpVector();
    x.normalize();
    y = z.crossProduct(x);
}

}   // namespace

Camera Camera::Over(double minX, double minY, double maxX, double maxY, double margin)
{
    Camera camera;
    camera.target = AcGePoint3d((minX + maxX) / 2, (minY + maxY) / 2, 0);
    camera.fieldWidth = (maxX - minX) * (1 + 2 * margin);
    camera.fieldHeight = (maxY - minY) * (1 + 2 * margin);
    return camera;
}

Projection::Projection(const Camera& camera, double width, double height)
    : m_width(width), m_height(height), m_isPerspective(camera.isPerspective), m_eyeDistance(camera.eyeDistance)
{
    AcGeVector3d x, y, z;
    AxesOf(camera, x, y, z);
    const double fieldWidth = camera.fieldWidth > 0 ? camera.fieldWidth : 1e-9;
    const double fieldHeight = camera.fieldHeight > 0 ? camera.fieldHeight : 1e-9;
    const double scale = std::min(width / fieldWidth, height / fieldHeight);
    const AcGeVector3d rows[] = {x * scale, y * -scale, z};
    for (int row = 0; row < 3; ++row) {
        entry[row][0] = rows[row].x;
        entry[row][1] = rows[row].y;
        entry[row][2] = rows[row].z;
        entry[row][3] = -(rows[row].dotProduct(camera.target.asVector()));
    }
    m_fromDevice.setCoordSystem(camera.target, x / scale, y / -scale, z);
    Measure();
}

void Projection::Measure()
{
    m_scale = 0;
    for (int column = 0; column < 3; ++column)
        m_scale = std::max(m_scale, std::hypot(entry[0][column], entry[1][column]));
}

Projection Projection::Within(const AcGeMatrix3d& toOwner) const
{
    Projection inner = *this;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column) {
            inner.entry[row][column] = column == 3 ? entry[row][3] : 0;
            for (int step = 0; step < 3; ++step)
                inner.entry[row][column] += entry[row][step] * toOwner.entry[step][column];
        }
    inner.Measure();
    return inner;
}

DevicePoint Projection::operator()(const AcGePoint3d& point) const
{
    DevicePoint at{entry[0][0] * point.x + entry[0][1] * point.y + entry[0][2] * point.z + entry[0][3],
                   entry[1][0] * point.x + entry[1][1] * point.y + entry[1][2] * point.z + entry[1][3],
                   entry[2][0] * point.x + entry[2][1] * point.y + entry[2][2] * point.z + entry[2][3]};
    if (m_isPerspective) {
        const double nearer = std::max(m_eyeDistance - at.depth, m_eyeDistance * kNearest);
        at.x *= m_eyeDistance / nearer;
        at.y *= m_eyeDistance / nearer;
    }
    at.x += m_width / 2;
    at.y += m_height / 2;
    return at;
}

DevicePoint Projection::Way(const AcGeVector3d& way) const
{
    return {entry[0][0] * way.x + entry[0][1] * way.y + entry[0][2] * way.z,
            entry[1][0] * way.x + entry[1][1] * way.y + entry[1][2] * way.z,
            entry[2][0] * way.x + entry[2][1] * way.y + entry[2][2] * way.z};
}

AcGePoint3d Projection::ToTargetPlane(double x, double y) const
{
    return m_fromDevice * AcGePoint3d(x - m_width / 2, y - m_height / 2, 0);
}

}   // namespace KxPlat
