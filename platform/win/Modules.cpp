#include "Modules.h"
#include "CharTables.h"
#include "CodePage.h"
#include "Files.h"
#include "ModuleTable.h"
#include "WinAnswer.h"
#include <algorithm>
#include <cstdlib>
#include <memory>

namespace {

using KxPlat::EqualNoCase;

// What an HMODULE points to.
struct Module {
    std::wstring file;   // in drive form, as it was asked for; empty for the program and the system's own
    KxPlat::SystemModule system;
    std::vector<HMODULE> imports;   // each counted once for this module
    int count = 1;
};

std::vector<std::unique_ptr<Module>>& Loaded()
{
    static std::vector<std::unique_ptr<Module>> modules;
    return modules;
}

std::wstring& LoadText()
{
    static std::wstring text;
    return text;
}

Module* BuiltIn(size_t index)
{
    static Module modules[2];   // the program, and what stands for Windows' own libraries
    return &modules[index];
}

HMODULE HandleOf(Module* module)
{
    return reinterpret_cast<HMODULE>(module);
}

bool IsBuiltIn(HMODULE handle)
{
    return handle == HandleOf(BuiltIn(0)) || handle == HandleOf(BuiltIn(1));
}

template <class Test>
Module* FirstLoaded(Test test)
{
    for (const auto& module : Loaded()) {
        if (test(*module))
            return module.get();
    }
    return nullptr;
}

Module* LoadedModule(HMODULE handle)
{
    return FirstLoaded([handle](Module& module) { return HandleOf(&module) == handle; });
}

std::wstring_view BaseName(std::wstring_view path)
{
    const size_t slash = path.find_last_of(L"\\/:");
    return slash == std::wstring_view::npos ? path : path.substr(slash + 1);
}

// The name with the extension that is meant.
std::wstring Completed(std::wstring name)
{
    if (name.back() == L'.')
        name.pop_back();
    else if (BaseName(name).find(L'.') == std::wstring_view::npos)
        name += L".dll";
    return name;
}

std::vector<std::wstring> SearchFolders()
{
    const std::wstring program = KxPlat::DrivePath(KxPlat::ProgramFile());
    std::vector<std::wstring> folders = {program.substr(0, program.rfind(L'\\')),
                                         KxPlat::DrivePath(KxPlat::CurrentFolder())};
    const char* value = std::getenv("PATH");
    const std::string path = value != nullptr ? value : "";
    for (size_t at = 0; at < path.size();) {
        const size_t end = std::min(path.find(':', at), path.size());
        if (end > at)
            folders.push_back(KxPlat::DrivePath(path.substr(at, end - at)));
        at = end + 1;
    }
    return folders;
}

// The file to load in drive form, empty when there is none.
std::wstring FoundFile(const std::wstring& name)
{
    const auto isFile = [](const std::wstring& path) { return KxPlat::FileInfoOf(KxPlat::HostPath(path)).isRegular; };
    if (BaseName(name).size() != name.size())
        return isFile(name) ? KxPlat::FullDrivePath(name) : L"";
    for (const std::wstring& folder : SearchFolders()) {
        const std::wstring path = folder + L"\\" + name;
        if (isFile(path))
            return KxPlat::FullDrivePath(path);
    }
    return L"";
}

Module* LoadFile(const std::wstring& file);

BOOL CallDllMain(Module& module, DWORD reason)
{
    const auto entry = reinterpret_cast<KxPlat::DllMainFunction>(KxPlat::SymbolOf(module.system.handle, "DllMain"));
    return entry == nullptr || entry(HandleOf(&module), reason, nullptr) != 0;
}

void Forget(Module* module)
{
    // Taken out of the table first: unloading runs foreign code, which may look the module up.
    auto& all = Loaded();
    const auto place = std::find_if(all.begin(), all.end(), [&](const auto& entry) { return entry.get() == module; });
    const std::unique_ptr<Module> owner = std::move(*place);
    all.erase(place);
    KxPlat::UnloadSystemModule(owner->system);
    for (auto import = owner->imports.rbegin(); import != owner->imports.rend(); ++import)
        FreeLibrary(*import);
}

// Modules that this one was linked to are loaded with it, and hear of it first.
void AdoptImports(Module& module)
{
    for (const std::string& file : module.system.imports) {
        if (Module* import = LoadFile(KxPlat::DrivePath(file)))
            module.imports.push_back(HandleOf(import));
    }
}

Module* LoadFile(const std::wstring& file)
{
    const std::string path = KxPlat::HostPath(file);
    const std::string real = KxPlat::RealPath(path);
    if (Module* known = FirstLoaded([&](Module& module) { return module.system.file == real; })) {
        ++known->count;
        return known;
    }
    auto fresh = std::make_unique<Module>();
    fresh->file = file;
    const DWORD error = KxPlat::LoadSystemModule(path, fresh->system);
    if (error != 0) {
        SetLastError(error);
        return nullptr;
    }
    Module* module = fresh.get();
    Loaded().push_back(std::move(fresh));
    AdoptImports(*module);
    if (!CallDllMain(*module, DLL_PROCESS_ATTACH)) {
        Forget(module);
        SetLastError(ERROR_DLL_INIT_FAILED);
        return nullptr;
    }
    return module;
}

Module* SystemLibrary(std::wstring_view name)
{
    if (name.size() > 4 && EqualNoCase(name.substr(name.size() - 4), L".dll"))
        name.remove_suffix(4);
    for (const wchar_t* known : {L"kernel32", L"user32", L"psapi", L"version", L"advapi32", L"shell32"}) {
        if (EqualNoCase(name, known))
            return BuiltIn(1);
    }
    return nullptr;
}

Module* LoadedByName(const std::wstring& name)
{
    if (BaseName(name).size() == name.size())
        return FirstLoaded([&](Module& module) { return EqualNoCase(BaseName(module.file), name); });
    const std::string real = KxPlat::RealPath(KxPlat::HostPath(name));
    return FirstLoaded([&](Module& module) { return module.system.file == real; });
}

}   // namespace

HMODULE LoadLibraryW(LPCWSTR file)
{
    KxPlat::SetLastLoadText(L"");
    if (file == nullptr || file[0] == 0) {
        SetLastError(file == nullptr ? ERROR_INVALID_PARAMETER : ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    if (Module* library = SystemLibrary(file))
        return HandleOf(library);
    const std::wstring name = Completed(file);
    if (Module* known = LoadedByName(name)) {
        ++known->count;
        return HandleOf(known);
    }
    const std::wstring found = FoundFile(name);
    if (found.empty()) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    return HandleOf(LoadFile(found));
}

BOOL FreeLibrary(HMODULE handle)
{
    if (IsBuiltIn(handle))
        return TRUE;
    Module* module = LoadedModule(handle);
    if (module == nullptr)
        return KxPlat::FailWith(ERROR_MOD_NOT_FOUND);
    if (--module->count > 0)
        return TRUE;
    CallDllMain(*module, DLL_PROCESS_DETACH);
    if (module->count <= 0)
        Forget(module);
    return TRUE;
}

FARPROC GetProcAddress(HMODULE handle, LPCSTR name)
{
    const Module* module = LoadedModule(handle);
    void* symbol = nullptr;
    if (name != nullptr && (module != nullptr || IsBuiltIn(handle)))
        symbol = KxPlat::SymbolOf(module != nullptr ? module->system.handle : nullptr, name);
    if (symbol == nullptr)
        SetLastError(ERROR_PROC_NOT_FOUND);
    return reinterpret_cast<FARPROC>(symbol);
}

HMODULE GetModuleHandleW(LPCWSTR name)
{
    if (name == nullptr)
        return HandleOf(BuiltIn(0));
    if (name[0] == 0) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    Module* module = SystemLibrary(name);
    if (module == nullptr)
        module = LoadedByName(Completed(name));
    if (module == nullptr)
        SetLastError(ERROR_MOD_NOT_FOUND);
    return HandleOf(module);
}

DWORD GetModuleFileNameW(HMODULE handle, LPWSTR buffer, DWORD size)
{
    const Module* module = LoadedModule(handle);
    if (module == nullptr && handle != nullptr && !IsBuiltIn(handle)) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return 0;
    }
    const std::wstring file = module != nullptr ? module->file : KxPlat::DrivePath(KxPlat::ProgramFile());
    if (size == 0 || buffer == nullptr) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    const size_t length = std::min<size_t>(file.size(), size - 1);
    std::copy_n(file.data(), length, buffer);
    buffer[length] = 0;
    SetLastError(length == file.size() ? ERROR_SUCCESS : ERROR_INSUFFICIENT_BUFFER);
    return length == file.size() ? static_cast<DWORD>(length) : size;
}

namespace KxPlat {

const std::wstring& LastLoadText()
{
    return LoadText();
}

void SetLastLoadText(std::wstring text)
{
    LoadText() = std::move(text);
}

}   // namespace KxPlat
