#include "Cloner.h"
#include "../AcDbBlockTableRecord.h"
#include "../AcDbDatabase.h"
#include "../AcDbDictionary.h"
#include "../AcDbEntity.h"
#include "../AcDbSymbolTable.h"
#include "DefaultDrawing.h"
#include "ObjectAccess.h"

namespace KxPlat {

namespace {

// The table that a record's class belongs to, or Count for what is no record.
TableKind KindOf(const DbCore& core, const AcDbObject& object)
{
    for (size_t i = 0; i < kTableCount; ++i)
        if (object.isKindOf(core.Table(TableKind(i))->recordClass()))
            return TableKind(i);
    return TableKind::Count;
}

const AcDbObject* ObjectOf(AcDbObjectId id)
{
    const AcDbStub* stub = id;
    return stub == nullptr ? nullptr : stub->object;
}

}   // namespace

// What every drawing has once means the same in the other one.
AcDbObjectId Cloner::Existing(AcDbObjectId source) const
{
    if (source.isNull() || source.database() == m_to.database)
        return source;
    const DbCore& from = CoreOf(*source.database());
    for (size_t i = 0; i < kTableCount; ++i)
        if (source == AcDbObjectId(from.tables[i]))
            return m_to.tables[i];
    if (source == AcDbObjectId(from.namedObjects))
        return m_to.namedObjects;
    return AcDbObjectId();
}

CString Cloner::MangledName(TableKind kind, const CString& name) const
{
    CString mangled;
    for (int i = 0;; ++i) {
        mangled.Format(L"$%d$%s", i, static_cast<const wchar_t*>(name));
        if (m_to.Table(kind)->find(std::wstring_view(mangled, size_t(mangled.GetLength()))) == nullptr)
            return mangled;
    }
}

AcDbObjectId Cloner::CopyRecord(AcDbObjectId source, TableKind kind)
{
    const AcDbSymbolTableRecord& from = static_cast<const AcDbSymbolTableRecord&>(*ObjectOf(source));
    CString name = from.nameText();
    AcDbStub* there = m_to.Table(kind)->find(std::wstring_view(name, size_t(name.GetLength())));
    const bool isAnonymous = kind == TableKind::Block && !name.IsEmpty() && name[0] == L'*';
    const bool isRenamed = m_map.duplicateRecordCloning() == AcDb::kDrcMangleName || isAnonymous;
    if (there != nullptr && !isRenamed && m_map.duplicateRecordCloning() != AcDb::kDrcReplace) {
        m_map.assign(AcDbIdPair(source, there, false));
        return there;
    }
    if (there != nullptr && m_map.duplicateRecordCloning() == AcDb::kDrcReplace && kind != TableKind::Block) {
        AcDbObject* replaced = nullptr;
        if (OpenStub(there, AcDb::kForWrite, false, replaced) == Acad::eOk) {
            replaced->assertWriteEnabled();
            CopyFields(*replaced, from);
            replaced->close();
            m_made.push_back(there);
        }
        m_map.assign(AcDbIdPair(source, there, true));
        return there;
    }
    if (there != nullptr)
        name = MangledName(kind, name);
    AcDbSymbolTableRecord* copy = NewRecord(kind);
    CopyFields(*copy, from);
    copy->takeName(name);
    m_to.Adopt(copy, 0, m_to.Table(kind)->objectId(), true);
    m_to.Table(kind)->attach(copy->objectId());
    m_map.assign(AcDbIdPair(source, copy->objectId(), true));
    m_made.push_back(copy->objectId());
    CopyOwned(from, *copy);
    if (kind == TableKind::Block)
        CopyBlockContents(source, copy->objectId());
    copy->close();
    return copy->objectId();
}

void Cloner::CopyBlockContents(AcDbObjectId source, AcDbObjectId target)
{
    const AcDbBlockTableRecord& from = static_cast<const AcDbBlockTableRecord&>(*ObjectOf(source));
    AcDbStub* targetStub = target;
    AcDbBlockTableRecord& to = static_cast<AcDbBlockTableRecord&>(*targetStub->object);
    if (from.beginStub() != nullptr)
        to.setBegin(Copy(from.beginStub(), target, false));
    if (from.endStub() != nullptr)
        to.setEnd(Copy(from.endStub(), target, false));
    to.nameBegin();
    to.completeBlock();
    for (AcDbStub* entity : from.entities())
        if (!entity->erased && entity->object != nullptr)
            to.attach(Copy(entity, target, false));
}

// What an object owns is copied with it: its extension dictionary, vertices and attributes, entries of a dictionary.
void Cloner::CopyOwned(const AcDbObject& from, AcDbObject& to)
{
    VisitReferences(to, [&](AcDbObjectId& id, Reference kind) {
        if ((kind != Reference::HardOwner && kind != Reference::SoftOwner) || ObjectOf(id) == nullptr || id.isErased())
            return;
        if (ObjectOf(id)->ownerId() == from.objectId() && m_map.find(id).isNull())
            Copy(id, to.objectId(), false);
    });
    const AcDbEntity* entity = AcDbEntity::cast(&from);
    AcDbEntity* copy = AcDbEntity::cast(&to);
    if (entity != nullptr && entity->parts() != nullptr)
        for (AcDbStub* part : *entity->parts())
            if (!part->erased && part->object != nullptr)
                copy->attachPart(Copy(part, to.objectId(), false));
}

AcDbObjectId Cloner::Copy(AcDbObjectId source, AcDbObjectId owner, bool isPrimary)
{
    const AcDbObjectId known = m_map.find(source);
    if (!known.isNull())
        return known;
    const AcDbObject& from = *ObjectOf(source);
    AcDbObject* copy = AcDbObject::cast(from.clone());
    if (copy == nullptr)
        return AcDbObjectId();
    m_to.Adopt(copy, 0, owner, true);
    m_map.assign(AcDbIdPair(source, copy->objectId(), true, isPrimary));
    m_made.push_back(copy->objectId());
    CopyOwned(from, *copy);
    copy->close();
    return copy->objectId();
}

// References of the clones: to what was cloned, to what exists on both sides, to table records brought along, else
// none.
void Cloner::Translate()
{
    // Bringing a record along makes more clones, which are met further on.
    for (size_t i = 0; i < m_made.size(); ++i) {
        AcDbObject& clone = *m_made[i]->object;
        VisitReferences(clone, [&](AcDbObjectId& id, Reference kind) {
            if (id.isNull())
                return;
            const AcDbObjectId mapped = m_map.find(id);
            if (!mapped.isNull()) {
                id = mapped;
                return;
            }
            if (id.database() == m_to.database)
                return;
            const AcDbObject* target = ObjectOf(id);
            const AcDbObjectId existing = id.database() == nullptr ? AcDbObjectId() : Existing(id);
            const TableKind table = target == nullptr ? TableKind::Count : KindOf(m_to, *target);
            if (!existing.isNull())
                id = existing;
            else if (table != TableKind::Count && kind == Reference::HardPointer && !id.isErased())
                id = CopyRecord(id, table);
            else if (kind == Reference::HardPointer && target != nullptr && !id.isErased())
                id = Copy(id, m_to.namedObjects, false);
            else
                id.setNull();
        });
    }
}

Acad::ErrorStatus Cloner::Clone(const AcDbObjectIdArray& objects, AcDbObjectId owner)
{
    AcDbStub* ownerStub = owner;
    if (ownerStub == nullptr || ownerStub->object == nullptr || ownerStub->database != m_to.database)
        return Acad::eInvalidInput;
    AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(ownerStub->object);
    for (int i = 0; i < objects.length(); ++i) {
        const AcDbObject* source = ObjectOf(objects.at(i));
        if (source == nullptr || objects.at(i).isErased())
            return Acad::eInvalidInput;
        const TableKind kind = KindOf(m_to, *source);
        if (kind != TableKind::Count) {
            CopyRecord(objects.at(i), kind);
            continue;
        }
        const bool isNew = m_map.find(objects.at(i)).isNull();
        AcDbStub* copy = Copy(objects.at(i), owner, true);
        if (copy == nullptr)
            return Acad::eNotApplicable;
        if (isNew && block != nullptr && source->isKindOf(AcDbEntity::desc())) {
            block->attach(copy);
            static_cast<AcDbEntity*>(copy->object)->setInPaperSpace(block->isPaperSpace());
        }
    }
    Translate();
    return Acad::eOk;
}

}   // namespace KxPlat
