// The CAD programs that the registry tells of, whether their files are here or not.
#pragma once
#include "KxWin.h"
#include <vector>

namespace KxLaunch {

struct Installation {
    int release = 0;
    CString key;   // "ACAD-A001:804"
    int flavour = -1, language = 0;
    CString program;   // empty when it is not found
};

// In the order of the registry.
std::vector<Installation> InstalledPrograms();
const wchar_t* FlavourName(int flavour);

}   // namespace KxLaunch
