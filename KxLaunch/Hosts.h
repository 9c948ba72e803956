// The CAD programs that run, known in two ways: by the titles of their windows and by the programs behind them.
#pragma once
#include "KxWin.h"
#include <vector>

namespace KxLaunch {

struct Host {
    HWND window = nullptr;
    int byTitle = 0, byProgram = 0;   // the release; 0 where it cannot be told
    DWORD process = 0;
    CString title, program;
};

std::vector<Host> RunningHosts();
// A window of the system that went away, or changed, since: what there is to tell of it now. False when it is gone.
bool Refresh(Host& host);

}   // namespace KxLaunch
