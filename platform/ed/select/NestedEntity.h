// What lies at a point inside insertions and dimensions.
#pragma once
#include "../../db/AcDbEntity.h"
#include "../../ge/AcGePoint2d.h"
#include <vector>

namespace KxPlat {

struct NestedEntity {
    AcDbObjectId id;
    std::vector<AcDbObjectId> containers;   // innermost first; empty where the entity stands in the space itself
    AcGeMatrix3d place;                     // of the entity's definition in the world
};

// Of what can be seen inside `top` the part nearest to the point; `top` itself where it has no parts.
NestedEntity NestedAt(AcDbObjectId top, const AcGePoint2d& point);

}   // namespace KxPlat
