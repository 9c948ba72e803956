// Running CAD programs and texts sent to them.
#pragma once
#include "KxExport.h"

namespace KxMfcEx {

// The main window of a running CAD program and its release. With `mode` 0 windows are known by their titles, else by
// the program that they belong to (acad.exe), whose version resource tells the release; then the handle is also written
// to the file "%sToolBoxSelectCAD~.txt" in the folder for temporary files. 1, or 0 and both zero.
KXARX_API int GetAutoCadWnd(HWND& window, int& release, int mode);

struct CadWindowSearch {
    WORD mode = 0;
    HWND window = nullptr;
    int release = 0;
};
// For EnumWindows; `parameter` points at a CadWindowSearch. 0 once a window is found.
KXARX_API BOOL CALLBACK FindAutoCadWindowProc(HWND window, LPARAM parameter);

// The release that a title tells of; 0 for a window that is none of the CAD program's main windows.
KXARX_API int ReleaseOfTitle(const wchar_t* title);

// Sends WM_COPYDATA with the number 1; answers what the window answers. A wide text is sent with its count of
// characters as the count of bytes, so that the receiver sees its beginning only; a narrow one, in the ANSI code page,
// is followed by two zeros.
KXARX_API LRESULT SendStrCopyDataToWnd(HWND window, const wchar_t* text, int wide);

}   // namespace KxMfcEx
