#include "ProbeLog.h"
#include "win/KxWinTypes.h"

extern "C" KX_DLLEXPORT BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
    Log(reason == DLL_PROCESS_ATTACH ? "lower attach" : "lower detach");
    return TRUE;
}

extern "C" KX_DLLEXPORT int kxLowerAnswer()
{
    return 42;
}
