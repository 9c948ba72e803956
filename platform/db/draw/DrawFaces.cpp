// Faces, solids, traces, and the frames of pictures.
#include "../../gi/AcGiWorldDraw.h"
#include "../AcDbFace.h"
#include "../AcDbRasterImage.h"
#include "../AcDbSolid.h"
#include "../AcDbTrace.h"
#include "../AcDbWipeout.h"
#include "Drawing.h"

using namespace KxPlat;

Adesk::Boolean FilledCorners::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    constexpr Adesk::UInt16 kAround[] = {0, 1, 3, 2};
    AcGePoint3d corners[4];
    for (int at = 0; at < 4; ++at)
        getPointAt(kAround[at], corners[at]);
    if (m_thickness == 0) {
        const FillSwitch filled(*worldDraw, kAcGiFillAlways);
        worldDraw->geometry().polygon(4, corners);
        return Adesk::kTrue;
    }
    const AcGeVector3d shift = m_normal * m_thickness;
    worldDraw->geometry().polygon(4, corners);
    for (int at = 0; at < 4; ++at) {
        const int next = (at + 1) % 4;
        const AcGePoint3d wall[] = {corners[at], corners[next], corners[next] + shift, corners[at] + shift};
        worldDraw->geometry().polygon(4, wall);
    }
    const AcGePoint3d top[] = {corners[0] + shift, corners[1] + shift, corners[2] + shift, corners[3] + shift};
    worldDraw->geometry().polygon(4, top);
    return Adesk::kTrue;
}

Adesk::Boolean AcDbFace::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    const AcGePoint3d corners[] = {m_p0, m_p1, m_p2, m_p3};
    if (m_hiddenEdges == 0) {
        worldDraw->geometry().polygon(4, corners);
        return Adesk::kTrue;
    }
    for (int at = 0; at < 4; ++at) {
        const AcGePoint3d edge[] = {corners[at], corners[(at + 1) % 4]};
        if ((m_hiddenEdges >> at & 1) == 0)
            worldDraw->geometry().polyline(2, edge);
    }
    return Adesk::kTrue;
}

// The frame of what is shown of the picture.
Adesk::Boolean AcDbRasterImage::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    AcGePoint3dArray corners;
    if (getVertices(corners) != Acad::eOk || corners.isEmpty())
        return Adesk::kTrue;
    if (!corners.first().isEqualTo(corners.last()))
        corners.append(AcGePoint3d(corners.first()));
    worldDraw->geometry().polyline(Adesk::UInt32(corners.length()), corners.asArrayPtr());
    return Adesk::kTrue;
}
