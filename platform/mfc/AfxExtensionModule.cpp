#include "AfxExtensionModule.h"
#include "../win/Modules.h"
#include "ResourceTable.h"

namespace {

// The one table of attached modules.
struct ModuleChain {
    CDynLinkLibrary* first = nullptr;
    HINSTANCE resources = nullptr;
};

ModuleChain& Chain()
{
    static ModuleChain chain;
    return chain;
}

}   // namespace

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module)
{
    if (state.bInitialized)
        return TRUE;
    if (module == nullptr)
        return FALSE;
    state = {TRUE, module, module};
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL)
{
    if (!state.bInitialized)
        return;
    for (CDynLinkLibrary* library = Chain().first; library != nullptr;) {
        CDynLinkLibrary* next = library->m_pNextDLL;
        if (library->m_hModule == state.hModule)
            delete library;
        library = next;
    }
    if (Chain().resources == state.hResource)
        Chain().resources = nullptr;
    state.bInitialized = FALSE;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_pNextDLL(Chain().first), m_bSystem(system)
{
    Chain().first = this;
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    CDynLinkLibrary** link = &Chain().first;
    while (*link != nullptr && *link != this)
        link = &(*link)->m_pNextDLL;
    if (*link == this)
        *link = m_pNextDLL;
}

HINSTANCE AfxGetInstanceHandle()
{
    return GetModuleHandleW(nullptr);
}

HINSTANCE AfxGetResourceHandle()
{
    return Chain().resources != nullptr ? Chain().resources : AfxGetInstanceHandle();
}

void AfxSetResourceHandle(HINSTANCE module)
{
    Chain().resources = module;
}

HINSTANCE AfxFindResourceHandle(const wchar_t* name, const wchar_t* type)
{
    const HINSTANCE current = AfxGetResourceHandle();
    if (KxPlat::FindResourceBytes(current, name, type).data() != nullptr)
        return current;
    for (const CDynLinkLibrary* library = Chain().first; library != nullptr; library = library->m_pNextDLL) {
        if (KxPlat::FindResourceBytes(library->m_hResource, name, type).data() != nullptr)
            return library->m_hResource;
    }
    return current;
}
