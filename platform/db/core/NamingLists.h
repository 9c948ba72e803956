// Groups that name an application (1001) or a layer (1003) by its text, without a handle.
#pragma once
#include "../AcDbXrecord.h"
#include "ObjectAccess.h"

namespace KxPlat {

// Calls with the extended data of an object, and with the values of a record.
template <class Visit>
void ForEachNamingList(AcDbObject& object, Visit&& visit)
{
    if (object.hasXData())
        visit(ObjectAccess::Make(object).xData);
    if (AcDbXrecord* record = AcDbXrecord::cast(&object))
        visit(record->groups());
}

}   // namespace KxPlat
