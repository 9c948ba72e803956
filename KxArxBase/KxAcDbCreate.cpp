// Creation members: each draws through a builder of its own and answers the id of the first entity added, or the null
// id.
#include "Finite.h"
#include "KxAcDb.h"
#include "KxAcDraw.h"
#include "Opened.h"

namespace KxArxBase {

namespace {

// Draws with a builder on the database and adds to the space (null: the current one).
template <class Draw>
AcDbObjectId Created(AcDbDatabase* db, const wchar_t* space, Draw draw)
{
    CKxAcDraw builder(db, nullptr);
    AcDbObjectIdArray ids;
    if (draw(builder) != Acad::eOk || builder.AddEntsToDb(space, &ids) != Acad::eOk || ids.isEmpty())
        return AcDbObjectId();
    return ids[0];
}

}   // namespace

AcDbObjectId CKxAcDb::Line(const AcGePoint3d& start, const AcGePoint3d& end, int color, const wchar_t* space,
                           const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space,
                   [&](CKxAcDraw& draw) { return draw.DrawLine(start, end, color, layer, linetype); });
}

AcDbObjectId CKxAcDb::PolyLine(AcGePoint2dArray points, CArray<double, double>* bulges, int color,
                               CArray<double, double>* startWidths, CArray<double, double>* endWidths, int closed,
                               const wchar_t* space, const wchar_t* layer, const wchar_t* linetype, AcDbObjectId* id,
                               const AcGeVector3d& normal, double thickness, double elevation, double* constantWidth)
{
    const AcDbObjectId created = Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawPolyLine(points, bulges, color, startWidths, endWidths, closed, layer, linetype, normal,
                                 thickness, elevation, constantWidth);
    });
    if (id != nullptr)
        *id = created;
    return created;
}

AcDbObjectId CKxAcDb::PLine(AcGePoint2dArray points, int color, int closed, const wchar_t* layer)
{
    return PolyLine(points, nullptr, color, nullptr, nullptr, closed, nullptr, layer);
}

AcDbObjectId CKxAcDb::Circle(const AcGePoint3d& center, double radius, int color, const wchar_t* space,
                             const wchar_t* layer, const wchar_t* linetype, const AcGeVector3d& normal,
                             double thickness)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawCircle(center, radius, color, layer, linetype, normal, thickness);
    });
}

AcDbObjectId CKxAcDb::Arc(const AcGePoint3d& center, double radius, double startAngle, double endAngle, int color,
                          const wchar_t* layer)
{
    return Created(GetAcDb(), nullptr,
                   [&](CKxAcDraw& draw) { return draw.DrawArc(center, radius, startAngle, endAngle, color, layer); });
}

AcDbObjectId CKxAcDb::Text(const AcGePoint3d& position, const wchar_t* text, double height, double rotation,
                           double widthFactor, const wchar_t* style, const wchar_t* space, int color,
                           const wchar_t* layer, const wchar_t* linetype, AcDb::TextHorzMode horizontal,
                           AcDb::TextVertMode vertical)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawTextW(position, text, height, rotation, widthFactor, style, color, layer, linetype, horizontal,
                              vertical);
    });
}

AcDbObjectId CKxAcDb::Point(const AcGePoint3d& position, int color, const wchar_t* space, const wchar_t* layer,
                            const wchar_t* linetype, const AcGeVector3d& normal, double thickness, double xAxisAngle)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawPoint(position, color, layer, linetype, normal, thickness, xAxisAngle);
    });
}

AcDbObjectId CKxAcDb::XLine(const AcGePoint3d& base, const AcGeVector3d& direction, int color, const wchar_t* space,
                            const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space,
                   [&](CKxAcDraw& draw) { return draw.DrawXLine(base, direction, color, layer, linetype); });
}

AcDbObjectId CKxAcDb::Ray(const AcGePoint3d& base, const AcGeVector3d& direction, int color, const wchar_t* space,
                          const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space,
                   [&](CKxAcDraw& draw) { return draw.DrawRay(base, direction, color, layer, linetype); });
}

// --- polylines with vertices of their own, meshes, faces ---

AcDbObjectId CKxAcDb::Add2dPolyline(AcGePoint3dArray points, int closed, AcDb::Poly2dType type, double startWidth,
                                    double endWidth, double elevation, int color, const wchar_t* space,
                                    const wchar_t* layer, const wchar_t* linetype, const AcGeVector3d& normal,
                                    double thickness, const AcGeDoubleArray* bulges)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.Draw2dPolyline(points, closed, startWidth, endWidth, elevation, type, color, layer, linetype,
                                   normal, thickness, bulges);
    });
}

AcDbObjectId CKxAcDb::Add3dPolyline(AcGePoint3dArray points, int closed, AcDb::Poly3dType type, int color,
                                    const wchar_t* space, const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space,
                   [&](CKxAcDraw& draw) { return draw.Draw3dPolyline(points, closed, type, color, layer, linetype); });
}

namespace {

// Hands the vertex to its polyline, or deletes it.
template <class Polyline, class Vertex>
AcDbObjectId Appended(AcDbObjectId polyline, Vertex* vertex)
{
    Opened<Polyline> owner(polyline, AcDb::kForWrite);
    AcDbObjectId id;
    if (!owner || owner->appendVertex(id, vertex) != Acad::eOk) {
        delete vertex;
        return AcDbObjectId();
    }
    vertex->close();
    return id;
}

}   // namespace

AcDbObjectId CKxAcDb::Add2dVertex(AcDbObjectId polyline, const AcGePoint3d& position, double bulge, double startWidth,
                                  double endWidth, double tangent)
{
    if (!AreFinite(position, bulge, startWidth, endWidth, tangent))
        return AcDbObjectId();
    return Appended<AcDb2dPolyline>(polyline, new AcDb2dVertex(position, bulge, startWidth, endWidth, tangent));
}

AcDbObjectId CKxAcDb::Add3dPolylineVertex(AcDbObjectId polyline, const AcGePoint3d& position)
{
    if (!IsFinite(position))
        return AcDbObjectId();
    return Appended<AcDb3dPolyline>(polyline, new AcDb3dPolylineVertex(position));
}

AcDbObjectId CKxAcDb::AddFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2,
                              const AcGePoint3d& p3, int edge0, int edge1, int edge2, int edge3, int color,
                              const wchar_t* space, const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawFace(p0, p1, p2, p3, edge0, edge1, edge2, edge3, color, layer, linetype);
    });
}

AcDbObjectId CKxAcDb::AddPolyFaceMesh(AcGePoint3dArray vertices, AcGeIntArray faces, int color, const wchar_t* space,
                                      const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space,
                   [&](CKxAcDraw& draw) { return draw.DrawPolyFaceMesh(vertices, faces, color, layer, linetype); });
}

AcDbObjectId CKxAcDb::AddPolyFaceMesh(AcGePoint3dArray vertices, double size, const AcGeVector3d* direction, int color,
                                      const wchar_t* space, const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawPolyFaceMesh(vertices, size, direction, color, layer, linetype);
    });
}

AcDbObjectId CKxAcDb::AddPolygonMesh(AcDb::PolyMeshType type, int mSize, int nSize, AcGePoint3dArray vertices,
                                     int mClosed, int nClosed, int density, int color, const wchar_t* space,
                                     const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawPolygonMesh(type, mSize, nSize, vertices, mClosed, nClosed, density, color, layer, linetype);
    });
}

AcDbObjectId CKxAcDb::AddSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2,
                               const AcGePoint3d& p3, int color, const wchar_t* space, const wchar_t* layer,
                               const wchar_t* linetype, const AcGeVector3d& normal, double thickness)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawSolid(p0, p1, p2, p3, color, layer, linetype, normal, thickness);
    });
}

AcDbObjectId CKxAcDb::AddTrace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2,
                               const AcGePoint3d& p3, int color, const wchar_t* space, const wchar_t* layer,
                               const wchar_t* linetype, const AcGeVector3d& normal, double thickness)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawTrace(p0, p1, p2, p3, color, layer, linetype, normal, thickness);
    });
}

// --- the corresponding entities ---

AcDbObjectId CKxAcDb::AddMline(AcGePoint3dArray points, AcDbObjectId style, double scale, int closed, int justification,
                               int color, const wchar_t* space, const wchar_t* layer, const wchar_t* linetype,
                               const AcGeVector3d& normal)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawMline(points, style, scale, closed, justification, color, layer, linetype, normal);
    });
}

AcDbObjectId CKxAcDb::AddMText(AcDbObjectId style, const wchar_t* contents, double height, double width,
                               const AcGePoint3d& location, const AcGeVector3d& direction,
                               AcDbMText::AttachmentPoint attachment, AcDbMText::FlowDirection flow, double spacing,
                               int color, const wchar_t* space, const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawMText(style, contents, height, width, location, direction, attachment, flow, spacing, color,
                              layer, linetype);
    });
}

AcDbObjectId CKxAcDb::AddHatch(int loopType, AcDbObjectIdArray boundary, int associative, const wchar_t* pattern,
                               AcDbHatch::HatchPatternType patternType, double angle, double scale, double spacing,
                               int isDouble, int color, const wchar_t* space, const wchar_t* layer,
                               const wchar_t* linetype, const AcGeVector3d& normal)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawHatch(loopType, boundary, associative, pattern, patternType, angle, scale, spacing, isDouble,
                              color, layer, linetype, normal);
    });
}

AcDbObjectId CKxAcDb::AddLeader(AcGePoint3dArray points, AcDbObjectId annotation, int arrow, int spline, int color,
                                const wchar_t* space, const wchar_t* layer, const wchar_t* linetype,
                                const AcGeVector3d* normal)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawLeader(points, annotation, arrow, spline, color, layer, linetype, normal);
    });
}

AcDbObjectId CKxAcDb::AddSpline(AcGePoint3dArray fitPoints, int order, int degree, double fitTolerance, int color,
                                const wchar_t* space, const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawSpline(fitPoints, order, degree, fitTolerance, color, layer, linetype);
    });
}

AcDbObjectId CKxAcDb::AddEllipse(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                                 double radiusRatio, double startAngle, double endAngle, int color,
                                 const wchar_t* space, const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawEllipse(center, normal, majorAxis, radiusRatio, startAngle, endAngle, color, layer, linetype);
    });
}

AcDbObjectId CKxAcDb::AddFcf(const wchar_t* text, const AcGePoint3d& location, const AcGeVector3d& normal,
                             const AcGeVector3d& direction, int color, const wchar_t* space, const wchar_t* layer,
                             const wchar_t* linetype)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawFcf(text, location, normal, direction, color, layer, linetype);
    });
}

AcDbObjectId CKxAcDb::AddViewport(const AcGePoint3d& center, double width, double height, int color,
                                  const wchar_t* space, const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space == nullptr ? ACDB_PAPER_SPACE : space,
                   [&](CKxAcDraw& draw) { return draw.DrawViewport(center, width, height, color, layer, linetype); });
}

AcDbObjectId CKxAcDb::AddAttributeDefinition(const AcGePoint3d& position, const wchar_t* text, const wchar_t* tag,
                                             const wchar_t* prompt, AcDbObjectId style, int color, const wchar_t* space,
                                             const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawAttributeDefinition(position, text, tag, prompt, style, color, layer, linetype);
    });
}

// --- dimensions ---

AcDbObjectId CKxAcDb::Add2LineAngularDim(const AcGePoint3d& line1Start, const AcGePoint3d& line1End,
                                         const AcGePoint3d& line2Start, const AcGePoint3d& line2End,
                                         const AcGePoint3d& arcPoint, const wchar_t* text, AcDbObjectId style,
                                         int color, const wchar_t* space, const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.Draw2LineAngularDim(line1Start, line1End, line2Start, line2End, arcPoint, text, style, color, layer,
                                        linetype);
    });
}

AcDbObjectId CKxAcDb::Add3PointAngularDim(const AcGePoint3d& center, const AcGePoint3d& line1Point,
                                          const AcGePoint3d& line2Point, const AcGePoint3d& arcPoint,
                                          const wchar_t* text, AcDbObjectId style, int color, const wchar_t* space,
                                          const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.Draw3PointAngularDim(center, line1Point, line2Point, arcPoint, text, style, color, layer, linetype);
    });
}

AcDbObjectId CKxAcDb::AddDiameTricDim(const AcGePoint3d& chordPoint, const AcGePoint3d& farChordPoint,
                                      double leaderLength, const wchar_t* text, AcDbObjectId style, int color,
                                      const wchar_t* space, const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawDiameTricDim(chordPoint, farChordPoint, leaderLength, text, style, color, layer, linetype);
    });
}

AcDbObjectId CKxAcDb::AddOrdinateDim(int useXAxis, const AcGePoint3d& definingPoint, const AcGePoint3d& leaderEnd,
                                     const wchar_t* text, AcDbObjectId style, int color, const wchar_t* space,
                                     const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawOrdinateDim(useXAxis, definingPoint, leaderEnd, text, style, color, layer, linetype);
    });
}

AcDbObjectId CKxAcDb::AddRadialDim(const AcGePoint3d& center, const AcGePoint3d& chordPoint, double leaderLength,
                                   const wchar_t* text, AcDbObjectId style, int color, const wchar_t* space,
                                   const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawRadialDim(center, chordPoint, leaderLength, text, style, color, layer, linetype);
    });
}

AcDbObjectId CKxAcDb::AddRotatedDim(double rotation, const AcGePoint3d& line1Point, const AcGePoint3d& line2Point,
                                    const AcGePoint3d& dimLinePoint, const wchar_t* text, AcDbObjectId style, int color,
                                    const wchar_t* space, const wchar_t* layer, const wchar_t* linetype)
{
    return Created(GetAcDb(), space, [&](CKxAcDraw& draw) {
        return draw.DrawRotatedDim(rotation, line1Point, line2Point, dimLinePoint, text, style, color, layer, linetype);
    });
}

}   // namespace KxArxBase
