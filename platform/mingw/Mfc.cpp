// The few parts of MFC that reach into the user interface.
#include "../mfc/AfxMessageBox.h"
#include "../mfc/CString.h"
#include "KxWinTypes.h"

int AfxMessageBox(const wchar_t* text, UINT type, UINT)
{
    return MessageBoxW(GetActiveWindow(), text, L"KxArxBase", type);
}

BOOL CString::LoadString(HINSTANCE module, UINT id)
{
    wchar_t buffer[1024] = {};
    const int length = ::LoadStringW(module, id, buffer, ARRAYSIZE(buffer));
    if (length <= 0)
        return FALSE;
    SetString(buffer, length);
    return TRUE;
}

BOOL CString::LoadString(UINT id)
{
    return LoadString(GetModuleHandleW(nullptr), id);
}

void CString::Format(UINT formatId, ...)
{
    CString format;
    if (!format.LoadString(formatId))
        return;
    va_list arguments;
    va_start(arguments, formatId);
    FormatV(format, arguments);
    va_end(arguments);
}
