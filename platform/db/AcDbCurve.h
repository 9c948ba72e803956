// What all curves answer: ends, parameters, points and lengths along them, cuts, parallels.
// Distances count along the curve from its start; a parameter or point off the curve answers eInvalidInput. What a call
// hands out in an array of pointers are new curves that belong to the caller, with the properties of the one asked.
#pragma once
#include "../ge/AcGePlane.h"
#include "../ge/AcGePoint3dArray.h"
#include "AcDbEntity.h"

typedef AcArray<void*> AcDbVoidPtrArray;

class AcDbSpline;

class AcDbCurve : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbCurve);

    virtual bool isClosed() const { return false; }
    virtual bool isPeriodic() const { return false; }
    virtual Acad::ErrorStatus getStartParam(double& parameter) const { return Acad::eNotApplicable; }
    virtual Acad::ErrorStatus getEndParam(double& parameter) const { return Acad::eNotApplicable; }
    virtual Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const;
    virtual Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const;
    virtual Acad::ErrorStatus getPointAtParam(double parameter, AcGePoint3d& point) const
    {
        return Acad::eNotApplicable;
    }
    virtual Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& parameter) const;
    virtual Acad::ErrorStatus getDistAtParam(double parameter, double& distance) const;
    virtual Acad::ErrorStatus getParamAtDist(double distance, double& parameter) const;
    virtual Acad::ErrorStatus getDistAtPoint(const AcGePoint3d& point, double& distance) const;
    virtual Acad::ErrorStatus getPointAtDist(double distance, AcGePoint3d& point) const;
    // Between two parts the derivative of the later one.
    virtual Acad::ErrorStatus getFirstDeriv(double parameter, AcGeVector3d& derivative) const;
    virtual Acad::ErrorStatus getFirstDeriv(const AcGePoint3d& point, AcGeVector3d& derivative) const;
    virtual Acad::ErrorStatus getSecondDeriv(double parameter, AcGeVector3d& derivative) const;
    virtual Acad::ErrorStatus getSecondDeriv(const AcGePoint3d& point, AcGeVector3d& derivative) const;
    // With `extend` also on what the curve would be beyond its ends.
    virtual Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& given, AcGePoint3d& onCurve,
                                                bool extend = false) const;
    // The nearest as seen along a direction.
    virtual Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& given, const AcGeVector3d& direction,
                                                AcGePoint3d& onCurve, bool extend = false) const;

    // Parallels to the right of the way along the curve, to the left for a negative distance: circles and arcs grow,
    // and shrink. eInvalidInput where nothing is left.
    virtual Acad::ErrorStatus getOffsetCurves(double distance, AcDbVoidPtrArray& curves) const;
    // The parts between ascending parameters; an open curve and a polyline begin and end where they did, circles and
    // whole ellipses at the cuts, of which they need two.
    virtual Acad::ErrorStatus getSplitCurves(const AcGeDoubleArray& parameters, AcDbVoidPtrArray& curves) const;
    virtual Acad::ErrorStatus getSplitCurves(const AcGePoint3dArray& points, AcDbVoidPtrArray& curves) const;
    // The same way as a spline.
    virtual Acad::ErrorStatus getSpline(AcDbSpline*& spline) const;
    // Moves an end to a parameter beyond it; only of curves that know what lies there.
    virtual Acad::ErrorStatus extend(double newParameter) { return Acad::eNotApplicable; }
    virtual Acad::ErrorStatus extend(bool extendStart, const AcGePoint3d& toPoint);
    virtual Acad::ErrorStatus reverseCurve() { return Acad::eNotApplicable; }
    virtual Acad::ErrorStatus getArea(double& area) const { return Acad::eNotApplicable; }

    // The part between two parameters without any properties, null where there is none. Where the curve is periodic
    // `to` may lie up to a whole turn behind `from`.
    virtual AcDbCurve* PartBetween(double from, double to) const { return nullptr; }

protected:
    // Parallels without properties.
    virtual Acad::ErrorStatus MakeOffset(double distance, std::vector<AcDbCurve*>& curves) const;

private:
    Acad::ErrorStatus Nearest(const AcGePoint3d& given, const AcGeMatrix3d& seen, bool extend, AcGePoint3d& onCurve,
                              double& parameter) const;
};
