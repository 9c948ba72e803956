// From where a drawing is looked at, and how its points come onto a device. Device axes: pixels, x to the right and y
// down from the upper left corner; depth grows towards the eye, in drawing units from the target. In perspective it is
// drawn apart as x and y are, so that what is plane stays plane.
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

    // The axes of the view: x to the right, y up, z to the eye, each of length 1.
    void Axes(AcGeVector3d& x, AcGeVector3d& y, AcGeVector3d& z) const;
    // Turns what is seen about the target, in radians: to the right, and downwards.
    void Orbit(double toRight, double down);
    // The same way of looking, with the box fitted into a picture of this format and a margin around.
    void Fit(const double min[3], const double max[3], double width, double height, double margin = 0.025);
};

// Points of a block in the axes of a device.
class Projection {
public:
    Projection(const Camera& camera, double width, double height);
    // The same device for points in the axes of a block.
    Projection Within(const AcGeMatrix3d& toOwner) const;
    // A part of the device as a device of its own.
    Projection Window(double left, double top, double width, double height) const;

    DevicePoint operator()(const AcGePoint3d& point) const
    {
        DevicePoint at = Flat(point);
        if (m_isPerspective)
            Foreshorten(at);
        at.x += m_middleX;
        at.y += m_middleY;
        return at;
    }
    // Steps of the above, for those who must cut between them: the affine part, the eye's share, the device's middle.
    DevicePoint Flat(const AcGePoint3d& point) const
    {
        return {entry[0][0] * point.x + entry[0][1] * point.y + entry[0][2] * point.z + entry[0][3],
                entry[1][0] * point.x + entry[1][1] * point.y + entry[1][2] * point.z + entry[1][3],
                entry[2][0] * point.x + entry[2][1] * point.y + entry[2][2] * point.z + entry[2][3]};
    }
    // How much larger than in the target's plane things are at a depth of the affine part.
    double Foreshortening(double depth) const;
    void Foreshorten(DevicePoint& at) const
    {
        const double factor = Foreshortening(at.depth);
        at = {at.x * factor, at.y * factor, at.depth * factor};
    }
    DevicePoint Finished(DevicePoint flat) const
    {
        if (m_isPerspective)
            Foreshorten(flat);
        return {flat.x + m_middleX, flat.y + m_middleY, flat.depth};
    }
    // Depth of the affine part beyond which nothing is seen: it lies at the eye or behind it.
    double NearestDepth() const { return m_nearestDepth; }
    // A way at a place near the target; without perspective, everywhere.
    DevicePoint Way(const AcGeVector3d& way) const;
    // Pixels for one unit of the block, the largest of all directions.
    double Scale() const { return m_scale; }
    bool IsPerspective() const { return m_isPerspective; }
    // The same of the target's plane, whatever block: pixels for one unit of depth.
    double DepthScale() const { return m_depthScale; }
    double width() const { return m_width; }
    double height() const { return m_height; }
    double middleX() const { return m_middleX; }
    double middleY() const { return m_middleY; }

    // From device to world: the point of the plane through the target, looking along the view.
    AcGePoint3d ToTargetPlane(double x, double y) const;

    double entry[3][4];   // affine part; x and y are in pixels from the middle, depth in drawing units

private:
    void Measure();

    AcGeMatrix3d m_fromDevice;
    double m_width, m_height;
    double m_middleX, m_middleY;
    double m_scale = 1, m_depthScale = 1;
    bool m_isPerspective;
    double m_eyeDistance;
    double m_nearestDepth;
};

}   // namespace KxPlat
