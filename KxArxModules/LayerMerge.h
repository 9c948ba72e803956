// Layers merged into another one: what they hold, in the model space, in layouts and inside blocks, moves there, and
// the emptied layers are deleted.
#pragma once
#include "KxArxBase/KxAcDb.h"
#include <unordered_map>
#include <vector>

namespace KxArxModules {

struct LayerContents {
    int inSpaces = 0;
    int inBlocks = 0;   // inside block definitions
};

// How much each layer holds, attributes included; counted once when this is made.
class LayerCounts {
public:
    explicit LayerCounts(KxArxBase::CKxAcDb& db);
    LayerContents Of(AcDbObjectId layer) const;

private:
    std::unordered_map<AcDbObjectId, LayerContents> m_counts;
};

struct MergeResult {
    int moved = 0;
    int purged = 0;
    std::vector<CString> kept;   // source layers that something still refers to, or that every drawing has
};

// Locked source layers are unlocked for it. A source that is the current layer hands that over to the target.
MergeResult MergeLayers(KxArxBase::CKxAcDb& db, const std::vector<AcDbObjectId>& sources, AcDbObjectId target);

}   // namespace KxArxModules
