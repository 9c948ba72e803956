// Maps of the world applied to entities whose groups are kept as they are: a table of roles says which groups are
// places.
#pragma once
#include "../../ge/AcGeMatrix3d.h"
#include "../AcDbExtents.h"
#include "GroupValue.h"
#include <functional>

namespace KxPlat {

enum class GroupRole : uint8_t { None, Point, Vector, Normal, Length };

// The role of each group of the list, asked for in order, so that an answer may depend on what came before. Points,
// vectors and normals begin with the group of their X; the other two follow in groups code + 10 and code + 20.
using RoleOfGroup = std::function<GroupRole(const GroupValue& group)>;

// False, with the groups as they were, when a vector would lose its length. Vectors and normals keep the length 1.
bool MapGroups(GroupList& groups, const AcGeMatrix3d& transform, const RoleOfGroup& roles);

// The box around all points.
void AddGroupPoints(AcDbExtents& extents, const GroupList& groups, const RoleOfGroup& roles);

}   // namespace KxPlat
