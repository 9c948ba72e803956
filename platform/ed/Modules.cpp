#include "Modules.h"
#include "../ap/Documents.h"
#include "../mfc/Escaped.h"
#include "../win/CharTables.h"
#include "../win/CodePage.h"
#include "../win/Files.h"
#include "../win/Format.h"
#include "../win/Modules.h"
#include "../win/WinError.h"
#include "acedads.h"
#include "CommandLine.h"
#include "Session.h"
#include "SupportFiles.h"
#include <algorithm>

namespace KxPlat {

namespace {

constexpr int kApiVersion = 18;   // of the interface that modules are built for

struct Module {
    std::wstring path;
    HMODULE library = nullptr;
    AcRxAppEntryPoint entry = nullptr;
    bool isLocked = true;
    bool isMdiAware = false;
};

std::wstring NameOf(const std::wstring& path)
{
    return path.substr(path.find_last_of(L"\\/:") + 1);
}

template <class Function>
Function Exported(HMODULE library, const char* name)
{
    return reinterpret_cast<Function>(GetProcAddress(library, name));
}

struct ErrorRow {
    DWORD error;
    const wchar_t* reason;
};

const ErrorRow g_errors[] = {{126, L"no such file"},
                             {193, L"it is no module"},
                             {127, L"something that it needs is missing"},
                             {1114, L"its start-up refused to load"}};

std::wstring LoadFault()
{
    const DWORD error = GetLastError();
    for (const ErrorRow& row : g_errors) {
        if (row.error == error)
            return row.reason;
    }
    return Format(L"error %u", error);
}

class Linker : public AcRxDynamicLinker {
public:
    bool loadModule(const ACHAR* fileName, bool printit, bool asCmd) override;
    bool unloadModule(const ACHAR* fileName, bool asCmd) override;
    bool unlockApplication(void* appId) const override { return Set(appId, &Module::isLocked, false); }
    bool lockApplication(void* appId) const override { return Set(appId, &Module::isLocked, true); }
    bool isApplicationLocked(const ACHAR* modulePath) const override { return Is(modulePath, &Module::isLocked); }
    bool registerAppMDIAware(void* appId) const override { return Set(appId, &Module::isMdiAware, true); }
    bool registerAppNotMDIAware(void* appId) const override { return Set(appId, &Module::isMdiAware, false); }
    bool isAppMDIAware(const ACHAR* modulePath) const override { return Is(modulePath, &Module::isMdiAware); }
    void* getSymbolAddress(void* appId, const ACHAR* symbol) const override;
    void addReactor(AcRxDLinkerReactor* reactor) override { m_reactors.push_back(reactor); }
    void removeReactor(AcRxDLinkerReactor* reactor) override { std::erase(m_reactors, reactor); }

    Module* Of(const void* appId) const;
    AcRx::AppRetCode Send(Module& module, AcRx::AppMsgCode message, AcApDocument* document);
    void SendAll(AcRx::AppMsgCode message, AcApDocument* document);
    void UnloadAll();
    std::vector<std::wstring> Paths() const;
    std::wstring fault;

private:
    Module* Named(const std::wstring& fileName) const;
    bool Is(const ACHAR* path, bool Module::*flag) const;
    bool Set(void* appId, bool Module::*flag, bool value) const;
    std::unique_ptr<Module> Opened(const std::wstring& path);
    bool Start(Module& module);
    void Drop(Module& module);
    template <class Work>
    void Tell(Work&& work)
    {
        const std::vector<AcRxDLinkerReactor*> told = m_reactors;
        for (AcRxDLinkerReactor* reactor : told)
            work(*reactor);
    }

    std::vector<std::unique_ptr<Module>> m_modules;   // in the order of loading
    std::vector<AcRxDLinkerReactor*> m_reactors;
};

Linker* TheLinker()
{
    return dynamic_cast<Linker*>(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER));
}

Module* Linker::Of(const void* appId) const
{
    for (const auto& module : m_modules) {
        if (module.get() == appId)
            return module.get();
    }
    return nullptr;
}

// By the whole path, or by the file's name with or without its extension.
Module* Linker::Named(const std::wstring& fileName) const
{
    const std::wstring full = FullDrivePath(fileName);
    for (const auto& module : m_modules) {
        const std::wstring name = NameOf(module->path);
        if (EqualNoCase(module->path, full) || EqualNoCase(name, fileName) || EqualNoCase(name, fileName + L".arx"))
            return module.get();
    }
    return nullptr;
}

bool Linker::Is(const ACHAR* path, bool Module::*flag) const
{
    const Module* module = path != nullptr ? Named(path) : nullptr;
    return module != nullptr && module->*flag;
}

bool Linker::Set(void* appId, bool Module::*flag, bool value) const
{
    Module* module = Of(appId);
    if (module != nullptr)
        module->*flag = value;
    return module != nullptr;
}

void* Linker::getSymbolAddress(void* appId, const ACHAR* symbol) const
{
    const Module* module = Of(appId);
    if (module == nullptr || symbol == nullptr)
        return nullptr;
    return reinterpret_cast<void*>(GetProcAddress(module->library, ToUtf8(symbol).c_str()));
}

// The entry point runs in its document, and what it registers is the module's.
AcRx::AppRetCode Linker::Send(Module& module, AcRx::AppMsgCode message, AcApDocument* document)
{
    EditorState* editor = TheEditor();
    AcApDocument* before = acDocManager->curDocument();
    void* outer = std::exchange(editor->module, &module);
    if (document != nullptr)
        MakeCurrent(document);
    AcRx::AppRetCode answer = AcRx::kRetError;
    try {
        answer = module.entry(message, &module);
    } catch (...) {
        Ui().Complain(NameOf(module.path) + L": " + EscapedException());
    }
    if (document != nullptr)
        MakeCurrent(before);
    editor->module = outer;
    return answer;
}

void Linker::SendAll(AcRx::AppMsgCode message, AcApDocument* document)
{
    for (size_t i = 0; i < m_modules.size(); ++i)
        Send(*m_modules[i], message, document);
}

std::unique_ptr<Module> Linker::Opened(const std::wstring& path)
{
    auto module = std::make_unique<Module>();
    module->path = path;
    module->library = LoadLibraryW(path.c_str());
    if (module->library == nullptr) {
        fault = LoadFault();
        return nullptr;
    }
    const auto version = Exported<int (*)()>(module->library, "acrxGetApiVersion");
    module->entry = Exported<AcRxAppEntryPoint>(module->library, "acrxEntryPoint");
    if (version == nullptr || module->entry == nullptr)
        fault = L"it is no module of this host";
    else if (version() != kApiVersion)
        fault = Format(L"it was built for version %d of the host, this is version %d", version(), kApiVersion);
    if (fault.empty())
        return module;
    FreeLibrary(module->library);
    return nullptr;
}

bool Linker::Start(Module& module)
{
    if (Send(module, AcRx::kInitAppMsg, nullptr) == AcRx::kRetError)
        return false;
    const std::vector<AcApDocument*> documents = OpenDocuments();
    for (AcApDocument* document : documents)
        Send(module, AcRx::kLoadDwgMsg, document);
    return true;
}

// Whatever the module forgot to take back would call into nothing.
void Linker::Drop(Module& module)
{
    RemoveCommandsOf(&module);
    if (LispHook* lisp = TheLispHook())
        lisp->ModuleUnloaded(&module);
    FreeLibrary(module.library);
    std::erase_if(m_modules, [&](const auto& held) { return held.get() == &module; });
}

bool Linker::loadModule(const ACHAR* fileName, bool printit, bool)
{
    fault.clear();
    const std::wstring path = fileName != nullptr ? FindModuleFile(fileName) : L"";
    if (path.empty()) {
        fault = L"no such file";
        return false;
    }
    if (Named(path) != nullptr)
        return true;
    Tell([&](AcRxDLinkerReactor& reactor) { reactor.rxAppWillBeLoaded(path.c_str()); });
    std::unique_ptr<Module> opened = Opened(path);
    bool isLoaded = opened != nullptr;
    if (isLoaded) {
        m_modules.push_back(std::move(opened));
        Module& module = *m_modules.back();
        isLoaded = Start(module);
        if (!isLoaded) {
            fault = L"its start-up failed";
            Drop(module);
        }
    }
    Tell([&](AcRxDLinkerReactor& reactor) {
        isLoaded ? reactor.rxAppLoaded(path.c_str()) : reactor.rxAppLoadAborted(path.c_str());
    });
    if (isLoaded && printit)
        Ui().Print(L"\n" + NameOf(path) + L" successfully loaded.");
    return isLoaded;
}

bool Linker::unloadModule(const ACHAR* fileName, bool)
{
    fault.clear();
    Module* module = fileName != nullptr ? Named(fileName) : nullptr;
    if (module == nullptr)
        fault = L"it is not loaded";
    else if (module->isLocked)
        fault = L"it is locked";
    else if (TheEditor()->module == module ||
             std::any_of(TheEditor()->running.begin(), TheEditor()->running.end(),
                         [&](const RunningCommand& command) { return command.module == module; }))
        fault = L"one of its commands runs";
    if (!fault.empty())
        return false;
    const std::wstring path = module->path;
    Tell([&](AcRxDLinkerReactor& reactor) { reactor.rxAppWillBeUnloaded(path.c_str()); });
    const std::vector<AcApDocument*> documents = OpenDocuments();
    for (AcApDocument* document : documents)
        Send(*module, AcRx::kUnloadDwgMsg, document);
    const bool isUnloaded = Send(*module, AcRx::kUnloadAppMsg, nullptr) != AcRx::kRetError;
    if (isUnloaded) {
        Drop(*module);
    } else {
        fault = L"it refused to go";
        for (AcApDocument* document : documents)
            Send(*module, AcRx::kLoadDwgMsg, document);
    }
    Tell([&](AcRxDLinkerReactor& reactor) {
        isUnloaded ? reactor.rxAppUnloaded(path.c_str()) : reactor.rxAppUnloadAborted(path.c_str());
    });
    return isUnloaded;
}

// At the end of the session no document is open any more, and no lock holds a module back.
void Linker::UnloadAll()
{
    SendAll(AcRx::kQuitMsg, nullptr);
    while (!m_modules.empty()) {
        Module& module = *m_modules.back();
        Send(module, AcRx::kUnloadAppMsg, nullptr);
        if (!m_modules.empty() && m_modules.back().get() == &module)
            Drop(module);
    }
}

std::vector<std::wstring> Linker::Paths() const
{
    std::vector<std::wstring> paths;
    for (const auto& module : m_modules)
        paths.push_back(module->path);
    return paths;
}

}   // namespace

std::unique_ptr<AcRxDynamicLinker> NewDynamicLinker()
{
    return std::make_unique<Linker>();
}

AcRx::AppRetCode SendToModule(void* appId, AcRx::AppMsgCode message)
{
    Linker* linker = TheLinker();
    Module* module = linker != nullptr ? linker->Of(appId) : nullptr;
    return module != nullptr ? linker->Send(*module, message, nullptr) : AcRx::kRetError;
}

void SendToModules(AcRx::AppMsgCode message, AcApDocument* document)
{
    if (Linker* linker = TheLinker())
        linker->SendAll(message, document);
}

void UnloadAllModules()
{
    if (Linker* linker = TheLinker())
        linker->UnloadAll();
}

void* RunningModule()
{
    return TheEditor() != nullptr ? TheEditor()->module : nullptr;
}

std::vector<std::wstring> LoadedModules()
{
    const Linker* linker = TheLinker();
    return linker != nullptr ? linker->Paths() : std::vector<std::wstring>();
}

const std::wstring& LastModuleFault()
{
    static const std::wstring none;
    const Linker* linker = TheLinker();
    return linker != nullptr ? linker->fault : none;
}

}   // namespace KxPlat

int acedArxLoad(const ACHAR* file)
{
    AcRxDynamicLinker* linker = acrxDynamicLinker;
    return linker != nullptr && linker->loadModule(file, false, false) ? RTNORM : RTERROR;
}

int acedArxUnload(const ACHAR* file)
{
    AcRxDynamicLinker* linker = acrxDynamicLinker;
    return linker != nullptr && linker->unloadModule(file, false) ? RTNORM : RTERROR;
}

resbuf* acedArxLoaded()
{
    resbuf* first = nullptr;
    const std::vector<std::wstring> paths = KxPlat::LoadedModules();
    for (auto path = paths.rbegin(); path != paths.rend(); ++path) {
        resbuf* name = acutBuildList(RTSTR, path->substr(path->find_last_of(L'\\') + 1).c_str(), RTNONE);
        name->rbnext = first;
        first = name;
    }
    return first;
}
