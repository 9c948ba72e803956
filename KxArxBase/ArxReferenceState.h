// What one cloning of xref layers remembers from step to step.
#pragma once
#include "KxArxReference.h"
#include <vector>

// Ids are looked up in maps by reference.
template <>
inline UINT HashKey<AcDbObjectId&>(AcDbObjectId& key)
{
    return UINT(DWORD_PTR(key.asOldId()) >> 4);
}

namespace KxArxBase {

typedef CMap<AcDbObjectId, AcDbObjectId&, AcDbObjectId, AcDbObjectId&> KxIdMap;

struct ArxReferenceState {
    KxIdMap textStyles;   // a dependent record, and the local one in its place
    KxIdMap linetypes;
    AcDbObjectId xrefBlock;
    AcDbDatabase* database = nullptr;
    tagEntProperty property;
    CString blockLayer;   // of the insertion met last on the wanted layer
    int isRunning = 0;
    std::vector<AcDbObjectId> walked;   // the blocks that are being walked, the outermost first
};

ArxReferenceState& TheReferenceState();

inline AcDbDatabase* WorkingDb()
{
    return acdbHostApplicationServices()->workingDatabase();
}

}   // namespace KxArxBase
