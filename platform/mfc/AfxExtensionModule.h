// Extension modules and where resources come from. A resource is looked for in the current resource module, then in the
// extension modules from the one attached last to the first.
#pragma once
#include "CObject.h"

struct AFX_EXTENSION_MODULE {
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
};

// FALSE when there is no module. A second call for the same record changes nothing.
BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module);
// Deletes the CDynLinkLibrary objects of the module; the record may be initialised again.
void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = FALSE);

// One link of the chain. Made with new and never deleted by its maker.
class CDynLinkLibrary : public CObject {
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system = FALSE);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
    HMODULE m_hResource;
    CDynLinkLibrary* m_pNextDLL = nullptr;   // the one attached before
    BOOL m_bSystem;
};

HINSTANCE AfxGetInstanceHandle();   // the program
HINSTANCE AfxGetResourceHandle();   // the program unless set
void AfxSetResourceHandle(HINSTANCE module);
// The first module that has the resource; the current resource module when none has.
HINSTANCE AfxFindResourceHandle(const wchar_t* name, const wchar_t* type);

// clang-format off
#define RT_CURSOR MAKEINTRESOURCE(1)
#define RT_BITMAP MAKEINTRESOURCE(2)
#define RT_ICON MAKEINTRESOURCE(3)
#define RT_MENU MAKEINTRESOURCE(4)
#define RT_DIALOG MAKEINTRESOURCE(5)
#define RT_STRING MAKEINTRESOURCE(6)
#define RT_ACCELERATOR MAKEINTRESOURCE(9)
#define RT_RCDATA MAKEINTRESOURCE(10)
#define RT_VERSION MAKEINTRESOURCE(16)
// clang-format on
