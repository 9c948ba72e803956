// The multibyte text functions of the Microsoft C runtime. Their code page is the ANSI one until a program sets
// another; in UTF-8 every byte counts as a character, as it does there.
#pragma once
#include "KxWinTypes.h"

// clang-format off
#define _MB_CP_SBCS 0
#define _MB_CP_OEM (-2)
#define _MB_CP_ANSI (-3)
// clang-format on

extern "C" {
int _getmbcp();
// 0, or -1 with nothing changed for a code page that is not available.
int _setmbcp(int codePage);

// Of a byte by itself: 1 or 0.
int _ismbblead(unsigned byte);
int _ismbbtrail(unsigned byte);
// Of the byte at `current` in a text that begins with a whole character: -1 or 0. A lead byte at the end of the text
// counts as one, though nothing follows it.
int _ismbslead(const unsigned char* text, const unsigned char* current);
int _ismbstrail(const unsigned char* text, const unsigned char* current);

// Characters before the end; half a character at the end is none.
size_t _mbslen(const unsigned char* text);
unsigned char* _mbsinc(const unsigned char* current);
// The character before `current`; null at the start.
unsigned char* _mbsdec(const unsigned char* text, const unsigned char* current);
// The first and the last place of a character, never of its second half. Two bytes are given as lead * 256 + trail.
unsigned char* _mbschr(const unsigned char* text, unsigned character);
unsigned char* _mbsrchr(const unsigned char* text, unsigned character);
}
