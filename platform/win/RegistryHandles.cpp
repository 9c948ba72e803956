#include "RegistryHandles.h"
#include "CharTables.h"
#include "Registry.h"
#include <algorithm>
#include <map>

namespace KxPlat {
namespace {

struct Entry {
    OpenKey key;
    bool leads = true;
};

struct Table {
    std::map<HKEY, Entry> keys;
    uintptr_t next = 0x40000;
};

Table& Keys()
{
    static Table table;
    return table;
}

const OpenKey* RootKeyOf(HKEY key)
{
    static const std::map<HKEY, OpenKey> kRoots = {
        {HKEY_CLASSES_ROOT, {RegistryPlace({L"HKEY_CLASSES_ROOT"}), KEY_ALL_ACCESS}},
        {HKEY_CURRENT_USER, {{L"HKEY_CURRENT_USER"}, KEY_ALL_ACCESS}},
        {HKEY_LOCAL_MACHINE, {{L"HKEY_LOCAL_MACHINE"}, KEY_ALL_ACCESS}},
        {HKEY_USERS, {{L"HKEY_USERS"}, KEY_ALL_ACCESS}},
        {HKEY_CURRENT_CONFIG, {{L"HKEY_CURRENT_CONFIG"}, KEY_ALL_ACCESS}},
    };
    const auto found = kRoots.find(key);
    return found != kRoots.end() ? &found->second : nullptr;
}

bool IsBelow(const RegistryPath& path, const RegistryPath& top)
{
    return path.size() >= top.size() && std::equal(top.begin(), top.end(), path.begin(),
                                                   [](const auto& a, const auto& b) { return EqualNoCase(a, b); });
}

}   // namespace

const OpenKey* OpenKeyOf(HKEY key)
{
    if (const OpenKey* root = RootKeyOf(key))
        return root;
    const auto found = Keys().keys.find(key);
    return found != Keys().keys.end() ? &found->second.key : nullptr;
}

HKEY NewKeyHandle(OpenKey key)
{
    Table& table = Keys();
    const auto handle = reinterpret_cast<HKEY>(table.next += 4);
    table.keys.emplace(handle, Entry{std::move(key)});
    return handle;
}

bool CloseKeyHandle(HKEY key)
{
    return RootKeyOf(key) != nullptr || Keys().keys.erase(key) != 0;
}

void ForgetKeysBelow(const RegistryPath& path)
{
    for (auto& [handle, entry] : Keys().keys) {
        if (IsBelow(entry.key.path, path))
            entry.leads = false;
    }
}

bool Leads(HKEY key)
{
    const auto found = Keys().keys.find(key);
    return found == Keys().keys.end() || found->second.leads;
}

}   // namespace KxPlat
