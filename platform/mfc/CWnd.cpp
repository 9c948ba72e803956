#include "CWnd.h"
#include "../ui/HostUi.h"
#include "AfxMessageBox.h"
#include "CDataExchange.h"
#include "CException.h"
#include "DialogWindows.h"
#include "TextView.h"
#include <algorithm>
#include <cwchar>

using KxPlat::DialogControl;
using KxPlat::TextView;
using KxPlat::ToCString;

namespace {

int CopyText(const std::wstring& text, wchar_t* buffer, int size)
{
    if (buffer == nullptr || size <= 0)
        return 0;
    const int count = std::min(int(text.size()), size - 1);
    std::wmemcpy(buffer, text.data(), size_t(count));
    buffer[count] = L'\0';
    return count;
}

}   // namespace

CWnd::~CWnd()
{
    if (m_windows != nullptr && m_control != nullptr)
        m_windows->Detach(*this);
}

int CWnd::GetDlgCtrlID() const
{
    return m_control == nullptr ? 0 : m_control->id;
}

CWnd* CWnd::GetParent() const
{
    return m_control == nullptr ? nullptr : &m_windows->Dialog();
}

// --- the window itself ------------------------------------------------------------------------------------------

void CWnd::SetWindowText(const wchar_t* text)
{
    const std::wstring newText = text == nullptr ? L"" : text;
    if (m_control == nullptr) {
        if (m_windows != nullptr)
            m_windows->model.caption = newText;
        return;
    }
    m_control->text = newText;
    if (m_control->kind == KxPlat::ControlKind::Edit && (m_control->style & ES_MULTILINE) == 0) {
        NotifyParent(EN_UPDATE);
        NotifyParent(EN_CHANGE);
    }
}

void CWnd::GetWindowText(CString& text) const
{
    if (m_windows == nullptr)
        text.Empty();
    else
        text = ToCString(m_control == nullptr ? m_windows->model.caption : m_control->text);
}

int CWnd::GetWindowText(wchar_t* text, int size) const
{
    CString whole;
    GetWindowText(whole);
    return CopyText(whole.GetString(), text, size);
}

int CWnd::GetWindowTextLength() const
{
    CString text;
    GetWindowText(text);
    return text.GetLength();
}

BOOL CWnd::EnableWindow(BOOL enable)
{
    const BOOL wasDisabled = !IsWindowEnabled();
    if (m_control != nullptr)
        m_control->enabled = enable != FALSE;
    return wasDisabled;
}

BOOL CWnd::IsWindowEnabled() const
{
    return m_control == nullptr || m_control->enabled;
}

BOOL CWnd::ShowWindow(int command)
{
    const BOOL wasVisible = IsWindowVisible();
    if (m_control != nullptr)
        m_control->visible = command != SW_HIDE;
    return wasVisible;
}

BOOL CWnd::IsWindowVisible() const
{
    return m_control == nullptr ? m_windows != nullptr : m_control->visible;
}

DWORD CWnd::GetStyle() const
{
    if (m_windows == nullptr)
        return 0;
    return m_control == nullptr ? m_windows->model.style : m_control->style;
}

DWORD CWnd::GetExStyle() const
{
    if (m_windows == nullptr)
        return 0;
    return m_control == nullptr ? m_windows->model.exStyle : m_control->exStyle;
}

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT)
{
    if (m_windows == nullptr)
        return FALSE;
    uint32_t& style = m_control == nullptr ? m_windows->model.style : m_control->style;
    const uint32_t before = style;
    style = (style & ~remove) | add;
    return style != before;
}

CWnd* CWnd::SetFocus()
{
    if (m_control == nullptr)
        return nullptr;
    CWnd* before = m_windows->WindowOf(m_windows->model.focusId);
    m_windows->model.focusId = m_control->id;
    return before;
}

int CWnd::MessageBox(const wchar_t* text, const wchar_t* caption, UINT type)
{
    return KxPlat::Ui().ShowMessage(text == nullptr ? L"" : text, caption == nullptr ? AfxGetAppName() : caption, type);
}

// --- controls of a dialog ---------------------------------------------------------------------------------------

CWnd* CWnd::GetDlgItem(int id) const
{
    return m_windows == nullptr || m_control != nullptr ? nullptr : m_windows->WindowOf(id);
}

void CWnd::SetDlgItemText(int id, const wchar_t* text)
{
    if (CWnd* item = GetDlgItem(id))
        item->SetWindowText(text);
}

int CWnd::GetDlgItemText(int id, CString& text) const
{
    text.Empty();
    if (const CWnd* item = GetDlgItem(id))
        item->GetWindowText(text);
    return text.GetLength();
}

int CWnd::GetDlgItemText(int id, wchar_t* text, int size) const
{
    CString whole;
    GetDlgItemText(id, whole);
    return CopyText(whole.GetString(), text, size);
}

void CWnd::SetDlgItemInt(int id, UINT value, BOOL isSigned)
{
    const std::wstring text = isSigned ? std::to_wstring(int(value)) : std::to_wstring(value);
    SetDlgItemText(id, text.c_str());
}

UINT CWnd::GetDlgItemInt(int id, BOOL* translated, BOOL isSigned) const
{
    CString text;
    GetDlgItemText(id, text);
    wchar_t* end = nullptr;
    const long long value = std::wcstoll(text, &end, 10);
    const bool inRange = isSigned ? value >= INT32_MIN && value <= INT32_MAX : value >= 0 && value <= UINT32_MAX;
    const bool done = end != text.GetString() && *end == L'\0' && inRange;
    if (translated != nullptr)
        *translated = done;
    return done ? UINT(value) : 0;
}

void CWnd::CheckDlgButton(int id, UINT check)
{
    if (const CWnd* item = GetDlgItem(id))
        item->m_control->check = int(check);
}

UINT CWnd::IsDlgButtonChecked(int id) const
{
    const CWnd* item = GetDlgItem(id);
    return item == nullptr ? 0 : UINT(item->m_control->check);
}

void CWnd::CheckRadioButton(int first, int last, int checked)
{
    for (int id = first; id <= last; ++id)
        CheckDlgButton(id, id == checked ? BST_CHECKED : BST_UNCHECKED);
}

int CWnd::GetCheckedRadioButton(int first, int last) const
{
    for (int id = first; id <= last; ++id) {
        if (IsDlgButtonChecked(id) == BST_CHECKED)
            return id;
    }
    return 0;
}

// --- messages ---------------------------------------------------------------------------------------------------

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return m_hWnd == nullptr ? 0 : WindowProc(message, wParam, lParam);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (message == WM_COMMAND) {
        OnCommand(wParam, lParam);
    } else if (message == WM_NOTIFY) {
        OnNotify(wParam, lParam, &result);
    } else if (const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(message, 0, 0)) {
        RunHandler(entry->handler, wParam, lParam, result);
    } else if (message == WM_CLOSE) {
        OnCommand(IDCANCEL, 0);   // as the box in a dialog's caption
    }
    return result;
}

BOOL CWnd::RunHandler(const AFX_MSGHANDLER& handler, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (handler.kind) {
    case AFX_MSGHANDLER::Plain:
        (this->*handler.plain)();
        return TRUE;
    case AFX_MSGHANDLER::Message:
        result = (this->*handler.message)(wParam, lParam);
        return TRUE;
    case AFX_MSGHANDLER::Timer:
        (this->*handler.timer)(wParam);
        return TRUE;
    case AFX_MSGHANDLER::Size:
        (this->*handler.size)(UINT(wParam), int16_t(LOWORD(lParam)), int16_t(HIWORD(lParam)));
        return TRUE;
    default:
        return FALSE;
    }
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM)
{
    return OnCmdMsg(LOWORD(wParam), HIWORD(wParam), nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* result)
{
    NMHDR* header = reinterpret_cast<NMHDR*>(lParam);
    AFX_NOTIFY notify = {result, header};
    return OnCmdMsg(UINT(header->idFrom), MAKELONG(header->code, WM_NOTIFY), &notify, nullptr);
}

void CWnd::NotifyParent(UINT code) const
{
    if (m_control == nullptr)
        return;
    if (m_control->kind == KxPlat::ControlKind::ListView)
        m_windows->Notify(*m_control, code);
    else
        m_windows->Command(m_control->id, code, m_control);
}

// --- data exchange ----------------------------------------------------------------------------------------------

void CWnd::DoDataExchange(CDataExchange*) {}

BOOL CWnd::UpdateData(BOOL saveAndValidate)
{
    CDataExchange exchange(this, saveAndValidate);
    try {
        DoDataExchange(&exchange);
    } catch (CUserException* refused) {
        refused->Delete();
        return FALSE;
    }
    return TRUE;
}
