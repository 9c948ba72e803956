// Draws primitives with one call each, into a database or, for the graphics of a custom entity, into a draw context.
// Into a database: each entity waits in a list until AddEntsToDb appends them all to a block; what was never added is
// deleted with the builder. Into a context: each entity is drawn at once and deleted.
// Every call takes a colour index (256 ByLayer) and the names of a layer and a linetype, which may be null. A status
// other than eOk of a Draw member means that nothing was drawn, save where only a property could not be set: then the
// entity is there without it. Coordinates that are not finite are eInvalidInput.
#pragma once
#include "KxAcDb.h"

namespace KxArxBase {

// What is current for drawing, kept on the builder's stack.
class KXARX_API CKxAcDrawState {
public:
    virtual ~CKxAcDrawState();

    Adesk::UInt16 colorIndex = 256;
    AcDbObjectId layerId;
    AcDbObjectId linetypeId;
    AcDbObjectId textStyleId;
    double textSize = 0;
};

class KXARX_API CKxAcDraw {
public:
    // A draw context selects the display.
    CKxAcDraw(AcDbDatabase* db, AcGiWorldDraw* draw);
    // Copies share the entities that wait: only one of them may add or delete them.
    CKxAcDraw(const CKxAcDraw& other) = default;
    CKxAcDraw& operator=(const CKxAcDraw& other) = default;
    virtual ~CKxAcDraw();

    AcDbDatabase* GetAcDb() const { return m_db.GetAcDb(); }
    AcGiCommonDraw* GetGiDraw() const { return m_draw; }
    // Goes on in another context, which may be that of one view.
    void SetGiDraw(AcGiCommonDraw* draw) { m_draw = draw; }
    int IsGiDraw() const { return m_draw != nullptr; }
    AcArray<void*> GetEnts() const { return m_entities; }

    // 124 without a database, 151 for a pop of an empty stack.
    Acad::ErrorStatus PushDrawState();
    Acad::ErrorStatus PopDrawState();
    // Of an entity that is open for read its own colour, layer and linetype; of any other, what is current.
    Acad::ErrorStatus GetCurDrawState(const AcDbEntity* entity, CKxAcDrawState& state);
    Acad::ErrorStatus GetCurDrawState(const AcDbEntity* entity, int* color, AcDbObjectId* layer,
                                      AcDbObjectId* linetype);

    // Appends all that waits to a block (null: the current space). The status of the last one; an entity that could not
    // be appended is deleted.
    Acad::ErrorStatus AddEntsToDb(const wchar_t* block, AcDbObjectIdArray* ids = nullptr);

    // --- lines and curves ------------------------------------------------------------------------------------------
    Acad::ErrorStatus DrawLine(const AcGePoint3d& start, const AcGePoint3d& end, int color = 256,
                               const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    // An array supplies the vertex of an index only when it holds two elements more than the index: its last element is
    // never used. Vertices without one have no bulge and no width of their own. 3 without points.
    Acad::ErrorStatus DrawPolyLine(AcGePoint2dArray points, const CArray<double, double>* bulges = nullptr,
                                   int color = 256, const CArray<double, double>* startWidths = nullptr,
                                   const CArray<double, double>* endWidths = nullptr, int closed = 0,
                                   const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr,
                                   const AcGeVector3d& normal = AcGeVector3d::kZAxis, double thickness = 0,
                                   double elevation = 0, const double* constantWidth = nullptr);
    // Turned around its corner by radians.
    Acad::ErrorStatus DrawRect(const AcGePoint2d& corner, double width, double height, double rotation = 0,
                               int color = 256, const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr,
                               const AcGeVector3d& normal = AcGeVector3d::kZAxis, double thickness = 0,
                               double elevation = 0, const double* constantWidth = nullptr);
    Acad::ErrorStatus DrawCircle(const AcGePoint3d& center, double radius, int color = 256,
                                 const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr,
                                 const AcGeVector3d& normal = AcGeVector3d::kZAxis, double thickness = 0);
    Acad::ErrorStatus DrawPoint(const AcGePoint3d& position, int color = 256, const wchar_t* layer = nullptr,
                                const wchar_t* linetype = nullptr, const AcGeVector3d& normal = AcGeVector3d::kZAxis,
                                double thickness = 0, double xAxisAngle = 0);
    Acad::ErrorStatus DrawArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle,
                              int color = 256, const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr,
                              const AcGeVector3d& normal = AcGeVector3d::kZAxis, double thickness = 0);
    Acad::ErrorStatus DrawXLine(const AcGePoint3d& base, const AcGeVector3d& direction, int color = 256,
                                const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    Acad::ErrorStatus DrawRay(const AcGePoint3d& base, const AcGeVector3d& direction, int color = 256,
                              const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    Acad::ErrorStatus DrawEllipse(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                                  double radiusRatio, double startAngle, double endAngle, int color = 256,
                                  const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    // The curve passes all points; `order` is the degree and one, and where it is 0 the degree counts.
    Acad::ErrorStatus DrawSpline(AcGePoint3dArray fitPoints, int order = 4, int degree = 3, double fitTolerance = 0,
                                 int color = 256, const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    // At least two points. The style is one of the drawing's multiline styles; a null id leaves the plain way.
    Acad::ErrorStatus DrawMline(AcGePoint3dArray points, AcDbObjectId style, double scale = 1, int closed = 0,
                                int justification = AcDbMline::kTop, int color = 256, const wchar_t* layer = nullptr,
                                const wchar_t* linetype = nullptr, const AcGeVector3d& normal = AcGeVector3d::kZAxis);
    // A closed row of arcs around the box of two corners, which bulge outwards. No side has an arc longer than
    // `arcLength`, measured along its chord; the bulge is the tangent of a quarter of each arc's angle.
    Acad::ErrorStatus DrawPlRevCloud(const AcGePoint2d& corner, const AcGePoint2d& otherCorner, double arcLength,
                                     double bulge = 0.5, int color = 256, const wchar_t* layer = nullptr,
                                     const wchar_t* linetype = nullptr);

    // --- polylines with vertices of their own, meshes, faces --------------------------------------------------------
    Acad::ErrorStatus Draw2dPolyline(AcGePoint3dArray points, int closed = 0, double startWidth = 0,
                                     double endWidth = 0, double elevation = 0,
                                     AcDb::Poly2dType type = AcDb::k2dSimplePoly, int color = 256,
                                     const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr,
                                     const AcGeVector3d& normal = AcGeVector3d::kZAxis, double thickness = 0,
                                     const AcGeDoubleArray* bulges = nullptr);
    Acad::ErrorStatus Draw3dPolyline(AcGePoint3dArray points, int closed = 0,
                                     AcDb::Poly3dType type = AcDb::k3dSimplePoly, int color = 256,
                                     const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    // A block takes no vertex without its polyline: AddEntsToDb answers eWrongObjectType for these four.
    Acad::ErrorStatus Draw2dVertex(const AcGePoint3d& position, double bulge = 0, double startWidth = 0,
                                   double endWidth = 0, double tangent = 0, int color = 256,
                                   const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    Acad::ErrorStatus Draw3dPolylineVertex(const AcGePoint3d& position, int color = 256, const wchar_t* layer = nullptr,
                                           const wchar_t* linetype = nullptr);
    Acad::ErrorStatus DrawPolygonMeshVertex(const AcGePoint3d& position, int color = 256,
                                            const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    Acad::ErrorStatus DrawPolyFaceMeshVertex(const AcGePoint3d& position, int color = 256,
                                             const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    Acad::ErrorStatus DrawFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2,
                               const AcGePoint3d& p3, int edge0 = 1, int edge1 = 1, int edge2 = 1, int edge3 = 1,
                               int color = 256, const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    // Four numbers for each face, counted from 1: 0 for a missing fourth corner, negative where the edge behind a
    // corner is hidden.
    Acad::ErrorStatus DrawPolyFaceMesh(AcGePoint3dArray vertices, AcGeIntArray faces, int color = 256,
                                       const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    // The polygon of the vertices drawn out by `size` along the direction (null: the polygon's normal); with a size of
    // 0 the polygon alone. It should be convex.
    Acad::ErrorStatus DrawPolyFaceMesh(AcGePoint3dArray vertices, double size, const AcGeVector3d* direction = nullptr,
                                       int color = 256, const wchar_t* layer = nullptr,
                                       const wchar_t* linetype = nullptr);
    // Row by row; as many vertices as both sizes give. With `density` a smooth type is to have as many vertices as
    // that.
    Acad::ErrorStatus DrawPolygonMesh(AcDb::PolyMeshType type, int mSize, int nSize, AcGePoint3dArray vertices,
                                      int mClosed = 0, int nClosed = 0, int density = 0, int color = 256,
                                      const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    // The third and fourth corner stand as in the letter Z.
    Acad::ErrorStatus DrawSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2,
                                const AcGePoint3d& p3, int color = 256, const wchar_t* layer = nullptr,
                                const wchar_t* linetype = nullptr, const AcGeVector3d& normal = AcGeVector3d::kZAxis,
                                double thickness = 0);
    Acad::ErrorStatus DrawTrace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2,
                                const AcGePoint3d& p3, int color = 256, const wchar_t* layer = nullptr,
                                const wchar_t* linetype = nullptr, const AcGeVector3d& normal = AcGeVector3d::kZAxis,
                                double thickness = 0);
    // The curves bound the area: closed ones each, or in a chain. With a spacing of 0 a user-defined pattern takes 1.
    Acad::ErrorStatus DrawHatch(int loopType, AcDbObjectIdArray boundary, int associative, const wchar_t* pattern,
                                AcDbHatch::HatchPatternType patternType = AcDbHatch::kPreDefined, double angle = 0,
                                double scale = 1, double spacing = 0, int isDouble = 0, int color = 256,
                                const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr,
                                const AcGeVector3d& normal = AcGeVector3d::kZAxis);
    Acad::ErrorStatus DrawViewport(const AcGePoint3d& center, double width, double height, int color = 256,
                                   const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);

    // --- texts -----------------------------------------------------------------------------------------------------
    // With an existing style a height or width factor of 0 or less is the style's; a negative height else loses its
    // sign.
    Acad::ErrorStatus DrawTextW(const AcGePoint3d& position, const wchar_t* text, double height, double rotation = 0,
                                double widthFactor = 1, const wchar_t* style = nullptr, int color = 256,
                                const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr,
                                AcDb::TextHorzMode horizontal = AcDb::kTextLeft,
                                AcDb::TextVertMode vertical = AcDb::kTextBase);
    // `spacing` is the factor between lines, 0.25 to 4; a width of 0 breaks no lines; a null style is the current one.
    Acad::ErrorStatus DrawMText(AcDbObjectId style, const wchar_t* contents, double height, double width,
                                const AcGePoint3d& location, const AcGeVector3d& direction = AcGeVector3d::kXAxis,
                                AcDbMText::AttachmentPoint attachment = AcDbMText::kTopLeft,
                                AcDbMText::FlowDirection flow = AcDbMText::kByStyle, double spacing = 1,
                                int color = 256, const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    Acad::ErrorStatus DrawAttributeDefinition(const AcGePoint3d& position, const wchar_t* text, const wchar_t* tag,
                                              const wchar_t* prompt, AcDbObjectId style = AcDbObjectId(),
                                              int color = 256, const wchar_t* layer = nullptr,
                                              const wchar_t* linetype = nullptr);

    // --- dimensions ------------------------------------------------------------------------------------------------
    // A null or empty text shows what is measured, "<>" within a text stands for it; a null style is the current one.
    Acad::ErrorStatus Draw2LineAngularDim(const AcGePoint3d& line1Start, const AcGePoint3d& line1End,
                                          const AcGePoint3d& line2Start, const AcGePoint3d& line2End,
                                          const AcGePoint3d& arcPoint, const wchar_t* text = nullptr,
                                          AcDbObjectId style = AcDbObjectId(), int color = 256,
                                          const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    Acad::ErrorStatus Draw3PointAngularDim(const AcGePoint3d& center, const AcGePoint3d& line1Point,
                                           const AcGePoint3d& line2Point, const AcGePoint3d& arcPoint,
                                           const wchar_t* text = nullptr, AcDbObjectId style = AcDbObjectId(),
                                           int color = 256, const wchar_t* layer = nullptr,
                                           const wchar_t* linetype = nullptr);
    Acad::ErrorStatus DrawDiameTricDim(const AcGePoint3d& chordPoint, const AcGePoint3d& farChordPoint,
                                       double leaderLength, const wchar_t* text = nullptr,
                                       AcDbObjectId style = AcDbObjectId(), int color = 256,
                                       const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    Acad::ErrorStatus DrawOrdinateDim(int useXAxis, const AcGePoint3d& definingPoint, const AcGePoint3d& leaderEnd,
                                      const wchar_t* text = nullptr, AcDbObjectId style = AcDbObjectId(),
                                      int color = 256, const wchar_t* layer = nullptr,
                                      const wchar_t* linetype = nullptr);
    Acad::ErrorStatus DrawRadialDim(const AcGePoint3d& center, const AcGePoint3d& chordPoint, double leaderLength,
                                    const wchar_t* text = nullptr, AcDbObjectId style = AcDbObjectId(), int color = 256,
                                    const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    Acad::ErrorStatus DrawRotatedDim(double rotation, const AcGePoint3d& line1Point, const AcGePoint3d& line2Point,
                                     const AcGePoint3d& dimLinePoint, const wchar_t* text = nullptr,
                                     AcDbObjectId style = AcDbObjectId(), int color = 256,
                                     const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    Acad::ErrorStatus DrawAlignedDimension(const AcGePoint3d& line1Point, const AcGePoint3d& line2Point,
                                           const AcGePoint3d& dimLinePoint, const wchar_t* text = nullptr,
                                           const wchar_t* style = nullptr, int color = 256,
                                           const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    // At least two points, the arrow at the first.
    Acad::ErrorStatus DrawLeader(AcGePoint3dArray points, AcDbObjectId annotation = AcDbObjectId(), int arrow = 1,
                                 int spline = 0, int color = 256, const wchar_t* layer = nullptr,
                                 const wchar_t* linetype = nullptr, const AcGeVector3d* normal = nullptr);
    Acad::ErrorStatus DrawFcf(const wchar_t* text, const AcGePoint3d& location,
                              const AcGeVector3d& normal = AcGeVector3d::kZAxis,
                              const AcGeVector3d& direction = AcGeVector3d::kXAxis, int color = 256,
                              const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);

protected:
    // Where every call ends: sets the properties, then keeps the entity or shows it. 15 for a null entity, 45 for one
    // that is not open for write. Shown, the entity is deleted and the pointer null.
    Acad::ErrorStatus DrawEntity(AcDbEntity*& entity, int color, const wchar_t* layer, const wchar_t* linetype);

private:
    void Show(AcDbEntity& entity, int color, const wchar_t* layer, const wchar_t* linetype);
    Acad::ErrorStatus ReadDatabase(CKxAcDrawState& state);
    // Hands over a new entity to DrawEntity; 6 for null.
    Acad::ErrorStatus Finish(AcDbEntity* entity, int color, const wchar_t* layer, const wchar_t* linetype);
    Acad::ErrorStatus FinishDim(AcDbDimension* dimension, AcDbObjectId style, int color, const wchar_t* layer,
                                const wchar_t* linetype);

    AcGiCommonDraw* m_draw = nullptr;
    AcArray<void*> m_entities;
    mutable CKxAcDb m_db;
    AcArray<CKxAcDrawState> m_states;
};

}   // namespace KxArxBase
