// List boxes and list views of dialogs.
#pragma once
#include "ControlWidgets.h"

namespace KxDesktop {

std::unique_ptr<ControlWidget> NewListWidget(QWidget& parent, KxPlat::DialogControl& control, ControlReport report);

}   // namespace KxDesktop
