#include "KxMessages.h"
#include <cstdarg>
#include <cwchar>

namespace KxArxBase {

int G_bOutDebugCmdMsg = 0;

namespace {

const wchar_t* const g_errorNames[] = {
    L"KxAcad::eNoObject", L"KxAcad::eNoSectionsInDict", L"KxAcad::eNoApi",          L"KxAcad::eApiAccessError",
    L"KxAcad::eNoModule", L"KxAcad::eWrongHookType",    L"KxAcad::eFailRegCadHook", L"KxAcad::eFailRemoveCadHook",
};

int PrintFormatted(const wchar_t* format, va_list arguments)
{
    CString text;
    text.FormatV(format, arguments);
    return MessageInfo(text, 1, 0);
}

}   // namespace

int MessageInfo(const wchar_t* text, int mode, unsigned int type)
{
    if (text == nullptr)
        return 0;
    return mode == 0 ? AfxMessageBox(text, type, 0) : acutPrintf(L"%s", text);
}

int MessageError(Acad::ErrorStatus es, int mode, unsigned int type, const wchar_t* prefix)
{
    if (es == Acad::eOk)
        return 1;
    CString text;
    text.Format(L"\n%s%s", prefix, KxAcadErrorStatusText(es).GetString());
    return MessageInfo(text, mode, type);
}

int MsgCmdInfo(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int result = PrintFormatted(format, arguments);
    va_end(arguments);
    return result;
}

void DebugCmdMsg(const wchar_t* format, ...)
{
    if (G_bOutDebugCmdMsg == 0)
        return;
    va_list arguments;
    va_start(arguments, format);
    PrintFormatted(format, arguments);
    va_end(arguments);
}

CString KxAcadErrorStatusText(KxAcad::KxAcadError es)
{
    if (es >= KxAcad::eNoObject && es <= KxAcad::eFailRemoveCadHook)
        return g_errorNames[es - KxAcad::eNoObject];
    return acadErrorStatusText(static_cast<Acad::ErrorStatus>(es));
}

CString Str_GetAcDbHandle(const AcDbHandle& h)
{
    ACHAR digits[17] = {};
    h.getIntoAsciiBuffer(digits);
    return digits;
}

Acad::ErrorStatus GetTextsLength(const wchar_t* text, AcDbObjectId textStyle, double height, double widthFactor,
                                 double& length, double* pHeight)
{
    AcGiTextStyle style;
    const Acad::ErrorStatus es = fromAcDbTextStyle(style, textStyle);
    if (es != Acad::eOk)
        return es;
    style.setTextSize(height);
    style.setXScale(widthFactor);
    const AcGePoint2d extents = style.extents(text, Adesk::kFalse, int(std::wcslen(text)), Adesk::kFalse);
    length = extents.x;
    if (pHeight != nullptr)
        *pHeight = extents.y;
    return Acad::eOk;
}

}   // namespace KxArxBase
