#include "AcDbTrace.h"
#include "core/Fields.h"
#include "core/FlatMap.h"
#include "core/Members.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbSolid, AcDbEntity, 0, 0, 0, SOLID, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbTrace, AcDbEntity, 0, 0, 0, TRACE, AcDb)

namespace KxPlat {

AcGePoint3d FilledCorners::*const FilledCorners::kCorners[4] = {&FilledCorners::m_p0, &FilledCorners::m_p1,
                                                                &FilledCorners::m_p2, &FilledCorners::m_p3};

std::vector<Field> FilledCorners::FieldList()
{
    return {
        Point3(10, &FilledCorners::m_p0).always(), Point3(11, &FilledCorners::m_p1).always(),
        Point3(12, &FilledCorners::m_p2).always(), Point3(13, &FilledCorners::m_p3).always(),
        Real(39, &FilledCorners::m_thickness),     Vector3(210, &FilledCorners::m_normal),
    };
}

FilledCorners::FilledCorners(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3)
    : m_p0(p0), m_p1(p1), m_p2(p2), m_p3(p3)
{
}

Acad::ErrorStatus FilledCorners::getPointAt(Adesk::UInt16 index, AcGePoint3d& point) const
{
    if (index > 3)
        return Acad::eInvalidIndex;
    point = EntityToWorld(this->*kCorners[index], m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus FilledCorners::setPointAt(Adesk::UInt16 index, const AcGePoint3d& point)
{
    return index > 3 ? Acad::eInvalidIndex : Assign(*this, this->*kCorners[index], WorldToEntity(point, m_normal));
}

Acad::ErrorStatus FilledCorners::setThickness(double thickness)
{
    return Assign(*this, m_thickness, thickness);
}

Acad::ErrorStatus FilledCorners::setNormal(const AcGeVector3d& normal)
{
    return normal.isZeroLength() ? Acad::eInvalidInput : Assign(*this, m_normal, normal.normal());
}

Acad::ErrorStatus FilledCorners::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    for (const auto corner : kCorners)
        AddFlatPoint(extents, this->*corner, m_normal, m_thickness);
    return Acad::eOk;
}

Acad::ErrorStatus FilledCorners::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const FlatMap map(transform, m_normal);
    for (const auto corner : kCorners)
        this->*corner = map.Point(this->*corner);
    m_thickness = map.Thickness(m_thickness);
    m_normal = map.normal();
    return Acad::eOk;
}

Acad::ErrorStatus FilledCorners::getEcs(AcGeMatrix3d& ecs) const
{
    ecs = AcGeMatrix3d::planeToWorld(m_normal);
    return Acad::eOk;
}

}   // namespace KxPlat

const ClassSchema& AcDbSolid::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "SOLID", "AcDbTrace", FieldList());
    return schema;
}

const ClassSchema& AcDbTrace::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "TRACE", "AcDbTrace", FieldList());
    return schema;
}
