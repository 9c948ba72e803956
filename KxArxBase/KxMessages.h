// What every module of the family says to its user: message boxes, lines on the command line, error lines, traces.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxAcad {

// The family's own statuses, above the host's range. Functions hand them out as Acad::ErrorStatus.
enum KxAcadError {
    eNoObject = 40000,
    eNoSectionsInDict = 40001,
    eNoApi = 40002,
    eApiAccessError = 40003,
    eNoModule = 40004,
    eWrongHookType = 40005,
    eFailRegCadHook = 40006,
    eFailRemoveCadHook = 40007
};

}   // namespace KxAcad

namespace KxArxBase {

// While nonzero, DebugCmdMsg prints. Nothing here sets it; a debugger or a host does.
extern "C" KXARX_API int G_bOutDebugCmdMsg;

// Mode 0: a message box of `type`, whose answer is returned. Any other mode: the command line. 0 for a null text.
KXARX_API int MessageInfo(const wchar_t* text, int mode, unsigned int type);
// "\n", `prefix` and the text of the status, through MessageInfo. Says nothing and returns 1 for Acad::eOk.
KXARX_API int MessageError(Acad::ErrorStatus es, int mode, unsigned int type, const wchar_t* prefix);
KXARX_API int MsgCmdInfo(const wchar_t* format, ...);
// Nothing is formatted unless G_bOutDebugCmdMsg is set.
KXARX_API void DebugCmdMsg(const wchar_t* format, ...);

KXARX_API CString KxAcadErrorStatusText(KxAcad::KxAcadError es);
inline CString KxAcadErrorStatusText(Acad::ErrorStatus es)
{
    return KxAcadErrorStatusText(static_cast<KxAcad::KxAcadError>(es));
}
inline Acad::ErrorStatus AsStatus(KxAcad::KxAcadError es)
{
    return static_cast<Acad::ErrorStatus>(es);
}

KXARX_API CString Str_GetAcDbHandle(const AcDbHandle& h);
// Length, and height where asked for, of a text as the style draws it, in drawing units.
// On failure the outputs keep their values.
KXARX_API Acad::ErrorStatus GetTextsLength(const wchar_t* text, AcDbObjectId textStyle, double height,
                                           double widthFactor, double& length, double* pHeight);

// A failing step runs three times: the user reads the status of the second run, the caller gets that of the third.
template <class Step>
Acad::ErrorStatus Reported(Step step)
{
    const Acad::ErrorStatus first = step();
    if (first == Acad::eOk)
        return first;
    MessageError(step(), 1, 0, L"Error: ");
    return step();
}

}   // namespace KxArxBase
