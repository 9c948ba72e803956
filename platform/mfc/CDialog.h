// A dialog over a template of the module's resources. DoModal shows it and returns what EndDialog was given; -1 when
// there is no such template. Create makes one that stays beside the rest until DestroyWindow.
#pragma once
#include "CWnd.h"
#include <memory>

class CDialog : public CWnd {
public:
    CDialog();   // for Create
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    explicit CDialog(const wchar_t* templateName, CWnd* parent = nullptr);
    ~CDialog() override;

    virtual INT_PTR DoModal();
    using CWnd::Create;
    BOOL Create(UINT templateId, CWnd* parent = nullptr);
    BOOL Create(const wchar_t* templateName, CWnd* parent = nullptr);
    virtual BOOL OnInitDialog();
    void EndDialog(int result);
    void GotoDlgCtrl(CWnd* control) { control->SetFocus(); }

protected:
    virtual void OnOK();       // UpdateData, then EndDialog(IDOK)
    virtual void OnCancel();   // EndDialog(IDCANCEL)
    void PostNcDestroy() override;
    DECLARE_MESSAGE_MAP()

private:
    bool Load(KxPlat::DialogWindows& windows) const;
    int Run();
    CString m_name;
    const wchar_t* m_template = nullptr;   // m_name's text, or a number
    CWnd* m_parent = nullptr;
    KxPlat::DialogWindows* m_running = nullptr;
    std::unique_ptr<KxPlat::DialogWindows> m_modeless;
};
