#include "XrefBinder.h"
#include "../AcDbBlockTableRecord.h"
#include "../AcDbDatabase.h"
#include "../AcDbEntity.h"
#include "ClonerParts.h"
#include "ObjectAccess.h"
#include "XrefLoader.h"

namespace KxPlat {

namespace {

// What stood in the block for as long as its own file did is saved with the host from now on.
void Keep(AcDbStub* stub)
{
    if (stub == nullptr || stub->object == nullptr || !stub->fromXref)
        return;
    stub->fromXref = false;
    const AcDbEntity* entity = AcDbEntity::cast(stub->object);
    if (entity != nullptr && entity->parts() != nullptr)
        for (AcDbStub* part : *entity->parts())
            Keep(part);
    VisitReferences(*stub->object, [&](AcDbObjectId& id, Reference kind) {
        if (kind == Reference::HardOwner || kind == Reference::SoftOwner)
            Keep(id);
    });
}

void KeepContents(AcDbBlockTableRecord& block)
{
    for (AcDbStub* entity : block.entities())
        Keep(entity);
}

void Rename(AcDbSymbolTable& table, AcDbSymbolTableRecord& record, const CString& name)
{
    const CString old = record.nameText();
    record.takeName(name);
    table.renamed(record, old);
    if (AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(&record))
        block->nameBegin();
}

}   // namespace

// "xref$0$name", with the first number that makes it new.
CString XrefBinder::BoundName(TableKind kind, const CString& xref, const CString& name) const
{
    CString bound;
    for (int i = 0;; ++i) {
        bound.Format(L"%s$%d$%s", static_cast<const wchar_t*>(xref), i, static_cast<const wchar_t*>(name));
        if (m_core.Table(kind)->find(ViewOf(bound)) == nullptr)
            return bound;
    }
}

void XrefBinder::BindRecord(AcDbSymbolTableRecord& record, TableKind kind, const CString& xref)
{
    AcDbSymbolTable& table = *m_core.Table(kind);
    const CString plain = record.nameText().Mid(xref.GetLength() + 1);
    AcDbStub* there = m_merges ? table.find(ViewOf(plain)) : nullptr;
    if (AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(&record))
        KeepContents(*block);
    record.setDependent(false);
    if (there != nullptr)
        m_merged.emplace(record.objectId(), AcDbObjectId(there));
    else
        Rename(table, record, m_merges ? plain : BoundName(kind, xref, plain));
}

// Whoever meant a record that gave way means the host's own from now on.
void XrefBinder::Redirect()
{
    if (m_merged.empty())
        return;
    m_core.handles.ForEach([&](AcDbStub& stub) {
        if (stub.object == nullptr)
            return;
        VisitReferences(*stub.object, [&](AcDbObjectId& id, Reference) {
            const auto place = m_merged.find(id);
            if (place != m_merged.end())
                id = place->second;
        });
    });
    for (const auto& [record, place] : m_merged) {
        AcDbStub* stub = record;
        if (AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(stub->object))
            EraseContents(*block);
        stub->writing = true;
        stub->object->erase();
        stub->writing = false;
    }
    m_merged.clear();
}

// The steps before cannot be undone past this: what they recorded refers to names that are gone.
void XrefBinder::Bind(AcDbBlockTableRecord& block)
{
    m_core.undo.Clear();
    m_core.undo.SetOff(true);
    std::vector<AcDbBlockTableRecord*> blocks = XrefsWithin(m_core, block);
    blocks.push_back(&block);
    for (AcDbBlockTableRecord* each : blocks) {
        const CString xref = each->nameText();
        KeepContents(*each);
        for (size_t kind = 0; kind < kTableCount; ++kind) {
            const std::vector<AcDbStub*> records = m_core.Table(TableKind(kind))->records();
            for (AcDbStub* stub : records) {
                AcDbSymbolTableRecord& record = static_cast<AcDbSymbolTableRecord&>(*stub->object);
                if (!stub->erased && IsNamedAfter(record.nameText(), xref))
                    BindRecord(record, TableKind(kind), xref);
            }
        }
        each->setBlockFlags(int16_t(each->blockFlags() & ~(4 | 8 | 16 | 32)));
        each->setPathName(L"");
    }
    Redirect();
    m_core.undo.SetOff(false);
    m_core.modified |= 1;
}

}   // namespace KxPlat
