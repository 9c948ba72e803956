// The host's environment: system variables, its release, its search path, and the version of a drawing file.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase::Env {

// Acad::eOk, or eInvalidInput when the host refuses. Reading succeeds only for a variable of exactly the type of the
// output, which is untouched otherwise.
KXARX_API Acad::ErrorStatus SetCadSysVar(const wchar_t* name, int value);
KXARX_API Acad::ErrorStatus SetCadSysVar(const wchar_t* name, double value);
KXARX_API Acad::ErrorStatus SetCadSysVar(const wchar_t* name, const wchar_t* value);
KXARX_API Acad::ErrorStatus SetCadSysVar(const wchar_t* name, AcGePoint3d value);
KXARX_API Acad::ErrorStatus SetCadSysVar(const wchar_t* name, AcGePoint2d value);
KXARX_API Acad::ErrorStatus GetCadSysVar(const wchar_t* name, int& value);
KXARX_API Acad::ErrorStatus GetCadSysVar(const wchar_t* name, double& value);
KXARX_API Acad::ErrorStatus GetCadSysVar(const wchar_t* name, CString& value);
KXARX_API Acad::ErrorStatus GetCadSysVar(const wchar_t* name, AcGePoint3d& value);
KXARX_API Acad::ErrorStatus GetCadSysVar(const wchar_t* name, AcGePoint2d& value);

// Ten times the host's release: 182 for 18.2; 0 on failure.
KXARX_API Acad::ErrorStatus GetCurACADVer(int& version);
// Adds a folder to the host's search path, or removes it. Adding stores the whole path in lower case.
KXARX_API Acad::ErrorStatus SetCurProfileSupportPath(const wchar_t* path, int add);
// From the first bytes of a DWG file: -1 when it is none, 0 for a version not known here.
KXARX_API AcApDocument::SaveFormat GetSaveFormatVersion(CString file);

}   // namespace KxArxBase::Env
