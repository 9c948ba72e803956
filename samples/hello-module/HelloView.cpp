#include "HelloView.h"
#include "resource.h"

namespace Hello {

ViewDialog::ViewDialog(AcDbDatabase* db, CWnd* parent) : CDialog(IDD_VIEW, parent), m_db(db) {}

// The control takes the place of the template's label.
void ViewDialog::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_VIEW, m_preview);
}

BOOL ViewDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    m_preview.SetAcDb(m_db);
    m_preview.ZoomExtent();
    return TRUE;
}

}   // namespace Hello
