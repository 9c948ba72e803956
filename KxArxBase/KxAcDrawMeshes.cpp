// Polylines with vertices of their own, meshes, faces and areas.
#include "Finite.h"
#include "KxAcDraw.h"
#include <memory>
#include <new>

namespace KxArxBase {

Acad::ErrorStatus CKxAcDraw::Draw2dPolyline(AcGePoint3dArray points, int closed, double startWidth, double endWidth,
                                            double elevation, AcDb::Poly2dType type, int color, const wchar_t* layer,
                                            const wchar_t* linetype, const AcGeVector3d& normal, double thickness,
                                            const AcGeDoubleArray* bulges)
{
    if (points.isEmpty() || !AreFinite(points, startWidth, endWidth, elevation, normal, thickness) ||
        normal.isZeroLength() || (bulges != nullptr && !IsFinite(*bulges)))
        return Acad::eInvalidInput;
    auto* polyline =
        new (std::nothrow) AcDb2dPolyline(type, points, elevation, closed != 0, startWidth, endWidth, bulges);
    if (polyline == nullptr)
        return Acad::eOutOfMemory;
    polyline->setNormal(normal);
    polyline->setThickness(thickness);
    return Finish(polyline, color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::Draw3dPolyline(AcGePoint3dArray points, int closed, AcDb::Poly3dType type, int color,
                                            const wchar_t* layer, const wchar_t* linetype)
{
    if (points.isEmpty() || !IsFinite(points))
        return Acad::eInvalidInput;
    return Finish(new (std::nothrow) AcDb3dPolyline(type, points, closed != 0), color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::Draw2dVertex(const AcGePoint3d& position, double bulge, double startWidth, double endWidth,
                                          double tangent, int color, const wchar_t* layer, const wchar_t* linetype)
{
    if (!AreFinite(position, bulge, startWidth, endWidth, tangent))
        return Acad::eInvalidInput;
    return Finish(new (std::nothrow) AcDb2dVertex(position, bulge, startWidth, endWidth, tangent), color, layer,
                  linetype);
}

Acad::ErrorStatus CKxAcDraw::Draw3dPolylineVertex(const AcGePoint3d& position, int color, const wchar_t* layer,
                                                  const wchar_t* linetype)
{
    if (!IsFinite(position))
        return Acad::eInvalidInput;
    return Finish(new (std::nothrow) AcDb3dPolylineVertex(position), color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawPolygonMeshVertex(const AcGePoint3d& position, int color, const wchar_t* layer,
                                                   const wchar_t* linetype)
{
    if (!IsFinite(position))
        return Acad::eInvalidInput;
    return Finish(new (std::nothrow) AcDbPolygonMeshVertex(position), color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawPolyFaceMeshVertex(const AcGePoint3d& position, int color, const wchar_t* layer,
                                                    const wchar_t* linetype)
{
    if (!IsFinite(position))
        return Acad::eInvalidInput;
    return Finish(new (std::nothrow) AcDbPolyFaceMeshVertex(position), color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2,
                                      const AcGePoint3d& p3, int edge0, int edge1, int edge2, int edge3, int color,
                                      const wchar_t* layer, const wchar_t* linetype)
{
    if (!AreFinite(p0, p1, p2, p3))
        return Acad::eInvalidInput;
    return Finish(new (std::nothrow) AcDbFace(p0, p1, p2, p3, edge0 != 0, edge1 != 0, edge2 != 0, edge3 != 0), color,
                  layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawPolyFaceMesh(AcGePoint3dArray vertices, AcGeIntArray faces, int color,
                                              const wchar_t* layer, const wchar_t* linetype)
{
    const int kMostVertices = 32767;
    if (vertices.length() < 3 || vertices.length() > kMostVertices || !IsFinite(vertices) || faces.isEmpty() ||
        faces.length() % 4 != 0 || faces.length() / 4 > kMostVertices)
        return Acad::eInvalidInput;
    for (int i = 0; i < faces.length(); ++i) {
        const int corner = faces[i] < 0 ? -faces[i] : faces[i];
        if (corner > vertices.length() || (corner == 0 && i % 4 != 3))
            return Acad::eInvalidInput;
    }
    auto* mesh = new (std::nothrow) AcDbPolyFaceMesh;
    if (mesh == nullptr)
        return Acad::eOutOfMemory;
    for (const AcGePoint3d& vertex : vertices)
        mesh->appendVertex(new AcDbPolyFaceMeshVertex(vertex));
    for (int i = 0; i < faces.length(); i += 4)
        mesh->appendFaceRecord(new AcDbFaceRecord(Adesk::Int16(faces[i]), Adesk::Int16(faces[i + 1]),
                                                  Adesk::Int16(faces[i + 2]), Adesk::Int16(faces[i + 3])));
    return Finish(mesh, color, layer, linetype);
}

namespace {

// The normal of a polygon by its area, which needs no three good corners.
AcGeVector3d NormalOf(const AcGePoint3dArray& polygon)
{
    AcGeVector3d sum;
    for (int i = 1; i + 1 < polygon.length(); ++i)
        sum += (polygon[i] - polygon[0]).crossProduct(polygon[i + 1] - polygon[0]);
    return sum.normal();
}

// Triangles from the first corner on; only the polygon's own edges show.
void AddFan(AcGeIntArray& faces, int first, int count, bool isTurned)
{
    for (int i = 1; i + 1 < count; ++i) {
        const int a = first + 1, b = first + i + 1, c = first + i + 2;
        const bool hidesFirst = i > 1, hidesLast = i + 2 < count;
        if (isTurned) {
            for (const int corner : {hidesLast ? -a : a, c, hidesFirst ? -b : b, 0})
                faces.append(corner);
        } else {
            for (const int corner : {hidesFirst ? -a : a, b, hidesLast ? -c : c, 0})
                faces.append(corner);
        }
    }
}

}   // namespace

Acad::ErrorStatus CKxAcDraw::DrawPolyFaceMesh(AcGePoint3dArray vertices, double size, const AcGeVector3d* direction,
                                              int color, const wchar_t* layer, const wchar_t* linetype)
{
    const int count = vertices.length();
    if (count < 3 || !AreFinite(vertices, size) || (direction != nullptr && !IsFinite(*direction)))
        return Acad::eInvalidInput;
    const AcGeVector3d along = direction == nullptr ? NormalOf(vertices) : direction->normal();
    if (along.isZeroLength())
        return Acad::eInvalidInput;
    AcGeIntArray faces;
    AddFan(faces, 0, count, size != 0);
    if (size != 0) {
        for (int i = 0; i < count; ++i)
            vertices.append(vertices[i] + along * size);
        AddFan(faces, count, count, false);
        for (int i = 0; i < count; ++i) {
            const int next = (i + 1) % count;
            for (const int corner : {i + 1, next + 1, count + next + 1, count + i + 1})
                faces.append(corner);
        }
    }
    return DrawPolyFaceMesh(vertices, faces, color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawPolygonMesh(AcDb::PolyMeshType type, int mSize, int nSize, AcGePoint3dArray vertices,
                                             int mClosed, int nClosed, int density, int color, const wchar_t* layer,
                                             const wchar_t* linetype)
{
    const int kMostRows = 256;
    if (mSize < 2 || nSize < 2 || mSize > kMostRows || nSize > kMostRows || vertices.length() != mSize * nSize ||
        !IsFinite(vertices))
        return Acad::eInvalidInput;
    auto* mesh = new (std::nothrow)
        AcDbPolygonMesh(type, Adesk::Int16(mSize), Adesk::Int16(nSize), vertices, mClosed != 0, nClosed != 0);
    if (mesh != nullptr && density != 0) {
        mesh->setMSurfaceDensity(Adesk::Int16(density));
        mesh->setNSurfaceDensity(Adesk::Int16(density));
    }
    return Finish(mesh, color, layer, linetype);
}

namespace {

// The corners are kept in the axes of the normal, which therefore goes first.
template <class Area>
Area* Filled(const AcGePoint3d corners[4], const AcGeVector3d& normal, double thickness)
{
    auto* area = new (std::nothrow) Area;
    if (area == nullptr)
        return nullptr;
    area->setNormal(normal);
    for (Adesk::UInt16 i = 0; i < 4; ++i)
        area->setPointAt(i, corners[i]);
    area->setThickness(thickness);
    return area;
}

}   // namespace

Acad::ErrorStatus CKxAcDraw::DrawSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2,
                                       const AcGePoint3d& p3, int color, const wchar_t* layer, const wchar_t* linetype,
                                       const AcGeVector3d& normal, double thickness)
{
    if (!AreFinite(p0, p1, p2, p3, normal, thickness) || normal.isZeroLength())
        return Acad::eInvalidInput;
    const AcGePoint3d corners[] = {p0, p1, p2, p3};
    return Finish(Filled<AcDbSolid>(corners, normal, thickness), color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawTrace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2,
                                       const AcGePoint3d& p3, int color, const wchar_t* layer, const wchar_t* linetype,
                                       const AcGeVector3d& normal, double thickness)
{
    if (!AreFinite(p0, p1, p2, p3, normal, thickness) || normal.isZeroLength())
        return Acad::eInvalidInput;
    const AcGePoint3d corners[] = {p0, p1, p2, p3};
    return Finish(Filled<AcDbTrace>(corners, normal, thickness), color, layer, linetype);
}

namespace {

// How high above the origin the boundary lies along a normal.
double ElevationOf(const AcDbObjectIdArray& boundary, const AcGeVector3d& normal)
{
    for (const AcDbObjectId& id : boundary) {
        AcDbCurve* curve = nullptr;
        if (acdbOpenObject(curve, id, AcDb::kForRead) != Acad::eOk)
            continue;
        AcGePoint3d start;
        const Acad::ErrorStatus es = curve->getStartPoint(start);
        curve->close();
        if (es == Acad::eOk)
            return start.asVector().dotProduct(normal.normal());
    }
    return 0;
}

}   // namespace

Acad::ErrorStatus CKxAcDraw::DrawHatch(int loopType, AcDbObjectIdArray boundary, int associative,
                                       const wchar_t* pattern, AcDbHatch::HatchPatternType patternType, double angle,
                                       double scale, double spacing, int isDouble, int color, const wchar_t* layer,
                                       const wchar_t* linetype, const AcGeVector3d& normal)
{
    if (!AreFinite(angle, scale, spacing, normal) || normal.isZeroLength())
        return Acad::eInvalidInput;
    std::unique_ptr<AcDbHatch> hatch(new (std::nothrow) AcDbHatch);
    if (hatch == nullptr)
        return Acad::eOutOfMemory;
    hatch->setNormal(normal);
    hatch->setElevation(ElevationOf(boundary, normal));
    hatch->setAssociative(associative != 0);
    hatch->setPatternAngle(angle);
    if (spacing > 0)
        hatch->setPatternSpace(spacing);
    hatch->setPatternDouble(isDouble != 0);
    Acad::ErrorStatus es = hatch->setPatternScale(scale);
    if (es == Acad::eOk)
        es = hatch->setPattern(patternType, pattern);
    if (es == Acad::eOk)
        es = hatch->appendLoop(loopType, boundary);
    if (es == Acad::eOk)
        es = hatch->evaluateHatch();
    return es != Acad::eOk ? es : Finish(hatch.release(), color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawViewport(const AcGePoint3d& center, double width, double height, int color,
                                          const wchar_t* layer, const wchar_t* linetype)
{
    if (!AreFinite(center, width, height) || !(width > 0) || !(height > 0))
        return Acad::eInvalidInput;
    auto* viewport = new (std::nothrow) AcDbViewport;
    if (viewport == nullptr)
        return Acad::eOutOfMemory;
    viewport->setCenterPoint(center);
    viewport->setWidth(width);
    viewport->setHeight(height);
    viewport->setViewHeight(height);
    return Finish(viewport, color, layer, linetype);
}

}   // namespace KxArxBase
