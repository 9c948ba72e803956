// Dialog templates of both generations (DIALOG and DIALOGEX), as resource compilers write them.
#pragma once
#include "../ui/DialogModel.h"
#include <string_view>

namespace KxPlat {

// False, and `dialog` in an unknown state, when the bytes end early.
bool ReadDialogTemplate(std::string_view bytes, DialogModel& dialog);

}   // namespace KxPlat
