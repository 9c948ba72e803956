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

// One that stays beside the rest: in another window, or by itself. It is hidden until it is shown.
QWidget* NewModelPanel(QWidget& parent, KxPlat::DialogModel& model, QtWindows& windows, bool isInside);
// Shows what the program has changed.
void FollowModelPanel(QWidget& panel);

}   // namespace KxDesktop
