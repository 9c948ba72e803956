// A point of the world, drawn as PDMODE and PDSIZE say.
#pragma once
#include "AcDbEntity.h"

class AcDbPoint : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbPoint);

    AcDbPoint() = default;
    explicit AcDbPoint(const AcGePoint3d& position) : m_position(position) {}

    AcGePoint3d position() const { return m_position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    double ecsRotation() const;   // radians
    Acad::ErrorStatus setEcsRotation(double angle);

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    AcGePoint3d m_position;
    AcGeVector3d m_normal{0, 0, 1};
    double m_thickness = 0;
    double m_rotation = 0;   // degrees, of the marker's X axis
};
