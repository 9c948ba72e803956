#include "ArxModuleRegManage.h"
#include "KxMessages.h"

namespace KxArxBase {

namespace {

// By message code. Two messages share the text of a loaded drawing: they have none of their own.
const wchar_t* const g_traces[] = {
    L"\n*** AppMsg(%s) - AcRx::kNullMsg",         L"\n*** AppMsg(%s) - AcRx::kInitAppMsg",
    L"\n*** AppMsg(%s) - AcRx::kUnloadAppMsg",    L"\n*** AppMsg(%s) - AcRx::kLoadDwgMsg",
    L"\n*** AppMsg(%s) - AcRx::kUnloadDwgMsg",    L"\n*** AppMsg(%s) - AcRx::kInvkSubrMsg",
    L"\n*** AppMsg(%s) - AcRx::kCfgMsg",          L"\n*** AppMsg(%s) - AcRx::kLoadDwgMsg",
    L"\n*** AppMsg(%s) - AcRx::kQuitMsg",         L"\n*** AppMsg(%s) - AcRx::kSaveMsg",
    L"\n*** AppMsg(%s) - AcRx::kLoadDwgMsg",      L"\n*** AppMsg(%s) - AcRx::kNoDependencyMsg",
    L"\n*** AppMsg(%s) - AcRx::kOleUnloadAppMsg", L"\n*** AppMsg(%s) - AcRx::kPreQuitMsg",
    L"\n*** AppMsg(%s) - AcRx::kInitDialogMsg",   L"\n*** AppMsg(%s) - AcRx::kEndDialogMsg",
    L"\n*** AppMsg(%s) - AcRx::kSuspendMsg",
};
const unsigned kTraced = sizeof(g_traces) / sizeof(g_traces[0]);

AcRx::AppRetCode Answer(bool succeeded)
{
    return succeeded ? AcRx::kRetOK : AcRx::kRetError;
}

}   // namespace

CArxModuleRegManage::CArxModuleRegManage()
{
    CArxModuleRegManage::SetInstance(nullptr);
}

CArxModuleRegManage::CArxModuleRegManage(HINSTANCE h)
{
    CArxModuleRegManage::SetInstance(h);
}

CArxModuleRegManage::~CArxModuleRegManage() = default;

int CArxModuleRegManage::SetInstance(HINSTANCE h)
{
    const int result = CKxModule::SetInstance(h);
    if (result == 1) {
        m_groups.RemoveAll();
        m_appId = nullptr;
    }
    return result;
}

Acad::ErrorStatus CArxModuleRegManage::AcrxLoadDwgMsg()
{
    return Acad::eOk;
}

Acad::ErrorStatus CArxModuleRegManage::AcrxUnloadDwgMsg()
{
    return Acad::eOk;
}

AcRx::AppRetCode CArxModuleRegManage::AppAcrxEntryPoint(AcRx::AppMsgCode msg, void* appId)
{
    const unsigned code = unsigned(msg);
    if (code >= kTraced)
        return AcRx::kRetOK;
    if (msg == AcRx::kInvkSubrMsg)   // traced after its work, all others before
        DoDefun(-1, nullptr);
    const CString name = GetModuleName();
    DebugCmdMsg(g_traces[code], name.GetString());
    switch (msg) {
    case AcRx::kInitAppMsg:
        m_appId = appId;
        AppAcrxregisterMDIAware(TRUE);
        return Answer(InitModule() == 1);
    case AcRx::kUnloadAppMsg:
        return Answer(UnloadModule() == 1);
    case AcRx::kLoadDwgMsg:
        return Answer(AcrxLoadDwgMsg() == Acad::eOk);
    case AcRx::kUnloadDwgMsg:
        return Answer(AcrxUnloadDwgMsg() == Acad::eOk);
    default:
        return AcRx::kRetOK;
    }
}

bool CArxModuleRegManage::AppAcrxregisterMDIAware(int bMDIAware)
{
    if (m_appId == nullptr)
        return false;
    AcRxDynamicLinker* linker = AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER));
    if (linker == nullptr)
        return false;
    linker->unlockApplication(m_appId);
    return bMDIAware != 0 ? linker->registerAppMDIAware(m_appId) : linker->registerAppNotMDIAware(m_appId);
}

}   // namespace KxArxBase
