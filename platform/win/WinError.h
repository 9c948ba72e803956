// The last error of the Windows calls.
#pragma once
#include "KxWinTypes.h"

extern "C" {
DWORD GetLastError();
void SetLastError(DWORD error);
}
