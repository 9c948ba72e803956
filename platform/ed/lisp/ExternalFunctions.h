// Functions that modules give to LISP.
#pragma once
#include "Interpreter.h"

namespace KxPlat::Lisp {

void UndefineFunctionsOf(Interpreter& lisp, void* appId);

}   // namespace KxPlat::Lisp
