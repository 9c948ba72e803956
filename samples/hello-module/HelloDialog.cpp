#include "HelloDialog.h"
#include "resource.h"

namespace Hello {

RoomDialog::RoomDialog(const Room& room, CWnd* parent) : CDialog(IDD_ROOM, parent), m_room(room) {}

BOOL RoomDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    SetDlgItemText(IDC_ROOM_NAME, m_room.name);
    SetDlgItemInt(IDC_ROOM_NUMBER, UINT(m_room.number), FALSE);
    return TRUE;
}

void RoomDialog::OnOK()
{
    CString name;
    GetDlgItemText(IDC_ROOM_NAME, name);
    if (name.Trim().IsEmpty()) {
        AfxMessageBox(L"房间需要一个名称。");
        return;
    }
    m_room.name = name;
    m_room.number = long(GetDlgItemInt(IDC_ROOM_NUMBER, nullptr, FALSE));
    CDialog::OnOK();
}

}   // namespace Hello
