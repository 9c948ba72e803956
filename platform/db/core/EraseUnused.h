// Erasing many definitions at once.
#pragma once
#include "../AcDbObject.h"

namespace KxPlat {

// Set while an object is erased of which a purge has just shown that nothing refers to it.
constexpr uint32_t kKnownUnused = 1u << 31;

// Erases such an object without a look for references through the whole drawing.
Acad::ErrorStatus EraseUnused(AcDbObject& object);

}   // namespace KxPlat
