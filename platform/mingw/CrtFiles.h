// Files of the C runtime.
#pragma once
#include "KxWinTypes.h"
