#include "Folders.h"

namespace KxMfcEx {
namespace {

int MakeWithParents(const CString& path)
{
    int made = 0;
    CString prefix;
    const int length = path.GetLength();
    for (int i = 0; i <= length; ++i) {
        const bool atEnd = i == length;
        const bool complete = atEnd ? path[length - 1] != L'\\' : path[i] == L'\\';
        if (complete && _wchdir(prefix) != 0) {
            if (_wmkdir(prefix) != 0)
                return 0;
            ++made;
        }
        if (!atEnd)
            prefix += path[i];
    }
    return made;
}

}   // namespace

int MakeDir(const wchar_t* path, int createParents)
{
    if (path == nullptr || path[0] == 0)
        return 0;
    wchar_t before[520] = {};
    const bool known = _wgetcwd(before, ARRAYSIZE(before)) != nullptr;
    int result = 0;
    if (createParents)
        result = MakeWithParents(path);
    else if (_wchdir(path) != 0)
        result = _wmkdir(path) == 0 ? 1 : 0;
    if (known)
        _wchdir(before);
    return result;
}

}   // namespace KxMfcEx
