#include "AcDbText.h"
#include "../gi/AcGiTextStyle.h"
#include "AcDbDatabase.h"
#include "AcDbTextStyleTableRecord.h"
#include "core/DbCore.h"
#include "core/Fields.h"
#include "core/FlatMap.h"
#include "core/Members.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbText, AcDbEntity, 0, 0, 0, TEXT, AcDb)

const ClassSchema& AcDbText::commonSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "TEXT", "AcDbText",
                                    {
                                        Real(39, &AcDbText::m_thickness),
                                        Point3(10, &AcDbText::m_position).always(),
                                        Real(40, &AcDbText::m_height).always(),
                                        Text(1, &AcDbText::m_text).always(),
                                        Real(50, &AcDbText::m_rotation),
                                        Real(41, &AcDbText::m_widthFactor, 1),
                                        Real(51, &AcDbText::m_oblique),
                                        Name(7, &AcDbText::m_style, TableKind::TextStyle),
                                        Int16(71, &AcDbText::m_generation),
                                        Int16(72, &AcDbText::m_horizontal),
                                        Point3(11, &AcDbText::m_alignment),
                                        Vector3(210, &AcDbText::m_normal),
                                    });
    return schema;
}

const ClassSchema& AcDbText::fieldSchema()
{
    static const ClassSchema schema(&commonSchema(), "TEXT", "AcDbText", {Int16(73, &AcDbText::m_vertical)});
    return schema;
}

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style, double height, double rotation)
    : m_text(text), m_position(position), m_style(style), m_height(height), m_rotation(Degrees(rotation))
{
}

AcGePoint3d AcDbText::position() const
{
    return EntityToWorld(m_position, m_normal);
}

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& position)
{
    return Assign(*this, m_position, WorldToEntity(position, m_normal));
}

AcGePoint3d AcDbText::alignmentPoint() const
{
    return EntityToWorld(m_alignment, m_normal);
}

Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& point)
{
    const Acad::ErrorStatus status = Assign(*this, m_alignment, WorldToEntity(point, m_normal));
    return status == Acad::eOk ? adjustAlignment() : status;
}

Acad::ErrorStatus AcDbText::setHorizontalMode(AcDb::TextHorzMode mode)
{
    if (mode < AcDb::kTextLeft || mode > AcDb::kTextFit)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = Assign(*this, m_horizontal, mode);
    return status == Acad::eOk ? adjustAlignment() : status;
}

Acad::ErrorStatus AcDbText::setVerticalMode(AcDb::TextVertMode mode)
{
    if (mode < AcDb::kTextBase || mode > AcDb::kTextTop)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = Assign(*this, m_vertical, mode);
    return status == Acad::eOk ? adjustAlignment() : status;
}

ACHAR* AcDbText::textString() const
{
    return NewString(m_text);
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text)
{
    if (text == nullptr)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = Assign(*this, m_text, text);
    return status == Acad::eOk ? adjustAlignment() : status;
}

AcDbObjectId AcDbText::textStyle() const
{
    if (!m_style.isNull() || database() == nullptr)
        return m_style;
    AcDbObjectId standard;
    CoreOf(*database()).Table(TableKind::TextStyle)->getAt(L"Standard", standard);
    return standard;
}

Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId style)
{
    if (style.objectClass() == nullptr || !style.objectClass()->isDerivedFrom(AcDbTextStyleTableRecord::desc()))
        return Acad::eInvalidInput;
    return Assign(*this, m_style, style);
}

Acad::ErrorStatus AcDbText::setHeight(double height)
{
    const Acad::ErrorStatus status = height > 0 ? Assign(*this, m_height, height) : Acad::eInvalidInput;
    return status == Acad::eOk ? adjustAlignment() : status;
}

double AcDbText::rotation() const
{
    return Radians(m_rotation);
}

Acad::ErrorStatus AcDbText::setRotation(double angle)
{
    const Acad::ErrorStatus status = Assign(*this, m_rotation, Degrees(FullTurn(angle)));
    return status == Acad::eOk ? adjustAlignment() : status;
}

Acad::ErrorStatus AcDbText::setWidthFactor(double factor)
{
    const Acad::ErrorStatus status = factor > 0 ? Assign(*this, m_widthFactor, factor) : Acad::eInvalidInput;
    return status == Acad::eOk ? adjustAlignment() : status;
}

double AcDbText::oblique() const
{
    return Radians(m_oblique);
}

Acad::ErrorStatus AcDbText::setOblique(double angle)
{
    return Assign(*this, m_oblique, Degrees(angle));
}

Acad::ErrorStatus AcDbText::mirrorInX(bool mirror)
{
    return AssignBits(*this, m_generation, 2, mirror);
}

Acad::ErrorStatus AcDbText::mirrorInY(bool mirror)
{
    return AssignBits(*this, m_generation, 4, mirror);
}

Acad::ErrorStatus AcDbText::setThickness(double thickness)
{
    return Assign(*this, m_thickness, thickness);
}

Acad::ErrorStatus AcDbText::setNormal(const AcGeVector3d& normal)
{
    return normal.isZeroLength() ? Acad::eInvalidInput : Assign(*this, m_normal, normal.normal());
}

namespace {

// Width of the text at its own height, with the style's tracking and slant left out.
double WidthOf(const CString& text, double height, double widthFactor)
{
    AcGiTextStyle style;
    style.setTextSize(height);
    style.setXScale(widthFactor);
    return style.extents(text, false, -1, false).x;
}

}   // namespace

void AcDbText::getBoundingPoints(AcGePoint3d corners[4]) const
{
    const double width = WidthOf(m_text, m_height, m_widthFactor) * (isMirroredInX() ? -1 : 1);
    const double height = m_height * (isMirroredInY() ? -1 : 1);
    const AcGeVector3d along =
        AcGeVector3d::kXAxis * std::cos(rotation()) + AcGeVector3d::kYAxis * std::sin(rotation());
    const AcGeVector3d up(-along.y, along.x, 0);
    const AcGeVector3d slant = along * (std::tan(oblique()) * height);
    const AcGePoint3d flat[] = {m_position, m_position + along * width,
                                m_position + along * width + up * height + slant, m_position + up * height + slant};
    for (int index = 0; index < 4; ++index)
        corners[index] = EntityToWorld(flat[index], m_normal);
}

Acad::ErrorStatus AcDbText::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    AcGePoint3d corners[4];
    getBoundingPoints(corners);
    for (const AcGePoint3d& corner : corners) {
        extents.addPoint(corner);
        extents.addPoint(corner + m_normal * m_thickness);
    }
    return Acad::eOk;
}

// Aligned and fitted texts lie between position and alignment point; for all others the point says where the
// justified place of the text is.
Acad::ErrorStatus AcDbText::adjustAlignment(const AcDbDatabase*)
{
    const bool isBetween = m_horizontal == AcDb::kTextAlign || m_horizontal == AcDb::kTextFit;
    if (isDefaultAlignment() || isBetween)
        return Acad::eOk;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    static const double shareAlong[] = {0, 0.5, 1, 0, 0.5, 0};
    static const double shareUp[] = {0, 0, 0.5, 1};
    const int horizontal = m_horizontal >= 0 && m_horizontal <= 5 ? m_horizontal : 0;
    const int vertical = m_vertical >= 0 && m_vertical <= 3 ? m_vertical : 0;
    const double along = WidthOf(m_text, m_height, m_widthFactor) * shareAlong[horizontal];
    const double up = m_height * (horizontal == AcDb::kTextMid ? 0.5 : shareUp[vertical]);
    const double c = std::cos(rotation()), s = std::sin(rotation());
    m_position = m_alignment - AcGeVector3d(c * along - s * up, s * along + c * up, 0);
    return Acad::eOk;
}

// A mirrored text stays readable; only its place and direction follow.
Acad::ErrorStatus AcDbText::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const FlatMap map(transform, m_normal);
    m_position = map.Point(m_position);
    if (!isDefaultAlignment())
        m_alignment = map.Point(m_alignment);
    m_rotation = map.Degrees(m_rotation);
    const double alongScale = map.Scale();
    const double upScale = map.Vector(AcGeVector3d(0, 1, 0)).length();
    m_height *= upScale;
    if (upScale > 0)
        m_widthFactor *= alongScale / upScale;
    m_thickness = map.Thickness(m_thickness);
    m_normal = map.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::getEcs(AcGeMatrix3d& ecs) const
{
    ecs = AcGeMatrix3d::planeToWorld(m_normal);
    return Acad::eOk;
}
