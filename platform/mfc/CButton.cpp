#include "CButton.h"
#include "../ui/DialogModel.h"
#include "CEdit.h"

int CButton::GetCheck() const
{
    return Control() == nullptr ? 0 : Control()->check;
}

void CButton::SetCheck(int check)
{
    if (Control() != nullptr)
        Control()->check = check;
}

void CButton::SetButtonStyle(UINT style, BOOL)
{
    ModifyStyle(BS_TYPEMASK, style & BS_TYPEMASK);
}

void CEdit::LimitText(int count)
{
    if (Control() != nullptr)
        Control()->textLimit = count > 0 ? size_t(count) : size_t(0x7FFFFFFE);
}

BOOL CEdit::SetReadOnly(BOOL readOnly)
{
    ModifyStyle(readOnly ? 0 : ES_READONLY, readOnly ? ES_READONLY : 0);
    return m_hWnd != nullptr;
}

void CEdit::ReplaceSel(const wchar_t* text, BOOL)
{
    CString whole;
    GetWindowText(whole);
    SetWindowText(whole + text);
}
