// An object's groups as programs see them: group 0 and the object's name first, extended data only where asked for.
#pragma once
#include "../../db/AcDbObject.h"
#include "../../db/core/GroupValue.h"
#include <string>
#include <vector>

namespace KxPlat {

// Groups -1, 0, 330, 5 and the object's own; `apps` names the applications (with wildcards) whose data follows a group
// -3. The object needs not be open. Empty for an id that names nothing.
GroupList GroupsForPrograms(AcDbObjectId id, const std::vector<std::wstring>& apps = {});
// The text of group 0: "LINE".
std::wstring DxfNameOf(const AcDbObject& object);
// True for codes whose value is a point: the next two groups, code + 10 and code + 20, are its other coordinates.
bool IsPointGroup(int code);
// A group of the list and the parts of a point behind it; how many groups that were.
size_t PointAt(const GroupList& groups, size_t at, double (&point)[3]);

}   // namespace KxPlat
