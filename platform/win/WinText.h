// Conversion between code pages and wide texts as Windows has it. A wide text holds one code point per character here.
#pragma once
#include "KxWinTypes.h"

extern "C" {
UINT GetACP();
BOOL IsDBCSLeadByte(BYTE byte);
BOOL IsDBCSLeadByteEx(UINT codePage, BYTE byte);
// A negative count takes a terminated text with its terminator; an output size of 0 asks for the size. 0 means failure:
// a wrong argument or code page (87), too little room (122), with MB_ERR_INVALID_CHARS a byte that is no character
// (1113).
int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR bytes, int count, LPWSTR out, int outSize);
// Without WC_NO_BEST_FIT_CHARS a character that the page lacks may become one that looks like it.
int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int count, LPSTR out, int outSize, LPCSTR defaultChar,
                        LPBOOL usedDefault);
}
