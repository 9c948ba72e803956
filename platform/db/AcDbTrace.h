// Filled areas of three or four corners. The corners lie in the axes of the normal; the fourth is across from the
// second, so that 0, 1, 3, 2 goes around.
#pragma once
#include "AcDbEntity.h"

namespace KxPlat {

struct Field;

// What solids and traces have in common.
class FilledCorners : public AcDbEntity {
public:
    Acad::ErrorStatus getPointAt(Adesk::UInt16 index, AcGePoint3d& point) const;   // in world axes
    Acad::ErrorStatus setPointAt(Adesk::UInt16 index, const AcGePoint3d& point);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    Acad::ErrorStatus getEcs(AcGeMatrix3d& ecs) const override;
    bool addOutline(KxPlat::CurvePieces& pieces) const override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;
    FilledCorners() = default;
    FilledCorners(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3);
    static std::vector<Field> FieldList();

private:
    static AcGePoint3d FilledCorners::*const kCorners[4];
    AcGePoint3d m_p0, m_p1, m_p2, m_p3;
    AcGeVector3d m_normal{0, 0, 1};
    double m_thickness = 0;
};

}   // namespace KxPlat

class AcDbSolid : public KxPlat::FilledCorners {
public:
    ACDB_DECLARE_MEMBERS(AcDbSolid);
    AcDbSolid() = default;
    AcDbSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3)
        : FilledCorners(p0, p1, p2, p3)
    {
    }
    AcDbSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2) : AcDbSolid(p0, p1, p2, p2) {}
};

class AcDbTrace : public KxPlat::FilledCorners {
public:
    ACDB_DECLARE_MEMBERS(AcDbTrace);
    AcDbTrace() = default;
    AcDbTrace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3)
        : FilledCorners(p0, p1, p2, p3)
    {
    }
};
