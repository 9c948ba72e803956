// Little-endian fields of a resource. Reading past the end gives zeros and is remembered.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace KxPlat {

// A name of a resource or window class: a number, or a text when the number is 0.
struct OrdinalOrName {
    unsigned ordinal = 0;
    std::wstring name;
    bool Is(const wchar_t* resourceName) const;   // a text without regard to case, or MAKEINTRESOURCE of a number
};

class ByteReader {
public:
    explicit ByteReader(std::string_view bytes) : m_bytes(bytes) {}

    bool Failed() const { return m_failed; }
    size_t Position() const { return m_at; }
    size_t Left() const { return m_bytes.size() - m_at; }
    uint8_t U8() { return uint8_t(Number(1)); }
    uint16_t U16() { return uint16_t(Number(2)); }
    int16_t I16() { return int16_t(Number(2)); }
    uint32_t U32() { return uint32_t(Number(4)); }
    std::wstring Text();               // up to a zero
    std::wstring Text(size_t units);   // of so many UTF-16 units
    OrdinalOrName Name();
    std::string_view Bytes(size_t count);
    void Align(size_t to);

private:
    uint64_t Number(size_t size);
    std::string_view m_bytes;
    size_t m_at = 0;
    bool m_failed = false;
};

}   // namespace KxPlat
