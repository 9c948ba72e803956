#include "AcDbViewport.h"
#include "../ge/EntityAxes.h"
#include "core/Fields.h"
#include "core/IdListField.h"
#include "core/Members.h"
#include <algorithm>

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbViewport, AcDbEntity, 0, 0, 0, VIEWPORT, AcDb)

// Files of before AC1015 keep the view in extended data.
const ClassSchema& AcDbViewport::fieldSchema()
{
    using View = AcDbViewport;
    static const IdListField<View> frozen(331, &View::m_frozenLayers);
    const auto new15 = [](Field field) {
        field.sinceVersion = AcDb::kDHL_1015;
        field.isAlways = true;
        return field;
    };
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "VIEWPORT", "AcDbViewport",
                                    {
                                        Point3(10, &View::m_center).always(),
                                        Real(40, &View::m_width).always(),
                                        Real(41, &View::m_height).always(),
                                        Int16(68, &View::m_status).always(),
                                        Int16(69, &View::m_number).always(),
                                        new15(Point2(12, &View::m_viewCenter)),
                                        new15(Point2(13, &View::m_snapBase)),
                                        new15(Point2(14, &View::m_snapSpacing)),
                                        new15(Point2(15, &View::m_gridSpacing)),
                                        new15(Vector3(16, &View::m_viewDirection)),
                                        new15(Point3(17, &View::m_viewTarget)),
                                        new15(Real(42, &View::m_lensLength, 50)),
                                        new15(Real(43, &View::m_frontClip)),
                                        new15(Real(44, &View::m_backClip)),
                                        new15(Real(45, &View::m_viewHeight)),
                                        new15(Real(50, &View::m_snapAngle)),
                                        new15(Real(51, &View::m_twistAngle)),
                                        new15(Int16(72, &View::m_circleSides)),
                                        List(&frozen).since(AcDb::kDHL_1015),
                                        new15(Int32(90, &View::m_flags)),
                                        Id(340, &View::m_clipEntity).since(AcDb::kDHL_1015),
                                        new15(Text(1, &View::m_plotStyleSheet)),
                                        new15(Int16(281, &View::m_renderMode)),
                                        new15(Int16(71, &View::m_hasUcs)),
                                        new15(Int16(74, &View::m_showsUcsIcon)),
                                        new15(Point3(110, &View::m_ucsOrigin)),
                                        new15(Vector3(111, &View::m_ucsXAxis)),
                                        new15(Vector3(112, &View::m_ucsYAxis)),
                                        Id(345, &View::m_ucs).since(AcDb::kDHL_1015),
                                        Id(346, &View::m_baseUcs).since(AcDb::kDHL_1015),
                                        new15(Int16(79, &View::m_orthoView)),
                                        new15(Real(146, &View::m_ucsElevation)),
                                        Int16(170, &View::m_shadePlot).since(AcDb::kDHL_1018),
                                    });
    return schema;
}

Acad::ErrorStatus AcDbViewport::SetFlag(int32_t bits, bool on)
{
    return AssignBits(*this, m_flags, bits, on);
}

Acad::ErrorStatus AcDbViewport::setCenterPoint(const AcGePoint3d& center)
{
    return Assign(*this, m_center, center);
}

Acad::ErrorStatus AcDbViewport::setWidth(double width)
{
    return width > 0 ? Assign(*this, m_width, width) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbViewport::setHeight(double height)
{
    return height > 0 ? Assign(*this, m_height, height) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbViewport::setViewCenter(const AcGePoint2d& center)
{
    return Assign(*this, m_viewCenter, center);
}

Acad::ErrorStatus AcDbViewport::setViewHeight(double height)
{
    return height > 0 ? Assign(*this, m_viewHeight, height) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbViewport::setViewTarget(const AcGePoint3d& target)
{
    return Assign(*this, m_viewTarget, target);
}

Acad::ErrorStatus AcDbViewport::setViewDirection(const AcGeVector3d& direction)
{
    return direction.isZeroLength() ? Acad::eInvalidInput : Assign(*this, m_viewDirection, direction);
}

double AcDbViewport::twistAngle() const
{
    return Radians(m_twistAngle);
}

bool AcDbViewport::isLayerFrozenInViewport(const AcDbObjectId& layer) const
{
    return std::find(m_frozenLayers.begin(), m_frozenLayers.end(), layer) != m_frozenLayers.end();
}

Acad::ErrorStatus AcDbViewport::getFrozenLayerList(AcDbObjectIdArray& layers) const
{
    for (const AcDbObjectId& layer : m_frozenLayers)
        layers.append(layer);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::freezeLayersInViewport(const AcDbObjectIdArray& layers)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    for (const AcDbObjectId& layer : layers)
        if (!layer.isNull() && !isLayerFrozenInViewport(layer))
            m_frozenLayers.push_back(layer);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::thawLayersInViewport(const AcDbObjectIdArray& layers)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        std::erase_if(m_frozenLayers, [&layers](const AcDbObjectId& each) { return layers.contains(each); });
    return status;
}

Acad::ErrorStatus AcDbViewport::thawAllLayersInViewport()
{
    return Assign(*this, m_frozenLayers, std::vector<AcDbObjectId>());
}

Acad::ErrorStatus AcDbViewport::getGeomExtents(AcDbExtents& extents) const
{
    const AcGeVector3d half(m_width / 2, m_height / 2, 0);
    extents = AcDbExtents();
    extents.addPoint(m_center - half);
    return extents.addPoint(m_center + half);
}

// The frame stays upright: it moves and grows, and takes no turn.
Acad::ErrorStatus AcDbViewport::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const double scale = (transform * AcGeVector3d::kXAxis).length();
    m_center.transformBy(transform);
    m_width *= scale;
    m_height *= scale;
    return Acad::eOk;
}
