#include "AcDbRasterImage.h"
#include "core/Fields.h"
#include "core/Members.h"
#include "core/VectorList.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbRasterImage, AcDbEntity, 0, 0, 0, IMAGE, ISM)
ACRX_DXF_DEFINE_MEMBERS(AcDbWipeout, AcDbRasterImage, 0, 0, 0, WIPEOUT, WipeOut)

std::vector<Field> AcDbRasterImage::FieldList()
{
    using Image = AcDbRasterImage;
    static const PointList<Image, AcGePoint2d> clip(14, &Image::m_clip);
    return {
        Int32(90, &Image::m_version).always(),
        Point3(10, &Image::m_origin).always(),
        Vector3(11, &Image::m_u, 0, 0, 0).always(),
        Vector3(12, &Image::m_v, 0, 0, 0).always(),
        Point2(13, &Image::m_size).always(),
        Id(340, &Image::m_definition).always(),
        Int16(70, &Image::m_display).always(),
        Int16(280, &Image::m_isClipped).always(),
        Int16(281, &Image::m_brightness).always(),
        Int16(282, &Image::m_contrast).always(),
        Int16(283, &Image::m_fade).always(),
        Id(360, &Image::m_reactor).always(),
        Int16(71, &Image::m_clipType).always(),
        Count(91, [](const AcDbObject& o) { return int64_t(static_cast<const Image&>(o).m_clip.size()); }),
        List(&clip),
        Int16(290, &Image::m_isClipInside).since(AcDb::kDHL_1024),
    };
}

const ClassSchema& AcDbRasterImage::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "IMAGE", "AcDbRasterImage", FieldList());
    return schema;
}

const ClassSchema& AcDbWipeout::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "WIPEOUT", "AcDbWipeout", FieldList());
    return schema;
}

Acad::ErrorStatus AcDbRasterImage::setImageDefId(AcDbObjectId definition)
{
    return Assign(*this, m_definition, definition);
}

void AcDbRasterImage::getOrientation(AcGePoint3d& origin, AcGeVector3d& u, AcGeVector3d& v) const
{
    origin = m_origin;
    u = m_u * m_size.x;
    v = m_v * m_size.y;
}

bool AcDbRasterImage::setOrientation(const AcGePoint3d& origin, const AcGeVector3d& u, const AcGeVector3d& v)
{
    if (m_size.x == 0 || m_size.y == 0 || assertWriteEnabled() != Acad::eOk)
        return false;
    m_origin = origin;
    m_u = u / m_size.x;
    m_v = v / m_size.y;
    return true;
}

// A rectangle is stored by two corners. Pixels are counted from the top, and their centres are whole numbers.
Acad::ErrorStatus AcDbRasterImage::getVertices(AcGePoint3dArray& vertices) const
{
    std::vector<AcGePoint2d> pixels = m_clip;
    if (m_isClipped == 0 || pixels.size() < 2)
        pixels = {{-0.5, -0.5}, {m_size.x - 0.5, m_size.y - 0.5}};
    if (pixels.size() == 2)
        pixels = {pixels[0], {pixels[1].x, pixels[0].y}, pixels[1], {pixels[0].x, pixels[1].y}};
    for (const AcGePoint2d& pixel : pixels)
        vertices.append(m_origin + m_u * (pixel.x + 0.5) + m_v * (m_size.y - 0.5 - pixel.y));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbRasterImage::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    AcGePoint3dArray vertices;
    getVertices(vertices);
    for (const AcGePoint3d& vertex : vertices)
        extents.addPoint(vertex);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbRasterImage::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_origin.transformBy(transform);
    m_u.transformBy(transform);
    m_v.transformBy(transform);
    return Acad::eOk;
}
