#include "ProbeLog.h"
#include "win/KxWinTypes.h"

namespace {

struct Lifetime {
    Lifetime() { Log("constructor"); }
    ~Lifetime() { Log("destructor"); }
};
Lifetime lifetime;

}   // namespace

extern "C" KX_DLLEXPORT BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
    Log(reason == DLL_PROCESS_ATTACH ? "attach" : "detach");
    return TRUE;
}

extern "C" KX_DLLEXPORT int kxProbeCount()
{
    static int count = 0;
    return ++count;
}
