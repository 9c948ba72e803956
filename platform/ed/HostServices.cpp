#include "HostServices.h"
#include "SupportFiles.h"
#include <cwchar>

namespace KxPlat {

Acad::ErrorStatus HostServices::findFile(ACHAR* found, int length, const ACHAR* name, AcDbDatabase*, FindFileHint)
{
    if (found == nullptr || name == nullptr || *name == 0)
        return Acad::eInvalidInput;
    const std::wstring path = FindSupportFile(name);
    if (path.empty())
        return Acad::eFileNotFound;
    if (path.size() >= size_t(length))
        return Acad::eBufferTooSmall;
    std::wcscpy(found, path.c_str());
    return Acad::eOk;
}

}   // namespace KxPlat
