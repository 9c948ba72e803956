// A leader line with an arrow, and the object that it leads to.
#pragma once
#include "AcDbCurve.h"
#include <vector>

class AcDbLeader : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDbLeader);

    int numVertices() const { return int(m_vertices.size()); }
    AcGePoint3d vertexAt(int index) const;   // the origin for an index that is none
    Acad::ErrorStatus setVertexAt(int index, const AcGePoint3d& point);
    bool appendVertex(const AcGePoint3d& point);
    void removeLastVertex();
    bool isSplined() const { return m_isSplined != 0; }
    bool hasArrowHead() const { return m_hasArrow != 0; }
    bool hasHookLine() const { return m_hasHook != 0; }
    AcDbObjectId annotationObjId() const { return m_annotation; }
    Acad::ErrorStatus attachAnnotation(AcDbObjectId annotation);
    Acad::ErrorStatus detachAnnotation();
    // Takes the kind, the place and the hook of the annotation over.
    Acad::ErrorStatus evaluateLeader();
    Acad::ErrorStatus setToSplineLeader();
    Acad::ErrorStatus setToStraightLeader();
    Acad::ErrorStatus enableArrowHead();
    Acad::ErrorStatus disableArrowHead();
    AcDbObjectId dimensionStyle() const { return m_style; }
    Acad::ErrorStatus setDimensionStyle(AcDbObjectId style);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setPlane(const AcGePlane& plane);

    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    Acad::ErrorStatus getStartParam(double& parameter) const override;
    Acad::ErrorStatus getEndParam(double& parameter) const override;
    Acad::ErrorStatus getPointAtParam(double parameter, AcGePoint3d& point) const override;
    bool addOutline(KxPlat::CurvePieces& pieces) const override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    AcDbObjectId m_style;
    AcDbObjectId m_annotation;
    std::vector<AcGePoint3d> m_vertices;
    AcGeVector3d m_normal{0, 0, 1};
    AcGeVector3d m_xDirection{1, 0, 0};
    AcGeVector3d m_blockOffset;
    AcGeVector3d m_annotationOffset;
    double m_textHeight = 0;
    double m_textWidth = 0;
    int16_t m_hasArrow = 1;
    int16_t m_isSplined = 0;
    int16_t m_annotationType = 3;   // 0 text, 1 tolerance, 2 block, 3 none
    int16_t m_hookDirection = 0;
    int16_t m_hasHook = 0;
    int16_t m_color = 0;
};
