// The choice of a colour: one of the 255 numbers, ByLayer and ByBlock where they make sense, or a true colour.
#pragma once
#include "db/AcCmColor.h"

class QWidget;

namespace KxDesktop {

// False when the user cancels; `color` is then untouched.
bool RunColorChooser(QWidget& parent, AcCmColor& color, bool hasLogical);

}   // namespace KxDesktop
