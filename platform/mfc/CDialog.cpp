#include "CDialog.h"
#include "../ui/HostUi.h"
#include "../ui/WindowBackend.h"
#include "AfxExtensionModule.h"
#include "DialogTemplate.h"
#include "DialogWindows.h"
#include "ResourceTable.h"

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

CDialog::CDialog() = default;

CDialog::CDialog(UINT templateId, CWnd* parent) : m_template(MAKEINTRESOURCE(templateId)), m_parent(parent) {}

CDialog::CDialog(const wchar_t* templateName, CWnd* parent) : m_template(templateName), m_parent(parent)
{
    if (!IS_INTRESOURCE(templateName)) {
        m_name = templateName;
        m_template = m_name;
    }
}

CDialog::~CDialog()
{
    if (m_modeless != nullptr)
        m_modeless->Close();
}

bool CDialog::Load(KxPlat::DialogWindows& windows) const
{
    const HINSTANCE module = AfxFindResourceHandle(m_template, RT_DIALOG);
    const std::string_view bytes = KxPlat::FindResourceBytes(module, m_template, RT_DIALOG);
    return bytes.data() != nullptr && KxPlat::ReadDialogTemplate(bytes, windows.model);
}

INT_PTR CDialog::DoModal()
{
    if (m_running != nullptr || m_hWnd != nullptr)
        return -1;
    KxPlat::DialogWindows windows(*this);
    if (!Load(windows))
        return -1;
    struct Running {
        KxPlat::DialogWindows*& place;
        ~Running() { place = nullptr; }
    } running{m_running};
    m_running = &windows;
    windows.model.style |= WS_VISIBLE;
    windows.Open(m_parent == nullptr ? nullptr : m_parent->m_hWnd);
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
    m_running->Close();
    return model.Result();
}

BOOL CDialog::Create(UINT templateId, CWnd* parent)
{
    return Create(MAKEINTRESOURCE(templateId), parent);
}

BOOL CDialog::Create(const wchar_t* templateName, CWnd* parent)
{
    if (m_running != nullptr || m_hWnd != nullptr)
        return FALSE;
    m_template = templateName;
    m_modeless = std::make_unique<KxPlat::DialogWindows>(*this);
    if (!Load(*m_modeless)) {
        m_modeless = nullptr;
        return FALSE;
    }
    m_running = m_modeless.get();
    m_modeless->Open(parent == nullptr ? nullptr : parent->m_hWnd);
    OnInitDialog();
    KxPlat::Windows().Shown(m_hWnd);
    return TRUE;
}

void CDialog::PostNcDestroy()
{
    if (m_running != nullptr && m_running == m_modeless.get())
        m_running = nullptr;
}

BOOL CDialog::OnInitDialog()
{
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::EndDialog(int result)
{
    if (m_running == nullptr)
        return;
    if (m_modeless != nullptr)
        ShowWindow(SW_HIDE);   // its owner destroys it
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
