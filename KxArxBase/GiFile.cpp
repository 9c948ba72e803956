#include "GiFile.h"
#include <cstdlib>

namespace KxArxBase::Gi {

namespace {

const int kForSave = 1;

int AskFileName(const wchar_t* title, const wchar_t* extension, CString& path, const wchar_t* initial, int flags)
{
    resbuf answer = {};
    const int result = acedGetFileD(title, initial == nullptr ? L"" : initial, extension, flags, &answer);
    if (result != RTNORM)
        return result;
    path = answer.resval.rstring;
    acutDelString(answer.resval.rstring);
    return 0;
}

}   // namespace

int AskSaveFileName(const wchar_t* title, const wchar_t* extension, CString& path, const wchar_t* initial)
{
    const int result = AskFileName(title, extension, path, initial, kForSave);
    const int name =
        path.ReverseFind(L'\\') > path.ReverseFind(L'/') ? path.ReverseFind(L'\\') : path.ReverseFind(L'/');
    if (result == 0 && extension != nullptr && path.ReverseFind(L'.') <= name)
        path = path + L"." + extension;
    return result;
}

int AskOpenFileName(const wchar_t* title, const wchar_t* extension, CString& path, const wchar_t* initial)
{
    return AskFileName(title, extension, path, initial, 0);
}

}   // namespace KxArxBase::Gi
