#include "ByteReader.h"
#include "../win/CharTables.h"
#include "../win/CodePage.h"
#include "../win/KxWinTypes.h"

namespace KxPlat {

bool OrdinalOrName::Is(const wchar_t* resourceName) const
{
    if (IS_INTRESOURCE(resourceName))
        return name.empty() && ordinal == unsigned(reinterpret_cast<UINT_PTR>(resourceName));
    return !name.empty() && EqualNoCase(name, resourceName);
}

uint64_t ByteReader::Number(size_t size)
{
    const std::string_view bytes = Bytes(size);
    uint64_t number = 0;
    for (size_t i = bytes.size(); i-- > 0;)
        number = number << 8 | uint8_t(bytes[i]);
    return number;
}

std::string_view ByteReader::Bytes(size_t count)
{
    if (m_failed || count > Left()) {
        m_failed = true;
        return {};
    }
    const std::string_view bytes = m_bytes.substr(m_at, count);
    m_at += count;
    return bytes;
}

std::wstring ByteReader::Text()
{
    std::u16string units;
    for (uint16_t unit = U16(); unit != 0 && !m_failed; unit = U16())
        units += char16_t(unit);
    return FromUtf16(units);
}

std::wstring ByteReader::Text(size_t units)
{
    const std::string_view bytes = units <= Left() / 2 ? Bytes(units * 2) : Bytes(Left() + 1);
    std::u16string text;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2)
        text += char16_t(uint8_t(bytes[i]) | uint8_t(bytes[i + 1]) << 8);
    return FromUtf16(text);
}

OrdinalOrName ByteReader::Name()
{
    OrdinalOrName result;
    const uint16_t first = U16();
    if (first == 0xFFFF) {
        result.ordinal = U16();
    } else if (first != 0) {
        m_at -= m_failed ? 0 : 2;
        result.name = Text();
    }
    return result;
}

void ByteReader::Align(size_t to)
{
    const size_t missing = (to - m_at % to) % to;
    Bytes(missing < Left() ? missing : Left());
}

}   // namespace KxPlat
