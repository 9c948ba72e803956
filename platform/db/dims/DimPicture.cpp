#include "DimPicture.h"
#include "../../ge/EntityAxes.h"
#include "../../gi/AcGiTextStyle.h"
#include "../AcDbArc.h"
#include "../AcDbBlockReference.h"
#include "../AcDbDatabase.h"
#include "../AcDbLine.h"
#include "../AcDbMText.h"
#include "../AcDbPoint.h"
#include "../AcDbTextStyleTableRecord.h"
#include "../AcDbTrace.h"
#include <cmath>

namespace KxPlat {

DimPicture::DimPicture(AcDbDimension& dimension, AcDbObjectId pointLayer)
    : m_dimension(dimension),
      m_pointLayer(pointLayer),
      m_vars(dimension, dimension.dimensionStyle()),
      m_toFlat(AcGeMatrix3d::worldToPlane(dimension.normal())),
      m_toWorld(m_toFlat.inverse())
{
    m_elevation = (m_toFlat * dimension.m_definition).z;
    double value = 0;
    dimension.measurement(value);
    const CString figure = dimension.Sign() + DimFigure(m_vars, value, dimension.IsAngle());
    m_text = DimText(figure, dimension.m_text);
    AcGiTextStyle style;
    fromAcDbTextStyle(style, m_vars.Id(DimVar::TextStyle));
    style.setTextSize(m_vars.TextHeight());
    double lines = 0;
    for (const CString& line : LinesOfMText(m_text)) {
        m_textWidth = std::max(m_textWidth, style.extents(line, false, -1, true).x);
        m_textHeight = m_vars.TextHeight() * (1 + lines * 5 / 3);
        lines += 1;
    }
}

AcGePoint2d DimPicture::Flat(const AcGePoint3d& world) const
{
    const AcGePoint3d flat = m_toFlat * world;
    return {flat.x, flat.y};
}

AcGePoint3d DimPicture::World(const AcGePoint2d& point) const
{
    return m_toWorld * AcGePoint3d(point.x, point.y, m_elevation);
}

bool DimPicture::HasOwnPlace(AcGePoint2d& place) const
{
    if (!m_dimension.isUsingDefaultTextPosition())
        place = Flat(m_dimension.textPosition());
    return !m_dimension.isUsingDefaultTextPosition();
}

// The parts of a picture take the dimension's own colour and linetype.
void DimPicture::Add(AcDbEntity* entity, DimVar color)
{
    entity->setColorIndex(Adesk::UInt16(m_vars.Integer(color)));
    if (AcDbDatabase* database = m_dimension.database()) {
        entity->setLayer(database->layerZero());
        entity->setLinetype(database->byBlockLinetype());
    }
    entity->setLineWeight(AcDb::kLnWtByBlock);
    m_entities.emplace_back(entity);
}

void DimPicture::AddLine(const AcGePoint2d& from, const AcGePoint2d& to, DimVar color)
{
    if (!from.isEqualTo(to))
        Add(new AcDbLine(World(from), World(to)), color);
}

void DimPicture::Extension(const AcGePoint2d& from, const AcGePoint2d& to)
{
    const double length = from.distanceTo(to), offset = m_vars.Size(DimVar::ExtensionOffset);
    if (length <= offset)
        return;
    const AcGeVector2d along = (to - from) / length;
    AddLine(from + along * offset, to + along * m_vars.Size(DimVar::ExtensionBeyond), DimVar::ExtensionColor);
}

void DimPicture::Arc(const AcGePoint2d& center, double radius, double startAngle, double endAngle)
{
    Add(new AcDbArc(World(center), m_dimension.normal(), radius, startAngle, endAngle), DimVar::LineColor);
}

bool DimPicture::AddArrowBlock(const AcGePoint2d& tip, const AcGeVector2d& direction)
{
    const AcDbObjectId block = m_vars.Id(DimVar::Arrow);
    if (block.isNull() || block.database() != m_dimension.database())
        return false;
    auto* arrow = new AcDbBlockReference(World(tip), block);
    arrow->setNormal(m_dimension.normal());
    arrow->setPosition(World(tip));
    arrow->setScaleFactors(AcGeScale3d(ArrowSize(), ArrowSize(), ArrowSize()));
    arrow->setRotation(direction.angle());
    Add(arrow, DimVar::LineColor);
    return true;
}

void DimPicture::Arrow(const AcGePoint2d& tip, const AcGeVector2d& direction)
{
    const AcGeVector2d along = direction.normal(), across = along.perpVector();
    const double tick = m_vars.Size(DimVar::TickSize);
    if (tick > 0) {
        const AcGeVector2d slant = (along + across) * tick;
        AddLine(tip - slant, tip + slant, DimVar::LineColor);
        return;
    }
    if (ArrowSize() <= 0 || AddArrowBlock(tip, along))
        return;
    const AcGePoint2d tail = tip - along * ArrowSize();
    const AcGeVector2d half = across * (ArrowSize() / 6);
    auto* solid = new AcDbSolid(World(tail + half), World(tail - half), World(tip), World(tip));
    solid->setNormal(m_dimension.normal());
    for (Adesk::UInt16 index = 0; index < 4; ++index) {
        const AcGePoint2d corners[] = {tail + half, tail - half, tip, tip};
        solid->setPointAt(index, World(corners[index]));
    }
    Add(solid, DimVar::LineColor);
}

void DimPicture::Text(const AcGePoint2d& middle, double angle)
{
    const AcGePoint3d place = World(middle);
    if (m_dimension.isUsingDefaultTextPosition())
        m_dimension.m_textMiddle = WorldToEntity(place, m_dimension.normal());
    if (m_text.IsEmpty())
        return;
    auto* text = new AcDbMText;
    text->setNormal(m_dimension.normal());
    text->setLocation(place);
    text->setAttachment(AcDbMText::kMiddleCenter);
    text->setTextHeight(m_vars.TextHeight() > 0 ? m_vars.TextHeight() : 1);
    text->setContents(m_text);
    text->setTextStyle(m_vars.Id(DimVar::TextStyle));
    const double turned = m_dimension.textRotation() != 0 ? m_dimension.textRotation() : angle;
    text->setDirection(m_toWorld * AcGeVector3d(std::cos(turned), std::sin(turned), 0));
    Add(text, DimVar::TextColor);
}

void DimPicture::DefinitionPoint(const AcGePoint3d& world)
{
    auto* point = new AcDbPoint(world);
    Add(point, DimVar::LineColor);
    if (!m_pointLayer.isNull())
        point->setLayer(m_pointLayer);
}

double DimPicture::Readable(double angle)
{
    const double turn = FullTurn(angle);
    return turn > kPi / 2 + 1e-6 && turn <= 3 * kPi / 2 + 1e-6 ? turn - kPi : turn;
}

// With room enough arrows and text stand between the ends. Without, the arrows point in from outside, and a text that
// does not fit either stands beyond the second end.
void DimPicture::DimensionLine(const AcGePoint2d& from, const AcGePoint2d& to)
{
    const double length = from.distanceTo(to), gap = m_vars.Size(DimVar::TextGap), arrow = ArrowSize();
    const AcGeVector2d along = length > 0 ? (to - from) / length : AcGeVector2d::kXAxis;
    const bool isTick = m_vars.Size(DimVar::TickSize) > 0;
    const bool isAbove = m_vars.Is(DimVar::TextAbove);
    AcGePoint2d place;
    const bool isOwnPlace = HasOwnPlace(place);
    const double heads = isTick ? 0 : 2 * arrow;
    const bool fitsText = TextWidth() + 2 * gap <= length || m_vars.Is(DimVar::TextAlways);
    const bool fitsAll = isOwnPlace || isAbove ? heads + (isOwnPlace ? 0 : TextWidth()) <= length
                                               : heads + TextWidth() + 2 * gap <= length;
    const bool isInside = isOwnPlace || fitsText;
    const bool isLevel = m_vars.Is(isInside ? DimVar::TextInside : DimVar::TextOutside);
    const double angle = isLevel ? 0 : Readable(along.angle());
    const AcGeVector2d reading(std::cos(angle), std::sin(angle));
    // Half of what the text takes along the line and across it.
    const double along2 = std::fabs(reading.dotProduct(along)),
                 across2 = std::fabs(reading.dotProduct(along.perpVector()));
    const double half = (TextWidth() * along2 + TextHeight() * across2) / 2 + gap;
    const double rise = (TextHeight() * along2 + TextWidth() * across2) / 2 + gap;
    AcGeVector2d up = along.perpVector();
    if (up.y < -1e-9 || (std::fabs(up.y) <= 1e-9 && up.x > 0))
        up = -up;
    AcGePoint2d middle = from + along * (length / 2);
    if (!isInside)
        middle = to + along * ((isTick ? arrow : 2 * arrow) + half);
    if (isAbove)
        middle += up * rise;
    if (isOwnPlace)
        middle = place;
    const bool breaks = isInside && !isAbove && !isOwnPlace && TextWidth() > 0;
    if (fitsAll || isTick || m_vars.Is(DimVar::LineAlways) || isInside) {
        const double room = length / 2 - half;
        if (breaks && room > 0) {
            Line(from, from + along * room);
            Line(to - along * room, to);
        } else if (!breaks) {
            Line(from, to);
        }
    }
    if (fitsAll || isTick) {
        Arrow(from, -along);
        Arrow(to, along);
    } else {
        Arrow(from, along);
        Arrow(to, -along);
        Line(from - along * arrow, from - along * (2 * arrow));
        Line(to + along * arrow, to + along * (2 * arrow));
    }
    if (!isInside)
        Line(to, isAbove ? middle - up * rise + along * half : middle - along * half);
    Text(middle, angle);
}

}   // namespace KxPlat
