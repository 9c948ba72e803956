// One-stop helper over a drawing database: made on the stack, bound to a database once, then asked for whole jobs.
// Every member opens what it needs and closes it before it returns. Statuses of the host pass through unchanged; where
// the first step of a job fails it is tried again for the user's error line and once more for the caller.
// An argument `closeIt` hands the object over: closed on success, deleted on failure.
// Output ids may be null pointers; they are cleared first and set on success.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase {

class KXARX_API CKxAcDb {
public:
    CKxAcDb();
    CKxAcDb(AcDbDatabase* db, int follow);
    CKxAcDb(const CKxAcDb& other) = default;
    CKxAcDb& operator=(const CKxAcDb& other) = default;
    virtual ~CKxAcDb();

    // Follows the working database from call to call, or stays on `db`, or (null) on the working database of this
    // moment.
    void IniKxAcDb(AcDbDatabase* db, int follow);
    AcDbDatabase* GetAcDb() const;
    // The previous value.
    long SetAcDbMod(long value);

    // --- symbol tables ---------------------------------------------------------------------------------------------
    // `cls` describes a table class or the class of its records. A new record, where asked for, is the caller's.
    Acad::ErrorStatus OpenSymbolTable(AcRxClass* cls, AcDbSymbolTable*& table, AcDb::OpenMode mode, int newRecord = 0,
                                      AcDbSymbolTableRecord** record = nullptr);
    // A null name stands for the current space and is for blocks only.
    Acad::ErrorStatus OpenRecWithEntyName(const wchar_t* name, AcRxClass* cls, AcDbSymbolTableRecord*& record,
                                          AcDb::OpenMode mode, int createIfMissing = 0, int* created = nullptr);
    Acad::ErrorStatus AddRecToSymbolTab(AcDbSymbolTableRecord* record, int closeIt);
    Acad::ErrorStatus RenameSymbolTableRec(const wchar_t* oldName, AcRxClass* cls, const wchar_t* newName);
    Acad::ErrorStatus GetRecWithEntyName(const wchar_t* name, AcRxClass* cls, AcDbObjectId& id);
    bool IsHasSymbolTabRec(AcRxClass* cls, const wchar_t* name);
    // Looks a record up without a word to the user; false where there is none.
    bool FindRec(const wchar_t* name, AcRxClass* cls, AcDbObjectId& id);
    bool IsHasLayer(const wchar_t* name);
    // The caller deletes the iterator. A null block name stands for the current space.
    Acad::ErrorStatus NewIterator(AcRxClass* cls, AcDbSymbolTableIterator*& it);
    Acad::ErrorStatus NewIterator(const wchar_t* blockName, AcDbBlockTableRecordIterator*& it);
    // In table order; `names` is emptied first.
    Acad::ErrorStatus GetRecsName(AcRxClass* cls, CStringArray& names);

    // --- named object dictionary -----------------------------------------------------------------------------------
    Acad::ErrorStatus NODOpenObject(const wchar_t* key, AcDbObject*& obj, AcDb::OpenMode mode);
    Acad::ErrorStatus NODAddObject(const wchar_t* key, AcDbObject*& obj, AcDbObjectId* id, int closeIt);
    Acad::ErrorStatus NODRemoveObject(const wchar_t* key);
    // Bytes under a key; without `overwrite` an existing key is left alone. `length` fits in 31 bits.
    Acad::ErrorStatus NODAddData(const wchar_t* key, void* data, long length, int overwrite);
    // The caller frees the bytes with free.
    Acad::ErrorStatus NODReadData(const wchar_t* key, void*& data, long& length);

    // --- entities and objects --------------------------------------------------------------------------------------
    // A null space is the current one.
    Acad::ErrorStatus AddEntToSpace(AcDbEntity* ent, int closeIt, const wchar_t* space = nullptr,
                                    AcDbObjectId* id = nullptr);
    Acad::ErrorStatus BlockRef(const wchar_t* block, const AcGePoint3d& position, AcGeScale3d scale, double rotation,
                               int color, const wchar_t* space, const wchar_t* layer, const wchar_t* linetype,
                               AcDbObjectId* id = nullptr);
    // Copies the entities of a block of a drawing file in as a block `newName` (null: the same name).
    Acad::ErrorStatus InsertBlockFromFile(const wchar_t* file, const wchar_t* block, const wchar_t* newName);
    Acad::ErrorStatus EraseObject(const AcDbObjectId& id, int purge);
    // The status of the last erasing that failed.
    Acad::ErrorStatus EraseObjects(const AcDbObjectIdArray& ids, int purge);
    // With a list: keeps the ids that nothing refers to, erases nothing. Null: purges the whole database.
    Acad::ErrorStatus PurgeObjects(AcDbObjectIdArray* ids);
    Acad::ErrorStatus Group(const wchar_t* name, const AcDbObjectIdArray& ids, AcDbObjectId* groupId);
    // Null pointers leave their property alone.
    Acad::ErrorStatus SetEntityProperty(AcDbEntity* ent, const int* color, const wchar_t* layer,
                                        const wchar_t* linetype, const bool* visible = nullptr);
    // Entities that cannot be opened are passed over; the status of the last failure.
    Acad::ErrorStatus SetEntitysProperty(const AcDbObjectIdArray& ids, const int* color, const wchar_t* layer,
                                         const wchar_t* linetype, const bool* visible);
    // Entities of one block, or (null) of all blocks and layouts but those of xrefs; with a class, only its entities.
    Acad::ErrorStatus BlockTableGetEntityIds(AcDbObjectIdArray& ids, const wchar_t* block = nullptr,
                                             AcRxClass* cls = nullptr);
    // Entities of a space (null: the current one) that are not among `picked`; with a class, only its entities. Leaves
    // out, where asked to, entities on locked layers, invisible ones, and those on layers that are off or frozen.
    Acad::ErrorStatus GetDifferenceSetIds(const AcDbObjectIdArray& picked, AcDbObjectIdArray& others, AcRxClass* cls,
                                          bool skipLocked, bool skipInvisible, bool skipHiddenLayers,
                                          const wchar_t* space);

    // --- creation --------------------------------------------------------------------------------------------------
    // Each entity is drawn by a CKxAcDraw of its own, whose members say what the arguments mean, and added to a space
    // (null: the current one). The id of the first entity added, or the null id when drawing or adding failed.
    AcDbObjectId Line(const AcGePoint3d& start, const AcGePoint3d& end, int color = 256, const wchar_t* space = nullptr,
                      const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    // An array supplies the vertex of an index only when it holds two elements more than the index.
    AcDbObjectId PolyLine(AcGePoint2dArray points, CArray<double, double>* bulges = nullptr, int color = 256,
                          CArray<double, double>* startWidths = nullptr, CArray<double, double>* endWidths = nullptr,
                          int closed = 0, const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                          const wchar_t* linetype = nullptr, AcDbObjectId* id = nullptr,
                          const AcGeVector3d& normal = AcGeVector3d::kZAxis, double thickness = 0, double elevation = 0,
                          double* constantWidth = nullptr);
    // Into the current space, plain.
    AcDbObjectId PLine(AcGePoint2dArray points, int color = 256, int closed = 0, const wchar_t* layer = nullptr);
    AcDbObjectId Circle(const AcGePoint3d& center, double radius, int color = 256, const wchar_t* space = nullptr,
                        const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr,
                        const AcGeVector3d& normal = AcGeVector3d::kZAxis, double thickness = 0);
    // Into the current space.
    AcDbObjectId Arc(const AcGePoint3d& center, double radius, double startAngle, double endAngle, int color = 256,
                     const wchar_t* layer = nullptr);
    AcDbObjectId Text(const AcGePoint3d& position, const wchar_t* text, double height, double rotation = 0,
                      double widthFactor = 1, const wchar_t* style = nullptr, const wchar_t* space = nullptr,
                      int color = 256, const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr,
                      AcDb::TextHorzMode horizontal = AcDb::kTextLeft, AcDb::TextVertMode vertical = AcDb::kTextBase);
    AcDbObjectId Point(const AcGePoint3d& position, int color = 256, const wchar_t* space = nullptr,
                       const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr,
                       const AcGeVector3d& normal = AcGeVector3d::kZAxis, double thickness = 0, double xAxisAngle = 0);
    AcDbObjectId XLine(const AcGePoint3d& base, const AcGeVector3d& direction, int color = 256,
                       const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                       const wchar_t* linetype = nullptr);
    AcDbObjectId Ray(const AcGePoint3d& base, const AcGeVector3d& direction, int color = 256,
                     const wchar_t* space = nullptr, const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);
    AcDbObjectId Add2dPolyline(AcGePoint3dArray points, int closed = 0, AcDb::Poly2dType type = AcDb::k2dSimplePoly,
                               double startWidth = 0, double endWidth = 0, double elevation = 0, int color = 256,
                               const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                               const wchar_t* linetype = nullptr, const AcGeVector3d& normal = AcGeVector3d::kZAxis,
                               double thickness = 0, const AcGeDoubleArray* bulges = nullptr);
    AcDbObjectId Add3dPolyline(AcGePoint3dArray points, int closed = 0, AcDb::Poly3dType type = AcDb::k3dSimplePoly,
                               int color = 256, const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                               const wchar_t* linetype = nullptr);
    // Appended to a polyline of the drawing.
    AcDbObjectId Add2dVertex(AcDbObjectId polyline, const AcGePoint3d& position, double bulge = 0,
                             double startWidth = 0, double endWidth = 0, double tangent = 0);
    AcDbObjectId Add3dPolylineVertex(AcDbObjectId polyline, const AcGePoint3d& position);
    AcDbObjectId AddFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
                         int edge0 = 1, int edge1 = 1, int edge2 = 1, int edge3 = 1, int color = 256,
                         const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                         const wchar_t* linetype = nullptr);
    AcDbObjectId AddPolyFaceMesh(AcGePoint3dArray vertices, AcGeIntArray faces, int color = 256,
                                 const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                                 const wchar_t* linetype = nullptr);
    AcDbObjectId AddPolyFaceMesh(AcGePoint3dArray vertices, double size, const AcGeVector3d* direction = nullptr,
                                 int color = 256, const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                                 const wchar_t* linetype = nullptr);
    AcDbObjectId AddPolygonMesh(AcDb::PolyMeshType type, int mSize, int nSize, AcGePoint3dArray vertices,
                                int mClosed = 0, int nClosed = 0, int density = 0, int color = 256,
                                const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                                const wchar_t* linetype = nullptr);
    AcDbObjectId AddSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
                          int color = 256, const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                          const wchar_t* linetype = nullptr, const AcGeVector3d& normal = AcGeVector3d::kZAxis,
                          double thickness = 0);
    AcDbObjectId AddTrace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
                          int color = 256, const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                          const wchar_t* linetype = nullptr, const AcGeVector3d& normal = AcGeVector3d::kZAxis,
                          double thickness = 0);
    AcDbObjectId AddMline(AcGePoint3dArray points, AcDbObjectId style = AcDbObjectId(), double scale = 1,
                          int closed = 0, int justification = AcDbMline::kTop, int color = 256,
                          const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                          const wchar_t* linetype = nullptr, const AcGeVector3d& normal = AcGeVector3d::kZAxis);
    AcDbObjectId AddMText(AcDbObjectId style, const wchar_t* contents, double height, double width,
                          const AcGePoint3d& location, const AcGeVector3d& direction = AcGeVector3d::kXAxis,
                          AcDbMText::AttachmentPoint attachment = AcDbMText::kTopLeft,
                          AcDbMText::FlowDirection flow = AcDbMText::kByStyle, double spacing = 1, int color = 256,
                          const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                          const wchar_t* linetype = nullptr);
    AcDbObjectId AddHatch(int loopType, AcDbObjectIdArray boundary, int associative, const wchar_t* pattern,
                          AcDbHatch::HatchPatternType patternType = AcDbHatch::kPreDefined, double angle = 0,
                          double scale = 1, double spacing = 0, int isDouble = 0, int color = 256,
                          const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                          const wchar_t* linetype = nullptr, const AcGeVector3d& normal = AcGeVector3d::kZAxis);
    AcDbObjectId AddLeader(AcGePoint3dArray points, AcDbObjectId annotation = AcDbObjectId(), int arrow = 1,
                           int spline = 0, int color = 256, const wchar_t* space = nullptr,
                           const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr,
                           const AcGeVector3d* normal = nullptr);
    AcDbObjectId AddSpline(AcGePoint3dArray fitPoints, int order = 4, int degree = 3, double fitTolerance = 0,
                           int color = 256, const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                           const wchar_t* linetype = nullptr);
    AcDbObjectId AddEllipse(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                            double radiusRatio, double startAngle, double endAngle, int color = 256,
                            const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                            const wchar_t* linetype = nullptr);
    AcDbObjectId AddFcf(const wchar_t* text, const AcGePoint3d& location,
                        const AcGeVector3d& normal = AcGeVector3d::kZAxis,
                        const AcGeVector3d& direction = AcGeVector3d::kXAxis, int color = 256,
                        const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                        const wchar_t* linetype = nullptr);
    // A null space is the paper space.
    AcDbObjectId AddViewport(const AcGePoint3d& center, double width, double height, int color = 256,
                             const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                             const wchar_t* linetype = nullptr);
    AcDbObjectId AddAttributeDefinition(const AcGePoint3d& position, const wchar_t* text, const wchar_t* tag,
                                        const wchar_t* prompt, AcDbObjectId style = AcDbObjectId(), int color = 256,
                                        const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                                        const wchar_t* linetype = nullptr);
    AcDbObjectId Add2LineAngularDim(const AcGePoint3d& line1Start, const AcGePoint3d& line1End,
                                    const AcGePoint3d& line2Start, const AcGePoint3d& line2End,
                                    const AcGePoint3d& arcPoint, const wchar_t* text = nullptr,
                                    AcDbObjectId style = AcDbObjectId(), int color = 256,
                                    const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                                    const wchar_t* linetype = nullptr);
    AcDbObjectId Add3PointAngularDim(const AcGePoint3d& center, const AcGePoint3d& line1Point,
                                     const AcGePoint3d& line2Point, const AcGePoint3d& arcPoint,
                                     const wchar_t* text = nullptr, AcDbObjectId style = AcDbObjectId(),
                                     int color = 256, const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                                     const wchar_t* linetype = nullptr);
    AcDbObjectId AddDiameTricDim(const AcGePoint3d& chordPoint, const AcGePoint3d& farChordPoint, double leaderLength,
                                 const wchar_t* text = nullptr, AcDbObjectId style = AcDbObjectId(), int color = 256,
                                 const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                                 const wchar_t* linetype = nullptr);
    AcDbObjectId AddOrdinateDim(int useXAxis, const AcGePoint3d& definingPoint, const AcGePoint3d& leaderEnd,
                                const wchar_t* text = nullptr, AcDbObjectId style = AcDbObjectId(), int color = 256,
                                const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                                const wchar_t* linetype = nullptr);
    AcDbObjectId AddRadialDim(const AcGePoint3d& center, const AcGePoint3d& chordPoint, double leaderLength,
                              const wchar_t* text = nullptr, AcDbObjectId style = AcDbObjectId(), int color = 256,
                              const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                              const wchar_t* linetype = nullptr);
    AcDbObjectId AddRotatedDim(double rotation, const AcGePoint3d& line1Point, const AcGePoint3d& line2Point,
                               const AcGePoint3d& dimLinePoint, const wchar_t* text = nullptr,
                               AcDbObjectId style = AcDbObjectId(), int color = 256, const wchar_t* space = nullptr,
                               const wchar_t* layer = nullptr, const wchar_t* linetype = nullptr);

    // --- blocks and attributes -------------------------------------------------------------------------------------
    // A new definition of copies of these entities, seen from the base point. eDuplicateRecordName for a name in use;
    // nothing is left behind on failure. The originals stay.
    Acad::ErrorStatus MakeBlock(const wchar_t* name, const AcDbObjectIdArray& ids, const AcGePoint3d& base,
                                AcDbObjectId* block = nullptr);
    // BlockRef with an attribute for each definition of the block, but constant ones. Values belong to the tags of the
    // same index; a definition whose tag is not among them gives its default text.
    Acad::ErrorStatus BlockRefAttribs(const wchar_t* block, const AcGePoint3d& position, AcGeScale3d scale,
                                      double rotation, const CStringArray& tags, const CStringArray& values,
                                      int color = 256, const wchar_t* space = nullptr, const wchar_t* layer = nullptr,
                                      const wchar_t* linetype = nullptr, AcDbObjectId* id = nullptr);
    Acad::ErrorStatus GetBlockRefName(const AcDbObjectId& ref, CString& name);
    // The live references to a block; with `nested` also those that reach it through other blocks.
    Acad::ErrorStatus GetBlockRefIds(const wchar_t* block, AcDbObjectIdArray& ids, int nested = 0);
    // Tags are compared without regard to case. eKeyNotFound for a tag that the reference does not have.
    Acad::ErrorStatus GetAttribute(const AcDbObjectId& ref, const wchar_t* tag, CString& text);
    Acad::ErrorStatus SetAttribute(const AcDbObjectId& ref, const wchar_t* tag, const wchar_t* text);
    Acad::ErrorStatus GetAttributes(const AcDbObjectId& ref, CStringArray& tags, CStringArray& texts);
    // The parts of an entity in its own space, in its place; with `erase` the entity goes.
    Acad::ErrorStatus ExplodeEntity(const AcDbObjectId& id, AcDbObjectIdArray* parts, int erase);

    // --- queries and selection -------------------------------------------------------------------------------------
    // Null pointers ask for nothing.
    Acad::ErrorStatus GetEntityProperty(const AcDbObjectId& id, int* color, CString* layer = nullptr,
                                        CString* linetype = nullptr, bool* visible = nullptr);
    Acad::ErrorStatus GetEntityExtents(const AcDbObjectId& id, AcDbExtents& extents);
    // Entities of a space (null: the current one) on these layers, a list as in SetLayerStatusAll; with a class only
    // its entities.
    Acad::ErrorStatus SelectByLayer(const wchar_t* layers, AcDbObjectIdArray& ids, AcRxClass* cls = nullptr,
                                    const wchar_t* space = nullptr, wchar_t separator = L',');
    // By colour index as the entity has it (256 ByLayer).
    Acad::ErrorStatus SelectByColor(int color, AcDbObjectIdArray& ids, AcRxClass* cls = nullptr,
                                    const wchar_t* space = nullptr);
    // Entities whose boxes lie within the box of two corners, seen from above; with `crossing` also those that reach
    // into it.
    Acad::ErrorStatus SelectByWindow(const AcGePoint3d& corner, const AcGePoint3d& otherCorner, int crossing,
                                     AcDbObjectIdArray& ids, AcRxClass* cls = nullptr, const wchar_t* space = nullptr);
    // The same with a polygon, judged by the lines of the entities.
    Acad::ErrorStatus SelectByPolygon(const AcGePoint2dArray& polygon, int crossing, AcDbObjectIdArray& ids,
                                      AcRxClass* cls = nullptr, const wchar_t* space = nullptr);

    // --- curves ----------------------------------------------------------------------------------------------------
    Acad::ErrorStatus GetCurveLength(const AcDbObjectId& curve, double& length);
    Acad::ErrorStatus GetCurveArea(const AcDbObjectId& curve, double& area);
    // `count` points (2 or more) at even distances along the curve, both ends among them.
    Acad::ErrorStatus GetCurvePoints(const AcDbObjectId& curve, int count, AcGePoint3dArray& points);
    Acad::ErrorStatus IntersectCurves(const AcDbObjectId& one, const AcDbObjectId& other, AcGePoint3dArray& points,
                                      AcDb::Intersect type = AcDb::kOnBothOperands);
    // Cuts a curve at points, which are taken to their nearest places on it: the parts take its place and its
    // properties, and the curve is erased. Points at its ends cut nothing; eInvalidInput where no cut is left.
    Acad::ErrorStatus CutCurve(const AcDbObjectId& curve, const AcGePoint3dArray& points, AcDbObjectIdArray* parts);
    // Where these cutters cross it.
    Acad::ErrorStatus CutCurve(const AcDbObjectId& curve, const AcDbObjectIdArray& cutters, AcDbObjectIdArray* parts);
    // Brings curves into an order in which each begins or ends where the one before it has led. `turned` tells which
    // are walked backwards. Several chains follow each other, each from one of its ends.
    Acad::ErrorStatus SortCurves(AcDbObjectIdArray& curves, AcArray<int>* turned = nullptr);
    // Lines, arcs and polylines of one plane that follow each other become one polyline with the properties of the
    // first; they are erased. eInvalidInput, and nothing changed, where they are no single chain.
    Acad::ErrorStatus JoinCurves(const AcDbObjectIdArray& curves, AcDbObjectId* joined);
    Acad::ErrorStatus OffsetCurve(const AcDbObjectId& curve, double distance, AcDbObjectIdArray* parallels);

    // --- documents, files, cloning ---------------------------------------------------------------------------------
    Acad::ErrorStatus GetAcDbDoc(AcApDocument*& doc);
    // Changes the lock of the document to `mode`; kNotLocked unlocks. `previous` receives the mode held before.
    Acad::ErrorStatus LockAcDbDoc(AcAp::DocLockMode mode, AcAp::DocLockMode* previous = nullptr);
    // The format decides between DXF and DWG; with `backUp` the old file is kept beside the new one.
    Acad::ErrorStatus SaveAcDbToFile(const wchar_t* path, AcApDocument::SaveFormat format, int backUp);
    // Folder with its final separator, name, extension with its dot; each may be null.
    Acad::ErrorStatus GetAcDbFileName(CString* folder, CString* name, CString* extension);
    // The caller deletes the database, which is null on failure.
    Acad::ErrorStatus ReadFileToNewDb(const wchar_t* path, AcDbDatabase*& db);
    Acad::ErrorStatus CloneObjectsToNewDb(AcDbDatabase*& db, const AcDbObjectIdArray& ids);
    // From this database into a block of the target (null: its model space), made where it is missing. Where both have
    // a definition of one name the target keeps its own; the second form replaces it.
    Acad::ErrorStatus CloneObjectsToDb(AcDbDatabase* target, const AcDbObjectIdArray& ids, const wchar_t* block,
                                       AcDbObjectIdArray* clones = nullptr);
    Acad::ErrorStatus WBlockCloneObjectsToDb(AcDbDatabase* target, const AcDbObjectIdArray& ids, const wchar_t* block,
                                             AcDbObjectIdArray* clones = nullptr);

    // --- layers, linetypes, styles ---------------------------------------------------------------------------------
    // An existing layer changes only with `update`.
    Acad::ErrorStatus Layer(const wchar_t* name, int color, const wchar_t* linetype, AcDbObjectId* id, int create,
                            int update);
    Acad::ErrorStatus LineType(const wchar_t* name, const wchar_t* file);
    Acad::ErrorStatus TextStyle(const wchar_t* name, const wchar_t* font, const wchar_t* bigFont, double height,
                                double xScale, int fontIsFile, AcDbObjectId* id, int create);
    Acad::ErrorStatus DimStyle(const wchar_t* name, AcDbObjectId* id, int create);
    Acad::ErrorStatus OpenLayer(const wchar_t* name, AcDbLayerTableRecord*& layer, AcDb::OpenMode mode);
    // Null states stay as they are. Names that are no layers are passed over; the status of the last close.
    Acad::ErrorStatus SetLayerStatusAll(const wchar_t* names, bool* off, const bool* frozen, const bool* locked,
                                        wchar_t separator);
    Acad::ErrorStatus SetLayerStatus(const wchar_t* name, bool off, const bool* frozen, const bool* locked,
                                     wchar_t separator);
    // The states of one layer; of a separated list, those of its first layer. Untouched on failure.
    Acad::ErrorStatus GetLayerStatus(const wchar_t* name, bool& off, bool* frozen, bool* locked, wchar_t separator);
    Acad::ErrorStatus SetAlllayersStatus(bool* off, const bool* frozen, const bool* locked);
    // Names of the layers of these entities, each once, in the order met; entities that cannot be opened are passed
    // over.
    Acad::ErrorStatus GetEntityLayers(const AcDbObjectIdArray& ids, CStringArray& names);

private:
    // Entities of a space that `accept` takes.
    template <class Accept>
    Acad::ErrorStatus SelectIf(AcDbObjectIdArray& ids, AcRxClass* cls, const wchar_t* space, Accept accept);
    // Into the block of another entity.
    Acad::ErrorStatus AddBeside(const AcDbObjectId& sibling, AcDbEntity* entity, AcDbObjectId& id);
    Acad::ErrorStatus CloneInto(AcDbDatabase* target, const AcDbObjectIdArray& ids, const wchar_t* block,
                                AcDbObjectIdArray* clones, AcDb::DuplicateRecordCloning duplicates);

    AcDbDatabase* m_db = nullptr;   // null: the working database of each moment
};

}   // namespace KxArxBase
