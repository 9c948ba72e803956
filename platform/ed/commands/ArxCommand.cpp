// ARX: modules and what they registered.
#include "../../rx/AcRxDynamicLinker.h"
#include "../Modules.h"
#include "../Prompt.h"
#include "../Session.h"
#include "../SupportFiles.h"
#include "../TrustedFiles.h"
#include "HostCommands.h"
#include "Questions.h"

namespace KxPlat {

namespace {

void ListModules()
{
    const std::vector<std::wstring> paths = LoadedModules();
    for (const std::wstring& path : paths)
        Ui().Print(L"\n" + path);
    if (paths.empty())
        Ui().Print(L"\nNo modules are loaded.");
}

void Load()
{
    const std::optional<std::wstring> file =
        AskFile(L"\nEnter ARX file to load", L"Select ARX File", L"", L"arx", false);
    std::wstring why;
    const std::wstring path = file ? FindModuleFile(*file) : L"";
    if (!path.empty() && !MayLoad(path, why))
        return FailCommand(*file + L" cannot be loaded: " + (why.empty() ? L"the user refused it" : why) + L".");
    if (file && !acrxDynamicLinker->loadModule(file->c_str(), true, true))
        FailCommand(*file + L" cannot be loaded: " + LastModuleFault() + L".");
}

void Unload()
{
    const std::optional<std::wstring> file = AskLine(L"\nEnter ARX file to unload: ");
    if (!file || file->empty())
        return;
    if (acrxDynamicLinker->unloadModule(file->c_str(), true))
        Ui().Print(L"\n" + *file + L" successfully unloaded.");
    else
        FailCommand(*file + L" cannot be unloaded: " + LastModuleFault() + L".");
}

}   // namespace

void NetloadCommand()
{
    const std::optional<std::wstring> file =
        AskFile(L"\nEnter assembly file name", L"Choose .NET Assembly", L"", L"dll", false);
    if (file)
        FailCommand(*file + L" cannot be loaded: this host runs no .NET assemblies.");
}

void ArxCommand()
{
    acedInitGet(0, L"? Load Unload Commands");
    ACHAR answer[512] = L"";
    if (acedGetKword(L"\nEnter an option [?/Load/Unload/Commands]: ", answer) != RTNORM)
        return;
    switch (answer[0]) {
    case L'?':
        return ListModules();
    case L'L':
        return Load();
    case L'U':
        return Unload();
    default:
        return HelpCommand();
    }
}

}   // namespace KxPlat
