// Endless straight curves: a ray from a point, and a construction line through one.
#pragma once
#include "AcDbCurve.h"

namespace KxPlat {

struct Field;

class EndlessLine : public AcDbCurve {
public:
    AcGePoint3d basePoint() const { return m_base; }
    Acad::ErrorStatus setBasePoint(const AcGePoint3d& point);
    AcGeVector3d unitDir() const { return m_direction; }
    Acad::ErrorStatus setUnitDir(const AcGeVector3d& direction);

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    Acad::ErrorStatus getPointAtParam(double parameter, AcGePoint3d& point) const override;
    Acad::ErrorStatus reverseCurve() override;
    AcDbCurve* PartBetween(double from, double to) const override;

protected:
    Acad::ErrorStatus MakeOffset(double distance, std::vector<AcDbCurve*>& curves) const override;
    EndlessLine() = default;
    static std::vector<Field> FieldList();

private:
    AcGePoint3d m_base;
    AcGeVector3d m_direction{1, 0, 0};
};

}   // namespace KxPlat

class AcDbRay : public KxPlat::EndlessLine {
public:
    ACDB_DECLARE_MEMBERS(AcDbRay);
    Acad::ErrorStatus getStartParam(double& parameter) const override;
    bool addOutline(KxPlat::CurvePieces& pieces) const override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;
};

class AcDbXline : public KxPlat::EndlessLine {
public:
    ACDB_DECLARE_MEMBERS(AcDbXline);
    bool addOutline(KxPlat::CurvePieces& pieces) const override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;
};
