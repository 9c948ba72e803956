#include "AcDbViewTableRecord.h"
#include "core/Fields.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbViewTableRecord, AcDbSymbolTableRecord, 0, 0, 0, VIEW, AcDb)
ACRX_CONS_DEFINE_MEMBERS(AcDbViewTable, AcDbSymbolTable, 1)

const ClassSchema& AcDbViewTableRecord::fieldSchema()
{
    static const ClassSchema schema(&AcDbSymbolTableRecord::fieldSchema(), "VIEW", "AcDbViewTableRecord",
                                    {
                                        Text(2, &AcDbViewTableRecord::m_name).always(),
                                        Int16(70, &AcDbViewTableRecord::m_flags).always(),
                                        Real(40, &AcDbViewTableRecord::m_height).always(),
                                        Point2(10, &AcDbViewTableRecord::m_center).always(),
                                        Real(41, &AcDbViewTableRecord::m_width).always(),
                                        Vector3(11, &AcDbViewTableRecord::m_direction).always(),
                                        Point3(12, &AcDbViewTableRecord::m_target).always(),
                                    });
    return schema;
}

const ClassSchema& AcDbViewTable::fieldSchema()
{
    static const ClassSchema schema(&AcDbSymbolTable::fieldSchema(), "TABLE", nullptr, {});
    return schema;
}

void AcDbViewTableRecord::setCenterPoint(const AcGePoint2d& center)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_center = center;
}

void AcDbViewTableRecord::setHeight(double height)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_height = height;
}

void AcDbViewTableRecord::setWidth(double width)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_width = width;
}

void AcDbViewTableRecord::setTarget(const AcGePoint3d& target)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_target = target;
}

void AcDbViewTableRecord::setViewDirection(const AcGeVector3d& direction)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_direction = direction;
}
