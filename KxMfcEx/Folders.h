// Folders.
#pragma once
#include "KxExport.h"

namespace KxMfcEx {

// Without `createParents`: 1 when the folder was made, 0 when it was there or could not be made.
// With it: the count of folders made, 0 when all were there or one could not be made. Parents are parted by "\" only;
// a relative path whose first folder exists is taken from within that folder. The current folder is the old one
// afterwards.
KXARX_API int MakeDir(const wchar_t* path, int createParents);

}   // namespace KxMfcEx
