#include "Registry.h"
#include "CharTables.h"
#include "Environment.h"
#include "RegistryHandles.h"
#include "RegistryStore.h"
#include <algorithm>
#include <cstring>
#include <functional>

using KxPlat::OpenKey;
using KxPlat::RegistryKey;
using KxPlat::RegistryPath;
using KxPlat::RegistryValue;

namespace {

std::wstring_view TextOf(const wchar_t* text)
{
    return text != nullptr ? std::wstring_view(text) : std::wstring_view();
}

bool IsText(DWORD type)
{
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

// Texts of values lie in memory as wide characters of this system.
std::string MemoryBytes(DWORD type, const std::string& data)
{
    if (!IsText(type))
        return data;
    const std::wstring text = KxPlat::TextOfBytes(data);
    return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
}

std::string FileBytes(DWORD type, const BYTE* data, DWORD size)
{
    std::string bytes(reinterpret_cast<const char*>(data), size);
    if (!IsText(type))
        return bytes;
    std::wstring text(size / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
    if (type != REG_MULTI_SZ && !text.empty() && text.back() != 0)
        text += L'\0';
    return KxPlat::UnitBytes(text);
}

// A place in the registry that a handle and a name lead to.
struct Place {
    LSTATUS error = ERROR_SUCCESS;
    RegistryPath path;
    REGSAM access = 0;
};

void ToView(Place& place)
{
    using KxPlat::EqualNoCase;
    const RegistryPath& path = place.path;
    if ((place.access & KEY_WOW64_32KEY) != 0 && path.size() > 2 && EqualNoCase(path[0], L"HKEY_LOCAL_MACHINE") &&
        EqualNoCase(path[1], L"SOFTWARE") && !EqualNoCase(path[2], L"Wow6432Node"))
        place.path.insert(place.path.begin() + 2, L"Wow6432Node");
}

Place PlaceOf(HKEY key, LPCWSTR subKey)
{
    const OpenKey* open = KxPlat::OpenKeyOf(key);
    if (open == nullptr)
        return {ERROR_INVALID_HANDLE, {}, 0};
    if (!KxPlat::Leads(key))
        return {ERROR_KEY_DELETED, {}, 0};
    const std::wstring_view name = TextOf(subKey);
    if (name.starts_with(L'\\'))
        return {ERROR_BAD_PATHNAME, {}, 0};
    Place place{ERROR_SUCCESS, open->path, open->access};
    for (std::wstring& step : KxPlat::RegistrySteps(name))
        place.path.push_back(std::move(step));
    return place;
}

// The root keys are there in every registry.
RegistryKey* KeyAt(RegistryKey& root, const Place& place)
{
    return place.path.size() == 1 ? &root.FindOrAdd(place.path[0]) : KxPlat::FindKey(root, place.path);
}

// Runs `read` on the key that a handle and a name lead to.
template <class Read>
LSTATUS WithKey(HKEY key, LPCWSTR subKey, const Read& read)
{
    const Place place = PlaceOf(key, subKey);
    if (place.error != ERROR_SUCCESS)
        return place.error;
    const RegistryKey* found = KeyAt(KxPlat::RegistryRoot(), place);
    if (found != nullptr)
        return static_cast<LSTATUS>(read(*found));
    return TextOf(subKey).empty() ? ERROR_KEY_DELETED : ERROR_FILE_NOT_FOUND;
}

template <class Change>
LSTATUS ChangeKey(const Place& place, DWORD missing, const Change& change)
{
    return static_cast<LSTATUS>(KxPlat::ChangeRegistry([&](RegistryKey& root) {
        RegistryKey* key = KeyAt(root, place);
        return key != nullptr ? static_cast<DWORD>(change(*key)) : missing;
    }));
}

DWORD CopyName(const std::wstring& name, LPWSTR buffer, DWORD size)
{
    if (name.size() >= size)
        return ERROR_MORE_DATA;
    std::copy_n(name.c_str(), name.size() + 1, buffer);
    return ERROR_SUCCESS;
}

// `size` holds the buffer's size and gets the data's.
DWORD CopyData(const std::string& bytes, void* buffer, LPDWORD size)
{
    if (buffer != nullptr && size == nullptr)
        return ERROR_INVALID_PARAMETER;
    if (size == nullptr)
        return ERROR_SUCCESS;
    const DWORD room = *size;
    *size = static_cast<DWORD>(bytes.size());
    if (buffer == nullptr)
        return ERROR_SUCCESS;
    if (bytes.size() > room)
        return ERROR_MORE_DATA;
    std::memcpy(buffer, bytes.data(), bytes.size());
    return ERROR_SUCCESS;
}

template <class T>
void Give(T* target, T value)
{
    if (target != nullptr)
        *target = value;
}

bool IsKeyName(const std::wstring& name)
{
    return name.size() <= KxPlat::kLongestKeyName && name.find_first_of(L"\r\n") == std::wstring::npos;
}

DWORD TypeFlag(DWORD type)
{
    static const struct {
        DWORD type, flag;
    } kFlags[] = {{REG_NONE, RRF_RT_REG_NONE},     {REG_SZ, RRF_RT_REG_SZ},       {REG_EXPAND_SZ, RRF_RT_REG_EXPAND_SZ},
                  {REG_BINARY, RRF_RT_REG_BINARY}, {REG_DWORD, RRF_RT_REG_DWORD}, {REG_MULTI_SZ, RRF_RT_REG_MULTI_SZ},
                  {REG_QWORD, RRF_RT_REG_QWORD}};
    for (const auto& row : kFlags) {
        if (row.type == type)
            return row.flag;
    }
    return 0;
}

// A text ends in a terminator; one with environment variables counts as the text that it stands for, unless it is
// asked for as it is.
RegistryValue Presented(const RegistryValue& value, DWORD flags)
{
    RegistryValue result = value;
    std::wstring text = KxPlat::TextOfBytes(value.data);
    if (value.type == REG_SZ && (text.empty() || text.back() != 0))
        result.data = KxPlat::UnitBytes(text + L'\0');
    if (value.type != REG_EXPAND_SZ || (flags & RRF_NOEXPAND) != 0)
        return result;
    text.resize(std::wcslen(text.c_str()));
    result.type = REG_SZ;
    result.data = KxPlat::UnitBytes(KxPlat::ExpandEnvironment(text) + L'\0');
    return result;
}

}   // namespace

LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access, HKEY* result)
{
    if (result == nullptr)
        return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    Place place = PlaceOf(key, subKey);
    if (place.error != ERROR_SUCCESS)
        return place.error;
    place.access = access;
    ToView(place);
    if (KeyAt(KxPlat::RegistryRoot(), place) == nullptr)
        return ERROR_FILE_NOT_FOUND;
    *result = KxPlat::NewKeyHandle({place.path, access});
    return ERROR_SUCCESS;
}

LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR keyClass, DWORD options, REGSAM access,
                        const _SECURITY_ATTRIBUTES* security, HKEY* result, LPDWORD disposition)
{
    if (result == nullptr)
        return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    Place place = PlaceOf(key, subKey);
    if (place.error != ERROR_SUCCESS)
        return place.error;
    if (!std::all_of(place.path.begin(), place.path.end(), IsKeyName) || place.path.size() > KxPlat::kDeepestKey)
        return ERROR_INVALID_PARAMETER;
    place.access = access;
    ToView(place);
    const bool exists = KeyAt(KxPlat::RegistryRoot(), place) != nullptr;
    if (!exists) {
        const DWORD error = KxPlat::ChangeRegistry([&place](RegistryKey& root) {
            RegistryKey* at = &root;
            for (const std::wstring& step : place.path)
                at = &at->FindOrAdd(step);
            return DWORD(ERROR_SUCCESS);
        });
        if (error != 0)
            return static_cast<LSTATUS>(error);
    }
    Give(disposition, DWORD(exists ? REG_OPENED_EXISTING_KEY : REG_CREATED_NEW_KEY));
    *result = KxPlat::NewKeyHandle({place.path, access});
    return ERROR_SUCCESS;
}

LSTATUS RegCloseKey(HKEY key)
{
    return static_cast<LSTATUS>(KxPlat::CloseKeyHandle(key) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE);
}

// --- values -----------------------------------------------------------------------------------------------------

LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size)
{
    const Place place = PlaceOf(key, nullptr);
    if (place.error != ERROR_SUCCESS)
        return place.error;
    if ((place.access & KEY_SET_VALUE) == 0)
        return ERROR_ACCESS_DENIED;
    if (data == nullptr && size != 0)
        return ERROR_NOACCESS;
    if (TextOf(name).size() > KxPlat::kLongestValueName)
        return ERROR_INVALID_PARAMETER;
    return ChangeKey(place, ERROR_KEY_DELETED, [&](RegistryKey& target) {
        target.SetValue(TextOf(name), type, FileBytes(type, data, size));
        return ERROR_SUCCESS;
    });
}

LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size)
{
    if (data != nullptr && size == nullptr)
        return ERROR_INVALID_PARAMETER;
    return WithKey(key, nullptr, [&](const RegistryKey& found) -> DWORD {
        const RegistryValue* value = found.FindValue(TextOf(name));
        if (value == nullptr) {
            if (data == nullptr)
                Give(size, DWORD(0));
            return ERROR_FILE_NOT_FOUND;
        }
        Give(type, value->type);
        return CopyData(MemoryBytes(value->type, value->data), data, size);
    });
}

LSTATUS RegQueryValueW(HKEY key, LPCWSTR subKey, LPWSTR data, LONG* size)
{
    return WithKey(key, subKey, [&](const RegistryKey& found) -> DWORD {
        const RegistryValue* value = found.FindValue({});
        const std::string bytes = value != nullptr ? MemoryBytes(REG_SZ, value->data) : MemoryBytes(REG_SZ, {0, 0});
        auto room = static_cast<DWORD>(size != nullptr && *size > 0 ? *size : 0);
        const DWORD error = CopyData(bytes, data, size != nullptr ? &room : nullptr);
        Give(size, static_cast<LONG>(room));
        return error;
    });
}

LSTATUS RegGetValueW(HKEY key, LPCWSTR subKey, LPCWSTR name, DWORD flags, LPDWORD type, PVOID data, LPDWORD size)
{
    const DWORD room = size != nullptr ? *size : 0;
    const LSTATUS error = WithKey(key, subKey, [&](const RegistryKey& found) -> DWORD {
        const RegistryValue* stored = found.FindValue(TextOf(name));
        if (stored == nullptr)
            return ERROR_FILE_NOT_FOUND;
        const RegistryValue value = Presented(*stored, flags);
        Give(type, value.type);
        if ((TypeFlag(value.type) & flags) == 0 && (flags & RRF_RT_ANY) != RRF_RT_ANY)
            return ERROR_UNSUPPORTED_TYPE;
        return CopyData(MemoryBytes(value.type, value.data), data, size);
    });
    if (error != ERROR_SUCCESS && (flags & RRF_ZEROONFAILURE) != 0 && data != nullptr)
        std::memset(data, 0, room);
    return error;
}

LSTATUS RegDeleteValueW(HKEY key, LPCWSTR name)
{
    const Place place = PlaceOf(key, nullptr);
    if (place.error != ERROR_SUCCESS)
        return place.error;
    if ((place.access & KEY_SET_VALUE) == 0)
        return ERROR_ACCESS_DENIED;
    return ChangeKey(place, ERROR_KEY_DELETED, [&](RegistryKey& target) {
        return DWORD(target.RemoveValue(TextOf(name)) ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND);
    });
}

// --- lists ------------------------------------------------------------------------------------------------------

LSTATUS RegEnumKeyW(HKEY key, DWORD index, LPWSTR name, DWORD size)
{
    return RegEnumKeyExW(key, index, name, &size, nullptr, nullptr, nullptr, nullptr);
}

LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD size, LPDWORD reserved, LPWSTR keyClass,
                      LPDWORD classSize, LPFILETIME written)
{
    if (name == nullptr || size == nullptr)
        return ERROR_INVALID_PARAMETER;
    return WithKey(key, nullptr, [&](const RegistryKey& found) -> DWORD {
        if (index >= found.Keys().size())
            return ERROR_NO_MORE_ITEMS;
        const std::wstring& own = found.Keys()[index]->Name();
        const DWORD error = CopyName(own, name, *size);
        if (error == ERROR_SUCCESS)
            *size = static_cast<DWORD>(own.size());
        if (keyClass != nullptr && classSize != nullptr && *classSize != 0)
            keyClass[0] = 0;
        Give(classSize, DWORD(0));
        Give(written, FILETIME{});
        return error;
    });
}

LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD reserved, LPDWORD type, LPBYTE data,
                      LPDWORD size)
{
    if (name == nullptr || nameSize == nullptr || (data != nullptr && size == nullptr))
        return ERROR_INVALID_PARAMETER;
    return WithKey(key, nullptr, [&](const RegistryKey& found) -> DWORD {
        if (index >= found.Values().size())
            return ERROR_NO_MORE_ITEMS;
        const RegistryValue& value = found.Values()[index];
        Give(type, value.type);
        const DWORD error = CopyData(MemoryBytes(value.type, value.data), data, size);
        const DWORD nameError = CopyName(value.name, name, *nameSize);
        if (nameError != ERROR_SUCCESS)
            return nameError;
        *nameSize = static_cast<DWORD>(value.name.size());
        return error;
    });
}

LSTATUS RegQueryInfoKeyW(HKEY key, LPWSTR keyClass, LPDWORD classSize, LPDWORD reserved, LPDWORD subKeys,
                         LPDWORD longestSubKey, LPDWORD longestClass, LPDWORD values, LPDWORD longestName,
                         LPDWORD longestData, LPDWORD securitySize, LPFILETIME written)
{
    return WithKey(key, nullptr, [&](const RegistryKey& found) -> DWORD {
        size_t keyName = 0, valueName = 0, bytes = 0;
        for (const auto& child : found.Keys())
            keyName = std::max(keyName, child->Name().size());
        for (const RegistryValue& value : found.Values()) {
            valueName = std::max(valueName, value.name.size());
            bytes = std::max(bytes, MemoryBytes(value.type, value.data).size());
        }
        if (keyClass != nullptr && classSize != nullptr && *classSize != 0)
            keyClass[0] = 0;
        const std::pair<LPDWORD, size_t> answers[] = {{classSize, 0},
                                                      {subKeys, found.Keys().size()},
                                                      {longestSubKey, keyName},
                                                      {longestClass, 0},
                                                      {values, found.Values().size()},
                                                      {longestName, valueName},
                                                      {longestData, bytes},
                                                      {securitySize, 0}};
        for (const auto& [target, value] : answers)
            Give(target, static_cast<DWORD>(value));
        Give(written, FILETIME{});
        return ERROR_SUCCESS;
    });
}

// --- removal ----------------------------------------------------------------------------------------------------

LSTATUS RegDeleteKeyW(HKEY key, LPCWSTR subKey)
{
    Place place = PlaceOf(key, subKey);
    if (place.error != ERROR_SUCCESS)
        return place.error;
    if (subKey == nullptr)
        return ERROR_INVALID_PARAMETER;
    if (place.path.size() < 2)
        return ERROR_ACCESS_DENIED;   // a root key
    const RegistryPath whole = place.path;
    place.path.pop_back();
    const LSTATUS error = ChangeKey(place, ERROR_FILE_NOT_FOUND, [&](RegistryKey& parent) {
        const RegistryKey* found = parent.Find(whole.back());
        if (found == nullptr)
            return ERROR_FILE_NOT_FOUND;
        if (!found->Keys().empty())
            return ERROR_ACCESS_DENIED;
        parent.Remove(whole.back());
        return ERROR_SUCCESS;
    });
    if (error == ERROR_SUCCESS)
        KxPlat::ForgetKeysBelow(whole);
    return error;
}

LSTATUS RegDeleteTreeW(HKEY key, LPCWSTR subKey)
{
    const Place place = PlaceOf(key, subKey);
    if (place.error != ERROR_SUCCESS)
        return place.error;
    std::vector<RegistryPath> gone;
    const LSTATUS error = ChangeKey(place, ERROR_FILE_NOT_FOUND, [&](RegistryKey& target) {
        for (const auto& child : target.Keys()) {
            gone.push_back(place.path);
            gone.back().push_back(child->Name());
        }
        target.RemoveKeys();
        target.RemoveValues();
        return ERROR_SUCCESS;
    });
    if (error != ERROR_SUCCESS)
        return error;
    for (const RegistryPath& path : gone)
        KxPlat::ForgetKeysBelow(path);
    return TextOf(subKey).empty() ? LSTATUS(ERROR_SUCCESS) : RegDeleteKeyW(key, subKey);
}
