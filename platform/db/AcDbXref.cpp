#include "AcDbXref.h"
#include "../win/CharTables.h"
#include "AcDbBlockTableRecord.h"
#include "AcDbDatabase.h"
#include "core/ClonerParts.h"
#include "core/XrefBinder.h"
#include "core/XrefLoader.h"

using namespace KxPlat;

namespace {

AcDbBlockTableRecord* XrefOf(AcDbDatabase* host, AcDbObjectId id)
{
    const AcDbStub* stub = id;
    AcDbBlockTableRecord* block = stub == nullptr ? nullptr : AcDbBlockTableRecord::cast(stub->object);
    return block == nullptr || stub->erased || id.database() != host || block->xrefStatus() == AcDb::kXrfNotAnXref
               ? nullptr
               : block;
}

void Erase(AcDbObjectId id)
{
    AcDbStub* stub = id;
    if (stub == nullptr || stub->erased || stub->object == nullptr)
        return;
    // Insertions and records go whatever their layers are: the command asked for it.
    const bool wasWriting = stub->writing;
    stub->writing = true;
    stub->object->erase();
    stub->writing = wasWriting;
}

Acad::ErrorStatus StatusOf(AcDb::XrefStatus status)
{
    switch (status) {
    case AcDb::kXrfResolved:
        return Acad::eOk;
    case AcDb::kXrfFileNotFound:
        return Acad::eFileNotFound;
    default:
        return Acad::eXRefDependent;
    }
}

Acad::ErrorStatus Attach(AcDbDatabase* host, const ACHAR* fileName, const ACHAR* blockName, AcDbObjectId& id, int flags)
{
    id.setNull();
    if (host == nullptr || fileName == nullptr || *fileName == 0 || blockName == nullptr)
        return Acad::eInvalidInput;
    AcDbBlockTable* table = nullptr;
    Acad::ErrorStatus status = host->getSymbolTable(table, AcDb::kForWrite);
    if (status != Acad::eOk)
        return status;
    AcDbBlockTableRecord* block = new AcDbBlockTableRecord;
    status = table->has(blockName) ? Acad::eDuplicateRecordName : block->setName(blockName);
    if (status == Acad::eOk)
        status = table->add(id, block);
    table->close();
    if (status != Acad::eOk) {
        delete block;
        return status;
    }
    block->setBlockFlags(int16_t(flags));
    block->setPathName(fileName);
    block->close();
    status = StatusOf(XrefLoader(*host).Load(*block));
    if (status != Acad::eOk) {
        Erase(id);
        id.setNull();
    }
    return status;
}

void Detach(DbCore& core, AcDbBlockTableRecord& block)
{
    for (AcDbBlockTableRecord* nested : XrefsWithin(core, block))
        Detach(core, *nested);
    XrefLoader(*core.database).Empty(block);
    AcDbObjectIdArray inserts;
    block.getBlockReferenceIds(inserts);
    for (int i = 0; i < inserts.length(); ++i)
        Erase(inserts.at(i));
    const CString name = block.nameText();
    Erase(block.objectId());
    for (size_t kind = 0; kind < kTableCount; ++kind)
        for (AcDbStub* stub : core.Table(TableKind(kind))->records())
            if (IsNamedAfter(static_cast<AcDbSymbolTableRecord*>(stub->object)->nameText(), name))
                Erase(stub);
}

}   // namespace

Acad::ErrorStatus acdbAttachXref(AcDbDatabase* host, const ACHAR* fileName, const ACHAR* blockName,
                                 AcDbObjectId& xrefBlock)
{
    return Attach(host, fileName, blockName, xrefBlock, 4);
}

Acad::ErrorStatus acdbOverlayXref(AcDbDatabase* host, const ACHAR* fileName, const ACHAR* blockName,
                                  AcDbObjectId& xrefBlock)
{
    return Attach(host, fileName, blockName, xrefBlock, 4 | 8);
}

Acad::ErrorStatus acdbDetachXref(AcDbDatabase* host, AcDbObjectId xrefBlock)
{
    AcDbBlockTableRecord* block = XrefOf(host, xrefBlock);
    if (block == nullptr)
        return Acad::eInvalidInput;
    if (block->isDependent())
        return Acad::eXRefDependent;
    Detach(CoreOf(*host), *block);
    return Acad::eOk;
}

Acad::ErrorStatus acdbUnloadXrefs(AcDbDatabase* host, const AcDbObjectIdArray& xrefBlocks, bool)
{
    for (int i = 0; i < xrefBlocks.length(); ++i) {
        AcDbBlockTableRecord* block = XrefOf(host, xrefBlocks.at(i));
        if (block == nullptr)
            return Acad::eInvalidInput;
        XrefLoader(*host).Empty(*block);
        block->setBlockFlags(int16_t(block->blockFlags() & ~32));
        block->setXrefStatus(AcDb::kXrfUnloaded);
    }
    return Acad::eOk;
}

Acad::ErrorStatus acdbReloadXrefs(AcDbDatabase* host, const AcDbObjectIdArray& xrefBlocks, bool)
{
    Acad::ErrorStatus status = Acad::eOk;
    for (int i = 0; i < xrefBlocks.length(); ++i) {
        AcDbBlockTableRecord* block = XrefOf(host, xrefBlocks.at(i));
        const Acad::ErrorStatus one = block == nullptr ? Acad::eInvalidInput : StatusOf(XrefLoader(*host).Load(*block));
        status = one == Acad::eOk ? status : one;
    }
    return status;
}

Acad::ErrorStatus acdbBindXrefs(AcDbDatabase* host, const AcDbObjectIdArray& xrefBlocks, bool insertBind,
                                bool allowUnresolved, bool)
{
    for (int i = 0; i < xrefBlocks.length(); ++i) {
        const AcDbBlockTableRecord* block = XrefOf(host, xrefBlocks.at(i));
        if (block == nullptr)
            return Acad::eInvalidInput;
        if (block->isDependent() || (block->xrefStatus() != AcDb::kXrfResolved && !allowUnresolved))
            return Acad::eXRefDependent;
    }
    for (int i = 0; i < xrefBlocks.length(); ++i)
        if (AcDbBlockTableRecord* block = XrefOf(host, xrefBlocks.at(i)))
            if (block->xrefStatus() == AcDb::kXrfResolved)
                XrefBinder(CoreOf(*host), insertBind).Bind(*block);
    return Acad::eOk;
}

Acad::ErrorStatus acdbResolveCurrentXRefs(AcDbDatabase* host, bool, bool doNewOnly)
{
    if (host == nullptr)
        return Acad::eInvalidInput;
    XrefLoader(*host).ResolveAll(doNewOnly);
    return Acad::eOk;
}
