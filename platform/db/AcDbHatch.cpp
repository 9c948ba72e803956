#include "AcDbHatch.h"
#include "core/Fields.h"
#include "core/FlatMap.h"
#include "core/GroupListField.h"
#include "core/HatchLoop.h"
#include "core/Members.h"
#include "core/VectorList.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbHatch, AcDbEntity, 0, 0, 0, HATCH, AcDb)

namespace {

// Groups that begin with a certain one: a loop, the colours of a gradient.
template <class C>
class RunList : public GroupListField<C> {
public:
    RunList(GroupList C::*member, int first, std::initializer_list<int> codes)
        : GroupListField<C>(member, codes), m_first(first)
    {
    }
    bool Starts(int code) const override { return code == m_first; }

private:
    int m_first;
};

int64_t CountOf(const GroupList& groups, int code)
{
    int64_t count = 0;
    for (const GroupValue& group : groups)
        count += group.code == code;
    return count;
}

}   // namespace

const ClassSchema& AcDbHatch::fieldSchema()
{
    using Hatch = AcDbHatch;
    static const RunList<Hatch> loops(&Hatch::m_loops, 92, {92, 93, 72, 73, 10, 20, 42, 11, 21, 40, 50, 51,
                                                            94, 74, 95, 96, 41, 97, 12, 22, 13, 23, 330});
    static const GroupListField<Hatch> pattern(&Hatch::m_pattern, {52, 41, 77, 78, 53, 43, 44, 45, 46, 79, 49});
    static const RunList<Hatch> colors(&Hatch::m_gradientColors, 463, {463, 63, 421, 431});
    static const PointList<Hatch, AcGePoint2d> seeds(10, &Hatch::m_seeds);
    const auto self = [](const AcDbObject& o) -> const Hatch& { return static_cast<const Hatch&>(o); };
    static const ClassSchema schema(
        &AcDbEntity::fieldSchema(), "HATCH", "AcDbHatch",
        {
            Point3(10, &Hatch::m_elevation).always(),
            Vector3(210, &Hatch::m_normal).always(),
            Text(2, &Hatch::m_patternName).always(),
            Int16(70, &Hatch::m_isSolid).always(),
            Int16(71, &Hatch::m_isAssociative).always(),
            Count(91, [self](const AcDbObject& o) { return CountOf(self(o).m_loops, 92); }),
            List(&loops),
            Int16(75, &Hatch::m_style).always(),
            Int16(76, &Hatch::m_patternType, 1).always(),
            List(&pattern),
            Real(47, &Hatch::m_pixelSize),
            Count(98, [self](const AcDbObject& o) { return int64_t(self(o).m_seeds.size()); }),
            List(&seeds),
            Int32(450, &Hatch::m_isGradient).since(AcDb::kDHL_1018),
            Int32(451, &Hatch::m_gradientReserved).since(AcDb::kDHL_1018),
            Real(460, &Hatch::m_gradientAngle).since(AcDb::kDHL_1018),
            Real(461, &Hatch::m_gradientShift).since(AcDb::kDHL_1018),
            Int32(452, &Hatch::m_isOneColor).since(AcDb::kDHL_1018),
            Real(462, &Hatch::m_gradientTint).since(AcDb::kDHL_1018),
            Int32(453, &Hatch::m_gradientColorCount).since(AcDb::kDHL_1018),
            List(&colors),
            Text(470, &Hatch::m_gradientName).since(AcDb::kDHL_1018),
        });
    return schema;
}

Acad::ErrorStatus AcDbHatch::setElevation(double elevation)
{
    return Assign(*this, m_elevation.z, elevation);
}

Acad::ErrorStatus AcDbHatch::setNormal(const AcGeVector3d& normal)
{
    return normal.isZeroLength() ? Acad::eInvalidInput : Assign(*this, m_normal, normal.normal());
}

ACHAR* AcDbHatch::patternName() const
{
    return NewString(m_patternName);
}

double AcDbHatch::PatternReal(int code, double byDefault) const
{
    for (const GroupValue& group : m_pattern)
        if (group.code == code)
            return group.real();
    return byDefault;
}

double AcDbHatch::patternAngle() const
{
    return Radians(PatternReal(52, 0));
}

double AcDbHatch::patternScale() const
{
    return PatternReal(41, 1);
}

Acad::ErrorStatus AcDbHatch::setHatchStyle(HatchStyle style)
{
    return Assign(*this, m_style, style);
}

int AcDbHatch::numLoops() const
{
    return int(CountOf(m_loops, 92));
}

bool AcDbHatch::FindLoop(int index, size_t& begin, size_t& end) const
{
    int at = -1;
    for (size_t i = 0; i < m_loops.size(); ++i) {
        if (m_loops[i].code != 92)
            continue;
        ++at;
        if (at == index)
            begin = i;
        if (at == index + 1) {
            end = i;
            return index >= 0;
        }
    }
    end = m_loops.size();
    return index >= 0 && at == index;
}

Adesk::Int32 AcDbHatch::loopTypeAt(int index) const
{
    size_t begin = 0, end = 0;
    return FindLoop(index, begin, end) ? Adesk::Int32(m_loops[begin].integer()) : 0;
}

Acad::ErrorStatus AcDbHatch::getLoopAt(int index, Adesk::Int32& loopType, AcGePoint2dArray& vertices,
                                       AcGeDoubleArray& bulges) const
{
    size_t begin = 0, end = 0;
    if (!FindLoop(index, begin, end))
        return Acad::eInvalidIndex;
    loopType = Adesk::Int32(m_loops[begin].integer());
    const HatchLoop loop(m_loops, begin, end);
    vertices.setLogicalLength(0);
    bulges.setLogicalLength(0);
    for (const HatchVertex& vertex : loop.vertices()) {
        vertices.append(vertex.point);
        bulges.append(vertex.bulge);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::appendLoop(Adesk::Int32 loopType, const AcGePoint2dArray& vertices,
                                        const AcGeDoubleArray& bulges)
{
    if (vertices.length() < 2 || (!bulges.isEmpty() && bulges.length() != vertices.length()))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    bool hasBulges = false;
    for (const double bulge : bulges)
        hasBulges = hasBulges || bulge != 0;
    const auto add = [this](int code, auto value) { m_loops.push_back({int16_t(code), 0, false, value}); };
    add(92, int64_t(loopType | kPolyline));
    add(72, int64_t(hasBulges));
    add(73, int64_t(1));
    add(93, int64_t(vertices.length()));
    for (int index = 0; index < vertices.length(); ++index) {
        add(10, vertices[index].x);
        add(20, vertices[index].y);
        if (hasBulges)
            add(42, bulges[index]);
    }
    add(97, int64_t(0));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::removeLoopAt(int index)
{
    size_t begin = 0, end = 0;
    if (!FindLoop(index, begin, end))
        return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_loops.erase(m_loops.begin() + std::ptrdiff_t(begin), m_loops.begin() + std::ptrdiff_t(end));
    return status;
}

Acad::ErrorStatus AcDbHatch::getAssocObjIds(AcDbObjectIdArray& ids) const
{
    for (const GroupValue& group : m_loops)
        if (group.code == 330 && !group.id().isNull())
            ids.append(group.id());
    return Acad::eOk;
}

// Loops within loops are holes: the outermost loops count, those right within them count off, and so on.
Acad::ErrorStatus AcDbHatch::getArea(double& area) const
{
    area = 0;
    for (int index = 0; index < numLoops(); ++index) {
        size_t begin = 0, end = 0;
        FindLoop(index, begin, end);
        const HatchLoop loop(m_loops, begin, end);
        int depth = 0;
        for (int other = 0; other < numLoops(); ++other) {
            if (other == index)
                continue;
            FindLoop(other, begin, end);
            depth += HatchLoop(m_loops, begin, end).Surrounds(loop);
        }
        area += loop.Area() * (depth % 2 == 0 ? 1 : -1);
    }
    return numLoops() == 0 ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    for (int index = 0; index < numLoops(); ++index) {
        size_t begin = 0, end = 0;
        FindLoop(index, begin, end);
        for (const AcGePoint2d& point : HatchLoop(m_loops, begin, end).Outline())
            AddFlatPoint(extents, AcGePoint3d(point.x, point.y, m_elevation.z), m_normal);
    }
    return extents.isEmpty() ? Acad::eInvalidExtents : Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const FlatMap map(transform, m_normal);
    MapHatchLoops(m_loops, map, m_elevation.z);
    for (AcGePoint2d& seed : m_seeds) {
        const AcGePoint3d moved = map.Point(AcGePoint3d(seed.x, seed.y, m_elevation.z));
        seed.set(moved.x, moved.y);
    }
    MapHatchPattern(m_pattern, map);
    m_elevation.z = map.Point(m_elevation).z;
    m_normal = map.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getEcs(AcGeMatrix3d& ecs) const
{
    ecs = AcGeMatrix3d::planeToWorld(m_normal);
    return Acad::eOk;
}
