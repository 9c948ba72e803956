// Entities and the layers they lie on: what a layer holds, and moves from one layer to another.
#pragma once
#include "KxArxBase/KxAcDb.h"
#include <unordered_set>

namespace KxArxModules {

using LayerSet = std::unordered_set<AcDbObjectId>;

// Null when the entity cannot be opened.
AcDbObjectId LayerOf(AcDbObjectId entity);
CString LayerName(AcDbObjectId layer);
bool IsLayerLocked(AcDbObjectId layer);

// The layers of these entities.
LayerSet LayersOf(const AcDbObjectIdArray& entities);
// The model space and all layouts, in table order.
AcDbObjectIdArray SpacesOf(KxArxBase::CKxAcDb& db);
// The entities of one block that lie on these layers, in drawing order.
AcDbObjectIdArray EntitiesOnLayers(AcDbObjectId block, const LayerSet& layers);

struct Moved {
    int moved = 0;
    int locked = 0;   // on locked layers: left where they were
};
// Entities that are on the layer already count neither way.
Moved MoveToLayer(const AcDbObjectIdArray& entities, AcDbObjectId layer);

}   // namespace KxArxModules
