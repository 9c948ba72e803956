// Faces, solids, traces, and the frames of pictures.
#include "../../gi/AcGiEdgeData.h"
#include "../../gi/AcGiWorldDraw.h"
#include "../AcDbDatabase.h"
#include "../AcDbFace.h"
#include "../AcDbRasterImage.h"
#include "../AcDbSolid.h"
#include "../AcDbTrace.h"
#include "../AcDbWipeout.h"
#include "../core/DbCore.h"
#include "../core/ObjectAccess.h"
#include "Drawing.h"
#include <algorithm>

using namespace KxPlat;

namespace {

// The colour index that stands for the background's colour, whatever that is.
constexpr Adesk::UInt16 kBackgroundColor = 257;

}   // namespace

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

// A face with hidden edges is a face still: its corners go out as a shell whose edges are drawn apart.
Adesk::Boolean AcDbFace::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    const AcGePoint3d corners[] = {m_p0, m_p1, m_p2, m_p3};
    if (m_hiddenEdges == 0) {
        worldDraw->geometry().polygon(4, corners);
        return Adesk::kTrue;
    }
    Adesk::UInt8 shown[4];
    for (int at = 0; at < 4; ++at)
        shown[at] = (m_hiddenEdges >> at & 1) != 0 ? kAcGiInvisible : kAcGiVisible;
    AcGiEdgeData edges;
    edges.setVisibility(shown);
    const Adesk::Int32 face[] = {4, 0, 1, 2, 3};
    worldDraw->geometry().shell(4, corners, 5, face, &edges);
    return Adesk::kTrue;
}

namespace {

// The closed outline of what is shown of a picture; empty when there is none.
std::vector<AcGePoint3d> FrameOf(const AcDbRasterImage& image)
{
    AcGePoint3dArray corners;
    if (image.getVertices(corners) != Acad::eOk || corners.isEmpty())
        return {};
    std::vector<AcGePoint3d> frame(corners.asArrayPtr(), corners.asArrayPtr() + corners.length());
    if (!frame.front().isEqualTo(frame.back()))
        frame.push_back(AcGePoint3d(frame.front()));
    return frame;
}

// The name of the picture's file, without its folders.
CString NameOf(AcDbObjectId definition)
{
    AcDbObject* object = nullptr;
    if (acdbOpenObject(object, definition, AcDb::kForRead) != Acad::eOk)
        return CString();
    std::wstring name;
    if (const Annex* annex = ObjectAccess::Find(*object))
        for (const GroupValue& group : annex->others)
            if (group.code == 1)
                name = group.text().GetString();
    object->close();
    return name.substr(name.find_last_of(L"/\\") + 1).c_str();
}

}   // namespace

// The frame of what is shown of the picture, and its name.
Adesk::Boolean AcDbRasterImage::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    const std::vector<AcGePoint3d> frame = FrameOf(*this);
    worldDraw->geometry().polyline(Adesk::UInt32(frame.size()), frame.data());
    const CString name = NameOf(imageDefId());
    AcGePoint3d origin;
    AcGeVector3d u, v;
    getOrientation(origin, u, v);
    if (frame.empty() || name.IsEmpty() || u.isZeroLength() || v.isZeroLength())
        return Adesk::kTrue;
    const double height = std::min(v.length() / 8, u.length() / name.GetLength());
    worldDraw->geometry().text(origin + (u.normal() + v.normal()) * (height / 2), u.crossProduct(v), u, height, 1, 0,
                               name);
    return Adesk::kTrue;
}

// Hides what was drawn before, in the colour of the background.
Adesk::Boolean AcDbWipeout::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    const std::vector<AcGePoint3d> frame = FrameOf(*this);
    if (frame.size() < 3)
        return Adesk::kTrue;
    AcGiSubEntityTraits& traits = worldDraw->subEntityTraits();
    const Adesk::UInt16 color = traits.color();
    const bool hasRgb = traits.hasRGB();
    const Adesk::UInt32 rgb = traits.rgb();
    {
        const FillSwitch filled(*worldDraw, kAcGiFillAlways);
        traits.setColor(kBackgroundColor);
        worldDraw->geometry().polygon(Adesk::UInt32(frame.size() - 1), frame.data());
    }
    hasRgb ? traits.setRGB(rgb) : traits.setColor(color);
    const AcDbDatabase* drawing = database();
    if (drawing == nullptr || CoreOf(*drawing).header.Integer("$WIPEOUTFRAME", 1) != 0)
        worldDraw->geometry().polyline(Adesk::UInt32(frame.size()), frame.data());
    return Adesk::kTrue;
}
