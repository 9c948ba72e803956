#include "Format.h"
#include "CodePage.h"
#include "RealText.h"
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace KxPlat {
namespace {

enum class Size { None, Short, Long, Int64, Pointer, Int32, Wide };

struct Spec {
    bool left = false, plus = false, blank = false, alternate = false, zero = false;
    int width = 0;
    int precision = -1;
    Size size = Size::None;
    wchar_t kind = 0;
};

constexpr int kMostPadding = 1 << 20;   // a width from a damaged format must not fill the memory

// A format and its arguments, read from left to right.
class Formatter {
public:
    Formatter(const wchar_t* format, va_list arguments) : m_at(format) { va_copy(m_arguments, arguments); }
    ~Formatter() { va_end(m_arguments); }
    Formatter(const Formatter&) = delete;
    Formatter& operator=(const Formatter&) = delete;
    std::wstring Run();

private:
    bool Take(const wchar_t* word);
    Spec ReadSpec();
    int ReadNumber();
    void ReadSize(Spec& spec);
    void Write(const Spec& spec);
    void WriteText(const Spec& spec);
    void WriteChar(const Spec& spec);
    void WriteInteger(const Spec& spec);
    void WriteReal(const Spec& spec);
    void WritePointer(const Spec& spec);
    int64_t Signed(const Spec& spec);
    uint64_t Unsigned(const Spec& spec);
    void Pad(const Spec& spec, std::wstring_view prefix, std::wstring_view body, bool zero);

    const wchar_t* m_at;
    va_list m_arguments;
    std::wstring m_out;
};

std::wstring Formatter::Run()
{
    m_out.reserve(60);   // most texts need no more
    while (*m_at != 0) {
        if (*m_at != L'%') {
            m_out += *m_at++;
            continue;
        }
        ++m_at;
        if (*m_at == L'%') {
            m_out += *m_at++;
            continue;
        }
        const Spec spec = ReadSpec();
        if (spec.kind != 0)
            Write(spec);
    }
    return std::move(m_out);
}

bool Formatter::Take(const wchar_t* word)
{
    const std::wstring_view wanted = word;
    for (size_t i = 0; i < wanted.size(); ++i) {
        if (m_at[i] != wanted[i])
            return false;
    }
    m_at += wanted.size();
    return true;
}

int Formatter::ReadNumber()
{
    if (Take(L"*"))
        return std::clamp(va_arg(m_arguments, int), -kMostPadding, kMostPadding);
    int number = 0;
    while (*m_at >= L'0' && *m_at <= L'9')
        number = std::min(number * 10 + (*m_at++ - L'0'), kMostPadding);
    return number;
}

void Formatter::ReadSize(Spec& spec)
{
    struct Row {
        const wchar_t* word;
        Size size;
    };
    static const Row rows[] = {
        {L"I64", Size::Int64}, {L"I32", Size::Int32}, {L"ll", Size::Int64},  {L"hh", Size::Short},  {L"h", Size::Short},
        {L"l", Size::Long},    {L"L", Size::Long},    {L"I", Size::Pointer}, {L"z", Size::Pointer}, {L"w", Size::Wide}};
    for (const Row& row : rows) {
        if (Take(row.word)) {
            spec.size = row.size;
            return;
        }
    }
}

Spec Formatter::ReadSpec()
{
    Spec spec;
    for (;; ++m_at) {
        if (*m_at == L'-')
            spec.left = true;
        else if (*m_at == L'+')
            spec.plus = true;
        else if (*m_at == L' ')
            spec.blank = true;
        else if (*m_at == L'#')
            spec.alternate = true;
        else if (*m_at == L'0')
            spec.zero = true;
        else
            break;
    }
    spec.width = ReadNumber();
    if (spec.width < 0) {
        spec.left = true;
        spec.width = -spec.width;
    }
    if (Take(L"."))
        spec.precision = ReadNumber();
    ReadSize(spec);
    spec.kind = *m_at;
    if (*m_at != 0)
        ++m_at;
    return spec;
}

void Formatter::Write(const Spec& spec)
{
    switch (spec.kind) {
    case L's':
    case L'S':
        return WriteText(spec);
    case L'c':
    case L'C':
        return WriteChar(spec);
    case L'd':
    case L'i':
    case L'u':
    case L'x':
    case L'X':
    case L'o':
        return WriteInteger(spec);
    case L'e':
    case L'E':
    case L'f':
    case L'F':
    case L'g':
    case L'G':
    case L'a':
    case L'A':
        return WriteReal(spec);
    case L'p':
        return WritePointer(spec);
    case L'n':
        va_arg(m_arguments, void*);   // storing a count through a format is refused
        return;
    default:
        m_out += spec.kind;   // an unknown letter stands for itself
    }
}

// %s is wide and %S narrow, unless the size says which.
bool IsNarrow(const Spec& spec, wchar_t narrowKind)
{
    if (spec.size == Size::Short)
        return true;
    return spec.size != Size::Long && spec.size != Size::Wide && spec.kind == narrowKind;
}

void Formatter::WriteText(const Spec& spec)
{
    std::wstring decoded;
    std::wstring_view text = L"(null)";
    if (IsNarrow(spec, L'S')) {
        if (const char* narrow = va_arg(m_arguments, const char*)) {
            decoded = Decode(0, narrow);
            text = decoded;
        }
    } else if (const wchar_t* wide = va_arg(m_arguments, const wchar_t*)) {
        size_t length = 0;
        while ((spec.precision < 0 || length < static_cast<size_t>(spec.precision)) && wide[length] != 0)
            ++length;
        text = std::wstring_view(wide, length);
    }
    if (spec.precision >= 0)
        text = text.substr(0, static_cast<size_t>(spec.precision));
    Pad(spec, L"", text, spec.zero);
}

void Formatter::WriteChar(const Spec& spec)
{
    const int value = va_arg(m_arguments, int);
    wchar_t character = static_cast<wchar_t>(value);
    if (IsNarrow(spec, L'C')) {
        const char byte = static_cast<char>(value);
        const std::wstring decoded = Decode(0, std::string_view(&byte, 1));
        character = decoded.empty() ? L'\0' : decoded[0];
    }
    Pad(spec, L"", std::wstring_view(&character, 1), spec.zero);
}

int64_t Formatter::Signed(const Spec& spec)
{
    switch (spec.size) {
    case Size::Int64:
    case Size::Pointer:
        return va_arg(m_arguments, int64_t);
    case Size::Long:
        return va_arg(m_arguments, long);
    case Size::Short:
        return static_cast<int16_t>(va_arg(m_arguments, int));
    default:
        return va_arg(m_arguments, int);
    }
}

uint64_t Formatter::Unsigned(const Spec& spec)
{
    const auto value = static_cast<uint64_t>(Signed(spec));
    if (spec.size == Size::Short)
        return value & 0xFFFF;
    const bool wide = spec.size == Size::Int64 || spec.size == Size::Pointer || spec.size == Size::Long;
    return wide ? value : value & 0xFFFFFFFF;
}

// The end of `room`, which 64 bits fill at most.
std::wstring_view DigitsIn(wchar_t (&room)[64], uint64_t value, unsigned base, bool capital)
{
    const wchar_t* const symbols = capital ? L"0123456789ABCDEF" : L"0123456789abcdef";
    size_t at = std::size(room);
    for (; value != 0; value /= base)
        room[--at] = symbols[value % base];
    return std::wstring_view(room + at, std::size(room) - at);
}

void Formatter::WriteInteger(const Spec& spec)
{
    const bool isSigned = spec.kind == L'd' || spec.kind == L'i';
    const int64_t number = isSigned ? Signed(spec) : 0;
    const uint64_t value =
        isSigned ? (number < 0 ? 0 - static_cast<uint64_t>(number) : static_cast<uint64_t>(number)) : Unsigned(spec);
    const unsigned base = spec.kind == L'o' ? 8 : spec.kind == L'x' || spec.kind == L'X' ? 16 : 10;
    wchar_t room[64];
    std::wstring_view digits = DigitsIn(room, value, base, spec.kind == L'X');
    const auto least = static_cast<size_t>(spec.precision < 0 ? 1 : spec.precision);
    std::wstring filled;
    if (digits.size() < least)
        digits = filled.assign(least - digits.size(), L'0').append(digits);
    std::wstring prefix;
    if (isSigned)
        prefix = number < 0 ? L"-" : spec.plus ? L"+" : spec.blank ? L" " : L"";
    else if (spec.alternate && base == 16 && value != 0)
        prefix = spec.kind == L'X' ? L"0X" : L"0x";
    else if (spec.alternate && base == 8 && (digits.empty() || digits[0] != L'0'))
        prefix = L"0";
    Pad(spec, prefix, digits, spec.zero && spec.precision < 0);
}

void Formatter::WriteReal(const Spec& spec)
{
    const double value = va_arg(m_arguments, double);
    const std::string digits = RealDigits(value, static_cast<char>(spec.kind), spec.precision, spec.alternate);
    std::wstring body(digits.begin(), digits.end());
    std::wstring prefix = std::signbit(value) ? L"-" : spec.plus ? L"+" : spec.blank ? L" " : L"";
    if (body.size() > 1 && (body[1] == L'x' || body[1] == L'X')) {
        prefix += body.substr(0, 2);
        body.erase(0, 2);
    }
    Pad(spec, prefix, body, spec.zero);
}

void Formatter::WritePointer(const Spec& spec)
{
    wchar_t room[64];
    const std::wstring_view digits = DigitsIn(room, reinterpret_cast<uintptr_t>(va_arg(m_arguments, void*)), 16, true);
    Pad(spec, std::wstring(16 - digits.size(), L'0'), digits, false);
}

void Formatter::Pad(const Spec& spec, std::wstring_view prefix, std::wstring_view body, bool zero)
{
    const size_t length = prefix.size() + body.size();
    const auto width = static_cast<size_t>(spec.width);
    const size_t fill = width > length ? width - length : 0;
    if (!spec.left && !zero)
        m_out.append(fill, L' ');
    m_out += prefix;
    if (!spec.left && zero)
        m_out.append(fill, L'0');
    m_out += body;
    if (spec.left)
        m_out.append(fill, L' ');
}

}   // namespace

std::wstring FormatV(const wchar_t* format, va_list arguments)
{
    return format == nullptr ? std::wstring() : Formatter(format, arguments).Run();
}

std::wstring Format(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::wstring text = FormatV(format, arguments);
    va_end(arguments);
    return text;
}

}   // namespace KxPlat
