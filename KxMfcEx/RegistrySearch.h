// Looks through the registry.
#pragma once
#include "KxExport.h"

namespace KxMfcEx {

// Accepts a value by its path and its text: nonzero.
using RegistryFilter = int (*)(const wchar_t* path, const wchar_t* data);

// The first value below `key`, the key's own before those further down, that has one of the names (without regard to
// case), fits into `size` bytes and is accepted by the filter, if there is one. Type, data and size are its own then.
// 1, or 0 when there is none. A refused value leaves its size behind: a longer one in the same key does not fit any
// more. Not to be called from a filter: all calls share the path they are at.
KXARX_API int Reg_GetFirstSuiteNameValueData(HKEY key, CStringArray& names, DWORD* type, BYTE* data, DWORD* size,
                                             RegistryFilter filter);

// How keys are opened for the search: a 32-bit process asks for all rights in the 64-bit registry.
KXARX_API REGSAM RegistrySearchAccess();

}   // namespace KxMfcEx
