// What all curves answer: ends, parameters, points and lengths along them.
#pragma once
#include "AcDbEntity.h"

class AcDbCurve : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbCurve);

    virtual bool isClosed() const { return false; }
    virtual Acad::ErrorStatus getStartParam(double& parameter) const { return Acad::eNotApplicable; }
    virtual Acad::ErrorStatus getEndParam(double& parameter) const { return Acad::eNotApplicable; }
    virtual Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const;
    virtual Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const;
    virtual Acad::ErrorStatus getPointAtParam(double parameter, AcGePoint3d& point) const
    {
        return Acad::eNotApplicable;
    }
    virtual Acad::ErrorStatus getArea(double& area) const { return Acad::eNotApplicable; }
};
