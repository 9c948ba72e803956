// The command stack that stands in the system registry while a session runs.
#pragma once
#include "AcEdCommandStack.h"
#include <memory>

namespace KxPlat {

std::unique_ptr<AcEdCommandStack> NewCommandStack();

}   // namespace KxPlat
