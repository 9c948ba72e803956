#include "HostVariables.h"
#include "../SysVars.h"

namespace KxPlat::Lisp {

int HostInteger(const wchar_t* name, int byDefault)
{
    VarValue value;
    return GetVar(name, value) == VarAnswer::Done ? value.integer : byDefault;
}

}   // namespace KxPlat::Lisp
