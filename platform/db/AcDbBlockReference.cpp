#include "AcDbBlockReference.h"
#include "AcDbAttribute.h"
#include "AcDbBlockTableRecord.h"
#include "core/Fields.h"
#include "core/FlatMap.h"
#include "core/Members.h"
#include "core/Stub.h"
#include <unordered_map>

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, 0, 0, 0, INSERT, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbMInsertBlock, AcDbBlockReference, 0, 0, 0, INSERT, AcDb)

namespace {

const AcDbBlockTableRecord* BlockOf(const AcDbStub* stub)
{
    return AcDbBlockTableRecord::cast(stub == nullptr ? nullptr : stub->object);
}

}   // namespace

std::vector<Field> AcDbBlockReference::FieldList()
{
    // The scale is three reals in a row, written as three groups of their own.
    Field sx = Real(41, &AcDbBlockReference::m_rotation, 1);
    sx.offset = OffsetOf(&AcDbBlockReference::m_scale);
    Field sy = sx, sz = sx;
    sy.code = 42, sy.offset += uint32_t(sizeof(double));
    sz.code = 43, sz.offset += uint32_t(2 * sizeof(double));
    return {
        Int16(66, &AcDbBlockReference::m_hasAttributes),
        Name(2, &AcDbBlockReference::m_block, TableKind::Block).always(),
        Point3(10, &AcDbBlockReference::m_position).always(),
        sx,
        sy,
        sz,
        Real(50, &AcDbBlockReference::m_rotation),
        Int16(70, &AcDbBlockReference::m_columns),
        Int16(71, &AcDbBlockReference::m_rows),
        Real(44, &AcDbBlockReference::m_columnSpacing),
        Real(45, &AcDbBlockReference::m_rowSpacing),
        Vector3(210, &AcDbBlockReference::m_normal),
    };
}

const ClassSchema& AcDbBlockReference::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "INSERT", "AcDbBlockReference", FieldList());
    return schema;
}

const ClassSchema& AcDbMInsertBlock::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "INSERT", "AcDbMInsertBlock", FieldList());
    return schema;
}

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block)
    : m_block(block), m_position(position)
{
}

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId block)
{
    if (block.objectClass() == nullptr || !block.objectClass()->isDerivedFrom(AcDbBlockTableRecord::desc()))
        return Acad::eInvalidInput;
    return Assign(*this, m_block, block);
}

AcGePoint3d AcDbBlockReference::position() const
{
    return EntityToWorld(m_position, m_normal);
}

Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& position)
{
    return Assign(*this, m_position, WorldToEntity(position, m_normal));
}

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& scale)
{
    if (scale.sx == 0 || scale.sy == 0 || scale.sz == 0)
        return Acad::eInvalidInput;
    return Assign(*this, m_scale, scale);
}

double AcDbBlockReference::rotation() const
{
    return Radians(m_rotation);
}

Acad::ErrorStatus AcDbBlockReference::setRotation(double angle)
{
    return Assign(*this, m_rotation, Degrees(FullTurn(angle)));
}

Acad::ErrorStatus AcDbBlockReference::setNormal(const AcGeVector3d& normal)
{
    return normal.isZeroLength() ? Acad::eInvalidInput : Assign(*this, m_normal, normal.normal());
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const
{
    AcGePoint3d base;
    if (const auto* block = BlockOf(m_block))
        base = block->origin();
    AcGeMatrix3d scale;
    m_scale.getMatrix(scale);
    return AcGeMatrix3d::planeToWorld(m_normal) * AcGeMatrix3d::translation(m_position.asVector()) *
           AcGeMatrix3d::rotation(rotation(), AcGeVector3d::kZAxis) * scale *
           AcGeMatrix3d::translation(-base.asVector());
}

// The axes must stay square to each other: an insertion cannot be sheared.
Acad::ErrorStatus AcDbBlockReference::setBlockTransform(const AcGeMatrix3d& transform)
{
    if (!transform.isScaledOrtho(AcGeTol()))
        return Acad::eCannotScaleNonOrtho;
    AcGePoint3d base, origin;
    AcGeVector3d x, y, z;
    if (const auto* block = BlockOf(m_block))
        base = block->origin();
    (transform * AcGeMatrix3d::translation(base.asVector())).getCoordSystem(origin, x, y, z);
    if (x.isZeroLength() || y.isZeroLength() || z.isZeroLength())
        return Acad::eCannotScaleNonOrtho;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_normal = z.normal();
    const AcGeVector3d along = AcGeMatrix3d::worldToPlane(m_normal) * x;
    const bool isMirrored = x.crossProduct(y).dotProduct(z) < 0;
    m_position = WorldToEntity(origin, m_normal);
    m_rotation = Degrees(FullTurn(std::atan2(along.y, along.x)));
    m_scale.set(x.length(), isMirrored ? -y.length() : y.length(), z.length());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute)
{
    const Acad::ErrorStatus status = m_parts.Insert(*this, attribute, AcDbObjectId(), id);
    if (status == Acad::eOk)
        m_hasAttributes = 1;
    return status;
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbAttribute* attribute)
{
    AcDbObjectId id;
    return appendAttribute(id, attribute);
}

Acad::ErrorStatus AcDbBlockReference::openAttribute(AcDbAttribute*& attribute, AcDbObjectId id, AcDb::OpenMode mode,
                                                    bool openErasedOne) const
{
    return acdbOpenObject(attribute, id, mode, openErasedOne);
}

namespace {

// A box parallel to the axes stays exact when the map turns axes into axes.
bool KeepsBoxes(const AcGeMatrix3d& transform)
{
    int across = 0;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            across += std::fabs(transform.entry[row][column]) > 1e-12 * transform.norm();
    return across <= 3;
}

// The boxes of insertions. The box of a definition in its own axes is worked out once, so that blocks in blocks cost no
// more than their definitions; a block that contains itself is empty in there. Where a turned box would be too wide the
// entities are looked at one by one, as long as they are not too many.
class BlockBoxes {
public:
    // Empty when the insertion shows nothing. `outer` maps the axes of the insertion to those of the box.
    AcDbExtents BoxOf(const AcDbBlockReference& reference, const AcGeMatrix3d& outer)
    {
        AcDbExtents box;
        const AcDbBlockTableRecord* block = BlockOf(reference.blockTableRecord());
        const AcGeMatrix3d transform = outer * reference.blockTransform();
        if (block != nullptr && m_depth < kMostDepth && !KeepsBoxes(transform) &&
            m_looks + block->entities().size() < kMostLooks) {
            m_looks += block->entities().size();
            ++m_depth;
            box = Exact(*block, transform);
            --m_depth;
        } else if (block != nullptr && !BoxOf(*block).isEmpty()) {
            box = BoxOf(*block);
            box.transformBy(transform);
        }
        AcDbExtents last = box;
        last.transformBy(AcGeMatrix3d::translation(outer * reference.gridDiagonal()));
        if (!box.isEmpty())
            box.addExt(last);
        for (const AcDbStub* stub : *reference.parts())
            if (const AcDbAttribute* attribute = stub->erased ? nullptr : AcDbAttribute::cast(stub->object))
                Add(box, *attribute, outer);
        return box;
    }

private:
    static constexpr size_t kMostLooks = 10000;
    static constexpr int kMostDepth = 16;

    const AcDbExtents& BoxOf(const AcDbBlockTableRecord& block)
    {
        const auto [place, isNew] = m_boxes.try_emplace(&block);
        if (!isNew)
            return place->second;
        AcDbExtents box;
        for (const AcDbEntity* entity : LiveEntities(block))
            Add(box, *entity, AcGeMatrix3d::kIdentity);
        return m_boxes[&block] = box;
    }
    AcDbExtents Exact(const AcDbBlockTableRecord& block, const AcGeMatrix3d& transform)
    {
        AcDbExtents box;
        for (const AcDbEntity* entity : LiveEntities(block)) {
            AcDbEntity* copy = nullptr;
            const bool isInsertion = entity->isKindOf(AcDbBlockReference::desc());
            if (!isInsertion && entity->getTransformedCopy(transform, copy) == Acad::eOk)
                Add(box, *copy, AcGeMatrix3d::kIdentity);
            else
                Add(box, *entity, transform);
            delete copy;
        }
        return box;
    }
    void Add(AcDbExtents& box, const AcDbEntity& entity, const AcGeMatrix3d& transform)
    {
        AcDbExtents one;
        if (const auto* inner = AcDbBlockReference::cast(&entity)) {
            one = BoxOf(*inner, transform);
        } else if (!entity.isKindOf(AcDbAttributeDefinition::desc()) && entity.getGeomExtents(one) == Acad::eOk) {
            one.transformBy(transform);
        }
        if (!one.isEmpty())
            box.addExt(one);
    }
    static std::vector<const AcDbEntity*> LiveEntities(const AcDbBlockTableRecord& block)
    {
        std::vector<const AcDbEntity*> entities;
        for (const AcDbStub* stub : block.entities())
            if (const AcDbEntity* entity = stub->erased ? nullptr : AcDbEntity::cast(stub->object))
                entities.push_back(entity);
        return entities;
    }

    std::unordered_map<const AcDbBlockTableRecord*, AcDbExtents> m_boxes;
    size_t m_looks = 0;
    int m_depth = 0;
};

}   // namespace

AcGeVector3d AcDbBlockReference::gridDiagonal() const
{
    const AcGeVector3d grid((std::max<int>(m_columns, 1) - 1) * m_columnSpacing,
                            (std::max<int>(m_rows, 1) - 1) * m_rowSpacing, 0);
    return AcGeMatrix3d::planeToWorld(m_normal) * AcGeVector3d(grid).rotateBy(rotation(), AcGeVector3d::kZAxis);
}

Acad::ErrorStatus AcDbBlockReference::getGeomExtents(AcDbExtents& extents) const
{
    extents = BlockBoxes().BoxOf(*this, AcGeMatrix3d::kIdentity);
    return extents.isEmpty() ? Acad::eInvalidExtents : Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = setBlockTransform(transform * blockTransform());
    if (status != Acad::eOk)
        return status;
    const double alongX = (transform * AcGeVector3d::kXAxis).length();
    const double alongY = (transform * AcGeVector3d::kYAxis).length();
    m_columnSpacing *= alongX;
    m_rowSpacing *= alongY;
    for (const AcDbStub* stub : m_parts.stubs()) {
        AcDbAttribute* attribute = nullptr;
        if (openAttribute(attribute, const_cast<AcDbStub*>(stub), AcDb::kForWrite) != Acad::eOk)
            continue;
        attribute->transformBy(transform);
        attribute->close();
    }
    for (AcDbEntity* attribute : m_parts.waiting())
        attribute->transformBy(transform);
    return Acad::eOk;
}

AcRxObject* AcDbBlockReference::clone() const
{
    auto* copy = static_cast<AcDbBlockReference*>(AcDbEntity::clone());
    if (copy != nullptr)
        copy->m_parts.CopyOf(m_parts);
    return copy;
}

Acad::ErrorStatus AcDbBlockReference::explode(AcArray<AcRxObject*>& pieces) const
{
    const auto* block = BlockOf(m_block);
    if (block == nullptr)
        return Acad::eNullBlockName;
    const AcGeMatrix3d transform = blockTransform();
    for (const AcDbStub* each : block->entities()) {
        const AcDbEntity* entity = each->erased ? nullptr : AcDbEntity::cast(each->object);
        if (entity == nullptr || entity->isKindOf(AcDbAttributeDefinition::desc()))
            continue;
        AcDbEntity* copy = nullptr;
        const Acad::ErrorStatus status = entity->getTransformedCopy(transform, copy);
        if (status == Acad::eCannotScaleNonOrtho || status == Acad::eCannotScaleNonUniformly)
            return status;
        if (status == Acad::eOk)
            pieces.append(copy);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::getEcs(AcGeMatrix3d& ecs) const
{
    ecs = AcGeMatrix3d::planeToWorld(m_normal);
    return Acad::eOk;
}

AcDbMInsertBlock::AcDbMInsertBlock(const AcGePoint3d& position, AcDbObjectId block, Adesk::UInt16 columns,
                                   Adesk::UInt16 rows, double columnSpacing, double rowSpacing)
    : AcDbBlockReference(position, block)
{
    m_columns = int16_t(columns);
    m_rows = int16_t(rows);
    m_columnSpacing = columnSpacing;
    m_rowSpacing = rowSpacing;
}

Acad::ErrorStatus AcDbMInsertBlock::setColumns(Adesk::UInt16 columns)
{
    return Assign(*this, m_columns, columns);
}

Acad::ErrorStatus AcDbMInsertBlock::setRows(Adesk::UInt16 rows)
{
    return Assign(*this, m_rows, rows);
}

Acad::ErrorStatus AcDbMInsertBlock::setColumnSpacing(double spacing)
{
    return Assign(*this, m_columnSpacing, spacing);
}

Acad::ErrorStatus AcDbMInsertBlock::setRowSpacing(double spacing)
{
    return Assign(*this, m_rowSpacing, spacing);
}
