#include "AcDbEntity.h"
#include "AcDbAttribute.h"
#include "AcDbDatabase.h"
#include "AcDbLayerTableRecord.h"
#include "AcDbSymbolTableRecord.h"
#include "core/DbCore.h"
#include "core/Fields.h"
#include "core/StoredColor.h"

using namespace KxPlat;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbEntity, AcDbObject)

const ClassSchema& AcDbEntity::fieldSchema()
{
    static const ClassSchema schema(&AcDbObject::fieldSchema(), "", "AcDbEntity",
                                    {
                                        Int16(67, &AcDbEntity::m_isInPaperSpace),
                                        Name(8, &AcDbEntity::m_layer, TableKind::Layer).always(),
                                        Name(6, &AcDbEntity::m_linetype, TableKind::Linetype),
                                        Int16(62, &AcDbEntity::m_color, 256),
                                        Int16(370, &AcDbEntity::m_lineWeight, -1).since(AcDb::kDHL_1015),
                                        Real(48, &AcDbEntity::m_linetypeScale, 1.0).notInR12(),
                                        Int16(60, &AcDbEntity::m_invisible).notInR12(),
                                        Int32(420, &AcDbEntity::m_trueColor, kNoTrueColor).since(AcDb::kDHL_1018),
                                    });
    return schema;
}

AcDbEntity::AcDbEntity() : m_trueColor(kNoTrueColor) {}

AcCmColor AcDbEntity::color() const
{
    return ColorOf(m_color, m_trueColor);
}

Adesk::UInt16 AcDbEntity::colorIndex() const
{
    return color().colorIndex();
}

Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor& color, bool)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        StoreColor(color, m_color, m_trueColor);
    return status;
}

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 index, bool doSubents)
{
    AcCmColor color;
    const Acad::ErrorStatus status = color.setColorIndex(index);
    return status == Acad::eOk ? setColor(color, doSubents) : status;
}

namespace {

ACHAR* NameOfRecord(AcDbObjectId id)
{
    const AcDbStub* stub = id;
    const AcDbSymbolTableRecord* record = stub == nullptr ? nullptr : AcDbSymbolTableRecord::cast(stub->object);
    ACHAR* name = nullptr;
    acutUpdString(record == nullptr ? L"" : static_cast<const ACHAR*>(record->nameText()), name);
    return name;
}

AcDbDatabase* DatabaseFor(const AcDbEntity& entity)
{
    return entity.database() != nullptr ? entity.database() : acdbHostApplicationServices()->workingDatabase();
}

// The table record of this name, or null: names that no table defines cannot be given to an entity.
AcDbObjectId RecordForName(const AcDbEntity& entity, TableKind kind, const ACHAR* name)
{
    AcDbDatabase* database = DatabaseFor(entity);
    if (database == nullptr || name == nullptr)
        return AcDbObjectId();
    AcDbObjectId id;
    CoreOf(*database).Table(kind)->getAt(name, id);
    return id;
}

}   // namespace

ACHAR* AcDbEntity::layer() const
{
    return NameOfRecord(m_layer);
}

// Vertices and end marks go with the entity; attributes have layers of their own.
Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId layer, bool doSubents, bool)
{
    if (layer.objectClass() == nullptr || !layer.objectClass()->isDerivedFrom(AcDbLayerTableRecord::desc()))
        return Acad::eInvalidLayer;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_layer = layer;
    if (!doSubents || parts() == nullptr)
        return Acad::eOk;
    for (AcDbStub* stub : *parts()) {
        AcDbEntity* part = nullptr;
        if (stub->erased || acdbOpenObject(part, AcDbObjectId(stub), AcDb::kForWrite) != Acad::eOk)
            continue;
        if (AcDbAttribute::cast(part) == nullptr)
            part->setLayer(layer, true);
        part->close();
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* layer, bool doSubents, bool allowHiddenLayer)
{
    const AcDbObjectId id = RecordForName(*this, TableKind::Layer, layer);
    return id.isNull() ? Acad::eKeyNotFound : setLayer(id, doSubents, allowHiddenLayer);
}

AcDbObjectId AcDbEntity::linetypeId() const
{
    if (!m_linetype.isNull())
        return m_linetype;
    AcDbDatabase* database = DatabaseFor(*this);
    return database == nullptr ? AcDbObjectId() : database->byLayerLinetype();
}

ACHAR* AcDbEntity::linetype() const
{
    return NameOfRecord(linetypeId());
}

Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId linetype, bool)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const bool isByLayer = linetype.database() != nullptr && linetype == linetype.database()->byLayerLinetype();
    m_linetype = isByLayer ? AcDbObjectId() : linetype;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* linetype, bool doSubents)
{
    const AcDbObjectId id = RecordForName(*this, TableKind::Linetype, linetype);
    return id.isNull() ? Acad::eKeyNotFound : setLinetype(id, doSubents);
}

Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale, bool)
{
    if (!(scale > 0))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_linetypeScale = scale;
    return status;
}

Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight weight, bool)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_lineWeight = int16_t(weight);
    return status;
}

Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility visibility, bool)
{
    const int16_t invisible = visibility == AcDb::kInvisible;
    if (invisible == m_invisible)
        return isWriteEnabled() ? Acad::eOk : Acad::eNotOpenForWrite;
    if (database() != nullptr && isWriteEnabled())
        CoreOf(*database()).undo.ChangingMember(*this, m_invisible);
    const Acad::ErrorStatus status = assertWriteEnabled(false);
    if (status == Acad::eOk)
        m_invisible = invisible;
    return status;
}

Acad::ErrorStatus AcDbEntity::setPropertiesFrom(const AcDbEntity* entity, bool)
{
    if (entity == nullptr)
        return Acad::eNullEntityPointer;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_layer = entity->m_layer;
    m_linetype = entity->m_linetype;
    m_linetypeScale = entity->m_linetypeScale;
    m_color = entity->m_color;
    m_trueColor = entity->m_trueColor;
    m_lineWeight = entity->m_lineWeight;
    m_invisible = entity->m_invisible;
    return Acad::eOk;
}

void AcDbEntity::setDatabaseDefaults()
{
    setDatabaseDefaults(DatabaseFor(*this));
}

void AcDbEntity::setDatabaseDefaults(AcDbDatabase* database)
{
    if (database == nullptr)
        return;
    setLayer(database->clayer());
    setLinetype(database->celtype());
    setColor(database->cecolor());
    setLinetypeScale(database->celtscale());
    setLineWeight(database->celweight());
}

Acad::ErrorStatus AcDbEntity::getTransformedCopy(const AcGeMatrix3d& transform, AcDbEntity*& copy) const
{
    copy = AcDbEntity::cast(clone());
    if (copy == nullptr)
        return Acad::eNotApplicable;
    const Acad::ErrorStatus status = copy->transformBy(transform);
    if (status != Acad::eOk) {
        delete copy;
        copy = nullptr;
    }
    return status;
}

Acad::ErrorStatus AcDbEntity::getEcs(AcGeMatrix3d& ecs) const
{
    ecs = AcGeMatrix3d::kIdentity;
    return Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode, bool openErasedEntity)
{
    return acdbOpenObject(entity, id, mode, openErasedEntity);
}
