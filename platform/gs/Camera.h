// From where a drawing is looked at, and how its points come onto a device. Device axes: pixels, x to the right and y
// down from the upper left corner; depth grows towards the eye, in drawing units from the target.
#pragma once
#include "../ge/AcGeMatrix3d.h"

namespace KxPlat {

struct DevicePoint {
    double x = 0, y = 0, depth = 0;
};

struct Camera {
    AcGePoint3d target;
    AcGeVector3d direction{0, 0, 1};   // from the target to the eye
    AcGeVector3d up{0, 1, 0};
    double fieldWidth = 1;   // of the plane through the target, in drawing units; all of it is seen
    double fieldHeight = 1;
    bool isPerspective = false;
    double eyeDistance = 100000;   // from the target; counts in perspective

    // From above on a rectangle of the world's XY plane, with a margin around.
    static Camera Over(double minX, double minY, double maxX, double maxY, double margin = 0.025);
};

// Points of a block in the axes of a device.
class Projection {
public:
    Projection(const Camera& camera, double width, double height);
    // The same device for points in the axes of a block.
    Projection Within(const AcGeMatrix3d& toOwner) const;

    DevicePoint operator()(const AcGePoint3d& point) const;
    // A way at a place near the target; without perspective, everywhere.
    DevicePoint Way(const AcGeVector3d& way) const;
    // Pixels for one unit of the block, the largest of all directions.
    double Scale() const { return m_scale; }
    bool IsPerspective() const { return m_isPerspective; }
    double width() const { return m_width; }
    double height() const { return m_height; }

    // From device to world: the point of the plane through the target, looking along the view.
    AcGePoint3d ToTargetPlane(double x, double y) const;

    double entry[3][4];   // affine part; x and y are in pixels from the middle

private:
    void Measure();

    AcGeMatrix3d m_fromDevice;
    double m_width, m_height;
    double m_scale = 1;
    bool m_isPerspective;
    double m_eyeDistance;
};

}   // namespace KxPlat
