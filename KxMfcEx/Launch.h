// Starts the CAD program. A path in a command line stands between quotation marks.
#pragma once
#include "KxExport.h"

namespace KxMfcEx {

// Starts a release with a script: the answer of CreateProcessW. 0 when the script is missing; when the release is not
// installed the answer of GetProductExePath, which is negative, or is not 0 though its file is gone. Nobody waits for
// the program, and its handles stay open.
KXARX_API int RunAutoCadWithScr(int release, const wchar_t* script, const wchar_t* extra);
// The same with a profile; waits up to two seconds, then writes the pending profile value back.
KXARX_API int RunAutoCadWithScr2(int release, const wchar_t* script, const wchar_t* profile, const wchar_t* extra);
// Writes "RunCad.SCR" into the folder for temporary files and starts a release with it. The script loads `module` and
// goes on with `extra`; either may be null. The program is started even when the script could not be written.
KXARX_API int RunAutoCadWithArx(int release, const wchar_t* module, const wchar_t* extra, int addPrinc,
                                const wchar_t* unused);
// The script that RunAutoCadWithArx writes; all its paths have "/".
KXARX_API CString StartupScript(const wchar_t* module, const wchar_t* extra, int addPrinc);

// Starts a program from its own folder, which stays the current one, waits up to two seconds and writes the pending
// profile value back. The answer of CreateProcessW, 0 when there is no such file.
KXARX_API int CreateAppointProcess(CString program, CString commandLine);

}   // namespace KxMfcEx
