#include "Profile.h"
#include "CharTables.h"
#include "Files.h"
#include "IniText.h"
#include "WinAnswer.h"
#include <algorithm>
#include <string>

namespace {

std::wstring_view TextOf(const wchar_t* text)
{
    return text != nullptr ? std::wstring_view(text) : std::wstring_view();
}

std::wstring FullName(const wchar_t* file)
{
    const std::wstring name = file != nullptr ? file : L"win.ini";
    return name.find_first_of(L":\\/") == std::wstring::npos ? L"C:\\windows\\" + name : name;
}

std::string FolderOf(const std::string& path)
{
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

// The Windows error that stands in the way of a file named like this, 0 when nothing does.
DWORD NameError(const std::wstring& name, const std::string& path)
{
    const KxPlat::FileInfo info = KxPlat::FileInfoOf(path);
    if (info.isFolder)
        return ERROR_ACCESS_DENIED;
    if (name.back() == L'\\' || name.back() == L'/')
        return ERROR_INVALID_NAME;
    return KxPlat::FileInfoOf(FolderOf(path)).isFolder ? DWORD(ERROR_SUCCESS) : DWORD(ERROR_PATH_NOT_FOUND);
}

// Reads the file; a file that cannot be read is empty, and the last error says why.
KxPlat::IniText Read(const wchar_t* file)
{
    if (file != nullptr && file[0] == 0) {
        SetLastError(ERROR_ACCESS_DENIED);
        return {};
    }
    const std::wstring name = FullName(file);
    const std::string path = KxPlat::HostPath(name);
    DWORD winError = NameError(name, path);
    std::string bytes;
    if (winError == 0) {
        int error = 0;
        bytes = KxPlat::ReadWholeFile(path, error);
        winError = KxPlat::WinErrorOf(error);
    }
    SetLastError(winError);
    return KxPlat::IniText::Parse(bytes);
}

// Values and defaults are handed out without one pair of equal quotes around them.
std::wstring_view Unquoted(std::wstring_view value)
{
    const bool quoted = value.size() >= 2 && (value[0] == L'"' || value[0] == L'\'') && value.back() == value[0];
    return quoted ? value.substr(1, value.size() - 2) : value;
}

DWORD CopyText(std::wstring_view text, wchar_t* buffer, DWORD size)
{
    const size_t length = std::min<size_t>(text.size(), size - 1);
    std::copy_n(text.data(), length, buffer);
    buffer[length] = 0;
    return static_cast<DWORD>(length);
}

// Copies a list whose items each end in a zero, and one zero more. A cut list ends in two zeros all the same.
DWORD CopyList(const std::wstring& list, wchar_t* buffer, DWORD size)
{
    if (size < 2) {
        std::fill_n(buffer, size, L'\0');
        return 0;
    }
    const bool fits = list.size() < size;
    const size_t length = fits ? list.size() : size - 2;
    std::copy_n(list.data(), length, buffer);
    buffer[length] = 0;
    if (!fits)
        buffer[length + 1] = 0;
    return static_cast<DWORD>(length);
}

std::wstring SectionList(const KxPlat::IniText& ini)
{
    std::wstring list;
    for (const std::wstring& name : ini.SectionNames())
        (list += name) += L'\0';
    return list;
}

std::wstring KeyList(const KxPlat::IniText& ini, std::wstring_view section)
{
    std::wstring list;
    for (const KxPlat::IniLine* line : ini.KeysOf(section)) {
        if (line->hasValue)
            (list += line->name) += L'\0';
    }
    return list;
}

DWORD CopyDefault(const wchar_t* defaultText, wchar_t* buffer, DWORD size)
{
    std::wstring_view text = TextOf(defaultText);
    while (!text.empty() && text.back() == L' ')
        text.remove_suffix(1);
    return CopyText(Unquoted(text), buffer, size);
}

}   // namespace

DWORD GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR defaultText, LPWSTR buffer, DWORD size,
                               LPCWSTR file)
{
    if (buffer == nullptr || size == 0)
        return 0;
    const KxPlat::IniText ini = Read(file);
    if (section != nullptr && key != nullptr) {
        const KxPlat::IniLine* line = ini.Find(section, key);
        return line != nullptr && line->hasValue ? CopyText(Unquoted(line->value), buffer, size)
                                                 : CopyDefault(defaultText, buffer, size);
    }
    const DWORD copied = CopyList(section == nullptr ? SectionList(ini) : KeyList(ini, section), buffer, size);
    return copied != 0 ? copied : CopyDefault(defaultText, buffer, size);
}

UINT GetPrivateProfileIntW(LPCWSTR section, LPCWSTR key, INT defaultValue, LPCWSTR file)
{
    wchar_t buffer[64];
    if (GetPrivateProfileStringW(section, key, L"", buffer, ARRAYSIZE(buffer), file) == 0)
        return static_cast<UINT>(defaultValue);
    const wchar_t* at = buffer;
    while (KxPlat::IsSpace(*at))
        ++at;
    const bool negative = *at == L'-';
    if (*at == L'-' || *at == L'+')
        ++at;
    const bool isHex = at[0] == L'0' && KxPlat::Lower(at[1]) == L'x';
    const std::wstring_view digits = isHex ? L"0123456789abcdef" : L"0123456789";
    UINT value = 0;
    for (at += isHex ? 2 : 0; *at != 0; ++at) {
        const size_t digit = digits.find(KxPlat::Lower(*at));
        if (digit == std::wstring_view::npos)
            break;
        value = value * static_cast<UINT>(digits.size()) + static_cast<UINT>(digit);
    }
    return negative ? 0u - value : value;
}

DWORD GetPrivateProfileSectionW(LPCWSTR section, LPWSTR buffer, DWORD size, LPCWSTR file)
{
    if (section == nullptr || buffer == nullptr || size == 0)
        return 0;
    const KxPlat::IniText ini = Read(file);
    std::wstring list;
    for (const KxPlat::IniLine* line : ini.KeysOf(section))
        (list += line->hasValue ? line->name + L"=" + line->value : line->name) += L'\0';
    return CopyList(list, buffer, size);
}

DWORD GetPrivateProfileSectionNamesW(LPWSTR buffer, DWORD size, LPCWSTR file)
{
    if (buffer == nullptr || size == 0)
        return 0;
    return CopyList(SectionList(Read(file)), buffer, size);
}

BOOL WritePrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR value, LPCWSTR file)
{
    if (section == nullptr || (file != nullptr && file[0] == 0))
        return KxPlat::FailWith(ERROR_FILE_NOT_FOUND);
    const std::wstring name = FullName(file);
    const std::string path = KxPlat::HostPath(name);
    if (file == nullptr || TextOf(file) != name)
        KxPlat::MakeFolders(KxPlat::HostPath(L"C:\\windows"));
    const DWORD nameError = NameError(name, path);
    if (nameError != 0)
        return KxPlat::FailWith(nameError);
    int error = 0;
    const std::string before = KxPlat::ReadWholeFile(path, error);
    if (error != 0 && KxPlat::FileInfoOf(path).exists)
        return KxPlat::FailWith(KxPlat::WinErrorOf(error));
    KxPlat::IniText ini = KxPlat::IniText::Parse(before);
    const KxPlat::IniLine* old = key != nullptr ? ini.Find(section, key) : nullptr;
    if (key == nullptr)
        ini.RemoveSection(section);
    else if (value == nullptr)
        ini.RemoveKey(section, key);
    else if (old == nullptr || !old->hasValue || old->value != value)
        ini.Set(section, key, value);
    else
        return TRUE;   // the same value again leaves the file alone
    if (value == nullptr && error != 0)
        return TRUE;
    KxPlat::AtomicFile out;
    error = out.Open(path);
    if (error == 0) {
        out.Write(ini.Bytes());
        error = out.Commit();
    }
    return error == 0 ? TRUE : KxPlat::FailWith(KxPlat::WinErrorOf(error));
}
