#include "AcDbPolyline.h"
#include "../ge/AcGeCircArc2d.h"
#include "AcDbArc.h"
#include "AcDbLine.h"
#include "core/Fields.h"
#include "core/FlatMap.h"
#include "core/Members.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbPolyline, AcDbCurve, 0, 0, 0, LWPOLYLINE, AcDb)

// The groups of the vertices: 10 and 20 each, with 91, 40, 41 and 42 where a vertex has them.
class PolylineVertices : public ListField {
public:
    bool Starts(int code) const override { return code == 10; }
    bool Continues(int code) const override
    {
        return code == 10 || code == 20 || code == 40 || code == 41 || code == 42 || code == 91;
    }
    bool PutReal(AcDbObject& object, int code, double value) const override
    {
        AcDbPolyline& polyline = static_cast<AcDbPolyline&>(object);
        if (code == 10) {
            polyline.m_points.emplace_back(value, 0.0);
            if (polyline.m_extras != nullptr)
                polyline.m_extras->emplace_back();
            return true;
        }
        const size_t last = polyline.m_points.size() - 1;
        if (code == 20) {
            polyline.m_points[last].y = value;
            return true;
        }
        AcDbPolyline::Extra& extra = polyline.MakeExtra(last);
        (code == 40 ? extra.startWidth : code == 41 ? extra.endWidth : extra.bulge) = value;
        extra.present |= uint8_t(1 << (code - 40));
        return true;
    }
    void Put(AcDbObject& object, const GroupValue& group) const override
    {
        if (group.code != 91) {
            PutReal(object, group.code, group.real());
            return;
        }
        AcDbPolyline& polyline = static_cast<AcDbPolyline&>(object);
        AcDbPolyline::Extra& extra = polyline.MakeExtra(polyline.m_points.size() - 1);
        extra.id = int32_t(group.integer());
        extra.present |= 8;
    }
    void Get(const AcDbObject& object, GroupSink& sink, AcDb::AcDbDwgVersion version) const override
    {
        const AcDbPolyline& polyline = static_cast<const AcDbPolyline&>(object);
        for (size_t index = 0; index < polyline.m_points.size(); ++index) {
            sink.Real(10, polyline.m_points[index].x);
            sink.Real(20, polyline.m_points[index].y);
            const AcDbPolyline::Extra& extra = polyline.ExtraAt(index);
            if ((extra.present & 1) != 0)
                sink.Real(40, extra.startWidth);
            if ((extra.present & 2) != 0)
                sink.Real(41, extra.endWidth);
            if ((extra.present & 4) != 0)
                sink.Real(42, extra.bulge);
            if ((extra.present & 8) != 0 && version >= AcDb::kDHL_1024)
                sink.Integer(91, extra.id);
        }
    }
    void Copy(AcDbObject& to, const AcDbObject& from) const override
    {
        const AcDbPolyline& source = static_cast<const AcDbPolyline&>(from);
        AcDbPolyline& target = static_cast<AcDbPolyline&>(to);
        target.m_points = source.m_points;
        target.m_extras.reset(source.m_extras == nullptr ? nullptr : new auto(*source.m_extras));
    }
    bool IsEmpty(const AcDbObject& object) const override
    {
        return static_cast<const AcDbPolyline&>(object).m_points.empty();
    }
    void Clear(AcDbObject& object) const override
    {
        static_cast<AcDbPolyline&>(object).m_points.clear();
        static_cast<AcDbPolyline&>(object).m_extras.reset();
    }
};

const ClassSchema& AcDbPolyline::fieldSchema()
{
    static const PolylineVertices vertices;
    static const ClassSchema schema(
        &AcDbCurve::fieldSchema(), "LWPOLYLINE", "AcDbPolyline",
        {
            Count(90, [](const AcDbObject& o) { return static_cast<const AcDbPolyline&>(o).numVerts(); }),
            Int16(70, &AcDbPolyline::m_flags).always(),
            Real(43, &AcDbPolyline::m_constantWidth),
            Real(38, &AcDbPolyline::m_elevation),
            Real(39, &AcDbPolyline::m_thickness),
            List(&vertices),
            Vector3(210, &AcDbPolyline::m_normal),
        });
    return schema;
}

const AcDbPolyline::Extra& AcDbPolyline::ExtraAt(size_t index) const
{
    static const Extra none;
    return m_extras == nullptr ? none : (*m_extras)[index];
}

AcDbPolyline::Extra& AcDbPolyline::MakeExtra(size_t index)
{
    if (m_extras == nullptr)
        m_extras = std::make_unique<std::vector<Extra>>(m_points.size());
    return (*m_extras)[index];
}

size_t AcDbPolyline::SegmentCount() const
{
    if (m_points.size() < 2)
        return 0;
    return isClosed() ? m_points.size() : m_points.size() - 1;
}

AcGePoint3d AcDbPolyline::World(const AcGePoint2d& point) const
{
    return EntityToWorld(AcGePoint3d(point.x, point.y, m_elevation), m_normal);
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge,
                                            double startWidth, double endWidth, Adesk::Int32 vertexId)
{
    if (index > m_points.size())
        return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_points.insert(m_points.begin() + index, point);
    if (m_extras != nullptr)
        m_extras->insert(m_extras->begin() + index, Extra());
    if (bulge != 0)
        setBulgeAt(index, bulge);
    if (startWidth >= 0 || endWidth >= 0)
        setWidthsAt(index, std::max(startWidth, 0.0), std::max(endWidth, 0.0));
    if (vertexId != 0) {
        MakeExtra(index).id = vertexId;
        MakeExtra(index).present |= 8;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned int index)
{
    if (index >= m_points.size())
        return Acad::eInvalidIndex;
    if (m_points.size() <= 2)
        return Acad::eDegenerateGeometry;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_points.erase(m_points.begin() + index);
    if (m_extras != nullptr)
        m_extras->erase(m_extras->begin() + index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& point) const
{
    if (index >= m_points.size())
        return Acad::eInvalidIndex;
    point = m_points[index];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& point) const
{
    if (index >= m_points.size())
        return Acad::eInvalidIndex;
    point = World(m_points[index]);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& point)
{
    return index >= m_points.size() ? Acad::eInvalidIndex : Assign(*this, m_points[index], point);
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const
{
    if (index >= m_points.size())
        return Acad::eInvalidIndex;
    bulge = ExtraAt(index).bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned int index, double bulge)
{
    if (index >= m_points.size())
        return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    Extra& extra = MakeExtra(index);
    extra.bulge = bulge;
    extra.present |= 4;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const
{
    if (index >= m_points.size())
        return Acad::eInvalidIndex;
    const Extra& extra = ExtraAt(index);
    startWidth = (extra.present & 1) != 0 ? extra.startWidth : m_constantWidth;
    endWidth = (extra.present & 2) != 0 ? extra.endWidth : m_constantWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setWidthsAt(unsigned int index, double startWidth, double endWidth)
{
    if (index >= m_points.size())
        return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    Extra& extra = MakeExtra(index);
    extra.startWidth = startWidth;
    extra.endWidth = endWidth;
    extra.present |= 3;
    return Acad::eOk;
}

AcDbPolyline::SegType AcDbPolyline::segType(unsigned int index) const
{
    if (index >= SegmentCount())
        return m_points.size() == 1 && index == 0 ? kPoint : kEmpty;
    if (m_points[index].isEqualTo(m_points[(index + 1) % m_points.size()]))
        return kCoincident;
    return ExtraAt(index).bulge != 0 ? kArc : kLine;
}

Acad::ErrorStatus AcDbPolyline::getArcSegAt(unsigned int index, AcGeCircArc2d& arc) const
{
    if (segType(index) != kArc)
        return Acad::eInvalidInput;
    arc = AcGeCircArc2d(m_points[index], m_points[(index + 1) % m_points.size()], ExtraAt(index).bulge);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setClosed(bool closed)
{
    return AssignBits(*this, m_flags, 1, closed);
}

Acad::ErrorStatus AcDbPolyline::setPlinegen(bool plinegen)
{
    return AssignBits(*this, m_flags, 128, plinegen);
}

Acad::ErrorStatus AcDbPolyline::setElevation(double elevation)
{
    return Assign(*this, m_elevation, elevation);
}

Acad::ErrorStatus AcDbPolyline::setThickness(double thickness)
{
    return Assign(*this, m_thickness, thickness);
}

Acad::ErrorStatus AcDbPolyline::setNormal(const AcGeVector3d& normal)
{
    return normal.isZeroLength() ? Acad::eInvalidInput : Assign(*this, m_normal, normal.normal());
}

Acad::ErrorStatus AcDbPolyline::getConstantWidth(double& width) const
{
    for (size_t index = 0; index < m_points.size(); ++index)
        if ((ExtraAt(index).present & 3) != 0 &&
            (ExtraAt(index).startWidth != m_constantWidth || ExtraAt(index).endWidth != m_constantWidth))
            return Acad::eInvalidInput;
    width = m_constantWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setConstantWidth(double width)
{
    if (!(width >= 0))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = Assign(*this, m_constantWidth, width);
    if (status == Acad::eOk && m_extras != nullptr)
        for (Extra& extra : *m_extras)
            extra.present &= uint8_t(~3);
    return status;
}

bool AcDbPolyline::hasBulges() const
{
    for (size_t index = 0; index < m_points.size(); ++index)
        if (ExtraAt(index).bulge != 0)
            return true;
    return false;
}

bool AcDbPolyline::hasWidth() const
{
    double width = 0;
    return getConstantWidth(width) != Acad::eOk || width != 0;
}

Acad::ErrorStatus AcDbPolyline::reset(bool reuse, unsigned int numVerts)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_points.resize(reuse ? std::min<size_t>(numVerts, m_points.size()) : 0);
    if (m_extras != nullptr)
        m_extras->resize(m_points.size());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    for (const AcGePoint2d& point : m_points)
        AddFlatPoint(extents, AcGePoint3d(point.x, point.y, m_elevation), m_normal, m_thickness);
    AcGeCircArc2d arc;
    for (unsigned index = 0; index < SegmentCount(); ++index) {
        if (getArcSegAt(index, arc) != Acad::eOk)
            continue;
        const double start = arc.isClockWise() ? arc.endAng() : arc.startAng();
        const double end = arc.isClockWise() ? arc.startAng() : arc.endAng();
        AcGeCircArc3d curve(World(arc.center()), m_normal, m_normal.perpVector(), arc.radius(), start, end);
        AddArc(extents, curve);
        AddArc(extents, AcGeCircArc3d(curve.center() + m_normal * m_thickness, m_normal, curve.refVec(), curve.radius(),
                                      start, end));
    }
    return m_points.empty() ? Acad::eInvalidExtents : Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const FlatMap map(transform, m_normal);
    double elevation = map.Point(AcGePoint3d(0, 0, m_elevation)).z;
    for (AcGePoint2d& point : m_points) {
        const AcGePoint3d moved = map.Point(AcGePoint3d(point.x, point.y, m_elevation));
        point.set(moved.x, moved.y);
    }
    if (m_extras != nullptr)
        for (Extra& extra : *m_extras) {
            extra.startWidth *= map.Scale();
            extra.endWidth *= map.Scale();
            extra.bulge *= map.isMirrored() ? -1 : 1;
        }
    m_constantWidth *= map.Scale();
    m_thickness = map.Thickness(m_thickness);
    m_elevation = elevation;
    m_normal = map.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::explode(AcArray<AcRxObject*>& pieces) const
{
    for (unsigned index = 0; index < SegmentCount(); ++index) {
        AcDbCurve* piece = nullptr;
        AcGeCircArc2d arc;
        if (getArcSegAt(index, arc) == Acad::eOk) {
            const double start = arc.isClockWise() ? arc.endAng() : arc.startAng();
            const double end = arc.isClockWise() ? arc.startAng() : arc.endAng();
            piece = new AcDbArc(World(arc.center()), m_normal, arc.radius(), start, end);
        } else {
            piece = new AcDbLine(World(m_points[index]), World(m_points[(index + 1) % m_points.size()]));
        }
        piece->setPropertiesFrom(this);
        pieces.append(piece);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getEcs(AcGeMatrix3d& ecs) const
{
    ecs = AcGeMatrix3d::planeToWorld(m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getStartParam(double& parameter) const
{
    parameter = 0;
    return m_points.empty() ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getEndParam(double& parameter) const
{
    parameter = double(SegmentCount());
    return m_points.empty() ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAtParam(double parameter, AcGePoint3d& point) const
{
    const double count = double(SegmentCount());
    if (m_points.empty() || !(parameter >= 0 && parameter <= count))
        return Acad::eInvalidInput;
    const size_t index = std::min(size_t(parameter), m_points.size() - 1);
    const double share = parameter - double(index);
    const AcGePoint2d& start = m_points[index];
    const AcGePoint2d& end = m_points[(index + 1) % m_points.size()];
    AcGeCircArc2d arc;
    if (share == 0) {
        point = World(start);
    } else if (getArcSegAt(unsigned(index), arc) == Acad::eOk) {
        const double turn = 4 * std::atan(ExtraAt(index).bulge) * share;
        point = World(AcGePoint2d(start).rotateBy(turn, arc.center()));
    } else {
        point = World(start + (end - start) * share);
    }
    return Acad::eOk;
}

// An open polyline counts as closed by a straight line.
Acad::ErrorStatus AcDbPolyline::getArea(double& area) const
{
    double sum = 0;
    for (size_t index = 0; index < m_points.size(); ++index) {
        const AcGeVector2d from = m_points[index] - m_points[0];
        const AcGeVector2d to = m_points[(index + 1) % m_points.size()] - m_points[0];
        sum += (from.x * to.y - from.y * to.x) / 2;
        const double angle = 4 * std::atan(ExtraAt(index).bulge);
        AcGeCircArc2d arc;
        if (getArcSegAt(unsigned(index), arc) == Acad::eOk)
            sum += arc.radius() * arc.radius() * (angle - std::sin(angle)) / 2;
    }
    area = std::fabs(sum);
    return m_points.empty() ? Acad::eDegenerateGeometry : Acad::eOk;
}
