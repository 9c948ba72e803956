// Names of files, asked for in the host's file dialog; on the command line where a script answers.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase::Gi {

// 0 when a name was chosen, else the host's answer (RTCAN: cancelled) with `path` untouched. `extension` is added to a
// name that has none.
KXARX_API int AskSaveFileName(const wchar_t* title, const wchar_t* extension, CString& path,
                              const wchar_t* initial = nullptr);
KXARX_API int AskOpenFileName(const wchar_t* title, const wchar_t* extension, CString& path,
                              const wchar_t* initial = nullptr);

}   // namespace KxArxBase::Gi
