// Classes of characters, and of the bytes of multibyte texts in the ANSI code page.
#pragma once
#include "KxWinTypes.h"

extern "C" {
BOOL IsCharAlphaW(WCHAR character);

// -1 when the byte at `current` begins a character of two bytes, else 0; `text` begins with a whole character.
int _ismbslead(const unsigned char* text, const unsigned char* current);
}
