// Whole bytes in the order of DWG files, lowest first. Reading behind the end gives zeros and is remembered.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace KxPlat {

class ByteWalk {
public:
    explicit ByteWalk(std::string_view bytes, uint64_t at = 0) : m_bytes(bytes), m_at(at) {}

    uint8_t Byte() { return uint8_t(Number(1)); }
    uint16_t Short() { return uint16_t(Number(2)); }
    uint32_t Long() { return uint32_t(Number(4)); }
    uint64_t Long64() { return Number(8); }
    uint16_t BigShort()
    {
        const uint16_t value = Short();
        return uint16_t(value << 8 | value >> 8);
    }
    // As many as there are.
    std::string_view Take(uint64_t count)
    {
        if (!Has(count))
            count = left();
        const std::string_view taken = m_bytes.substr(m_at, count);
        m_at += count;
        return taken;
    }
    void Skip(uint64_t count) { Take(count); }
    void MoveTo(uint64_t at)
    {
        m_isBroken = m_isBroken || at > m_bytes.size();
        m_at = at > m_bytes.size() ? m_bytes.size() : at;
    }

    uint64_t at() const { return m_at; }
    uint64_t left() const { return m_at > m_bytes.size() ? 0 : m_bytes.size() - m_at; }
    bool isBroken() const { return m_isBroken; }

private:
    bool Has(uint64_t count)
    {
        if (count <= left())
            return true;
        m_isBroken = true;
        if (m_at > m_bytes.size())
            m_at = m_bytes.size();
        return false;
    }
    uint64_t Number(int count)
    {
        if (!Has(uint64_t(count))) {
            m_at = m_bytes.size();
            return 0;
        }
        uint64_t value = 0;
        for (int i = 0; i < count; ++i)
            value |= uint64_t(uint8_t(m_bytes[m_at + uint64_t(i)])) << (8 * i);
        m_at += uint64_t(count);
        return value;
    }

    std::string_view m_bytes;
    uint64_t m_at;
    bool m_isBroken = false;
};

inline void AppendNumber(std::string& out, uint64_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out += char(value >> (8 * i));
}
inline void AppendShort(std::string& out, uint64_t value)
{
    AppendNumber(out, value, 2);
}
inline void AppendLong(std::string& out, uint64_t value)
{
    AppendNumber(out, value, 4);
}
inline void AppendLong64(std::string& out, uint64_t value)
{
    AppendNumber(out, value, 8);
}
inline void AppendBigShort(std::string& out, unsigned value)
{
    out += char(value >> 8);
    out += char(value);
}
inline void PutNumber(std::string& out, size_t at, uint64_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out[at + size_t(i)] = char(value >> (8 * i));
}
inline uint64_t RoundUp(uint64_t value, uint64_t step)
{
    return (value + step - 1) / step * step;
}

}   // namespace KxPlat
