#include "AcDbGroup.h"
#include "../rx/acutads.h"
#include "AcDbDictionary.h"
#include "AcDbEntity.h"
#include "core/Fields.h"
#include "core/IdListField.h"
#include "core/Stub.h"
#include <algorithm>

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbGroup, AcDbObject, 0, 0, 0, GROUP, AcDb)

const ClassSchema& AcDbGroup::fieldSchema()
{
    static const IdListField<AcDbGroup> members(340, &AcDbGroup::m_members);
    static const ClassSchema schema(&AcDbObject::fieldSchema(), "GROUP", "AcDbGroup",
                                    {
                                        Text(300, &AcDbGroup::m_description).always(),
                                        Int16(70, &AcDbGroup::m_isUnnamed).always(),
                                        Int16(71, &AcDbGroup::m_isSelectable, 1).always(),
                                        List(&members),
                                    });
    return schema;
}

namespace {

bool IsLive(AcDbObjectId id)
{
    return !id.isErased();
}

// Members know their group by a persistent reactor; one that is open elsewhere keeps what it has.
void Mark(AcDbObjectId member, AcDbObjectId group, bool isIn)
{
    AcDbObject* object = nullptr;
    if (group.isNull() || acdbOpenObject(object, member, AcDb::kForWrite) != Acad::eOk)
        return;
    if (isIn)
        object->addPersistentReactor(group);
    else
        object->removePersistentReactor(group);
    object->close();
}

}   // namespace

Acad::ErrorStatus AcDbGroup::setDescription(const ACHAR* description)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_description = description;
    return status;
}

Acad::ErrorStatus AcDbGroup::setSelectable(bool selectable)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_isSelectable = selectable;
    return status;
}

ACHAR* AcDbGroup::name() const
{
    ACHAR* text = nullptr;
    getName(text);
    return text;
}

Acad::ErrorStatus AcDbGroup::getName(ACHAR*& name) const
{
    name = nullptr;
    const AcDbStub* owner = ownerId();
    const AcDbDictionary* dictionary = owner == nullptr ? nullptr : AcDbDictionary::cast(owner->object);
    return dictionary == nullptr ? Acad::eNoDatabase : dictionary->nameAt(objectId(), name);
}

Acad::ErrorStatus AcDbGroup::setName(const ACHAR* newName)
{
    ACHAR* old = nullptr;
    Acad::ErrorStatus status = getName(old);
    AcDbDictionary* dictionary = nullptr;
    if (status == Acad::eOk)
        status = acdbOpenObject(dictionary, ownerId(), AcDb::kForWrite);
    if (status == Acad::eOk) {
        if (!dictionary->setName(old, newName))
            status = Acad::eDuplicateKey;
        dictionary->close();
    }
    acutDelString(old);
    return status;
}

Acad::ErrorStatus AcDbGroup::setAnonymous()
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_isUnnamed = 1;
    return status;
}

Adesk::UInt32 AcDbGroup::numEntities() const
{
    return Adesk::UInt32(std::count_if(m_members.begin(), m_members.end(), IsLive));
}

Adesk::UInt32 AcDbGroup::allEntityIds(AcDbObjectIdArray& ids) const
{
    for (AcDbObjectId id : m_members)
        if (IsLive(id))
            ids.append(id);
    return Adesk::UInt32(ids.length());
}

bool AcDbGroup::has(AcDbObjectId id) const
{
    return std::find(m_members.begin(), m_members.end(), id) != m_members.end();
}

Acad::ErrorStatus AcDbGroup::append(AcDbObjectId id)
{
    if (id.isErased() || !id.objectClass()->isDerivedFrom(AcDbEntity::desc()))
        return Acad::eNotAnEntity;
    if (database() != nullptr && id.database() != database())
        return Acad::eWrongDatabase;
    if (has(id))
        return Acad::eDuplicateKey;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_members.push_back(id);
    Mark(id, objectId(), true);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::append(const AcDbObjectIdArray& ids)
{
    for (int i = 0; i < ids.length(); ++i) {
        const Acad::ErrorStatus status = append(ids.at(i));
        if (status != Acad::eOk && status != Acad::eDuplicateKey)
            return status;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::remove(AcDbObjectId id)
{
    if (!has(id))
        return Acad::eKeyNotFound;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_members.erase(std::find(m_members.begin(), m_members.end(), id));
    Mark(id, objectId(), false);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::clear()
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    for (AcDbObjectId id : m_members)
        Mark(id, objectId(), false);
    m_members.clear();
    return Acad::eOk;
}

AcDbGroupIterator::AcDbGroupIterator(const AcDbGroup& group)
{
    for (AcDbObjectId id : group.members())
        if (IsLive(id))
            m_ids.push_back(id);
}

AcDbObjectId AcDbGroupIterator::objectId() const
{
    return done() ? AcDbObjectId() : m_ids[m_at];
}

Acad::ErrorStatus AcDbGroupIterator::getObject(AcDbObject*& object, AcDb::OpenMode mode) const
{
    object = nullptr;
    return done() ? Acad::eInvalidInput : acdbOpenObject(object, objectId(), mode);
}

bool AcDbGroupIterator::next()
{
    if (!done())
        ++m_at;
    return !done();
}
