#include "RegistrySearch.h"
#include "Processes.h"
#include <cstring>
#include <memory>

namespace KxMfcEx {
namespace {

// Where the running search is, each key followed by a backslash.
CString& CurrentPath()
{
    static CString path;
    return path;
}

// The data as a text, which ends where they end even without a terminator.
CString TextOf(const BYTE* data, const DWORD* size)
{
    CString text;
    if (data == nullptr || size == nullptr)
        return text;
    const int length = int(*size / sizeof text[0]);
    std::memcpy(text.GetBufferSetLength(length), data, size_t(length) * sizeof text[0]);
    text.ReleaseBufferSetLength(length);
    return text;
}

// One value of the key. 1 when one of the names is its name and it is accepted.
int TryValue(HKEY key, const wchar_t* valueName, CStringArray& names, DWORD* type, BYTE* data, DWORD* size,
             RegistryFilter filter)
{
    for (INT_PTR i = 0; i < names.GetSize(); ++i) {
        if (names[i].CompareNoCase(valueName) != 0 ||
            RegQueryValueExW(key, valueName, nullptr, type, data, size) != ERROR_SUCCESS)
            continue;
        if (filter == nullptr || filter(CurrentPath() + L"\\" + valueName, TextOf(data, size)))
            return 1;
    }
    return 0;
}

int SearchSubKey(HKEY key, const wchar_t* name, CStringArray& names, DWORD* type, BYTE* data, DWORD* size,
                 RegistryFilter filter)
{
    CString& path = CurrentPath();
    const int length = path.GetLength();
    path += CString(name) + L"\\";
    HKEY subKey = nullptr;
    int found = 0;
    if (RegOpenKeyExW(key, name, 0, RegistrySearchAccess(), &subKey) == ERROR_SUCCESS) {
        found = Reg_GetFirstSuiteNameValueData(subKey, names, type, data, size, filter);
        RegCloseKey(subKey);
    }
    path.Truncate(length);
    return found;
}

}   // namespace

REGSAM RegistrySearchAccess()
{
    return IsWin64() ? KEY_ALL_ACCESS | KEY_WOW64_64KEY : KEY_READ;
}

int Reg_GetFirstSuiteNameValueData(HKEY key, CStringArray& names, DWORD* type, BYTE* data, DWORD* size,
                                   RegistryFilter filter)
{
    DWORD longestKey = 0, longestName = 0;
    if (names.GetSize() == 0 || RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, &longestKey, nullptr, nullptr,
                                                 &longestName, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
        return 0;
    const DWORD keyRoom = 2 * longestKey + 1, nameRoom = 2 * longestName + 1;
    const DWORD room = size != nullptr ? *size : 0;
    const auto name = std::make_unique<wchar_t[]>(nameRoom);
    DWORD length = nameRoom;
    for (DWORD i = 0; RegEnumValueW(key, i, name.get(), &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++i) {
        if (TryValue(key, name.get(), names, type, data, size, filter))
            return 1;
        length = nameRoom;
    }
    // A value that was refused has left its own size there; only the keys below get the whole buffer again.
    if (size != nullptr)
        *size = room;
    const auto keyName = std::make_unique<wchar_t[]>(keyRoom);
    int found = 0;
    for (DWORD i = 0; RegEnumKeyW(key, i, keyName.get(), keyRoom) == ERROR_SUCCESS; ++i) {
        found = SearchSubKey(key, keyName.get(), names, type, data, size, filter);
        if (found == 1)
            return 1;
    }
    return found;
}

}   // namespace KxMfcEx
