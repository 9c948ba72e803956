#include "AcDbProxyEntity.h"
#include "../win/CodePage.h"
#include "core/Fields.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbProxyEntity, AcDbEntity, 0, 0, 0, ACAD_PROXY_ENTITY, AcDb)

// No members of its own: what lies behind the entity's common groups stays with it as unclaimed groups.
const ClassSchema& AcDbProxyEntity::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "ACAD_PROXY_ENTITY", nullptr, {});
    return schema;
}

void AcDbProxyEntity::setDxfName(std::string_view name)
{
    m_dxfName = name;
    m_className = FromUtf8(name).c_str();
}

AcRxObject* AcDbProxyEntity::clone() const
{
    AcDbProxyEntity* copy = static_cast<AcDbProxyEntity*>(AcDbEntity::clone());
    copy->setDxfName(m_dxfName);
    return copy;
}
