// What all objects share while a file is read: the database that they go to, the file's objects by handle, and what
// must wait until the last of them was read.
#pragma once
#include "../db/core/DbCore.h"
#include "../db/core/ObjectAccess.h"
#include "../db/core/TextCodec.h"
#include "LayoutProgram.h"
#include "ObjectsIn.h"
#include <unordered_map>

namespace KxPlat {

// The entities of a block, or the parts of an entity. In old files they are chained: each knows the one before and
// behind.
struct PendingChain {
    AcDbStub* owner = nullptr;
    uint64_t first = 0, last = 0;
    std::vector<AcDbStub*> list;   // of parts: what stands behind the chain, or all of them
};
struct ChainLink {
    uint64_t handle;
    uint64_t next;
};
// What a block's record says of its BLOCK.
struct PendingBlock {
    AcDbStub* record;
    AcDbStub* begin = nullptr;
    AcDbStub* end = nullptr;
    int16_t flags = 0;
    AcGePoint3d origin;
    CString path, comment;
};

class DwgInput {
public:
    DwgInput(DbCore& core, const ObjectsToRead& file, DwgReport& report)
        : core(core),
          file(file),
          version(file.version),
          codec(file.codePage),
          report(report),
          m_isRead(file.places->size())
    {
    }
    virtual ~DwgInput() = default;
    DwgInput(const DwgInput&) = delete;

    DbCore& core;
    const ObjectsToRead& file;
    const DwgVersion version;
    TextCodec codec;
    DwgReport& report;

    std::vector<PendingBlock> blocks;
    std::vector<PendingChain> chains;
    std::vector<ChainLink> links;   // by rising handle as far as the file has them so

    // Null for 0. References of one object lie close together, and many objects refer to the same few.
    AcDbStub* StubOf(uint64_t handle)
    {
        if (handle == 0)
            return nullptr;
        Seen& seen = m_seen[handle % kSeen];
        if (seen.handle != handle)
            seen = {handle, core.handles.Get(handle)};
        return seen.stub;
    }
    // Reads the object now if that was not done; null when the file has no such object.
    AcDbObject* Need(uint64_t handle);
    // The name of a symbol table record, or of an object that keeps its name in group 2.
    CString NameOf(uint64_t handle);

protected:
    virtual void ReadAt(size_t place) = 0;
    void ReadOnce(size_t place)
    {
        if (m_isRead[place])
            return;
        m_isRead[place] = true;
        ReadAt(place);
    }

private:
    static constexpr size_t kSeen = 64;
    static constexpr int kDeepest = 50;
    struct Seen {
        uint64_t handle = 0;
        AcDbStub* stub = nullptr;
    };
    Seen m_seen[kSeen];
    std::vector<bool> m_isRead;
    int m_depth = 0;
};

}   // namespace KxPlat
