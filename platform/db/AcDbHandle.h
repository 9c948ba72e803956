// The permanent name of an object within its drawing: 64 bits, written in hexadecimal.
#pragma once
#include <cstdint>

class AcDbHandle {
public:
    AcDbHandle() = default;
    explicit AcDbHandle(uint64_t value) : m_value(value) {}
    AcDbHandle(int32_t low, int32_t high) : m_value(uint64_t(uint32_t(high)) << 32 | uint32_t(low)) {}
    explicit AcDbHandle(const wchar_t* hexDigits);

    int32_t low() const { return int32_t(m_value); }
    int32_t high() const { return int32_t(m_value >> 32); }
    bool isNull() const { return m_value == 0; }
    operator uint64_t() const { return m_value; }

    // Hexadecimal digits without prefix; 17 characters always suffice. The size of the second form counts characters.
    bool getIntoAsciiBuffer(wchar_t* buffer) const;
    bool getIntoAsciiBuffer(wchar_t* buffer, uint32_t size) const;

private:
    uint64_t m_value = 0;
};
