// Marks what modules of the family may link to.
#pragma once
#include "KxWin.h"

#define KXARX_API KX_DLLEXPORT
