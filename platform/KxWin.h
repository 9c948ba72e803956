// Windows and MFC: the part of the host seam that KxMfcEx/ may see.
#pragma once
#include "win/CrtPaths.h"
#include "win/CrtText.h"
#include "win/KxWinTypes.h"
#include "win/Modules.h"
#include "win/Processes.h"
#include "win/Profile.h"
#include "win/Version.h"
#include "win/WinError.h"
#include "win/WinSystem.h"
#include "win/WinText.h"
