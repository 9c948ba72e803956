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
    Acad::ErrorStatus CloneInto(AcDbDatabase* target, const AcDbObjectIdArray& ids, const wchar_t* block,
                                AcDbObjectIdArray* clones, AcDb::DuplicateRecordCloning duplicates);

    AcDbDatabase* m_db = nullptr;   // null: the working database of each moment
};

}   // namespace KxArxBase
