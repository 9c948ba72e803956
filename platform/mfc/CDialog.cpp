#include "CDialog.h"
#include "../ui/HostUi.h"
#include "AfxExtensionModule.h"
#include "DialogTemplate.h"
#include "DialogWindows.h"
#include "ResourceTable.h"

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

CDialog::CDialog(UINT templateId, CWnd*) : m_template(MAKEINTRESOURCE(templateId)) {}

CDialog::CDialog(const wchar_t* templateName, CWnd*) : m_template(templateName)
{
    if (!IS_INTRESOURCE(templateName)) {
        m_name = templateName;
        m_template = m_name;
    }
}

CDialog::~CDialog() = default;

INT_PTR CDialog::DoModal()
{
    if (m_running != nullptr)
        return -1;
    KxPlat::DialogWindows windows(*this);
    const HINSTANCE module = AfxFindResourceHandle(m_template, RT_DIALOG);
    const std::string_view bytes = KxPlat::FindResourceBytes(module, m_template, RT_DIALOG);
    if (bytes.data() == nullptr || !KxPlat::ReadDialogTemplate(bytes, windows.model))
        return -1;
    struct Running {
        KxPlat::DialogWindows*& place;
        ~Running() { place = nullptr; }
    } running{m_running};
    m_running = &windows;
    return Run();
}

int CDialog::Run()
{
    KxPlat::DialogModel& model = m_running->model;
    OnInitDialog();
    if (!model.Ended())
        KxPlat::Ui().RunDialog(model);
    // A host that shows no dialogs leaves it open: that is a cancelled one, and the dialog must hear of it.
    if (!model.Ended())
        model.Cancel();
    if (!model.Ended())
        model.End(IDCANCEL);
    SendMessage(WM_DESTROY);
    return model.Result();
}

BOOL CDialog::OnInitDialog()
{
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::EndDialog(int result)
{
    if (m_running != nullptr)
        m_running->model.End(result);
}

void CDialog::OnOK()
{
    if (UpdateData(TRUE))
        EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}
