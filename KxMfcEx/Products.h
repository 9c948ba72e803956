// The installed products: the CAD program as its own registry keys tell, and the family's products.
// docs/registry-layout.md shows the keys.
#pragma once
#include "KxExport.h"

namespace KxMfcEx {

enum KxProductType {
    kProductBase = 1,       // the base platform, KxArxBase.arx
    kProductHost = 2,       // kxcad
    kProductLauncher = 3,   // kxlaunch
    kProductAutoCad = 11,
    kProductCivil3D = 12
};

// Appends the releases of a product that are installed, in the order of the registry; answers how many. A release is
// installed when its program is there.
KXARX_API int GetProductInstallVers(int productType, CArray<int, int>& releases);

// The program's file of a product: 1; -1 for an unknown product, -2 when that release is not installed.
KXARX_API int GetProductExePath(int productType, int release, CString& path);

// Sets the default value of a key of the user's. 1; 0 when either text is empty or the key cannot be opened.
KXARX_API int WriteProfileValue(const wchar_t* path, const wchar_t* value);

// What the launchers write back once the program they started has read its profile; empty until SetPendingProfile.
struct PendingProfile {
    CString path;
    CString value;
};
KXARX_API const PendingProfile& GetPendingProfile();
KXARX_API void SetPendingProfile(const wchar_t* path, const wchar_t* value);
// Makes the current profile of a release the pending one, since starting with another profile changes it. 1 or 0.
KXARX_API int RememberCurrentProfile(int release);

// Profiles of the first plain AutoCAD of a release; empty, 0 or nothing appended where there is none.
KXARX_API CString GetCurrentProfile(int release);
KXARX_API int GetProfileNames(int release, CStringArray& names);
// A text of a profile, by section ("General", "Variables") and name. 1 or 0.
KXARX_API int GetProfileText(int release, const wchar_t* profile, const wchar_t* section, const wchar_t* name,
                             CString& text);
KXARX_API int SetProfileText(int release, const wchar_t* profile, const wchar_t* section, const wchar_t* name,
                             const wchar_t* text);

// The folders from which a release loads modules without asking, of its current profile.
KXARX_API int GetTrustedPaths(int release, CStringArray& folders);
// 1 when the folder is among them afterwards, with "\..." when its sub-folders are meant, too.
KXARX_API int AddTrustedPath(int release, const wchar_t* folder, int withSubFolders);

}   // namespace KxMfcEx
