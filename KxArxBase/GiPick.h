// Objects picked by the user, and the host's selection sets as lists of ids.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase::Gi {

// Asks with `prompt` for objects until Enter; `count` 1 asks for a single one, -1 for any number. With a class, other
// objects are left out of `ids`. With `usePickSet` the objects selected before the command are taken without asking.
// RTNORM when something was picked, RTNONE for Enter without a pick, else the host's code (RTCAN, RTERROR).
KXARX_API int PickEntity(const wchar_t* prompt, AcDbObjectIdArray& ids, int count = -1, AcRxClass* cls = nullptr,
                         int usePickSet = 1);

KXARX_API Acad::ErrorStatus GetObjectIdsWithAdsName(const ads_name set, AcDbObjectIdArray& ids);
// The caller frees the set with acedSSFree. eNoObject, and no set, for an empty list.
KXARX_API Acad::ErrorStatus GetAdsNameWithObjectIds(const AcDbObjectIdArray& ids, ads_name set);

// The open document of a drawing file, found without regard to case; null when none is open.
KXARX_API AcApDocument* GetAcApDocument(const wchar_t* path);

}   // namespace KxArxBase::Gi
