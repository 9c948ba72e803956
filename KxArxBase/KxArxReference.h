// Entities of an attached drawing brought into the working drawing as entities of its own: each where the insertion
// shows it, on its xref layer, with local text styles, linetypes and dimension styles in place of dependent ones.
// An entity is named by its id inside the xref's blocks and the transform from that block to the world; blocks within
// blocks are followed to any depth, the transforms being composed from the outside in.
// What is being cloned is remembered for the length of one CloneXrefLayerOfEnt: calls do not nest.
// The members answer 1 for success and 0 for failure unless they say otherwise.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"
#include <utility>

namespace KxArxBase {

// How much of a clone is converted: 0 everything (extended data is taken off the source, properties are mapped), 2 the
// clone is appended as it is, any other value keeps the linetypes and styles that the entity has.
typedef int tagEntType;

// Properties of one entity, as they are put on its clone.
struct tagEntProperty {
    AcDbObjectId linetype, dimStyle, textStyle;
    Adesk::UInt16 colorIndex = 256;
    // Of a text.
    AcGePoint3d alignmentPoint, position;
    double height = 0, oblique = 0, rotation = 0, thickness = 0, widthFactor = 1;
    AcDb::TextHorzMode horizontalMode = AcDb::kTextLeft;
    AcDb::TextVertMode verticalMode = AcDb::kTextBase;
    AcGeVector3d normal{0, 0, 1};
    // Of a text of several lines; normal, rotation and height as above.
    AcDbMText::AttachmentPoint attachment = AcDbMText::kTopLeft;
    CString contents;
    AcGeVector3d direction{1, 0, 0};
    AcDbMText::FlowDirection flowDirection = AcDbMText::kByStyle;
    double lineSpacingFactor = 1, width = 0;
    AcDb::LineSpacingStyle lineSpacingStyle = AcDb::kAtLeast;
    AcGePoint3d location;
};

typedef std::pair<AcGeMatrix3d, AcDbObjectId> KxEntPair;
typedef CArray<KxEntPair, const KxEntPair&> KxEntPairArray;

class KXARX_API KxArxReference {
public:
    KxArxReference() = default;
    KxArxReference(const KxArxReference& other) = default;
    KxArxReference& operator=(const KxArxReference& other) = default;
    virtual ~KxArxReference();

    // Layer by layer, named as the working drawing names them ("xref|layer"); a layer without entities ends the
    // operation with a message, those before it stay converted. Locked layers are unlocked for the copy.
    // `ids` is taken by value: the new ids do not reach the caller.
    static int CloneXrefLayerOfEnt(AcDbObjectId xrefInsert, CStringArray& layers, AcDbDatabase* db,
                                   AcDbObjectIdArray ids);
    // Clones all entities of the layer within the current xref. The arrays run side by side; a null id stands for an
    // entity that could not be cloned. 0 when the layer has no entity.
    static int GetXrefLayerEnt(CString layer, AcDbObjectIdArray& sources, AcDbObjectIdArray& clones,
                               AcGeMatrix3d& transform);

    // --- finding -------------------------------------------------------------------------------------------------
    // Empties the list first.
    static int GetXrefBlockRecord(AcDbObjectId& block, CString layer, AcGeMatrix3d& transform, KxEntPairArray& pairs);
    static int TraversingBlockRecord(AcDbObjectId block, CString layer, AcGeMatrix3d& transform, KxEntPairArray& pairs);
    // 2 for what is no block reference, 0 when it or its block cannot be opened. Every entity inside joins `ids`,
    // those of the layer join `pairs`. A block that contains itself is walked once.
    static int IsBlockReference(AcDbObjectId id, AcDbObjectIdArray& ids, AcGeMatrix3d transform, KxEntPairArray& pairs,
                                CString layer);

    // --- cloning -------------------------------------------------------------------------------------------------
    // Into the current space of the working database. `clone` is null on failure.
    static int CloneEnt(AcDbObjectId source, AcDbObjectId& clone, AcGeMatrix3d& transform, tagEntType type,
                        int gatherProperties);
    // On success the entity belongs to the drawing and is still open for write.
    static int AppendEntity(AcDbEntity* entity, AcGeMatrix3d& transform, AcDbObjectId& id, tagEntType type);
    static int GetEntProperties(AcDbEntity* entity, tagEntProperty& properties, tagEntType type);
    // Style and linetype of an entity of the architecture program, taken from what it explodes into.
    static int GetTiangentEntProperties(AcDbDatabase* db, CString className, AcDbEntity* entity,
                                        tagEntProperty& properties, tagEntType type);
    // Puts the properties gathered last on a clone.
    static int SetEntProperties(AcDbEntity* entity, tagEntType type);
    // Gives a dimension a local copy of `dimStyle`, whose texts are in `textStyle` where that is not null. 2 for what
    // is no dimension.
    static int IsDimensionMarker(AcDbEntity* entity, AcDbObjectId dimStyle, AcDbObjectId textStyle, int type);
    // The architecture program's classes: 1 texts and symbols, 2 dimensions and what has one, 0 anything else.
    static int IsTianZhengEntity(CString className);

    // --- dependent records ---------------------------------------------------------------------------------------
    // Local records for all dependent ones of the working database; 1 when there were any.
    static int CopyXrefTextStyle();
    static int CopyXrefLineStyle();
    // Appends the ids of the dependent records; 0 when the table cannot be opened.
    static int GetXrefTextStyle(AcDbDatabase* db, AcDbObjectIdArray& ids);
    static int GetXrefLineStyle(AcDbDatabase* db, AcDbObjectIdArray& ids);
    // The local text style is "Standard", whatever the source is called; one that is there already is taken as it is.
    static int CreateOneTextStyleRecord(AcDbDatabase* db, AcDbObjectId source, AcDbObjectId& created);
    static int CreateOneLineStyleRecord(AcDbDatabase* db, AcDbObjectId source, AcDbObjectId& created);
    static int CopyOneXrefTextSyleToCurTextTable(AcDbObjectId source, AcDbObjectId& local);
    // The local style has the name behind the bar; one of that name is taken as it is.
    static int CopyOneXrefDimStyleToCurDimTable(AcDbObjectId source, AcDbObjectId& local);

    // --- layers of the working database --------------------------------------------------------------------------
    // A new layer is not plotted.
    static int CreateLayer(const wchar_t* name, AcDbObjectId& id);
    static int CopyLayer(CString from, CString to);
    static int SetLayerName(AcDbObjectId entity, AcDbObjectId layer);
    // Empty when the entity cannot be opened.
    static CString GetlayerName(AcDbObjectId entity);
    static int CheckLockLayer(CString layer);
    static int SetLockLayer(CString layer, bool lock);
    static int GetCurLayer(AcDbObjectId& layer, AcCmColor& color);

    // Cancels what runs in the current document, then has it run the text. Nothing happens for an empty one.
    static void sendCommandToAutoCAD(CString command);
};

}   // namespace KxArxBase
