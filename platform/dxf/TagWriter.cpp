#include "TagWriter.h"
#include "BinaryTags.h"
#include <cmath>

namespace KxPlat {

namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

char* WriteHandle(char* to, uint64_t value)
{
    int shift = 60;
    while (shift > 0 && value >> shift == 0)
        shift -= 4;
    for (; shift >= 0; shift -= 4)
        *to++ = kHexDigits[value >> shift & 15];
    return to;
}

// The shortest digits that read back as the same number, with a point: "1" stands for no real.
char* WriteReal(char* to, double value)
{
    char* const end = std::to_chars(to, to + 32, value).ptr;
    for (const char* at = to; at < end; ++at)
        if (*at == '.' || *at == 'e')
            return end;
    end[0] = '.';
    end[1] = '0';
    return end + 2;
}

// Rounded, without zeros at the end; numbers too large to have decimals stay as they are.
char* WriteRounded(char* to, double value, int decimals)
{
    if (std::abs(value) >= 1e15)
        return WriteReal(to, value);
    char* end = std::to_chars(to, to + 64, value, std::chars_format::fixed, decimals).ptr;
    if (std::memchr(to, '.', size_t(end - to)) == nullptr)
        *end++ = '.', *end++ = '0';
    while (end[-1] == '0' && end[-2] != '.')
        --end;
    return end;
}

uint8_t WidthOf(GroupKind kind)
{
    switch (kind) {
    case GroupKind::Int16:
    case GroupKind::Bool:
        return 6;
    case GroupKind::Int32:
        return 9;
    default:
        return 0;
    }
}

}   // namespace

void OutBuffer::Append(std::string_view bytes)
{
    while (!bytes.empty()) {
        const size_t part = std::min(bytes.size(), kSize - m_used);
        std::memcpy(m_bytes.get() + m_used, bytes.data(), part);
        m_used += part;
        bytes.remove_prefix(part);
        if (m_used == kSize)
            Empty();
    }
}

bool OutBuffer::Empty()
{
    if (m_used > 0)
        m_isGood = m_flush({m_bytes.get(), m_used}) && m_isGood;
    m_used = 0;
    return m_isGood;
}

AsciiTagWriter::AsciiTagWriter(OutBuffer& out, const AsciiForm& form) : m_out(out), m_form(form)
{
    for (size_t code = 0; code < m_codes.size(); ++code) {
        CodeLine& line = m_codes[code];
        char* const end = OddCode(line.text, int(code));
        line.size = uint8_t(end - line.text);
        line.width = m_form.isPadded ? WidthOf(KindOfGroup(int(code))) : 0;
    }
}

char* AsciiTagWriter::OddCode(char* to, int code)
{
    if (m_form.isPadded)
        for (int least : {100, 10})
            if (code < least)
                *to++ = ' ';
    to = std::to_chars(to, to + 8, code).ptr;
    if (m_form.hasCrLf)
        *to++ = '\r';
    *to++ = '\n';
    return to;
}

void AsciiTagWriter::LongText(char* to, std::string_view bytes)
{
    m_out.Took(to);
    m_out.Append(bytes);
    End(m_out.Room());
}

void AsciiTagWriter::Real(int code, double value)
{
    char* to = Code(m_out.Room(), code);
    End(m_form.decimals >= 16 ? WriteReal(to, value) : WriteRounded(to, value, m_form.decimals));
}

void AsciiTagWriter::Integer(int code, int64_t value)
{
    char digits[24];
    const size_t count = size_t(std::to_chars(digits, digits + sizeof digits, value).ptr - digits);
    char* to = Code(m_out.Room(), code);
    const size_t width = unsigned(code) < m_codes.size() ? m_codes[size_t(code)].width : 0;
    for (size_t blanks = count; blanks < width; ++blanks)
        *to++ = ' ';
    std::memcpy(to, digits, count);
    End(to + count);
}

void AsciiTagWriter::Handle(int code, uint64_t value)
{
    End(WriteHandle(Code(m_out.Room(), code), value));
}

// A line holds as many bytes as were read from one; readers of other make take at most 127 at a time.
void AsciiTagWriter::Chunk(int code, std::string_view bytes)
{
    char* to = Code(m_out.Room(), code);
    for (unsigned char byte : bytes) {
        if (to + 4 > m_out.Room() + OutBuffer::kRoom) {
            m_out.Took(to);
            to = m_out.Room();
        }
        *to++ = kHexDigits[byte >> 4];
        *to++ = kHexDigits[byte & 15];
    }
    m_out.Took(to);
    End(m_out.Room());
}

BinaryTagWriter::BinaryTagWriter(OutBuffer& out, bool hasShortCodes) : m_out(out), m_hasShortCodes(hasShortCodes)
{
    m_out.Append(kBinarySentinel);
}

char* BinaryTagWriter::Code(int code)
{
    char* to = m_out.Room();
    const bool isShort = m_hasShortCodes && code < 255;
    if (m_hasShortCodes && !isShort)
        *to++ = char(255);
    *to++ = char(code & 255);
    if (!isShort)
        *to++ = char(code >> 8);
    return to;
}

template <class T>
void BinaryTagWriter::Value(int code, T value)
{
    char* to = Code(code);
    std::memcpy(to, &value, sizeof value);
    m_out.Took(to + sizeof value);
}

void BinaryTagWriter::Text(int code, std::string_view bytes)
{
    m_out.Took(Code(code));
    m_out.Append(bytes);
    m_out.Append({"\0", 1});
}

void BinaryTagWriter::Real(int code, double value)
{
    if (KindOfGroup(code) == GroupKind::Real)
        return Value(code, value);
    if (std::abs(value) < 9.0e18)
        Integer(code, int64_t(value));
    else
        Integer(code, 0);
}

void BinaryTagWriter::Integer(int code, int64_t value)
{
    switch (KindOfGroup(code)) {
    case GroupKind::Int16:
        return Value(code, int16_t(value));
    case GroupKind::Int32:
        return Value(code, int32_t(value));
    case GroupKind::Int64:
        return Value(code, value);
    case GroupKind::Bool:
        return Value(code, uint8_t(value));
    case GroupKind::Real:
        return Value(code, double(value));
    default:
        return Text(code, std::to_string(value));
    }
}

void BinaryTagWriter::Handle(int code, uint64_t value)
{
    char digits[16];
    Text(code, {digits, size_t(WriteHandle(digits, value) - digits)});
}

void BinaryTagWriter::Chunk(int code, std::string_view bytes)
{
    constexpr size_t kMost = 255;
    do {
        const std::string_view part = bytes.substr(0, kMost);
        char* to = Code(code);
        *to++ = char(part.size());
        m_out.Took(to);
        m_out.Append(part);
        bytes.remove_prefix(part.size());
    } while (!bytes.empty());
}

}   // namespace KxPlat
