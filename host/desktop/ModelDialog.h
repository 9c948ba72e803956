// A dialog of a command, built from its description.
#pragma once
#include "ui/DialogModel.h"
#include <functional>

class QWidget;

namespace KxDesktop {

class QtWindows;

// Runs it to its end; the code given to EndDialog. `changed` is called after everything that the user did in it.
int RunModelDialog(QWidget& parent, KxPlat::DialogModel& model, QtWindows& windows,
                   const std::function<void()>& changed);

}   // namespace KxDesktop
