// What a scene keeps of one block.
#pragma once
#include "DisplayList.h"
#include "Scene.h"
#include "SpatialIndex.h"

namespace KxPlat {

struct Scene::Kept {
    DisplayList list;
    std::unique_ptr<SpatialIndex> index;   // made when first asked for
    size_t orphans = 0;                    // items that no entity has any more
};

}   // namespace KxPlat
