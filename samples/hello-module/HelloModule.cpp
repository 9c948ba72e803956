// The library's entry, the host's entry point, and the one module object behind both.
#include "HelloModule.h"
#include <algorithm>
#include <cwchar>
#include <iterator>

namespace Hello {

namespace {

HelloModule g_module;

HelloModule::tagDefun Function(const wchar_t* name, int (*function)(resbuf*), int code)
{
    HelloModule::tagDefun made;
    std::copy_n(name, std::min(std::wcslen(name), std::size(made.name) - 1), made.name);
    made.function = function;
    made.code = code;
    return made;
}

}   // namespace

HINSTANCE Resources()
{
    return g_module.GetInstance();
}

// Called when the host starts the module: everything that is registered here is in the module's book.
int HelloModule::InitModule()
{
    static tagAutoCadCmd commands[] = {
        {L"HelloRoom", L"FJHZ", ACRX_CMD_MODAL, &HelloModule::CmdHelloRoom},
        {L"HelloTag", L"FJBZ", ACRX_CMD_MODAL, &HelloModule::CmdHelloTag},
        {L"HelloList", L"FJLB", ACRX_CMD_MODAL, &HelloModule::CmdHelloList},
        {L"HelloView", L"FJCK", ACRX_CMD_MODAL, &HelloModule::CmdHelloView},
    };
    RegCmd(commands, int(std::size(commands)), nullptr);
    KxArxBase::MsgCmdInfo(L"\nHello: %d commands.\n", int(std::size(commands)));
    return 1;
}

Acad::ErrorStatus HelloModule::AcrxLoadDwgMsg()
{
    static tagDefun functions[] = {Function(L"hello-rooms", &HelloModule::FunHelloRooms, 1)};
    return Defun(functions, int(std::size(functions)));
}

Acad::ErrorStatus HelloModule::AcrxUnloadDwgMsg()
{
    return Undefine(nullptr, 0);
}

// Unloading takes back what is in the book: commands here, LISP functions with each drawing.
int HelloModule::UnloadModule()
{
    RemoveCmd(nullptr);
    return 1;
}

}   // namespace Hello

extern "C" KXARX_API int DllMain(HINSTANCE instance, DWORD reason, void*)
{
    if (reason == DLL_PROCESS_ATTACH)
        Hello::g_module.SetInstance(instance);
    return TRUE;
}

extern "C" KXARX_API AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* appId)
{
    return Hello::g_module.AppAcrxEntryPoint(message, appId);
}
