// The library's entry, the host's entry point, and the one module object behind both.
#include "KxCadBaseModule.h"

namespace KxArxModules {

namespace {

KxCadBaseModule g_module;
AFX_EXTENSION_MODULE g_extension = {};
HINSTANCE g_resources = nullptr;

void AttachToMfc(HINSTANCE instance)
{
    if (g_extension.bInitialized || !AfxInitExtensionModule(g_extension, instance))
        return;
    g_resources = g_extension.hResource;
    new CDynLinkLibrary(g_extension);   // MFC owns it from here on
}

void DetachFromMfc()
{
    if (!g_extension.bInitialized)
        return;
    AfxTermExtensionModule(g_extension);
    g_extension.bInitialized = FALSE;
}

}   // namespace

KxCadBaseModule& BaseModule()
{
    return g_module;
}

HINSTANCE ModuleResources()
{
    return g_resources;
}

}   // namespace KxArxModules

extern "C" KXARX_API int DllMain(HINSTANCE instance, DWORD reason, void* reserved)
{
    if (reason == DLL_PROCESS_ATTACH) {
        KxArxModules::g_module.SetInstance(instance);
        KxArxModules::AttachToMfc(instance);
        InitAcUiDLL();
    } else if (reason == DLL_PROCESS_DETACH) {
        KxArxModules::DetachFromMfc();
    }
    return TRUE;
}

extern "C" KXARX_API AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* appId)
{
    return KxArxModules::g_module.AppAcrxEntryPoint(msg, appId);
}
