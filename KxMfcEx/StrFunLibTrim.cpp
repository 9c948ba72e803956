#include "StrFunLib.h"
#include <cstring>

namespace {

bool IsHighSurrogate(wchar_t unit)
{
    return (static_cast<uint32_t>(unit) & 0xFFFFFC00) == 0xD800;
}

bool IsLowSurrogate(wchar_t unit)
{
    return (static_cast<uint32_t>(unit) & 0xFFFFFC00) == 0xDC00;
}

bool IsContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// The length of the UTF-8 character that a byte begins.
int Utf8Length(char first)
{
    const auto byte = static_cast<unsigned char>(first);
    return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

bool IsLead(const char* text, const char* at)
{
    const auto bytes = [](const char* pointer) { return reinterpret_cast<const unsigned char*>(pointer); };
    return *bytes(at) > 128 && _ismbslead(bytes(text), bytes(at)) != 0;
}

// The bytes of the half character at the end of the first `count` bytes.
int HalfAtEnd(const char* text, int count)
{
    if (count == 0)
        return 0;
    if (GetACP() != CP_UTF8)
        return IsLead(text, text + count - 1) ? 1 : 0;
    int length = 1;
    while (length < 4 && length < count && IsContinuation(text[count - length]))
        ++length;
    return Utf8Length(text[count - length]) > length ? length : 0;
}

// The bytes from `at` on that belong to a character begun before.
int HalfAtStart(const char* text, const char* at)
{
    if (at == text || *at == 0)
        return 0;
    if (GetACP() != CP_UTF8)
        return IsLead(text, at - 1) ? 1 : 0;
    int length = 0;
    while (length < 3 && IsContinuation(at[length]))
        ++length;
    return length;
}

template <class Char>
int Kept(const Char* text, int count)
{
    int length = 0;
    while (text[length] != 0 && length != count)
        ++length;
    return length;
}

}   // namespace

char* CStrFunLib::StrTrimValid(char* text, int count)
{
    if (text == nullptr)
        return nullptr;
    const int kept = Kept(text, count);
    text[kept - HalfAtEnd(text, kept)] = 0;
    return text;
}

wchar_t* CStrFunLib::StrTrimValid(wchar_t* text, int count)
{
    if (text == nullptr)
        return nullptr;
    const int kept = Kept(text, count);
    text[kept > 0 && IsHighSurrogate(text[kept - 1]) ? kept - 1 : kept] = 0;
    return text;
}

char* CStrFunLib::StrTrimReverseValid(char* text, int count)
{
    if (text == nullptr)
        return nullptr;
    const size_t length = std::strlen(text);
    const char* from = count < 0 || size_t(count) > length ? text : text + length - size_t(count);
    from += HalfAtStart(text, from);
    std::memmove(text, from, std::strlen(from) + 1);
    return text;
}

wchar_t* CStrFunLib::StrTrimReverseValid(wchar_t* text, int count)
{
    if (text == nullptr)
        return nullptr;
    const size_t length = std::wcslen(text);
    const wchar_t* from = count < 0 || size_t(count) > length ? text : text + length - size_t(count);
    from += from != text && IsLowSurrogate(*from) ? 1 : 0;
    std::wmemmove(text, from, std::wcslen(from) + 1);
    return text;
}
