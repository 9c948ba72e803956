// How an object's own setters write: not at all unless the object is open for write, and recorded for undo.
#pragma once
#include "../AcDbObject.h"

namespace KxPlat {

template <class T, class V>
Acad::ErrorStatus Assign(AcDbObject& object, T& member, const V& value)
{
    const Acad::ErrorStatus status = object.assertWriteEnabled();
    if (status == Acad::eOk)
        member = T(value);
    return status;
}

// Sets or clears bits of a flag group.
template <class T>
Acad::ErrorStatus AssignBits(AcDbObject& object, T& member, int bits, bool on)
{
    return Assign(object, member, on ? int(member) | bits : int(member) & ~bits);
}

// A new string that the caller frees with acutDelString.
ACHAR* NewString(const CString& text);

}   // namespace KxPlat
