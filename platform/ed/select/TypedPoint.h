// A point typed as coordinates.
#pragma once
#include "../../ge/AcGePoint2d.h"
#include <string_view>

namespace KxPlat {

// "10,20" or "10,20,5"; false, and nothing changed, for any other text.
bool PointIn(std::wstring_view text, AcGePoint2d& point);

}   // namespace KxPlat
