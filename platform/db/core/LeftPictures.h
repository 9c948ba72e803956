// Blocks that showed a dimension until it was drawn anew. They stay, since an undo may call for them and copies of the
// dimension may share them; files are written without those that nothing refers to any more.
#pragma once
#include "DbCore.h"
#include <vector>

namespace KxPlat {

// The unnamed block may be of no more use.
void LeavePicture(AcDbObjectId block);

// For the time of a save such blocks are like an xref's contents: there, but not for the file.
class WithoutLeftPictures {
public:
    explicit WithoutLeftPictures(DbCore& core);
    ~WithoutLeftPictures();
    WithoutLeftPictures(const WithoutLeftPictures&) = delete;

private:
    void LeaveOut(AcDbStub* stub);

    std::vector<AcDbStub*> m_leftOut;
};

}   // namespace KxPlat
