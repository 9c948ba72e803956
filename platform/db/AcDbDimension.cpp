// What all dimensions share. The kinds are in AcDbDimensionKinds.cpp.
#include "AcDbDimension.h"
#include "AcDbBlockTableRecord.h"
#include "AcDbDimStyleTableRecord.h"
#include "core/Fields.h"
#include "core/FlatMap.h"
#include "core/Members.h"
#include "core/Stub.h"

using namespace KxPlat;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDimension, AcDbEntity)

const ClassSchema& AcDbDimension::fieldSchema()
{
    using Dimension = AcDbDimension;
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "DIMENSION", "AcDbDimension",
                                    {
                                        Int16(280, &Dimension::m_version).since(AcDb::kDHL_1024),
                                        Name(2, &Dimension::m_block, TableKind::Block),
                                        Point3(10, &Dimension::m_definition).always(),
                                        Point3(11, &Dimension::m_textMiddle).always(),
                                        Point3(12, &Dimension::m_insertion),
                                        Int16(70, &Dimension::m_type).always(),
                                        Text(1, &Dimension::m_text),
                                        Int16(71, &Dimension::m_attachment, 5).since(AcDb::kDHL_1015).always(),
                                        Int16(72, &Dimension::m_lineSpacingStyle, 1).since(AcDb::kDHL_1015),
                                        Real(41, &Dimension::m_lineSpacing, 1).since(AcDb::kDHL_1015),
                                        Real(42, &Dimension::m_measurement).since(AcDb::kDHL_1015),
                                        Int16(73, &Dimension::m_unused73).since(AcDb::kDHL_1021),
                                        Int16(74, &Dimension::m_flipFirst).since(AcDb::kDHL_1021),
                                        Int16(75, &Dimension::m_flipSecond).since(AcDb::kDHL_1021),
                                        Real(53, &Dimension::m_textRotation),
                                        Real(51, &Dimension::m_horizontalRotation),
                                        Vector3(210, &Dimension::m_normal),
                                        Name(3, &Dimension::m_style, TableKind::DimStyle),
                                    });
    return schema;
}

namespace {

const AcDbBlockTableRecord* PictureOf(AcDbObjectId block)
{
    const AcDbStub* stub = block;
    return AcDbBlockTableRecord::cast(stub == nullptr ? nullptr : stub->object);
}

}   // namespace

Acad::ErrorStatus AcDbDimension::setDimBlockId(AcDbObjectId block)
{
    return Assign(*this, m_block, block);
}

AcGePoint3d AcDbDimension::textPosition() const
{
    return EntityToWorld(m_textMiddle, m_normal);
}

Acad::ErrorStatus AcDbDimension::setTextPosition(const AcGePoint3d& position)
{
    const Acad::ErrorStatus status = Change(m_textMiddle, WorldToEntity(position, m_normal));
    if (status == Acad::eOk)
        m_type |= 128;
    return status;
}

Acad::ErrorStatus AcDbDimension::setNormal(const AcGeVector3d& normal)
{
    return normal.isZeroLength() ? Acad::eInvalidInput : Change(m_normal, normal.normal());
}

Acad::ErrorStatus AcDbDimension::setDimensionStyle(AcDbObjectId style)
{
    if (style.objectClass() == nullptr || !style.objectClass()->isDerivedFrom(AcDbDimStyleTableRecord::desc()))
        return Acad::eInvalidInput;
    return Change(m_style, style);
}

ACHAR* AcDbDimension::dimensionText() const
{
    return NewString(m_text);
}

Acad::ErrorStatus AcDbDimension::setDimensionText(const ACHAR* text)
{
    return Change(m_text, text == nullptr ? L"" : text);
}

double AcDbDimension::textRotation() const
{
    return Radians(m_textRotation);
}

Acad::ErrorStatus AcDbDimension::setTextRotation(double angle)
{
    return Change(m_textRotation, Degrees(angle));
}

Acad::ErrorStatus AcDbDimension::useDefaultTextPosition()
{
    return Change(m_type, m_type & ~128);
}

double AcDbDimension::horizontalRotation() const
{
    return Radians(m_horizontalRotation);
}

Acad::ErrorStatus AcDbDimension::measurement(double& value) const
{
    value = m_measurement != 0 ? m_measurement : Measured();
    return Acad::eOk;
}

double AcDbDimension::LengthAlong(const AcGeVector3d& between, double angleInDegrees) const
{
    const double angle = Radians(angleInDegrees);
    const AcGeVector3d flat = AcGeMatrix3d::worldToPlane(m_normal) * between;
    return std::fabs(flat.x * std::cos(angle) + flat.y * std::sin(angle));
}

// The picture where there is one, else the points.
Acad::ErrorStatus AcDbDimension::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    if (const AcDbBlockTableRecord* picture = PictureOf(m_block))
        for (const AcDbStub* stub : picture->entities()) {
            const AcDbEntity* entity = stub->erased ? nullptr : AcDbEntity::cast(stub->object);
            AcDbExtents one;
            // A picture that shows a dimension would be no picture.
            if (entity != nullptr && !entity->isKindOf(AcDbDimension::desc()) &&
                entity->getGeomExtents(one) == Acad::eOk)
                extents.addExt(one);
        }
    if (!extents.isEmpty()) {
        extents.transformBy(AcGeMatrix3d::translation(EntityToWorld(m_insertion, m_normal).asVector()));
        return Acad::eOk;
    }
    extents.addPoint(m_definition);
    extents.addPoint(textPosition());
    for (const AcGePoint3d* point : const_cast<AcDbDimension*>(this)->WorldPoints())
        extents.addPoint(*point);
    return Acad::eOk;
}

// The picture goes along unchanged with a rigid map; of any other one it is drawn anew.
Acad::ErrorStatus AcDbDimension::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const FlatMap map(transform, m_normal);
    m_textMiddle = map.Point(m_textMiddle);
    m_definition.transformBy(transform);
    for (AcGePoint3d* point : WorldPoints())
        point->transformBy(transform);
    m_horizontalRotation = m_horizontalRotation == 0 ? 0 : map.Degrees(m_horizontalRotation);
    MapAngles(map);
    m_normal = map.normal();
    const double before = m_measurement;
    m_measurement = Measured();
    const bool isRigid = !map.isMirrored() && std::fabs(transform.scale() - 1) < 1e-9 && transform.isUniScaledOrtho();
    if (isRigid && !m_block.isNull() && !m_isStale) {
        m_measurement = before;
        return MovePicture(transform);
    }
    m_isStale = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::explode(AcArray<AcRxObject*>& pieces) const
{
    const AcDbBlockTableRecord* picture = PictureOf(m_block);
    if (picture == nullptr)
        return Acad::eCannotExplodeEntity;
    const AcGeMatrix3d place = AcGeMatrix3d::translation(EntityToWorld(m_insertion, m_normal).asVector());
    for (const AcDbStub* stub : picture->entities()) {
        const AcDbEntity* entity = stub->erased ? nullptr : AcDbEntity::cast(stub->object);
        AcDbEntity* copy = nullptr;
        if (entity != nullptr && entity->getTransformedCopy(place, copy) == Acad::eOk)
            pieces.append(copy);
    }
    return Acad::eOk;
}
