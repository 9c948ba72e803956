#include "win/KxWinTypes.h"

extern "C" KX_DLLEXPORT BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID)
{
    return FALSE;
}
