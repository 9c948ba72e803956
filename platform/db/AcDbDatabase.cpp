#include "AcDbDatabase.h"
#include "../win/Files.h"
#include "AcDbBlockTableRecord.h"
#include "AcDbDictionary.h"
#include "AcDbDimStyleTableRecord.h"
#include "AcDbLayerTableRecord.h"
#include "AcDbLinetypeTableRecord.h"
#include "AcDbRegAppTableRecord.h"
#include "AcDbTextStyleTableRecord.h"
#include "AcDbUCSTableRecord.h"
#include "AcDbViewportTableRecord.h"
#include "AcDbViewTableRecord.h"
#include "core/BackUp.h"
#include "core/DbCore.h"
#include "core/DefaultDrawing.h"
#include "core/FileFormats.h"
#include "core/LeftPictures.h"

using namespace KxPlat;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDatabase, AcRxObject)

DbCore& KxPlat_CoreOf(const AcDbDatabase& database)
{
    return *database.m_core;
}

DbCore& KxPlat::CoreOf(const AcDbDatabase& database)
{
    return KxPlat_CoreOf(database);
}

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool) : m_core(std::make_unique<DbCore>(this))
{
    m_core->undo.SetOff(true);
    if (buildDefaultDrawing)
        BuildDefaultDrawing(*m_core);
    m_core->undo.SetOff(false);
    m_core->modified = 0;
}

AcDbDatabase::~AcDbDatabase()
{
    AcDbHostApplicationServices* services = acdbHostApplicationServices();
    if (services->workingDatabase() == this)
        services->setWorkingDatabase(nullptr);
}

// --- tables and dictionaries ---

template <class T>
Acad::ErrorStatus AcDbDatabase::openTable(T*& table, AcDbObjectId id, AcDb::OpenMode mode) const
{
    return acdbOpenObject(table, id, mode);
}

#define KX_TABLE(CLASS, NAME, KIND)                                                                                    \
    Acad::ErrorStatus AcDbDatabase::getSymbolTable(CLASS*& table, AcDb::OpenMode mode)                                 \
    {                                                                                                                  \
        return openTable(table, NAME(), mode);                                                                         \
    }                                                                                                                  \
    AcDbObjectId AcDbDatabase::NAME() const                                                                            \
    {                                                                                                                  \
        return m_core->tables[size_t(TableKind::KIND)];                                                                \
    }

KX_TABLE(AcDbBlockTable, blockTableId, Block)
KX_TABLE(AcDbLayerTable, layerTableId, Layer)
KX_TABLE(AcDbTextStyleTable, textStyleTableId, TextStyle)
KX_TABLE(AcDbLinetypeTable, linetypeTableId, Linetype)
KX_TABLE(AcDbViewTable, viewTableId, View)
KX_TABLE(AcDbUCSTable, UCSTableId, Ucs)
KX_TABLE(AcDbViewportTable, viewportTableId, Viewport)
KX_TABLE(AcDbRegAppTable, regAppTableId, RegApp)
KX_TABLE(AcDbDimStyleTable, dimStyleTableId, DimStyle)
#undef KX_TABLE

Acad::ErrorStatus AcDbDatabase::getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode)
{
    return getSymbolTable(table, mode);
}

Acad::ErrorStatus AcDbDatabase::getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode)
{
    return getSymbolTable(table, mode);
}

AcDbObjectId AcDbDatabase::namedObjectsDictionaryId() const
{
    return m_core->namedObjects;
}

namespace {

AcDbObjectId NamedObject(const DbCore& core, const wchar_t* name)
{
    AcDbObjectId id;
    const AcDbDictionary* root =
        core.namedObjects == nullptr ? nullptr : AcDbDictionary::cast(core.namedObjects->object);
    if (root != nullptr)
        root->getAt(name, id);
    return id;
}

}   // namespace

AcDbObjectId AcDbDatabase::groupDictionaryId() const
{
    return NamedObject(*m_core, L"ACAD_GROUP");
}

AcDbObjectId AcDbDatabase::layoutDictionaryId() const
{
    return NamedObject(*m_core, L"ACAD_LAYOUT");
}

AcDbObjectId AcDbDatabase::mLStyleDictionaryId() const
{
    return NamedObject(*m_core, L"ACAD_MLINESTYLE");
}

AcDbObjectId AcDbDatabase::plotStyleNameDictionaryId() const
{
    return NamedObject(*m_core, L"ACAD_PLOTSTYLENAME");
}

AcDbObjectId AcDbDatabase::materialDictionaryId() const
{
    return NamedObject(*m_core, L"ACAD_MATERIAL");
}

Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode)
{
    return openTable(dictionary, namedObjectsDictionaryId(), mode);
}

Acad::ErrorStatus AcDbDatabase::getGroupDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode)
{
    return openTable(dictionary, groupDictionaryId(), mode);
}

Acad::ErrorStatus AcDbDatabase::getLayoutDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode)
{
    return openTable(dictionary, layoutDictionaryId(), mode);
}

Acad::ErrorStatus AcDbDatabase::getMLStyleDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode)
{
    return openTable(dictionary, mLStyleDictionaryId(), mode);
}

// --- objects ---

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObject* object)
{
    AcDbObjectId id;
    return addAcDbObject(id, object);
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObjectId& id, AcDbObject* object)
{
    if (object == nullptr)
        return Acad::eNullObjectPointer;
    if (!object->objectId().isNull())
        return Acad::eAlreadyInDb;
    id = m_core->Adopt(object, 0, object->ownerId(), true);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle,
                                                Adesk::UInt32)
{
    if (handle.isNull())
        return Acad::eNullHandle;
    AcDbStub* stub = m_core->handles.Find(handle);
    if ((stub == nullptr || stub->object == nullptr) && !createIfNotFound)
        return Acad::eUnknownHandle;
    id = stub != nullptr ? stub : m_core->handles.Get(handle);
    return Acad::eOk;
}

long AcDbDatabase::approxNumObjects() const
{
    return long(m_core->handles.Size());
}

AcDbHandle AcDbDatabase::handseed() const
{
    return AcDbHandle(m_core->handles.NextHandle());
}

// --- files ---

Acad::ErrorStatus AcDbDatabase::readDwgFile(const ACHAR* fileName, int, bool, const ACHAR*)
{
    if (fileName == nullptr || *fileName == 0)
        return Acad::eInvalidInput;
    if (m_core->namedObjects != nullptr)
        return Acad::eInvalidInput;
    const FileFormat* format = FormatOfFile(fileName);
    if (format == nullptr)
        return Acad::eInvalidFileExtension;
    ReadReport& report = LastReadReport();
    report = ReadReport();
    if (!FileInfoOf(HostPath(fileName)).exists) {
        report.error = L"no such file";
        return Acad::eFileNotFound;
    }
    m_core->undo.SetOff(true);
    const Acad::ErrorStatus status = format->read(*this, fileName, report);
    m_core->undo.SetOff(false);
    if (status == Acad::eOk) {
        CompleteDrawing(*m_core);
        m_core->fileName = fileName;
        m_core->modified = 0;
    }
    return status;
}

Acad::ErrorStatus AcDbDatabase::dxfIn(const ACHAR* fileName, const ACHAR*)
{
    return readDwgFile(fileName);
}

namespace {

Acad::ErrorStatus Write(DbCore& core, AcDbDatabase& database, const ACHAR* fileName, AcDb::AcDbDwgVersion version,
                        int precision)
{
    if (fileName == nullptr || *fileName == 0)
        return Acad::eInvalidInput;
    const FileFormat* format = FormatOf(fileName);
    if (format == nullptr)
        return Acad::eInvalidFileExtension;
    const WithoutLeftPictures leftOut(core);
    return format->write(database, fileName, version == AcDb::kDHL_CURRENT ? core.form.version : version,
                         core.form.isBinary, precision);
}

}   // namespace

Acad::ErrorStatus AcDbDatabase::dxfOut(const ACHAR* fileName, int precision, AcDb::AcDbDwgVersion version, bool)
{
    return Write(*m_core, *this, fileName, version, precision);
}

Acad::ErrorStatus AcDbDatabase::saveAs(const ACHAR* fileName, bool backUp, AcDb::AcDbDwgVersion version,
                                       const SecurityParams* security)
{
    if (security != nullptr)
        return Acad::eNotApplicable;
    if (backUp && fileName != nullptr && !BackUpFile(fileName))
        return Acad::eFileAccessErr;
    return Write(*m_core, *this, fileName, version, 16);
}

Acad::ErrorStatus AcDbDatabase::save()
{
    return Write(*m_core, *this, m_core->fileName, AcDb::kDHL_CURRENT, 16);
}

Acad::ErrorStatus AcDbDatabase::getFilename(const ACHAR*& name) const
{
    name = m_core->fileName;
    return m_core->fileName.IsEmpty() ? Acad::eNullPtr : Acad::eOk;
}

AcDb::AcDbDwgVersion AcDbDatabase::originalFileVersion() const
{
    return m_core->form.version;
}

long acdbSetDbmod(AcDbDatabase* database, long newValue)
{
    if (database == nullptr)
        return 0;
    DbCore& core = CoreOf(*database);
    const long old = core.modified;
    core.modified = int(newValue);
    return old;
}
