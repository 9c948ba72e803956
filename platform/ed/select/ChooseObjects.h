// The ways of choosing objects, with and without the user.
#pragma once
#include "Candidates.h"
#include "HitTest.h"
#include "SelectionFilter.h"
#include <string>

namespace KxPlat {

// Visible objects that the shape meets, in drawing order.
std::vector<AcDbObjectId> ObjectsIn(AcDbDatabase& database, const HitShape& shape, HitMode mode);
// The visible object nearest to a point, within the reach of the pick box; null when there is none.
AcDbObjectId ObjectAt(AcDbDatabase& database, const AcGePoint2d& point);
// Live members of a named group.
std::vector<AcDbObjectId> MembersOfGroup(AcDbDatabase& database, const std::wstring& name);

// The words that the question for objects takes, as "?" lists them; their capitals suffice.
const std::vector<std::wstring>& SelectionOptions();

struct Choice {
    std::wstring addPrompt = L"\nSelect objects: ";
    std::wstring removePrompt = L"\nRemove objects: ";
    bool isSingle = false;      // ends with the first objects chosen
    bool skipsLocked = false;   // takes nothing on locked layers
    const SelectionFilter* filter = nullptr;
};
// Asks until Enter. RTNORM with at least one object, RTNONE after Enter without any, RTERROR when a single choice hit
// nothing, RTCAN after Esc or at the end of the input.
int AskForObjects(const Choice& choice, std::vector<AcDbObjectId>& ids);

}   // namespace KxPlat
