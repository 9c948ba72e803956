// Part of every module: tells the host which generation of its interface the module was built for.
#include "../win/KxWinTypes.h"

extern "C" KX_DLLEXPORT int acrxGetApiVersion()
{
    return 18;
}
