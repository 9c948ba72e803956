#include "AcDbHostApplicationServices.h"
#include "../win/Files.h"
#include <cwchar>

namespace {

AcDbHostApplicationServices g_plain;
AcDbHostApplicationServices* g_services = &g_plain;

}   // namespace

Acad::ErrorStatus AcDbHostApplicationServices::findFile(ACHAR* found, int length, const ACHAR* name, AcDbDatabase*,
                                                        FindFileHint)
{
    if (found == nullptr || name == nullptr || int(std::wcslen(name)) >= length)
        return Acad::eInvalidInput;
    if (!KxPlat::FileInfoOf(KxPlat::HostPath(name)).exists)
        return Acad::eFileNotFound;
    std::wcscpy(found, name);
    return Acad::eOk;
}

AcDbHostApplicationServices* acdbHostApplicationServices()
{
    return g_services;
}

Acad::ErrorStatus acdbSetHostApplicationServices(AcDbHostApplicationServices* services)
{
    AcDbHostApplicationServices* next = services != nullptr ? services : &g_plain;
    next->setWorkingDatabase(g_services->workingDatabase());
    g_services = next;
    return Acad::eOk;
}
