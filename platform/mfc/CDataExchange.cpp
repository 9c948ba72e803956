#include "CDataExchange.h"
#include "AfxMessageBox.h"
#include "CComboBox.h"
#include "CException.h"
#include "CListBox.h"
#include "DialogWindows.h"
#include <cstdlib>

namespace {

[[noreturn]] void Refuse(CDataExchange& exchange, const wchar_t* message)
{
    AfxMessageBox(message, MB_OK | MB_ICONEXCLAMATION);
    exchange.Fail();
}

// A control that shows the value already is left alone, so that it sends no change.
void Show(CWnd& control, const wchar_t* text)
{
    CString shown;
    control.GetWindowText(shown);
    if (shown != text)
        control.SetWindowText(text);
}

CString TextOf(const CWnd& control)
{
    CString text;
    control.GetWindowText(text);
    return text.Trim();
}

// The whole text must be a number of the range.
long long WholeNumber(CDataExchange& exchange, const CWnd& control, long long least, long long most,
                      const wchar_t* message)
{
    const CString text = TextOf(control);
    wchar_t* end = nullptr;
    const long long value = std::wcstoll(text, &end, 10);
    if (text.IsEmpty() || *end != L'\0' || value < least || value > most)
        Refuse(exchange, message);
    return value;
}

template <class List>
void ExchangeText(CDataExchange& exchange, List& list, CString& value)
{
    if (!exchange.m_bSaveAndValidate)
        list.SelectString(-1, value);
    else if (list.GetCurSel() >= 0)
        list.GetRowText(list.GetCurSel(), value);
    else
        value.Empty();
}

template <class List>
void ExchangeIndex(CDataExchange& exchange, List& list, int& index)
{
    if (exchange.m_bSaveAndValidate)
        index = list.GetCurSel();
    else
        list.SetCurSel(index);
}

}   // namespace

CWnd* CDataExchange::PrepareCtrl(int id)
{
    CWnd* control = m_pDlgWnd->GetDlgItem(id);
    if (control == nullptr)
        AfxThrowResourceException();
    return control;
}

CWnd* CDataExchange::PrepareEditCtrl(int id)
{
    return PrepareCtrl(id);
}

void CDataExchange::Fail()
{
    AfxThrowUserException();
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control)
{
    KxPlat::DialogWindows::AttachById(*exchange->m_pDlgWnd, id, control);
}

void DDX_Text(CDataExchange* exchange, int id, CString& value)
{
    CWnd* control = exchange->PrepareEditCtrl(id);
    if (exchange->m_bSaveAndValidate)
        control->GetWindowText(value);
    else
        Show(*control, value);
}

void DDX_Text(CDataExchange* exchange, int id, int& value)
{
    CWnd* control = exchange->PrepareEditCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = int(WholeNumber(*exchange, *control, INT32_MIN, INT32_MAX, L"Please enter an integer."));
    else
        Show(*control, std::to_wstring(value).c_str());
}

void DDX_Text(CDataExchange* exchange, int id, UINT& value)
{
    CWnd* control = exchange->PrepareEditCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = UINT(WholeNumber(*exchange, *control, 0, UINT32_MAX, L"Please enter a positive integer."));
    else
        Show(*control, std::to_wstring(value).c_str());
}

void DDX_Text(CDataExchange* exchange, int id, double& value)
{
    CWnd* control = exchange->PrepareEditCtrl(id);
    CString text;
    if (!exchange->m_bSaveAndValidate) {
        text.Format(L"%.15g", value);
        return Show(*control, text);
    }
    text = TextOf(*control);
    wchar_t* end = nullptr;
    const double number = std::wcstod(text, &end);
    if (text.IsEmpty() || *end != L'\0')
        Refuse(*exchange, L"Please enter a number.");
    value = number;
}

void DDX_Check(CDataExchange* exchange, int id, int& value)
{
    exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = int(exchange->m_pDlgWnd->IsDlgButtonChecked(id));
    else
        exchange->m_pDlgWnd->CheckDlgButton(id, value < 0 || value > 2 ? 0 : UINT(value));
}

void DDX_Radio(CDataExchange* exchange, int id, int& value)
{
    exchange->PrepareCtrl(id);
    CWnd* dialog = exchange->m_pDlgWnd;
    int index = 0;
    int chosen = -1;
    for (const int member : KxPlat::DialogWindows::RadioGroup(*dialog, id)) {
        if (!exchange->m_bSaveAndValidate)
            dialog->CheckDlgButton(member, index == value);
        else if (dialog->IsDlgButtonChecked(member))
            chosen = index;
        ++index;
    }
    if (exchange->m_bSaveAndValidate)
        value = chosen;
}

void DDX_LBIndex(CDataExchange* exchange, int id, int& index)
{
    ExchangeIndex(*exchange, *static_cast<CListBox*>(exchange->PrepareCtrl(id)), index);
}

void DDX_LBString(CDataExchange* exchange, int id, CString& value)
{
    ExchangeText(*exchange, *static_cast<CListBox*>(exchange->PrepareCtrl(id)), value);
}

void DDX_CBIndex(CDataExchange* exchange, int id, int& index)
{
    ExchangeIndex(*exchange, *static_cast<CComboBox*>(exchange->PrepareCtrl(id)), index);
}

void DDX_CBString(CDataExchange* exchange, int id, CString& value)
{
    CComboBox* box = static_cast<CComboBox*>(exchange->PrepareCtrl(id));
    if (exchange->m_bSaveAndValidate)
        box->GetWindowText(value);
    else if (box->SelectString(-1, value) < 0)
        Show(*box, value);
}

void DDV_MinMaxInt(CDataExchange* exchange, int value, int least, int most)
{
    if (!exchange->m_bSaveAndValidate || (value >= least && value <= most))
        return;
    CString message;
    message.Format(L"Please enter an integer between %d and %d.", least, most);
    Refuse(*exchange, message);
}

void DDV_MinMaxDouble(CDataExchange* exchange, const double& value, double least, double most)
{
    if (!exchange->m_bSaveAndValidate || (value >= least && value <= most))
        return;
    CString message;
    message.Format(L"Please enter a number between %g and %g.", least, most);
    Refuse(*exchange, message);
}

void DDV_MaxChars(CDataExchange* exchange, const CString& value, int count)
{
    if (!exchange->m_bSaveAndValidate || value.GetLength() <= count)
        return;
    CString message;
    message.Format(L"Please enter no more than %d characters.", count);
    Refuse(*exchange, message);
}
