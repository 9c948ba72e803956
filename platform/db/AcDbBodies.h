// Entities whose inside is hardly looked into: solids, regions and bodies of the modeller, meshes, lights,
// multi-leaders and tables. Their common properties can be changed; the groups of their own sections are kept as they
// are, save that meshes, lights and multi-leaders can be moved.
#pragma once
#include "AcDbBlockReference.h"
#include "core/GroupValue.h"

class AcDbModelerGeometry : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbModelerGeometry);
    bool isNull() const { return m_groups.empty(); }

protected:
    AcDbModelerGeometry() = default;
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    KxPlat::GroupList m_groups;
};

class AcDbRegion : public AcDbModelerGeometry {
public:
    ACDB_DECLARE_MEMBERS(AcDbRegion);
    bool isPlanar() const override { return true; }
};

class AcDbBody : public AcDbModelerGeometry {
public:
    ACDB_DECLARE_MEMBERS(AcDbBody);
};

class AcDb3dSolid : public AcDbModelerGeometry {
public:
    ACDB_DECLARE_MEMBERS(AcDb3dSolid);
};

class AcDbSubDMesh : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbSubDMesh);
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    KxPlat::GroupList m_groups;
};

class AcDbLight : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbLight);
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;

private:
    KxPlat::GroupList m_groups;
};

class AcDbMLeader : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbMLeader);
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    KxPlat::GroupList m_groups;
};

// What is seen of a table is the block that it inserts.
class AcDbTable : public AcDbBlockReference {
public:
    ACDB_DECLARE_MEMBERS(AcDbTable);

private:
    KxPlat::GroupList m_groups;
};
