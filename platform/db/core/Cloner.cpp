#include "Cloner.h"
#include "../AcDbBlockReference.h"
#include "../AcDbBlockTableRecord.h"
#include "../AcDbDatabase.h"
#include "../AcDbEntity.h"
#include "../AcDbSymbolTable.h"
#include "ClonerParts.h"
#include "ObjectAccess.h"
#include <algorithm>

namespace KxPlat {

AcDbObjectId Cloner::Copy(AcDbObjectId source, AcDbObjectId owner, bool isPrimary)
{
    const AcDbObjectId known = m_map.find(source);
    if (!known.isNull())
        return known;
    const AcDbObject& from = *ObjectOf(source);
    AcDbObject* copy = AcDbObject::cast(from.clone());
    if (copy == nullptr)
        return AcDbObjectId();
    // A copy on its own has neither; here they are what the translation starts from.
    if (const Annex* annex = ObjectAccess::Find(from)) {
        ObjectAccess::Make(*copy).extensionDictionary = annex->extensionDictionary;
        ObjectAccess::Make(*copy).reactors = annex->reactors;
    }
    m_to.Adopt(copy, 0, owner, true);
    AcDbStub* stub = ObjectAccess::Stub(*copy);
    const AcDbStub* ownerStub = owner;
    const AcDbStub* sourceStub = source;
    stub->fromXref = (ownerStub != nullptr && ownerStub->fromXref) || (m_keepsXref && sourceStub->fromXref);
    m_map.assign(AcDbIdPair(source, stub, true, isPrimary));
    m_made.push_back(stub);
    TranslateNamesInXData(*copy, from.database());
    CopyOwned(from, *copy);
    copy->close();
    return stub;
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

namespace {

// Overlays are seen in the drawing that they are attached to, and no further up.
bool ShowsOverlay(const AcDbObject& object)
{
    const AcDbBlockReference* insert = AcDbBlockReference::cast(&object);
    if (insert == nullptr)
        return false;
    const AcDbStub* stub = insert->blockTableRecord();
    const AcDbBlockTableRecord* block = stub == nullptr ? nullptr : AcDbBlockTableRecord::cast(stub->object);
    return block != nullptr && block->isFromOverlayReference();
}

}   // namespace

// A copy of the entity at the end of the block; null where it cannot be copied.
AcDbStub* Cloner::Attached(AcDbStub* source, AcDbBlockTableRecord& block, bool isPrimary)
{
    if (!m_xref.IsEmpty() && ShowsOverlay(*source->object))
        return nullptr;
    const bool isNew = m_map.find(source).isNull();
    AcDbStub* copy = Copy(source, block.objectId(), isPrimary);
    if (copy == nullptr || !isNew)
        return copy;
    copy->fromXref = copy->fromXref || !m_xref.IsEmpty();
    block.attach(copy);
    static_cast<AcDbEntity*>(copy->object)->setInPaperSpace(block.isPaperSpace());
    return copy;
}

Acad::ErrorStatus Cloner::Clone(const AcDbObjectIdArray& objects, AcDbObjectId owner)
{
    AcDbStub* ownerStub = owner;
    if (ownerStub == nullptr || ownerStub->object == nullptr || ownerStub->database != m_to.database)
        return Acad::eInvalidInput;
    for (int i = 0; i < objects.length(); ++i)
        if (ObjectOf(objects.at(i)) == nullptr || objects.at(i).isErased())
            return Acad::eInvalidInput;
    AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(ownerStub->object);
    m_block = block == nullptr ? m_to.modelSpace : ownerStub;
    for (int i = 0; i < objects.length(); ++i) {
        const AcDbObject& source = *ObjectOf(objects.at(i));
        const TableKind kind = TableOf(m_to, source);
        AcDbStub* copy = nullptr;
        if (kind != TableKind::Count)
            copy = CopyRecord(objects.at(i), kind);
        else if (block != nullptr && source.isKindOf(AcDbEntity::desc()))
            copy = Attached(objects.at(i), *block, true);
        else
            copy = Copy(objects.at(i), owner, true);
        if (copy == nullptr)
            return Acad::eNotApplicable;
    }
    Translate();
    CarryGroups();
    Translate();
    if (block != nullptr)
        CarryDrawOrder(objects, *block);
    return Acad::eOk;
}

namespace {

// Neither a shape file nor a space, an unnamed block or an overlay.
bool IsNamed(const AcDbSymbolTableRecord& record)
{
    const AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(&record);
    return !record.nameText().IsEmpty() && record.nameText()[0] != L'*' &&
           (block == nullptr || !block->isFromOverlayReference());
}

}   // namespace

void Cloner::CloneXref(DbCore& source, AcDbBlockTableRecord& target)
{
    m_xref = target.nameText();
    m_block = ObjectAccess::Stub(target);
    m_map.assign(AcDbIdPair(source.modelSpace, m_block, false));
    // Everything that the xref has a name for is there to be chosen from, used or not.
    for (TableKind kind :
         {TableKind::Linetype, TableKind::Layer, TableKind::TextStyle, TableKind::DimStyle, TableKind::Block})
        for (AcDbStub* stub : source.Table(kind)->records())
            if (!stub->erased && IsNamed(static_cast<const AcDbSymbolTableRecord&>(*stub->object)))
                CopyRecord(stub, kind);
    // Nothing of an xref's draw order is saved with the host: its entities come in that order.
    const AcDbObjectIdArray shown = InDrawOrder(static_cast<AcDbBlockTableRecord&>(*source.modelSpace->object));
    for (int i = 0; i < shown.length(); ++i)
        Attached(shown.at(i), target, true);
    Translate();
}

}   // namespace KxPlat
