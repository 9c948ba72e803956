#include "AfxMessageBox.h"
#include "../ui/HostUi.h"
#include "CString.h"
#include "TextView.h"

int AfxMessageBox(const wchar_t* text, UINT type, UINT)
{
    return KxPlat::Ui().ShowMessage(text == nullptr ? L"" : text, AfxGetAppName(), type);
}

int AfxMessageBox(UINT promptId, UINT type, UINT)
{
    CString text;
    text.LoadString(promptId);
    return KxPlat::Ui().ShowMessage(KxPlat::TextView(text), AfxGetAppName(), type);
}

const wchar_t* AfxGetAppName()
{
    return L"kxcad";
}
