// How the Windows calls answer.
#pragma once
#include "KxWinTypes.h"
#include "WinError.h"
#include <cstddef>

namespace KxPlat {

// Sets the last error and answers FALSE, for `return FailWith(ERROR_...)`.
BOOL FailWith(DWORD error);

// Copies `text` the way many calls answer: the length when it fits, else the size needed, with its terminator.
DWORD AnswerText(const wchar_t* text, size_t length, LPWSTR buffer, DWORD size);

}   // namespace KxPlat
