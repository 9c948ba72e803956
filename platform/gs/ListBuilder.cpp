#include "ListBuilder.h"
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbPolyline.h"
#include "../gi/AcGiEdgeData.h"
#include "../gi/AcGiTextStyle.h"
#include "../gi/fonts/Font.h"
#include "../rx/AcRxClass.h"
#include "Scene.h"
#include <cmath>
#include <limits>
#include <numbers>

namespace KxPlat {

namespace {

constexpr double kFarthest = 1e15;   // coordinates beyond are damage
constexpr size_t kLongestText = 20000;
constexpr double kEndless = 1e9;   // half the length at which a line without end is drawn

bool IsDrawable(const AcGePoint3d& point)
{
    return std::abs(point.x) < kFarthest && std::abs(point.y) < kFarthest && std::abs(point.z) < kFarthest;
}

AcGePoint3d AsPoint(const AcGeVector3d& vector)
{
    return {vector.x, vector.y, vector.z};
}

// Directions of a plane with this normal; the first is that of angle 0.
void AxesOf(const AcGeVector3d& normal, AcGeVector3d& x, AcGeVector3d& y)
{
    AcGePoint3d origin;
    AcGeVector3d z;
    AcGeMatrix3d::planeToWorld(normal).getCoordSystem(origin, x, y, z);
}

// The normals of a surface at its vertices: the mean of those of the faces around, larger faces counting more.
std::vector<AcGeVector3d> CornerNormals(const std::vector<std::vector<uint32_t>>& faces, const AcGePoint3d* vertices,
                                        size_t count)
{
    std::vector<AcGeVector3d> normals(count);
    for (const std::vector<uint32_t>& face : faces) {
        AcGeVector3d normal;
        for (size_t at = 2; at < face.size(); ++at)
            normal += (vertices[face[at - 1]] - vertices[face[0]]).crossProduct(vertices[face[at]] - vertices[face[0]]);
        for (const uint32_t corner : face)
            normals[corner] += normal;
    }
    return normals;
}

float Below(double value)
{
    return std::nextafter(float(value), -std::numeric_limits<float>::infinity());
}

float Above(double value)
{
    return std::nextafter(float(value), std::numeric_limits<float>::infinity());
}

}   // namespace

// --- traits ----------------------------------------------------------------------------------------------------------

class ListBuilder::Traits : public AcGiSubEntityTraits {
public:
    void setColor(Adesk::UInt16 color) override
    {
        m_color = color;
        look.color = color == 0     ? kColorByBlock
                     : color == 256 ? kColorByLayer
                     : color > 256  ? kColorBackground
                                    : kColorIndexed | color;
    }
    void setRGB(Adesk::UInt32 rgb) override { look.color = rgb & 0xFFFFFF; }
    void setLayer(AcDbObjectId layer) override { look.layer = layer; }
    void setLineType(AcDbObjectId linetype) override { look.linetype = linetype; }
    void setSelectionMarker(Adesk::GsMarker) override {}
    void setFillType(AcGiFillType fill) override { m_fill = fill; }
    void setLineWeight(AcDb::LineWeight weight) override { look.lineWeight = int16_t(weight); }
    void setLineTypeScale(double scale) override { look.linetypeScale = float(scale); }
    void setThickness(double thickness) override { m_thickness = thickness; }

    Adesk::UInt16 color() const override { return m_color; }
    bool hasRGB() const override { return look.color < kColorByLayer; }
    Adesk::UInt32 rgb() const override { return hasRGB() ? look.color : 0; }
    AcDbObjectId layerId() const override { return look.layer; }
    AcDbObjectId lineTypeId() const override { return look.linetype; }
    AcGiFillType fillType() const override { return m_fill; }
    AcDb::LineWeight lineWeight() const override { return AcDb::LineWeight(look.lineWeight); }
    double lineTypeScale() const override { return look.linetypeScale; }
    double thickness() const override { return m_thickness; }

    // What an entity starts with.
    void Reset()
    {
        look = Look();
        m_color = 256;
        m_fill = kAcGiFillNever;
        m_thickness = 0;
    }

    struct State {
        Look look;
        Adesk::UInt16 color;
        AcGiFillType fill;
        double thickness;
    };
    State Save() const { return {look, m_color, m_fill, m_thickness}; }
    void Restore(const State& state)
    {
        look = state.look;
        m_color = state.color;
        m_fill = state.fill;
        m_thickness = state.thickness;
    }

    Look look;

private:
    Adesk::UInt16 m_color = 256;
    AcGiFillType m_fill = kAcGiFillNever;
    double m_thickness = 0;
};

// --- geometry --------------------------------------------------------------------------------------------------------

class ListBuilder::Geometry : public AcGiWorldGeometry {
public:
    Geometry(DisplayList& list, ListBuilder& builder) : m_list(list), m_builder(builder)
    {
        ForgetBox();
        for (uint32_t look = 0; look < list.looks.size(); ++look)
            m_looks.emplace(list.looks[look], look);
    }

    void getModelToWorldTransform(AcGeMatrix3d& transform) const override { transform = Top(); }
    void getWorldToModelTransform(AcGeMatrix3d& transform) const override { transform = Top().inverse(); }
    Adesk::Boolean pushModelTransform(const AcGeVector3d& normal) override
    {
        return pushModelTransform(AcGeMatrix3d::planeToWorld(normal));
    }
    Adesk::Boolean pushModelTransform(const AcGeMatrix3d& transform) override
    {
        m_stack.push_back(Top() * transform);
        return Adesk::kTrue;
    }
    Adesk::Boolean popModelTransform() override
    {
        if (m_stack.empty())
            return Adesk::kFalse;
        m_stack.pop_back();
        return Adesk::kTrue;
    }

    Adesk::Boolean circle(const AcGePoint3d& center, double radius, const AcGeVector3d& normal) const override
    {
        AcGeVector3d x, y;
        AxesOf(normal, x, y);
        return AddArc(center, x * radius, y * radius, 0, 2 * std::numbers::pi, normal);
    }
    Adesk::Boolean circle(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3) const override
    {
        AcGePoint3d center;
        AcGeVector3d normal;
        if (!CenterOf(p1, p2, p3, center, normal))
            return Adesk::kFalse;
        return circle(center, center.distanceTo(p1), normal);
    }
    Adesk::Boolean circularArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                               const AcGeVector3d& startVector, double sweepAngle, AcGiArcType arcType) const override
    {
        if (startVector.isZeroLength() || normal.isZeroLength())
            return Adesk::kFalse;
        const AcGeVector3d x = startVector.normal();
        AddArc(center, x * radius, normal.normal().crossProduct(x) * radius, 0, sweepAngle, normal);
        if (arcType == kAcGiArcSimple)
            return Adesk::kFalse;
        const AcGePoint3d start = center + x * radius;
        const AcGePoint3d end = center + x * (radius * std::cos(sweepAngle)) +
                                normal.normal().crossProduct(x) * (radius * std::sin(sweepAngle));
        const AcGePoint3d sector[] = {end, center, start}, chord[] = {end, start};
        return arcType == kAcGiArcSector ? polyline(3, sector) : polyline(2, chord);
    }
    Adesk::Boolean circularArc(const AcGePoint3d& start, const AcGePoint3d& point, const AcGePoint3d& end,
                               AcGiArcType arcType) const override
    {
        AcGePoint3d center;
        AcGeVector3d normal;
        if (!CenterOf(start, point, end, center, normal)) {
            const AcGePoint3d straight[] = {start, end};
            return polyline(2, straight);
        }
        const AcGeVector3d from = start - center;
        double sweep = from.angleTo(end - center, normal);
        if (from.angleTo(point - center, normal) > sweep)
            sweep -= 2 * std::numbers::pi;
        return circularArc(center, from.length(), normal, from, sweep, arcType);
    }

    Adesk::Boolean polyline(Adesk::UInt32 count, const AcGePoint3d* vertices, const AcGeVector3d* normal = nullptr,
                            Adesk::GsMarker = -1) const override
    {
        AddStrip(count, vertices, Shift(normal));
        return Adesk::kFalse;
    }
    Adesk::Boolean polygon(Adesk::UInt32 count, const AcGePoint3d* vertices) const override
    {
        if (m_builder.m_traits->fillType() == kAcGiFillAlways) {
            const uint32_t first = uint32_t(m_list.contours.size());
            if (AddContour(count, vertices))
                Push(ItemKind::Fill, first, 1);
            return Adesk::kFalse;
        }
        AddFace(count, vertices);
        std::vector<AcGePoint3d> closed(vertices, vertices + count);
        if (count > 0)
            closed.push_back(vertices[0]);
        AddStrip(uint32_t(closed.size()), closed.data(), AcGeVector3d(), ItemKind::Edge);
        return Adesk::kFalse;
    }
    Adesk::Boolean mesh(Adesk::UInt32 rows, Adesk::UInt32 columns, const AcGePoint3d* vertices, const AcGiEdgeData*,
                        const AcGiFaceData*, const AcGiVertexData*, bool) const override;
    Adesk::Boolean shell(Adesk::UInt32 vertexCount, const AcGePoint3d* vertices, Adesk::UInt32 faceListSize,
                         const Adesk::Int32* faceList, const AcGiEdgeData*, const AcGiFaceData*, const AcGiVertexData*,
                         const void*, bool) const override;
    void AddEdges(const std::vector<uint32_t>& corners, const AcGePoint3d* vertices, const Adesk::UInt8* visible) const;
    void FillShell(const std::vector<std::vector<uint32_t>>& faces, const std::vector<bool>& isHole,
                   const AcGePoint3d* vertices) const;

    Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                        double height, double width, double oblique, const ACHAR* message) const override
    {
        AcGiTextStyle style(L"txt", L"", height, width, oblique, 1, false, false, false);
        return text(position, normal, direction, message, -1, Adesk::kFalse, style);
    }
    Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                        const ACHAR* message, Adesk::Int32 length, Adesk::Boolean raw,
                        const AcGiTextStyle& style) const override;
    Adesk::Boolean xline(const AcGePoint3d& one, const AcGePoint3d& other) const override
    {
        return AddEndless(one, other, true);
    }
    Adesk::Boolean ray(const AcGePoint3d& start, const AcGePoint3d& through) const override
    {
        return AddEndless(start, through, false);
    }
    Adesk::Boolean pline(const AcDbPolyline& polyline, Adesk::UInt32, Adesk::UInt32) const override
    {
        return const_cast<AcDbPolyline&>(polyline).worldDraw(&m_builder);
    }
    Adesk::Boolean draw(AcGiDrawable* drawable) const override;
    void setExtents(AcGePoint3d* newExtents) const override
    {
        Touch(newExtents[0]);
        Touch(newExtents[1]);
    }

    void ForgetBox()
    {
        std::fill(m_min, m_min + 3, std::numeric_limits<double>::max());
        std::fill(m_max, m_max + 3, std::numeric_limits<double>::lowest());
        m_isEndless = false;
    }
    void TakeBox(EntitySpan& span) const
    {
        for (int axis = 0; axis < 3; ++axis) {
            span.min[axis] = m_isEndless ? std::numeric_limits<float>::lowest() : Below(m_min[axis]);
            span.max[axis] = m_isEndless ? std::numeric_limits<float>::max() : Above(m_max[axis]);
        }
    }

private:
    const AcGeMatrix3d& Top() const { return m_stack.empty() ? AcGeMatrix3d::kIdentity : m_stack.back(); }

    static bool CenterOf(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3, AcGePoint3d& center,
                         AcGeVector3d& normal)
    {
        const AcGeVector3d a = p2 - p1, b = p3 - p1;
        normal = a.crossProduct(b);
        const double square = normal.dotProduct(normal);
        if (!(square > 1e-30))
            return false;
        const AcGeVector3d toCenter =
            normal.crossProduct(a) * b.dotProduct(b) + b.crossProduct(normal) * a.dotProduct(a);
        center = p1 + toCenter * (0.5 / square);
        normal.normalize();
        return true;
    }

    // How far the thickness moves what is drawn.
    AcGeVector3d Shift(const AcGeVector3d* normal) const
    {
        const double thickness = m_builder.m_traits->thickness();
        return normal == nullptr || thickness == 0 ? AcGeVector3d() : *normal * thickness;
    }

    void Touch(const AcGePoint3d& point) const
    {
        const double at[] = {point.x, point.y, point.z};
        for (int axis = 0; axis < 3; ++axis) {
            m_min[axis] = std::min(m_min[axis], at[axis]);
            m_max[axis] = std::max(m_max[axis], at[axis]);
        }
    }

    void TouchBlock(const Box& box) const
    {
        for (int corner = 0; corner < 8 && !box.isEmpty(); ++corner)
            Touch(Top() * AcGePoint3d((corner & 1) != 0 ? box.max[0] : box.min[0],
                                      (corner & 2) != 0 ? box.max[1] : box.min[1],
                                      (corner & 4) != 0 ? box.max[2] : box.min[2]));
    }

    // Points in the axes of the block; false, and nothing kept, when one is damaged.
    bool AddPoints(uint32_t count, const AcGePoint3d* points, const AcGeVector3d& shift) const
    {
        const size_t before = m_list.points.size();
        for (uint32_t at = 0; at < count; ++at) {
            const AcGePoint3d point = m_stack.empty() ? points[at] + shift : Top() * (points[at] + shift);
            if (!IsDrawable(point)) {
                m_list.points.resize(before);
                m_list.Note(DrawNote::Damaged);
                return false;
            }
            m_list.points.push_back(point);
        }
        for (size_t at = before; at < m_list.points.size() && !m_isEndless; ++at)
            Touch(m_list.points[at]);
        return count > 0;
    }

    void AddStrip(uint32_t count, const AcGePoint3d* points, const AcGeVector3d& shift,
                  ItemKind kind = ItemKind::Strip) const
    {
        if (!shift.isZeroLength())
            kind = ItemKind::Edge;
        const uint32_t first = uint32_t(m_list.points.size());
        if (AddPoints(count, points, AcGeVector3d()))
            Push(kind, first, count);
        if (shift.isZeroLength())
            return;
        const uint32_t above = uint32_t(m_list.points.size());
        if (AddPoints(count, points, shift))
            Push(kind, above, count);
        for (uint32_t at = 0; at < count; ++at) {
            const AcGePoint3d upright[] = {points[at], points[at] + shift};
            AddStrip(2, upright, AcGeVector3d(), kind);
            if (at == 0)
                continue;
            const AcGePoint3d wall[] = {points[at - 1], points[at], points[at] + shift, points[at - 1] + shift};
            AddFace(4, wall);
        }
    }

    void AddFace(uint32_t count, const AcGePoint3d* points) const
    {
        const uint32_t first = uint32_t(m_list.points.size());
        if (count >= 3 && AddPoints(count, points, AcGeVector3d()))
            Push(ItemKind::Face, first, count);
    }
    // A face of a surface, by the numbers of its corners.
    void AddSmoothFace(const std::vector<uint32_t>& corners, const AcGePoint3d* vertices,
                       const std::vector<AcGeVector3d>& normals) const
    {
        std::vector<AcGePoint3d> points;
        for (const uint32_t corner : corners)
            points.push_back(vertices[corner]);
        const uint32_t first = uint32_t(m_list.points.size());
        if (points.size() < 3 || !AddPoints(uint32_t(points.size()), points.data(), AcGeVector3d()))
            return;
        for (const uint32_t corner : corners)
            m_list.points.push_back(AsPoint(m_stack.empty() ? normals[corner] : Top() * normals[corner]));
        Push(ItemKind::SmoothFace, first, uint32_t(points.size()));
    }

    bool AddContour(uint32_t count, const AcGePoint3d* points) const
    {
        const uint32_t first = uint32_t(m_list.points.size());
        if (!AddPoints(count, points, AcGeVector3d()))
            return false;
        m_list.contours.push_back({first, count});
        return true;
    }

    Adesk::Boolean AddArc(const AcGePoint3d& center, const AcGeVector3d& x, const AcGeVector3d& y, double start,
                          double sweep, const AcGeVector3d& normal) const
    {
        AddOneArc(center, x, y, start, sweep);
        const AcGeVector3d shift = Shift(&normal);
        if (!shift.isZeroLength())
            AddOneArc(center + shift, x, y, start, sweep);
        return Adesk::kFalse;
    }

    void AddOneArc(const AcGePoint3d& center, const AcGeVector3d& x, const AcGeVector3d& y, double start,
                   double sweep) const
    {
        ArcItem arc{Top() * center, x, y, start, sweep};
        if (!m_stack.empty()) {
            arc.x.transformBy(Top());
            arc.y.transformBy(Top());
        }
        if (!IsDrawable(arc.center) || !IsDrawable(AsPoint(arc.x)) || !IsDrawable(AsPoint(arc.y)) ||
            !(std::abs(sweep) <= 1e6)) {
            m_list.Note(DrawNote::Damaged);
            return;
        }
        // The box of the whole ellipse: a bound is enough.
        const AcGeVector3d reach(std::hypot(arc.x.x, arc.y.x), std::hypot(arc.x.y, arc.y.y),
                                 std::hypot(arc.x.z, arc.y.z));
        if (std::abs(sweep) > 6.28) {
            Touch(arc.center + reach);
            Touch(arc.center - reach);
        } else {
            for (int step = 0; step <= 16; ++step) {
                const double angle = start + sweep * step / 16;
                Touch(arc.center + arc.x * std::cos(angle) + arc.y * std::sin(angle));
            }
        }
        m_list.arcs.push_back(arc);
        Push(ItemKind::Arc, uint32_t(m_list.arcs.size() - 1), 1);
    }

    Adesk::Boolean AddEndless(const AcGePoint3d& one, const AcGePoint3d& other, bool bothWays) const
    {
        const AcGeVector3d way = other - one;
        if (way.isZeroLength() || !IsDrawable(one) || !IsDrawable(other))
            return Adesk::kFalse;
        const AcGeVector3d far = way.normal() * kEndless;
        const AcGePoint3d ends[] = {bothWays ? one - far : one, one + far};
        m_isEndless = true;
        AddStrip(2, ends, AcGeVector3d());
        return Adesk::kFalse;
    }

    void Push(ItemKind kind, uint32_t first, uint32_t count) const
    {
        m_list.items.push_back({kind, LookIndex(), first, count});
    }

    uint32_t LookIndex() const
    {
        const Look& look = m_builder.m_traits->look;
        if (m_lastLook < m_list.looks.size() && m_list.looks[m_lastLook].Key() == look.Key())
            return m_lastLook;
        const auto [place, isNew] = m_looks.try_emplace(look, uint32_t(m_list.looks.size()));
        if (isNew)
            m_list.looks.push_back(look);
        return m_lastLook = place->second;
    }

    DisplayList& m_list;
    ListBuilder& m_builder;
    std::vector<AcGeMatrix3d> m_stack;
    mutable std::map<Look, uint32_t> m_looks;
    mutable uint32_t m_lastLook = 0;
    mutable double m_min[3], m_max[3];
    mutable bool m_isEndless = false;
};

Adesk::Boolean ListBuilder::Geometry::mesh(Adesk::UInt32 rows, Adesk::UInt32 columns, const AcGePoint3d* vertices,
                                           const AcGiEdgeData*, const AcGiFaceData*, const AcGiVertexData*, bool) const
{
    std::vector<std::vector<uint32_t>> faces;
    for (Adesk::UInt32 row = 0; row + 1 < rows; ++row)
        for (Adesk::UInt32 column = 0; column + 1 < columns; ++column) {
            const uint32_t at = row * columns + column;
            faces.push_back({at, at + 1, at + columns + 1, at + columns});
        }
    const std::vector<AcGeVector3d> normals = CornerNormals(faces, vertices, size_t(rows) * columns);
    for (const std::vector<uint32_t>& face : faces)
        AddSmoothFace(face, vertices, normals);
    for (Adesk::UInt32 row = 0; row < rows; ++row)
        AddStrip(columns, vertices + size_t(row) * columns, AcGeVector3d(), ItemKind::Edge);
    std::vector<AcGePoint3d> line(rows);
    for (Adesk::UInt32 column = 0; column < columns; ++column) {
        for (Adesk::UInt32 row = 0; row < rows; ++row)
            line[row] = vertices[size_t(row) * columns + column];
        AddStrip(rows, line.data(), AcGeVector3d(), ItemKind::Edge);
    }
    return Adesk::kFalse;
}

Adesk::Boolean ListBuilder::Geometry::shell(Adesk::UInt32 vertexCount, const AcGePoint3d* vertices,
                                            Adesk::UInt32 faceListSize, const Adesk::Int32* faceList,
                                            const AcGiEdgeData* edges, const AcGiFaceData*, const AcGiVertexData*,
                                            const void*, bool) const
{
    std::vector<std::vector<uint32_t>> faces;
    std::vector<bool> isHole;
    for (Adesk::UInt32 at = 0; at < faceListSize;) {
        const Adesk::Int32 count = faceList[at++];
        isHole.push_back(count < 0);
        std::vector<uint32_t>& face = faces.emplace_back();
        for (Adesk::Int32 corner = 0; corner < std::abs(count) && at < faceListSize; ++corner, ++at)
            if (faceList[at] >= 0 && Adesk::UInt32(faceList[at]) < vertexCount)
                face.push_back(uint32_t(faceList[at]));
    }
    if (m_builder.m_traits->fillType() == kAcGiFillAlways) {
        FillShell(faces, isHole, vertices);
        return Adesk::kFalse;
    }
    const std::vector<AcGeVector3d> normals = CornerNormals(faces, vertices, vertexCount);
    const Adesk::UInt8* visible = edges == nullptr ? nullptr : edges->visibility();
    for (size_t at = 0; at < faces.size(); ++at) {
        if (!isHole[at])
            AddSmoothFace(faces[at], vertices, normals);
        AddEdges(faces[at], vertices, visible);
        if (visible != nullptr)
            visible += faces[at].size();
    }
    return Adesk::kFalse;
}

// The outline of a face, or those of its edges that are to be seen.
void ListBuilder::Geometry::AddEdges(const std::vector<uint32_t>& corners, const AcGePoint3d* vertices,
                                     const Adesk::UInt8* visible) const
{
    std::vector<AcGePoint3d> edge;
    for (size_t at = 0; at < corners.size(); ++at) {
        const AcGePoint3d &from = vertices[corners[at]], &to = vertices[corners[(at + 1) % corners.size()]];
        if (visible != nullptr && visible[at] != kAcGiVisible) {
            AddStrip(uint32_t(edge.size()), edge.data(), AcGeVector3d(), ItemKind::Edge);
            edge.clear();
            continue;
        }
        if (edge.empty())
            edge.push_back(from);
        edge.push_back(to);
    }
    AddStrip(uint32_t(edge.size()), edge.data(), AcGeVector3d(), ItemKind::Edge);
}

// Holes are contours of the face before them.
void ListBuilder::Geometry::FillShell(const std::vector<std::vector<uint32_t>>& faces, const std::vector<bool>& isHole,
                                      const AcGePoint3d* vertices) const
{
    std::vector<AcGePoint3d> contour;
    uint32_t first = uint32_t(m_list.contours.size());
    const auto end = [&] {
        const uint32_t count = uint32_t(m_list.contours.size()) - first;
        if (count > 0)
            Push(ItemKind::Fill, first, count);
        first = uint32_t(m_list.contours.size());
    };
    for (size_t at = 0; at < faces.size(); ++at) {
        if (!isHole[at])
            end();
        contour.clear();
        for (const uint32_t corner : faces[at])
            contour.push_back(vertices[corner]);
        AddContour(uint32_t(contour.size()), contour.data());
    }
    end();
}

Adesk::Boolean ListBuilder::Geometry::text(const AcGePoint3d& position, const AcGeVector3d& normal,
                                           const AcGeVector3d& direction, const ACHAR* message, Adesk::Int32 length,
                                           Adesk::Boolean raw, const AcGiTextStyle& style) const
{
    if (message == nullptr || direction.isZeroLength() || normal.isZeroLength())
        return Adesk::kFalse;
    TextItem item;
    CString shown;
    for (int at = 0; raw && (length < 0 || at < length) && message[at] != 0; ++at)
        shown += message[at];
    if (!raw)
        shown = ShownText(message, length);
    item.text = shown.GetString();
    if (item.text.empty())
        return Adesk::kFalse;
    if (item.text.size() > kLongestText) {
        item.text.resize(kLongestText);
        m_list.Note(DrawNote::CutText);
    }
    item.fonts = &FontsOf(style);
    item.family = style.typeface();
    const AcGeVector3d along = direction.normal();
    const AcGeVector3d up = normal.normal().crossProduct(along);
    item.origin = Top() * position;
    item.x = along * (style.textSize() * style.xScale() * (style.isBackward() ? -1 : 1));
    item.y = (up + along * std::tan(style.obliquingAngle())) * (style.textSize() * (style.isUpsideDown() ? -1 : 1));
    const AcGePoint2d size = style.extents(item.text.c_str(), false, -1, true);
    for (const double right : {0.0, size.x})
        for (const double top : {-0.3 * style.textSize(), style.isVertical() ? size.y : style.textSize()}) {
            const AcGePoint3d corner = Top() * (position + along * right + up * top);
            if (!IsDrawable(corner)) {
                m_list.Note(DrawNote::Damaged);
                return Adesk::kFalse;
            }
            Touch(corner);
        }
    if (!m_stack.empty()) {
        item.x.transformBy(Top());
        item.y.transformBy(Top());
    }
    item.tracking = style.trackingPercent();
    item.isVertical = style.isVertical();
    item.isUnderlined = style.isUnderlined();
    item.isOverlined = style.isOverlined();
    m_list.texts.push_back(std::move(item));
    Push(ItemKind::Text, uint32_t(m_list.texts.size() - 1), 1);
    return Adesk::kFalse;
}

Adesk::Boolean ListBuilder::Geometry::draw(AcGiDrawable* drawable) const
{
    if (drawable == nullptr)
        return Adesk::kFalse;
    if (const AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(drawable)) {
        const Scene& scene = m_builder.m_scene;
        if (scene.TakingDepth() >= kDeepestBlock || scene.IsTaking(block->objectId())) {
            m_list.Note(DrawNote::DeepBlocks);
            return Adesk::kFalse;
        }
        m_list.blocks.push_back({block->objectId(), Top()});
        TouchBlock(m_builder.m_scene.BoxOf(block->objectId()));
        Push(ItemKind::Block, uint32_t(m_list.blocks.size() - 1), 1);
        return Adesk::kFalse;
    }
    const Traits::State before = m_builder.m_traits->Save();
    m_builder.m_traits->Reset();
    if ((drawable->setAttributes(m_builder.m_traits.get()) & AcGiDrawable::kDrawableIsInvisible) == 0)
        drawable->worldDraw(&m_builder);
    m_builder.m_traits->Restore(before);
    return Adesk::kFalse;
}

// --- context and builder ---------------------------------------------------------------------------------------------

class ListBuilder::Context : public AcGiContext {
public:
    explicit Context(AcDbDatabase* database) : m_database(database) {}
    AcDbDatabase* database() const override { return m_database; }

private:
    AcDbDatabase* m_database;
};

ListBuilder::ListBuilder(DisplayList& list, Scene& scene)
    : m_list(list),
      m_scene(scene),
      m_traits(std::make_unique<Traits>()),
      m_geometry(std::make_unique<Geometry>(list, *this)),
      m_context(std::make_unique<Context>(&scene.database()))
{
}

ListBuilder::~ListBuilder() = default;

void ListBuilder::Add(AcGiDrawable& drawable)
{
    Finish();
    m_isOpen = true;
    m_list.entities.push_back({drawable.id(), uint32_t(m_list.items.size()), 0, {}, {}});
    m_traits->Reset();
    if ((drawable.setAttributes(m_traits.get()) & AcGiDrawable::kDrawableIsInvisible) == 0)
        drawable.worldDraw(this);
}

void ListBuilder::Finish()
{
    if (!m_isOpen)
        return;
    m_isOpen = false;
    EntitySpan& span = m_list.entities.back();
    span.itemCount = uint32_t(m_list.items.size()) - span.firstItem;
    m_geometry->TakeBox(span);
    m_geometry->ForgetBox();
}

AcGiSubEntityTraits& ListBuilder::subEntityTraits() const
{
    return *m_traits;
}

AcGiGeometry* ListBuilder::rawGeometry() const
{
    return m_geometry.get();
}

AcGiWorldGeometry& ListBuilder::geometry() const
{
    return *m_geometry;
}

AcGiContext* ListBuilder::context()
{
    return m_context.get();
}

}   // namespace KxPlat
