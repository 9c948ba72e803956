// Conversion, case and formatting of texts.
#include "CharTables.h"
#include "CodePage.h"
#include "Format.h"
#include "KxWinTypes.h"
#include <algorithm>

namespace {

using FormatFunction = int(__cdecl*)(wchar_t*, size_t, const wchar_t*, va_list);

FormatFunction RuntimeFormat()
{
    static const auto function = reinterpret_cast<FormatFunction>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"msvcrt.dll"), "_vsnwprintf")));
    return function;
}

wchar_t Mapped(wchar_t character, DWORD how)
{
    wchar_t mapped = character;
    LCMapStringW(LOCALE_INVARIANT, how, &character, 1, &mapped, 1);
    return mapped;
}

}   // namespace

int KxRuntime_vsnwprintf(wchar_t* buffer, size_t count, const wchar_t* format, va_list arguments)
{
    return RuntimeFormat()(buffer, count, format, arguments);
}

int KxRuntime_snwprintf(wchar_t* buffer, size_t count, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = RuntimeFormat()(buffer, count, format, arguments);
    va_end(arguments);
    return length;
}

namespace KxPlat {

std::wstring FormatV(const wchar_t* format, va_list arguments)
{
    for (size_t room = 256;; room *= 2) {
        std::wstring text(room, L'\0');
        va_list copy;
        va_copy(copy, arguments);
        const int length = RuntimeFormat()(text.data(), room, format, copy);
        va_end(copy);
        if (length < 0)
            continue;
        text.resize(size_t(length));
        return text;
    }
}

std::wstring Decode(unsigned codePage, std::string_view bytes)
{
    const int count = int(bytes.size());
    std::wstring text(size_t(std::max(MultiByteToWideChar(codePage, 0, bytes.data(), count, nullptr, 0), 0)), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), count, text.data(), int(text.size()));
    return text;
}

std::string Encode(unsigned codePage, std::wstring_view text)
{
    const int count = int(text.size());
    const int size = WideCharToMultiByte(codePage, 0, text.data(), count, nullptr, 0, nullptr, nullptr);
    std::string bytes(size_t(std::max(size, 0)), '\0');
    WideCharToMultiByte(codePage, 0, text.data(), count, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

wchar_t Upper(wchar_t character)
{
    return Mapped(character, LCMAP_UPPERCASE);
}

wchar_t Lower(wchar_t character)
{
    return Mapped(character, LCMAP_LOWERCASE);
}

bool IsSpace(wchar_t character)
{
    WORD kind = 0;
    return character != L'\0' && GetStringTypeW(CT_CTYPE1, &character, 1, &kind) && (kind & C1_SPACE) != 0;
}

int CompareNoCase(std::wstring_view a, std::wstring_view b)
{
    for (size_t i = 0; i < a.size() && i < b.size(); ++i) {
        if (const int difference = Lower(a[i]) - Lower(b[i]); difference != 0)
            return difference;
    }
    return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
}

}   // namespace KxPlat
