// Classes of characters.
#pragma once
#include "KxWinTypes.h"

extern "C" {
BOOL IsCharAlphaW(WCHAR character);
}
