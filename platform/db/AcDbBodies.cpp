#include "AcDbBodies.h"
#include "core/Fields.h"
#include "core/GroupListField.h"
#include "core/GroupMap.h"

using namespace KxPlat;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbModelerGeometry, AcDbEntity)
ACRX_DXF_DEFINE_MEMBERS(AcDbRegion, AcDbModelerGeometry, 0, 0, 0, REGION, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbBody, AcDbModelerGeometry, 0, 0, 0, BODY, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDb3dSolid, AcDbModelerGeometry, 0, 0, 0, 3DSOLID, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbSubDMesh, AcDbEntity, 0, 0, 0, MESH, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbLight, AcDbEntity, 0, 0, 0, LIGHT, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbMLeader, AcDbEntity, 0, 0, 0, MULTILEADER, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbTable, AcDbBlockReference, 0, 0, 0, ACAD_TABLE, AcDb)

const ClassSchema& AcDbModelerGeometry::fieldSchema()
{
    static const GroupListField<AcDbModelerGeometry> all(&AcDbModelerGeometry::m_groups, {});
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "BODY", "AcDbModelerGeometry", {List(&all)});
    return schema;
}

const ClassSchema& AcDbRegion::fieldSchema()
{
    static const ClassSchema schema(&AcDbModelerGeometry::fieldSchema(), "REGION", nullptr, {});
    return schema;
}

const ClassSchema& AcDbBody::fieldSchema()
{
    static const ClassSchema schema(&AcDbModelerGeometry::fieldSchema(), "BODY", nullptr, {});
    return schema;
}

const ClassSchema& AcDb3dSolid::fieldSchema()
{
    static const ClassSchema schema(&AcDbModelerGeometry::fieldSchema(), "3DSOLID", nullptr, {});
    return schema;
}

const ClassSchema& AcDbSubDMesh::fieldSchema()
{
    static const GroupListField<AcDbSubDMesh> all(&AcDbSubDMesh::m_groups, {});
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "MESH", "AcDbSubDMesh", {List(&all)});
    return schema;
}

const ClassSchema& AcDbLight::fieldSchema()
{
    static const GroupListField<AcDbLight> all(&AcDbLight::m_groups, {});
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "LIGHT", "AcDbLight", {List(&all)});
    return schema;
}

const ClassSchema& AcDbMLeader::fieldSchema()
{
    static const GroupListField<AcDbMLeader> all(&AcDbMLeader::m_groups, {});
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "MULTILEADER", "AcDbMLeader", {List(&all)});
    return schema;
}

const ClassSchema& AcDbTable::fieldSchema()
{
    static const GroupListField<AcDbTable> all(&AcDbTable::m_groups, {});
    static const ClassSchema schema(&AcDbBlockReference::fieldSchema(), "ACAD_TABLE", "AcDbTable", {List(&all)});
    return schema;
}

namespace {

GroupRole RoleInMesh(const GroupValue& group)
{
    return group.code == 10 ? GroupRole::Point : GroupRole::None;
}

// Position and target.
GroupRole RoleInLight(const GroupValue& group)
{
    return group.code == 10 || group.code == 11 ? GroupRole::Point : GroupRole::None;
}

struct RoleRow {
    int code;
    GroupRole role;
};

const RoleRow g_context[] = {
    {10, GroupRole::Point},   {11, GroupRole::Normal}, {12, GroupRole::Point},  {13, GroupRole::Vector},
    {14, GroupRole::Normal},  {15, GroupRole::Point},  {110, GroupRole::Point}, {111, GroupRole::Vector},
    {112, GroupRole::Vector}, {40, GroupRole::Length}, {41, GroupRole::Length}, {140, GroupRole::Length},
    {145, GroupRole::Length},
};
// A leader has its end, the direction of its landing, breaks, and the length of the landing.
const RoleRow g_leader[] = {
    {10, GroupRole::Point}, {11, GroupRole::Vector}, {12, GroupRole::Point},
    {13, GroupRole::Point}, {40, GroupRole::Length},
};
const RoleRow g_line[] = {{10, GroupRole::Point}, {11, GroupRole::Point}, {12, GroupRole::Point}};
const RoleRow g_outside[] = {{41, GroupRole::Length}, {42, GroupRole::Length}};

template <size_t size>
GroupRole RoleIn(const RoleRow (&rows)[size], int code)
{
    for (const RoleRow& row : rows)
        if (row.code == code)
            return row.role;
    return GroupRole::None;
}

// The groups of a multi-leader nest: its context holds leaders, and these hold lines.
class RoleInMLeader {
public:
    GroupRole operator()(const GroupValue& group)
    {
        const bool opens = (m_depth == 0 && group.code == 300) || (m_depth == 1 && group.code == 302) ||
                           (m_depth == 2 && group.code == 304);
        const bool closes = group.code == 299 + 2 * m_depth && m_depth > 0;
        m_depth += opens ? 1 : closes ? -1 : 0;
        switch (m_depth) {
        case 0:
            return RoleIn(g_outside, group.code);
        case 1:
            return RoleIn(g_context, group.code);
        case 2:
            return RoleIn(g_leader, group.code);
        default:
            return RoleIn(g_line, group.code);
        }
    }

private:
    int m_depth = 0;
};

Acad::ErrorStatus Extents(AcDbExtents& extents, const GroupList& groups, const RoleOfGroup& roles)
{
    extents = AcDbExtents();
    AddGroupPoints(extents, groups, roles);
    return extents.isEmpty() ? Acad::eInvalidExtents : Acad::eOk;
}

Acad::ErrorStatus Map(AcDbEntity& entity, GroupList& groups, const AcGeMatrix3d& transform, const RoleOfGroup& roles)
{
    const Acad::ErrorStatus status = entity.assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    return MapGroups(groups, transform, roles) ? Acad::eOk : Acad::eDegenerateGeometry;
}

}   // namespace

Acad::ErrorStatus AcDbSubDMesh::getGeomExtents(AcDbExtents& extents) const
{
    return Extents(extents, m_groups, RoleInMesh);
}

Acad::ErrorStatus AcDbSubDMesh::transformBy(const AcGeMatrix3d& transform)
{
    return Map(*this, m_groups, transform, RoleInMesh);
}

Acad::ErrorStatus AcDbLight::getGeomExtents(AcDbExtents& extents) const
{
    return Extents(extents, m_groups, RoleInLight);
}

Acad::ErrorStatus AcDbLight::transformBy(const AcGeMatrix3d& transform)
{
    return Map(*this, m_groups, transform, RoleInLight);
}

Acad::ErrorStatus AcDbMLeader::getGeomExtents(AcDbExtents& extents) const
{
    return Extents(extents, m_groups, RoleInMLeader());
}

Acad::ErrorStatus AcDbMLeader::transformBy(const AcGeMatrix3d& transform)
{
    return Map(*this, m_groups, transform, RoleInMLeader());
}
