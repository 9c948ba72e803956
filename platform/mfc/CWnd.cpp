#include "CWnd.h"
#include "../ui/HostUi.h"
#include "../ui/WindowQueue.h"
#include "../ui/WindowTable.h"
#include "AfxMessageBox.h"
#include "CDataExchange.h"
#include "CException.h"
#include "DialogWindows.h"
#include "TextView.h"
#include <algorithm>
#include <cwchar>

using KxPlat::DialogControl;
using KxPlat::FindWindowOf;
using KxPlat::NativeWindow;
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

int CWnd::GetDlgCtrlID() const
{
    if (m_control != nullptr)
        return m_control->id;
    const NativeWindow* window = FindWindowOf(m_hWnd);
    return window == nullptr ? 0 : int(window->id);
}

CWnd* CWnd::GetParent() const
{
    const NativeWindow* window = FindWindowOf(m_hWnd);
    return window == nullptr ? nullptr : FromHandle(window->parent);
}

// --- the window itself ------------------------------------------------------------------------------------------

void CWnd::SetWindowText(const wchar_t* text)
{
    KxPlat::SetNativeText(m_hWnd, text == nullptr ? L"" : text);
    if (m_control == nullptr)
        return;
    if (m_control->kind == KxPlat::ControlKind::Edit && (m_control->style & ES_MULTILINE) == 0) {
        NotifyParent(EN_UPDATE);
        NotifyParent(EN_CHANGE);
    }
}

void CWnd::GetWindowText(CString& text) const
{
    const NativeWindow* window = FindWindowOf(m_hWnd);
    if (window == nullptr)
        text.Empty();
    else
        text = ToCString(window->Text());
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
    KxPlat::EnableNativeWindow(m_hWnd, enable != FALSE);
    return wasDisabled;
}

BOOL CWnd::IsWindowEnabled() const
{
    const NativeWindow* window = FindWindowOf(m_hWnd);
    return window == nullptr || window->IsEnabled();
}

BOOL CWnd::ShowWindow(int command)
{
    const NativeWindow* window = FindWindowOf(m_hWnd);
    const BOOL wasVisible = window != nullptr && window->IsVisible();
    KxPlat::ShowNativeWindow(m_hWnd, command != SW_HIDE);
    return wasVisible;
}

// A control counts by itself, so that a dialog can ask before it is shown.
BOOL CWnd::IsWindowVisible() const
{
    return m_control == nullptr ? KxPlat::IsShown(m_hWnd) : m_control->visible;
}

DWORD CWnd::GetStyle() const
{
    const NativeWindow* window = FindWindowOf(m_hWnd);
    return window == nullptr ? 0 : window->Style();
}

DWORD CWnd::GetExStyle() const
{
    const NativeWindow* window = FindWindowOf(m_hWnd);
    return window == nullptr ? 0 : window->ExStyle();
}

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT)
{
    const DWORD before = GetStyle(), after = (before & ~remove) | add;
    if (before != after)
        KxPlat::SetNativeStyle(m_hWnd, after);
    return before != after;
}

BOOL CWnd::ModifyStyleEx(DWORD remove, DWORD add, UINT)
{
    const DWORD before = GetExStyle(), after = (before & ~remove) | add;
    if (before != after)
        KxPlat::SetNativeExStyle(m_hWnd, after);
    return before != after;
}

// In a dialog the controls take turns, without the window's own focus.
CWnd* CWnd::SetFocus()
{
    const NativeWindow* window = FindWindowOf(m_hWnd);
    if (window == nullptr)
        return nullptr;
    CWnd* before = nullptr;
    if (m_control != nullptr) {
        before = m_windows->WindowOf(m_windows->model.focusId);
        m_windows->model.focusId = m_control->id;
    }
    if (m_control == nullptr || window->isDrawn)
        before = FromHandle(KxPlat::FocusOn(m_hWnd));
    return before;
}

int CWnd::MessageBox(const wchar_t* text, const wchar_t* caption, UINT type)
{
    return KxPlat::Ui().ShowMessage(text == nullptr ? L"" : text, caption == nullptr ? AfxGetAppName() : caption, type);
}

// --- controls of a dialog ---------------------------------------------------------------------------------------

CWnd* CWnd::GetDlgItem(int id) const
{
    if (m_windows != nullptr && m_control == nullptr) {
        if (CWnd* control = m_windows->WindowOf(id))
            return control;
    }
    for (HWND child : KxPlat::ChildrenOf(m_hWnd)) {
        if (FindWindowOf(child)->id == UINT(id))
            return FromHandle(child);
    }
    return nullptr;
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
    const CWnd* item = GetDlgItem(id);
    if (item != nullptr && item->m_control != nullptr)
        item->m_control->check = int(check);
}

UINT CWnd::IsDlgButtonChecked(int id) const
{
    const CWnd* item = GetDlgItem(id);
    return item == nullptr || item->m_control == nullptr ? 0 : UINT(item->m_control->check);
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
