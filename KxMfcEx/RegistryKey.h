// A key that is closed on every way out.
#pragma once
#include "KxExport.h"

namespace KxMfcEx {

class RegistryKey {
public:
    RegistryKey(HKEY parent, const wchar_t* name, REGSAM access)
    {
        if (RegOpenKeyExW(parent, name, 0, access, &m_key) != ERROR_SUCCESS)
            m_key = nullptr;
    }
    ~RegistryKey()
    {
        if (m_key != nullptr)
            RegCloseKey(m_key);
    }
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    bool IsOpen() const { return m_key != nullptr; }
    HKEY Get() const { return m_key; }

    // The name of sub-key `index`; false behind the last one.
    bool KeyName(DWORD index, CString& name) const
    {
        wchar_t buffer[256] = {};
        const bool found = m_key != nullptr && RegEnumKeyW(m_key, index, buffer, ARRAYSIZE(buffer)) == ERROR_SUCCESS;
        name = found ? buffer : L"";
        return found;
    }
    // A text value of whatever length; null asks for the default value.
    bool Text(const wchar_t* name, CString& text) const
    {
        DWORD type = 0, size = 0;
        if (m_key == nullptr || RegQueryValueExW(m_key, name, nullptr, &type, nullptr, &size) != ERROR_SUCCESS ||
            (type != REG_SZ && type != REG_EXPAND_SZ))
            return false;
        const int length = int(size / sizeof text[0]);
        wchar_t* buffer = text.GetBufferSetLength(length);
        size = DWORD(size_t(length) * sizeof text[0]);
        const bool read = RegQueryValueExW(m_key, name, nullptr, nullptr,
                                           static_cast<BYTE*>(static_cast<void*>(buffer)), &size) == ERROR_SUCCESS;
        text.ReleaseBuffer(read ? -1 : 0);
        return read;
    }
    bool SetText(const wchar_t* name, const wchar_t* text) const
    {
        const DWORD size = DWORD((std::wcslen(text) + 1) * sizeof *text);
        const auto* data = static_cast<const BYTE*>(static_cast<const void*>(text));
        return m_key != nullptr && RegSetValueExW(m_key, name, 0, REG_SZ, data, size) == ERROR_SUCCESS;
    }

private:
    HKEY m_key = nullptr;
};

}   // namespace KxMfcEx
