// Dimensions: definition points, text and style. What is seen is an anonymous block that each dimension refers to. A
// new or changed dimension gets a new block when it is closed; one that was read keeps the block of its file.
#pragma once
#include "AcDbEntity.h"

namespace KxPlat {
class DimPicture;
class FlatMap;
}   // namespace KxPlat

class AcDbDimension : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbDimension);

    // Null while no picture of the dimension was made.
    AcDbObjectId dimBlockId() const { return m_block; }
    Acad::ErrorStatus setDimBlockId(AcDbObjectId block);
    AcGePoint3d textPosition() const;
    Acad::ErrorStatus setTextPosition(const AcGePoint3d& position);
    bool isUsingDefaultTextPosition() const { return (m_type & 128) == 0; }
    double elevation() const { return m_insertion.z; }
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    AcDbObjectId dimensionStyle() const { return m_style; }
    Acad::ErrorStatus setDimensionStyle(AcDbObjectId style);
    ACHAR* dimensionText() const;   // empty: the measurement; the caller frees it with acutDelString
    Acad::ErrorStatus setDimensionText(const ACHAR* text);
    double textRotation() const;   // radians; 0: as the style says
    Acad::ErrorStatus setTextRotation(double angle);
    double horizontalRotation() const;   // radians
    Acad::ErrorStatus useDefaultTextPosition();
    // Makes the block anew; without `forceUpdate` only where the dimension has none.
    Acad::ErrorStatus recomputeDimBlock(bool forceUpdate = true);
    // A figure as the style writes it; `dimText` (null: the dimension's own) may stand around or in place of it. The
    // caller frees the text with acutDelString.
    Acad::ErrorStatus formatMeasurement(ACHAR*& text, double value, const ACHAR* dimText = nullptr) const;
    Adesk::Int16 textAttachment() const { return m_attachment; }
    // As stored; where a file has no figure it is worked out from the points.
    Acad::ErrorStatus measurement(double& value) const;
    Acad::ErrorStatus getMeasurement(double& value) const { return measurement(value); }

    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    Acad::ErrorStatus explode(AcArray<AcRxObject*>& pieces) const override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;
    // `type`: the kind, 0 to 6, in the flags of the entity.
    explicit AcDbDimension(int16_t type = 0) : m_type(int16_t(type | 32)) {}
    virtual double Measured() const { return 0; }
    // Draws the lines, arrows and the text.
    virtual void Picture(KxPlat::DimPicture& picture) const {}
    virtual bool IsAngle() const { return false; }
    virtual const wchar_t* Sign() const { return L""; }   // before the figure of a radius or diameter
    // For constructors: the points are set.
    void Begin(const ACHAR* text, AcDbObjectId style);
    // A setter of what is seen.
    template <class T, class V>
    Acad::ErrorStatus Change(T& member, const V& value)
    {
        const Acad::ErrorStatus status = assertWriteEnabled();
        if (status != Acad::eOk)
            return status;
        member = T(value);
        m_isStale = true;
        m_measurement = Measured();
        return Acad::eOk;
    }
    Acad::ErrorStatus subClose() override;
    // The points of the kind that lie in world axes.
    virtual std::vector<AcGePoint3d*> WorldPoints() { return {}; }
    // Angles and flat points of the kind follow a map.
    virtual void MapAngles(const KxPlat::FlatMap& map) {}
    double LengthAlong(const AcGeVector3d& between, double angleInDegrees) const;

    AcDbObjectId m_block;
    AcGePoint3d m_definition;   // group 10, world axes
    AcGePoint3d m_textMiddle;   // in the axes of the normal
    AcGePoint3d m_insertion;    // in the axes of the normal
    AcGeVector3d m_normal{0, 0, 1};
    CString m_text;
    AcDbObjectId m_style;
    double m_measurement = 0;
    double m_lineSpacing = 1;
    double m_textRotation = 0;         // degrees
    double m_horizontalRotation = 0;   // degrees
    int16_t m_version = 0;
    int16_t m_type;   // kind, and 32 own block, 64 ordinate in X, 128 text placed by the user
    int16_t m_attachment = 5;
    int16_t m_lineSpacingStyle = 1;
    int16_t m_flipFirst = 0, m_flipSecond = 0, m_unused73 = 0;
    bool m_isStale = false;   // the block no longer shows what the members say

private:
    friend class KxPlat::DimPicture;
    // The block's entities where a rigid map has taken the dimension since.
    Acad::ErrorStatus MovePicture(const AcGeMatrix3d& transform);
};

class AcDbAlignedDimension : public AcDbDimension {
public:
    ACDB_DECLARE_MEMBERS(AcDbAlignedDimension);

    AcDbAlignedDimension() : AcDbDimension(1) {}
    AcDbAlignedDimension(const AcGePoint3d& xLine1Point, const AcGePoint3d& xLine2Point,
                         const AcGePoint3d& dimLinePoint, const ACHAR* text = nullptr,
                         AcDbObjectId style = AcDbObjectId());

    AcGePoint3d xLine1Point() const { return m_line1; }
    Acad::ErrorStatus setXLine1Point(const AcGePoint3d& point);
    AcGePoint3d xLine2Point() const { return m_line2; }
    Acad::ErrorStatus setXLine2Point(const AcGePoint3d& point);
    AcGePoint3d dimLinePoint() const { return m_definition; }
    Acad::ErrorStatus setDimLinePoint(const AcGePoint3d& point);

private:
    void Picture(KxPlat::DimPicture& picture) const override;
    double Measured() const override { return m_line1.distanceTo(m_line2); }
    std::vector<AcGePoint3d*> WorldPoints() override { return {&m_line1, &m_line2}; }

    AcGePoint3d m_clonePoint, m_line1, m_line2;
    double m_angle = 0, m_oblique = 0;
};

class AcDbRotatedDimension : public AcDbDimension {
public:
    ACDB_DECLARE_MEMBERS(AcDbRotatedDimension);

    AcDbRotatedDimension() : AcDbDimension(0) {}
    AcDbRotatedDimension(double rotation, const AcGePoint3d& xLine1Point, const AcGePoint3d& xLine2Point,
                         const AcGePoint3d& dimLinePoint, const ACHAR* text = nullptr,
                         AcDbObjectId style = AcDbObjectId());

    AcGePoint3d xLine1Point() const { return m_line1; }
    Acad::ErrorStatus setXLine1Point(const AcGePoint3d& point);
    AcGePoint3d xLine2Point() const { return m_line2; }
    Acad::ErrorStatus setXLine2Point(const AcGePoint3d& point);
    AcGePoint3d dimLinePoint() const { return m_definition; }
    Acad::ErrorStatus setDimLinePoint(const AcGePoint3d& point);
    double rotation() const;   // radians
    Acad::ErrorStatus setRotation(double angle);

private:
    void MapAngles(const KxPlat::FlatMap& map) override;
    void Picture(KxPlat::DimPicture& picture) const override;
    double Measured() const override { return LengthAlong(m_line2 - m_line1, m_angle); }
    std::vector<AcGePoint3d*> WorldPoints() override { return {&m_line1, &m_line2}; }

    AcGePoint3d m_clonePoint, m_line1, m_line2;
    double m_angle = 0, m_oblique = 0;   // degrees
};

class AcDbRadialDimension : public AcDbDimension {
public:
    ACDB_DECLARE_MEMBERS(AcDbRadialDimension);

    AcDbRadialDimension() : AcDbDimension(4) {}
    AcDbRadialDimension(const AcGePoint3d& center, const AcGePoint3d& chordPoint, double leaderLength,
                        const ACHAR* text = nullptr, AcDbObjectId style = AcDbObjectId());
    AcGePoint3d center() const { return m_definition; }
    AcGePoint3d chordPoint() const { return m_chord; }
    double leaderLength() const { return m_leaderLength; }

private:
    void Picture(KxPlat::DimPicture& picture) const override;
    const wchar_t* Sign() const override { return L"R"; }
    double Measured() const override { return m_definition.distanceTo(m_chord); }
    std::vector<AcGePoint3d*> WorldPoints() override { return {&m_chord}; }

    AcGePoint3d m_chord;
    double m_leaderLength = 0;
};

class AcDbDiametricDimension : public AcDbDimension {
public:
    ACDB_DECLARE_MEMBERS(AcDbDiametricDimension);

    AcDbDiametricDimension() : AcDbDimension(3) {}
    AcDbDiametricDimension(const AcGePoint3d& chordPoint, const AcGePoint3d& farChordPoint, double leaderLength,
                           const ACHAR* text = nullptr, AcDbObjectId style = AcDbObjectId());
    AcGePoint3d chordPoint() const { return m_chord; }
    AcGePoint3d farChordPoint() const { return m_definition; }
    double leaderLength() const { return m_leaderLength; }

private:
    void Picture(KxPlat::DimPicture& picture) const override;
    const wchar_t* Sign() const override { return L"\u00D8"; }
    double Measured() const override { return m_definition.distanceTo(m_chord); }
    std::vector<AcGePoint3d*> WorldPoints() override { return {&m_chord}; }

    AcGePoint3d m_chord;
    double m_leaderLength = 0;
};

class AcDb2LineAngularDimension : public AcDbDimension {
public:
    ACDB_DECLARE_MEMBERS(AcDb2LineAngularDimension);

    AcDb2LineAngularDimension() : AcDbDimension(2) {}
    AcDb2LineAngularDimension(const AcGePoint3d& xLine1Start, const AcGePoint3d& xLine1End,
                              const AcGePoint3d& xLine2Start, const AcGePoint3d& xLine2End, const AcGePoint3d& arcPoint,
                              const ACHAR* text = nullptr, AcDbObjectId style = AcDbObjectId());
    AcGePoint3d arcPoint() const;   // in world axes
    AcGePoint3d xLine1Start() const { return m_start1; }
    AcGePoint3d xLine1End() const { return m_end1; }
    AcGePoint3d xLine2Start() const { return m_start2; }
    AcGePoint3d xLine2End() const { return m_definition; }

private:
    void MapAngles(const KxPlat::FlatMap& map) override;
    void Picture(KxPlat::DimPicture& picture) const override;
    bool IsAngle() const override { return true; }
    double Measured() const override;   // radians
    std::vector<AcGePoint3d*> WorldPoints() override { return {&m_start1, &m_end1, &m_start2}; }

    AcGePoint3d m_start1, m_end1, m_start2;
    AcGePoint3d m_arcPoint;   // in the axes of the normal
};

class AcDb3PointAngularDimension : public AcDbDimension {
public:
    ACDB_DECLARE_MEMBERS(AcDb3PointAngularDimension);

    AcDb3PointAngularDimension() : AcDbDimension(5) {}
    AcDb3PointAngularDimension(const AcGePoint3d& centerPoint, const AcGePoint3d& xLine1Point,
                               const AcGePoint3d& xLine2Point, const AcGePoint3d& arcPoint, const ACHAR* text = nullptr,
                               AcDbObjectId style = AcDbObjectId());
    AcGePoint3d arcPoint() const { return m_definition; }
    AcGePoint3d xLine1Point() const { return m_line1; }
    AcGePoint3d xLine2Point() const { return m_line2; }
    AcGePoint3d centerPoint() const { return m_center; }

private:
    void Picture(KxPlat::DimPicture& picture) const override;
    bool IsAngle() const override { return true; }
    double Measured() const override;   // radians
    std::vector<AcGePoint3d*> WorldPoints() override { return {&m_line1, &m_line2, &m_center}; }

    AcGePoint3d m_line1, m_line2, m_center, m_arcPoint;
};

class AcDbOrdinateDimension : public AcDbDimension {
public:
    ACDB_DECLARE_MEMBERS(AcDbOrdinateDimension);

    AcDbOrdinateDimension() : AcDbDimension(6) {}
    AcDbOrdinateDimension(Adesk::Boolean useXAxis, const AcGePoint3d& definingPoint, const AcGePoint3d& leaderEndPoint,
                          const ACHAR* text = nullptr, AcDbObjectId style = AcDbObjectId());
    Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
    bool isUsingXAxis() const { return (m_type & 64) != 0; }
    AcGePoint3d origin() const { return m_definition; }
    AcGePoint3d definingPoint() const { return m_defining; }
    AcGePoint3d leaderEndPoint() const { return m_leaderEnd; }

private:
    void Picture(KxPlat::DimPicture& picture) const override;
    double Measured() const override;
    std::vector<AcGePoint3d*> WorldPoints() override { return {&m_defining, &m_leaderEnd}; }

    AcGePoint3d m_defining, m_leaderEnd;
};

class AcDbArcDimension : public AcDbDimension {
public:
    ACDB_DECLARE_MEMBERS(AcDbArcDimension);

    AcDbArcDimension() : AcDbDimension(5) {}
    AcGePoint3d arcPoint() const { return m_definition; }
    AcGePoint3d xLine1Point() const { return m_line1; }
    AcGePoint3d xLine2Point() const { return m_line2; }
    AcGePoint3d centerPoint() const { return m_center; }
    bool isPartial() const { return m_isPartial != 0; }
    bool hasLeader() const { return m_hasLeader != 0; }

private:
    void Picture(KxPlat::DimPicture& picture) const override;
    double Measured() const override;
    std::vector<AcGePoint3d*> WorldPoints() override { return {&m_line1, &m_line2, &m_center, &m_leader1, &m_leader2}; }

    AcGePoint3d m_line1, m_line2, m_center, m_leader1, m_leader2;
    double m_startAngle = 0, m_endAngle = 0;
    int16_t m_isPartial = 0, m_hasLeader = 0;
};

class AcDbRadialDimensionLarge : public AcDbDimension {
public:
    ACDB_DECLARE_MEMBERS(AcDbRadialDimensionLarge);

    AcDbRadialDimensionLarge() : AcDbDimension(4) {}
    AcGePoint3d center() const { return m_definition; }
    AcGePoint3d chordPoint() const { return m_chord; }
    AcGePoint3d overrideCenter() const { return m_overrideCenter; }
    AcGePoint3d jogPoint() const { return m_jog; }

private:
    void Picture(KxPlat::DimPicture& picture) const override;
    const wchar_t* Sign() const override { return L"R"; }
    double Measured() const override { return m_definition.distanceTo(m_chord); }
    std::vector<AcGePoint3d*> WorldPoints() override { return {&m_overrideCenter, &m_jog, &m_chord}; }

    AcGePoint3d m_overrideCenter, m_jog, m_chord;
    double m_jogAngle = 0;
};
