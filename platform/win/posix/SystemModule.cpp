#include "../CodePage.h"
#include "../ModuleTable.h"
#include <climits>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <elf.h>
#include <fstream>
#include <link.h>
#include <set>
#include <unistd.h>

namespace KxPlat {
namespace {

bool IsSharedObject(const std::string& file)
{
    char head[SELFMAG] = {};
    std::ifstream in(file, std::ios::binary);
    return in.read(head, SELFMAG) && std::memcmp(head, ELFMAG, SELFMAG) == 0;
}

link_map* MapOf(void* handle)
{
    link_map* map = nullptr;
    return dlinfo(handle, RTLD_DI_LINKMAP, &map) == 0 ? map : nullptr;
}

std::string BaseName(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

// Names of the objects that one was linked to, without folders.
std::set<std::string> NeededNames(const link_map* map)
{
    const char* strings = nullptr;
    for (const ElfW(Dyn)* entry = map->l_ld; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_STRTAB)
            strings = reinterpret_cast<const char*>(entry->d_un.d_ptr);
    }
    std::set<std::string> names;
    for (const ElfW(Dyn)* entry = map->l_ld; strings != nullptr && entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_NEEDED)
            names.insert(BaseName(strings + entry->d_un.d_val));
    }
    return names;
}

// Only modules of the family have a DllMain; the system's libraries load and unload by themselves.
bool HasDllMain(const std::string& file)
{
    void* handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NOLOAD);
    if (handle == nullptr)
        return false;
    const bool has = SymbolOf(handle, "DllMain") != nullptr;
    dlclose(handle);
    return has;
}

std::vector<std::string> ImportedModules(const link_map* map)
{
    std::vector<std::string> files;
    const std::set<std::string> needed = NeededNames(map);
    const link_map* first = map;
    while (first->l_prev != nullptr)
        first = first->l_prev;
    for (const link_map* other = first; other != nullptr; other = other->l_next) {
        const std::string file = other->l_name;
        if (other != map && needed.count(BaseName(file)) != 0 && HasDllMain(file))
            files.push_back(RealPath(file));
    }
    return files;
}

}   // namespace

DWORD LoadSystemModule(const std::string& file, SystemModule& module)
{
    SetLastLoadText(L"");
    if (!IsSharedObject(file))
        return ERROR_BAD_EXE_FORMAT;
    module.handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module.handle == nullptr) {
        const char* text = dlerror();
        const std::string reason = text != nullptr ? text : "";
        SetLastLoadText(FromUtf8(reason));
        if (reason.find("undefined symbol") != std::string::npos)
            return ERROR_PROC_NOT_FOUND;
        return reason.find("cannot open shared object") != std::string::npos ? DWORD(ERROR_MOD_NOT_FOUND)
                                                                             : DWORD(ERROR_BAD_EXE_FORMAT);
    }
    module.file = RealPath(file);
    if (const link_map* map = MapOf(module.handle))
        module.imports = ImportedModules(map);
    return ERROR_SUCCESS;
}

void UnloadSystemModule(SystemModule& module)
{
    if (module.handle != nullptr)
        dlclose(module.handle);
    module.handle = nullptr;
}

void* SymbolOf(void* handle, const char* name)
{
    if (handle == nullptr)
        return dlsym(RTLD_DEFAULT, name);
    void* symbol = dlsym(handle, name);
    const link_map* map = MapOf(handle);
    Dl_info info = {};
    link_map* owner = nullptr;
    if (symbol == nullptr || map == nullptr ||
        dladdr1(symbol, &info, reinterpret_cast<void**>(&owner), RTLD_DL_LINKMAP) == 0)
        return nullptr;
    return owner == map ? symbol : nullptr;
}

std::string ProgramFile()
{
    char path[PATH_MAX] = {};
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
    return length > 0 ? std::string(path, static_cast<size_t>(length)) : "/";
}

std::string RealPath(const std::string& path)
{
    char* real = realpath(path.c_str(), nullptr);
    std::string result = real != nullptr ? real : "";
    std::free(real);
    return result;
}

}   // namespace KxPlat
