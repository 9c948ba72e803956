// An insertion of a block: place, scale, rotation, and the attributes that belong to it.
#pragma once
#include "../ge/AcGeScale3d.h"
#include "AcDbEntity.h"
#include "AcDbSequenceEnd.h"
#include "core/OwnedParts.h"

class AcDbAttribute;

namespace KxPlat {
struct Field;
}

class AcDbBlockReference : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbBlockReference);

    AcDbBlockReference() = default;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block);

    AcDbObjectId blockTableRecord() const { return m_block; }
    virtual Acad::ErrorStatus setBlockTableRecord(AcDbObjectId block);
    AcGePoint3d position() const;   // in world axes
    virtual Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    AcGeScale3d scaleFactors() const { return m_scale; }
    // Refuses factors of zero.
    virtual Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
    double rotation() const;   // radians
    virtual Acad::ErrorStatus setRotation(double angle);
    AcGeVector3d normal() const { return m_normal; }
    virtual Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    // From the block's axes to the world's.
    AcGeMatrix3d blockTransform() const;
    virtual Acad::ErrorStatus setBlockTransform(const AcGeMatrix3d& transform);

    // In a database the attribute stays open for write.
    Acad::ErrorStatus appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute);
    Acad::ErrorStatus appendAttribute(AcDbAttribute* attribute);
    Acad::ErrorStatus openAttribute(AcDbAttribute*& attribute, AcDbObjectId id, AcDb::OpenMode mode,
                                    bool openErasedOne = false) const;
    // The caller deletes the iterator.
    AcDbObjectIterator* attributeIterator() const { return new AcDbObjectIterator(m_parts.stubs()); }

    // From the first to the last place of an insertion in rows and columns, in world axes.
    AcGeVector3d gridDiagonal() const;

    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    // Copies of the block's entities where they are seen; attribute definitions are left out.
    Acad::ErrorStatus explode(AcArray<AcRxObject*>& pieces) const override;
    Acad::ErrorStatus getEcs(AcGeMatrix3d& ecs) const override;
    // With copies of the attributes, which join a database with the copy.
    AcRxObject* clone() const override;

    void adoptParts(KxPlat::DbCore& core) override { m_parts.Adopt(*this, core); }
    const std::vector<AcDbStub*>* parts() const override { return &m_parts.stubs(); }
    void attachPart(AcDbStub* part) override { m_parts.Attach(part); }

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;
    static std::vector<KxPlat::Field> FieldList();

    int16_t m_columns = 0;   // 0 counts as 1
    int16_t m_rows = 0;
    double m_columnSpacing = 0;
    double m_rowSpacing = 0;

private:
    AcDbObjectId m_block;
    AcGePoint3d m_position;
    AcGeVector3d m_normal{0, 0, 1};
    AcGeScale3d m_scale;
    double m_rotation = 0;   // degrees
    int16_t m_hasAttributes = 0;
    KxPlat::OwnedParts m_parts;
};

// A block inserted in rows and columns.
class AcDbMInsertBlock : public AcDbBlockReference {
public:
    ACDB_DECLARE_MEMBERS(AcDbMInsertBlock);

    AcDbMInsertBlock() = default;
    AcDbMInsertBlock(const AcGePoint3d& position, AcDbObjectId block, Adesk::UInt16 columns, Adesk::UInt16 rows,
                     double columnSpacing, double rowSpacing);

    Adesk::UInt16 columns() const { return Adesk::UInt16(m_columns < 1 ? 1 : m_columns); }
    Acad::ErrorStatus setColumns(Adesk::UInt16 columns);
    Adesk::UInt16 rows() const { return Adesk::UInt16(m_rows < 1 ? 1 : m_rows); }
    Acad::ErrorStatus setRows(Adesk::UInt16 rows);
    double columnSpacing() const { return m_columnSpacing; }
    Acad::ErrorStatus setColumnSpacing(double spacing);
    double rowSpacing() const { return m_rowSpacing; }
    Acad::ErrorStatus setRowSpacing(double spacing);
};
