#include "ProbeLog.h"
#include "win/KxWinTypes.h"

extern "C" int kxLowerAnswer();

extern "C" KX_DLLEXPORT BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
    Log(reason == DLL_PROCESS_ATTACH ? "upper attach" : "upper detach");
    return kxLowerAnswer() == 42;
}
