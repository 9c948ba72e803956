// Keeps a symbol table's index of names in step with a record whose name changes behind the table's back.
#pragma once
#include "../../mfc/CString.h"

class AcDbObject;

namespace KxPlat {

// The name of a symbol table record, empty for other objects.
CString RecordNameOf(const AcDbObject& object);
void RecordRenamed(const AcDbObject& record, const CString& oldName);

}   // namespace KxPlat
