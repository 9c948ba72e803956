// The block of a dimension in the making. Everything is given in the plane of the dimension: world axes turned so that
// its normal is Z, at the height of its definition point.
#pragma once
#include "../../ge/AcGePoint2d.h"
#include "../AcDbDimension.h"
#include "../core/DimVars.h"
#include <memory>
#include <vector>

namespace KxPlat {

class DimPicture {
public:
    // Definition points go to a layer of their own, where there is one.
    DimPicture(AcDbDimension& dimension, AcDbObjectId pointLayer);

    const DimVars& vars() const { return m_vars; }
    // A world point in the plane.
    AcGePoint2d Flat(const AcGePoint3d& world) const;
    double TextWidth() const { return m_textWidth; }
    double TextHeight() const { return m_textHeight; }
    double ArrowSize() const { return m_vars.Size(DimVar::ArrowSize); }
    // The place that the user gave the text, where there is one.
    bool HasOwnPlace(AcGePoint2d& place) const;

    void Line(const AcGePoint2d& from, const AcGePoint2d& to) { AddLine(from, to, DimVar::LineColor); }
    // From a defining point to the dimension line and a little beyond.
    void Extension(const AcGePoint2d& from, const AcGePoint2d& to);
    void Arc(const AcGePoint2d& center, double radius, double startAngle, double endAngle);
    // The tip, and the direction from its tail to it.
    void Arrow(const AcGePoint2d& tip, const AcGeVector2d& direction);
    // In the middle of the text, turned by radians.
    void Text(const AcGePoint2d& middle, double angle);
    // A place that the dimension is defined by.
    void DefinitionPoint(const AcGePoint3d& world);
    // Of a text along a line: upright to read.
    static double Readable(double angle);

    // A line that the text may interrupt or stand above, with arrows at both ends: what linear and diametric
    // dimensions have. Room is judged by the distance of the ends.
    void DimensionLine(const AcGePoint2d& from, const AcGePoint2d& to);

    std::vector<std::unique_ptr<AcDbEntity>>& entities() { return m_entities; }

private:
    AcGePoint3d World(const AcGePoint2d& point) const;
    void Add(AcDbEntity* entity, DimVar color);
    void AddLine(const AcGePoint2d& from, const AcGePoint2d& to, DimVar color);
    bool AddArrowBlock(const AcGePoint2d& tip, const AcGeVector2d& direction);

    AcDbDimension& m_dimension;
    AcDbObjectId m_pointLayer;
    DimVars m_vars;
    AcGeMatrix3d m_toFlat, m_toWorld;
    double m_elevation = 0;
    CString m_text;
    double m_textWidth = 0, m_textHeight = 0;
    std::vector<std::unique_ptr<AcDbEntity>> m_entities;
};

}   // namespace KxPlat
