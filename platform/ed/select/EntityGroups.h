// An object's groups as programs see them: its name and class first, extended data only where asked for.
#pragma once
#include "../../db/AcDbObject.h"
#include "../../db/core/GroupValue.h"
#include <string>
#include <vector>

namespace KxPlat {

// Groups -1, 0 and the object's own; `apps` names the applications (by wildcard patterns) whose data follows a group
// -3. The object needs not be open. Empty for an id that names nothing, or something erased.
GroupList GroupsForPrograms(AcDbObjectId id, const std::vector<std::wstring>& apps = {});
// The same as a chain; the caller frees it.
resbuf* ChainForPrograms(const GroupList& groups);

// A group of the list with the parts of a point behind it; how many groups that were, 1 where it is no point.
size_t PointAt(const GroupList& groups, size_t at, double (&point)[3]);
// Angles are degrees in files and objects, and radians for programs.
bool IsAngle(const AcDbObject& object, int code);
// True for codes whose value is a point: code + 10 and code + 20 are its other coordinates.
bool IsPointGroup(int code);

}   // namespace KxPlat
