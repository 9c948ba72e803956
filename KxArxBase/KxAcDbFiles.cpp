// Documents and their locks, files, and copies into other databases.
#include "KxAcDb.h"
#include "KxMessages.h"
#include "Opened.h"
#include <memory>

namespace KxArxBase {

namespace {

struct FormatRow {
    AcApDocument::SaveFormat format;
    bool isDxf;
    AcDb::AcDbDwgVersion version;
};

const FormatRow g_formats[] = {
    {AcApDocument::kR14_dwg, false, AcDb::kDHL_1014},  {AcApDocument::k2000_dwg, false, AcDb::kDHL_1015},
    {AcApDocument::k2004_dwg, false, AcDb::kDHL_1018}, {AcApDocument::k2007_dwg, false, AcDb::kDHL_1021},
    {AcApDocument::k2010_dwg, false, AcDb::kDHL_1024}, {AcApDocument::kR12_dxf, true, AcDb::kDHL_1009},
    {AcApDocument::k2000_dxf, true, AcDb::kDHL_1015},  {AcApDocument::k2004_dxf, true, AcDb::kDHL_1018},
    {AcApDocument::k2007_dxf, true, AcDb::kDHL_1021},  {AcApDocument::k2010_dxf, true, AcDb::kDHL_1024},
};

bool HasExtension(const wchar_t* path, const wchar_t* extension)
{
    wchar_t found[_MAX_EXT] = {};
    _wsplitpath(path, nullptr, nullptr, nullptr, found);
    return CString(found).CompareNoCase(extension) == 0;
}

// The block that takes clones in, made where it is missing.
Acad::ErrorStatus TargetBlock(AcDbDatabase* target, const wchar_t* block, AcDbObjectId& id)
{
    CKxAcDb toolkit(target, 0);
    if (block == nullptr)
        return toolkit.GetRecWithEntyName(ACDB_MODEL_SPACE, AcDbBlockTableRecord::desc(), id);
    AcDbSymbolTableRecord* opened = nullptr;
    const Acad::ErrorStatus es =
        toolkit.OpenRecWithEntyName(block, AcDbBlockTableRecord::desc(), opened, AcDb::kForRead, 1);
    if (es == Acad::eOk)
        id = Opened<AcDbSymbolTableRecord>(opened, es)->objectId();
    return es;
}

void CollectClones(AcDbIdMapping& map, AcDbObjectIdArray& clones)
{
    AcDbIdMappingIter it(map);
    for (it.start(); !it.done(); it.next()) {
        AcDbIdPair pair;
        it.getMap(pair);
        if (pair.isPrimary() && pair.isCloned())
            clones.append(pair.value());
    }
}

}   // namespace

Acad::ErrorStatus CKxAcDb::GetAcDbDoc(AcApDocument*& doc)
{
    doc = acDocManager->document(GetAcDb());
    return doc != nullptr ? Acad::eOk : Acad::eNoDocument;
}

Acad::ErrorStatus CKxAcDb::LockAcDbDoc(AcAp::DocLockMode mode, AcAp::DocLockMode* previous)
{
    AcApDocument* doc = nullptr;
    const Acad::ErrorStatus es = Reported([&] { return GetAcDbDoc(doc); });
    if (es != Acad::eOk)
        return es;
    const AcAp::DocLockMode held = doc->lockMode(true);
    if (previous != nullptr)
        *previous = held;
    if (held == mode)
        return Acad::eOk;
    return mode == AcAp::kNotLocked ? acDocManager->unlockDocument(doc) : acDocManager->lockDocument(doc, mode);
}

Acad::ErrorStatus CKxAcDb::SaveAcDbToFile(const wchar_t* path, AcApDocument::SaveFormat format, int backUp)
{
    for (const FormatRow& row : g_formats) {
        if (row.format != format)
            continue;
        return row.isDxf ? GetAcDb()->dxfOut(path, 16, row.version) : GetAcDb()->saveAs(path, backUp != 0, row.version);
    }
    return Acad::eInvalidInput;
}

Acad::ErrorStatus CKxAcDb::GetAcDbFileName(CString* folder, CString* name, CString* extension)
{
    const ACHAR* path = nullptr;
    const Acad::ErrorStatus es = GetAcDb()->getFilename(path);
    if (es != Acad::eOk)
        return es;
    wchar_t drive[_MAX_DRIVE] = {};
    wchar_t dir[_MAX_DIR] = {};
    wchar_t stem[_MAX_FNAME] = {};
    wchar_t ext[_MAX_EXT] = {};
    _wsplitpath(path, drive, dir, stem, ext);
    if (folder != nullptr)
        *folder = CString(drive) + dir;
    if (name != nullptr)
        *name = stem;
    if (extension != nullptr)
        *extension = ext;
    return Acad::eOk;
}

Acad::ErrorStatus CKxAcDb::ReadFileToNewDb(const wchar_t* path, AcDbDatabase*& db)
{
    db = nullptr;
    auto read = std::unique_ptr<AcDbDatabase>(new (std::nothrow) AcDbDatabase(false, true));
    if (read == nullptr)
        return Acad::eOutOfMemory;
    const Acad::ErrorStatus es = HasExtension(path, L".dxf") ? read->dxfIn(path) : read->readDwgFile(path);
    if (es == Acad::eOk)
        db = read.release();
    return es;
}

Acad::ErrorStatus CKxAcDb::InsertBlockFromFile(const wchar_t* file, const wchar_t* block, const wchar_t* newName)
{
    AcDbDatabase* opened = nullptr;
    Acad::ErrorStatus es = Reported([&] { return ReadFileToNewDb(file, opened); });
    if (es != Acad::eOk)
        return es;
    const std::unique_ptr<AcDbDatabase> read(opened);
    CKxAcDb source(read.get(), 0);
    AcDbObjectIdArray ids;
    es = source.BlockTableGetEntityIds(ids, block);
    if (es != Acad::eOk)
        return es;
    return source.CloneObjectsToDb(GetAcDb(), ids, newName != nullptr ? newName : block);
}

Acad::ErrorStatus CKxAcDb::CloneObjectsToNewDb(AcDbDatabase*& db, const AcDbObjectIdArray& ids)
{
    db = nullptr;
    return GetAcDb()->wblock(db, ids, AcGePoint3d::kOrigin);
}

Acad::ErrorStatus CKxAcDb::CloneObjectsToDb(AcDbDatabase* target, const AcDbObjectIdArray& ids, const wchar_t* block,
                                            AcDbObjectIdArray* clones)
{
    return CloneInto(target, ids, block, clones, AcDb::kDrcIgnore);
}

Acad::ErrorStatus CKxAcDb::WBlockCloneObjectsToDb(AcDbDatabase* target, const AcDbObjectIdArray& ids,
                                                  const wchar_t* block, AcDbObjectIdArray* clones)
{
    return CloneInto(target, ids, block, clones, AcDb::kDrcReplace);
}

Acad::ErrorStatus CKxAcDb::CloneInto(AcDbDatabase* target, const AcDbObjectIdArray& ids, const wchar_t* block,
                                     AcDbObjectIdArray* clones, AcDb::DuplicateRecordCloning duplicates)
{
    if (clones != nullptr)
        clones->setLogicalLength(0);
    if (target == nullptr)
        return Acad::eInvalidInput;
    AcDbObjectId owner;
    Acad::ErrorStatus es = TargetBlock(target, block, owner);
    if (es != Acad::eOk)
        return es;
    AcDbObjectIdArray sources = ids;
    AcDbIdMapping map;
    es = target == GetAcDb() ? target->deepCloneObjects(sources, owner, map)
                             : target->wblockCloneObjects(sources, owner, map, duplicates);
    if (es == Acad::eOk && clones != nullptr)
        CollectClones(map, *clones);
    return es;
}

}   // namespace KxArxBase
