#include "Environment.h"
#include "CharTables.h"
#include "CodePage.h"
#include "Files.h"
#include "WinAnswer.h"
#include <algorithm>
#include <cstdlib>
#include <optional>

namespace KxPlat {
namespace {

std::optional<std::wstring> Variable(const std::wstring& name)
{
    static const struct {
        const wchar_t *name, *value;
    } kFixed[] = {{L"WINDIR", L"C:\\windows"}, {L"SystemRoot", L"C:\\windows"}, {L"SystemDrive", L"C:"}};
    if (const char* value = std::getenv(ToUtf8(name).c_str()))
        return FromUtf8(value);
    for (const auto& row : kFixed) {
        if (EqualNoCase(name, row.name))
            return row.value;
    }
    if (EqualNoCase(name, L"TEMP") || EqualNoCase(name, L"TMP"))
        return DrivePath(TempFolder());
    return std::nullopt;
}

}   // namespace

std::wstring ExpandEnvironment(std::wstring_view text)
{
    std::wstring out;
    for (size_t at = 0; at < text.size();) {
        const size_t end = text[at] == L'%' ? text.find(L'%', at + 1) : std::wstring_view::npos;
        const std::optional<std::wstring> value =
            end != std::wstring_view::npos ? Variable(std::wstring(text.substr(at + 1, end - at - 1))) : std::nullopt;
        if (value)
            out += *value;
        else
            out += text[at];
        at = value ? end + 1 : at + 1;
    }
    return out;
}

}   // namespace KxPlat

DWORD ExpandEnvironmentStringsW(LPCWSTR text, LPWSTR buffer, DWORD size)
{
    const std::wstring expanded = KxPlat::ExpandEnvironment(text != nullptr ? text : L"");
    if (buffer != nullptr && expanded.size() < size)
        std::copy_n(expanded.c_str(), expanded.size() + 1, buffer);
    return static_cast<DWORD>(expanded.size() + 1);
}

DWORD GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size)
{
    const std::optional<std::wstring> value = KxPlat::Variable(name != nullptr ? name : L"");
    if (!value)
        return static_cast<DWORD>(KxPlat::FailWith(ERROR_ENVVAR_NOT_FOUND));
    return KxPlat::AnswerText(value->c_str(), value->size(), buffer, size);
}
