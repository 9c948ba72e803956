// The one header through which modules see their host.
#pragma once
#include "KxWin.h"
