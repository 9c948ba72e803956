#include "RegistryTexts.h"
#include "win/Registry.h"

namespace KxConsole {

namespace {

class Key {
public:
    explicit Key(const std::wstring& path)
    {
        if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &m_key) != ERROR_SUCCESS)
            m_key = nullptr;
    }
    ~Key()
    {
        if (m_key != nullptr)
            RegCloseKey(m_key);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    HKEY Get() const { return m_key; }

private:
    HKEY m_key = nullptr;
};

}   // namespace

bool ReadText(const std::wstring& key, const std::wstring& name, std::wstring& text)
{
    DWORD size = 0;
    const auto get = [&](wchar_t* data) {
        return RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, data, &size) ==
               ERROR_SUCCESS;
    };
    if (!get(nullptr))
        return false;
    std::wstring buffer(size / sizeof(wchar_t) + 1, L'\0');
    if (!get(buffer.data()))
        return false;
    text = buffer.c_str();
    return true;
}

bool WriteText(const std::wstring& key, const std::wstring& name, const std::wstring& text)
{
    HKEY made = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, key.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_WRITE, nullptr, &made,
                        nullptr) != ERROR_SUCCESS)
        return false;
    const auto* bytes = reinterpret_cast<const BYTE*>(text.c_str());
    const DWORD size = DWORD((text.size() + 1) * sizeof text[0]);
    const bool isSet = RegSetValueExW(made, name.c_str(), 0, REG_SZ, bytes, size) == ERROR_SUCCESS;
    RegCloseKey(made);
    return isSet;
}

bool HasKey(const std::wstring& key)
{
    return Key(key).Get() != nullptr;
}

std::vector<std::wstring> KeysIn(const std::wstring& key)
{
    std::vector<std::wstring> names;
    const Key open(key);
    wchar_t name[256] = {};
    for (DWORD i = 0; open.Get() != nullptr && RegEnumKeyW(open.Get(), i, name, 256) == ERROR_SUCCESS; ++i)
        names.push_back(name);
    return names;
}

bool RemoveTree(const std::wstring& key)
{
    return RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str()) == ERROR_SUCCESS;
}

}   // namespace KxConsole
