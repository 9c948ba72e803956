// Blocks and entities of a file. What follows an entity as its part (vertices, attributes) is owned by it.
#pragma once
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbDatabase.h"
#include "DxfTables.h"

namespace KxPlat {

template <class Tags>
class DxfEntities {
public:
    DxfEntities(DxfInput<Tags>& in, DxfTables<Tags>& tables) : m_in(in), m_tables(tables) {}

    bool ReadBlocks()
    {
        while (!m_in.IsEndOfSection()) {
            if (m_in.IsRecord("BLOCK")) {
                if (!ReadBlock())
                    return false;
                continue;
            }
            m_in.Mend("this record stands in no block:", m_in.tags.Text());
            if (!m_in.Skip())
                return false;
        }
        return true;
    }
    // Entities of the model space and of the active layout, mixed.
    bool ReadEntities() { return ReadAll(nullptr); }

private:
    bool ReadAll(AcDbBlockTableRecord* block);
    bool ReadBlock();
    AcDbBlockTableRecord* BlockOf(AcDbStub* beginOwner, AcDbBlockBegin* begin, const CString& name);
    AcDbBlockTableRecord* Space(bool isPaper);
    AcDbBlockTableRecord* OwnerOf(const AcDbEntity& entity);
    static bool IsPart(std::string_view type) { return type == "VERTEX" || type == "ATTRIB" || type == "SEQEND"; }

    DxfInput<Tags>& m_in;
    DxfTables<Tags>& m_tables;
    AcDbStub* m_lastOwner = nullptr;               // of the entity read before, and
    AcDbBlockTableRecord* m_lastBlock = nullptr;   // the block that it means
    AcDbBlockTableRecord* m_spaces[2] = {};        // model, paper
};

template <class Tags>
bool DxfEntities<Tags>::ReadAll(AcDbBlockTableRecord* block)
{
    AcDbEntity* whole = nullptr;   // the entity that parts may follow
    while (!m_in.IsEndOfSection() && !m_in.IsRecord("ENDBLK") && !m_in.IsRecord("BLOCK")) {
        const std::string_view type = m_in.tags.Text();
        AcDbEntity* entity = m_in.MakeEntity(type);
        const bool isMore = m_in.Read(*entity);
        if (whole != nullptr && IsPart(type)) {
            AcDbStub* stub = m_in.Adopt(entity, whole->objectId());
            whole->attachPart(stub);
            if (type == "SEQEND")
                whole = nullptr;
        } else {
            AcDbBlockTableRecord* owner = block != nullptr ? block : OwnerOf(*entity);
            owner->attach(m_in.Adopt(entity, owner->objectId()));
            whole = entity->parts() != nullptr ? entity : nullptr;
        }
        if (!isMore)
            return false;
    }
    return true;
}

template <class Tags>
AcDbBlockTableRecord* DxfEntities<Tags>::Space(bool isPaper)
{
    static const wchar_t* const names[2][2] = {{ACDB_MODEL_SPACE, L"$MODEL_SPACE"},
                                               {ACDB_PAPER_SPACE, L"$PAPER_SPACE"}};
    AcDbBlockTableRecord*& space = m_spaces[isPaper];
    if (space != nullptr)
        return space;
    AcDbSymbolTable* blocks = m_in.core.Table(TableKind::Block);
    for (const wchar_t* name : names[isPaper])
        if (AcDbStub* found = space == nullptr ? blocks->find(name) : nullptr)
            space = static_cast<AcDbBlockTableRecord*>(found->object);
    if (space == nullptr) {
        space = static_cast<AcDbBlockTableRecord*>(NewRecord(TableKind::Block));
        space->takeName(names[isPaper][0]);
        m_tables.Attach(TableKind::Block, space, false);
    }
    return space;
}

// No other block than a space has its entities in this section, whatever they say.
template <class Tags>
AcDbBlockTableRecord* DxfEntities<Tags>::OwnerOf(const AcDbEntity& entity)
{
    AcDbStub* owner = m_in.owner();
    if (owner != nullptr) {
        if (owner == m_lastOwner)
            return m_lastBlock;
        AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(owner->object);
        if (block != nullptr && (block->isModelSpace() || block->isPaperSpace())) {
            m_lastOwner = owner;
            return m_lastBlock = block;
        }
    }
    return Space(entity.isInPaperSpace());
}

// By name; then by the record that owns BLOCK; else the file has no record for it.
template <class Tags>
AcDbBlockTableRecord* DxfEntities<Tags>::BlockOf(AcDbStub* beginOwner, AcDbBlockBegin* begin, const CString& name)
{
    AcDbSymbolTable* blocks = m_in.core.Table(TableKind::Block);
    AcDbStub* found = blocks->find(std::wstring_view(name, size_t(name.GetLength())));
    for (AcDbStub* stub : {found, beginOwner}) {
        AcDbBlockTableRecord* block = stub == nullptr ? nullptr : AcDbBlockTableRecord::cast(stub->object);
        if (block != nullptr && block->beginStub() == nullptr)
            return block;
    }
    if (found != nullptr)
        m_in.Mend("this block was defined before");
    AcDbBlockTableRecord* block = static_cast<AcDbBlockTableRecord*>(NewRecord(TableKind::Block));
    block->takeName(name);
    m_tables.Attach(TableKind::Block, block, false);
    return block;
}

template <class Tags>
bool DxfEntities<Tags>::ReadBlock()
{
    AcDbBlockBegin* begin = new AcDbBlockBegin;
    CString name;
    bool isMore = m_in.Read(*begin, [&] {
        if (m_in.tags.code() == 2)
            name = m_in.source.Text();
    });
    AcDbBlockTableRecord* block = BlockOf(m_in.owner(), begin, name);
    block->setBegin(m_in.Adopt(begin, block->objectId()));
    if (!isMore || !ReadAll(block))
        return false;
    if (!m_in.IsRecord("ENDBLK")) {
        m_in.Mend("a block ends without ENDBLK");
        return true;
    }
    AcDbBlockEnd* end = new AcDbBlockEnd;
    isMore = m_in.Read(*end);
    block->setEnd(m_in.Adopt(end, block->objectId()));
    return isMore;
}

}   // namespace KxPlat
