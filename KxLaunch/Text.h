// Texts between the command line, the terminal and the rest of the program.
#pragma once
#include "KxWin.h"

namespace KxLaunch {

CString FromArgument(const char* argument);   // UTF-8
void Print(const wchar_t* format, ...);       // to standard output, in UTF-8
// "kxlaunch: WHAT: WHY" to standard error. Answers 1, a status to leave with.
int Complain(const wchar_t* what, const wchar_t* why);

// The full path in drive form, by text alone.
CString FullPath(const wchar_t* path);
bool IsFile(const wchar_t* path);

// "18.2" and "182" are 182, "19" is 190; 0 for anything else.
int ReleaseOfText(const wchar_t* text);
CString TextOfRelease(int release);   // "18.2", "-" for 0

}   // namespace KxLaunch
