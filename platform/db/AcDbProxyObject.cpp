#include "AcDbProxyObject.h"
#include "../win/CodePage.h"
#include "core/Fields.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbProxyObject, AcDbObject, 0, 0, 0, ACAD_PROXY_OBJECT, AcDb)

// No members of its own: its groups stay with it as unclaimed ones.
const ClassSchema& AcDbProxyObject::fieldSchema()
{
    static const ClassSchema schema(&AcDbObject::fieldSchema(), "ACAD_PROXY_OBJECT", nullptr, {});
    return schema;
}

void AcDbProxyObject::setDxfName(std::string_view name)
{
    m_dxfName = name;
    m_className = FromUtf8(name).c_str();
}

AcRxObject* AcDbProxyObject::clone() const
{
    AcDbProxyObject* copy = static_cast<AcDbProxyObject*>(AcDbObject::clone());
    copy->setDxfName(m_dxfName);
    return copy;
}
