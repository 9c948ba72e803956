#include "CrtText.h"
#include "CharTables.h"
#include "Format.h"
#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <string>

namespace {

int Difference(wchar_t a, wchar_t b)
{
    return static_cast<int>(KxPlat::Lower(a)) - static_cast<int>(KxPlat::Lower(b));
}

const wchar_t* AfterBlanks(const wchar_t* text)
{
    while (KxPlat::IsSpace(*text))
        ++text;
    return text;
}

// A number longer than this has no digit that still counts.
constexpr size_t kLongestNumber = 1200;

}   // namespace

int _wcsicmp(const wchar_t* a, const wchar_t* b)
{
    return _wcsnicmp(a, b, std::numeric_limits<size_t>::max());
}

int _wcsnicmp(const wchar_t* a, const wchar_t* b, size_t count)
{
    for (size_t i = 0; i < count; ++i) {
        const int difference = Difference(a[i], b[i]);
        if (difference != 0 || a[i] == 0)
            return difference;
    }
    return 0;
}

wchar_t* _wcsupr(wchar_t* text)
{
    for (wchar_t* at = text; at != nullptr && *at != 0; ++at)
        *at = KxPlat::Upper(*at);
    return text;
}

wchar_t* _wcslwr(wchar_t* text)
{
    for (wchar_t* at = text; at != nullptr && *at != 0; ++at)
        *at = KxPlat::Lower(*at);
    return text;
}

wchar_t* _wcsdup(const wchar_t* text)
{
    if (text == nullptr)
        return nullptr;
    const size_t size = std::wcslen(text) + 1;
    auto* copy = static_cast<wchar_t*>(std::malloc(size * sizeof(wchar_t)));
    if (copy != nullptr)
        std::copy_n(text, size, copy);
    return copy;
}

int _wtoi(const wchar_t* text)
{
    const LONGLONG value = _wtoi64(text);
    return static_cast<int>(
        std::clamp<LONGLONG>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

LONG _wtol(const wchar_t* text)
{
    return _wtoi(text);
}

LONGLONG _wtoi64(const wchar_t* text)
{
    if (text == nullptr)
        return 0;
    text = AfterBlanks(text);
    const bool negative = *text == L'-';
    if (*text == L'-' || *text == L'+')
        ++text;
    constexpr uint64_t kLimit = uint64_t(1) << 63;
    uint64_t value = 0;
    for (; KxPlat::IsDigit(*text); ++text) {
        const auto digit = static_cast<uint64_t>(*text - L'0');
        value = value > (kLimit - digit) / 10 ? kLimit : value * 10 + digit;
    }
    if (negative)
        return static_cast<LONGLONG>(0 - value);
    return static_cast<LONGLONG>(std::min(value, kLimit - 1));
}

double _wtof(const wchar_t* text)
{
    if (text == nullptr)
        return 0;
    text = AfterBlanks(text);
    std::string digits;
    if (*text == L'-')
        digits = "-";
    if (*text == L'-' || *text == L'+')
        ++text;
    for (; digits.size() < kLongestNumber && *text != 0; ++text) {
        const wchar_t c = *text;
        const bool isSign = (c == L'+' || c == L'-') && !digits.empty() && digits.back() == 'e';
        if (KxPlat::IsDigit(c) || c == L'.' || isSign)
            digits += static_cast<char>(c);
        else if (c == L'e' || c == L'E' || c == L'd' || c == L'D')
            digits += 'e';
        else
            break;
    }
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error == std::errc::result_out_of_range)
        return std::strtod(digits.c_str(), nullptr);   // zero or infinity with the right sign
    return error == std::errc() ? value : 0;
}

wchar_t* _itow(int value, wchar_t* buffer, int radix)
{
    // Only decimal numbers have a sign.
    const bool negative = value < 0 && radix == 10;
    unsigned rest = negative ? 0u - static_cast<unsigned>(value) : static_cast<unsigned>(value);
    std::wstring digits;
    do {
        digits += L"0123456789abcdefghijklmnopqrstuvwxyz"[rest % static_cast<unsigned>(radix)];
        rest /= static_cast<unsigned>(radix);
    } while (rest != 0);
    if (negative)
        digits += L'-';
    std::copy(digits.rbegin(), digits.rend(), buffer);
    buffer[digits.size()] = 0;
    return buffer;
}

int _snwprintf(wchar_t* buffer, size_t count, const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = _vsnwprintf(buffer, count, format, arguments);
    va_end(arguments);
    return length;
}

int _vsnwprintf(wchar_t* buffer, size_t count, const wchar_t* format, va_list arguments)
{
    const std::wstring text = KxPlat::FormatV(format, arguments);
    std::copy_n(text.data(), std::min(text.size(), count), buffer);
    if (text.size() > count || count == 0)
        return -1;
    if (text.size() < count)
        buffer[text.size()] = 0;
    return static_cast<int>(text.size());
}

int lstrlenW(LPCWSTR text)
{
    return text != nullptr ? static_cast<int>(std::wcslen(text)) : 0;
}
