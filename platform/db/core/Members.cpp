#include "Members.h"
#include "../../rx/acutads.h"

ACHAR* KxPlat::NewString(const CString& text)
{
    ACHAR* copy = nullptr;
    acutNewString(text, copy);
    return copy;
}
