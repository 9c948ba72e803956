// A line of several parallel lines, as its style gives them.
#pragma once
#include "AcDbEntity.h"
#include "core/GroupValue.h"

class AcDbMline : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbMline);

    enum MlineJustification { kTop = 0, kZero = 1, kBottom = 2 };

    Acad::ErrorStatus setStyle(AcDbObjectId style);
    Acad::ErrorStatus setScale(double scale);
    Acad::ErrorStatus setJustification(MlineJustification justification);
    Acad::ErrorStatus setClosedMline(bool closed);
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Acad::ErrorStatus appendSeg(const AcGePoint3d& vertex);
    Acad::ErrorStatus removeLastSeg(AcGePoint3d& vertex);

    int numVertices() const;
    AcGePoint3d vertexAt(int index) const;   // the origin for an index that is none
    AcDbObjectId style() const { return m_style; }
    double scale() const { return m_scale; }
    MlineJustification justification() const { return MlineJustification(m_justification); }
    bool closedMline() const { return (m_flags & 2) != 0; }
    AcGeVector3d normal() const { return m_normal; }

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    bool addOutline(KxPlat::CurvePieces& pieces) const override;   // its lines and caps

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    std::vector<AcGePoint3d> Vertices() const;
    // Works directions, mitres and parameters out anew.
    void Rebuild(const std::vector<AcGePoint3d>& vertices);
    // The places of one line of the style along the vertices.
    std::vector<AcGePoint3d> ElementAt(int element) const;

    CString m_styleName;
    AcDbObjectId m_style;
    KxPlat::GroupList m_segments;   // 11 begins each vertex; 12 its direction, 13 its mitre, then the parameters
    AcGePoint3d m_start;
    AcGeVector3d m_normal{0, 0, 1};
    double m_scale = 1;
    int16_t m_justification = 0;
    int16_t m_flags = 1;
    int16_t m_elementCount = 0;
};
