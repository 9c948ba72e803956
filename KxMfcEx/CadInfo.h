// What the registry's names of an installed CAD program say. A release is a number, ten times the program's internal
// one: R17.1 is 171.
#pragma once
#include "KxExport.h"

namespace KxMfcEx {

// The last two digits of a product code.
enum CadFlavour { kCivil3D = 0, kPlainCad = 1 };

// Parses a product key name such as "ACAD-6001:804" (release 171, flavour 1, language 2052). 1, or 0 for a text
// without ":" or "ACAD-". Any answer may be null; without a code before the colon only the language is set, and what
// is no hexadecimal number leaves its answer alone.
KXARX_API int GetCADInfo(const wchar_t* key, int* release, int* flavour, int* language);

// 1 when `path` names the product key of plain AutoCAD (Civil 3D), and an "Acad.exe" lies in one of the folders of
// `data`, which ";" parts, or above it. Both fit Reg_GetFirstSuiteNameValueData.
KXARX_API int FilterCAD(const wchar_t* path, const wchar_t* data);
KXARX_API int FilterCivil3D(const wchar_t* path, const wchar_t* data);

// The first file of that name in one of the folders, or above it; empty when there is none.
KXARX_API CString FindInOrAbove(const wchar_t* folders, const wchar_t* file);

// "R17.1" and 171
KXARX_API CString ReleaseKeyName(int release);
KXARX_API int ReleaseOfKeyName(const wchar_t* name);

}   // namespace KxMfcEx
