// The values of a CKxAcXData for what is too large or lives too long for extended data: they are kept in a record of
// the object's extension dictionary. The record's key is "XRecord" whatever the application's name, so an object has
// at most one, and another application's values replace it.
#pragma once
#include "KxAcXDataList.h"

namespace KxArxBase {

class KXARX_API CKxAcXRecord : public CKxAcXDataList {
public:
    using CKxAcXDataList::CKxAcXDataList;

    // 128 without an extension dictionary, 22 (eKeyNotFound) without a record in it, 51 for an empty record.
    Acad::ErrorStatus GetXData(AcDbObjectId id);
    // Makes the extension dictionary where there is none; 337 when that fails, and the object then stays open.
    Acad::ErrorStatus SetXData(AcDbObjectId id);
    // Leaves a record that holds the application's name alone. With a name, the list is for it from then on.
    Acad::ErrorStatus DeleteXData(AcDbObjectId id, const wchar_t* appName);
    // Takes the record out of the dictionary; the values stay in the list, but that of index 101. The record itself
    // stays in the drawing without an owner.
    Acad::ErrorStatus RemoveXRecord(AcDbObjectId id);

private:
    Acad::ErrorStatus AdoptRecord(const AcDbXrecord& record);
};

}   // namespace KxArxBase
