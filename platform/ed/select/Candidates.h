// The entities that a selection can reach, by the states of their layers.
#pragma once
#include "../../db/AcDbEntity.h"
#include <vector>

namespace KxPlat {

enum class Reach {
    Drawing,    // everything in the model space and all layouts
    Unlocked,   // of the current space, on layers neither frozen nor locked: what ALL takes
    Thawed,     // of the current space, on layers not frozen
    Visible     // of the current space, on layers that are on and not frozen: what can be pointed at
};

// In drawing order. Invisible entities belong to Drawing only, erased ones to none.
std::vector<AcDbObjectId> EntitiesOf(AcDbDatabase& database, Reach reach);
bool IsReached(const AcDbEntity& entity, Reach reach);
bool IsOnLockedLayer(const AcDbEntity& entity);
// The newest visible entity of the current space; null when there is none.
AcDbObjectId LastVisible(AcDbDatabase& database);

}   // namespace KxPlat
