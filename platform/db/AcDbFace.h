// A face of three or four corners in space; edges can be hidden one by one.
#pragma once
#include "AcDbEntity.h"

class AcDbFace : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbFace);

    AcDbFace() = default;
    AcDbFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
             bool e0vis = true, bool e1vis = true, bool e2vis = true, bool e3vis = true);
    AcDbFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, bool e0vis = true, bool e1vis = true,
             bool e2vis = true, bool e3vis = true)
        : AcDbFace(p0, p1, p2, p2, e0vis, e1vis, e2vis, e3vis)
    {
    }

    Acad::ErrorStatus getVertexAt(Adesk::UInt16 index, AcGePoint3d& point) const;
    Acad::ErrorStatus setVertexAt(Adesk::UInt16 index, const AcGePoint3d& point);
    Acad::ErrorStatus isEdgeVisibleAt(Adesk::UInt16 index, Adesk::Boolean& visible) const;
    Acad::ErrorStatus makeEdgeVisibleAt(Adesk::UInt16 index) { return SetEdge(index, true); }
    Acad::ErrorStatus makeEdgeInvisibleAt(Adesk::UInt16 index) { return SetEdge(index, false); }

    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    bool addOutline(KxPlat::CurvePieces& pieces) const override;   // the edges that are not hidden

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    Acad::ErrorStatus SetEdge(Adesk::UInt16 index, bool visible);

    static AcGePoint3d AcDbFace::*const kCorners[4];
    AcGePoint3d m_p0, m_p1, m_p2, m_p3;
    int16_t m_hiddenEdges = 0;   // a bit for each edge
};
