// The about box: product and version, as the module's version block has them.
#include "KxCadBaseModule.h"
#include "KxMfcEx/FileVersion.h"
#include "resources/resource.h"

namespace KxArxModules {

namespace {

class CDlgAbout : public CDialog {
public:
    CDlgAbout() : CDialog(IDD_ABOUT) {}

protected:
    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(ModuleResources(), path, MAX_PATH);
        KxMfcEx::CFileVersion version;
        if (version.Open(path) == 0)
            return TRUE;
        CString line;
        line.Format(L"版本 %s", version.GetProductVersion().GetString());
        SetDlgItemText(IDC_PRODUCT, version.GetProductName());
        SetDlgItemText(IDC_VERSION, line);
        SetDlgItemText(IDC_DESCRIPTION, version.GetFileDescription());
        return TRUE;
    }
};

}   // namespace

void KxCadBaseModule::CmdDlgAbout()
{
    acDocManager->pushResourceHandle(ModuleResources());
    CDlgAbout().DoModal();
    acDocManager->popResourceHandle();
}

}   // namespace KxArxModules
