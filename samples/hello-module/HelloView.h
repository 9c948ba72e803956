// Shows the drawing in a dialog: the wheel zooms, dragging pans, the right button has a menu.
#pragma once
#include "KxArxBase/KxArxBase.h"

namespace Hello {

class ViewDialog : public CDialog {
public:
    explicit ViewDialog(AcDbDatabase* db, CWnd* parent = nullptr);

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;

private:
    AcDbDatabase* m_db;
    KxArxBase::CKxAcDbPreviewCtrl m_preview;
};

}   // namespace Hello
