#include "ListGeometry.h"
#include "../db/AcDbPolyline.h"
#include "../gi/AcGiEdgeData.h"
#include "../gi/AcGiTextStyle.h"
#include "../rx/AcRxClass.h"
#include "Scene.h"
#include <cmath>
#include <numbers>

namespace KxPlat {

namespace {

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

}   // namespace

ListGeometry::ListGeometry(DisplayList& list, AcGiWorldDraw& draw, ListTraits& traits, Scene& scene)
    : m_list(list), m_draw(draw), m_traits(traits), m_scene(scene)
{
    ForgetBox();
    for (uint32_t look = 0; look < list.looks.size(); ++look)
        m_looks.emplace(list.looks[look], look);
}

Adesk::Boolean ListGeometry::pushModelTransform(const AcGeVector3d& normal)
{
    return pushModelTransform(AcGeMatrix3d::planeToWorld(normal));
}

Adesk::Boolean ListGeometry::pushModelTransform(const AcGeMatrix3d& transform)
{
    m_stack.push_back(Top() * transform);
    return Adesk::kTrue;
}

Adesk::Boolean ListGeometry::popModelTransform()
{
    if (m_stack.empty())
        return Adesk::kFalse;
    m_stack.pop_back();
    return Adesk::kTrue;
}

Adesk::Boolean ListGeometry::circle(const AcGePoint3d& center, double radius, const AcGeVector3d& normal) const
{
    AcGeVector3d x, y;
    AxesOf(normal, x, y);
    return AddArc(center, x * radius, y * radius, 0, 2 * std::numbers::pi, normal);
}

Adesk::Boolean ListGeometry::circle(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3) const
{
    AcGePoint3d center;
    AcGeVector3d normal;
    if (!CenterOf(p1, p2, p3, center, normal))
        return Adesk::kFalse;
    return circle(center, center.distanceTo(p1), normal);
}

Adesk::Boolean ListGeometry::circularArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                                         const AcGeVector3d& startVector, double sweepAngle, AcGiArcType arcType) const
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

Adesk::Boolean ListGeometry::circularArc(const AcGePoint3d& start, const AcGePoint3d& point, const AcGePoint3d& end,
                                         AcGiArcType arcType) const
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

Adesk::Boolean ListGeometry::polyline(Adesk::UInt32 count, const AcGePoint3d* vertices, const AcGeVector3d* normal,
                                      Adesk::GsMarker) const
{
    AddStrip(count, vertices, Shift(normal));
    return Adesk::kFalse;
}

Adesk::Boolean ListGeometry::polygon(Adesk::UInt32 count, const AcGePoint3d* vertices) const
{
    if (m_traits.fillType() == kAcGiFillAlways) {
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

Adesk::Boolean ListGeometry::text(const AcGePoint3d& position, const AcGeVector3d& normal,
                                  const AcGeVector3d& direction, double height, double width, double oblique,
                                  const ACHAR* message) const
{
    AcGiTextStyle style(L"txt", L"", height, width, oblique, 1, false, false, false);
    return text(position, normal, direction, message, -1, Adesk::kFalse, style);
}

Adesk::Boolean ListGeometry::xline(const AcGePoint3d& one, const AcGePoint3d& other) const
{
    return AddEndless(one, other, true);
}

Adesk::Boolean ListGeometry::ray(const AcGePoint3d& start, const AcGePoint3d& through) const
{
    return AddEndless(start, through, false);
}

Adesk::Boolean ListGeometry::pline(const AcDbPolyline& polyline, Adesk::UInt32, Adesk::UInt32) const
{
    return const_cast<AcDbPolyline&>(polyline).worldDraw(&m_draw);
}

void ListGeometry::setExtents(AcGePoint3d* newExtents) const
{
    Touch(newExtents[0]);
    Touch(newExtents[1]);
}

bool ListGeometry::CenterOf(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3, AcGePoint3d& center,
                            AcGeVector3d& normal)
{
    const AcGeVector3d a = p2 - p1, b = p3 - p1;
    normal = a.crossProduct(b);
    const double square = normal.dotProduct(normal);
    if (!(square > 1e-30))
        return false;
    const AcGeVector3d toCenter = normal.crossProduct(a) * b.dotProduct(b) + b.crossProduct(normal) * a.dotProduct(a);
    center = p1 + toCenter * (0.5 / square);
    normal.normalize();
    return true;
}

Adesk::Boolean ListGeometry::mesh(Adesk::UInt32 rows, Adesk::UInt32 columns, const AcGePoint3d* vertices,
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

Adesk::Boolean ListGeometry::shell(Adesk::UInt32 vertexCount, const AcGePoint3d* vertices, Adesk::UInt32 faceListSize,
                                   const Adesk::Int32* faceList, const AcGiEdgeData* edges, const AcGiFaceData*,
                                   const AcGiVertexData*, const void*, bool) const
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
    if (m_traits.fillType() == kAcGiFillAlways) {
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
void ListGeometry::AddEdges(const std::vector<uint32_t>& corners, const AcGePoint3d* vertices,
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
void ListGeometry::FillShell(const std::vector<std::vector<uint32_t>>& faces, const std::vector<bool>& isHole,
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

}   // namespace KxPlat
