// What the references of clones become: the clone of what they meant, what means the same in the other drawing, or
// something brought along.
#include "../AcDbBlockTableRecord.h"
#include "../AcDbDatabase.h"
#include "../AcDbDictionary.h"
#include "../AcDbEntity.h"
#include "Cloner.h"
#include "ClonerParts.h"
#include "DefaultDrawing.h"
#include "NamingLists.h"
#include "ObjectAccess.h"
#include <algorithm>

namespace KxPlat {

// What every drawing has once means the same in the other one.
AcDbObjectId Cloner::Existing(AcDbObjectId source) const
{
    const DbCore& from = CoreOf(*source.database());
    for (size_t i = 0; i < kTableCount; ++i)
        if (source == AcDbObjectId(from.tables[i]))
            return m_to.tables[i];
    if (source == AcDbObjectId(from.namedObjects))
        return m_to.namedObjects;
    return AcDbObjectId();
}

// The dictionary of the same path below the named object dictionary, made where it is missing; null for one that hangs
// elsewhere.
AcDbObjectId Cloner::DictionaryLike(const AcDbObject& dictionary)
{
    const DbCore& from = CoreOf(*dictionary.database());
    if (dictionary.objectId() == AcDbObjectId(from.namedObjects))
        return m_to.namedObjects;
    const AcDbObject* owner = ObjectOf(dictionary.ownerId());
    const AcDbDictionary* parent = AcDbDictionary::cast(owner);
    ACHAR* name = nullptr;
    if (parent == nullptr || parent->nameAt(dictionary.objectId(), name) != Acad::eOk)
        return AcDbObjectId();
    AcDbObjectId made;
    AcDbStub* there = DictionaryLike(*parent);
    if (there != nullptr)
        made = EnsureDictionary(m_to, static_cast<AcDbDictionary*>(there->object), name)->objectId();
    acutDelString(name);
    return made;
}

// A style or definition that a dictionary lists by name: the one of that name, or a copy in its place.
AcDbObjectId Cloner::CopyListed(AcDbObjectId source)
{
    const AcDbDictionary* dictionary = AcDbDictionary::cast(ObjectOf(ObjectOf(source)->ownerId()));
    ACHAR* text = nullptr;
    if (dictionary == nullptr || dictionary->nameAt(source, text) != Acad::eOk)
        return AcDbObjectId();
    const CString name(text);
    acutDelString(text);
    AcDbStub* target = DictionaryLike(*dictionary);
    AcDbDictionary* list = target == nullptr ? nullptr : AcDbDictionary::cast(target->object);
    if (list == nullptr)
        return AcDbObjectId();
    AcDbObjectId id;
    if (list->getAt(name, id) == Acad::eOk) {
        m_map.assign(AcDbIdPair(source, id, false));
        return id;
    }
    AcDbStub* copy = Copy(source, target, false);
    AcDbObject* opened = nullptr;
    if (copy == nullptr || OpenStub(target, AcDb::kForWrite, false, opened) != Acad::eOk)
        return copy;
    static_cast<AcDbDictionary*>(opened)->setAt(name, copy->object, id);
    opened->close();
    return copy;
}

// What an entity points to hard comes into the same block: the text of a leader, the image of a frame.
AcDbObjectId Cloner::CopyPointedEntity(AcDbObjectId source)
{
    AcDbStub* owner = m_map.find(ObjectOf(source)->ownerId());
    const bool isInClonedBlock = owner != nullptr && AcDbBlockTableRecord::cast(owner->object) != nullptr;
    return Attached(source, static_cast<AcDbBlockTableRecord&>(*(isInClonedBlock ? owner : m_block)->object), false);
}

// The counterpart of something that a clone cannot do without; null when there can be none.
AcDbObjectId Cloner::Brought(AcDbObjectId source, AcDbObjectId referrer)
{
    const AcDbObject& target = *ObjectOf(source);
    const TableKind table = TableOf(m_to, target);
    if (table != TableKind::Count)
        return CopyRecord(source, table);
    if (target.isKindOf(AcDbEntity::desc())) {
        const AcDbObject* owner = ObjectOf(target.ownerId());
        const bool isWhole = owner != nullptr && owner->isKindOf(AcDbBlockTableRecord::desc());
        return isWhole && ObjectOf(referrer)->isKindOf(AcDbEntity::desc()) ? CopyPointedEntity(source) : AcDbObjectId();
    }
    return CopyListed(source);
}

void Cloner::TranslateOne(AcDbStub* clone)
{
    TranslateReactors(*clone->object);
    VisitReferences(*clone->object, [&](AcDbObjectId& id, Reference kind) {
        if (id.isNull())
            return;
        const AcDbObjectId mapped = m_map.find(id);
        if (!mapped.isNull()) {
            id = mapped;
            return;
        }
        if (id.database() == m_to.database)
            return;
        // A record that is only named belongs to no database: its name comes along.
        const AcDbObject* target = ObjectOf(id);
        const AcDbObjectId existing = id.database() == nullptr ? AcDbObjectId() : Existing(id);
        const bool isNeeded = kind == Reference::HardPointer && target != nullptr && !id.isErased();
        id = !existing.isNull() ? existing : isNeeded ? Brought(id, clone) : AcDbObjectId();
    });
}

// Applications and layers that data only names come along as well, and the layers' names become those that they have in
// the destination.
void Cloner::TranslateNamesInXData(AcDbObject& copy, const AcDbDatabase* from)
{
    if (from == nullptr || from == m_to.database)
        return;
    ForEachNamingList(copy, [&](GroupList& groups) {
        for (GroupValue& group : groups) {
            if (group.code != 1001 && group.code != 1003)
                continue;
            const TableKind kind = group.code == 1001 ? TableKind::RegApp : TableKind::Layer;
            AcDbStub* source = CoreOf(*from).Table(kind)->find(ViewOf(group.text()));
            if (source != nullptr)
                group.value = static_cast<const AcDbSymbolTableRecord*>(ObjectOf(CopyRecord(source, kind)))->nameText();
        }
    });
}

// A reactor that was not cloned knows nothing of the clone.
void Cloner::TranslateReactors(AcDbObject& clone)
{
    if (ObjectAccess::Find(clone) == nullptr)
        return;
    std::vector<AcDbObjectId>& reactors = ObjectAccess::Make(clone).reactors;
    std::erase_if(reactors, [&](AcDbObjectId& reactor) {
        const AcDbObjectId mapped = m_map.find(reactor);
        if (!mapped.isNull())
            reactor = mapped;
        return mapped.isNull() && reactor != clone.ownerId();
    });
}

void Cloner::Translate()
{
    // Bringing a record along makes more clones, which are met further on.
    for (; m_translated < m_made.size(); ++m_translated)
        TranslateOne(m_made[m_translated]);
}

}   // namespace KxPlat
