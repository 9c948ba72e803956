// Questions to the user in one call each, selections without a question, and the documents of the session.
// RTNORM for an answer, RTNONE for Enter where it is allowed, RTKWORD for one of the keywords (a list parted by
// blanks), RTCAN for Esc. `bits` are those of acedInitGet.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase::Gi {

KXARX_API int PickPoint(const wchar_t* prompt, AcGePoint3d& point, const AcGePoint3d* base = nullptr, int bits = 0,
                        const wchar_t* keywords = nullptr, CString* keyword = nullptr);
KXARX_API int PickDistance(const wchar_t* prompt, double& distance, const AcGePoint3d* base = nullptr, int bits = 0,
                           const wchar_t* keywords = nullptr, CString* keyword = nullptr);
KXARX_API int PickAngle(const wchar_t* prompt, double& radians, const AcGePoint3d* base = nullptr, int bits = 0,
                        const wchar_t* keywords = nullptr, CString* keyword = nullptr);
// One object, of a class where one is named (RTERROR for any other), and where it was picked.
KXARX_API int PickOneEntity(const wchar_t* prompt, AcDbObjectId& id, AcGePoint3d& point, AcRxClass* cls = nullptr);
KXARX_API int AskInt(const wchar_t* prompt, int& value, int bits = 0);
KXARX_API int AskReal(const wchar_t* prompt, double& value, int bits = 0);
KXARX_API int AskString(const wchar_t* prompt, CString& text, int allowBlanks = 1);
KXARX_API int AskKeyword(const wchar_t* prompt, const wchar_t* keywords, CString& keyword, int bits = 0);

// Everything that a filter takes (null: all objects of the drawing that can be selected). eNoObject for none.
KXARX_API Acad::ErrorStatus SelectAll(AcDbObjectIdArray& ids, const resbuf* filter = nullptr);
// Leaves these objects selected for the next command; an empty list selects none.
KXARX_API Acad::ErrorStatus SetPickSet(const AcDbObjectIdArray& ids);

// In the order of the session.
KXARX_API void GetDocuments(AcArray<AcApDocument*>& documents);
KXARX_API AcApDocument* CurrentDocument();

}   // namespace KxArxBase::Gi
