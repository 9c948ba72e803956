#include "../ge/EntityAxes.h"
#include "AcDbDimension.h"
#include "core/Fields.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbAlignedDimension, AcDbDimension, 0, 0, 0, DIMENSION, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbRotatedDimension, AcDbDimension, 0, 0, 0, DIMENSION, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbRadialDimension, AcDbDimension, 0, 0, 0, DIMENSION, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbDiametricDimension, AcDbDimension, 0, 0, 0, DIMENSION, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDb2LineAngularDimension, AcDbDimension, 0, 0, 0, DIMENSION, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDb3PointAngularDimension, AcDbDimension, 0, 0, 0, DIMENSION, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbOrdinateDimension, AcDbDimension, 0, 0, 0, DIMENSION, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbArcDimension, AcDbDimension, 0, 0, 0, ARC_DIMENSION, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbRadialDimensionLarge, AcDbDimension, 0, 0, 0, LARGE_RADIAL_DIMENSION, AcDb)

const ClassSchema& AcDbAlignedDimension::fieldSchema()
{
    using Dimension = AcDbAlignedDimension;
    static const ClassSchema schema(&AcDbDimension::fieldSchema(), "DIMENSION", "AcDbAlignedDimension",
                                    {
                                        Point3(12, &Dimension::m_clonePoint),
                                        Point3(13, &Dimension::m_line1).always(),
                                        Point3(14, &Dimension::m_line2).always(),
                                        Real(50, &Dimension::m_angle),
                                        Real(52, &Dimension::m_oblique),
                                    });
    return schema;
}

const ClassSchema& AcDbRotatedDimension::fieldSchema()
{
    using Dimension = AcDbRotatedDimension;
    static const ClassSchema points(&AcDbDimension::fieldSchema(), "DIMENSION", "AcDbAlignedDimension",
                                    {
                                        Point3(12, &Dimension::m_clonePoint),
                                        Point3(13, &Dimension::m_line1).always(),
                                        Point3(14, &Dimension::m_line2).always(),
                                        Real(50, &Dimension::m_angle),
                                        Real(52, &Dimension::m_oblique),
                                    });
    static const ClassSchema schema(&points, "DIMENSION", "AcDbRotatedDimension", {});
    return schema;
}

const ClassSchema& AcDbRadialDimension::fieldSchema()
{
    static const ClassSchema schema(&AcDbDimension::fieldSchema(), "DIMENSION", "AcDbRadialDimension",
                                    {
                                        Point3(15, &AcDbRadialDimension::m_chord).always(),
                                        Real(40, &AcDbRadialDimension::m_leaderLength).always(),
                                    });
    return schema;
}

const ClassSchema& AcDbDiametricDimension::fieldSchema()
{
    static const ClassSchema schema(&AcDbDimension::fieldSchema(), "DIMENSION", "AcDbDiametricDimension",
                                    {
                                        Point3(15, &AcDbDiametricDimension::m_chord).always(),
                                        Real(40, &AcDbDiametricDimension::m_leaderLength).always(),
                                    });
    return schema;
}

const ClassSchema& AcDb2LineAngularDimension::fieldSchema()
{
    using Dimension = AcDb2LineAngularDimension;
    static const ClassSchema schema(&AcDbDimension::fieldSchema(), "DIMENSION", "AcDb2LineAngularDimension",
                                    {
                                        Point3(13, &Dimension::m_start1).always(),
                                        Point3(14, &Dimension::m_end1).always(),
                                        Point3(15, &Dimension::m_start2).always(),
                                        Point3(16, &Dimension::m_arcPoint).always(),
                                    });
    return schema;
}

const ClassSchema& AcDb3PointAngularDimension::fieldSchema()
{
    using Dimension = AcDb3PointAngularDimension;
    static const ClassSchema schema(&AcDbDimension::fieldSchema(), "DIMENSION", "AcDb3PointAngularDimension",
                                    {
                                        Point3(13, &Dimension::m_line1).always(),
                                        Point3(14, &Dimension::m_line2).always(),
                                        Point3(15, &Dimension::m_center).always(),
                                        Point3(16, &Dimension::m_arcPoint),
                                    });
    return schema;
}

const ClassSchema& AcDbOrdinateDimension::fieldSchema()
{
    static const ClassSchema schema(&AcDbDimension::fieldSchema(), "DIMENSION", "AcDbOrdinateDimension",
                                    {
                                        Point3(13, &AcDbOrdinateDimension::m_defining).always(),
                                        Point3(14, &AcDbOrdinateDimension::m_leaderEnd).always(),
                                    });
    return schema;
}

const ClassSchema& AcDbArcDimension::fieldSchema()
{
    using Dimension = AcDbArcDimension;
    static const ClassSchema schema(&AcDbDimension::fieldSchema(), "ARC_DIMENSION", "AcDbArcDimension",
                                    {
                                        Point3(13, &Dimension::m_line1).always(),
                                        Point3(14, &Dimension::m_line2).always(),
                                        Point3(15, &Dimension::m_center).always(),
                                        Int16(70, &Dimension::m_isPartial).always(),
                                        Real(40, &Dimension::m_startAngle).always(),
                                        Real(41, &Dimension::m_endAngle).always(),
                                        Int16(71, &Dimension::m_hasLeader).always(),
                                        Point3(16, &Dimension::m_leader1).always(),
                                        Point3(17, &Dimension::m_leader2).always(),
                                    });
    return schema;
}

const ClassSchema& AcDbRadialDimensionLarge::fieldSchema()
{
    using Dimension = AcDbRadialDimensionLarge;
    static const ClassSchema schema(&AcDbDimension::fieldSchema(), "LARGE_RADIAL_DIMENSION", "AcDbRadialDimensionLarge",
                                    {
                                        Point3(13, &Dimension::m_overrideCenter).always(),
                                        Point3(14, &Dimension::m_jog).always(),
                                        Point3(15, &Dimension::m_chord).always(),
                                        Real(40, &Dimension::m_jogAngle).always(),
                                    });
    return schema;
}

namespace {

// The shares of u and v that make up a vector of their plane; false for parallel ones.
bool Shares(const AcGeVector3d& vector, const AcGeVector3d& u, const AcGeVector3d& v, double& ofU, double& ofV)
{
    const AcGeVector3d normal = u.crossProduct(v);
    if (normal.isZeroLength())
        return false;
    ofU = vector.crossProduct(v).dotProduct(normal) / normal.lengthSqrd();
    ofV = u.crossProduct(vector).dotProduct(normal) / normal.lengthSqrd();
    return true;
}

}   // namespace

// Of the four angles between the lines, the one that the arc lies in.
double AcDb2LineAngularDimension::Measured() const
{
    const AcGeVector3d u = m_end1 - m_start1, v = m_definition - m_start2;
    double alongU = 0, alongV = 0;
    if (!Shares(m_start2 - m_start1, u, v, alongU, alongV))
        return 0;
    const AcGePoint3d crossing = m_start1 + u * alongU;
    Shares(EntityToWorld(m_arcPoint, m_normal) - crossing, u, v, alongU, alongV);
    return (alongU < 0 ? -u : u).angleTo(alongV < 0 ? -v : v);
}

// The angle, or what is left of the full turn when the arc lies outside it.
double AcDb3PointAngularDimension::Measured() const
{
    const AcGeVector3d u = m_line1 - m_center, v = m_line2 - m_center;
    double ofU = 0, ofV = 0;
    const bool isInside = !Shares(m_definition - m_center, u, v, ofU, ofV) || (ofU >= 0 && ofV >= 0);
    return isInside ? u.angleTo(v) : 2 * kPi - u.angleTo(v);
}

double AcDbOrdinateDimension::Measured() const
{
    const AcGeVector3d apart = m_defining - m_definition;
    return std::fabs(isUsingXAxis() ? apart.x : apart.y);
}

double AcDbArcDimension::Measured() const
{
    const AcGeVector3d first = m_line1 - m_center, last = m_line2 - m_center;
    const double radius = first.length();
    return radius * (radius == 0 ? 0 : first.angleTo(last, m_normal));
}
