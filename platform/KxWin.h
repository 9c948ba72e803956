// Windows and MFC: the part of the host seam that KxMfcEx/ may see.
#pragma once
#include "win/KxWinTypes.h"
