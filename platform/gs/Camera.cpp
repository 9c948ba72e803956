#include "Camera.h"
#include <algorithm>
#include <cmath>

namespace KxPlat {

namespace {

// The nearest a point may come to the eye, as a share of the eye's distance.
constexpr double kNearest = 0.01;

}   // namespace

void Camera::Axes(AcGeVector3d& x, AcGeVector3d& y, AcGeVector3d& z) const
{
    z = direction.isZeroLength() ? AcGeVector3d::kZAxis : direction.normal();
    x = up.crossProduct(z);
    if (x.isZeroLength())
        x = z.perpVector();
    x.normalize();
    y = z.crossProduct(x);
}

void Camera::Orbit(double toRight, double down)
{
    AcGeVector3d x, y, z;
    Axes(x, y, z);
    // What is seen turns one way, so the eye turns the other.
    z.rotateBy(-toRight, y);
    x.rotateBy(-toRight, y);
    y.rotateBy(-down, x);
    z.rotateBy(-down, x);
    direction = z;
    up = y;
}

void Camera::Fit(const double min[3], const double max[3], double width, double height, double margin)
{
    AcGeVector3d axes[3];
    Axes(axes[0], axes[1], axes[2]);
    target = AcGePoint3d((min[0] + max[0]) / 2, (min[1] + max[1]) / 2, (min[2] + max[2]) / 2);
    const double half[] = {(max[0] - min[0]) / 2, (max[1] - min[1]) / 2, (max[2] - min[2]) / 2};
    double reach[3];
    for (int axis = 0; axis < 3; ++axis)
        reach[axis] = 2 * (std::abs(axes[axis].x) * half[0] + std::abs(axes[axis].y) * half[1] +
                           std::abs(axes[axis].z) * half[2]);
    // In perspective the front of the box counts.
    const double nearer = isPerspective ? eyeDistance / std::max(eyeDistance - reach[2] / 2, eyeDistance * 0.1) : 1;
    fieldWidth = reach[0] * nearer * (1 + 2 * margin);
    fieldHeight = reach[1] * nearer * (1 + 2 * margin);
    if (!(fieldWidth > 0) && !(fieldHeight > 0))
        fieldWidth = fieldHeight = 1;
    if (width > 0 && height > 0) {
        fieldWidth = std::max(fieldWidth, fieldHeight * width / height);
        fieldHeight = fieldWidth * height / width;
    }
}

Camera Camera::Over(double minX, double minY, double maxX, double maxY, double margin)
{
    Camera camera;
    camera.target = AcGePoint3d((minX + maxX) / 2, (minY + maxY) / 2, 0);
    camera.fieldWidth = (maxX - minX) * (1 + 2 * margin);
    camera.fieldHeight = (maxY - minY) * (1 + 2 * margin);
    return camera;
}

Projection::Projection(const Camera& camera, double width, double height)
    : m_width(width),
      m_height(height),
      m_middleX(width / 2),
      m_middleY(height / 2),
      m_isPerspective(camera.isPerspective),
      m_eyeDistance(camera.eyeDistance),
      m_nearestDepth(camera.eyeDistance * (1 - kNearest))
{
    AcGeVector3d x, y, z;
    camera.Axes(x, y, z);
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
    m_depthScale = scale;
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

Projection Projection::Window(double left, double top, double width, double height) const
{
    Projection window = *this;
    window.m_width = width;
    window.m_height = height;
    window.m_middleX = m_middleX - left;
    window.m_middleY = m_middleY - top;
    return window;
}

double Projection::Foreshortening(double depth) const
{
    return m_eyeDistance / std::max(m_eyeDistance - depth, m_eyeDistance * kNearest);
}

DevicePoint Projection::Way(const AcGeVector3d& way) const
{
    return {entry[0][0] * way.x + entry[0][1] * way.y + entry[0][2] * way.z,
            entry[1][0] * way.x + entry[1][1] * way.y + entry[1][2] * way.z,
            entry[2][0] * way.x + entry[2][1] * way.y + entry[2][2] * way.z};
}

AcGePoint3d Projection::ToTargetPlane(double x, double y) const
{
    return m_fromDevice * AcGePoint3d(x - m_middleX, y - m_middleY, 0);
}

}   // namespace KxPlat
