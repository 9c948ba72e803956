// Typed values in an object's extended data, found again by a number of the caller's choice.
// The list lives in memory: GetXData reads it from an object, SetXData writes it back whole.
// Extended data is for small values: hosts allow 16 KB of it on one object. What may grow larger belongs in a
// CKxAcXRecord.
#pragma once
#include "KxAcXDataList.h"

namespace KxArxBase {

class KXARX_API CKxAcXData : public CKxAcXDataList {
public:
    using CKxAcXDataList::CKxAcXDataList;

    // 51 when the object has no data of this application; the list then holds the name alone.
    Acad::ErrorStatus GetXData(AcDbObjectId id);
    // Registers the application's name where it is not known yet.
    Acad::ErrorStatus SetXData(AcDbObjectId id);
    // Takes the application's data off the object, and empties the list. With a name, that of this application, which
    // the list is for from then on.
    Acad::ErrorStatus DeleteXData(AcDbObjectId id, const wchar_t* appName);
};

}   // namespace KxArxBase
