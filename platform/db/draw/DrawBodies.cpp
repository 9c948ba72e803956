// Entities that are kept as groups: meshes, multi-leaders, and solids of the modeller, whose inside nobody here knows.
#include "../../gi/AcGiTextStyle.h"
#include "../../gi/AcGiWorldDraw.h"
#include "../../gi/DrawNotes.h"
#include "../AcDbBlockTableRecord.h"
#include "../AcDbBodies.h"
#include "../AcDbDatabase.h"
#include "../core/DbCore.h"
#include "Drawing.h"
#include "MLeaderParts.h"
#include "MTextLayout.h"

using namespace KxPlat;

namespace {

// A mesh's corners and the faces of its first level: 92 begins the corners, 93 the list of faces.
struct MeshParts {
    std::vector<AcGePoint3d> corners;
    std::vector<Adesk::Int32> faces;
};

MeshParts PartsOfMesh(const GroupList& groups)
{
    MeshParts parts;
    int64_t facesLeft = 0;
    for (const GroupValue& group : groups)
        switch (group.code) {
        case 10:
            parts.corners.emplace_back(group.real(), 0, 0);
            break;
        case 20:
            if (!parts.corners.empty())
                parts.corners.back().y = group.real();
            break;
        case 30:
            if (!parts.corners.empty())
                parts.corners.back().z = group.real();
            break;
        case 93:
            facesLeft = parts.faces.empty() ? group.integer() : 0;
            break;
        case 94:
            facesLeft = 0;
            break;
        case 90:
            if (facesLeft-- > 0)
                parts.faces.push_back(Adesk::Int32(group.integer()));
            break;
        default:
            break;
        }
    return parts;
}

// A list of faces in which every count is followed by as many corners.
bool IsWhole(const MeshParts& parts)
{
    size_t at = 0;
    while (at < parts.faces.size()) {
        const Adesk::Int32 count = parts.faces[at];
        if (count < 3 || size_t(count) >= parts.faces.size() - at)
            return false;
        at += size_t(count) + 1;
    }
    return true;
}

void DrawArrow(AcGiWorldDraw& draw, const AcGePoint3d& tip, const AcGePoint3d& from, const AcGeVector3d& normal,
               double size)
{
    const AcGeVector3d way = from - tip;
    if (size <= 0 || way.length() < size)
        return;
    const AcGeVector3d along = way.normal();
    const AcGeVector3d side = normal.crossProduct(along).normal() * (size / 6);
    const AcGePoint3d back = tip + along * size;
    const AcGePoint3d head[] = {tip, back + side, back - side};
    const FillSwitch filled(draw, kAcGiFillAlways);
    draw.geometry().polygon(3, head);
}

}   // namespace

Adesk::Boolean AcDbModelerGeometry::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    NoteTo(*worldDraw, DrawNote::Modeller);
    return Adesk::kTrue;
}

Adesk::Boolean AcDbSubDMesh::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    const MeshParts parts = PartsOfMesh(m_groups);
    if (!IsWhole(parts)) {
        NoteTo(*worldDraw, DrawNote::Damaged);
        return Adesk::kTrue;
    }
    worldDraw->geometry().shell(Adesk::UInt32(parts.corners.size()), parts.corners.data(),
                                Adesk::UInt32(parts.faces.size()), parts.faces.data());
    return Adesk::kTrue;
}

// Lines with their arrows, the landings, and the text or the block at the end.
Adesk::Boolean AcDbMLeader::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    const MLeaderParts parts = PartsOfMLeader(m_groups);
    for (const MLeaderBranch& branch : parts.branches) {
        for (const std::vector<AcGePoint3d>& line : branch.lines) {
            std::vector<AcGePoint3d> points = line;
            points.push_back(branch.end);
            if (parts.hasLanding && branch.landing > 0)
                points.push_back(branch.end + branch.direction * branch.landing);
            worldDraw->geometry().polyline(Adesk::UInt32(points.size()), points.data());
            if (points.size() >= 2)
                DrawArrow(*worldDraw, points[0], points[1], parts.normal, parts.arrowSize);
        }
    }
    if (parts.hasText && !parts.text.IsEmpty() && parts.textHeight > 0) {
        const AcGeVector3d along = parts.textDirection;
        AcGiTextStyle style;
        fromAcDbTextStyle(style, AcDbObjectId(parts.textStyle));
        style.setTextSize(parts.textHeight);
        const MTextBlock block = LayOutMText(parts.text.GetString(), style, parts.textWidth, 1);
        DrawBlockOfText(*worldDraw, block, parts.textPlace, along, parts.normal, parts.attachment, parts.textWidth);
    }
    AcDbBlockTableRecord* block = nullptr;
    if (parts.block != nullptr && acdbOpenObject(block, AcDbObjectId(parts.block), AcDb::kForRead) == Acad::eOk) {
        worldDraw->geometry().pushModelTransform(parts.blockTransform);
        worldDraw->geometry().draw(block);
        worldDraw->geometry().popModelTransform();
        block->close();
    }
    return Adesk::kTrue;
}
