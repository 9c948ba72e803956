#include "AcDbBodies.h"
#include "core/Fields.h"
#include "core/GroupListField.h"

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
