#include "WinError.h"
#include "WinAnswer.h"
#include <algorithm>

namespace {

DWORD& LastError()
{
    static DWORD error = 0;
    return error;
}

}   // namespace

DWORD GetLastError()
{
    return LastError();
}

void SetLastError(DWORD error)
{
    LastError() = error;
}

namespace KxPlat {

BOOL FailWith(DWORD error)
{
    SetLastError(error);
    return FALSE;
}

DWORD AnswerText(const wchar_t* text, size_t length, LPWSTR buffer, DWORD size)
{
    if (buffer == nullptr || size <= length)
        return static_cast<DWORD>(length + 1);
    std::copy(text, text + length, buffer);
    buffer[length] = 0;
    return static_cast<DWORD>(length);
}

}   // namespace KxPlat
