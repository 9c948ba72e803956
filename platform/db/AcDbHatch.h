// A filled or hatched area: loops in the plane of the normal and elevation, and the pattern.
#pragma once
#include "../ge/AcGePoint3dArray.h"
#include "AcDbEntity.h"
#include "core/GroupValue.h"
#include <vector>

class AcDbHatch : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbHatch);

    enum HatchPatternType { kUserDefined = 0, kPreDefined = 1, kCustomDefined = 2 };
    enum HatchStyle { kNormal = 0, kOuter = 1, kIgnore = 2 };
    enum HatchLoopType {
        kDefault = 0,
        kExternal = 1,
        kPolyline = 2,
        kDerived = 4,
        kTextbox = 8,
        kOutermost = 0x10,
        kNotClosed = 0x20,
        kSelfIntersecting = 0x40,
        kTextIsland = 0x80
    };
    enum HatchEdgeType { kLine = 1, kCirArc = 2, kEllArc = 3, kSpline = 4 };
    enum HatchObjectType { kHatchObject = 0, kGradientObject = 1 };

    double elevation() const { return m_elevation.z; }
    Acad::ErrorStatus setElevation(double elevation);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    ACHAR* patternName() const;   // the caller frees it with acutDelString
    HatchPatternType patternType() const { return HatchPatternType(m_patternType); }
    // A predefined pattern takes its lines from the built-in table, where it is there, at the scale and angle that
    // hold then; a user-defined one makes lines of the spacing. An unknown name is kept without lines.
    Acad::ErrorStatus setPattern(HatchPatternType type, const ACHAR* name);
    // These take effect with the next setPattern or evaluateHatch.
    Acad::ErrorStatus setPatternAngle(double angle);
    Acad::ErrorStatus setPatternScale(double scale);
    Acad::ErrorStatus setPatternSpace(double space);
    Acad::ErrorStatus setPatternDouble(bool isDouble);
    double patternSpace() const { return m_patternSpace; }
    bool patternDouble() const;
    int numPatternDefinitions() const;
    Acad::ErrorStatus getPatternDefinitionAt(int index, double& angle, double& baseX, double& baseY, double& offsetX,
                                             double& offsetY, AcGeDoubleArray& dashes) const;
    // Works the lines of the pattern out. What cannot be filled (no loops, no area) answers eInvalidInput.
    Acad::ErrorStatus evaluateHatch(bool underEstimateNumLines = false);
    double patternAngle() const;   // radians
    double patternScale() const;
    bool isSolidFill() const { return m_isSolid != 0; }
    bool isGradient() const { return m_isGradient != 0; }
    bool isHatch() const { return m_isGradient == 0; }
    bool associative() const { return m_isAssociative != 0; }
    Acad::ErrorStatus setAssociative(bool isAssociative);
    HatchStyle hatchStyle() const { return HatchStyle(m_style); }
    Acad::ErrorStatus setHatchStyle(HatchStyle style);

    int numLoops() const;
    Adesk::Int32 loopTypeAt(int index) const;   // 0 for an index that is none
    // A loop of vertices and bulges. Of one that is made of edges the ends of its edges are the vertices, splines and
    // elliptic arcs becoming rows of points.
    Acad::ErrorStatus getLoopAt(int index, Adesk::Int32& loopType, AcGePoint2dArray& vertices,
                                AcGeDoubleArray& bulges) const;
    Acad::ErrorStatus appendLoop(Adesk::Int32 loopType, const AcGePoint2dArray& vertices,
                                 const AcGeDoubleArray& bulges);
    // The boundary that these curves make: closed ones each, or a chain that closes. They must lie in the hatch's
    // plane. An associative hatch remembers them and follows their changes.
    Acad::ErrorStatus appendLoop(Adesk::Int32 loopType, const AcDbObjectIdArray& ids);
    Acad::ErrorStatus insertLoopAt(int index, Adesk::Int32 loopType, const AcGePoint2dArray& vertices,
                                   const AcGeDoubleArray& bulges);
    Acad::ErrorStatus removeLoopAt(int index);
    Acad::ErrorStatus getAssocObjIds(AcDbObjectIdArray& ids) const;
    Acad::ErrorStatus getArea(double& area) const;

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    Acad::ErrorStatus getEcs(AcGeMatrix3d& ecs) const override;
    bool addOutline(KxPlat::CurvePieces& pieces) const override;   // the loops
    void modifiedGraphics(const AcDbObject* object) override;

protected:
    Acad::ErrorStatus subClose() override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    void SetPatternGroup(int code, KxPlat::GroupValue value);
    void BuildPattern();
    // The groups of a loop over the curves; empty where they make none.
    Acad::ErrorStatus LoopOfCurves(Adesk::Int32 loopType, const AcDbObjectIdArray& ids, KxPlat::GroupList& loop) const;
    double PatternReal(int code, double byDefault) const;
    // The groups of one loop within m_loops.
    bool FindLoop(int index, size_t& begin, size_t& end) const;

    AcGePoint3d m_elevation;
    AcGeVector3d m_normal{0, 0, 1};
    CString m_patternName;
    KxPlat::GroupList m_loops;     // 92 begins each loop
    KxPlat::GroupList m_pattern;   // 52 angle, 41 scale, 77 double, 78 and the lines, which begin with 53
    KxPlat::GroupList m_gradientColors;
    std::vector<AcGePoint2d> m_seeds;
    CString m_gradientName;
    double m_patternSpace = 1;   // of user-defined patterns; not in files, whose lines say it
    double m_pixelSize = 0;
    double m_gradientAngle = 0, m_gradientShift = 0, m_gradientTint = 0;
    int32_t m_isGradient = 0, m_gradientReserved = 0, m_isOneColor = 0, m_gradientColorCount = 0;
    int16_t m_isSolid = 0;
    int16_t m_isAssociative = 0;
    int16_t m_style = 0;
    int16_t m_patternType = 1;
};
