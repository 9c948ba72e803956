// A window: a dialog, or one of its controls while the dialog runs. Without a window (m_hWnd null) reading gives
// nothing and changing does nothing.
#pragma once
#include "CCmdTarget.h"
#include "CRect.h"
#include "CString.h"

namespace KxPlat {
class DialogWindows;
struct DialogControl;
}   // namespace KxPlat

class CDataExchange;

class CWnd : public CCmdTarget {
public:
    CWnd() = default;
    ~CWnd() override;

    HWND m_hWnd = nullptr;
    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }
    int GetDlgCtrlID() const;
    CWnd* GetParent() const;   // the dialog of a control
    CWnd* GetOwner() const { return GetParent(); }

    void SetWindowText(const wchar_t* text);
    void GetWindowText(CString& text) const;
    int GetWindowText(wchar_t* text, int size) const;
    int GetWindowTextLength() const;
    BOOL EnableWindow(BOOL enable = TRUE);   // TRUE when it was disabled before
    BOOL IsWindowEnabled() const;
    BOOL ShowWindow(int command);   // TRUE when it was visible before
    BOOL IsWindowVisible() const;
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);
    CWnd* SetFocus();
    // What is shown follows by itself; these ask for nothing more.
    void Invalidate(BOOL = TRUE) {}
    void UpdateWindow() {}
    void SetRedraw(BOOL = TRUE) {}

    // Controls of a dialog. The pointer is the attached object (DDX_Control), else one that lives as long as the dialog
    // runs: a CListBox for a list box, and so on. Null for an unknown number.
    CWnd* GetDlgItem(int id) const;
    void SetDlgItemText(int id, const wchar_t* text);
    int GetDlgItemText(int id, CString& text) const;
    int GetDlgItemText(int id, wchar_t* text, int size) const;
    void SetDlgItemInt(int id, UINT value, BOOL isSigned = TRUE);
    UINT GetDlgItemInt(int id, BOOL* translated = nullptr, BOOL isSigned = TRUE) const;
    void CheckDlgButton(int id, UINT check);
    UINT IsDlgButtonChecked(int id) const;
    void CheckRadioButton(int first, int last, int checked);
    int GetCheckedRadioButton(int first, int last) const;

    int MessageBox(const wchar_t* text, const wchar_t* caption = nullptr, UINT type = MB_OK);
    // Moves values between the members and the controls; FALSE when one of them is not valid.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);

    // Handled before the call returns. Controls answer the messages that their parents know, no others.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual void DoDataExchange(CDataExchange* exchange);

    // Of a control; null for a dialog or without a window.
    KxPlat::DialogControl* Control() const { return m_control; }
    // Tells the dialog what happened to this control, as the system does after some calls.
    void NotifyParent(UINT code) const;

private:
    friend class KxPlat::DialogWindows;
    BOOL RunHandler(const AFX_MSGHANDLER& handler, WPARAM wParam, LPARAM lParam, LRESULT& result);

    KxPlat::DialogWindows* m_windows = nullptr;   // of the dialog that this is, or is in
    KxPlat::DialogControl* m_control = nullptr;
};
