#include "KxCadBaseModule.h"
#include "KxArxBase/Env.h"
#include "KxArxBase/GiHooks.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/KxMessages.h"
#include "KxCadBaseInputFilter.h"
#include "KxMfcEx/FileVersion.h"
#include <memory>

namespace KxArxModules {

namespace {

CKxCadBaseInputFilter g_inputFilter;

HINSTANCE LoadHostLibrary(const wchar_t* name)
{
    wchar_t path[MAX_PATH * 2] = {};
    return acedFindFile(name, path) == RTNORM ? LoadLibraryW(path) : nullptr;
}

void FreeHostLibrary(HINSTANCE& library)
{
    if (library != nullptr)
        FreeLibrary(library);
    library = nullptr;
}

// Ten times the product version of the program around this module; 0 when it cannot be read.
int HostProductVersion()
{
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    KxMfcEx::CFileVersion version;
    VS_FIXEDFILEINFO info = {};
    if (!version.Open(path) || !version.GetFixedInfo(info))
        return 0;
    return HIWORD(info.dwProductVersionMS) * 10 + LOWORD(info.dwProductVersionMS);
}

AcEdInputPointManager* InputPointsOfCurrentDocument()
{
    AcApDocument* document = acDocManager->curDocument();
    return document != nullptr ? document->inputPointManager() : nullptr;
}

}   // namespace

KxCadBaseModule::KxCadBaseModule() = default;

KxCadBaseModule::~KxCadBaseModule()
{
    FreeHostLibrary(m_buttonLibrary);
    FreeHostLibrary(m_resourceLibrary);
}

CString KxCadBaseModule::IniPath()
{
    CString path;
    path.Format(L"%sKxArxBase.INI", GetModulePath().GetString());
    return path;
}

int KxCadBaseModule::InitModule()
{
    RegisterCommands();
    m_buttonLibrary = LoadHostLibrary(L"acadbtn.xmx");
    m_resourceLibrary = LoadHostLibrary(L"acadres.dll");
    const int kReleaseWithSlowTips = 182;
    if (HostProductVersion() == kReleaseWithSlowTips)
        KxArxBase::Env::SetCadSysVar(L"ROLLOVERTIPS", 0);
    LoadUnLoadPro(IniPath(), 1);
    return 1;
}

int KxCadBaseModule::UnloadModule()
{
    RemoveCmd(nullptr);
    KxArxBase::Gi::HookMessage(nullptr, 1);
    FreeHostLibrary(m_buttonLibrary);
    FreeHostLibrary(m_resourceLibrary);
    LoadUnLoadPro(IniPath(), 0);
    return 1;
}

Acad::ErrorStatus KxCadBaseModule::AcrxLoadDwgMsg()
{
    tagDefun insertBlock;
    const wchar_t name[] = L"InsertBlockFromFile";
    std::copy(std::begin(name), std::end(name), insertBlock.name);
    insertBlock.function = FunInsertBlockFromFile;
    insertBlock.code = 0;
    Defun(&insertBlock, 1);
    AcEdInputPointManager* points = InputPointsOfCurrentDocument();
    return points != nullptr ? points->registerPointFilter(&g_inputFilter) : Acad::eNoDocument;
}

Acad::ErrorStatus KxCadBaseModule::AcrxUnloadDwgMsg()
{
    Undefine(nullptr, 0);
    AcEdInputPointManager* points = InputPointsOfCurrentDocument();
    if (points == nullptr || points->currentPointFilter() == nullptr)
        return Acad::eOk;
    return points->revokePointFilter();
}

int KxCadBaseModule::DoHook(void* hook, const MSG* msg)
{
    const WPARAM kEnd = 35, kHome = 36, kLeft = 37, kRight = 39, kLetterA = 65;
    const WPARAM key = msg->wParam;
    const bool isTracedKey =
        msg->message == WM_KEYDOWN && (key == kEnd || key == kHome || key == kLeft || key == kRight || key == kLetterA);
    if (msg->message != 0 && !isTracedKey && msg->message != WM_LBUTTONDBLCLK && msg->message != WM_MBUTTONDBLCLK)
        return 0;
    KxArxBase::MsgCmdInfo(L"\n ...HWND: %x Msg: %x WPARAM: %d LPARAM: %d ...",
                          unsigned(reinterpret_cast<uintptr_t>(msg->hwnd)), unsigned(msg->message), int(msg->wParam),
                          int(msg->lParam));
    return 1;
}

void KxCadBaseModule::CmdTestKxCadBase()
{
    KxArxBase::DebugCmdMsg(L"...[命令样例]  CmdTestKxCadBase...");
}

int KxCadBaseModule::FunInsertBlockFromFile(resbuf* args)
{
    const wchar_t* texts[3] = {};
    int count = 0;
    for (const resbuf* arg = args; arg != nullptr && count < 3; arg = arg->rbnext) {
        if (arg->restype != RTSTR)
            break;
        texts[count++] = arg->resval.rstring;
    }
    KxArxBase::CKxAcDb db;
    const bool inserted = count >= 2 && db.InsertBlockFromFile(texts[0], texts[1], texts[2]) == Acad::eOk;
    inserted ? acedRetT() : acedRetNil();
    return RTNORM;
}

}   // namespace KxArxModules
