// Table records brought to another drawing, and the names that they get there.
#include "../../win/CharTables.h"
#include "../AcDbBlockTableRecord.h"
#include "../AcDbDatabase.h"
#include "../AcDbEntity.h"
#include "Cloner.h"
#include "ClonerParts.h"
#include "DefaultDrawing.h"
#include "ObjectAccess.h"
#include <utility>

namespace KxPlat {

namespace {

// Records that every drawing has and that mean the same in each: an xref's use the host's.
struct SharedRow {
    TableKind kind;
    const wchar_t* name;
};

const SharedRow kShared[] = {
    {TableKind::Layer, L"0"},          {TableKind::Layer, L"Defpoints"},     {TableKind::Linetype, L"ByLayer"},
    {TableKind::Linetype, L"ByBlock"}, {TableKind::Linetype, L"Continuous"},
};

bool IsShared(TableKind kind, const CString& name)
{
    if (kind == TableKind::RegApp)
        return true;
    for (const SharedRow& row : kShared)
        if (row.kind == kind && EqualNoCase(ViewOf(name), row.name))
            return true;
    return false;
}

bool IsXrefBlock(const AcDbObject& record)
{
    const AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(&record);
    return block != nullptr && (block->isFromExternalReference() || block->isFromOverlayReference());
}

bool HasLiveEntities(const AcDbBlockTableRecord& block)
{
    for (const AcDbStub* entity : block.entities())
        if (!entity->erased)
            return true;
    return false;
}

void EraseEntities(AcDbBlockTableRecord& block)
{
    for (AcDbStub* entity : block.entities()) {
        AcDbObject* opened = nullptr;
        if (OpenStub(entity, AcDb::kForWrite, false, opened) != Acad::eOk)
            continue;
        opened->erase();
        opened->close();
    }
}

}   // namespace

CString Cloner::MangledName(TableKind kind, const CString& name) const
{
    CString mangled;
    for (int i = 0;; ++i) {
        mangled.Format(L"$%d$%s", i, static_cast<const wchar_t*>(name));
        if (m_to.Table(kind)->find(ViewOf(mangled)) == nullptr)
            return mangled;
    }
}

// "*U7" becomes the first free one of its letter.
CString Cloner::NextAnonymous(const CString& name) const
{
    const CString letter = name.Mid(1).SpanExcluding(L"0123456789");
    CString next;
    for (int i = 1;; ++i) {
        next.Format(L"*%s%d", static_cast<const wchar_t*>(letter), i);
        if (m_to.Table(TableKind::Block)->find(ViewOf(next)) == nullptr)
            return next;
    }
}

Cloner::Place Cloner::PlaceOf(const AcDbSymbolTableRecord& from, TableKind kind) const
{
    Place place;
    place.name = from.nameText();
    // The viewports that share the screen all have one name.
    place.there = kind == TableKind::Viewport ? nullptr : m_to.Table(kind)->find(ViewOf(place.name));
    if (place.there == nullptr)
        return place;
    // Spaces and applications mean the same in every drawing.
    const AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(&from);
    const bool isSpace = block != nullptr && (block->isModelSpace() || block->isPaperSpace());
    if (kind == TableKind::RegApp || (isSpace && !m_isWhole))
        return place;
    if (isSpace) {
        place.isReplaced = true;
        return place;
    }
    const AcDb::DuplicateRecordCloning mode = m_map.duplicateRecordCloning();
    if (block != nullptr && block->isAnonymous()) {
        place.name = NextAnonymous(place.name);
        place.there = nullptr;
    } else if (mode == AcDb::kDrcMangleName || mode == AcDb::kDrcXrefMangleName) {
        place.name = MangledName(kind, place.name);
        place.there = nullptr;
    } else {
        place.isReplaced = mode == AcDb::kDrcReplace;
    }
    return place;
}

// A dependent record that the host's file kept is filled again; a layer keeps the state that its user gave it there.
Cloner::Place Cloner::XrefPlaceOf(const AcDbSymbolTableRecord& from, TableKind kind) const
{
    Place place;
    place.name = from.nameText();
    if (IsShared(kind, place.name)) {
        place.there = m_to.Table(kind)->find(ViewOf(place.name));
        return place;
    }
    if (place.name.Find(L'|') < 0 && !IsXrefBlock(from))
        place.name = m_xref + L"|" + place.name;
    place.there = m_to.Table(kind)->find(ViewOf(place.name));
    if (place.there == nullptr)
        return place;
    const AcDbSymbolTableRecord& known = static_cast<const AcDbSymbolTableRecord&>(*place.there->object);
    if (const AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(&known))
        place.isReplaced = block->isDependent() && !HasLiveEntities(*block);
    else
        place.isReplaced = kind != TableKind::Layer || m_to.header.Integer("$VISRETAIN", 1) == 0;
    return place;
}

// The host keeps no data of an xref's records besides what they say themselves.
void Cloner::MarkDependent(AcDbSymbolTableRecord& record, TableKind kind, const AcDbSymbolTableRecord& from) const
{
    if (m_xref.IsEmpty() || IsShared(kind, record.nameText()))
        return;
    if (ObjectAccess::Find(record) != nullptr) {
        ObjectAccess::Make(record).extensionDictionary.setNull();
        ObjectAccess::Make(record).reactors.clear();
    }
    record.setDependent(true);
    if (AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(&record))
        block->setXrefStatus(static_cast<const AcDbBlockTableRecord&>(from).xrefStatus());
}

AcDbObjectId Cloner::CopyRecord(AcDbObjectId source, TableKind kind)
{
    const AcDbObjectId known = m_map.find(source);
    if (!known.isNull())
        return known;
    const AcDbSymbolTableRecord& from = static_cast<const AcDbSymbolTableRecord&>(*ObjectOf(source));
    const Place place = m_xref.IsEmpty() ? PlaceOf(from, kind) : XrefPlaceOf(from, kind);
    AcDbSymbolTableRecord* record = nullptr;
    if (place.there != nullptr && !place.isReplaced) {
        m_map.assign(AcDbIdPair(source, place.there, false));
        return place.there;
    }
    if (place.there != nullptr) {
        AcDbObject* opened = nullptr;
        if (OpenStub(place.there, AcDb::kForWrite, false, opened) != Acad::eOk) {
            m_map.assign(AcDbIdPair(source, place.there, false));
            return place.there;
        }
        record = static_cast<AcDbSymbolTableRecord*>(opened);
        record->assertWriteEnabled();
        CopyFields(*record, from);
        record->takeName(place.name);
        if (AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(record))
            EraseEntities(*block);
    } else {
        record = NewRecord(kind);
        CopyFields(*record, from);
        record->takeName(place.name);
        m_to.Adopt(record, 0, m_to.Table(kind)->objectId(), true);
        m_to.Table(kind)->attach(record->objectId());
    }
    const AcDbObjectId copy = record->objectId();
    m_map.assign(AcDbIdPair(source, copy, true));
    m_made.push_back(copy);
    TranslateNamesInXData(*record, from.database());
    if (m_xref.IsEmpty())
        CopyOwned(from, *record);
    if (kind == TableKind::Block)
        CopyBlockContents(source, copy);
    MarkDependent(*record, kind, from);
    record->close();
    return copy;
}

void Cloner::CopyBlockContents(AcDbObjectId source, AcDbObjectId target)
{
    const AcDbBlockTableRecord& from = static_cast<const AcDbBlockTableRecord&>(*ObjectOf(source));
    AcDbStub* targetStub = target;
    AcDbBlockTableRecord& to = static_cast<AcDbBlockTableRecord&>(*targetStub->object);
    if (from.beginStub() != nullptr && to.beginStub() == nullptr)
        to.setBegin(Copy(from.beginStub(), target, false));
    if (from.endStub() != nullptr && to.endStub() == nullptr)
        to.setEnd(Copy(from.endStub(), target, false));
    to.completeBlock();
    to.nameBegin();
    to.setBlockFlags(from.blockFlags());
    to.setOrigin(from.origin());
    const bool didKeep = std::exchange(m_keepsXref, m_xref.IsEmpty() && (IsXrefBlock(from) || from.isDependent()));
    for (AcDbStub* entity : from.entities())
        if (!entity->erased && entity->object != nullptr)
            Attached(entity, to, false);
    m_keepsXref = didKeep;
}

}   // namespace KxPlat
