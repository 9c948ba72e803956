#include "HostVariables.h"

namespace KxPlat::Lisp {

int HostInteger(const wchar_t*, int byDefault)
{
    return byDefault;
}

}   // namespace KxPlat::Lisp
