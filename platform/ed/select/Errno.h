// Why the last call of the C interface failed: values of the system variable ERRNO.
#pragma once

namespace KxPlat {

enum class Errno {
    None = 0,
    BadSelectionMode = 5,   // invalid selection set
    NothingFound = 7,       // object selection failure
    NullResponse = 52,      // Enter
    BadFilter = 20
};

void SetErrno(Errno why);

}   // namespace KxPlat
