// acedGetFileD: a file's name, asked for in a dialog.
#include "../ui/HostUi.h"
#include "acedads.h"

// Bit 1 of `flags` asks for a file to be written. A text result is the caller's.
int acedGetFileD(const ACHAR* title, const ACHAR* initial, const ACHAR* extensions, int flags, resbuf* result)
{
    if (result == nullptr)
        return RTERROR;
    KxPlat::FileRequest request;
    request.title = title == nullptr ? L"" : title;
    request.initial = initial == nullptr ? L"" : initial;
    request.extensions = extensions == nullptr ? L"" : extensions;
    request.forSave = (flags & 1) != 0;
    std::wstring path;
    if (!KxPlat::Ui().AskFileName(request, path) || path.empty())
        return RTCAN;
    result->restype = RTSTR;
    result->rbnext = nullptr;
    result->resval.rstring = nullptr;
    return acutNewString(path.c_str(), result->resval.rstring) == Acad::eOk ? RTNORM : RTERROR;
}
