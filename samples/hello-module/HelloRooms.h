// A room in a drawing: a closed polyline that carries its name and number in its extended data.
#pragma once
#include "KxArxBase/KxArxBase.h"

namespace Hello {

struct Room {
    CString name;
    long number = 0;
    double area = 0;   // square drawing units
};

// The corners turn left; the room's name is written in the middle.
Acad::ErrorStatus DrawRoom(const AcGePoint3d& corner, const AcGePoint3d& opposite, AcDbObjectId& id);
Acad::ErrorStatus WriteRoom(AcDbObjectId id, const Room& room);
// One more line in the room's history, which may grow long: it is kept in a record of its own.
Acad::ErrorStatus NoteOf(AcDbObjectId id, const CString& line);
// False for what is no room.
bool ReadRoom(AcDbObjectId id, Room& room);
// The rooms of the current space, in drawing order.
AcDbObjectIdArray RoomsOf(AcDbDatabase* db);

}   // namespace Hello
