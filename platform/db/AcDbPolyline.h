// A flat polyline of straight and curved segments. The vertices are points of the plane that the normal and the
// elevation give.
#pragma once
#include "../ge/AcGePoint2d.h"
#include "../ge/AcGePoint3dArray.h"
#include "AcDbCurve.h"
#include <memory>
#include <vector>

class AcGeCircArc2d;

class AcDbPolyline : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDbPolyline);

    enum SegType { kLine, kArc, kCoincident, kPoint, kEmpty };

    AcDbPolyline() = default;
    explicit AcDbPolyline(unsigned int numVertices) { m_points.reserve(numVertices); }

    unsigned int numVerts() const { return unsigned(m_points.size()); }
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge = 0.0,
                                  double startWidth = -1.0, double endWidth = -1.0, Adesk::Int32 vertexId = 0);
    // A polyline keeps two vertices: removing one of these answers eDegenerateGeometry.
    Acad::ErrorStatus removeVertexAt(unsigned int index);
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& point) const;
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint3d& point) const;   // in world axes
    Acad::ErrorStatus setPointAt(unsigned int index, const AcGePoint2d& point);
    Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
    Acad::ErrorStatus setBulgeAt(unsigned int index, double bulge);
    Acad::ErrorStatus getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
    Acad::ErrorStatus setWidthsAt(unsigned int index, double startWidth, double endWidth);
    SegType segType(unsigned int index) const;
    Acad::ErrorStatus getArcSegAt(unsigned int index, AcGeCircArc2d& arc) const;

    bool isClosed() const override { return (m_flags & 1) != 0; }
    Acad::ErrorStatus setClosed(bool closed);
    bool hasPlinegen() const { return (m_flags & 128) != 0; }
    Acad::ErrorStatus setPlinegen(bool plinegen);
    double elevation() const { return m_elevation; }
    Acad::ErrorStatus setElevation(double elevation);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    // eInvalidInput when the vertices have widths of their own.
    Acad::ErrorStatus getConstantWidth(double& width) const;
    Acad::ErrorStatus setConstantWidth(double width);
    bool hasBulges() const;
    bool hasWidth() const;
    bool isOnlyLines() const { return !hasBulges(); }
    Acad::ErrorStatus reset(bool reuse, unsigned int numVerts);

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    Acad::ErrorStatus explode(AcArray<AcRxObject*>& pieces) const override;
    Acad::ErrorStatus getEcs(AcGeMatrix3d& ecs) const override;
    Acad::ErrorStatus getStartParam(double& parameter) const override;
    Acad::ErrorStatus getEndParam(double& parameter) const override;   // the number of segments
    Acad::ErrorStatus getPointAtParam(double parameter, AcGePoint3d& point) const override;
    Acad::ErrorStatus getArea(double& area) const override;
    Acad::ErrorStatus reverseCurve() override;
    bool addOutline(KxPlat::CurvePieces& pieces) const override;
    AcDbCurve* PartBetween(double from, double to) const override;

protected:
    Acad::ErrorStatus MakeOffset(double distance, std::vector<AcDbCurve*>& curves) const override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    friend class PolylineVertices;

    // What most vertices do not have. `present` tells which groups the vertex states: 1 start width, 2 end width,
    // 4 bulge, 8 number.
    struct Extra {
        double startWidth = 0;
        double endWidth = 0;
        double bulge = 0;
        int32_t id = 0;
        uint8_t present = 0;
    };
    const Extra& ExtraAt(size_t index) const;
    Extra& MakeExtra(size_t index);
    size_t SegmentCount() const;
    AcGePoint3d World(const AcGePoint2d& point) const;

    std::vector<AcGePoint2d> m_points;
    std::unique_ptr<std::vector<Extra>> m_extras;   // as long as m_points, or not there at all
    AcGeVector3d m_normal{0, 0, 1};
    double m_elevation = 0;
    double m_thickness = 0;
    double m_constantWidth = 0;
    int16_t m_flags = 0;
};
