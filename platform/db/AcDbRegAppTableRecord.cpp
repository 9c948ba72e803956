#include "AcDbRegAppTableRecord.h"
#include "core/Fields.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, 0, 0, 0, APPID, AcDb)
ACRX_CONS_DEFINE_MEMBERS(AcDbRegAppTable, AcDbSymbolTable, 1)

const ClassSchema& AcDbRegAppTableRecord::fieldSchema()
{
    static const ClassSchema schema(&AcDbSymbolTableRecord::fieldSchema(), "APPID", "AcDbRegAppTableRecord",
                                    {
                                        Text(2, &AcDbRegAppTableRecord::m_name).always(),
                                        Int16(70, &AcDbRegAppTableRecord::m_flags).always(),
                                    });
    return schema;
}

const ClassSchema& AcDbRegAppTable::fieldSchema()
{
    static const ClassSchema schema(&AcDbSymbolTable::fieldSchema(), "TABLE", nullptr, {});
    return schema;
}

bool AcDbRegAppTableRecord::isErasable() const
{
    return m_name.CompareNoCase(L"ACAD") != 0;
}
