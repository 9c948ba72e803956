// Keys and values of a registry, in memory. Names are found without regard to case and keep their first spelling.
#pragma once
#include "KxWinTypes.h"
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace KxPlat {

struct RegistryValue {
    std::wstring name;   // empty: the key's default value
    DWORD type = 0;
    std::string data;   // as in the file: texts in UTF-16, little end first
};

class RegistryKey {
public:
    explicit RegistryKey(std::wstring_view name = {}) : m_name(name) {}

    const std::wstring& Name() const { return m_name; }
    // Sorted by name without regard to case.
    const std::vector<std::unique_ptr<RegistryKey>>& Keys() const { return m_keys; }
    // In the order in which they were made.
    const std::vector<RegistryValue>& Values() const { return m_values; }

    RegistryKey* Find(std::wstring_view name) const;
    RegistryKey& FindOrAdd(std::wstring_view name);
    bool Remove(std::wstring_view name);   // with all below it
    void RemoveKeys() { m_keys.clear(); }

    const RegistryValue* FindValue(std::wstring_view name) const;
    void SetValue(std::wstring_view name, DWORD type, std::string data);
    bool RemoveValue(std::wstring_view name);
    void RemoveValues() { m_values.clear(); }

private:
    size_t Place(std::wstring_view name) const;   // of the key, or where it would stand

    std::wstring m_name;
    std::vector<std::unique_ptr<RegistryKey>> m_keys;
    std::vector<RegistryValue> m_values;
};

// Names of keys, from the root key on. Steps between backslashes; empty ones do not count.
using RegistryPath = std::vector<std::wstring>;
RegistryPath RegistrySteps(std::wstring_view path);
// The place of a key where two names lead to one: HKEY_CLASSES_ROOT lies in the machine's software.
RegistryPath RegistryPlace(RegistryPath path);

constexpr size_t kLongestKeyName = 255, kLongestValueName = 16383, kDeepestKey = 512;

RegistryKey* FindKey(RegistryKey& root, const RegistryPath& path);

}   // namespace KxPlat
