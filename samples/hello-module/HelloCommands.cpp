// The commands, and the LISP function.
#include "HelloDialog.h"
#include "HelloModule.h"
#include "HelloRooms.h"
#include "HelloView.h"

namespace Hello {

// Two corners from the user, a room between them.
void HelloModule::CmdHelloRoom()
{
    ads_point first, second;
    if (acedGetPoint(nullptr, L"\n房间的第一角点: ", first) != RTNORM ||
        acedGetCorner(first, L"\n对角点: ", second) != RTNORM)
        return;
    AcDbObjectId id;
    const Acad::ErrorStatus es = DrawRoom(AcGePoint3d(first[X], first[Y], 0), AcGePoint3d(second[X], second[Y], 0), id);
    if (es != Acad::eOk)
        KxArxBase::MessageError(es, 1, 0, L"HelloRoom: ");
}

// The dialog for one picked room.
void HelloModule::CmdHelloTag()
{
    ads_name picked;
    ads_point at;
    AcDbObjectId id;
    if (acedEntSel(L"\n选择房间: ", picked, at) != RTNORM || acdbGetObjectId(id, picked) != Acad::eOk)
        return;
    Room room;
    if (!ReadRoom(id, room)) {
        KxArxBase::MsgCmdInfo(L"\n不是房间.\n");
        return;
    }
    // The module's own resources, for as long as the dialog is up.
    HINSTANCE host = AfxGetResourceHandle();
    AfxSetResourceHandle(Resources());
    RoomDialog dialog(room);
    const bool isDone = dialog.DoModal() == IDOK;
    AfxSetResourceHandle(host);
    if (!isDone)
        return;
    KxArxBase::MessageError(WriteRoom(id, dialog.room()), 1, 0, L"HelloTag: ");
    KxArxBase::MessageError(NoteOf(id, room.name + L" -> " + dialog.room().name), 1, 0, L"HelloTag: ");
}

void HelloModule::CmdHelloList()
{
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    double sum = 0;
    const AcDbObjectIdArray rooms = RoomsOf(db);
    for (int i = 0; i < rooms.length(); ++i) {
        Room room;
        ReadRoom(rooms.at(i), room);
        KxArxBase::MsgCmdInfo(L"\n%ld %s: %.2f", room.number, room.name.GetString(), room.area);
        sum += room.area;
    }
    KxArxBase::MsgCmdInfo(L"\n%d 个房间, 面积 %.2f\n", rooms.length(), sum);
}

// The drawing in a dialog, as it is now.
void HelloModule::CmdHelloView()
{
    HINSTANCE host = AfxGetResourceHandle();
    AfxSetResourceHandle(Resources());
    ViewDialog(acdbHostApplicationServices()->workingDatabase()).DoModal();
    AfxSetResourceHandle(host);
}

int HelloModule::FunHelloRooms(resbuf*)
{
    acedRetInt(RoomsOf(acdbHostApplicationServices()->workingDatabase()).length());
    return RTNORM;
}

}   // namespace Hello
