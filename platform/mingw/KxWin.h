// Windows itself and MFC's texts and containers: what KxMfcEx/ sees of its host in a Windows build.
#pragma once
#include "KxWinTypes.h"

#include "../mfc/CArray.h"
#include "../mfc/CFile.h"
#include "../mfc/CList.h"
#include "../mfc/CMap.h"
#include "../mfc/CString.h"
#include "../mfc/CStringArray.h"
