// What shows the contents of a block: insertions, dimensions, viewports' frames, leaders, multilines.
#include "../../gi/AcGiWorldDraw.h"
#include "../AcDbAttribute.h"
#include "../AcDbBlockReference.h"
#include "../AcDbBlockTableRecord.h"
#include "../AcDbDatabase.h"
#include "../AcDbDimension.h"
#include "../AcDbLeader.h"
#include "../AcDbMInsertBlock.h"
#include "../AcDbMline.h"
#include "../AcDbViewport.h"
#include "../core/DbCore.h"
#include "../dims/DimPicture.h"
#include "Drawing.h"
#include <algorithm>
#include <memory>

using namespace KxPlat;

namespace {

void DrawBlock(AcGiWorldDraw& draw, AcDbObjectId id, const AcGeMatrix3d& transform)
{
    AcDbBlockTableRecord* block = nullptr;
    if (acdbOpenObject(block, id, AcDb::kForRead) != Acad::eOk)
        return;
    draw.geometry().pushModelTransform(transform);
    draw.geometry().draw(block);
    draw.geometry().popModelTransform();
    block->close();
}

}   // namespace

// Attributes stand where they are, not in the axes of the block.
Adesk::Boolean AcDbBlockReference::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    const AcGeMatrix3d transform = blockTransform();
    const int columns = std::max<int>(1, m_columns), rows = std::max<int>(1, m_rows);
    const AcGeMatrix3d unrotated =
        AcGeMatrix3d::planeToWorld(m_normal) * AcGeMatrix3d::rotation(rotation(), AcGeVector3d::kZAxis);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            const AcGeVector3d way(column * m_columnSpacing, row * m_rowSpacing, 0);
            DrawBlock(*worldDraw, m_block, AcGeMatrix3d::translation(unrotated * way) * transform);
        }
    const std::unique_ptr<AcDbObjectIterator> attributes(attributeIterator());
    for (; !attributes->done(); attributes->step()) {
        AcDbEntity* attribute = nullptr;
        if (acdbOpenAcDbEntity(attribute, attributes->objectId(), AcDb::kForRead) != Acad::eOk)
            continue;
        if (attribute->isKindOf(AcDbAttribute::desc()))
            worldDraw->geometry().draw(attribute);
        attribute->close();
    }
    return Adesk::kTrue;
}

// The picture of a dimension lies in world axes.
Adesk::Boolean AcDbDimension::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    if (!m_block.isNull()) {
        DrawBlock(*worldDraw, m_block, AcGeMatrix3d::kIdentity);
        return Adesk::kTrue;
    }
    // One that is not in a drawing yet has no block to show.
    DimPicture picture(*this, AcDbObjectId());
    Picture(picture);
    for (const std::unique_ptr<AcDbEntity>& part : picture.entities())
        worldDraw->geometry().draw(part.get());
    return Adesk::kTrue;
}

Adesk::Boolean AcDbViewport::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    if (m_number == 1)   // the sheet itself
        return Adesk::kTrue;
    const double x = m_width / 2, y = m_height / 2;
    const AcGePoint3d frame[] = {m_center + AcGeVector3d(-x, -y, 0), m_center + AcGeVector3d(x, -y, 0),
                                 m_center + AcGeVector3d(x, y, 0), m_center + AcGeVector3d(-x, y, 0),
                                 m_center + AcGeVector3d(-x, -y, 0)};
    worldDraw->geometry().polyline(5, frame);
    return Adesk::kTrue;
}

Adesk::Boolean AcDbLeader::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    if (m_vertices.size() < 2)
        return Adesk::kTrue;
    worldDraw->geometry().polyline(Adesk::UInt32(m_vertices.size()), m_vertices.data());
    const AcDbDatabase* drawing = database();
    const double size = drawing == nullptr ? 0
                                           : CoreOf(*drawing).header.Real("$DIMASZ", 0.18) *
                                                 CoreOf(*drawing).header.Real("$DIMSCALE", 1);
    const AcGeVector3d first = m_vertices[1] - m_vertices[0];
    if (m_hasArrow == 0 || size <= 0 || first.length() < 2 * size)
        return Adesk::kTrue;
    const AcGeVector3d along = first.normal();
    const AcGeVector3d side = m_normal.crossProduct(along).normal() * (size / 6);
    const AcGePoint3d back = m_vertices[0] + along * size;
    const AcGePoint3d head[] = {m_vertices[0], back + side, back - side};
    const FillSwitch filled(*worldDraw, kAcGiFillAlways);
    worldDraw->geometry().polygon(3, head);
    return Adesk::kTrue;
}

// Every vertex has, for each line of the style, its way along the mitre (the first parameter of the line).
Adesk::Boolean AcDbMline::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    std::vector<std::vector<AcGePoint3d>> lines(size_t(std::clamp<int>(m_elementCount, 0, 64)));
    AcGePoint3d vertex;
    AcGeVector3d mitre;
    size_t line = 0;
    bool isFirstParameter = false;
    for (const GroupValue& group : m_segments) {
        if (group.code == 11)
            line = 0;
        if (group.code == 11 || group.code == 21 || group.code == 31)
            vertex[unsigned(group.code / 10 - 1)] = group.real();
        else if (group.code == 13 || group.code == 23 || group.code == 33)
            mitre[unsigned(group.code / 10 - 1)] = group.real();
        else if (group.code == 74)
            isFirstParameter = true, ++line;
        else if (group.code == 41 && isFirstParameter && line >= 1 && line <= lines.size()) {
            lines[line - 1].push_back(vertex + mitre * group.real());
            isFirstParameter = false;
        }
    }
    for (std::vector<AcGePoint3d>& points : lines) {
        if (closedMline() && !points.empty())
            points.push_back(points.front());
        worldDraw->geometry().polyline(Adesk::UInt32(points.size()), points.data());
    }
    return Adesk::kTrue;
}
