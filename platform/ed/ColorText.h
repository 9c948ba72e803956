// Colours as the user types them.
#pragma once
#include "../db/AcCmColor.h"
#include <string_view>

namespace KxPlat {

// "RED", "5", "BYLAYER", "255,128,0" or "RGB:255,128,0"; false, and nothing changed, for other text.
bool ColorFromText(std::wstring_view text, AcCmColor& color);

}   // namespace KxPlat
