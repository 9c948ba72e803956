#include "Errno.h"
#include "../acedads.h"

namespace KxPlat {

void SetErrno(Errno why)
{
    resbuf value = {};
    value.restype = RTSHORT;
    value.resval.rint = short(why);
    acedSetVar(L"ERRNO", &value);
}

}   // namespace KxPlat
