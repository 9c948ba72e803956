// Questions of dialogs and boxes, answered by whatever answers prompts: a script, a program, the keyboard.
#pragma once
#include "../ui/HostUi.h"

namespace KxPlat {

// One line. Without a running session the host is asked itself.
InputEvent AskSession(const InputRequest& request);

}   // namespace KxPlat
