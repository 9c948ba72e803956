// One drawing: its tables, dictionaries, objects and header variables.
#pragma once
#include "../ge/AcGePoint3d.h"
#include "../rx/acadstrc.h"
#include "AcCmColor.h"
#include "AcDb.h"
#include "AcDbHostApplicationServices.h"
#include "AcDbObject.h"
#include <memory>

struct SecurityParams;   // how a drawing is locked; never defined here
class AcDbBlockTable;
class AcDbDictionary;
class AcDbDimStyleTable;
class AcDbIdMapping;
class AcDbLayerTable;
class AcDbLinetypeTable;
class AcDbRegAppTable;
class AcDbSymbolTable;
class AcDbTextStyleTable;
class AcDbUCSTable;
class AcDbViewTable;
class AcDbViewportTable;

namespace KxPlat {
struct DbCore;
}

class AcDbDatabase : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabase);

    // With `buildDefaultDrawing` a new empty drawing; without, a database that a file is read into.
    explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
    ~AcDbDatabase() override;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbViewTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbUCSTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbViewportTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getGroupDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLayoutDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getMLStyleDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);

    AcDbObjectId blockTableId() const;
    AcDbObjectId layerTableId() const;
    AcDbObjectId textStyleTableId() const;
    AcDbObjectId linetypeTableId() const;
    AcDbObjectId viewTableId() const;
    AcDbObjectId UCSTableId() const;
    AcDbObjectId viewportTableId() const;
    AcDbObjectId regAppTableId() const;
    AcDbObjectId dimStyleTableId() const;
    AcDbObjectId namedObjectsDictionaryId() const;
    // Null where the drawing has no such dictionary.
    AcDbObjectId groupDictionaryId() const;
    AcDbObjectId layoutDictionaryId() const;
    AcDbObjectId mLStyleDictionaryId() const;
    AcDbObjectId plotStyleNameDictionaryId() const;
    AcDbObjectId materialDictionaryId() const;

    // The model space or the active layout.
    AcDbObjectId currentSpaceId() const;
    // Switches the space for new entities, and with it the tile mode.
    Acad::ErrorStatus setCurrentSpace(AcDbObjectId block);
    AcDbObjectId layerZero() const;
    AcDbObjectId continuousLinetype() const;
    AcDbObjectId byLayerLinetype() const;
    AcDbObjectId byBlockLinetype() const;

    AcDbObjectId clayer() const;
    Acad::ErrorStatus setClayer(AcDbObjectId layer);   // refuses a frozen layer
    AcDbObjectId celtype() const;
    Acad::ErrorStatus setCeltype(AcDbObjectId linetype);
    AcDbObjectId textstyle() const;
    Acad::ErrorStatus setTextstyle(AcDbObjectId style);
    double textsize() const;
    Acad::ErrorStatus setTextsize(double size);   // above 0
    AcDbObjectId dimstyle() const;
    Acad::ErrorStatus setDimstyle(AcDbObjectId style);
    AcCmColor cecolor() const;
    Acad::ErrorStatus setCecolor(const AcCmColor& color);
    double celtscale() const;
    AcDb::LineWeight celweight() const;
    double ltscale() const;
    Acad::ErrorStatus setLtscale(double scale);
    bool tilemode() const;
    Acad::ErrorStatus setTilemode(bool model);
    AcGePoint3d insbase() const;
    Acad::ErrorStatus setInsbase(const AcGePoint3d& base);
    AcDb::UnitsValue insunits() const;
    bool measurementIsMetric() const;
    AcDbHandle handseed() const;

    Acad::ErrorStatus addAcDbObject(AcDbObject* object);
    Acad::ErrorStatus addAcDbObject(AcDbObjectId& id, AcDbObject* object);
    // eUnknownHandle when there is no such object and `createIfNotFound` is false.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle,
                                      Adesk::UInt32 xRefId = 0);
    long approxNumObjects() const;

    // By contents of the path's extension; the database must be empty (made without a default drawing).
    Acad::ErrorStatus readDwgFile(const ACHAR* fileName, int shareMode = 0x40, bool allowCPConversion = false,
                                  const ACHAR* password = nullptr);
    Acad::ErrorStatus dxfIn(const ACHAR* fileName, const ACHAR* logFileName = nullptr);
    Acad::ErrorStatus dxfOut(const ACHAR* fileName, int precision = 16,
                             AcDb::AcDbDwgVersion version = AcDb::kDHL_CURRENT, bool saveThumbnailImage = false);
    // Drawings are saved without a password: `security` must be null, else eNotApplicable.
    Acad::ErrorStatus saveAs(const ACHAR* fileName, bool backUp = false,
                             AcDb::AcDbDwgVersion version = AcDb::kDHL_CURRENT,
                             const SecurityParams* security = nullptr);
    Acad::ErrorStatus save();
    Acad::ErrorStatus getFilename(const ACHAR*& name) const;
    AcDb::AcDbDwgVersion originalFileVersion() const;
    void closeInput(bool closeFile = true) {}

    // Keeps in `ids` what nothing refers to and what may be erased; erases nothing.
    Acad::ErrorStatus purge(AcDbObjectIdArray& ids);
    // For each id, the number of hard references that the drawing makes to it.
    Acad::ErrorStatus countHardReferences(const AcDbObjectIdArray& ids, Adesk::UInt32* counts);

    // Loads linetypes whose names match the wildcard pattern from a definition file; eUndefinedLineType for none.
    Acad::ErrorStatus loadLineTypeFile(const ACHAR* linetypeName, const ACHAR* fileName);

    Acad::ErrorStatus deepCloneObjects(AcDbObjectIdArray& objects, AcDbObjectId& owner, AcDbIdMapping& map,
                                       bool deferTranslation = false);
    Acad::ErrorStatus wblockCloneObjects(AcDbObjectIdArray& objects, AcDbObjectId& owner, AcDbIdMapping& map,
                                         AcDb::DuplicateRecordCloning cloning, bool deferTranslation = false);
    // A new database that holds the objects (null: the whole drawing) in its model space; the caller deletes it.
    Acad::ErrorStatus wblock(AcDbDatabase*& output, const AcDbObjectIdArray& objects, const AcGePoint3d& basePoint);
    Acad::ErrorStatus wblock(AcDbDatabase*& output, AcDbObjectId block);
    Acad::ErrorStatus wblock(AcDbDatabase*& output);
    // Copies another drawing's model space in as a block of this name.
    Acad::ErrorStatus insert(AcDbObjectId& block, const ACHAR* blockName, AcDbDatabase* source,
                             bool preserveSource = true);

private:
    friend KxPlat::DbCore& KxPlat_CoreOf(const AcDbDatabase& database);
    template <class T>
    Acad::ErrorStatus openTable(T*& table, AcDbObjectId id, AcDb::OpenMode mode) const;

    std::unique_ptr<KxPlat::DbCore> m_core;
};

// Sets the bits that tell what was changed since the last save; answers the previous ones.
long acdbSetDbmod(AcDbDatabase* database, long newValue);
