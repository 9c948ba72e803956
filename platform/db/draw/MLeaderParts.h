// What is seen of a multi-leader, read from its groups.
#pragma once
#include "../../ge/AcGeMatrix3d.h"
#include "../../mfc/CString.h"
#include "../core/GroupValue.h"
#include <vector>

struct AcDbStub;

namespace KxPlat {

// Lines that meet in one end, from which a landing leads to the text.
struct MLeaderBranch {
    AcGePoint3d end;
    AcGeVector3d direction;
    double landing = 0;
    std::vector<std::vector<AcGePoint3d>> lines;   // from the arrow on
};

struct MLeaderParts {
    std::vector<MLeaderBranch> branches;
    AcGeVector3d normal{0, 0, 1};
    double arrowSize = 0;
    bool hasLanding = true;
    bool hasText = false;
    CString text;
    AcDbStub* textStyle = nullptr;
    AcGePoint3d textPlace;
    AcGeVector3d textDirection{1, 0, 0};
    double textHeight = 0, textWidth = 0;
    int attachment = 1;   // top left, top middle, top right
    AcDbStub* block = nullptr;
    AcGeMatrix3d blockTransform;
};

MLeaderParts PartsOfMLeader(const GroupList& groups);

}   // namespace KxPlat
