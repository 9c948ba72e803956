#include "RegistryTree.h"
#include "CharTables.h"
#include <algorithm>

namespace KxPlat {

size_t RegistryKey::Place(std::wstring_view name) const
{
    const auto place =
        std::lower_bound(m_keys.begin(), m_keys.end(), name, [](const auto& key, std::wstring_view wanted) {
            return CompareNoCase(key->m_name, wanted) < 0;
        });
    return static_cast<size_t>(place - m_keys.begin());
}

RegistryKey* RegistryKey::Find(std::wstring_view name) const
{
    const size_t place = Place(name);
    return place < m_keys.size() && EqualNoCase(m_keys[place]->m_name, name) ? m_keys[place].get() : nullptr;
}

RegistryKey& RegistryKey::FindOrAdd(std::wstring_view name)
{
    if (RegistryKey* found = Find(name))
        return *found;
    const auto place = m_keys.begin() + static_cast<std::ptrdiff_t>(Place(name));
    return **m_keys.insert(place, std::make_unique<RegistryKey>(name));
}

bool RegistryKey::Remove(std::wstring_view name)
{
    if (Find(name) == nullptr)
        return false;
    m_keys.erase(m_keys.begin() + static_cast<std::ptrdiff_t>(Place(name)));
    return true;
}

const RegistryValue* RegistryKey::FindValue(std::wstring_view name) const
{
    for (const RegistryValue& value : m_values) {
        if (EqualNoCase(value.name, name))
            return &value;
    }
    return nullptr;
}

void RegistryKey::SetValue(std::wstring_view name, DWORD type, std::string data)
{
    auto* value = const_cast<RegistryValue*>(FindValue(name));
    if (value == nullptr)
        value = &m_values.emplace_back(RegistryValue{std::wstring(name), 0, {}});
    value->type = type;
    value->data = std::move(data);
}

bool RegistryKey::RemoveValue(std::wstring_view name)
{
    const RegistryValue* value = FindValue(name);
    if (value == nullptr)
        return false;
    m_values.erase(m_values.begin() + (value - m_values.data()));
    return true;
}

RegistryPath RegistrySteps(std::wstring_view path)
{
    RegistryPath steps;
    for (size_t at = 0; at <= path.size();) {
        const size_t end = std::min(path.find(L'\\', at), path.size());
        if (end > at)
            steps.emplace_back(path.substr(at, end - at));
        at = end + 1;
    }
    return steps;
}

RegistryPath RegistryPlace(RegistryPath path)
{
    if (path.empty() || !EqualNoCase(path[0], L"HKEY_CLASSES_ROOT"))
        return path;
    path[0] = L"HKEY_LOCAL_MACHINE";
    path.insert(path.begin() + 1, {L"SOFTWARE", L"Classes"});
    return path;
}

RegistryKey* FindKey(RegistryKey& root, const RegistryPath& path)
{
    RegistryKey* key = &root;
    for (const std::wstring& name : path) {
        key = key->Find(name);
        if (key == nullptr)
            return nullptr;
    }
    return key;
}

}   // namespace KxPlat
