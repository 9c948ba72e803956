// A modal dialog over a template of the module's resources. DoModal shows it and returns what EndDialog was given;
// -1 when there is no such template.
#pragma once
#include "CWnd.h"

class CDialog : public CWnd {
public:
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    explicit CDialog(const wchar_t* templateName, CWnd* parent = nullptr);
    ~CDialog() override;

    virtual INT_PTR DoModal();
    virtual BOOL OnInitDialog();
    void EndDialog(int result);
    void GotoDlgCtrl(CWnd* control) { control->SetFocus(); }

protected:
    virtual void OnOK();       // UpdateData, then EndDialog(IDOK)
    virtual void OnCancel();   // EndDialog(IDCANCEL)
    DECLARE_MESSAGE_MAP()

private:
    int Run();
    CString m_name;
    const wchar_t* m_template;   // m_name's text, or a number
    KxPlat::DialogWindows* m_running = nullptr;
};
