#include "AcDbUCSTableRecord.h"
#include "core/Fields.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbUCSTableRecord, AcDbSymbolTableRecord, 0, 0, 0, UCS, AcDb)
ACRX_CONS_DEFINE_MEMBERS(AcDbUCSTable, AcDbSymbolTable, 1)

const ClassSchema& AcDbUCSTableRecord::fieldSchema()
{
    static const ClassSchema schema(&AcDbSymbolTableRecord::fieldSchema(), "UCS", "AcDbUCSTableRecord",
                                    {
                                        Text(2, &AcDbUCSTableRecord::m_name).always(),
                                        Int16(70, &AcDbUCSTableRecord::m_flags).always(),
                                        Point3(10, &AcDbUCSTableRecord::m_origin).always(),
                                        Vector3(11, &AcDbUCSTableRecord::m_xAxis, 1, 0, 0).always(),
                                        Vector3(12, &AcDbUCSTableRecord::m_yAxis, 0, 1, 0).always(),
                                    });
    return schema;
}

const ClassSchema& AcDbUCSTable::fieldSchema()
{
    static const ClassSchema schema(&AcDbSymbolTable::fieldSchema(), "TABLE", nullptr, {});
    return schema;
}

void AcDbUCSTableRecord::setOrigin(const AcGePoint3d& origin)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_origin = origin;
}

void AcDbUCSTableRecord::setXAxis(const AcGeVector3d& axis)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_xAxis = axis;
}

void AcDbUCSTableRecord::setYAxis(const AcGeVector3d& axis)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_yAxis = axis;
}
