#include "AcDbFace.h"
#include "core/Fields.h"
#include "core/Members.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbFace, AcDbEntity, 0, 0, 0, 3DFACE, AcDb)

AcGePoint3d AcDbFace::*const AcDbFace::kCorners[4] = {&AcDbFace::m_p0, &AcDbFace::m_p1, &AcDbFace::m_p2,
                                                      &AcDbFace::m_p3};

const ClassSchema& AcDbFace::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "3DFACE", "AcDbFace",
                                    {
                                        Point3(10, &AcDbFace::m_p0).always(),
                                        Point3(11, &AcDbFace::m_p1).always(),
                                        Point3(12, &AcDbFace::m_p2).always(),
                                        Point3(13, &AcDbFace::m_p3).always(),
                                        Int16(70, &AcDbFace::m_hiddenEdges),
                                    });
    return schema;
}

AcDbFace::AcDbFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
                   bool e0vis, bool e1vis, bool e2vis, bool e3vis)
    : m_p0(p0), m_p1(p1), m_p2(p2), m_p3(p3)
{
    m_hiddenEdges = int16_t((e0vis ? 0 : 1) | (e1vis ? 0 : 2) | (e2vis ? 0 : 4) | (e3vis ? 0 : 8));
}

Acad::ErrorStatus AcDbFace::getVertexAt(Adesk::UInt16 index, AcGePoint3d& point) const
{
    if (index > 3)
        return Acad::eInvalidIndex;
    point = this->*kCorners[index];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::setVertexAt(Adesk::UInt16 index, const AcGePoint3d& point)
{
    return index > 3 ? Acad::eInvalidIndex : Assign(*this, this->*kCorners[index], point);
}

Acad::ErrorStatus AcDbFace::isEdgeVisibleAt(Adesk::UInt16 index, Adesk::Boolean& visible) const
{
    if (index > 3)
        return Acad::eInvalidIndex;
    visible = (m_hiddenEdges & (1 << index)) == 0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::SetEdge(Adesk::UInt16 index, bool visible)
{
    return index > 3 ? Acad::eInvalidIndex : AssignBits(*this, m_hiddenEdges, 1 << index, !visible);
}

Acad::ErrorStatus AcDbFace::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    for (const auto corner : kCorners)
        extents.addPoint(this->*corner);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    for (const auto corner : kCorners)
        (this->*corner).transformBy(transform);
    return Acad::eOk;
}
