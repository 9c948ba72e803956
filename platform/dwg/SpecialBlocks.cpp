// The record of a block holds what in memory its BLOCK holds, and names the block's entities.
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbLayout.h"
#include "../db/AcDbViewport.h"
#include "SpecialPairs.h"
#include <cwchar>

namespace KxPlat {

namespace {

enum BlockFlag { kAnonymous = 1, kHasDefinitions = 2, kIsXref = 4, kIsOverlay = 8, kDependent = 16, kIsLoaded = 32 };

bool IsXref(int flags)
{
    return (flags & (kIsXref | kIsOverlay)) != 0;
}

const AcDbBlockTableRecord& BlockOf(const ObjectEncoder& out)
{
    return *static_cast<const AcDbBlockTableRecord*>(out.object);
}

int FlagsOf(const AcDbBlockTableRecord& block)
{
    const bool isSpace = block.isModelSpace() || block.isPaperSpace();
    return block.blockFlags() | (block.isAnonymous() && !isSpace ? kAnonymous : 0);
}

std::vector<const AcDbStub*> Written(const ObjectEncoder& out, const std::vector<AcDbStub*>& stubs)
{
    std::vector<const AcDbStub*> written;
    written.reserve(stubs.size());
    for (const AcDbStub* stub : stubs)
        if (stub->object != nullptr && out.output.HandleOf(stub) != 0)
            written.push_back(stub);
    return written;
}

PendingBlock& Pending(ObjectDecoder& in)
{
    return in.input.blocks.back();
}

void SkipHandles(ObjectDecoder& in, int64_t count)
{
    if (!in.IsCount(count))
        return;
    for (int64_t i = 0; i < count; ++i)
        in.Handle();
}

}   // namespace

void NumberBlock(AcDbBlockTableRecord& block, size_t place, int& spaces)
{
    CString name = block.nameText();
    const int length = name.GetLength();
    if (length < 2 || name[0] != L'*' || block.isModelSpace() || (name[length - 1] >= L'0' && name[length - 1] <= L'9'))
        return;
    CString number;
    number.Format(L"%d", block.isPaperSpace() ? spaces++ : int(place));
    block.takeName(name + number);
}

void PlanBlocks(DwgOutput& output)
{
    constexpr size_t kWidestGap = 1000;
    int spaces = 0;
    for (const AcDbStub* stub : output.core.Table(TableKind::Block)->records()) {
        const uint64_t handle = output.HandleOf(stub);
        if (handle == 0)
            continue;
        const AcDbBlockTableRecord& block = *static_cast<const AcDbBlockTableRecord*>(stub->object);
        const CString& name = block.nameText();
        if (handle == output.roots.modelSpace || handle == output.roots.paperSpace) {
            if (!name.IsEmpty() && name[0] == L'$')   // as files before AC1012 spell it
                output.blockNames[stub] = block.isModelSpace() ? ACDB_MODEL_SPACE : ACDB_PAPER_SPACE;
            continue;
        }
        int letters = name.GetLength();
        while (letters > 0 && name[letters - 1] >= L'0' && name[letters - 1] <= L'9')
            --letters;
        const unsigned long number = std::wcstoul(name.GetString() + letters, nullptr, 10);
        if (block.isPaperSpace()) {
            if (letters < name.GetLength() && number == unsigned(spaces))
                output.blockNames[stub] = name.Left(letters), ++spaces;
        } else if (block.isAnonymous() && letters > 1 && number >= output.blocks.size() &&
                   number - output.blocks.size() < kWidestGap) {
            output.blocks.resize(number);
            output.blockNames[stub] = name.Left(letters);
        }
        output.blocks.push_back(stub);
    }
}

void ReadBlockName(ObjectDecoder& in, const Step& step)
{
    in.PutText(step.place, in.Text());
}

void WriteBlockName(ObjectEncoder& out, const Step& step)
{
    const bool isRecord = out.object->isKindOf(AcDbBlockTableRecord::desc());
    const AcDbStub* record = isRecord ? ObjectAccess::Stub(*out.object) : ObjectAccess::Owner(*out.object);
    const auto place = out.output.blockNames.find(record);
    if (place != out.output.blockNames.end())
        return out.Text(place->second);
    const AcDbBlockTableRecord* block =
        record == nullptr || record->object == nullptr ? nullptr : AcDbBlockTableRecord::cast(record->object);
    out.Text(block != nullptr ? block->nameText() : out.GetText(step.place));
}

int64_t IsDependent(ObjectEncoder& out)
{
    constexpr int kMark = 256;
    return (BlockOf(out).blockFlags() & kDependent) != 0 ? kMark : 0;
}

void ReadBlockFlags(ObjectDecoder& in, const Step& step)
{
    in.input.blocks.emplace_back();
    Pending(in).record = in.input.StubOf(in.handle);
    int flags = in.variables[step.countBy] != 0 ? kDependent : 0;
    for (int bit : {kAnonymous, kHasDefinitions, kIsXref, kIsOverlay})
        flags |= in.data.B() ? bit : 0;
    // An overlay is a reference, too.
    if ((flags & kIsOverlay) != 0)
        flags |= kIsXref;
    if (in.version >= kR2000 && in.data.B() && IsXref(flags))
        flags |= kIsLoaded;
    Pending(in).flags = int16_t(flags);
}

void WriteBlockFlags(ObjectEncoder& out, const Step&)
{
    const int flags = FlagsOf(BlockOf(out));
    const bool isOverlay = (flags & kIsOverlay) != 0;
    out.data.B((flags & kAnonymous) != 0);
    out.data.B((flags & kHasDefinitions) != 0);
    out.data.B((flags & kIsXref) != 0);
    out.data.B(isOverlay);
    out.data.B(IsXref(flags) && (flags & kIsLoaded) != 0);
}

void ReadOwnedCount(ObjectDecoder& in, const Step& step)
{
    in.variables[step.countBy] = IsXref(Pending(in).flags) ? 0 : int64_t(in.data.BL());
}

void WriteOwnedCount(ObjectEncoder& out, const Step&)
{
    if (!IsXref(FlagsOf(BlockOf(out))))
        out.data.BL(uint32_t(Written(out, BlockOf(out).entities()).size()));
}

void ReadBlockOrigin(ObjectDecoder& in, const Step&)
{
    PendingBlock& block = Pending(in);
    block.origin.x = in.data.BD();
    block.origin.y = in.data.BD();
    block.origin.z = in.data.BD();
    block.path = in.Text();
}

void WriteBlockOrigin(ObjectEncoder& out, const Step&)
{
    const AcGePoint3d origin = BlockOf(out).origin();
    out.data.BD(origin.x);
    out.data.BD(origin.y);
    out.data.BD(origin.z);
    ACHAR* path = nullptr;
    BlockOf(out).pathName(path);
    out.Text(path);
    acutDelString(path);
}

// Zero ends the count.
void ReadInsertCount(ObjectDecoder& in, const Step& step)
{
    int64_t count = 0;
    while (in.data.RC() != 0)
        ++count;
    in.variables[step.countBy] = count;
}

void WriteInsertCount(ObjectEncoder& out, const Step&)
{
    out.data.RC(0);
}

void ReadBlockComment(ObjectDecoder& in, const Step&)
{
    Pending(in).comment = in.Text();
}

void WriteBlockComment(ObjectEncoder& out, const Step&)
{
    ACHAR* comment = BlockOf(out).comments();
    out.Text(comment);
    acutDelString(comment);
}

void ReadBlockOwned(ObjectDecoder& in, const Step& step)
{
    AcDbBlockTableRecord* record = static_cast<AcDbBlockTableRecord*>(in.object);
    const size_t place = in.input.blocks.size() - 1;
    in.input.blocks[place].begin = in.Ref();
    if (!IsXref(in.input.blocks[place].flags)) {
        if (in.version <= kR2000) {
            PendingChain chain;
            chain.owner = in.input.StubOf(in.handle);
            chain.first = in.Handle();
            chain.last = in.Handle();
            in.input.chains.push_back(std::move(chain));
        } else {
            const int64_t count = in.variables[step.countBy];
            if (!in.IsCount(count))
                return;
            record->entities().reserve(size_t(count));
            for (int64_t i = 0; i < count && !in.handles.isBroken(); ++i)
                if (AcDbStub* entity = in.Ref())
                    record->attach(entity);
        }
    }
    in.input.blocks[place].end = in.Ref();
}

void WriteBlockOwned(ObjectEncoder& out, const Step&)
{
    const AcDbBlockTableRecord& block = BlockOf(out);
    out.Ref(3, block.beginStub());
    if (!IsXref(FlagsOf(block))) {
        const std::vector<const AcDbStub*> entities = Written(out, block.entities());
        if (out.version <= kR2000) {
            out.Ref(4, entities.empty() ? nullptr : entities.front());
            out.Ref(4, entities.empty() ? nullptr : entities.back());
        } else {
            for (const AcDbStub* entity : entities)
                out.Ref(3, entity);
        }
    }
    out.Ref(3, block.endStub());
}

void ReadInserts(ObjectDecoder& in, const Step& step)
{
    SkipHandles(in, in.variables[step.countBy]);
}

void WriteInserts(ObjectEncoder&, const Step&) {}

// --- the viewports of a layout ---

namespace {

std::vector<const AcDbStub*> ViewportsOf(const ObjectEncoder& out, const Step& step)
{
    std::vector<const AcDbStub*> found;
    const AcDbStub* stub = out.At<AcDbObjectId>(step.place.offset);
    const AcDbBlockTableRecord* block = stub == nullptr ? nullptr : AcDbBlockTableRecord::cast(stub->object);
    if (block != nullptr && block->isPaperSpace())
        for (const AcDbStub* entity : Written(out, block->entities()))
            if (entity->object->isKindOf(AcDbViewport::desc()))
                found.push_back(entity);
    return found;
}

}   // namespace

void ReadViewportCount(ObjectDecoder& in, const Step& step)
{
    in.variables[step.countBy] = in.data.BL();
}

void WriteViewportCount(ObjectEncoder& out, const Step& step)
{
    out.data.BL(uint32_t(ViewportsOf(out, step).size()));
}

void ReadViewports(ObjectDecoder& in, const Step& step)
{
    SkipHandles(in, in.variables[step.countBy]);
}

void WriteViewports(ObjectEncoder& out, const Step& step)
{
    for (const AcDbStub* viewport : ViewportsOf(out, step))
        out.Ref(4, viewport);
}

}   // namespace KxPlat
