// acedGetFileD: a file's name, asked for in a dialog; on the command line when a script answers or FILEDIA is 0.
#include "acedads.h"
#include "commands/Questions.h"
#include "EditorState.h"

// Bit 1 of `flags` asks for a file to be written. A text result is the caller's.
int acedGetFileD(const ACHAR* title, const ACHAR* initial, const ACHAR* extensions, int flags, resbuf* result)
{
    if (result == nullptr || KxPlat::TheEditor() == nullptr)
        return RTERROR;
    const std::wstring name = title == nullptr ? L"" : title;
    const std::optional<std::wstring> path =
        KxPlat::AskFile(L"\n" + name, name, initial == nullptr ? L"" : initial,
                        extensions == nullptr ? L"" : extensions, (flags & 1) != 0);
    if (!path)
        return RTCAN;
    result->restype = RTSTR;
    result->rbnext = nullptr;
    result->resval.rstring = nullptr;
    return acutNewString(path->c_str(), result->resval.rstring) == Acad::eOk ? RTNORM : RTERROR;
}
