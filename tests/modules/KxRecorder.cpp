// A module of the host that writes down each message it gets, and refuses what the test wants it to refuse.
#include "ap/AcApDocManager.h"
#include "ed/acedads.h"
#include "ed/AcEdCommandStack.h"
#include "ProbeLog.h"
#include "rx/AcRxDictionary.h"
#include "rx/AcRxDynamicLinker.h"
#include <cstring>

namespace {

void* g_appId = nullptr;

bool Wants(const char* what)
{
    const char* wanted = std::getenv("KX_PROBE_WANTS");
    return wanted != nullptr && std::strstr(wanted, what) != nullptr;
}

void Recorded()
{
    acutPrintf(L"\nrecorded");
}

void UnloadsItself()
{
    acutPrintf(L"\n%d", acedArxUnload(L"KxRecorder.arx"));
}

AcRx::AppRetCode Init(void* appId)
{
    g_appId = appId;
    if (!Wants("lock"))
        acrxDynamicLinker->unlockApplication(appId);
    acrxDynamicLinker->registerAppMDIAware(appId);
    acedRegCmds->addCommand(L"RECORDER", L"RECORD", L"RECORD", ACRX_CMD_MODAL, Recorded);
    acedRegCmds->addCommand(L"RECORDER", L"SUICIDE", L"SUICIDE", ACRX_CMD_MODAL, UnloadsItself);
    return Wants("refuse-init") ? AcRx::kRetError : AcRx::kRetOK;
}

const char* DocumentTitle()
{
    const AcApDocument* document = acDocManager->curDocument();
    static char title[64];
    std::snprintf(title, sizeof title, "%ls", document != nullptr ? document->docTitle() : L"none");
    return title;
}

}   // namespace

extern "C" KX_DLLEXPORT int acrxGetApiVersion()
{
    return 18;
}

extern "C" KX_DLLEXPORT AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* appId)
{
    switch (message) {
    case AcRx::kInitAppMsg:
        Log("init");
        return Init(appId);
    case AcRx::kUnloadAppMsg:
        Log("unload");
        return Wants("refuse-unload") ? AcRx::kRetError : AcRx::kRetOK;
    case AcRx::kLoadDwgMsg:
        Log((std::string("load ") + DocumentTitle()).c_str());
        return AcRx::kRetOK;
    case AcRx::kUnloadDwgMsg:
        Log((std::string("leave ") + DocumentTitle()).c_str());
        return AcRx::kRetOK;
    case AcRx::kPreQuitMsg:
        Log("prequit");
        return AcRx::kRetOK;
    case AcRx::kQuitMsg:
        Log("quit");
        return AcRx::kRetOK;
    case AcRx::kSaveMsg:
        Log("save");
        return AcRx::kRetOK;
    default:
        return AcRx::kRetOK;
    }
}
