// Dimensions made from points.
#include "../../ge/EntityAxes.h"
#include "../AcDbDimension.h"
#include "../core/Members.h"

using namespace KxPlat;

void AcDbDimension::Begin(const ACHAR* text, AcDbObjectId style)
{
    m_text = text == nullptr ? L"" : text;
    m_style = style;
    m_isStale = true;
    m_measurement = Measured();
}

AcDbAlignedDimension::AcDbAlignedDimension(const AcGePoint3d& xLine1Point, const AcGePoint3d& xLine2Point,
                                           const AcGePoint3d& dimLinePoint, const ACHAR* text, AcDbObjectId style)
    : AcDbDimension(1), m_line1(xLine1Point), m_line2(xLine2Point)
{
    m_definition = dimLinePoint;
    Begin(text, style);
}

Acad::ErrorStatus AcDbAlignedDimension::setXLine1Point(const AcGePoint3d& point)
{
    return Change(m_line1, point);
}

Acad::ErrorStatus AcDbAlignedDimension::setXLine2Point(const AcGePoint3d& point)
{
    return Change(m_line2, point);
}

Acad::ErrorStatus AcDbAlignedDimension::setDimLinePoint(const AcGePoint3d& point)
{
    return Change(m_definition, point);
}

AcDbRotatedDimension::AcDbRotatedDimension(double rotation, const AcGePoint3d& xLine1Point,
                                           const AcGePoint3d& xLine2Point, const AcGePoint3d& dimLinePoint,
                                           const ACHAR* text, AcDbObjectId style)
    : AcDbDimension(0), m_line1(xLine1Point), m_line2(xLine2Point), m_angle(Degrees(rotation))
{
    m_definition = dimLinePoint;
    Begin(text, style);
}

Acad::ErrorStatus AcDbRotatedDimension::setXLine1Point(const AcGePoint3d& point)
{
    return Change(m_line1, point);
}

Acad::ErrorStatus AcDbRotatedDimension::setXLine2Point(const AcGePoint3d& point)
{
    return Change(m_line2, point);
}

Acad::ErrorStatus AcDbRotatedDimension::setDimLinePoint(const AcGePoint3d& point)
{
    return Change(m_definition, point);
}

double AcDbRotatedDimension::rotation() const
{
    return Radians(m_angle);
}

Acad::ErrorStatus AcDbRotatedDimension::setRotation(double angle)
{
    return Change(m_angle, Degrees(angle));
}

AcDbRadialDimension::AcDbRadialDimension(const AcGePoint3d& center, const AcGePoint3d& chordPoint, double leaderLength,
                                         const ACHAR* text, AcDbObjectId style)
    : AcDbDimension(4), m_chord(chordPoint), m_leaderLength(leaderLength)
{
    m_definition = center;
    Begin(text, style);
}

AcDbDiametricDimension::AcDbDiametricDimension(const AcGePoint3d& chordPoint, const AcGePoint3d& farChordPoint,
                                               double leaderLength, const ACHAR* text, AcDbObjectId style)
    : AcDbDimension(3), m_chord(chordPoint), m_leaderLength(leaderLength)
{
    m_definition = farChordPoint;
    Begin(text, style);
}

AcDb2LineAngularDimension::AcDb2LineAngularDimension(const AcGePoint3d& xLine1Start, const AcGePoint3d& xLine1End,
                                                     const AcGePoint3d& xLine2Start, const AcGePoint3d& xLine2End,
                                                     const AcGePoint3d& arcPoint, const ACHAR* text, AcDbObjectId style)
    : AcDbDimension(2),
      m_start1(xLine1Start),
      m_end1(xLine1End),
      m_start2(xLine2Start),
      m_arcPoint(WorldToEntity(arcPoint, m_normal))
{
    m_definition = xLine2End;
    Begin(text, style);
}

AcGePoint3d AcDb2LineAngularDimension::arcPoint() const
{
    return EntityToWorld(m_arcPoint, m_normal);
}

AcDb3PointAngularDimension::AcDb3PointAngularDimension(const AcGePoint3d& centerPoint, const AcGePoint3d& xLine1Point,
                                                       const AcGePoint3d& xLine2Point, const AcGePoint3d& arcPoint,
                                                       const ACHAR* text, AcDbObjectId style)
    : AcDbDimension(5), m_line1(xLine1Point), m_line2(xLine2Point), m_center(centerPoint)
{
    m_definition = arcPoint;
    Begin(text, style);
}

AcDbOrdinateDimension::AcDbOrdinateDimension(Adesk::Boolean useXAxis, const AcGePoint3d& definingPoint,
                                             const AcGePoint3d& leaderEndPoint, const ACHAR* text, AcDbObjectId style)
    : AcDbDimension(6), m_defining(definingPoint), m_leaderEnd(leaderEndPoint)
{
    if (useXAxis)
        m_type |= 64;
    Begin(text, style);
}

Acad::ErrorStatus AcDbOrdinateDimension::setOrigin(const AcGePoint3d& origin)
{
    return Change(m_definition, origin);
}
