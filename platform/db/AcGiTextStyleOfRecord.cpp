// Text styles as drawing wants them, from the records of the database.
#include "../gi/AcGiTextStyle.h"
#include "../rx/acutads.h"
#include "AcDbDatabase.h"
#include "AcDbHostApplicationServices.h"
#include "AcDbTextStyleTableRecord.h"
#include "core/DbCore.h"

using namespace KxPlat;

namespace {

// Takes over a string that the record made.
CString Taken(ACHAR*& text)
{
    CString copy(text);
    acutDelString(text);
    return copy;
}

}   // namespace

Acad::ErrorStatus fromAcDbTextStyle(AcGiTextStyle& style, const AcDbObjectId& id)
{
    AcDbTextStyleTableRecord* record = nullptr;
    const Acad::ErrorStatus status = acdbOpenObject(record, id, AcDb::kForRead);
    if (status != Acad::eOk)
        return status;
    ACHAR* text = nullptr;
    if (record->fileName(text) == Acad::eOk)
        style.setFileName(Taken(text));
    if (record->bigFontFileName(text) == Acad::eOk)
        style.setBigFontFileName(Taken(text));
    bool bold = false, italic = false;
    int charset = 0, pitchAndFamily = 0;
    if (record->font(text, bold, italic, charset, pitchAndFamily) == Acad::eOk) {
        style.setFont(text, bold, italic, charset, pitchAndFamily);
        acutDelString(text);
    }
    style.setStyleName(record->nameText());
    // A style without a height of its own takes the one used last.
    style.setTextSize(record->textSize() > 0 ? record->textSize() : record->priorSize());
    style.setXScale(record->xScale());
    style.setObliquingAngle(record->obliquingAngle());
    style.setVertical(record->isVertical());
    style.setBackward((record->flagBits() & 2) != 0);
    style.setUpsideDown((record->flagBits() & 4) != 0);
    record->close();
    return Acad::eOk;
}

Acad::ErrorStatus fromAcDbTextStyle(AcGiTextStyle& style, const ACHAR* name)
{
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    if (database == nullptr)
        return Acad::eNoDatabase;
    AcDbObjectId id;
    const Acad::ErrorStatus status = CoreOf(*database).Table(TableKind::TextStyle)->getAt(name, id);
    return status == Acad::eOk ? fromAcDbTextStyle(style, id) : status;
}
