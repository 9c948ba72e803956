#include "AcDbBlockTableRecord.h"
#include "AcDbDatabase.h"
#include "AcDbEntity.h"
#include "AcDbIdMapping.h"
#include "core/Cloner.h"
#include "core/DbCore.h"
#include "core/DefaultDrawing.h"

using namespace KxPlat;

namespace {

// The live entities of a block, in drawing order.
AcDbObjectIdArray EntitiesOf(AcDbObjectId block)
{
    AcDbObjectIdArray ids;
    AcDbStub* stub = block;
    for (AcDbStub* entity : static_cast<AcDbBlockTableRecord*>(stub->object)->entities())
        if (!entity->erased && entity->object != nullptr)
            ids.append(entity);
    return ids;
}

Acad::ErrorStatus CloneOne(const AcDbObject& object, AcDbObject* owner, AcDbObject*& clone, AcDbIdMapping& map)
{
    clone = nullptr;
    AcDbDatabase* target = owner == nullptr ? object.database() : owner->database();
    if (target == nullptr || object.objectId().isNull())
        return Acad::eNoDatabase;
    AcDbObjectIdArray ids;
    ids.append(object.objectId());
    const Acad::ErrorStatus status =
        Cloner(CoreOf(*target), map).Clone(ids, owner == nullptr ? object.ownerId() : owner->objectId());
    if (status != Acad::eOk)
        return status;
    return acdbOpenObject(clone, map.find(object.objectId()), AcDb::kForWrite);
}

}   // namespace

Acad::ErrorStatus AcDbObject::deepClone(AcDbObject* owner, AcDbObject*& clone, AcDbIdMapping& map, bool) const
{
    return CloneOne(*this, owner, clone, map);
}

Acad::ErrorStatus AcDbObject::wblockClone(AcRxObject* owner, AcDbObject*& clone, AcDbIdMapping& map, bool) const
{
    return CloneOne(*this, AcDbObject::cast(owner), clone, map);
}

Acad::ErrorStatus AcDbDatabase::deepCloneObjects(AcDbObjectIdArray& objects, AcDbObjectId& owner, AcDbIdMapping& map,
                                                 bool)
{
    for (int i = 0; i < objects.length(); ++i)
        if (objects.at(i).database() != this)
            return Acad::eWrongDatabase;
    map.setDestDb(this);
    return Cloner(*m_core, map).Clone(objects, owner);
}

Acad::ErrorStatus AcDbDatabase::wblockCloneObjects(AcDbObjectIdArray& objects, AcDbObjectId& owner, AcDbIdMapping& map,
                                                   AcDb::DuplicateRecordCloning cloning, bool)
{
    if (owner.database() == nullptr)
        return Acad::eInvalidInput;
    map.setDestDb(owner.database());
    map.setDuplicateRecordCloning(cloning);
    return Cloner(CoreOf(*owner.database()), map).Clone(objects, owner);
}

Acad::ErrorStatus AcDbDatabase::wblock(AcDbDatabase*& output, const AcDbObjectIdArray& objects,
                                       const AcGePoint3d& basePoint)
{
    output = new AcDbDatabase(true, true);
    AcDbIdMapping map;
    AcDbObjectIdArray ids = objects;
    AcDbObjectId owner = CoreOf(*output).modelSpace;
    const Acad::ErrorStatus status = wblockCloneObjects(ids, owner, map, AcDb::kDrcIgnore);
    if (status != Acad::eOk) {
        delete output;
        output = nullptr;
        return status;
    }
    return output->setInsbase(basePoint);
}

Acad::ErrorStatus AcDbDatabase::wblock(AcDbDatabase*& output, AcDbObjectId block)
{
    const AcDbStub* stub = block;
    const AcDbBlockTableRecord* record = stub == nullptr ? nullptr : AcDbBlockTableRecord::cast(stub->object);
    if (record == nullptr || block.database() != this)
        return Acad::eInvalidInput;
    return wblock(output, EntitiesOf(block), record->origin());
}

Acad::ErrorStatus AcDbDatabase::wblock(AcDbDatabase*& output)
{
    output = new AcDbDatabase(false, true);
    DbCore& to = CoreOf(*output);
    to.form.version = m_core->form.version;
    to.form.codePage = m_core->form.codePage;
    to.form.codePageNumber = m_core->form.codePageNumber;
    CompleteDrawing(to);
    AcDbIdMapping map;
    map.setDestDb(output);
    Cloner(to, map).CloneWhole(*m_core);
    to.currentSpace =
        m_core->currentSpace == nullptr ? to.modelSpace : static_cast<AcDbStub*>(map.find(m_core->currentSpace));
    to.undo.Clear();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::insert(AcDbObjectId& block, const ACHAR* blockName, AcDbDatabase* source, bool)
{
    if (source == nullptr || blockName == nullptr || *blockName == 0)
        return Acad::eInvalidInput;
    AcDbBlockTable* table = nullptr;
    Acad::ErrorStatus status = getSymbolTable(table, AcDb::kForWrite);
    if (status != Acad::eOk)
        return status;
    AcDbBlockTableRecord* record = new AcDbBlockTableRecord;
    status = record->setName(blockName);
    if (status == Acad::eOk)
        status = table->add(block, record);
    table->close();
    if (status != Acad::eOk) {
        delete record;
        return status;
    }
    record->setOrigin(source->insbase());
    record->close();
    AcDbIdMapping map;
    AcDbObjectIdArray ids = EntitiesOf(CoreOf(*source).modelSpace);
    return wblockCloneObjects(ids, block, map, AcDb::kDrcIgnore);
}
