#include "HelloRooms.h"
#include <cmath>

namespace Hello {

namespace {

// The name under which the drawing keeps the module's data, and the numbers of the values.
const wchar_t kApplication[] = L"HelloModule";
enum Index : long { kName = 1, kNumber = 2, kArea = 3, kNotes = 10 };

const wchar_t kLayer[] = L"房间";

}   // namespace

Acad::ErrorStatus DrawRoom(const AcGePoint3d& corner, const AcGePoint3d& opposite, AcDbObjectId& id)
{
    id.setNull();
    const double width = std::fabs(opposite.x - corner.x), depth = std::fabs(opposite.y - corner.y);
    if (width == 0 || depth == 0)
        return Acad::eDegenerateGeometry;
    const double left = std::fmin(corner.x, opposite.x), low = std::fmin(corner.y, opposite.y);

    KxArxBase::CKxAcDb db;
    Acad::ErrorStatus es = db.Layer(kLayer, 3, L"Continuous", nullptr, 1, 0);
    if (es != Acad::eOk)
        return es;
    auto* outline = new AcDbPolyline(4);
    const AcGePoint2d corners[] = {AcGePoint2d(left, low), AcGePoint2d(left + width, low),
                                   AcGePoint2d(left + width, low + depth), AcGePoint2d(left, low + depth)};
    for (unsigned int i = 0; i < 4; ++i)
        outline->addVertexAt(i, corners[i]);
    outline->setClosed(true);
    outline->setLayer(kLayer);
    // The flag hands the entity over: it is closed, or deleted where it could not be added.
    es = db.AddEntToSpace(outline, 1, nullptr, &id);
    if (es != Acad::eOk)
        return es;
    Room room;
    room.name = L"未命名";
    room.area = width * depth;
    return WriteRoom(id, room);
}

Acad::ErrorStatus WriteRoom(AcDbObjectId id, const Room& room)
{
    KxArxBase::CKxAcXData data(kApplication);
    if (!data.SetString(kName, room.name) || !data.SetLong(kNumber, room.number) || !data.SetReal(kArea, room.area))
        return Acad::eInvalidInput;
    return data.SetXData(id);
}

Acad::ErrorStatus NoteOf(AcDbObjectId id, const CString& line)
{
    KxArxBase::CKxAcXRecord record(kApplication);
    CString notes;
    record.GetXData(id);   // none yet: the list is empty
    record.GetString(kNotes, notes);
    record.SetString(kNotes, notes + line + L"\n");
    return record.SetXData(id);
}

bool ReadRoom(AcDbObjectId id, Room& room)
{
    KxArxBase::CKxAcXData data(kApplication);
    return data.GetXData(id) == Acad::eOk && data.GetString(kName, room.name) && data.GetLong(kNumber, room.number) &&
           data.GetReal(kArea, room.area);
}

AcDbObjectIdArray RoomsOf(AcDbDatabase* db)
{
    AcDbObjectIdArray rooms;
    AcDbBlockTableRecordIterator* it = nullptr;
    KxArxBase::CKxAcDb tool(db, 0);
    if (tool.NewIterator(static_cast<const wchar_t*>(nullptr), it) != Acad::eOk)
        return rooms;
    Room room;
    AcDbObjectId id;
    for (; !it->done(); it->step())
        if (it->getEntityId(id) == Acad::eOk && ReadRoom(id, room))
            rooms.append(id);
    delete it;
    return rooms;
}

}   // namespace Hello
