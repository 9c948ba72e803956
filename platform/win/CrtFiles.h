// Files of the Microsoft C runtime.
#pragma once
#include "KxWinTypes.h"
#include <cstdio>

extern "C" {
// Modes "r", "w", "a" with "+", "t" (text, also when neither is said) or "b"; null with errno on failure. In a text a
// carriage return and a line feed are read as "\n" and written for it, and byte 26 ends what is read. A position asked
// of a text that is being written is exact after fflush.
std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode);
}
