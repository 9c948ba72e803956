#include "AcDbCurve.h"
#include "core/Fields.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbCurve, AcDbEntity)

const KxPlat::ClassSchema& AcDbCurve::fieldSchema()
{
    return AcDbEntity::fieldSchema();
}

Acad::ErrorStatus AcDbCurve::getStartPoint(AcGePoint3d& point) const
{
    double parameter = 0;
    const Acad::ErrorStatus status = getStartParam(parameter);
    return status == Acad::eOk ? getPointAtParam(parameter, point) : status;
}

Acad::ErrorStatus AcDbCurve::getEndPoint(AcGePoint3d& point) const
{
    double parameter = 0;
    const Acad::ErrorStatus status = getEndParam(parameter);
    return status == Acad::eOk ? getPointAtParam(parameter, point) : status;
}
