// A text on a drawing object, which the host shows when the cursor rests there. It is kept in the object's extended
// data under "KxToolTip" and so is saved with the drawing.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase::Gi {

// Objects that cannot be opened for write are passed over; the status of the last failure. An empty text removes it.
KXARX_API Acad::ErrorStatus AddToolTipDataToObject(const AcDbObjectIdArray& ids, const wchar_t* text);
KXARX_API Acad::ErrorStatus RemoveToolTipData(const AcDbObjectIdArray& ids);
// eKeyNotFound, and `text` untouched, for an object without one.
KXARX_API Acad::ErrorStatus GetToolTipData(AcDbObjectId id, CString& text);

}   // namespace KxArxBase::Gi
