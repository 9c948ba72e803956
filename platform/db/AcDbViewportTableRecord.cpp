#include "AcDbViewportTableRecord.h"
#include "../ge/EntityAxes.h"
#include "core/Fields.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbViewportTableRecord, AcDbSymbolTableRecord, 0, 0, 0, VPORT, AcDb)
ACRX_CONS_DEFINE_MEMBERS(AcDbViewportTable, AcDbSymbolTable, 1)

const ClassSchema& AcDbViewportTableRecord::fieldSchema()
{
    static const ClassSchema schema(&AcDbSymbolTableRecord::fieldSchema(), "VPORT", "AcDbViewportTableRecord",
                                    {
                                        Text(2, &AcDbViewportTableRecord::m_name).always(),
                                        Int16(70, &AcDbViewportTableRecord::m_flags).always(),
                                        Point2(10, &AcDbViewportTableRecord::m_lowerLeft).always(),
                                        Point2(11, &AcDbViewportTableRecord::m_upperRight).always(),
                                        Point2(12, &AcDbViewportTableRecord::m_center).always(),
                                        Vector3(16, &AcDbViewportTableRecord::m_direction).always(),
                                        Point3(17, &AcDbViewportTableRecord::m_target).always(),
                                        Real(40, &AcDbViewportTableRecord::m_height).always(),
                                        Real(41, &AcDbViewportTableRecord::m_aspect).always(),
                                        Real(51, &AcDbViewportTableRecord::m_twist),
                                    });
    return schema;
}

const ClassSchema& AcDbViewportTable::fieldSchema()
{
    static const ClassSchema schema(&AcDbSymbolTable::fieldSchema(), "TABLE", nullptr, {});
    return schema;
}

void AcDbViewportTableRecord::setCenterPoint(const AcGePoint2d& center)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_center = center;
}

void AcDbViewportTableRecord::setHeight(double height)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_height = height;
}

void AcDbViewportTableRecord::setAspectRatio(double ratio)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_aspect = ratio;
}

double AcDbViewportTableRecord::viewTwist() const
{
    return Radians(m_twist);
}

void AcDbViewportTableRecord::setViewTwist(double angle)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_twist = Degrees(angle);
}

void AcDbViewportTableRecord::setTarget(const AcGePoint3d& target)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_target = target;
}

void AcDbViewportTableRecord::setViewDirection(const AcGeVector3d& direction)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_direction = direction;
}
