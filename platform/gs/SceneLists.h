// What a scene keeps of one block.
#pragma once
#include "DisplayList.h"
#include "Scene.h"
#include "SpatialIndex.h"
#include <optional>

namespace KxPlat {

struct Scene::Kept {
    DisplayList list;
    std::unique_ptr<SpatialIndex> index;   // made when first asked for
    std::optional<Box> box;                // of a list that is whole
    size_t orphans = 0;                    // items that no entity has any more
};

}   // namespace KxPlat
