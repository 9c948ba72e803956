// System variables as the builtin functions need them.
#pragma once

namespace KxPlat::Lisp {

// `byDefault` when the host has no such variable, or no session runs.
int HostInteger(const wchar_t* name, int byDefault);

}   // namespace KxPlat::Lisp
